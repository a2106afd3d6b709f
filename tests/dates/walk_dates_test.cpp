// Yearly and one-time dates and counters, on every day of four centuries.
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "dates/date_difference.h"
#include "tests/dates/data_rows.h"
#include "tests/dates/four_centuries.h"
#include "tests/dates/naive_wording.h"

namespace tidewarden::test {
namespace {

constexpr long long kFields = 12 * 31;
constexpr long long kFewFields = 12 * 3;

const NaiveCalendar& Pages() {
  return NaiveCalendar::Pages();
}

// The days on which months differ.
std::vector<MonthDayField> MonthsFirstAndLastDays() {
  std::vector<MonthDayField> dates = AllMonthsAndDays();
  std::erase_if(dates, [](const MonthDayField& date) {
    return date.day != 1 && date.day != 29 && date.day != 31;
  });
  return dates;
}

long long CountEqualYearlyDays(const std::vector<MonthDayField>& dates, const WalkOccurs& occurs) {
  long long compared = 0;
  for (const MonthDayField& date : dates) {
    for (int year = kWalkFirstYear; year <= kWalkLastYear; ++year) {
      const int thisYear = Pages().IndexOf(year, date.month, date.day);
      const int nextYear = Pages().IndexOf(year + 1, date.month, date.day);
      compared += CountEqualDays(PagesOfYear(year), date.field, occurs, [&](int today) {
        return ThisYearOrNext(thisYear, nextYear, today);
      });
    }
  }
  return compared;
}

TEST(FourCenturiesTest, EveryYearlyDate) {
  EXPECT_EQ(CountEqualYearlyDays(AllMonthsAndDays(), ReadWalkOccurs("yearly")),
            kFields * kWalkDays);
}

// A date without a wildcard is yearly for these, too.
TEST(FourCenturiesTest, EveryDateWithAnotherRuleOfTheCalendar) {
  for (const char* occurs : {"monthly", "3rd mon", "las day"}) {
    EXPECT_EQ(CountEqualYearlyDays(MonthsFirstAndLastDays(), ReadWalkOccurs(occurs)),
              kFewFields * kWalkDays);
  }
}

// One-time and to-do events and counters keep their date, gone or to come.
struct KeptKind {
  const char* name;
  const char* head;
  std::vector<int> otherYears;  // two

  friend std::ostream& operator<<(std::ostream& out, const KeptKind& kind) {
    return out << kind.name;
  }
};

long long CountEqualKeptDays(PageSpan days, const MonthDayField& date, int year,
                             const WalkOccurs& occurs) {
  const int page = Pages().IndexOf(year, date.month, date.day);
  return CountEqualDays(days, date.field, occurs, [page](int) { return page; });
}

class FourCenturiesKeptTest : public testing::TestWithParam<KeptKind> {};

// From before the date to after it.
TEST_P(FourCenturiesKeptTest, EveryDateOfTheCurrentYear) {
  const std::vector<MonthDayField> dates = AllMonthsAndDays();
  long long compared = 0;
  for (int year = kWalkFirstYear; year <= kWalkLastYear; ++year) {
    const WalkOccurs occurs = ReadWalkOccurs(GetParam().head + Padded(year, 4), year);
    for (const MonthDayField& date : dates) {
      compared += CountEqualKeptDays(PagesOfYear(year), date, year, occurs);
    }
  }
  EXPECT_EQ(compared, kFields * kWalkDays);
}

TEST_P(FourCenturiesKeptTest, DatesOfOtherYears) {
  const KeptKind& kind = GetParam();
  const std::vector<MonthDayField> dates = MonthsFirstAndLastDays();
  long long compared = 0;
  for (const int year : kind.otherYears) {
    const WalkOccurs occurs = ReadWalkOccurs(kind.head + Padded(year, 4));
    for (const MonthDayField& date : dates) {
      compared += CountEqualKeptDays(FourCenturies(), date, year, occurs);
    }
  }
  EXPECT_EQ(compared, 2 * kFewFields * kWalkDays);
}

INSTANTIATE_TEST_SUITE_P(Kind, FourCenturiesKeptTest,
                         testing::Values(KeptKind{"OneTime", "one", {2000, 2450}},
                                         KeptKind{"TilDone", "tdo", {2004, 2399}},
                                         KeptKind{"DaysPast", "dp-", {1600, 2199}},
                                         KeptKind{"DaysFuture", "df-", {1900, 2400}}),
                         [](const auto& kind) { return std::string(kind.param.name); });

// The wording of a counter for dates that stay while the days go by, and for dates that go along
// at a distance.
TEST(FourCenturiesTest, EveryCounterIsWordedAsOnTexts) {
  const PageSpan days = FourCenturies();
  const std::vector<int> fixed{
      Pages().IndexOf(1600, 1, 1),  Pages().IndexOf(1999, 12, 31), Pages().IndexOf(2000, 2, 29),
      Pages().IndexOf(2001, 3, 1),  Pages().IndexOf(2199, 8, 30),  Pages().IndexOf(2200, 1, 31),
      Pages().IndexOf(2399, 12, 1), Pages().IndexOf(2400, 2, 29),  Pages().IndexOf(2450, 12, 31)};
  const std::vector<int> distances{1, 28, 29, 30, 31, 59, 366};
  long long compared = 0;
  const auto compare = [&](int from, int to) {
    const CivilDate a = Pages().At(from).ToDate();
    const CivilDate b = Pages().At(to).ToDate();
    ASSERT_EQ(CompareDates(a, b, DifferenceForm::kYearsMonthsDays), WordingOnTexts(from, to, false))
        << TextOf(a) << " to " << TextOf(b);
    ASSERT_EQ(CompareDates(a, b, DifferenceForm::kDaysOnly), WordingOnTexts(from, to, true))
        << TextOf(a) << " to " << TextOf(b);
    ++compared;
  };
  for (int today = days.first; today <= days.last; ++today) {
    ASSERT_NO_FATAL_FAILURE(compare(today, today));
    for (const int date : fixed) ASSERT_NO_FATAL_FAILURE(compare(today, date));
    for (const int distance : distances) {
      ASSERT_NO_FATAL_FAILURE(compare(today, today + distance));
      ASSERT_NO_FATAL_FAILURE(compare(today, today - distance));
    }
  }
  EXPECT_EQ(compared, (10 + 2 * 7) * kWalkDays);
}

// Events that the line parser takes and that never fall.
TEST(FourCenturiesTest, WhatHasNoDateHasNoneOnAnyDay) {
  struct Family {
    std::vector<std::string> fields;
    std::vector<std::string> occurs;
  };
  std::vector<std::string> oneMonth{"xx.xx"};
  std::vector<std::string> wild{"xx.xx"};
  for (int month = 1; month <= 12; ++month) oneMonth.push_back(Padded(month, 2) + ".xx");
  for (int day = 1; day <= 31; ++day) wild.push_back("xx." + Padded(day, 2));
  wild.insert(wild.end(), oneMonth.begin() + 1, oneMonth.end());
  const std::vector<std::string> feasts{"_estr", "eastr", "_ashw", "e+100", "e-200",
                                        "_rosh", "_hanu", "_puri", "_pass", "_vict"};
  const Family families[] = {
      {oneMonth, {"yearly", "monthly", "one2014", "tdo2014", "14-2014", "20~2014"}},
      {wild, {"dp-2000", "df-2399"}},
      {feasts, {"dp-2000", "df-2399", "quarter"}},
      {{"1a.05", "05.1a", "e+0.5", "e+1xx"},
       {"yearly", "monthly", "quarter", "one2014", "14-2014", "dp-2000"}},
      {{"02.29"}, {"one2015", "tdo2100", "14-2015", "20~2200", "dp-1900", "df-2300"}}};
  long long compared = 0;
  for (const Family& family : families) {
    for (const std::string& field : family.fields) {
      for (const std::string& occurs : family.occurs) {
        compared += CountEqualDays(ReadWalkField(field), ReadWalkOccurs(occurs),
                                   [](int) { return kNoPage; });
      }
    }
  }
  EXPECT_EQ(compared, (13 * 6 + 44 * 2 + 10 * 3 + 4 * 6 + 6) * kWalkDays);
}

}  // namespace
}  // namespace tidewarden::test
