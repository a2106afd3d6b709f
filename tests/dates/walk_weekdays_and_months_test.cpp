// Weekdays of a month and days of every month, on every day of four centuries.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/dates/data_rows.h"
#include "tests/dates/four_centuries.h"

namespace tidewarden::test {
namespace {

constexpr int kLastWeekday = 4;
constexpr int kLastDay = 5;
const char* const kWeekdayNames[] = {"sun", "mon", "tue", "wed", "thu", "fri", "sat"};
const char* const kOrdinalNames[] = {"1st ", "2nd ", "3rd ", "4th ", "las "};

struct OrdinalRule {
  int ordinal;  // 0 to 3: 1st to 4th; kLastWeekday; kLastDay
  int weekday;  // Sunday = 1; 0 for kLastDay
  WalkOccurs occurs;
};

bool FallsOn(const NaiveDay& day, const OrdinalRule& rule) {
  const int length = NaiveMonthLength(day.year, day.month);
  if (rule.ordinal == kLastDay) return day.day == length;
  if (day.weekday != rule.weekday) return false;
  return rule.ordinal == kLastWeekday ? day.day + 7 > length : (day.day - 1) / 7 == rule.ordinal;
}

std::vector<OrdinalRule> OrdinalRules() {
  std::vector<OrdinalRule> rules;
  for (int ordinal = 0; ordinal <= kLastWeekday; ++ordinal) {
    for (int weekday = 1; weekday <= 7; ++weekday) {
      const std::string text = std::string(kOrdinalNames[ordinal]) + kWeekdayNames[weekday - 1];
      rules.push_back({ordinal, weekday, ReadWalkOccurs(text)});
    }
  }
  rules.push_back({kLastDay, 0, ReadWalkOccurs("las day")});
  return rules;
}

TEST(FourCenturiesTest, EveryOrdinalWeekdayOfEveryMonth) {
  const WalkField field = MonthAndDayField(0, 0);
  const std::vector<OrdinalRule> rules = OrdinalRules();
  long long compared = 0;
  for (const OrdinalRule& rule : rules) {
    ComingDates dates(PagesOn([&](const NaiveDay& day) { return FallsOn(day, rule); }));
    compared += CountEqualDays(field, rule.occurs, dates);
  }
  EXPECT_EQ(rules.size(), 36U);
  EXPECT_EQ(compared, 36 * kWalkDays);
}

class FourCenturiesByMonthTest : public testing::TestWithParam<int> {};

TEST_P(FourCenturiesByMonthTest, EveryOrdinalWeekdayOfOneMonth) {
  const int month = GetParam();
  const WalkField field = MonthAndDayField(month, 0);
  long long compared = 0;
  for (const OrdinalRule& rule : OrdinalRules()) {
    ComingDates dates(
        PagesOn([&](const NaiveDay& day) { return day.month == month && FallsOn(day, rule); }));
    compared += CountEqualDays(field, rule.occurs, dates);
  }
  EXPECT_EQ(compared, 36 * kWalkDays);
}

INSTANTIATE_TEST_SUITE_P(Month, FourCenturiesByMonthTest, testing::Range(1, 13),
                         testing::PrintToStringParamName());

// The wildcard decides, whatever the occurs field says.
TEST(FourCenturiesTest, EveryDayOfTheMonthMonthly) {
  const std::vector<WalkOccurs> allOccurs{ReadWalkOccurs("monthly"), ReadWalkOccurs("yearly"),
                                          ReadWalkOccurs("3rd mon"), ReadWalkOccurs("las day")};
  long long compared = 0;
  for (int wanted = 1; wanted <= 31; ++wanted) {
    const WalkField field = MonthAndDayField(0, wanted);
    const std::vector<int> falls = PagesOn([&](const NaiveDay& day) {
      const int length = NaiveMonthLength(day.year, day.month);
      return day.day == (wanted < length ? wanted : length);
    });
    for (const WalkOccurs& occurs : allOccurs) {
      ComingDates dates(falls);
      compared += CountEqualDays(field, occurs, dates);
    }
  }
  EXPECT_EQ(compared, 31 * 4 * kWalkDays);
}

// The day of this month or, once it has passed, of the next, but in the year that the occurs
// field names; after December the month starts again in that same year.
int NaiveMonthlyInYear(int wanted, int year, const NaiveDay& today) {
  int month = today.month;
  if (wanted < today.day) ++month;
  if (month == 13) month = 1;
  const int length = NaiveMonthLength(year, month);
  return NaiveCalendar::Pages().IndexOf(year, month, wanted < length ? wanted : length);
}

TEST(FourCenturiesTest, EveryDayOfTheMonthInTheYearOfTheOccursField) {
  const NaiveCalendar& pages = NaiveCalendar::Pages();
  struct Form {
    const char* head;
    bool isMovedOn;
  };
  long long compared = 0;
  for (const Form& form : {Form{"one", false}, Form{"tdo", false}, Form{"14-", true}}) {
    for (int current = kWalkFirstYear; current <= kWalkLastYear; ++current) {
      for (int year = current == 2000 ? 2000 : current - 1; year <= current + 1; ++year) {
        const WalkOccurs occurs = ReadWalkOccurs(form.head + Padded(year, 4));
        for (int wanted = 1; wanted <= 31; ++wanted) {
          const auto expected = [&](int today) {
            const int page = NaiveMonthlyInYear(wanted, year, pages.At(today));
            if (page >= today || !form.isMovedOn || year != current) return page;
            return pages.IndexOf(year + 1, pages.At(page).month, pages.At(page).day);
          };
          compared +=
              CountEqualDays(PagesOfYear(current), MonthAndDayField(0, wanted), occurs, expected);
        }
      }
    }
  }
  // There is no last year for 2000.
  EXPECT_EQ(compared, 3 * 31 * (3 * kWalkDays - 366));
}

}  // namespace
}  // namespace tidewarden::test
