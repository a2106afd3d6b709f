#include "dates/event_date_rules.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "tests/dates/data_rows.h"
#include "tests/dates/rules_on_texts.h"
#include "tests/support/layouts.h"

namespace tidewarden::test {
namespace {

struct EventFields {
  DateField field;
  Occurs occurs;
};

EventFields Fields(const std::string& stored, const std::string& occurs, int currentYear = 2015) {
  EventFields fields;
  EXPECT_EQ(ReadDateField(stored, fields.field), DateFieldFault::kNone) << stored;
  EXPECT_EQ(ReadOccurs(occurs, currentYear, fields.occurs), OccursFault::kNone) << occurs;
  return fields;
}

std::string Text(std::optional<CivilDate> date) {
  return date ? TextOf(*date) : "-";
}

std::string Next(const std::string& stored, const std::string& occurs, CivilDate today) {
  const EventFields e = Fields(stored, occurs, YearOf(today));
  return Text(NextOccurrence(e.field, e.occurs, today));
}

std::string ByRule(const std::string& stored, const std::string& occurs, CivilDate today) {
  const EventFields e = Fields(stored, occurs, YearOf(today));
  return Text(EventDateByRule(e.field, e.occurs, today));
}

TEST(NextOccurrenceTest, IsTheDateOfTheTable) {
  const auto rows = ReadDataRows("dates_next_occurrence.txt", 4);
  ASSERT_GT(rows.size(), 130u);
  for (const DataRow& row : rows) {
    SCOPED_TRACE("dates_next_occurrence.txt line " + std::to_string(row.line));
    EXPECT_EQ(Next(row.columns[0], row.columns[1], DateOf(row.columns[2])), row.columns[3])
        << row.columns[0] << "," << row.columns[1] << " on " << row.columns[2];
  }
}

// The rules done on texts must agree with the table too, or they would prove nothing.
TEST(RulesOnTextsTest, GiveTheDatesOfTheTable) {
  const RulesOnTexts rules({"-", 6, 9, 1});
  for (const DataRow& row : ReadDataRows("dates_next_occurrence.txt", 4)) {
    SCOPED_TRACE("dates_next_occurrence.txt line " + std::to_string(row.line));
    const CivilDate today = DateOf(row.columns[2]);
    const NaiveDay day{YearOf(today), MonthOf(today), DayOf(today), 0};
    const std::string text = rules.NextOccurrence(row.columns[0], row.columns[1], day);
    EXPECT_EQ(text.empty() ? "-" : text, row.columns[3])
        << row.columns[0] << "," << row.columns[1] << " on " << row.columns[2];
  }
}

TEST(NthWeekdayDateTest, CountsFromTheFirstOfTheMonthOrBackFromTheLast) {
  EXPECT_EQ(Text(NthWeekdayDate(1, 2015, 2, 3)), "2015-01-19");
  EXPECT_EQ(Text(NthWeekdayDate(1, 2015, 5, 1)), "2015-01-01");
  EXPECT_EQ(Text(NthWeekdayDate(2, 2015, 1, 4)), "2015-02-22");
  EXPECT_EQ(Text(NthWeekdayDate(2, 2015, 7, 0)), "2015-02-28");
  EXPECT_EQ(Text(NthWeekdayDate(10, 2015, 6, 0)), "2015-10-30");
  EXPECT_EQ(Text(NthWeekdayDate(2, 2016, 2, 0)), "2016-02-29");
}

TEST(NthWeekdayDateTest, AFifthWeekdayIsThereInSomeMonthsOnly) {
  EXPECT_EQ(Text(NthWeekdayDate(3, 2015, 1, 5)), "2015-03-29");
  EXPECT_EQ(Text(NthWeekdayDate(1, 2015, 5, 5)), "2015-01-29");
  EXPECT_EQ(Text(NthWeekdayDate(1, 2015, 7, 5)), "2015-01-31");
  EXPECT_EQ(Text(NthWeekdayDate(2, 2016, 2, 5)), "2016-02-29");
  EXPECT_EQ(Text(NthWeekdayDate(2, 2016, 3, 5)), "-");
  EXPECT_EQ(Text(NthWeekdayDate(3, 2015, 4, 5)), "-");
  for (int weekday = 1; weekday <= 7; ++weekday) {
    EXPECT_EQ(Text(NthWeekdayDate(2, 2015, weekday, 5)), "-") << weekday;
    EXPECT_EQ(Text(NthWeekdayDate(3, 2015, weekday, 6)), "-") << weekday;
    EXPECT_EQ(Text(NthWeekdayDate(3, 2015, weekday, std::numeric_limits<int>::max())), "-");
  }
}

TEST(NthWeekdayDateTest, TheLastDayNeedsNoWeekday) {
  for (int weekday = 0; weekday <= 8; ++weekday) {
    EXPECT_EQ(Text(NthWeekdayDate(2, 2016, weekday, -1)), "2016-02-29") << weekday;
    EXPECT_EQ(Text(NthWeekdayDate(2, 2015, weekday, -1)), "2015-02-28") << weekday;
  }
}

TEST(NthWeekdayDateTest, HasNoDateForNumbersThatNameNoDay) {
  EXPECT_EQ(Text(NthWeekdayDate(0, 2015, 2, 1)), "-");
  EXPECT_EQ(Text(NthWeekdayDate(13, 2015, 2, 1)), "-");
  EXPECT_EQ(Text(NthWeekdayDate(-1, 2015, 2, -1)), "-");
  EXPECT_EQ(Text(NthWeekdayDate(1, 2015, 0, 1)), "-");
  EXPECT_EQ(Text(NthWeekdayDate(1, 2015, 8, 0)), "-");
  EXPECT_EQ(Text(NthWeekdayDate(1, 10000, 2, 1)), "-");
  EXPECT_EQ(Text(NthWeekdayDate(1, -1, 2, 1)), "-");
}

TEST(NextNthWeekdayYearlyTest, GoesToNextYearOnlyWhenTheDateHasPassed) {
  const EventFields e = Fields("01.xx", "3rd mon");
  EXPECT_EQ(Text(NextNthWeekdayYearly(e.field, e.occurs, On(2015, 1, 18))), "2015-01-19");
  EXPECT_EQ(Text(NextNthWeekdayYearly(e.field, e.occurs, On(2015, 1, 19))), "2015-01-19");
  EXPECT_EQ(Text(NextNthWeekdayYearly(e.field, e.occurs, On(2015, 1, 20))), "2016-01-18");
}

TEST(NextNthWeekdayMonthlyTest, GoesFromDecemberToJanuaryOfTheNextYear) {
  const EventFields e = Fields("xx.xx", "2nd tue");
  EXPECT_EQ(Text(NextNthWeekdayMonthly(e.occurs, On(2015, 12, 8))), "2015-12-08");
  EXPECT_EQ(Text(NextNthWeekdayMonthly(e.occurs, On(2015, 12, 9))), "2016-01-12");
  EXPECT_EQ(Text(NextNthWeekdayMonthly(e.occurs, On(2015, 11, 11))), "2015-12-08");
}

TEST(NextMonthlyDateTest, KeepsTheYearInDecember) {
  const EventFields e = Fields("xx.15", "monthly");
  EXPECT_EQ(Text(NextMonthlyDate(e.field, 2014, On(2014, 12, 20))), "2014-01-15");
  EXPECT_EQ(ByRule("xx.15", "monthly", On(2014, 12, 20)), "2014-01-15");
  EXPECT_EQ(Next("xx.15", "monthly", On(2014, 12, 20)), "2015-01-15");
}

TEST(NextMonthlyDateTest, TakesTheLastDayOfAShorterMonthInTheYearGiven) {
  const EventFields e = Fields("xx.31", "monthly");
  EXPECT_EQ(Text(NextMonthlyDate(e.field, 2015, On(2015, 4, 1))), "2015-04-30");
  EXPECT_EQ(Text(NextMonthlyDate(e.field, 2015, On(2015, 2, 1))), "2015-02-28");
  EXPECT_EQ(Text(NextMonthlyDate(e.field, 2016, On(2015, 2, 1))), "2016-02-29");
}

TEST(NextMonthlyDateTest, HasNoDateWithoutADay) {
  const EventFields any = Fields("xx.xx", "monthly");
  const EventFields unreadable = Fields("xx.1a", "monthly");
  EXPECT_EQ(Text(NextMonthlyDate(any.field, 2015, On(2015, 4, 1))), "-");
  EXPECT_EQ(Text(NextMonthlyDate(unreadable.field, 2015, On(2015, 4, 1))), "-");
}

TEST(NextQuarterDateTest, LooksAtFourMonthsOfThisYearAndOneOfTheNext) {
  const EventFields november = Fields("11.05", "quarter");
  EXPECT_EQ(Text(NextQuarterDate(november.field, On(2015, 1, 1))), "2015-02-05");
  EXPECT_EQ(Text(NextQuarterDate(november.field, On(2015, 2, 6))), "2015-05-05");
  EXPECT_EQ(Text(NextQuarterDate(november.field, On(2015, 5, 6))), "2015-08-05");
  EXPECT_EQ(Text(NextQuarterDate(november.field, On(2015, 8, 6))), "2015-11-05");
  EXPECT_EQ(Text(NextQuarterDate(november.field, On(2015, 12, 10))), "2016-02-05");
  const EventFields december = Fields("12.31", "quarter");
  EXPECT_EQ(Text(NextQuarterDate(december.field, On(2015, 12, 31))), "2015-12-31");
  EXPECT_EQ(Text(NextQuarterDate(december.field, On(2015, 1, 1))), "2015-03-31");
}

TEST(NextQuarterDateTest, FallsBackToItsOwnMonthWhichMayHavePassed) {
  const EventFields e = Fields("08.31", "quarter");
  EXPECT_EQ(Text(NextQuarterDate(e.field, On(2015, 9, 1))), "2015-08-31");
  EXPECT_EQ(Text(NextQuarterDate(Fields("11.31", "quarter").field, On(2015, 9, 1))), "-");
}

TEST(NextEveryNDaysTest, IsTodayOrTheNextDayOfTheSeries) {
  const Occurs every14 = Fields("12.01", "14-2014").occurs;
  EXPECT_EQ(NextEveryNDays(On(2014, 12, 1), every14, On(2014, 12, 29)), On(2014, 12, 29));
  EXPECT_EQ(NextEveryNDays(On(2014, 12, 1), every14, On(2014, 12, 28)), On(2014, 12, 29));
  const Occurs daily = Fields("12.01", "01-2014").occurs;
  EXPECT_EQ(NextEveryNDays(On(2014, 12, 1), daily, On(2014, 12, 2)), On(2014, 12, 2));
  const Occurs every120 = Fields("01.01", "20~2014").occurs;
  EXPECT_EQ(every120.interval, 120);
  EXPECT_EQ(NextEveryNDays(On(2014, 1, 1), every120, On(2014, 1, 2)), On(2014, 5, 1));
}

// The remainder keeps the sign of the dividend, so the step exceeds the interval when the start
// lies more than one interval ahead.
TEST(NextEveryNDaysTest, StepsFromADistantStartByTheRemainderAsItIs) {
  const Occurs every14 = Fields("12.01", "14-2014").occurs;
  // 30 days ahead: (-30 + 14) % 14 is -2, the step 16.
  EXPECT_EQ(NextEveryNDays(On(2014, 12, 31), every14, On(2014, 12, 1)), On(2014, 12, 17));
  // 14 days ahead: the remainder is 0, today.
  EXPECT_EQ(NextEveryNDays(On(2014, 12, 15), every14, On(2014, 12, 1)), On(2014, 12, 1));
  // 3 days ahead: (-3 + 14) % 14 is 11, the step 3.
  EXPECT_EQ(NextEveryNDays(On(2014, 12, 4), every14, On(2014, 12, 1)), On(2014, 12, 4));
}

TEST(EventDateByRuleTest, LeavesAPassedDateWhereItIs) {
  EXPECT_EQ(ByRule("12.25", "yearly", On(2014, 12, 26)), "2014-12-25");
  EXPECT_EQ(ByRule("01.26", "yearly", On(2014, 12, 22)), "2014-01-26");
  EXPECT_EQ(ByRule("06.01", "one2010", On(2014, 12, 22)), "2010-06-01");
  EXPECT_EQ(ByRule("08.31", "quarter", On(2015, 9, 1)), "2015-08-31");
  EXPECT_EQ(ByRule("12.01", "00-2014", On(2015, 1, 10)), "2014-12-01");
}

TEST(EventDateByRuleTest, HasNoDateForHalvesThatAreNotAllDigits) {
  for (const char* stored : {"1a.05", "01.1a", "+1.05", "1..05", "1a.xx", "xx.1a"}) {
    for (const char* occurs : {"yearly", "monthly", "quarter", "14-2014", "one2015", "dp-2001",
                               "df-2030", "3rd mon", "las day"}) {
      EXPECT_EQ(Next(stored, occurs, On(2015, 1, 1)), "-") << stored << " " << occurs;
    }
  }
}

TEST(EventDateByRuleTest, ABlankBesideADigitDoesNoHarm) {
  EXPECT_EQ(Next(" 1. 5", "yearly", On(2015, 1, 1)), "2015-01-05");
  EXPECT_EQ(Next("1 .5 ", "yearly", On(2015, 1, 1)), "2015-01-05");
}

TEST(EventDateByRuleTest, AFeastCodeWithoutADistanceHasNoDate) {
  EXPECT_EQ(Next("e+0.5", "yearly", On(2014, 1, 1)), "-");
  EXPECT_EQ(Next("e+1.5", "yearly", On(2014, 1, 1)), "2014-04-22");
}

TEST(EventDateByRuleTest, TakesAnyCharacterBetweenMonthAndDay) {
  for (const char* stored : {"12.25", "12-25", "12/25", "12 25", "12925", "12x25"}) {
    EXPECT_EQ(Next(stored, "yearly", On(2014, 1, 1)), "2014-12-25") << stored;
  }
}

TEST(EventDateByRuleTest, TakesCountersYearsAsTheyAreWritten) {
  EXPECT_EQ(Next("06.01", "dp-0050", On(2014, 12, 22)), "0050-06-01");
  EXPECT_EQ(Next("06.01", "dp-0000", On(2014, 12, 22)), "0000-06-01");
  EXPECT_EQ(Next("06.01", "df-9999", On(2014, 12, 22)), "9999-06-01");
  EXPECT_EQ(Next("02.29", "dp-0000", On(2014, 12, 22)), "0000-02-29");
}

TEST(MoveToNextYearTest, ReplacesTheCurrentYearOnly) {
  EXPECT_EQ(Text(MoveToNextYear(On(2014, 1, 26), On(2014, 12, 22))), "2015-01-26");
  EXPECT_EQ(Text(MoveToNextYear(On(2013, 1, 26), On(2014, 12, 22))), "2013-01-26");
  EXPECT_EQ(Text(MoveToNextYear(On(2015, 1, 26), On(2014, 12, 22))), "2015-01-26");
}

TEST(MoveToNextYearTest, LosesADayThatNextYearLacks) {
  EXPECT_EQ(Text(MoveToNextYear(On(2016, 2, 29), On(2016, 3, 1))), "-");
  EXPECT_EQ(Text(MoveToNextYear(On(2016, 2, 28), On(2016, 3, 1))), "2017-02-28");
}

TEST(IsMovedOnTest, IsTrueForWhatRepeats) {
  for (const char* occurs : {"yearly", "quarter", "monthly", "14-2014", "3rd mon", "las day"}) {
    EXPECT_TRUE(IsMovedOn(Fields("01.01", occurs).occurs)) << occurs;
  }
  for (const char* occurs : {"one2014", "tdo2014", "dp-2014", "df-2030"}) {
    EXPECT_FALSE(IsMovedOn(Fields("01.01", occurs).occurs)) << occurs;
  }
}

// The limits that the header names.
bool OneDate(const std::string& stored, const std::string& occurs) {
  const EventFields e = Fields(stored, occurs);
  return HasOneDate(e.field, e.occurs);
}

TEST(HasOneDateTest, IsTrueForCountersAndForNamedYears) {
  for (const char* occurs : {"one2014", "tdo2014", "dp-2001", "df-2030"}) {
    EXPECT_TRUE(OneDate("12.25", occurs)) << occurs;
  }
  for (const char* counter : {"dp-2001", "df-2030"}) {
    EXPECT_TRUE(OneDate("xx.15", counter)) << counter;
  }
  for (const char* named : {"one2014", "tdo2014"}) {
    EXPECT_FALSE(OneDate("xx.15", named)) << named;
    EXPECT_FALSE(OneDate("05.xx", named)) << named;
  }
  for (const char* occurs :
       {"yearly", "quarter", "monthly", "14-2014", "20~2014", "3rd mon", "las sun", "las day"}) {
    EXPECT_FALSE(OneDate("12.25", occurs)) << occurs;
    EXPECT_FALSE(OneDate("xx.xx", occurs)) << occurs;
  }
}

TEST(HasOneDateTest, IsFalseForFeastsUnlessTheyAreCounted) {
  for (const char* feast : {"_estr", "e+039", "_rosh", "_vict"}) {
    for (const char* occurs : {"yearly", "one2014", "tdo2014", "14-2014"}) {
      EXPECT_FALSE(OneDate(feast, occurs)) << feast << "," << occurs;
    }
    EXPECT_TRUE(OneDate(feast, "dp-2001")) << feast;
    EXPECT_TRUE(OneDate(feast, "df-2030")) << feast;
  }
}

TEST(NextOccurrenceTest, WorksOnTheFirstAndTheLastDayOfItsRange) {
  for (const CivilDate today : {On(1, 1, 1), On(9998, 12, 31)}) {
    SCOPED_TRACE(TextOf(today));
    EXPECT_EQ(Next("12.31", "yearly", today), YearOf(today) == 1 ? "0001-12-31" : "9998-12-31");
    EXPECT_EQ(Next("01.01", "yearly", today), YearOf(today) == 1 ? "0001-01-01" : "9999-01-01");
    EXPECT_NE(Next("xx.15", "monthly", today), "-");
    EXPECT_NE(Next("xx.xx", "las fri", today), "-");
    EXPECT_NE(Next("01.xx", "1st sun", today), "-");
    EXPECT_NE(Next("11.05", "quarter", today), "-");
    EXPECT_NE(Next("_vict", "yearly", today), "-");
    EXPECT_NE(Next("_pass", "yearly", today), "-");
  }
  EXPECT_EQ(Next("_estr", "yearly", On(6553, 12, 31)), "-");
  EXPECT_EQ(Next("_estr", "yearly", On(9998, 12, 31)), "-");
  EXPECT_NE(Next("_estr", "yearly", On(1, 1, 1)), "-");
}

}  // namespace
}  // namespace tidewarden::test
