// Easter Sunday and the feasts at a fixed distance from it.
#pragma once

#include <optional>
#include <string_view>

#include "dates/civil.h"

namespace tidewarden::modEaster {

// Years for which Easter is computed.
inline constexpr int kFirstEasterYear = 1;
inline constexpr int kLastEasterYear = 6553;

// The distance in days from Easter Sunday that a date field stands for, in any letter case:
// "_estr" and "eastr" 0, "_ashw" -46, "_mthr" -21, "_palm" -7, "_good" -2, "_ascn" 39,
// "_pent" 49, "_crpc" 60, "e+" or "e-" and a number of 1 to 365. Nothing for any other field.
[[nodiscard]] std::optional<int> EasterOffsetOf(std::string_view dateField);

// Easter Sunday of a year plus `offset` days: Julian reckoning before 1583, Gregorian from
// then on, by the golden number and epact ("Computus", as in Knuth, The Art of Computer
// Programming, volume 1, section 1.3.2, exercises 14 and 15). The rounding of the lunar
// correction gives the dates of the published tables for 1800 to 4199. Nothing for a year
// outside 1 to 6553.
[[nodiscard]] std::optional<CivilDate> EasterDate(int year, int offset);

}  // namespace tidewarden::modEaster
