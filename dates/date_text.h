// Date text in the user's own order and separator.
//
// The layout is found once at start-up (DetectRegionalDateFormat) and passed by reference to
// everything that shows or reads dates. The events file is not concerned: it always stores
// month before day. Texts made here always have a four-digit year (FullDateFormat); the
// callers that show a two-digit year drop the first two characters themselves.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "dates/civil.h"
#include "dates/regional_formats.h"

namespace tidewarden {

// The user's regional date layout.
struct RegionalDateFormat {
  std::string DateSeparator = "/";               // one character
  std::string DisplayDateFormat = "mm/dd/yyyy";  // "mm", "dd" and "yyyy" or "yy"
  std::string FullDateFormat = "mm/dd/yyyy";     // the same, always with "yyyy"
  // 1-based character positions in a text of FullDateFormat. MonthPosition alone tells the
  // order: 1 month-first, 4 day-first, 6 year-first.
  int MonthPosition = 1;  // 1, 4 or 6
  int DayPosition = 4;    // 4, 1 or 9
  int YearPosition = 7;   // 7 or 1
  bool TwoDigitYear = false;
  // Three-letter month names; MonthNames[1] is January, MonthNames[0] is empty.
  std::array<std::string, 13> MonthNames;
  std::string DateEntryExample;   // "12/31 or dec31"
  std::string MonthEntryExample;  // "12 or dec"
  // Full names, WeekdayNames[1] is Sunday.
  std::array<std::string, 8> WeekdayNames;

  [[nodiscard]] bool IsMonthFirst() const { return MonthPosition == 1; }
  [[nodiscard]] bool IsDayFirst() const { return MonthPosition == 4; }
  [[nodiscard]] bool IsYearFirst() const { return MonthPosition == 6; }
};

// What a user whose layout is not supported is told, three lines joined by line feeds. The
// program then ends.
inline constexpr std::string_view kUnsupportedLayoutMessage =
    "Please forgive our humble little freeware offering, but your regional setting currently\n"
    "is not supported by Tidewarden.  Please email us your Short Date setting as listed in\n"
    "Control Panel | Regional Options and we will work to add support for your Regional "
    "Settings.";

// The day whose short-date text shows the user's layout: 31 December 1992.
inline constexpr CivilDate kProbeDate = MakeDate(1992, 12, 31);

// Finds the layout from the probe text, kProbeDate in the user's short-date layout, and the
// names from `formats`. Only the first five characters decide; nothing for a layout that the
// program cannot place, for example one that begins with the month's name.
[[nodiscard]] std::optional<RegionalDateFormat> DetectRegionalDateFormat(
    std::string_view probeText, const RegionalFormats& formats);

// Fills MonthNames from the abbreviated names of the user's language, cut to three characters.
// June and July are told apart where a language abbreviates both to "iyu" or "jui". When a
// name is empty or fewer than eleven differ, all twelve become English.
void BuildMonthNames(RegionalDateFormat& format, const RegionalFormats& formats);

// A real date as a text of FullDateFormat.
[[nodiscard]] std::string FormatDate(CivilDate date, const RegionalDateFormat& format);
void AppendDate(std::string& out, CivilDate date, const RegionalDateFormat& format);

// Reads a text of FullDateFormat strictly: the layout's order, two, two and four digits, any
// one-character separator. Nothing for any other text or a day that the calendar lacks.
[[nodiscard]] std::optional<CivilDate> ReadFullDate(std::string_view text,
                                                    const RegionalDateFormat& format);

// Day or month of a date text typed by the user; blanks, "-" and "/" count as ".". A text of
// six or more characters must have three parts, a shorter one two; anything else, and a number
// beyond 16 bits, gives 0. Two parts in a year-first layout are day and month.
[[nodiscard]] int ExtractDay(std::string_view typed, const RegionalDateFormat& format);
[[nodiscard]] int ExtractMonth(std::string_view typed, const RegionalDateFormat& format);

// The typed text as a full date text, or the empty text when it is no real date. Here the length
// does not matter: there are two or three parts of digits, and two take `currentYear`. A year of
// one or two digits lies in 1930 to 2029; longer years are literal.
[[nodiscard]] std::string NormalizeDateText(std::string_view typed,
                                            const RegionalDateFormat& format, int currentYear);

// The year of the normalized text; 0 when there is none.
[[nodiscard]] int ExtractYear(std::string_view typed, const RegionalDateFormat& format,
                              int currentYear);

// Joins a five-character date field in the user's order ("25.12") and a year into a full date
// text; no test is made that it is a date.
[[nodiscard]] std::string BuildDateText(std::string_view dateField, std::string_view year,
                                        const RegionalDateFormat& format);

// The full date text with its month number replaced by the month's name and its separators by
// blanks ("12/31/2014" gives "Dec 31 2014"). Unchanged in a two-digit-year layout and when the
// month position holds no month.
[[nodiscard]] std::string SpellOutMonth(std::string_view dateText,
                                        const RegionalDateFormat& format);

// The full date text with its two month digits replaced by "xx".
[[nodiscard]] std::string MaskMonth(std::string_view dateText, const RegionalDateFormat& format);

}  // namespace tidewarden
