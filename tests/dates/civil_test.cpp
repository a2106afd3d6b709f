#include "dates/civil.h"

#include <gtest/gtest.h>

#include "tests/dates/data_rows.h"
#include "tests/dates/naive_calendar.h"
#include "tests/support/layouts.h"

namespace tidewarden::test {
namespace {

// The second calendar itself is checked against weekdays that every history book knows.
TEST(NaiveCalendarTest, KnowsTheWeekdaysOfHistory) {
  const auto weekday = [](int year, int month, int day) {
    const NaiveCalendar& pages = NaiveCalendar::Pages();
    return pages.At(pages.IndexOf(year, month, day)).weekday;
  };
  EXPECT_EQ(weekday(1776, 7, 4), 5);    // declaration of independence, a Thursday
  EXPECT_EQ(weekday(1789, 7, 14), 3);   // storming of the Bastille, a Tuesday
  EXPECT_EQ(weekday(1918, 11, 11), 2);  // armistice, a Monday
  EXPECT_EQ(weekday(1969, 7, 20), 1);   // first landing on the moon, a Sunday
  EXPECT_EQ(weekday(2000, 1, 1), 7);    // a Saturday
}

TEST(CivilDateTest, AgreesWithTheCalendarTurnedPageByPage) {
  const NaiveCalendar& pages = NaiveCalendar::Pages();
  const CivilDate first = pages.At(0).ToDate();
  for (int i = 0; i < pages.Count(); ++i) {
    const NaiveDay& page = pages.At(i);
    const CivilDate date = page.ToDate();
    ASSERT_TRUE(IsRealDate(date)) << i;
    ASSERT_EQ(WeekdayNumber(date), page.weekday) << TextOf(date);
    ASSERT_EQ(DaysBetween(first, date), i) << TextOf(date);
    ASSERT_EQ(DaysBetween(date, first), -i) << TextOf(date);
    ASSERT_EQ(AddDays(first, i), date) << TextOf(date);
  }
}

TEST(CivilDateTest, KnowsWhichDaysExist) {
  for (int year = NaiveCalendar::kFirstYear; year <= NaiveCalendar::kLastYear; ++year) {
    for (int month = 1; month <= 12; ++month) {
      ASSERT_EQ(LastDayOfMonth(year, month), NaiveMonthLength(year, month)) << year << "-" << month;
      for (int day = 28; day <= 31; ++day) {
        ASSERT_EQ(IsRealDate(MakeDate(year, month, day)), day <= NaiveMonthLength(year, month))
            << year << "-" << month << "-" << day;
      }
    }
  }
}

TEST(CivilDateTest, TakesAnyNumbersAndTellsThatTheyAreNoDate) {
  const int cases[][3] = {{2015, 0, 1},   {2015, 13, 1},  {2015, 1, 0},  {2015, 1, 32},
                          {2015, -1, 1},  {2015, 1, -1},  {-1, 1, 1},    {10000, 1, 1},
                          {2015, 4, 31},  {2015, 2, 29},  {1900, 2, 29}, {2100, 2, 29},
                          {2015, 1, 257}, {2015, 257, 1}, {70000, 1, 1}};
  for (const auto& c : cases) {
    EXPECT_FALSE(IsRealDate(MakeDate(c[0], c[1], c[2]))) << c[0] << "-" << c[1] << "-" << c[2];
  }
  EXPECT_TRUE(IsRealDate(MakeDate(0, 1, 1)));
  EXPECT_TRUE(IsRealDate(MakeDate(0, 2, 29)));
  EXPECT_TRUE(IsRealDate(MakeDate(9999, 12, 31)));
  EXPECT_FALSE(IsRealDate(AddDays(MakeDate(9999, 12, 31), 1)));
  EXPECT_FALSE(IsRealDate(AddDays(MakeDate(0, 1, 1), -1)));
}

TEST(CivilDateTest, GivesItsPartsBack) {
  const CivilDate date = On(2014, 12, 31);
  EXPECT_EQ(YearOf(date), 2014);
  EXPECT_EQ(MonthOf(date), 12);
  EXPECT_EQ(DayOf(date), 31);
}

TEST(LocalTimeTest, IsAWholeNumberOfHoursAndMinutes) {
  EXPECT_EQ((LocalTime{On(2014, 1, 1), 0, 0, 59}.FourDigit()), 0);
  EXPECT_EQ((LocalTime{On(2014, 1, 1), 9, 5, 0}.FourDigit()), 905);
  EXPECT_EQ((LocalTime{On(2014, 1, 1), 23, 59, 59}.FourDigit()), 2359);
}

}  // namespace
}  // namespace tidewarden::test
