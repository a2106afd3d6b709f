#include "dates/hebrew.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/dates/data_rows.h"
#include "tests/dates/naive_calendar.h"
#include "tests/dates/naive_feasts.h"
#include "tests/support/layouts.h"

namespace tidewarden::modHebrew {
namespace {

using test::On;

std::string Gregorian(int year, int month, int day) {
  const auto date = HebrewToGregorian(year, month, day);
  return date ? test::TextOf(*date) : "-";
}

std::string FeastIn(const char* code, int gregorianYear) {
  const auto feast = HebrewFeastOf(code);
  return feast ? Gregorian(gregorianYear + feast->yearAddend, feast->month, feast->day) : "?";
}

TEST(HebrewFeastOfTest, KnowsTheCodesInAnyCase) {
  struct Case {
    const char* code;
    HebrewFeast feast;
  };
  const Case cases[] = {{"_rosh", {3761, 1, 1}},
                        {"_yomk", {3761, 1, 10}},
                        {"_sukk", {3761, 1, 15}},
                        {"_shem", {3761, 1, 22}},
                        {"_simh", {3761, 1, 23}},
                        {"_hanu", {3761, 3, 25}},
                        {"_puri", {3760, 7, 14}},
                        {"_pass", {3760, 8, 15}},
                        {"_shav", {3760, 10, 6}},
                        {"_ROSH", {3761, 1, 1}},
                        {"_HaNu", {3761, 3, 25}},
                        // A longer text is recognised by the first code that it contains.
                        {"x_pass_rosh", {3761, 1, 1}}};
  for (const Case& c : cases) {
    const auto feast = HebrewFeastOf(c.code);
    ASSERT_TRUE(feast.has_value()) << c.code;
    EXPECT_EQ(feast->yearAddend, c.feast.yearAddend) << c.code;
    EXPECT_EQ(feast->month, c.feast.month) << c.code;
    EXPECT_EQ(feast->day, c.feast.day) << c.code;
  }
}

TEST(HebrewFeastOfTest, RefusesEverythingElse) {
  for (const char* field : {"", "rosh", "_ros", "_estr", "_vict", "eastr", "12.25", "_ rosh"}) {
    EXPECT_FALSE(HebrewFeastOf(field).has_value()) << field;
  }
}

// Dates as the published luachs give them.
TEST(HebrewToGregorianTest, FindsTheFeastsOfKnownYears) {
  EXPECT_EQ(FeastIn("_rosh", 2014), "2014-09-25");
  EXPECT_EQ(FeastIn("_yomk", 2014), "2014-10-04");
  EXPECT_EQ(FeastIn("_hanu", 2014), "2014-12-17");
  EXPECT_EQ(FeastIn("_pass", 2014), "2014-04-15");
  EXPECT_EQ(FeastIn("_puri", 2014), "2014-03-16");  // Adar II of a leap year
  EXPECT_EQ(FeastIn("_shav", 2014), "2014-06-04");
  EXPECT_EQ(FeastIn("_rosh", 2015), "2015-09-14");
  EXPECT_EQ(FeastIn("_rosh", 2016), "2016-10-03");
  EXPECT_EQ(FeastIn("_rosh", 2024), "2024-10-03");
  EXPECT_EQ(FeastIn("_rosh", 2026), "2026-09-12");
  EXPECT_EQ(FeastIn("_puri", 2016), "2016-03-24");
  EXPECT_EQ(FeastIn("_puri", 2024), "2024-03-24");
  EXPECT_EQ(FeastIn("_pass", 2016), "2016-04-23");
  EXPECT_EQ(FeastIn("_pass", 2024), "2024-04-23");
  EXPECT_EQ(FeastIn("_hanu", 2016), "2016-12-25");
  EXPECT_EQ(FeastIn("_hanu", 2024), "2024-12-26");
}

TEST(HebrewToGregorianTest, GivesTheDatesOfTheLiterature) {
  const auto rows = test::ReadDataRows("dates_hebrew.txt", 4);
  ASSERT_EQ(rows.size(), 33u);
  for (const test::DataRow& row : rows) {
    SCOPED_TRACE("dates_hebrew.txt line " + std::to_string(row.line));
    EXPECT_EQ(HebrewToGregorian(std::stoi(row.columns[0]), std::stoi(row.columns[1]),
                                std::stoi(row.columns[2])),
              test::DateOf(row.columns[3]));
  }
}

bool IsLeap(int year) {
  return year % 19 == 0 || year % 19 == 3 || year % 19 == 6 || year % 19 == 8 || year % 19 == 11 ||
         year % 19 == 14 || year % 19 == 17;
}

// Months by the civil numbering, in the numbering of the other algorithm.
int NisanMonth(int year, int civil) {
  if (civil <= 5) return civil + 6;
  if (civil == 6) return 12;
  if (civil == 7) return IsLeap(year) ? 13 : 12;
  return civil - 7;
}

TEST(HebrewToGregorianTest, AgreesWithElapsedDaysInEveryYear) {
  // The fixed day number 719163 is 1 January 1970.
  constexpr long kFixedOf1970 = 719163;
  for (int year = 1; year <= 13760; ++year) {
    for (const int month : {1, 2, 3, 4, 7, 8, 13}) {
      const auto date = HebrewToGregorian(year, month, 29);
      ASSERT_TRUE(date.has_value()) << year << " " << month;
      ASSERT_EQ(DayCount{*date}.time_since_epoch().count() + kFixedOf1970,
                test::NaiveHebrewFixed(year, NisanMonth(year, month), 29))
          << year << " " << month;
    }
  }
}

// Every day of every month in turn: no day is missing and none comes twice.
TEST(HebrewToGregorianTest, CountsThroughEveryDayOfFourCenturies) {
  CivilDate expected = *HebrewToGregorian(5560, 1, 1);
  for (int year = 5560; year <= 5970; ++year) {
    int days = 0;
    for (int month = 1; month <= 13; ++month) {
      for (int day = 1; day <= 30; ++day) {
        const auto date = HebrewToGregorian(year, month, day);
        if (!date) continue;
        ASSERT_EQ(*date, expected) << year << " " << month << " " << day;
        expected = AddDays(expected, 1);
        ++days;
      }
    }
    const bool leap = IsLeap(year);
    ASSERT_TRUE(days == (leap ? 383 : 353) || days == (leap ? 384 : 354) ||
                days == (leap ? 385 : 355))
        << year << " has " << days;
  }
}

TEST(HebrewToGregorianTest, StartsNoYearOnASundayWednesdayOrFriday) {
  for (int year = 1; year <= 13760; ++year) {
    const auto date = HebrewToGregorian(year, 1, 1);
    ASSERT_TRUE(date.has_value()) << year;
    const int weekday = WeekdayNumber(*date);
    ASSERT_TRUE(weekday != 1 && weekday != 4 && weekday != 6) << year << ": " << weekday;
  }
}

TEST(HebrewToGregorianTest, HasNoDateForAMonthOrDayThatTheYearLacks) {
  EXPECT_EQ(Gregorian(5775, 6, 1), "-");   // a common year has no Adar I
  EXPECT_NE(Gregorian(5774, 6, 30), "-");  // a leap year has
  EXPECT_EQ(Gregorian(5774, 7, 30), "-");  // Adar II has 29 days
  EXPECT_EQ(Gregorian(5774, 0, 1), "-");
  EXPECT_EQ(Gregorian(5774, 14, 1), "-");
  EXPECT_EQ(Gregorian(5774, -1, 1), "-");
  EXPECT_EQ(Gregorian(5774, 1, 0), "-");
  EXPECT_EQ(Gregorian(5774, 1, 31), "-");
  EXPECT_EQ(Gregorian(5774, 1, -5), "-");
  EXPECT_EQ(Gregorian(5775, 2, 30), "-");  // 354 days: Heshvan has 29
  EXPECT_NE(Gregorian(5776, 2, 30), "-");  // 385 days: Heshvan has 30
  EXPECT_EQ(Gregorian(5777, 3, 30), "-");  // 353 days: Kislev has 29
  EXPECT_NE(Gregorian(5776, 3, 30), "-");
}

TEST(HebrewToGregorianTest, TakesTheYears1To13760) {
  EXPECT_EQ(Gregorian(0, 1, 1), "-");
  EXPECT_EQ(Gregorian(-1, 1, 1), "-");
  EXPECT_EQ(Gregorian(13761, 1, 1), "-");
  EXPECT_NE(Gregorian(13760, 13, 29), "-");
  // 7 October 3761 before our era in the Julian calendar, the day of the epoch.
  EXPECT_EQ(HebrewToGregorian(1, 1, 1),
            (CivilDate{std::chrono::year{-3760}, std::chrono::month{9}, std::chrono::day{7}}));
}

// The year addend needs no correction for 1600 years, Hanukkah in seven late years excepted.
TEST(HebrewFeastOfTest, FallsInItsGregorianYear) {
  int late = 0;
  for (int year = 1600; year <= 3199; ++year) {
    for (const char* code :
         {"_rosh", "_yomk", "_sukk", "_shem", "_simh", "_hanu", "_puri", "_pass", "_shav"}) {
      const auto feast = HebrewFeastOf(code);
      const auto date = HebrewToGregorian(year + feast->yearAddend, feast->month, feast->day);
      ASSERT_TRUE(date.has_value()) << code << " " << year;
      if (YearOf(*date) == year) continue;
      ASSERT_STREQ(code, "_hanu") << year;
      ASSERT_EQ(YearOf(*date), year + 1);
      ASSERT_EQ(MonthOf(*date), 1);
      ASSERT_GE(year, 3031);
      ++late;
    }
  }
  EXPECT_EQ(late, 7);
}

}  // namespace
}  // namespace tidewarden::modHebrew
