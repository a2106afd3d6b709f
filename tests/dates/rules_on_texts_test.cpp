// The engine's rules, which work on dates, against the same rules carried out on texts, in every
// layout, on every day of chosen years.
#include "tests/dates/rules_on_texts.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "dates/event_date_rules.h"
#include "tests/dates/data_rows.h"
#include "tests/support/layouts.h"

namespace tidewarden::test {
namespace {

struct LayoutCase {
  const char* name;
  const char* pattern;
  TextLayout layout;

  friend std::ostream& operator<<(std::ostream& out, const LayoutCase& c) { return out << c.name; }
};

const LayoutCase kLayouts[] = {
    {"MonthFirst", "MM/dd/yyyy", {"/", 1, 4, 7}},
    {"DayFirst", "dd.MM.yyyy", {".", 4, 1, 7}},
    {"YearFirst", "yyyy-MM-dd", {"-", 6, 9, 1}},
    {"TwoDigitYearFirst", "yy/MM/dd", {"/", 6, 9, 1}},
};

struct Span {
  const char* first;
  const char* last;
};

// Whole years: a common one and a leap one, the leap year that is one by the 400 and the one that
// is none by the 100.
constexpr Span kSpans[] = {
    {"2014-12-15", "2017-01-15"}, {"1999-12-20", "2001-01-10"}, {"2099-12-20", "2101-01-10"}};

struct EventCase {
  const char* stored;
  std::vector<const char*> occurs;
};

const std::vector<EventCase>& Events() {
  static const std::vector<EventCase> events{
      {"01.01", {"yearly", "quarter", "one2015", "07-2015", "dp-2000"}},
      {"02.28", {"yearly", "quarter", "tdo2016"}},
      {"02.29", {"yearly", "quarter", "one2016", "one2015", "00-2016", "30-2016", "30-2015"}},
      {"02.30", {"yearly", "quarter"}},
      {"03.01", {"yearly", "quarter", "00~2015", "00-2015"}},
      {"05.10", {"3rd mon", "monthly", "las day", "df-2030"}},
      {"08.31", {"quarter", "yearly"}},
      {"10.15", {"quarter"}},
      {"11.30", {"quarter", "45~1999"}},
      {"12.31", {"yearly", "quarter", "01-2014"}},
      {"xx.01", {"monthly", "quarter"}},
      {"xx.15", {"monthly", "yearly", "one2015", "14-2015", "dp-2000"}},
      {"xx.28", {"monthly"}},
      {"xx.29", {"monthly", "las fri"}},
      {"xx.30", {"monthly", "tdo2016"}},
      {"xx.31", {"monthly", "quarter"}},
      {"xx.xx", {"1st sun", "2nd tue", "4th sat", "las fri", "las day", "monthly"}},
      {"01.xx", {"3rd mon", "yearly"}},
      {"02.xx", {"4th thu", "las mon", "las day"}},
      {"12.xx", {"1st wed", "las sat", "las day"}},
      {"_estr", {"yearly", "quarter", "one2015", "dp-2000"}},
      {"_ashw", {"yearly"}},
      {"_crpc", {"monthly"}},
      {"e+300", {"yearly"}},
      {"e-200", {"yearly"}},
      {"e-365", {"yearly", "quarter"}},
      {"_rosh", {"yearly"}},
      {"_hanu", {"yearly"}},
      {"_puri", {"yearly"}},
      {"_pass", {"14-2015"}},
      {"_vict", {"yearly"}},
  };
  return events;
}

class EveryLayoutTest : public testing::TestWithParam<LayoutCase> {};

TEST_P(EveryLayoutTest, HasThePositionsThatTheRulesSpeakOf) {
  const RegionalDateFormat format = LayoutOf(GetParam().pattern);
  EXPECT_EQ(format.DateSeparator, GetParam().layout.separator);
  EXPECT_EQ(format.MonthPosition, GetParam().layout.monthPosition);
  EXPECT_EQ(format.DayPosition, GetParam().layout.dayPosition);
  EXPECT_EQ(format.YearPosition, GetParam().layout.yearPosition);
}

TEST_P(EveryLayoutTest, JoinsFieldAndYearAndMasksTheMonthAsTheRulesDo) {
  const RegionalDateFormat format = LayoutOf(GetParam().pattern);
  const RulesOnTexts rules(GetParam().layout);
  for (const char* field : {"12.25", "25.12", "xx.15", "15.xx", "xx.xx", "_estr", "e+0.5"}) {
    const std::string text = rules.BuildDateText(field, "2015");
    EXPECT_EQ(BuildDateText(field, "2015", format), text);
    EXPECT_EQ(MaskMonth(text, format), rules.MaskMonth(text));
  }
}

TEST_P(EveryLayoutTest, GivesTheSameTextAsTheRulesDoneOnTexts) {
  const RegionalDateFormat format = LayoutOf(GetParam().pattern);
  const RulesOnTexts rules(GetParam().layout);
  const NaiveCalendar& pages = NaiveCalendar::Pages();
  int compared = 0;
  for (const EventCase& event : Events()) {
    DateField field;
    ASSERT_EQ(ReadDateField(event.stored, field), DateFieldFault::kNone) << event.stored;
    for (const char* occursText : event.occurs) {
      Occurs occurs;
      ASSERT_EQ(ReadOccurs(occursText, 2015, occurs), OccursFault::kNone) << occursText;
      for (const Span& span : kSpans) {
        const int last = pages.IndexOf(DateOf(span.last));
        for (int i = pages.IndexOf(DateOf(span.first)); i <= last; ++i) {
          const NaiveDay& today = pages.At(i);
          const auto date = NextOccurrence(field, occurs, today.ToDate());
          ASSERT_EQ(date ? FormatDate(*date, format) : std::string(),
                    rules.NextOccurrence(event.stored, occursText, today))
              << event.stored << "," << occursText << " on " << rules.Format(today);
          ++compared;
        }
      }
    }
  }
  EXPECT_GT(compared, 100000);
}

// Fields that a person would hardly write. A quarter without a day: putting the month in the place
// of every "xx" makes 3 March of "xx.xx". A distance whose digits are "xx": the wildcard is looked
// for before the feast.
TEST_P(EveryLayoutTest, GivesTheSameTextWhereAWildcardStandsInAnOddPlace) {
  const RegionalDateFormat format = LayoutOf(GetParam().pattern);
  const RulesOnTexts rules(GetParam().layout);
  const char* events[][2] = {
      {"xx.xx", "quarter"}, {"05.xx", "quarter"}, {"e-1xx", "yearly"}, {"e+1xx", "monthly"}};
  for (const auto& event : events) {
    DateField field;
    Occurs occurs;
    ASSERT_EQ(ReadDateField(event[0], field), DateFieldFault::kNone);
    ASSERT_EQ(ReadOccurs(event[1], 2015, occurs), OccursFault::kNone);
    for (const NaiveDay& today : {NaiveDay{2015, 1, 1, 5}, NaiveDay{2015, 4, 1, 4}}) {
      const auto date = NextOccurrence(field, occurs, today.ToDate());
      EXPECT_EQ(date ? FormatDate(*date, format) : std::string(),
                rules.NextOccurrence(event[0], event[1], today))
          << event[0] << "," << event[1] << " on " << rules.Format(today);
    }
  }
}

TEST_P(EveryLayoutTest, GivesTheSameTextAtEveryYearsEnd) {
  const RegionalDateFormat format = LayoutOf(GetParam().pattern);
  const RulesOnTexts rules(GetParam().layout);
  const NaiveCalendar& pages = NaiveCalendar::Pages();
  const char* events[][2] = {{"xx.15", "monthly"}, {"xx.31", "monthly"}, {"11.30", "quarter"},
                             {"xx.xx", "las sun"}, {"01.xx", "1st mon"}, {"12.25", "yearly"},
                             {"12.28", "03-1999"}, {"_hanu", "yearly"},  {"e-100", "yearly"}};
  for (const auto& event : events) {
    DateField field;
    Occurs occurs;
    ASSERT_EQ(ReadDateField(event[0], field), DateFieldFault::kNone);
    ASSERT_EQ(ReadOccurs(event[1], 2015, occurs), OccursFault::kNone);
    for (int year = 2000; year < 2400; year += 3) {
      const int silvester = pages.IndexOf(year, 12, 31);
      for (int i = silvester - 3; i <= silvester + 2; ++i) {
        const NaiveDay& today = pages.At(i);
        const auto date = NextOccurrence(field, occurs, today.ToDate());
        ASSERT_EQ(date ? FormatDate(*date, format) : std::string(),
                  rules.NextOccurrence(event[0], event[1], today))
            << event[0] << "," << event[1] << " on " << rules.Format(today);
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Layouts, EveryLayoutTest, testing::ValuesIn(kLayouts),
                         [](const auto& layout) { return std::string(layout.param.name); });

}  // namespace
}  // namespace tidewarden::test
