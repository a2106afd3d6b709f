// The event date rules carried out on date texts.
//
// The rules are worded as operations on the text of a date: mask the month, put a number in the
// place of "xx", mark the day with "^", replace the digits of this year by those of the next.
// Here they are done to the letter, with strings, so that the tests can show that the engine's
// rules, which work on dates, give the same days in every layout. Nothing of the engine is used;
// whether a text is a date is looked up in NaiveCalendar.
#pragma once

#include <string>

#include "tests/dates/naive_calendar.h"

namespace tidewarden::test {

// A regional layout as the rules know it: a separator and three positions.
struct TextLayout {
  std::string separator;
  int monthPosition;  // 1, 4 or 6
  int dayPosition;    // 4, 1 or 9
  int yearPosition;   // 7 or 1
};

class RulesOnTexts {
 public:
  explicit RulesOnTexts(TextLayout layout) : layout_(std::move(layout)) {}

  // The date text of an event's next occurrence, the empty text when it has none. `stored` is the
  // date field of the events file and `occurs` its last field, trimmed and in lower case.
  [[nodiscard]] std::string NextOccurrence(const std::string& stored, const std::string& occurs,
                                           const NaiveDay& today) const;

  [[nodiscard]] std::string BuildDateText(const std::string& field, const std::string& year) const;
  [[nodiscard]] std::string MaskMonth(const std::string& text) const;
  [[nodiscard]] std::string Format(const NaiveDay& day) const;

 private:
  struct Event;

  [[nodiscard]] int Read(const std::string& text) const;  // place in the calendar, -1: no date
  [[nodiscard]] int Days(const std::string& text, const NaiveDay& today) const;
  [[nodiscard]] std::string FormatIndex(int index) const;
  [[nodiscard]] std::string Loose(int year, int month, int day) const;

  [[nodiscard]] std::string ByRule(const Event& event) const;
  [[nodiscard]] std::string Feast(const Event& event) const;
  [[nodiscard]] std::string NthWeekdayDate(int month, int year, int weekday, int ordinal) const;
  [[nodiscard]] std::string NextNthWeekdayYearly(const Event& event) const;
  [[nodiscard]] std::string NextNthWeekdayMonthly(const Event& event) const;
  [[nodiscard]] std::string NextMonthlyDate(const Event& event) const;
  [[nodiscard]] std::string NextQuarterDate(const Event& event) const;
  [[nodiscard]] std::string NextEveryNDays(const Event& event) const;

  TextLayout layout_;
};

}  // namespace tidewarden::test
