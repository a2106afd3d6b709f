// Helpers for the adapters that answer the RegionalFormats port: cleaning what a formatter
// gives, and formatting by a pattern of letters. They know nothing of the program's own date
// layouts; those are in dates/date_text.h.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "dates/civil.h"
#include "dates/regional_formats.h"

namespace tidewarden {

// Names of months and days in one language. Index 0 is January and Sunday.
struct CalendarNames {
  std::array<std::string, 12> months;
  std::array<std::string, 12> monthAbbreviations;
  std::array<std::string, 7> weekdays;
  std::array<std::string, 7> weekdayAbbreviations;
  // Without a day beside them; an empty one is the same as in `months`.
  std::array<std::string, 12> monthsAlone{};
};

[[nodiscard]] const CalendarNames& EnglishCalendarNames();

// Removes direction marks, turns no-break blanks into blanks and every decimal digit of
// another script into 0 to 9, and drops blanks directly behind ".", "-" and "/". "31. 12. 1992"
// becomes "31.12.1992".
[[nodiscard]] std::string CleanRegionalText(std::string_view text);

// Formats a real date by pattern letters: d dd ddd dddd (day, weekday), M MM MMM MMMM (month),
// yy yyyy (y as yy, yyy as yyyy); g gg (era) is left out with the blanks beside it. Text between
// single quotes stands for itself, '' for one quote; every other character stands for itself.
[[nodiscard]] std::string FormatByPattern(std::string_view pattern, CivilDate date,
                                          const CalendarNames& names);

// Answers the part of the port that names alone can answer.
class NamedRegionalFormats : public RegionalFormats {
 public:
  explicit NamedRegionalFormats(CalendarNames names) : names_(std::move(names)) {}

  [[nodiscard]] std::string DayAndMonthName(CivilDate date, DayMonthOrder order,
                                            std::string_view separator) const override;
  [[nodiscard]] std::string WeekdayName(int weekday) const override;
  [[nodiscard]] std::string MonthName(int month) const override;

  [[nodiscard]] const CalendarNames& names() const { return names_; }

 protected:
  void SetNames(CalendarNames names) { names_ = std::move(names); }

 private:
  CalendarNames names_;
};

// Writes short dates by a pattern of letters ("MM/dd/yyyy", "dd MMM yyyy").
class PatternRegionalFormats : public NamedRegionalFormats {
 public:
  explicit PatternRegionalFormats(std::string pattern, CalendarNames names = EnglishCalendarNames())
      : NamedRegionalFormats(std::move(names)), pattern_(std::move(pattern)) {}

  [[nodiscard]] std::string ShortDate(CivilDate date) const override;

 private:
  std::string pattern_;
};

// Reads "YYYY-MM-DD" with exactly four, two and two digits. Nothing for any other text or a
// day that the calendar does not have.
[[nodiscard]] std::optional<CivilDate> ReadIsoDate(std::string_view text);

// "YYYY-MM-DD" of a real date.
[[nodiscard]] std::string IsoDate(CivilDate date);

// Reads "HH:MM" as the number hhmm, 0 to 2359. Nothing for any other text.
[[nodiscard]] std::optional<int> ReadClockTime(std::string_view text);

}  // namespace tidewarden
