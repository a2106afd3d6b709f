#include "dates/easter.h"

#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>
#include <string>

#include "tests/dates/data_rows.h"
#include "tests/dates/naive_feasts.h"
#include "tests/support/layouts.h"

namespace tidewarden::modEaster {
namespace {

using test::On;

std::string Easter(int year, int offset = 0) {
  const auto date = EasterDate(year, offset);
  return date ? test::TextOf(*date) : "-";
}

TEST(EasterOffsetOfTest, KnowsTheCodesInAnyCase) {
  struct Case {
    const char* field;
    int offset;
  };
  const Case cases[] = {{"_estr", 0},   {"eastr", 0},  {"_ashw", -46}, {"_mthr", -21},
                        {"_palm", -7},  {"_good", -2}, {"_ascn", 39},  {"_pent", 49},
                        {"_crpc", 60},  {"_ESTR", 0},  {"EaStR", 0},   {"_Ashw", -46},
                        {"_CRPC", 60},  {"e+001", 1},  {"E+001", 1},   {"e-001", -1},
                        {"e-046", -46}, {"e+039", 39}, {"e+365", 365}, {"e-365", -365},
                        {"E-365", -365}};
  for (const Case& c : cases) {
    const auto offset = EasterOffsetOf(c.field);
    ASSERT_TRUE(offset.has_value()) << c.field;
    EXPECT_EQ(*offset, c.offset) << c.field;
  }
}

TEST(EasterOffsetOfTest, RefusesEverythingElse) {
  for (const char* field :
       {"e+000", "e-000", "e+366", "e-366", "e+999", "e+abc", "e 001", "e001", "e", "e+", "",
        "12.25", "xx.15", "_rosh", "_vict", "estr", "easte", "f+001", "_ashe"}) {
    EXPECT_FALSE(EasterOffsetOf(field).has_value()) << field;
  }
}

TEST(EasterOffsetOfTest, TakesEveryDistanceFrom1To365) {
  for (int days = 0; days <= 999; ++days) {
    for (const char sign : {'+', '-'}) {
      const std::string field = std::string("e") + sign + test::Padded(days, 3);
      const auto offset = EasterOffsetOf(field);
      ASSERT_EQ(offset.has_value(), days >= 1 && days <= 365) << field;
      if (offset) {
        ASSERT_EQ(*offset, sign == '-' ? -days : days) << field;
      }
    }
  }
}

// The distance is read as a leading number and rounded to the nearest whole number, halves to
// even.
TEST(EasterOffsetOfTest, RoundsADistanceWithADecimalPoint) {
  EXPECT_FALSE(EasterOffsetOf("e+0.5").has_value());
  EXPECT_EQ(EasterOffsetOf("e+0.6"), 1);
  EXPECT_EQ(EasterOffsetOf("e+1.5"), 2);
  EXPECT_EQ(EasterOffsetOf("e+2.5"), 2);
  EXPECT_EQ(EasterOffsetOf("e-2.6"), -3);
  EXPECT_EQ(EasterOffsetOf("e+36x"), 36);
  EXPECT_EQ(EasterOffsetOf("e+ 12"), 12);
}

// A longer text is recognised by what it contains, the two codes of Easter Sunday before the
// distance.
TEST(EasterOffsetOfTest, FindsACodeAnywhereInTheText) {
  EXPECT_EQ(EasterOffsetOf("xx_estrxx"), 0);
  EXPECT_EQ(EasterOffsetOf("  Eastr"), 0);
  EXPECT_EQ(EasterOffsetOf("before _good day"), -2);
  EXPECT_EQ(EasterOffsetOf("e+012_estr"), 0);
  EXPECT_EQ(EasterOffsetOf("_crpc_ashw"), -46);
  EXPECT_FALSE(EasterOffsetOf("e+000_good").has_value());
}

TEST(EasterDateTest, IsTheDateOfTheLiterature) {
  const auto rows = test::ReadDataRows("dates_easter.txt", 4);
  ASSERT_GT(rows.size(), 35u);
  for (const test::DataRow& row : rows) {
    SCOPED_TRACE("dates_easter.txt line " + std::to_string(row.line));
    const int year = std::stoi(row.columns[0]);
    EXPECT_EQ(Easter(year), row.columns[1]);
    const auto offset = EasterOffsetOf(row.columns[2]);
    ASSERT_TRUE(offset.has_value());
    EXPECT_EQ(Easter(year, *offset), row.columns[3]);
  }
}

TEST(EasterDateTest, IsTrueEasterFrom1800To4199) {
  for (int year = 1800; year <= 4199; ++year) {
    const test::MonthAndDay easter = test::NaiveEaster(year);
    ASSERT_EQ(EasterDate(year, 0), On(year, easter.month, easter.day)) << year;
  }
}

// The computation as it is written down, with real numbers and the rounding of the machine
// (nearest, halves to even). Beyond 1800 to 4199 it is the only measure: the formula leaves true
// Easter in 46 years of the 18th and the 43rd century, and its Julian half is its own.
std::string EasterAsWritten(int year) {
  const int g = year % 19;
  double d = 0;
  int e = 0;
  if (year < 1583) {
    d = std::nearbyint(5.0 * year / 4.0);
    e = ((g + 1) * 11 - 4) % 30 + 1;
  } else {
    const int c = year / 100;
    const double x = std::floor(3.0 * (c + 1) / 4.0) - 12;
    const double z = std::nearbyint(std::floor((c - 15) - (c - 17) / 25.0) / 3.0);
    d = std::floor(5.0 * year / 4.0) - x - 10;
    const int r = static_cast<int>((g + 1) * 11 - x + z + 19) % 30;
    e = r + 1;
    if ((r + 1 == 25 && g + 1 >= 12) || r + 1 == 24) e = r + 2;
  }
  int n = 44 - e;
  if (n < 21) n = 74 - e;
  n = n + 7 - (n + static_cast<int>(d)) % 7;
  return test::Padded(year, 4) +
         (n >= 32 ? "-04-" + test::Padded(n - 31, 2) : "-03-" + test::Padded(n, 2));
}

TEST(EasterDateTest, FollowsItsFormulaInEveryYear) {
  ASSERT_EQ(std::fegetround(), FE_TONEAREST);
  for (int year = kFirstEasterYear; year <= kLastEasterYear; ++year) {
    ASSERT_EQ(Easter(year), EasterAsWritten(year));
  }
}

// Worked out apart from this program, with fractions.
TEST(EasterDateTest, HasTheValuesOfItsFormulaOutsideTheYearsOfTrueEaster) {
  EXPECT_EQ(Easter(1), "0001-03-27");
  EXPECT_EQ(Easter(3), "0003-04-07");
  EXPECT_EQ(Easter(326), "0326-04-09");
  EXPECT_EQ(Easter(532), "0532-04-11");
  EXPECT_EQ(Easter(711), "0711-04-11");
  EXPECT_EQ(Easter(1066), "1066-04-16");
  EXPECT_EQ(Easter(1582), "1582-04-14");
  EXPECT_EQ(Easter(1583), "1583-04-10");
  EXPECT_EQ(Easter(1700), "1700-04-04");
  EXPECT_EQ(Easter(1704), "1704-04-20");
  EXPECT_EQ(Easter(4292), "4292-04-17");
  EXPECT_EQ(Easter(6553), "6553-04-01");
}

TEST(EasterDateTest, IsASundayInTheGregorianYears) {
  for (int year = 1583; year <= kLastEasterYear; ++year) {
    const auto date = EasterDate(year, 0);
    ASSERT_TRUE(date.has_value()) << year;
    ASSERT_EQ(WeekdayNumber(*date), 1) << year;
  }
}

TEST(EasterDateTest, HasNoDateOutsideItsYears) {
  EXPECT_NE(Easter(1), "-");
  EXPECT_NE(Easter(6553), "-");
  for (const int year : {-1, 0, 6554, 9999, 32767, 100000}) EXPECT_EQ(Easter(year), "-") << year;
}

TEST(EasterDateTest, LetsTheDayOverflowIntoOtherMonthsAndYears) {
  EXPECT_EQ(Easter(2014, 0), "2014-04-20");
  EXPECT_EQ(Easter(2014, 10), "2014-04-30");
  EXPECT_EQ(Easter(2014, 11), "2014-05-01");
  EXPECT_EQ(Easter(2014, -20), "2014-03-31");
  EXPECT_EQ(Easter(2014, -365), "2013-04-20");
  EXPECT_EQ(Easter(2014, 365), "2015-04-20");
  EXPECT_EQ(Easter(2016, -27), "2016-02-29");
}

}  // namespace
}  // namespace tidewarden::modEaster
