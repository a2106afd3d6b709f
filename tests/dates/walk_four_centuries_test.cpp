// Every calendar rule on every day from 1 January 2000 to 31 December 2399, one whole cycle of
// the Gregorian calendar, against a second answer that is found by turning pages.
#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include "dates/event_date_rules.h"
#include "tests/dates/data_rows.h"
#include "tests/dates/naive_calendar.h"
#include "tests/dates/naive_feasts.h"

namespace tidewarden::test {
namespace {

constexpr int kNone = -1;
constexpr int kOrdinals = 6;  // 1st to 4th, last weekday, last day
const char* const kWeekdayNames[] = {"sun", "mon", "tue", "wed", "thu", "fri", "sat"};
const char* const kOrdinalNames[] = {"1st ", "2nd ", "3rd ", "4th ", "las "};

const NaiveCalendar& Pages() {
  return NaiveCalendar::Pages();
}

int FirstDay() {
  return Pages().IndexOf(2000, 1, 1);
}
int LastDay() {
  return Pages().IndexOf(2399, 12, 31);
}

std::string MonthDay(int month, int day) {
  return Padded(month, 2) + "." + Padded(day, 2);
}

struct Rule {
  std::string name;
  DateField field;
  Occurs occurs;

  Rule(const std::string& stored, const std::string& occursText) : name(stored + "," + occursText) {
    EXPECT_EQ(ReadDateField(stored, field), DateFieldFault::kNone) << name;
    EXPECT_EQ(ReadOccurs(occursText, 2399, occurs), OccursFault::kNone) << name;
  }

  // The next date as a place in the calendar.
  [[nodiscard]] int Next(int today) const {
    const auto date = NextOccurrence(field, occurs, Pages().At(today).ToDate());
    return date ? Pages().IndexOf(*date) : kNone;
  }
};

std::string Describe(const Rule& rule, int today) {
  return rule.name + " on " + TextOf(Pages().At(today).ToDate());
}

// For every day of the calendar the first day, not before it, that `falls` on.
std::vector<int> NextFalls(const std::function<bool(const NaiveDay&)>& falls) {
  std::vector<int> next(static_cast<std::size_t>(Pages().Count()));
  int coming = kNone;
  for (int i = Pages().Count() - 1; i >= 0; --i) {
    if (falls(Pages().At(i))) coming = i;
    next[static_cast<std::size_t>(i)] = coming;
  }
  return next;
}

bool FallsOnOrdinal(const NaiveDay& day, int ordinal, int weekday) {
  const int length = NaiveMonthLength(day.year, day.month);
  if (ordinal == 5) return day.day == length;
  if (day.weekday != weekday) return false;
  return ordinal == 4 ? day.day + 7 > length : (day.day - 1) / 7 == ordinal;
}

struct OrdinalRule {
  int ordinal;  // 0 to 3: 1st to 4th; 4: last weekday; 5: last day
  int weekday;
  std::string occurs;
};

std::vector<OrdinalRule> OrdinalRules() {
  std::vector<OrdinalRule> rules;
  for (int ordinal = 0; ordinal < kOrdinals - 1; ++ordinal) {
    for (int weekday = 1; weekday <= 7; ++weekday) {
      rules.push_back(
          {ordinal, weekday, std::string(kOrdinalNames[ordinal]) + kWeekdayNames[weekday - 1]});
    }
  }
  rules.push_back({5, 0, "las day"});
  return rules;
}

TEST(FourCenturiesTest, EveryOrdinalWeekdayOfEveryMonth) {
  for (const OrdinalRule& ordinal : OrdinalRules()) {
    const Rule rule("xx.xx", ordinal.occurs);
    const std::vector<int> expected = NextFalls(
        [&](const NaiveDay& day) { return FallsOnOrdinal(day, ordinal.ordinal, ordinal.weekday); });
    for (int today = FirstDay(); today <= LastDay(); ++today) {
      ASSERT_EQ(rule.Next(today), expected[static_cast<std::size_t>(today)])
          << Describe(rule, today);
    }
  }
}

// The answer changes only within the rule's own month, so every day looks at all the rules of its
// own month, and at one other month in turn.
TEST(FourCenturiesTest, EveryOrdinalWeekdayOfOneMonth) {
  for (const OrdinalRule& ordinal : OrdinalRules()) {
    std::vector<Rule> rules;
    for (int month = 1; month <= 12; ++month) {
      rules.emplace_back(Padded(month, 2) + ".xx", ordinal.occurs);
    }
    std::vector<std::array<int, 12>> expected(static_cast<std::size_t>(Pages().Count()));
    std::array<int, 12> coming{};
    coming.fill(kNone);
    for (int i = Pages().Count() - 1; i >= 0; --i) {
      const NaiveDay& day = Pages().At(i);
      if (FallsOnOrdinal(day, ordinal.ordinal, ordinal.weekday)) {
        coming[static_cast<std::size_t>(day.month - 1)] = i;
      }
      expected[static_cast<std::size_t>(i)] = coming;
    }
    for (int today = FirstDay(); today <= LastDay(); ++today) {
      const auto own = static_cast<std::size_t>(Pages().At(today).month - 1);
      const auto& answers = expected[static_cast<std::size_t>(today)];
      ASSERT_EQ(rules[own].Next(today), answers[own]) << Describe(rules[own], today);
      if (today % 5 != ordinal.weekday % 5) continue;
      const auto other = static_cast<std::size_t>(today / 5 % 12);
      ASSERT_EQ(rules[other].Next(today), answers[other]) << Describe(rules[other], today);
    }
  }
}

TEST(FourCenturiesTest, EveryDayOfTheMonthMonthly) {
  for (int wanted = 1; wanted <= 31; ++wanted) {
    const Rule rule("xx." + Padded(wanted, 2), "monthly");
    const std::vector<int> expected = NextFalls([&](const NaiveDay& day) {
      const int length = NaiveMonthLength(day.year, day.month);
      return day.day == (wanted < length ? wanted : length);
    });
    for (int today = FirstDay(); today <= LastDay(); ++today) {
      ASSERT_EQ(rule.Next(today), expected[static_cast<std::size_t>(today)])
          << Describe(rule, today);
    }
  }
}

// Turning pages from today to the end of the year finds the quarter days of this year; of next
// year only the first quarter counts. When nothing is found the event goes to its own month.
int NaiveQuarter(int month, int day, int today) {
  const NaiveDay& now = Pages().At(today);
  for (int i = today; i < Pages().Count() && i - today < 365; ++i) {
    const NaiveDay& page = Pages().At(i);
    const bool inSeries = page.day == day && (page.month - month) % 3 == 0;
    if (inSeries && (page.year == now.year || page.month <= 3)) return i;
    if (page.year > now.year && page.month > 3) break;
  }
  const int own = Pages().IndexOf(now.year, month, day);
  if (own == kNone || own >= today) return own;
  return Pages().IndexOf(now.year + 1, month, day);
}

void WalkQuarter(int month, int day) {
  const Rule rule(MonthDay(month, day), "quarter");
  int known = kNone;  // stays the answer until it is reached or a new year begins
  for (int today = FirstDay(); today <= LastDay(); ++today) {
    const NaiveDay& now = Pages().At(today);
    if (known < today || (now.month == 1 && now.day == 1)) {
      known = NaiveQuarter(month, day, today);
    }
    ASSERT_EQ(rule.Next(today), known) << Describe(rule, today);
  }
}

TEST(FourCenturiesTest, EveryQuarter) {
  for (int month = 1; month <= 12; ++month) {
    ASSERT_NO_FATAL_FAILURE(WalkQuarter(month, 15));
    ASSERT_NO_FATAL_FAILURE(WalkQuarter(month, 31));
    // Only February lacks the 29th and the 30th.
    if (month % 3 != 2) continue;
    ASSERT_NO_FATAL_FAILURE(WalkQuarter(month, 29));
    ASSERT_NO_FATAL_FAILURE(WalkQuarter(month, 30));
  }
}

int NaiveYearly(int month, int day, int today) {
  const int year = Pages().At(today).year;
  const int thisYear = Pages().IndexOf(year, month, day);
  if (thisYear == kNone || thisYear >= today) return thisYear;
  return Pages().IndexOf(year + 1, month, day);
}

TEST(FourCenturiesTest, EveryYearlyDate) {
  std::vector<std::vector<Rule>> rules(12);
  for (int month = 1; month <= 12; ++month) {
    for (int day = 1; day <= 31; ++day) {
      rules[static_cast<std::size_t>(month - 1)].emplace_back(MonthDay(month, day), "yearly");
    }
  }
  const auto check = [&](int month, int day, int today) {
    const Rule& rule =
        rules[static_cast<std::size_t>(month - 1)][static_cast<std::size_t>(day - 1)];
    ASSERT_EQ(rule.Next(today), NaiveYearly(month, day, today)) << Describe(rule, today);
  };
  for (int today = FirstDay(); today <= LastDay(); ++today) {
    for (int i = today - 2; i <= today + 1; ++i) {
      ASSERT_NO_FATAL_FAILURE(check(Pages().At(i).month, Pages().At(i).day, today));
    }
    ASSERT_NO_FATAL_FAILURE(check(2, 29, today));
    ASSERT_NO_FATAL_FAILURE(check(today % 12 + 1, today / 12 % 31 + 1, today));
  }
}

TEST(FourCenturiesTest, EveryIntervalOfDays) {
  constexpr int kShortSeries = 1500;  // days on which all the intervals are looked at
  const int start = FirstDay();
  for (int n = 1; n <= 199; ++n) {
    const Rule rule("01.01", Padded(n % 100, 2) + (n < 100 ? "-" : "~") + "2000");
    ASSERT_EQ(rule.occurs.interval, n);
    const bool whole = n == 1 || n == 7 || n == 28 || n == 99 || n == 100 || n == 199;
    int coming = start;
    for (int today = start; today <= LastDay(); ++today) {
      if (coming < today) coming += n;
      if (!whole && today - start > kShortSeries && (today + n) % 199 > 1) continue;
      ASSERT_EQ(rule.Next(today), coming) << Describe(rule, today);
    }
  }
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

TEST(FourCenturiesTest, EveryFeastOfTheEasterFamily) {
  struct Feast {
    Rule rule;
    int offset;
  };
  std::vector<Feast> named{
      {{"_estr", "yearly"}, 0},    {{"eastr", "yearly"}, 0},   {{"_ashw", "yearly"}, -46},
      {{"_mthr", "yearly"}, -21},  {{"_palm", "yearly"}, -7},  {{"_good", "yearly"}, -2},
      {{"_ascn", "yearly"}, 39},   {{"_pent", "yearly"}, 49},  {{"_crpc", "yearly"}, 60},
      {{"e-365", "yearly"}, -365}, {{"e+365", "yearly"}, 365}, {{"e-200", "yearly"}, -200},
      {{"e+300", "yearly"}, 300}};
  std::vector<Feast> offsets;
  for (int offset = -365; offset <= 365; ++offset) {
    if (offset == 0) continue;
    const std::string code = (offset < 0 ? "e-" : "e+") + Padded(std::abs(offset), 3);
    offsets.push_back({{code, "yearly"}, offset});
  }
  const auto easterIn = [](int year) {
    const MonthAndDay easter = NaiveEaster(year);
    return Pages().IndexOf(year, easter.month, easter.day);
  };
  int year = 0;
  int thisEaster = kNone;
  int nextEaster = kNone;
  for (int today = FirstDay(); today <= LastDay(); ++today) {
    if (Pages().At(today).year != year) {
      year = Pages().At(today).year;
      thisEaster = easterIn(year);
      nextEaster = easterIn(year + 1);
    }
    const auto check = [&](const Feast& feast) {
      ASSERT_EQ(feast.rule.Next(today),
                NaiveFeast(thisEaster + feast.offset, nextEaster + feast.offset, today))
          << Describe(feast.rule, today);
    };
    for (const Feast& feast : named) ASSERT_NO_FATAL_FAILURE(check(feast));
    for (int i = 0; i < 3; ++i) {
      const auto turn = static_cast<std::size_t>(today * 3 + i) % offsets.size();
      ASSERT_NO_FATAL_FAILURE(check(offsets[turn]));
    }
  }
}

TEST(FourCenturiesTest, EveryHebrewFeast) {
  for (const char* code :
       {"_rosh", "_yomk", "_sukk", "_shem", "_simh", "_hanu", "_puri", "_pass", "_shav"}) {
    const Rule rule(code, "yearly");
    int coming = kNone;
    for (int today = FirstDay(); today <= LastDay(); ++today) {
      if (coming < today) {
        const int year = Pages().At(today).year;
        coming = NaiveHebrewFeastIndex(code, year);
        if (coming < today) coming = NaiveHebrewFeastIndex(code, year + 1);
      }
      ASSERT_EQ(rule.Next(today), coming) << Describe(rule, today);
    }
  }
}

TEST(FourCenturiesTest, VictoriaDay) {
  const Rule rule("_vict", "yearly");
  const std::vector<int> expected = NextFalls([](const NaiveDay& day) {
    return day.month == 5 && day.day >= 18 && day.day <= 24 && day.weekday == 2;
  });
  for (int today = FirstDay(); today <= LastDay(); ++today) {
    ASSERT_EQ(rule.Next(today), expected[static_cast<std::size_t>(today)]) << Describe(rule, today);
  }
}

}  // namespace
}  // namespace tidewarden::test
