#include "dates/easter.h"

#include <string>

#include "dates/text.h"

namespace tidewarden::modEaster {
namespace {

struct EasterCode {
  std::string_view code;
  int offset;
};

constexpr EasterCode kMovedFeasts[] = {
    {"_ashw", -46}, {"_mthr", -21}, {"_palm", -7}, {"_good", -2},
    {"_ascn", 39},  {"_pent", 49},  {"_crpc", 60},
};

constexpr int FloorDivide(int value, int by) {
  const int quotient = value / by;
  return value % by < 0 ? quotient - 1 : quotient;
}

// The day of Easter as a count from 1 March, so that 32 is 1 April.
int MarchDay(int year) {
  const int golden = year % 19 + 1;
  int sunday = 0;
  int epact = 0;
  if (year < 1583) {
    sunday = static_cast<int>(RoundHalfToEven(5.0 * year / 4));
    epact = (golden * 11 - 4) % 30 + 1;
  } else {
    const int century = year / 100;
    const int solar = 3 * (century + 1) / 4 - 12;
    const int lunarThirds = FloorDivide(25 * (century - 15) - (century - 17), 25);
    const int lunar = static_cast<int>(RoundHalfToEven(lunarThirds / 3.0));
    sunday = 5 * year / 4 - solar - 10;
    const int rest = (golden * 11 - solar + lunar + 19) % 30;
    epact = rest + 1;
    if ((epact == 25 && golden >= 12) || epact == 24) epact = rest + 2;
  }
  int day = 44 - epact;
  if (day < 21) day = 74 - epact;
  return day + 7 - (day + sunday) % 7;
}

}  // namespace

std::optional<int> EasterOffsetOf(std::string_view dateField) {
  const std::string field = ToLower(dateField);
  const auto contains = [&](std::string_view code) {
    return field.find(code) != std::string::npos;
  };
  if (contains("_estr") || contains("eastr")) return 0;
  if (field.size() >= 2 && field[0] == 'e' && (field[1] == '-' || field[1] == '+')) {
    const long long days = RoundHalfToEven(LeadingNumber(std::string_view(field).substr(2)));
    if (days < 1 || days > 365) return std::nullopt;
    return static_cast<int>(field[1] == '-' ? -days : days);
  }
  for (const EasterCode& feast : kMovedFeasts) {
    if (contains(feast.code)) return feast.offset;
  }
  return std::nullopt;
}

std::optional<CivilDate> EasterDate(int year, int offset) {
  if (year < kFirstEasterYear || year > kLastEasterYear) return std::nullopt;
  return AddDays(MakeDate(year, 3, 1), MarchDay(year) - 1 + offset);
}

}  // namespace tidewarden::modEaster
