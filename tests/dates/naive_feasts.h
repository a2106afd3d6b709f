// Feasts by other people's algorithms, to check the engine's.
#pragma once

#include <cstdint>
#include <string_view>

namespace tidewarden::test {

struct MonthAndDay {
  int month;
  int day;
};

// Gregorian Easter by the anonymous algorithm of 1876 ("Nature", 20 April 1876; Butcher,
// "Ecclesiastical Calendar", 1877; Meeus, "Astronomical Algorithms", chapter 8). True for every
// year from 1583 on.
[[nodiscard]] MonthAndDay NaiveEaster(int year);

// A Hebrew day as a place in NaiveCalendar, by elapsed days (Reingold and Dershowitz,
// "Calendrical Calculations", chapter on the Hebrew calendar). Months are numbered as that book
// does: 1 Nisan to 6 Elul, 7 Tishri to 12 Adar (Adar I in a leap year), 13 Adar II.
[[nodiscard]] int NaiveHebrewIndex(int hebrewYear, int month, int day);

// The same as fixed day number of that book: 1 is 1 January of the year 1.
[[nodiscard]] std::int64_t NaiveHebrewFixed(int hebrewYear, int month, int day);

// The place in NaiveCalendar of a Hebrew feast ("_rosh") in a Gregorian year.
[[nodiscard]] int NaiveHebrewFeastIndex(std::string_view code, int gregorianYear);

}  // namespace tidewarden::test
