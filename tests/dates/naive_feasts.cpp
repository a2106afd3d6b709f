#include "tests/dates/naive_feasts.h"

#include <stdexcept>
#include <string>

#include "tests/dates/naive_calendar.h"

namespace tidewarden::test {
namespace {

constexpr std::int64_t kHebrewEpoch = -1373427;

std::int64_t Floor(std::int64_t value, std::int64_t by) {
  return value >= 0 ? value / by : -((-value + by - 1) / by);
}

bool IsHebrewLeapYear(int year) {
  switch (year % 19) {
    case 0:
    case 3:
    case 6:
    case 8:
    case 11:
    case 14:
    case 17:
      return true;
    default:
      return false;
  }
}

std::int64_t ElapsedDays(int year) {
  const std::int64_t months = Floor(std::int64_t{235} * year - 234, 19);
  const std::int64_t parts = 12084 + 13753 * months;
  const std::int64_t days = 29 * months + Floor(parts, 25920);
  return 3 * (days + 1) % 7 < 3 ? days + 1 : days;
}

std::int64_t NewYear(int year) {
  const std::int64_t before = ElapsedDays(year - 1);
  const std::int64_t now = ElapsedDays(year);
  const std::int64_t after = ElapsedDays(year + 1);
  const std::int64_t delay = after - now == 356 ? 2 : now - before == 382 ? 1 : 0;
  return kHebrewEpoch + now + delay;
}

int LastDayOf(int year, int month) {
  const std::int64_t length = NewYear(year + 1) - NewYear(year);
  const bool longMarheshvan = length == 355 || length == 385;
  const bool shortKislev = length == 353 || length == 383;
  if (month == 2 || month == 4 || month == 6 || month == 10 || month == 13) return 29;
  if (month == 12 && !IsHebrewLeapYear(year)) return 29;
  if (month == 8 && !longMarheshvan) return 29;
  if (month == 9 && shortKislev) return 29;
  return 30;
}

// Days of the Gregorian calendar before a year.
std::int64_t FixedBefore(int year) {
  const std::int64_t years = year - 1;
  return 365 * years + Floor(years, 4) - Floor(years, 100) + Floor(years, 400);
}

}  // namespace

MonthAndDay NaiveEaster(int year) {
  const int a = year % 19;
  const int b = year / 100;
  const int c = year % 100;
  const int d = b / 4;
  const int e = b % 4;
  const int f = (b + 8) / 25;
  const int g = (b - f + 1) / 3;
  const int h = (19 * a + b - d - g + 15) % 30;
  const int i = c / 4;
  const int k = c % 4;
  const int l = (32 + 2 * e + 2 * i - h - k) % 7;
  const int m = (a + 11 * h + 22 * l) / 451;
  const int n = h + l - 7 * m + 114;
  return {n / 31, n % 31 + 1};
}

std::int64_t NaiveHebrewFixed(int hebrewYear, int month, int day) {
  const int lastMonth = IsHebrewLeapYear(hebrewYear) ? 13 : 12;
  std::int64_t fixed = NewYear(hebrewYear) + day - 1;
  if (month >= 7) {
    for (int passed = 7; passed < month; ++passed) fixed += LastDayOf(hebrewYear, passed);
  } else {
    for (int passed = 7; passed <= lastMonth; ++passed) fixed += LastDayOf(hebrewYear, passed);
    for (int passed = 1; passed < month; ++passed) fixed += LastDayOf(hebrewYear, passed);
  }
  return fixed;
}

int NaiveHebrewIndex(int hebrewYear, int month, int day) {
  const std::int64_t fixed = NaiveHebrewFixed(hebrewYear, month, day);
  return static_cast<int>(fixed - FixedBefore(NaiveCalendar::kFirstYear) - 1);
}

int NaiveHebrewFeastIndex(std::string_view code, int gregorianYear) {
  // Autumn feasts belong to the Hebrew year that has just begun, spring feasts to the year that
  // began the autumn before.
  const int autumn = gregorianYear + 3761;
  const int spring = gregorianYear + 3760;
  if (code == "_rosh") return NaiveHebrewIndex(autumn, 7, 1);
  if (code == "_yomk") return NaiveHebrewIndex(autumn, 7, 10);
  if (code == "_sukk") return NaiveHebrewIndex(autumn, 7, 15);
  if (code == "_shem") return NaiveHebrewIndex(autumn, 7, 22);
  if (code == "_simh") return NaiveHebrewIndex(autumn, 7, 23);
  if (code == "_hanu") return NaiveHebrewIndex(autumn, 9, 25);
  if (code == "_puri") return NaiveHebrewIndex(spring, IsHebrewLeapYear(spring) ? 13 : 12, 14);
  if (code == "_pass") return NaiveHebrewIndex(spring, 1, 15);
  if (code == "_shav") return NaiveHebrewIndex(spring, 3, 6);
  throw std::invalid_argument("no Hebrew feast: " + std::string(code));
}

}  // namespace tidewarden::test
