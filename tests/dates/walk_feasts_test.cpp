// Feasts, on every day of four centuries.
#include <gtest/gtest.h>

#include <cstdlib>
#include <ostream>
#include <string>
#include <vector>

#include "tests/dates/data_rows.h"
#include "tests/dates/four_centuries.h"
#include "tests/dates/naive_feasts.h"

namespace tidewarden::test {
namespace {

const NaiveCalendar& Pages() {
  return NaiveCalendar::Pages();
}

int EasterPage(int year) {
  const MonthAndDay easter = NaiveEaster(year);
  return Pages().IndexOf(year, easter.month, easter.day);
}

// A feast falls in this year, or in the next once it has passed. A distant offset can leave both
// in the past; then the day of next year that bears the same number is taken.
int NaiveFeast(int thisYear, int nextYear, int today) {
  const int date = thisYear >= today ? thisYear : nextYear;
  if (date >= today) return date;
  const NaiveDay& past = Pages().At(date);
  if (past.year != Pages().At(today).year) return date;
  return Pages().IndexOf(past.year + 1, past.month, past.day);
}

long long CountEqualEasterDays(const std::string& code, int offset, const WalkOccurs& occurs) {
  const WalkField field = ReadWalkField(code);
  long long compared = 0;
  for (int year = kWalkFirstYear; year <= kWalkLastYear; ++year) {
    const int thisYear = EasterPage(year) + offset;
    const int nextYear = EasterPage(year + 1) + offset;
    compared += CountEqualDays(PagesOfYear(year), field, occurs,
                               [&](int today) { return NaiveFeast(thisYear, nextYear, today); });
  }
  return compared;
}

struct Offsets {
  const char* name;
  int first;
  int last;

  friend std::ostream& operator<<(std::ostream& out, const Offsets& offsets) {
    return out << offsets.name;
  }
};

class FourCenturiesEasterTest : public testing::TestWithParam<Offsets> {};

TEST_P(FourCenturiesEasterTest, EveryOffset) {
  const Offsets& offsets = GetParam();
  const WalkOccurs yearly = ReadWalkOccurs("yearly");
  long long compared = 0;
  for (int offset = offsets.first; offset <= offsets.last; ++offset) {
    const std::string code = (offset < 0 ? "e-" : "e+") + Padded(std::abs(offset), 3);
    compared += CountEqualEasterDays(code, offset, yearly);
  }
  EXPECT_EQ(compared, (offsets.last - offsets.first + 1) * kWalkDays);
}

INSTANTIATE_TEST_SUITE_P(
    Distance, FourCenturiesEasterTest,
    testing::Values(Offsets{"LongBefore", -365, -274}, Offsets{"HalfAYearBefore", -273, -183},
                    Offsets{"MonthsBefore", -182, -92}, Offsets{"Before", -91, -1},
                    Offsets{"After", 1, 91}, Offsets{"MonthsAfter", 92, 182},
                    Offsets{"HalfAYearAfter", 183, 273}, Offsets{"LongAfter", 274, 365}),
    [](const auto& offsets) { return std::string(offsets.param.name); });

// A feast goes by its code, whatever the occurs field says.
TEST(FourCenturiesTest, EveryNamedFeastOfTheEasterFamily) {
  struct Feast {
    const char* code;
    int offset;
  };
  long long compared = 0;
  for (const Feast& feast : {Feast{"_estr", 0}, Feast{"eastr", 0}, Feast{"_ashw", -46},
                             Feast{"_mthr", -21}, Feast{"_palm", -7}, Feast{"_good", -2},
                             Feast{"_ascn", 39}, Feast{"_pent", 49}, Feast{"_crpc", 60}}) {
    for (const char* occurs : {"yearly", "one2014", "14-2014"}) {
      compared += CountEqualEasterDays(feast.code, feast.offset, ReadWalkOccurs(occurs));
    }
  }
  EXPECT_EQ(compared, 9 * 3 * kWalkDays);
}

TEST(FourCenturiesTest, EveryHebrewFeast) {
  long long compared = 0;
  for (const char* code :
       {"_rosh", "_yomk", "_sukk", "_shem", "_simh", "_hanu", "_puri", "_pass", "_shav"}) {
    const WalkField field = ReadWalkField(code);
    for (const char* text : {"yearly", "one2014", "14-2014"}) {
      const WalkOccurs occurs = ReadWalkOccurs(text);
      for (int year = kWalkFirstYear; year <= kWalkLastYear; ++year) {
        const int thisYear = NaiveHebrewFeastIndex(code, year);
        const int nextYear = NaiveHebrewFeastIndex(code, year + 1);
        compared += CountEqualDays(PagesOfYear(year), field, occurs, [&](int today) {
          return ThisYearOrNext(thisYear, nextYear, today);
        });
      }
    }
  }
  EXPECT_EQ(compared, 9 * 3 * kWalkDays);
}

TEST(FourCenturiesTest, VictoriaDay) {
  ComingDates dates(PagesOn([](const NaiveDay& day) {
    return day.month == 5 && day.day >= 18 && day.day <= 24 && day.weekday == 2;
  }));
  EXPECT_EQ(CountEqualDays(ReadWalkField("_vict"), ReadWalkOccurs("yearly"), dates), kWalkDays);
}

}  // namespace
}  // namespace tidewarden::test
