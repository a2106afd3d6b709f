// A second calendar for the tests: every day from 1600 to 2450 in one long list, made by
// turning one page after the other. It shares nothing with the engine's arithmetic, so the two
// cannot be wrong in the same way.
#pragma once

#include <vector>

#include "dates/civil.h"

namespace tidewarden::test {

struct NaiveDay {
  int year = 0;
  int month = 0;    // 1 to 12
  int day = 0;      // 1 to 31
  int weekday = 0;  // Sunday = 1 to Saturday = 7

  [[nodiscard]] CivilDate ToDate() const { return MakeDate(year, month, day); }
  [[nodiscard]] bool Is(CivilDate date) const {
    return YearOf(date) == year && MonthOf(date) == month && DayOf(date) == day;
  }
};

[[nodiscard]] bool NaiveIsLeapYear(int year);
[[nodiscard]] int NaiveMonthLength(int year, int month);

class NaiveCalendar {
 public:
  static constexpr int kFirstYear = 1600;
  static constexpr int kLastYear = 2450;

  // The one list.
  [[nodiscard]] static const NaiveCalendar& Pages();

  [[nodiscard]] int Count() const { return static_cast<int>(days_.size()); }
  [[nodiscard]] const NaiveDay& At(int index) const {
    return days_[static_cast<std::size_t>(index)];
  }

  // The place of a day in the list, -1 for a day that the calendar or the list lacks.
  [[nodiscard]] int IndexOf(int year, int month, int day) const;
  [[nodiscard]] int IndexOf(CivilDate date) const;

 private:
  NaiveCalendar();

  std::vector<NaiveDay> days_;
  std::vector<int> monthStarts_;
};

}  // namespace tidewarden::test
