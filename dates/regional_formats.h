// Port: how the user's system writes dates.
//
// Adapters answer in clean text: direction marks removed, no-break blanks turned into blanks,
// native digits into 0 to 9, and no blank directly behind ".", "-" or "/"
// (CleanRegionalText does it). They answer for the user's time category, not for the language
// of messages, and never fail: a system without a regional setting answers in English, with
// "12/31/1992" as its short date.
#pragma once

#include <string>
#include <string_view>

#include "dates/civil.h"

namespace tidewarden {

enum class DayMonthOrder { kDayFirst, kMonthFirst };

class RegionalFormats {
 public:
  virtual ~RegionalFormats() = default;

  // A real date in the user's "Short Date" layout.
  [[nodiscard]] virtual std::string ShortDate(CivilDate date) const = 0;

  // Day in two digits and abbreviated month name, in the given order with `separator` between,
  // in the form that the language uses beside a day ("15.янв").
  [[nodiscard]] virtual std::string DayAndMonthName(CivilDate date, DayMonthOrder order,
                                                    std::string_view separator) const = 0;

  // The full name of a day of the week, Sunday = 1 to Saturday = 7.
  [[nodiscard]] virtual std::string WeekdayName(int weekday) const = 0;

  // The full name of a month, 1 to 12, in the form that stands alone, as at the head of a calendar
  // page ("Январь", not the "января" of a date).
  [[nodiscard]] virtual std::string MonthName(int month) const = 0;
};

}  // namespace tidewarden
