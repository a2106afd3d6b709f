// Civil dates: the one vocabulary of days that the whole engine uses.
//
// A date is a day of the proleptic Gregorian calendar with no time and no zone. All
// arithmetic is in whole civil days, so daylight saving and leap seconds do not exist here.
// Nothing in the engine asks for today: the current date and time arrive as parameters.
#pragma once

#include <chrono>

namespace tidewarden {

// A day as year, month and day. Years 0 to 9999 are used; a value may name a day that no
// calendar has (30 February), which ok() tells.
using CivilDate = std::chrono::year_month_day;

// The same day as a count, for differences and steps.
using DayCount = std::chrono::sys_days;

// A date and a time of day as a wall clock shows them.
struct LocalTime {
  CivilDate date;
  int hour = 0;         // 0 to 23
  int minute = 0;       // 0 to 59
  int second = 0;       // 0 to 59
  int millisecond = 0;  // 0 to 999

  // The time of day as the whole number hhmm, 0 to 2359.
  [[nodiscard]] constexpr int FourDigit() const { return hour * 100 + minute; }
};

// Years that have four digits and therefore fit every date text of the program.
inline constexpr int kFirstYear = 0;
inline constexpr int kLastYear = 9999;

// Builds a date from plain numbers. Any numbers are taken; the result may fail IsRealDate.
[[nodiscard]] constexpr CivilDate MakeDate(int year, int month, int day) {
  if (year < kFirstYear || year > kLastYear || month < 0 || month > 12 || day < 0 || day > 31) {
    return CivilDate{std::chrono::year{kFirstYear}, std::chrono::month{0}, std::chrono::day{0}};
  }
  return CivilDate{std::chrono::year{year}, std::chrono::month{static_cast<unsigned>(month)},
                   std::chrono::day{static_cast<unsigned>(day)}};
}

[[nodiscard]] constexpr int YearOf(CivilDate date) {
  return static_cast<int>(date.year());
}
[[nodiscard]] constexpr int MonthOf(CivilDate date) {
  return static_cast<int>(static_cast<unsigned>(date.month()));
}
[[nodiscard]] constexpr int DayOf(CivilDate date) {
  return static_cast<int>(static_cast<unsigned>(date.day()));
}

// True for a day that the calendar has, in the years 0 to 9999.
[[nodiscard]] constexpr bool IsRealDate(CivilDate date) {
  return date.ok() && YearOf(date) >= kFirstYear && YearOf(date) <= kLastYear;
}

// Whole days from one real date to another; negative when `to` lies before `from`.
[[nodiscard]] constexpr int DaysBetween(CivilDate from, CivilDate to) {
  return static_cast<int>((DayCount{to} - DayCount{from}).count());
}

// The real date `days` after (negative: before) a real date.
[[nodiscard]] constexpr CivilDate AddDays(CivilDate date, int days) {
  return CivilDate{DayCount{date} + std::chrono::days{days}};
}

// The last day of a month, 28 to 31. `month` is 1 to 12.
[[nodiscard]] constexpr int LastDayOfMonth(int year, int month) {
  return DayOf(CivilDate{std::chrono::year{year} /
                         std::chrono::month{static_cast<unsigned>(month)} / std::chrono::last});
}

// Day of the week of a real date, Sunday = 1 to Saturday = 7.
[[nodiscard]] constexpr int WeekdayNumber(CivilDate date) {
  return static_cast<int>(std::chrono::weekday{DayCount{date}}.c_encoding()) + 1;
}

}  // namespace tidewarden
