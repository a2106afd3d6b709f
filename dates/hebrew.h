// Feasts of the Hebrew calendar.
//
// Months are numbered from the start of the civil year: 1 Tishri, 2 Heshvan, 3 Kislev, 4 Tevet,
// 5 Shevat, 6 Adar I (leap years only), 7 Adar (Adar II in leap years), 8 Nisan, 9 Iyar,
// 10 Sivan, 11 Tammuz, 12 Av, 13 Elul.
#pragma once

#include <optional>
#include <string_view>

#include "dates/civil.h"

namespace tidewarden::modHebrew {

// A feast's place in the Hebrew calendar. Its Hebrew year is the Gregorian year in which it
// falls plus `yearAddend`.
struct HebrewFeast {
  int yearAddend;
  int month;
  int day;
};

// The feast that a date field names, in any letter case: "_rosh", "_yomk", "_sukk", "_shem",
// "_simh", "_hanu", "_puri", "_pass" or "_shav". Nothing for any other field.
[[nodiscard]] std::optional<HebrewFeast> HebrewFeastOf(std::string_view dateField);

// The Gregorian day on whose preceding evening the Hebrew day begins, by the arithmetic
// calendar in use since the 4th century (the molad of 29 days 12 hours 793 parts, the 19-year
// cycle and the four postponements; see Reingold and Dershowitz, "Calendrical Calculations",
// chapter 8). `year` is 1 to 13760; nothing for another year, for month 6 of a common year, or
// for a day that the month does not have.
[[nodiscard]] std::optional<CivilDate> HebrewToGregorian(int year, int month, int day);

}  // namespace tidewarden::modHebrew
