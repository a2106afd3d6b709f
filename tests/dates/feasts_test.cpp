#include "dates/feasts.h"

#include <gtest/gtest.h>

#include <string>

#include "dates/easter.h"
#include "tests/dates/data_rows.h"
#include "tests/dates/naive_calendar.h"
#include "tests/support/layouts.h"

namespace tidewarden::test {
namespace {

const char* const kCodes[] = {"_estr", "_ashw", "_mthr", "_palm", "_good", "_ascn", "_pent",
                              "_crpc", "_rosh", "_yomk", "_sukk", "_shem", "_simh", "_hanu",
                              "_puri", "_pass", "_shav", "_vict", "eastr"};

std::string FeastIn(const char* code, int year) {
  const auto date = FeastDate(ReadFeast(code), year);
  return date ? TextOf(*date) : "-";
}

std::string Upper(std::string text) {
  for (char& c : text) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return text;
}

TEST(IsFeastCodeTest, KnowsTheNineteenCodesInAnyCase) {
  for (const char* code : kCodes) {
    EXPECT_TRUE(IsFeastCode(code)) << code;
    EXPECT_TRUE(IsFeastCode(Upper(code))) << code;
  }
}

TEST(IsFeastCodeTest, TakesEveryEasterOffsetFrom1To365) {
  for (int days = 0; days <= 999; ++days) {
    for (const char* head : {"e+", "e-", "E+", "E-"}) {
      const std::string field = head + Padded(days, 3);
      ASSERT_EQ(IsFeastCode(field), days >= 1 && days <= 365) << field;
    }
  }
}

TEST(IsFeastCodeTest, MeasuresAnOffsetUnrounded) {
  EXPECT_TRUE(IsFeastCode("e+0.5"));
  EXPECT_TRUE(IsFeastCode("e+1.5"));
  EXPECT_TRUE(IsFeastCode("e+1xx"));
  EXPECT_FALSE(IsFeastCode("e+0.0"));
  EXPECT_FALSE(IsFeastCode("e+-12"));
  EXPECT_FALSE(IsFeastCode("e+xx1"));
}

// Unlike the family tests a code must be the whole field.
TEST(IsFeastCodeTest, RefusesEverythingElse) {
  for (const char* field : {"", "e", "_", "_est", "_estr ", " _estr", "_estrx", "x_estr", "estr_",
                            "easte", "12.25", "xx.xx", "e 001", "e*001", "f+001", "_xxxx"}) {
    EXPECT_FALSE(IsFeastCode(field)) << field;
  }
}

TEST(ReadFeastTest, TriesTheEasterFamilyThenTheHebrewThenVictoriaDay) {
  for (const char* code : {"_estr", "_ashw", "_mthr", "_palm", "_good", "_ascn", "_pent", "_crpc",
                           "eastr", "e+039", "e-046", "E-046"}) {
    const Feast feast = ReadFeast(code);
    EXPECT_EQ(feast.family, Feast::Family::kEaster) << code;
    EXPECT_EQ(feast.easterOffset, *modEaster::EasterOffsetOf(code)) << code;
  }
  for (const char* code :
       {"_rosh", "_yomk", "_sukk", "_shem", "_simh", "_hanu", "_puri", "_pass", "_shav", "_SHAV"}) {
    EXPECT_EQ(ReadFeast(code).family, Feast::Family::kHebrew) << code;
  }
  EXPECT_EQ(ReadFeast("_hanu").hebrew.month, 3);
  EXPECT_EQ(ReadFeast("_vict").family, Feast::Family::kVictoria);
  EXPECT_EQ(ReadFeast("_VICT").family, Feast::Family::kVictoria);
  EXPECT_EQ(ReadFeast("_victoria").family, Feast::Family::kVictoria);  // the first five decide
  for (const char* code : {"", "x_vict", "12.25", "e+0.5", "e+000"}) {
    EXPECT_EQ(ReadFeast(code).family, Feast::Family::kNone) << code;
  }
  EXPECT_EQ(ReadFeast("_rosh_estr").family, Feast::Family::kEaster);
  EXPECT_EQ(ReadFeast("_vict_rosh").family, Feast::Family::kHebrew);
}

TEST(FeastDateTest, IsTheDayOfTheFeastInAYear) {
  EXPECT_EQ(FeastIn("_estr", 2014), "2014-04-20");
  EXPECT_EQ(FeastIn("EASTR", 2019), "2019-04-21");
  EXPECT_EQ(FeastIn("_ashw", 2014), "2014-03-05");
  EXPECT_EQ(FeastIn("e-046", 2014), "2014-03-05");
  EXPECT_EQ(FeastIn("_rosh", 2014), "2014-09-25");
  EXPECT_EQ(FeastIn("_VICT", 2014), "2014-05-19");
  EXPECT_EQ(FeastIn("e+0.5", 2014), "-");
  EXPECT_EQ(FeastIn("12.25", 2014), "-");
}

TEST(FeastDateTest, HasNoDateOutsideTheYearsOfTheProgram) {
  for (const char* code : kCodes) {
    EXPECT_EQ(FeastIn(code, -1), "-") << code;
    EXPECT_EQ(FeastIn(code, 10000), "-") << code;
  }
  EXPECT_EQ(FeastIn("_estr", 0), "-");
  EXPECT_EQ(FeastIn("_estr", 6554), "-");
  EXPECT_NE(FeastIn("_rosh", 0), "-");
  EXPECT_NE(FeastIn("_rosh", 9999), "-");
  EXPECT_NE(FeastIn("_vict", 0), "-");
  EXPECT_NE(FeastIn("_vict", 9999), "-");
}

TEST(VictoriaDayTest, IsTheMondayBeforeThe25thOfMay) {
  EXPECT_EQ(VictoriaDay(2014), On(2014, 5, 19));
  EXPECT_EQ(VictoriaDay(2015), On(2015, 5, 18));
  EXPECT_EQ(VictoriaDay(2016), On(2016, 5, 23));
  const NaiveCalendar& pages = NaiveCalendar::Pages();
  for (int year = NaiveCalendar::kFirstYear; year <= NaiveCalendar::kLastYear; ++year) {
    int index = pages.IndexOf(year, 5, 24);
    while (pages.At(index).weekday != 2) --index;
    ASSERT_EQ(pages.IndexOf(VictoriaDay(year)), index) << year;
    ASSERT_EQ(FeastDate(ReadFeast("_vict"), year), VictoriaDay(year)) << year;
  }
}

}  // namespace
}  // namespace tidewarden::test
