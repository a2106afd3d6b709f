#include "dates/hebrew.h"

#include <cstdint>
#include <string>

#include "dates/text.h"

namespace tidewarden::modHebrew {
namespace {

constexpr int kLastHebrewYear = 13760;
constexpr std::int64_t kPartsPerDay = 25920;     // 24 hours of 1080 parts
constexpr std::int64_t kPartsPerMonth = 765433;  // 29 days 12 hours 793 parts
constexpr std::int64_t kEpochMolad = 31524;      // second day of the week, 5 hours 204 parts
constexpr std::int64_t kMonthsPerCycle = 235;
static_assert(kMonthsPerCycle * kPartsPerMonth == 179876755);

// Day 0 of the molad count, a Sunday, as a Julian Day Number, and that of 1 January 1970.
constexpr std::int64_t kJulianDayOfDayZero = 347997;
constexpr std::int64_t kJulianDayOf1970 = 2440588;

struct FeastCode {
  std::string_view code;
  HebrewFeast feast;
};

constexpr FeastCode kFeasts[] = {
    {"_rosh", {3761, 1, 1}},  {"_yomk", {3761, 1, 10}}, {"_sukk", {3761, 1, 15}},
    {"_shem", {3761, 1, 22}}, {"_simh", {3761, 1, 23}}, {"_hanu", {3761, 3, 25}},
    {"_puri", {3760, 7, 14}}, {"_pass", {3760, 8, 15}}, {"_shav", {3760, 10, 6}},
};

constexpr bool IsLeapYear(int year) {
  return (7 * static_cast<std::int64_t>(year) + 1) % 19 < 7;
}

// 1 Tishri as a count of days from day zero.
std::int64_t NewYear(int year) {
  const std::int64_t elapsed = year - 1;
  const std::int64_t inCycle = elapsed % 19;
  const std::int64_t months =
      kMonthsPerCycle * (elapsed / 19) + 12 * inCycle + (7 * inCycle + 1) / 19;
  const std::int64_t molad = kEpochMolad + kPartsPerMonth * months;
  std::int64_t day = molad / kPartsPerDay;
  const std::int64_t parts = molad % kPartsPerDay;
  const std::int64_t weekday = day % 7;  // Sunday 0
  const bool afterLeapYear = year > 1 && IsLeapYear(year - 1);
  if (parts >= 19440 || (!IsLeapYear(year) && weekday == 2 && parts >= 9924) ||
      (afterLeapYear && weekday == 1 && parts >= 16789)) {
    ++day;
  }
  if (day % 7 == 0 || day % 7 == 3 || day % 7 == 5) ++day;
  return day;
}

int MonthLength(int month, bool leap, std::int64_t yearLength) {
  switch (month) {
    case 2:
      return yearLength % 10 == 5 ? 30 : 29;  // long only in complete years, 355 or 385 days
    case 3:
      return yearLength % 10 == 3 ? 29 : 30;  // short only in deficient years, 353 or 383 days
    case 6:
      return leap ? 30 : 0;
    case 1:
    case 5:
    case 8:
    case 10:
    case 12:
      return 30;
    default:
      return 29;
  }
}

}  // namespace

std::optional<HebrewFeast> HebrewFeastOf(std::string_view dateField) {
  const std::string field = ToLower(dateField);
  for (const FeastCode& entry : kFeasts) {
    if (field.find(entry.code) != std::string::npos) return entry.feast;
  }
  return std::nullopt;
}

std::optional<CivilDate> HebrewToGregorian(int year, int month, int day) {
  if (year < 1 || year > kLastHebrewYear || month < 1 || month > 13) return std::nullopt;
  const std::int64_t newYear = NewYear(year);
  const std::int64_t yearLength = NewYear(year + 1) - newYear;
  const bool leap = IsLeapYear(year);
  if (day < 1 || day > MonthLength(month, leap, yearLength)) return std::nullopt;
  std::int64_t count = newYear + day - 1;
  for (int passed = 1; passed < month; ++passed) count += MonthLength(passed, leap, yearLength);
  const std::int64_t since1970 = count + kJulianDayOfDayZero - kJulianDayOf1970;
  return CivilDate{DayCount{std::chrono::days{since1970}}};
}

}  // namespace tidewarden::modHebrew
