// The two fields of an event line that say when it falls, read once into numbers: the date
// field ("12.25", "xx.15", "_estr") and the occurs field ("yearly", "one2026", "3rd Mon").
//
// Reading and judging a field are one step here, so the line parser and the date rules cannot
// disagree about what a field means. What is tested, and what is left untested on purpose,
// follows the file format: a field may be accepted and still have no date ("1a.05").
#pragma once

#include <cstdint>
#include <string_view>

#include "dates/feasts.h"

namespace tidewarden {

struct DateField {
  // In place of a month or a day.
  static constexpr int kAny = 0;        // "xx"
  static constexpr int kNotADate = -1;  // accepted, but not two digits ("1a"): has no date

  bool isFeast = false;
  int month = kNotADate;  // 1 to 12, kAny or kNotADate; meaningless for a feast
  int day = kNotADate;    // 1 to 31, kAny or kNotADate; meaningless for a feast
  Feast feast;            // meaningful for a feast only
};

enum class DateFieldFault {
  kNone,
  kLength,  // not exactly five characters
  kMonth,   // the first two characters are neither "xx" nor read 1 to 12
  kDay,     // the last two characters are neither "xx" nor read 1 to 31
};

// Reads a date field as stored in the file: month first, any one character, then the day; or a
// feast code. Numbers are leading numbers ("1a" reads 1). `out` is complete only for kNone.
[[nodiscard]] DateFieldFault ReadDateField(std::string_view stored, DateField& out);

enum class OccursKind : std::uint8_t {
  kYearly,
  kQuarter,
  kMonthly,
  kOneTime,     // "one2026"
  kTilDone,     // "tdo2026"
  kEveryNDays,  // "14-2026", "20~2026" for 120 days
  kDaysPast,    // "dp-2001"
  kDaysFuture,  // "df-2030"
  kNthWeekday,  // "3rd mon", "las fri"
  kLastDay,     // "las day"
};

struct Occurs {
  OccursKind kind = OccursKind::kYearly;
  int year = -1;     // 0 to 9999 for the kinds that name one, else -1
  int interval = 0;  // kEveryNDays: 0 to 199 days
  int ordinal = 0;   // kNthWeekday: 1 to 4, or 0 for the last; kLastDay: -1
  int weekday = 0;   // kNthWeekday: Sunday = 1 to Saturday = 7

  [[nodiscard]] bool IsCounter() const {
    return kind == OccursKind::kDaysPast || kind == OccursKind::kDaysFuture;
  }
};

enum class OccursFault {
  kNone,
  kUnknown,       // no form begins like this
  kInterval,      // the two characters before "-" or "~" are not digits
  kYear,          // the last four characters are not digits
  kYearInFuture,  // a count-up from a year after the current one
  kYearTooEarly,  // "one" and "tdo" take the years from 2000
  kWeekday,       // an ordinal without one of the seven weekdays
};

// Reads an occurs field that is already trimmed and lower-cased (a weekday may be in any case).
// `out` is complete only for kNone.
[[nodiscard]] OccursFault ReadOccurs(std::string_view occurs, int currentYear, Occurs& out);

}  // namespace tidewarden
