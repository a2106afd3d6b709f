#include "dates/date_difference.h"

#include <gtest/gtest.h>

#include "tests/dates/data_rows.h"
#include "tests/dates/naive_calendar.h"
#include "tests/dates/naive_wording.h"
#include "tests/support/layouts.h"

namespace tidewarden::test {
namespace {

constexpr auto kDays = DifferenceForm::kDaysOnly;
constexpr auto kYears = DifferenceForm::kYearsMonthsDays;

TEST(CompareDatesTest, CountsDaysAlwaysInThePlural) {
  const CivilDate today = On(2014, 12, 22);
  EXPECT_EQ(CompareDates(today, On(2014, 12, 22), kDays), "(0 daysIS TODAY)");
  EXPECT_EQ(CompareDates(today, On(2014, 12, 23), kDays), "(1 days future)");
  EXPECT_EQ(CompareDates(today, On(2014, 12, 21), kDays), "(1 days past)");
  EXPECT_EQ(CompareDates(today, On(2015, 12, 22), kDays), "(365 days future)");
  EXPECT_EQ(CompareDates(today, On(2001, 6, 1), kDays), "(4952 days past)");
}

TEST(CompareDatesTest, NeverGroupsTheDigits) {
  EXPECT_EQ(CompareDates(On(0, 1, 1), On(9999, 12, 31), kDays), "(3652424 days future)");
  EXPECT_EQ(CompareDates(On(9999, 12, 31), On(0, 1, 1), kDays), "(3652424 days past)");
  EXPECT_EQ(CompareDates(On(0, 1, 1), On(9999, 12, 31), kYears),
            "(9999 years, 11 months, 30 days future)");
}

struct WordingCase {
  const char* from;
  const char* to;
  const char* text;
};

const WordingCase kWordings[] = {
    {"2012-01-15", "2014-03-20", "(2 years, 2 months, 5 days future)"},
    {"2014-12-22", "2014-12-22", "(IS TODAY)"},
    {"2014-12-22", "2014-12-23", "(1 day future)"},
    {"2014-12-22", "2014-12-20", "(2 days past)"},
    {"2014-12-22", "2015-01-22", "(1 month future)"},
    {"2014-12-22", "2015-02-22", "(2 months future)"},
    {"2014-12-22", "2015-12-22", "(1 year future)"},
    {"2015-12-22", "2014-12-22", "(1 year past)"},
    {"2016-12-22", "2014-12-22", "(2 years past)"},
    {"2014-12-22", "2016-01-23", "(1 year, 1 month, 1 day future)"},
    {"2014-12-22", "2015-12-23", "(1 year, 1 day future)"},
    {"2014-12-22", "2016-02-22", "(1 year, 2 months future)"},
    {"2014-12-22", "2016-12-24", "(2 years, 2 days future)"},
    {"2015-01-31", "2015-02-28", "(25 days future)"},
    {"2015-01-31", "2015-03-01", "(1 month, 1 day future)"},
    {"2015-03-31", "2015-02-28", "(1 month, 3 days past)"},
    {"2014-03-20", "2014-03-10", "(10 days past)"},
    {"2014-03-10", "2014-01-20", "(1 month, 21 days past)"},
    {"2014-03-10", "2014-01-10", "(2 months past)"},
    {"2014-03-10", "2014-01-05", "(2 months, 5 days past)"},
    {"2016-02-29", "2017-02-28", "(11 months, 27 days future)"},
    {"2016-02-29", "2017-03-01", "(1 year, 1 day future)"},
};

TEST(CompareDatesTest, CountsYearsMonthsAndDays) {
  for (const WordingCase& c : kWordings) {
    EXPECT_EQ(CompareDates(DateOf(c.from), DateOf(c.to), kYears), c.text)
        << c.from << " to " << c.to;
  }
}

TEST(CompareDatesTest, IsTheWordingMadeOnTexts) {
  const NaiveCalendar& pages = NaiveCalendar::Pages();
  const auto check = [&](int from, int to) {
    const CivilDate a = pages.At(from).ToDate();
    const CivilDate b = pages.At(to).ToDate();
    ASSERT_EQ(CompareDates(a, b, kYears), WordingOnTexts(from, to, false))
        << TextOf(a) << " to " << TextOf(b);
    ASSERT_EQ(CompareDates(a, b, kDays), WordingOnTexts(from, to, true))
        << TextOf(a) << " to " << TextOf(b);
  };
  const int first = pages.IndexOf(2015, 1, 1);
  const int last = pages.IndexOf(2016, 12, 31);
  for (int from = first; from <= last; from += 5) {
    for (int to = from - 800; to <= from + 800; to += 3) {
      ASSERT_NO_FATAL_FAILURE(check(from, to));
    }
  }
  // Around the end of February and of the year every pair of days.
  for (const int from : {pages.IndexOf(2015, 1, 28), pages.IndexOf(2016, 1, 28),
                         pages.IndexOf(2015, 12, 28), pages.IndexOf(2016, 2, 27)}) {
    for (int a = from; a < from + 5; ++a) {
      for (int to = a - 130; to <= a + 130; ++to) ASSERT_NO_FATAL_FAILURE(check(a, to));
    }
  }
  // Centuries apart.
  for (int from = pages.IndexOf(1700, 1, 1); from < pages.IndexOf(2400, 1, 1); from += 4999) {
    for (int to = pages.IndexOf(1700, 2, 3); to < pages.IndexOf(2400, 1, 1); to += 3001) {
      ASSERT_NO_FATAL_FAILURE(check(from, to));
    }
  }
}

}  // namespace
}  // namespace tidewarden::test
