#include "tests/dates/naive_calendar.h"

namespace tidewarden::test {

bool NaiveIsLeapYear(int year) {
  if (year % 400 == 0) return true;
  if (year % 100 == 0) return false;
  return year % 4 == 0;
}

int NaiveMonthLength(int year, int month) {
  if (month == 2) return NaiveIsLeapYear(year) ? 29 : 28;
  return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

NaiveCalendar::NaiveCalendar() {
  constexpr int kSaturday = 7;  // 1 January 1600
  int weekday = kSaturday;
  for (int year = kFirstYear; year <= kLastYear; ++year) {
    for (int month = 1; month <= 12; ++month) {
      monthStarts_.push_back(Count());
      for (int day = 1; day <= NaiveMonthLength(year, month); ++day) {
        days_.push_back({year, month, day, weekday});
        weekday = weekday == kSaturday ? 1 : weekday + 1;
      }
    }
  }
}

const NaiveCalendar& NaiveCalendar::Pages() {
  static const NaiveCalendar calendar;
  return calendar;
}

int NaiveCalendar::IndexOf(int year, int month, int day) const {
  if (year < kFirstYear || year > kLastYear || month < 1 || month > 12 || day < 1 ||
      day > NaiveMonthLength(year, month)) {
    return -1;
  }
  return monthStarts_[static_cast<std::size_t>((year - kFirstYear) * 12 + month - 1)] + day - 1;
}

int NaiveCalendar::IndexOf(CivilDate date) const {
  return IndexOf(YearOf(date), MonthOf(date), DayOf(date));
}

}  // namespace tidewarden::test
