// Quarters and intervals of days, on every day of four centuries.
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "tests/dates/data_rows.h"
#include "tests/dates/four_centuries.h"

namespace tidewarden::test {
namespace {

const NaiveCalendar& Pages() {
  return NaiveCalendar::Pages();
}

// Turning the pages of this year finds its quarter days; of next year only the first quarter
// counts. `month` 0 is "xx", which counts like 12; `day` 0 is "xx", which the number of the month
// takes the place of.
std::vector<int> NaiveQuarterDays(int month, int day, int year) {
  std::vector<int> found;
  for (int i = PagesOfYear(year).first; i <= Pages().IndexOf(year + 1, 3, 31); ++i) {
    const NaiveDay& page = Pages().At(i);
    const bool inSeries = (page.month - month) % 3 == 0;
    if (inSeries && page.day == (day == 0 ? page.month : day)) found.push_back(i);
  }
  return found;
}

long long CountEqualQuarterDays(int month, int day) {
  const WalkField field = MonthAndDayField(month, day);
  const WalkOccurs occurs = ReadWalkOccurs("quarter");
  const int ownMonth = month == 0 ? 12 : month;
  const int ownDay = day == 0 ? ownMonth : day;
  long long compared = 0;
  for (int year = kWalkFirstYear; year <= kWalkLastYear; ++year) {
    ComingDates dates(NaiveQuarterDays(month, day, year));
    const int own = Pages().IndexOf(year, ownMonth, ownDay);
    const int ownNextYear = Pages().IndexOf(year + 1, ownMonth, ownDay);
    compared += CountEqualDays(PagesOfYear(year), field, occurs, [&](int today) {
      const int coming = dates(today);
      if (coming != kNoPage && coming - today < 365) return coming;
      return ThisYearOrNext(own, ownNextYear, today);
    });
  }
  return compared;
}

class FourCenturiesQuarterTest : public testing::TestWithParam<int> {};

// Every day from 1 to 31, and "xx".
TEST_P(FourCenturiesQuarterTest, EveryDay) {
  long long compared = 0;
  for (int day = 0; day <= 31; ++day) compared += CountEqualQuarterDays(GetParam(), day);
  EXPECT_EQ(compared, 32 * kWalkDays);
}

// Every month, and "xx".
INSTANTIATE_TEST_SUITE_P(Month, FourCenturiesQuarterTest, testing::Range(0, 13),
                         testing::PrintToStringParamName());

struct Start {
  const char* name;
  int month;
  int day;
  int year;
  int nextInterval;  // the step from one interval that is looked at to the next

  friend std::ostream& operator<<(std::ostream& out, const Start& start) {
    return out << start.name;
  }
};

class FourCenturiesIntervalTest : public testing::TestWithParam<Start> {};

// Steps from the start until today is reached or passed. A start that lies ahead stays; so does
// every start of an interval of no days, until it has passed: it then goes to the next year, but
// only within its own.
TEST_P(FourCenturiesIntervalTest, EveryNumberOfDays) {
  const Start& from = GetParam();
  const WalkField field = MonthAndDayField(from.month, from.day);
  const int start = Pages().IndexOf(from.year, from.month, from.day);
  const int aYearLater = Pages().IndexOf(from.year + 1, from.month, from.day);
  long long compared = 0;
  long long intervals = 0;
  for (int n = 0; n <= 199; n += from.nextInterval) {
    const std::string form = Padded(n % 100, 2) + (n < 100 ? "-" : "~");
    const WalkOccurs occurs = ReadWalkOccurs(form + Padded(from.year, 4));
    int coming = start;
    compared += CountEqualDays(field, occurs, [&](int today) {
      if (start == kNoPage || start >= today) return start;
      if (n == 0) return Pages().At(today).year == from.year ? aYearLater : start;
      while (coming < today) coming += n;
      return coming;
    });
    ++intervals;
  }
  EXPECT_EQ(intervals, (199 / from.nextInterval) + 1);
  EXPECT_EQ(compared, intervals * kWalkDays);
}

INSTANTIATE_TEST_SUITE_P(
    Start, FourCenturiesIntervalTest,
    testing::Values(Start{"FirstDay", 1, 1, 2000, 1}, Start{"LongAgo", 2, 29, 1600, 1},
                    Start{"HalfWay", 7, 15, 2199, 1}, Start{"DayBefore", 12, 31, 1999, 7},
                    Start{"LeapDay", 2, 29, 2000, 9}, Start{"LateLeapDay", 2, 29, 2384, 13},
                    Start{"NoLeapDay", 2, 29, 2100, 11}, Start{"ToCome", 3, 1, 2400, 10}),
    [](const auto& start) { return std::string(start.param.name); });

}  // namespace
}  // namespace tidewarden::test
