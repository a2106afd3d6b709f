// What is typed for each kind of event, and the dates on which events and observances fall: worked
// out by hand and by the C++ calendar. All of it on Monday, 22 December 2014.
#pragma once

#include <chrono>
#include <string>
#include <utility>
#include <vector>

#include "core/event_line.h"
#include "dates/event_date_rules.h"
#include "dates/regional_text.h"
#include "editor/occurrence_codes.h"
#include "tests/support/layouts.h"

namespace tidewarden::test {

// The date of the one event of a file.
inline std::string DateOf(const std::string& file, const RegionalDateFormat& format) {
  const CivilDate today = On(2014, 12, 22);
  const auto event = ParseEventLine(file.substr(0, file.find('\r')), format, 2014);
  if (!event) return "(rejected) " + file;
  const auto date = NextOccurrence(event->dateField, event->occurs, today);
  return date ? IsoDate(*date) : "(no date)";
}

inline CivilDate OnWeekday(int year, int month, unsigned weekday, unsigned ordinal) {
  using namespace std::chrono;
  const auto inMonth = std::chrono::year{year} / std::chrono::month{static_cast<unsigned>(month)};
  return ordinal == 5 ? CivilDate{sys_days{inMonth / std::chrono::weekday{weekday}[last]}}
                      : CivilDate{sys_days{inMonth / std::chrono::weekday{weekday}[ordinal]}};
}

// What is typed into the date box for a kind of an event on 7 March, and the date on which it then
// falls. The count of the kind "every -" must be above 75 days, so that it begins there.
inline std::pair<std::string, std::string> Typed(int kind, const RegionalDateFormat& format) {
  const std::string plain = format.IsMonthFirst() ? "3/7" : "7.3";
  const auto full = [&](const std::string& year) {
    if (format.IsYearFirst()) return year + "-3-7";
    return plain + (format.IsMonthFirst() ? "/" : ".") + year;
  };
  if (kind == kMonthlyKind) return {"7", "2015-01-07"};
  if (kind == kDaysPastKind) return {full("2010"), "2010-03-07"};
  if (kind == kDaysFutureKind) return {full("2020"), "2020-03-07"};
  if (kind < kFirstWeekdayKind) return {plain, "2015-03-07"};
  if (kind == kOccurrenceKinds - 1) return {"3", "2015-03-31"};
  const auto place = static_cast<unsigned>(kind - kFirstWeekdayKind);
  return {"3", IsoDate(OnWeekday(2015, 3, place % 7, place / 7 + 1))};
}

// The first dates from 22 December 2014 on, in the order of the box. Weekday rules are counted
// here; the feasts of 2015 are those of the published calendars.
inline std::vector<std::string> DatesOfObservances() {
  enum { kSun, kMon, kTue, kWed, kThu, kFri, kSat };
  const auto nth = [](int month, unsigned weekday, unsigned ordinal) {
    return IsoDate(OnWeekday(2015, month, weekday, ordinal));
  };
  constexpr unsigned kLast = 5;
  return {"2015-01-01",    "2015-01-25",        "2015-01-26",        nth(1, kMon, 3),
          "2015-02-02",    "2015-02-14",        nth(2, kMon, 3),     "2015-03-17",
          "2015-04-01",    "2015-04-15",        "2015-04-22",        "2015-04-23",
          "2015-04-25",    "2015-05-01",        "2015-05-05",        nth(5, kSat, 3),
          nth(5, kMon, 1), nth(5, kMon, kLast), nth(5, kSun, 2),     nth(5, kMon, kLast),
          "2015-06-14",    nth(6, kSun, 3),     "2015-07-01",        "2015-07-04",
          "2015-07-15",    nth(8, kMon, 1),     nth(8, kMon, kLast), nth(9, kMon, 1),
          "2015-10-31",    nth(10, kMon, 2),    nth(10, kMon, 2),    "2015-11-05",
          "2015-11-11",    "2015-11-11",        "2015-11-30",        nth(11, kThu, 4),
          "2014-12-25",    "2014-12-26",        "2014-12-26",        "2014-12-31",
          "2015-04-05",    "2015-02-18",        "2015-03-15",        "2015-03-29",
          "2015-04-03",    "2015-05-14",        "2015-05-24",        "2015-06-04",
          "2015-09-14",    "2015-09-23",        "2015-09-28",        "2015-10-05",
          "2015-10-06",    "2015-12-07",        "2015-03-05",        "2015-04-04",
          "2015-05-24",    "2015-05-18"};
}

}  // namespace tidewarden::test
