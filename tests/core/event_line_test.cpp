#include "core/event_line.h"

#include <gtest/gtest.h>

#include <random>
#include <set>
#include <string>
#include <vector>

#include "dates/text.h"
#include "fuzz/event_line_model.h"
#include "tests/support/layouts.h"

namespace tidewarden {
namespace {

using test::AllLayouts;
using test::DayFirst;
using test::MonthFirst;
using test::NamedLayout;
using test::YearFirst;

constexpr int kCurrentYear = 2014;

struct AcceptedCase {
  std::string line;
  std::string date;  // as stored
  std::string title;
  int advance;
  std::string occurs;
  bool hidden;
};

const std::vector<AcceptedCase>& AcceptedCases() {
  static const std::vector<AcceptedCase> cases{
      // Ordinary lines.
      {"01.26,<1788> Australia Day,7,yearly", "01.26", "<1788> Australia Day", 7, "yearly", false},
      {"01.xx,Martin Luther King Day,7,3rd Mon", "01.xx", "Martin Luther King Day", 7, "3rd mon",
       false},
      {"12.25,Christmas,14,yearly*", "12.25", "Christmas", 14, "yearly", true},
      {"xx.15,Rent,3,monthly", "xx.15", "Rent", 3, "monthly", false},
      {"xx.xx,Club,3,1st Sun", "xx.xx", "Club", 3, "1st sun", false},
      {"xx.xx,Nonsense,3,yearly", "xx.xx", "Nonsense", 3, "yearly", false},
      {"11.30,Tax,0,quarter", "11.30", "Tax", 0, "quarter", false},
      {"06.01,X,365,yearly", "06.01", "X", 365, "yearly", false},
      {"06.01,Exam 9:15 am,7,one2014", "06.01", "Exam 9:15 am", 7, "one2014", false},
      {"06.01,X,7,one2000", "06.01", "X", 7, "one2000", false},
      {"06.01,X,7,one2999", "06.01", "X", 7, "one2999", false},
      {"06.01,X,7,ONE2014", "06.01", "X", 7, "one2014", false},
      {"06.01,X,7,tdo2014", "06.01", "X", 7, "tdo2014", false},
      {"06.01,X,7,14-2014", "06.01", "X", 7, "14-2014", false},
      {"06.01,X,7,20~2014", "06.01", "X", 7, "20~2014", false},
      {"06.01,X,7,00-0000", "06.01", "X", 7, "00-0000", false},
      {"06.01,X,7,dp-2014", "06.01", "X", 0, "dp-2014", false},
      {"06.01,X,abc,dp-2001", "06.01", "X", 0, "dp-2001", false},
      {"06.01,X,400,dp-0000", "06.01", "X", 0, "dp-0000", false},
      {"06.01,X,0,dp-0050", "06.01", "X", 0, "dp-0050", false},
      {"06.01,X,-1,df-9999", "06.01", "X", 0, "df-9999", false},
      {"06.01,X,,df-2030*", "06.01", "X", 0, "df-2030", true},
      {"02.xx,X,7,Las Day", "02.xx", "X", 7, "las day", false},
      {"01.xx,X,7,LAS FRI", "01.xx", "X", 7, "las fri", false},
      {"01.xx,X,7,4th Sat", "01.xx", "X", 7, "4th sat", false},
      {"01.xx,X,7,2nd tUE", "01.xx", "X", 7, "2nd tue", false},
      // Blanks around the occurs field, and nowhere else.
      {"12.25, Christmas ,14,  Yearly  ", "12.25", " Christmas ", 14, "yearly", false},
      {"12.25,Christmas, 14 ,yearly", "12.25", "Christmas", 14, "yearly", false},
      {"12.25,Christmas,14,yearly  *", "12.25", "Christmas", 14, "yearly", true},
      {"12.25,,0,yearly", "12.25", "", 0, "yearly", false},
      {"12.25,*,0,yearly", "12.25", "*", 0, "yearly", false},
      // The middle character of the date is not looked at.
      {"12-25,X,365,yearly", "12-25", "X", 365, "yearly", false},
      {"12/25,X,0,yearly", "12/25", "X", 0, "yearly", false},
      {"12 25,X,0,yearly", "12 25", "X", 0, "yearly", false},
      {"12325,X,0,yearly", "12325", "X", 0, "yearly", false},
      {"12*25,X,0,yearly", "12*25", "X", 0, "yearly", false},
      {"12\xC3\xA9"
       "25,X,0,yearly",
       "12\xC3\xA9"
       "25",
       "X", 0, "yearly", false},
      // Leading numbers.
      {"1a.05,X,365,yearly", "1a.05", "X", 365, "yearly", false},
      {" 1.5 ,X,0,yearly", " 1.5 ", "X", 0, "yearly", false},
      {"1 .+5,X,0,yearly", "1 .+5", "X", 0, "yearly", false},
      {"1..9.,X,0,yearly", "1..9.", "X", 0, "yearly", false},
      {"1\xC3\xA9.9\xC3\xA9,X,0,yearly", "1\xC3\xA9.9\xC3\xA9", "X", 0, "yearly", false},
      {"\t1.\t2,X,0,yearly", "\t1.\t2", "X", 0, "yearly", false},
      // Feast codes and distances from Easter.
      {"_estr,X,7,yearly", "_estr", "X", 7, "yearly", false},
      {"_ESTR,X,7,yearly", "_ESTR", "X", 7, "yearly", false},
      {"Eastr,X,7,yearly", "Eastr", "X", 7, "yearly", false},
      {"_hAnU,X,7,yearly", "_hAnU", "X", 7, "yearly", false},
      {"e+039,X,7,yearly", "e+039", "X", 7, "yearly", false},
      {"E-046,X,7,yearly", "E-046", "X", 7, "yearly", false},
      {"e+001,X,7,yearly", "e+001", "X", 7, "yearly", false},
      {"e-365,X,7,yearly", "e-365", "X", 7, "yearly", false},
      {"e+0.5,X,7,yearly", "e+0.5", "X", 7, "yearly", false},
      {"e+1.5,X,7,yearly", "e+1.5", "X", 7, "yearly", false},
      {"e+ 39,X,7,yearly", "e+ 39", "X", 7, "yearly", false},
      {"e+7xx,X,7,yearly", "e+7xx", "X", 7, "yearly", false},
      // Advance notice, halves to even.
      {"06.01,X,0.5,yearly", "06.01", "X", 0, "yearly", false},
      {"06.01,X,1.5,yearly", "06.01", "X", 2, "yearly", false},
      {"06.01,X,2.5,yearly", "06.01", "X", 2, "yearly", false},
      {"06.01,X,2.51,yearly", "06.01", "X", 3, "yearly", false},
      {"06.01,X,364.5,yearly", "06.01", "X", 364, "yearly", false},
      {"06.01,X,365.0,yearly", "06.01", "X", 365, "yearly", false},
      {"06.01,X,,yearly", "06.01", "X", 0, "yearly", false},
      {"06.01,X,abc,yearly", "06.01", "X", 0, "yearly", false},
      {"06.01,X,-0,yearly", "06.01", "X", 0, "yearly", false},
      {"06.01,X,+7,yearly", "06.01", "X", 7, "yearly", false},
      {"06.01,X, 7 days,yearly", "06.01", "X", 7, "yearly", false},
      {"06.01,X,1e2,yearly", "06.01", "X", 1, "yearly", false},
      {"06.01,X,0x10,yearly", "06.01", "X", 0, "yearly", false},
      {"06.01,X,0000000000000007,yearly", "06.01", "X", 7, "yearly", false},
      // What the rules leave unexamined.
      {"06.01,X,7,14-992014", "06.01", "X", 7, "14-992014", false},
      {"06.01,X,7,dp-992014", "06.01", "X", 0, "dp-992014", false},
      {"06.01,X,7,one2x2014", "06.01", "X", 7, "one2x2014", false},
      {"06.01,X,7,one29999", "06.01", "X", 7, "one29999", false},
      {"06.01,X,7,1st xx sun", "06.01", "X", 7, "1st xx sun", false},
      {"06.01,X,7,las xsat", "06.01", "X", 7, "las xsat", false},
      {"12.25,N\xC3\xB6\xC3\xABl,14,yearly", "12.25", "N\xC3\xB6\xC3\xABl", 14, "yearly", false},
      {"12.25,a\xFF"
       "b,14,yearly",
       "12.25",
       "a\xFF"
       "b",
       14, "yearly", false},
      {std::string("12.25,a\0b,14,yearly", 19), "12.25", std::string("a\0b", 3), 14, "yearly",
       false},
      {"12.25,\"quoted\",14,yearly", "12.25", "\"quoted\"", 14, "yearly", false},
      {"12.25,tab\t,14,yearly", "12.25", "tab\t", 14, "yearly", false},
  };
  return cases;
}

bool IsInside(std::string_view part, std::string_view whole) {
  return part.data() >= whole.data() && part.data() + part.size() <= whole.data() + whole.size();
}

TEST(ParseEventLine, AcceptsAnEventAndReadsItsFields) {
  for (const AcceptedCase& c : AcceptedCases()) {
    SCOPED_TRACE(c.line);
    const auto event = ParseEventLine(c.line, MonthFirst(), kCurrentYear);
    ASSERT_TRUE(event.has_value());
    EXPECT_EQ(event->EventDateAsStored, c.date);
    EXPECT_EQ(event->EventDate, c.date);
    EXPECT_EQ(event->EventTitle, c.title);
    EXPECT_EQ(event->EventAdvance, c.advance);
    EXPECT_EQ(event->EventOccurs, c.occurs);
    EXPECT_EQ(event->EventHidden, c.hidden);
    EXPECT_TRUE(IsInside(event->EventDateAsStored, c.line));
    EXPECT_TRUE(IsInside(event->EventTitle, c.line));
  }
}

TEST(ReadEventLine, SaysTheSameInViewsOfTheLine) {
  for (const AcceptedCase& c : AcceptedCases()) {
    SCOPED_TRACE(c.line);
    EventLine event;
    event.advance = 99;
    ASSERT_TRUE(ReadEventLine(c.line, kCurrentYear, event));
    EXPECT_EQ(event.parts.date, c.date);
    EXPECT_EQ(event.parts.title, c.title);
    EXPECT_EQ(ToLower(event.parts.occurs), c.occurs);
    EXPECT_EQ(event.parts.hidden, c.hidden);
    EXPECT_EQ(event.advance, c.advance);
    for (const std::string_view part :
         {event.parts.date, event.parts.title, event.parts.advance, event.parts.occurs}) {
      EXPECT_TRUE(IsInside(part, c.line));
    }
  }
}

TEST(ReadEventLine, NothingOfAnEarlierLineRemains) {
  EventLine used;
  for (const AcceptedCase& c : AcceptedCases()) {
    SCOPED_TRACE(c.line);
    EventLine fresh;
    ASSERT_TRUE(ReadEventLine(c.line, kCurrentYear, used));
    ASSERT_TRUE(ReadEventLine(c.line, kCurrentYear, fresh));
    EXPECT_EQ(used.parts.hidden, fresh.parts.hidden);
    EXPECT_EQ(used.advance, fresh.advance);
    EXPECT_EQ(used.dateField.isFeast, fresh.dateField.isFeast);
    EXPECT_EQ(used.dateField.month, fresh.dateField.month);
    EXPECT_EQ(used.dateField.day, fresh.dateField.day);
    EXPECT_EQ(used.occurs.kind, fresh.occurs.kind);
    EXPECT_EQ(used.occurs.year, fresh.occurs.year);
    EXPECT_EQ(used.occurs.interval, fresh.occurs.interval);
    EXPECT_EQ(used.occurs.ordinal, fresh.occurs.ordinal);
    EXPECT_EQ(used.occurs.weekday, fresh.occurs.weekday);
  }
}

struct SplitCase {
  std::string line;
  std::vector<std::string> parts;  // none when the line is not cut
  bool hidden = false;
};

TEST(SplitEventLine, CutsAtExactlyThreeCommas) {
  const std::vector<SplitCase> cases{
      {"a,b,c,d", {"a", "b", "c", "d"}},
      {"a,b,c,d*", {"a", "b", "c", "d"}, true},
      {"a,b,c, d *", {"a", "b", "c", "d"}, true},
      {",,,", {"", "", "", ""}},
      {",,,*", {"", "", "", ""}, true},
      {" a , b , c , d ", {" a ", " b ", " c ", "d"}},
      {"12.25,Christmas,14,yearly", {"12.25", "Christmas", "14", "yearly"}},
      {"1.1,X,7,yearly", {"1.1", "X", "7", "yearly"}},
      {"123,4,5,6", {"123", "4", "5", "6"}},
      {"1,345,7,8", {"1", "345", "7", "8"}},
      {"12345678,x,,y", {"12345678", "x", "", "y"}},
      {"", {}},
      {"*", {}},
      {",", {}},
      {",,", {}},
      {",,*", {}},
      {"a,b,c", {}},
      {"12.25,b,c", {}},
      {",,,,", {}},
      {"a,b,c,d,", {}},
      {",a,b,c,d", {}},
      {"12,25,b,c,d", {}},
      {"1,.25,b,c,d*", {}},
      {"a,b,c,d,e,f,g", {}},
      {std::string(100, 'x') + ",b,c,d", {std::string(100, 'x'), "b", "c", "d"}},
      {"a," + std::string(100, 'x') + ",c,d", {"a", std::string(100, 'x'), "c", "d"}},
      {"a,b,c," + std::string(100, 'x'), {"a", "b", "c", std::string(100, 'x')}},
      {"a,b," + std::string(30, '-') + "," + std::string(30, '\xAC'),
       {"a", "b", std::string(30, '-'), std::string(30, '\xAC')}},
  };
  for (const SplitCase& c : cases) {
    SCOPED_TRACE(c.line);
    EventLineParts parts;
    const bool cut = SplitEventLine(c.line, parts);
    ASSERT_EQ(cut, !c.parts.empty());
    if (!cut) continue;
    EXPECT_EQ(parts.date, c.parts[0]);
    EXPECT_EQ(parts.title, c.parts[1]);
    EXPECT_EQ(parts.advance, c.parts[2]);
    EXPECT_EQ(parts.occurs, c.parts[3]);
    EXPECT_EQ(parts.hidden, c.hidden);
  }
}

TEST(SplitEventLine, CommasInEveryThreePlaces) {
  constexpr std::size_t kLength = 24;
  for (std::size_t i = 0; i < kLength; ++i) {
    for (std::size_t j = i + 1; j < kLength; ++j) {
      for (std::size_t k = j + 1; k < kLength; ++k) {
        std::string line(kLength, '-');
        line[i] = line[j] = line[k] = ',';
        EventLineParts parts;
        ASSERT_TRUE(SplitEventLine(line, parts)) << line;
        ASSERT_EQ(parts.date, line.substr(0, i));
        ASSERT_EQ(parts.title, line.substr(i + 1, j - i - 1));
        ASSERT_EQ(parts.advance, line.substr(j + 1, k - j - 1));
        ASSERT_EQ(parts.occurs, line.substr(k + 1));
        // A fourth one anywhere is one too many, none in one of the three places one too few.
        for (std::size_t at = 0; at < kLength; ++at) {
          std::string changed = line;
          changed[at] = changed[at] == ',' ? '-' : ',';
          ASSERT_FALSE(SplitEventLine(changed, parts)) << changed;
        }
      }
    }
  }
}

TEST(ReadAdvance, RoundsWhatLiesBetween0And365) {
  struct AdvanceCase {
    std::string text;
    int days;  // -1 when refused
  };
  const std::vector<AdvanceCase> cases{{"0", 0},
                                       {"7", 7},
                                       {"365", 365},
                                       {"366", -1},
                                       {"365.4", -1},
                                       {"0.5", 0},
                                       {"1.5", 2},
                                       {"2.5", 2},
                                       {"3.5", 4},
                                       {"0.51", 1},
                                       {"", 0},
                                       {"abc", 0},
                                       {"-1", -1},
                                       {"-0.1", -1},
                                       {"-0", 0},
                                       {"+7", 7},
                                       {" 7 days", 7},
                                       {"\t7", 7},
                                       {"007", 7},
                                       {"1e9", 1},
                                       {"7,5", 7},
                                       {"364.999", 365},
                                       {".5", 0},
                                       {".", 0},
                                       {"1.2.3", 1},
                                       {"- 7", 0},
                                       {"99999999999", -1},
                                       {"99999999999999999999", -1},
                                       {"365.00000000000000000001", 365},
                                       {"365.0000000001", -1}};
  for (const AdvanceCase& c : cases) {
    int days = -1;
    const bool read = ReadAdvance(c.text, days);
    EXPECT_EQ(read, c.days >= 0) << c.text;
    if (read) {
      EXPECT_EQ(days, c.days) << c.text;
    }
  }
}

TEST(ReadFields, AnswersForDateAndOccursApart) {
  DateField dateField;
  Occurs occurs;
  const auto faults = [&](std::string_view date, std::string_view text) {
    EventLineParts parts;
    parts.date = date;
    parts.occurs = text;
    return ReadFields(parts, kCurrentYear, dateField, occurs);
  };
  EXPECT_EQ(faults("13.01", "yearly").date, DateFieldFault::kMonth);
  EXPECT_EQ(faults("01.32", "yearly").date, DateFieldFault::kDay);
  EXPECT_EQ(faults("1.32", "yearly").date, DateFieldFault::kLength);
  EXPECT_EQ(faults("01.31", "5th Mon").date, DateFieldFault::kNone);
  EXPECT_EQ(faults("01.31", "5th Mon").occurs, OccursFault::kUnknown);
  EXPECT_EQ(faults("01.31", "Dp-2015").occurs, OccursFault::kYearInFuture);
  EXPECT_EQ(faults("01.31", "YEARLY").occurs, OccursFault::kNone);
  EXPECT_EQ(faults("01.31", "QuArTeR").occurs, OccursFault::kNone);
  EXPECT_EQ(occurs.kind, OccursKind::kQuarter);
  EXPECT_EQ(dateField.day, 31);
}

struct DateCase {
  std::string stored;
  std::string dayFirst;
};

TEST(ParseEventLine, SwapsMonthAndDayInADayFirstLayoutOnly) {
  const std::vector<DateCase> cases{{"12.25", "25.12"},
                                    {"01.02", "02.01"},
                                    {"12-25", "25.12"},
                                    {"12/25", "25.12"},
                                    {"xx.15", "15.xx"},
                                    {"01.xx", "xx.01"},
                                    {"xx.xx", "xx.xx"},
                                    {"1a.05", "05.1a"},
                                    {" 1.5 ", "5 . 1"},
                                    {"_estr", "_estr"},
                                    {"_ROSH", "_ROSH"},
                                    {"eastr", "eastr"},
                                    {"e+039", "e+039"},
                                    {"E-046", "E-046"},
                                    {"12\xC3\xA9"
                                     "25",
                                     "25.12"},
                                    {"1\xC3\xA9.2\xC3\xB6", "2\xC3\xB6.1\xC3\xA9"}};
  for (const DateCase& c : cases) {
    const std::string line = c.stored + ",X,7,yearly";
    SCOPED_TRACE(line);
    for (const NamedLayout& layout : AllLayouts()) {
      const auto event = ParseEventLine(line, layout.format, kCurrentYear);
      ASSERT_TRUE(event.has_value());
      EXPECT_EQ(event->EventDateAsStored, c.stored);
      EXPECT_EQ(event->EventDate, layout.format.IsDayFirst() ? c.dayFirst : c.stored)
          << layout.name;
    }
  }
}

struct OccursCase {
  std::string text;
  OccursKind kind;
  int year;
  int interval;
  int ordinal;
  int weekday;
};

TEST(ParseEventLine, ReadsTheRuleOnceForTheDateEngine) {
  const std::vector<OccursCase> cases{
      {"yearly", OccursKind::kYearly, -1, 0, 0, 0},
      {"Quarter", OccursKind::kQuarter, -1, 0, 0, 0},
      {"MONTHLY", OccursKind::kMonthly, -1, 0, 0, 0},
      {"one2014", OccursKind::kOneTime, 2014, 0, 0, 0},
      {"tdo2015", OccursKind::kTilDone, 2015, 0, 0, 0},
      {"14-2014", OccursKind::kEveryNDays, 2014, 14, 0, 0},
      {"20~2014", OccursKind::kEveryNDays, 2014, 120, 0, 0},
      {"00~0000", OccursKind::kEveryNDays, 0, 100, 0, 0},
      {"dp-0050", OccursKind::kDaysPast, 50, 0, 0, 0},
      {"DF-2030", OccursKind::kDaysFuture, 2030, 0, 0, 0},
      {"1st Sun", OccursKind::kNthWeekday, -1, 0, 1, 1},
      {"2nd Mon", OccursKind::kNthWeekday, -1, 0, 2, 2},
      {"3rd Tue", OccursKind::kNthWeekday, -1, 0, 3, 3},
      {"4th Wed", OccursKind::kNthWeekday, -1, 0, 4, 4},
      {"Las Thu", OccursKind::kNthWeekday, -1, 0, 0, 5},
      {"las fri", OccursKind::kNthWeekday, -1, 0, 0, 6},
      {"LAS SAT", OccursKind::kNthWeekday, -1, 0, 0, 7},
      {"Las Day", OccursKind::kLastDay, -1, 0, -1, 0},
  };
  for (const OccursCase& c : cases) {
    SCOPED_TRACE(c.text);
    const auto event = ParseEventLine("06.01,X,7," + c.text, MonthFirst(), kCurrentYear);
    ASSERT_TRUE(event.has_value());
    EXPECT_EQ(event->occurs.kind, c.kind);
    EXPECT_EQ(event->occurs.year, c.year);
    EXPECT_EQ(event->occurs.interval, c.interval);
    EXPECT_EQ(event->occurs.ordinal, c.ordinal);
    EXPECT_EQ(event->occurs.weekday, c.weekday);
    EXPECT_FALSE(event->dateField.isFeast);
    EXPECT_EQ(event->dateField.month, 6);
    EXPECT_EQ(event->dateField.day, 1);
  }
}

TEST(ParseEventLine, KnowsEveryFeastCode) {
  for (const std::string code :
       {"_estr", "_ashw", "_mthr", "_palm", "_good", "_ascn", "_pent", "_crpc", "_rosh", "_yomk",
        "_sukk", "_shem", "_simh", "_hanu", "_puri", "_pass", "_shav", "_vict", "eastr"}) {
    for (const std::string& field : {code, ToUpper(code)}) {
      const auto event = ParseEventLine(field + ",X,7,yearly", DayFirst(), kCurrentYear);
      ASSERT_TRUE(event.has_value()) << field;
      EXPECT_TRUE(event->dateField.isFeast);
      EXPECT_EQ(event->EventDate, field);
    }
  }
}

struct RejectedCase {
  std::string line;
  RejectReason reason;
  std::size_t column;
};

const std::vector<RejectedCase>& RejectedCases() {
  using enum RejectReason;
  static const std::vector<RejectedCase> cases{
      // Three commas: the fault is the fourth one, or the end of a line that has too few.
      {"", kCommas, 1},
      {"*", kCommas, 1},
      {"hello", kCommas, 6},
      {"hello*", kCommas, 6},
      {"12.25,Christmas", kCommas, 16},
      {"12.25,Christmas,14", kCommas, 19},
      {"12.25,7,yearly", kCommas, 15},
      {"12.25,Turkey, stuffing,14,yearly", kCommas, 26},
      {"12.25,a,b,c,d,e", kCommas, 12},
      {"12.25,N\xC3\xB6\xC3\xABl,a,14,yearly", kCommas, 16},
      {"12.25,Christmas,14,yearly,", kCommas, 26},
      {",,,,", kCommas, 4},
      {"12,25,Christmas,14,yearly", kCommas, 19},
      {"1,.25,Christmas,14,yearly*", kCommas, 19},
      {"12.,5,X,7,yearly", kCommas, 10},
      // The date's length, in characters.
      {",,,", kDateLength, 1},
      {"1.15,X,7,yearly", kDateLength, 1},
      {"1.1,X,7,yearly", kDateLength, 1},
      {"12.255,X,7,yearly", kDateLength, 1},
      {" 12.25,X,7,yearly", kDateLength, 1},
      {"\xEF\xBB\xBF"
       "12.25,X,7,yearly",
       kDateLength, 1},
      {"12.2\xC3\xA9"
       "5,X,7,yearly",
       kDateLength, 1},
      {"1\xC3\xA9"
       "25,X,7,yearly",
       kDateLength, 1},
      {"e+39,X,7,yearly", kDateLength, 1},
      // Month.
      {"13.01,X,7,yearly", kMonth, 1},
      {"00.10,X,7,yearly", kMonth, 1},
      {"XX.15,X,7,yearly", kMonth, 1},
      {"xX.15,X,7,yearly", kMonth, 1},
      {"-1.15,X,7,yearly", kMonth, 1},
      {"a1.15,X,7,yearly", kMonth, 1},
      {"x1.15,X,7,yearly", kMonth, 1},
      {"..115,X,7,yearly", kMonth, 1},
      {".9.15,X,7,yearly", kMonth, 1},
      {"25.12,X,7,yearly", kMonth, 1},
      {"\xC3\xA9"
       "1.15,X,7,yearly",
       kMonth, 1},
      {"_easr,X,7,yearly", kMonth, 1},
      {"e+000,X,7,yearly", kMonth, 1},
      {"e+366,X,7,yearly", kMonth, 1},
      {"e--07,X,7,yearly", kMonth, 1},
      {"e+abc,X,7,yearly", kMonth, 1},
      {"e*007,X,7,yearly", kMonth, 1},
      {"f+007,X,7,yearly", kMonth, 1},
      // Day: the fourth character.
      {"01.32,X,7,yearly", kDay, 4},
      {"01.00,X,7,yearly", kDay, 4},
      {"01.XX,X,7,yearly", kDay, 4},
      {"01.x1,X,7,yearly", kDay, 4},
      {"01.-1,X,7,yearly", kDay, 4},
      {"12\xC3\xA9"
       "99,X,7,yearly",
       kDay, 4},
      {"1\xC3\xA9.99,X,7,yearly", kDay, 4},
      {"xx.99,X,7,yearly", kDay, 4},
      // Occurs: where the trimmed field begins.
      {"06.01,X,7,", kOccursUnknown, 11},
      {"06.01,X,7,   ", kOccursUnknown, 14},
      {"06.01,X,7,weekly", kOccursUnknown, 11},
      {"06.01,X,7,yearly.", kOccursUnknown, 11},
      {"06.01,X,7,yearly\t", kOccursUnknown, 11},
      {"06.01,X,7,yearly\r", kOccursUnknown, 11},
      {"06.01,X,7,\xC2\xA0yearly", kOccursUnknown, 11},
      {"06.01,X,7,yearly* ", kOccursUnknown, 11},
      {"06.01,X,7,yearly**", kOccursUnknown, 11},
      {"06.01,X,7,  daily ", kOccursUnknown, 13},
      {"06.01,N\xC3\xB6,7, daily", kOccursUnknown, 13},
      {"01.xx,X,7,5th Mon", kOccursUnknown, 11},
      {"01.xx,X,7,1stSun", kOccursUnknown, 11},
      {"01.xx,X,7,last fri", kOccursUnknown, 11},
      {"01.xx,X,7,1st", kOccursUnknown, 11},
      {"06.01,X,7,on", kOccursUnknown, 11},
      {"06.01,X,7,-5-2014", kOccursInterval, 11},
      {"06.01,X,7,1.-2014", kOccursInterval, 11},
      {"06.01,X,7, 5 -2014", kOccursInterval, 12},
      {"06.01,X,7,5 -2014", kOccursInterval, 11},
      {"06.01,X,7,ab-2014", kOccursInterval, 11},
      {"06.01,X,7,ab~2014", kOccursInterval, 11},
      {"06.01,X,7,dp~2014", kOccursInterval, 11},
      {"06.01,X,7,14-201", kOccursYear, 11},
      {"06.01,X,7,14-", kOccursYear, 11},
      {"06.01,X,7,20~", kOccursYear, 11},
      {"06.01,X,7,20~20x4", kOccursYear, 11},
      {"06.01,X,7,14-20 4", kOccursYear, 11},
      {"06.01,X,7,14-+201", kOccursYear, 11},
      {"06.01,X,7,dp-201", kOccursYear, 11},
      {"06.01,X,7,df-", kOccursYear, 11},
      {"06.01,X,7,df--201", kOccursYear, 11},
      {"06.01,X,7,dp-2999", kOccursYearInFuture, 11},
      {"06.01,X,7,dp-2015", kOccursYearInFuture, 11},
      {"06.01,X,7,one1999", kOccursYearTooEarly, 11},
      {"06.01,X,7,tdo1999", kOccursYearTooEarly, 11},
      {"06.01,X,7,one3000", kOccursYearTooEarly, 11},
      {"06.01,X,7,one2", kOccursYearTooEarly, 11},
      {"06.01,X,7,one201", kOccursYearTooEarly, 11},
      {"06.01,X,7,one2014x", kOccursYearTooEarly, 11},
      {"06.01,X,7,tdo2014**", kOccursYearTooEarly, 11},
      {"06.01,X,7,one21999", kOccursYearTooEarly, 11},
      {"01.xx,X,7,1st day", kOccursWeekday, 11},
      {"01.xx,X,7,4th Mo", kOccursWeekday, 11},
      {"01.xx,X,7,las days", kOccursWeekday, 11},
      {"01.xx,X,7,las xday", kOccursWeekday, 11},
      {"01.xx,X,7,3rd Monday", kOccursWeekday, 11},
      {"01.xx,X,7,2nd unm", kOccursWeekday, 11},
      // Advance: where its field begins.
      {"06.01,X,400,yearly", kAdvance, 9},
      {"06.01,X,366,yearly", kAdvance, 9},
      {"06.01,X,365.4,yearly", kAdvance, 9},
      {"06.01,X,365.0000000001,yearly", kAdvance, 9},
      {"06.01,X,-1,yearly", kAdvance, 9},
      {"06.01,X,-0.4,yearly", kAdvance, 9},
      {"06.01,X, 999999999999999999999999,yearly", kAdvance, 9},
      {"06.01,N\xC3\xB6\xC3\xABl,400,yearly", kAdvance, 12},
      {"06.01,,400,yearly", kAdvance, 8},
      {"06.01,X,400,yearly*", kAdvance, 9},
      // The first fault in the order of the fields, the advance last.
      {"13.99,X,400,never", kMonth, 1},
      {"01.99,X,400,never", kDay, 4},
      {"01.01,X,400,never", kOccursUnknown, 13},
  };
  return cases;
}

TEST(ParseEventLine, RejectsEverythingElseWithItsReasonAndColumn) {
  for (const RejectedCase& c : RejectedCases()) {
    SCOPED_TRACE(testing::PrintToString(c.line));
    for (const NamedLayout& layout : AllLayouts()) {
      Rejection rejection;
      EXPECT_FALSE(ParseEventLine(c.line, layout.format, kCurrentYear, &rejection).has_value());
      EXPECT_EQ(DescribeRejection(rejection.reason), DescribeRejection(c.reason));
      EXPECT_EQ(rejection.column, c.column);
    }
    EXPECT_FALSE(ParseEventLine(c.line, MonthFirst(), kCurrentYear).has_value());
  }
}

TEST(ParseEventLine, EveryReasonIsMetAndWordedApart) {
  std::set<RejectReason> met;
  for (const RejectedCase& c : RejectedCases()) met.insert(c.reason);
  EXPECT_EQ(met.size(), 11);
  std::set<std::string_view> descriptions;
  std::set<std::string_view> hints;
  for (const RejectReason reason : met) {
    for (const std::string_view text : {DescribeRejection(reason), RejectionHint(reason)}) {
      EXPECT_FALSE(text.empty());
      EXPECT_FALSE(text.ends_with('.')) << text;
    }
    descriptions.insert(DescribeRejection(reason));
    hints.insert(RejectionHint(reason));
  }
  EXPECT_EQ(descriptions.size(), 11);
  EXPECT_EQ(hints.size(), 11);
}

TEST(ParseEventLine, ACountUpBeginsInTheCurrentYearAtTheLatest) {
  for (const int year : {0, 1, 999, 2013, 2014, 9998, 9999}) {
    std::string line = "06.01,X,7,dp-";
    AppendNumber(line, year, 4);
    EXPECT_TRUE(ParseEventLine(line, MonthFirst(), year).has_value()) << line;
    EXPECT_TRUE(ParseEventLine(line, MonthFirst(), year + 1).has_value()) << line;
    EXPECT_FALSE(ParseEventLine(line, MonthFirst(), year - 1).has_value()) << line;
  }
}

TEST(ParseEventLine, EveryAdvanceFrom0To365) {
  for (int days = -3; days <= 1000; ++days) {
    const std::string line = "06.01,X," + std::to_string(days) + ",yearly";
    const auto event = ParseEventLine(line, MonthFirst(), kCurrentYear);
    ASSERT_EQ(event.has_value(), days >= 0 && days <= 365) << line;
    if (event) {
      EXPECT_EQ(event->EventAdvance, days);
    }
  }
}

TEST(ParseEventLine, EveryMonthAndDayInTwoDigits) {
  for (int month = 0; month <= 99; ++month) {
    for (int day = 0; day <= 99; ++day) {
      std::string line;
      AppendNumber(line, month, 2);
      line.push_back('.');
      AppendNumber(line, day, 2);
      line += ",X,7,yearly";
      const auto event = ParseEventLine(line, MonthFirst(), kCurrentYear);
      ASSERT_EQ(event.has_value(), month >= 1 && month <= 12 && day >= 1 && day <= 31) << line;
      if (!event) continue;
      EXPECT_EQ(event->dateField.month, month);
      EXPECT_EQ(event->dateField.day, day);
    }
  }
}

TEST(ParseEventLine, EveryDistanceFromEaster) {
  for (const char sign : {'+', '-'}) {
    for (int days = 0; days <= 999; ++days) {
      std::string line = std::string("e") + sign;
      AppendNumber(line, days, 3);
      line += ",X,7,yearly";
      EXPECT_EQ(ParseEventLine(line, MonthFirst(), kCurrentYear).has_value(),
                days >= 1 && days <= 365)
          << line;
    }
  }
}

TEST(ParseEventLine, EveryInterval) {
  for (int interval = 0; interval <= 199; ++interval) {
    std::string line = "06.01,X,7,";
    AppendNumber(line, interval % 100, 2);
    line += interval < 100 ? "-2014" : "~2014";
    const auto event = ParseEventLine(line, MonthFirst(), kCurrentYear);
    ASSERT_TRUE(event.has_value()) << line;
    EXPECT_EQ(event->occurs.interval, interval);
  }
}

// Compares the parser with the slow model of the rules.
void ExpectAgreement(std::string_view line, const RegionalDateFormat& format) {
  Rejection rejection;
  const auto event = ParseEventLine(line, format, kCurrentYear, &rejection);
  const auto expected = model::Parse(line, kCurrentYear, format.IsDayFirst());
  ASSERT_EQ(event.has_value(), expected.has_value()) << testing::PrintToString(std::string(line));
  if (!event) {
    ASSERT_LE(rejection.column, CountCharacters(line) + 1);
    ASSERT_GE(rejection.column, 1);
    return;
  }
  SCOPED_TRACE(line);
  ASSERT_EQ(model::CharactersOf(event->EventDate), expected->date);
  ASSERT_EQ(model::CharactersOf(event->EventDateAsStored), expected->dateAsStored);
  ASSERT_EQ(model::CharactersOf(event->EventTitle), expected->title);
  ASSERT_EQ(model::CharactersOf(event->EventOccurs), expected->occurs);
  ASSERT_EQ(event->EventAdvance, expected->advance);
  ASSERT_EQ(event->EventHidden, expected->hidden);
}

TEST(ParseEventLine, TheTablesAgreeWithTheSlowModel) {
  for (const AcceptedCase& c : AcceptedCases()) {
    for (const NamedLayout& layout : AllLayouts()) ExpectAgreement(c.line, layout.format);
  }
  for (const RejectedCase& c : RejectedCases()) {
    for (const NamedLayout& layout : AllLayouts()) ExpectAgreement(c.line, layout.format);
  }
}

const std::vector<std::string>& MutatedLines() {
  static const std::vector<std::string> lines{"12.25,Christmas,14,yearly*",
                                              "xx.15,Rent,3,monthly",
                                              "e+039,Ascension,7,quarter",
                                              "_rosh,New year,30,one2014",
                                              "01.xx,King,1.5,3rd Mon",
                                              "06.01,Bins,0,14-2014",
                                              "06.01,Filter,365,20~2014",
                                              "06.01,Sober,x,dp-2001",
                                              "06.01,Retire,,df-2030",
                                              "02.xx,Close,7,Las Day",
                                              "24.12,N\xC3\xB6\xC3\xABl,7,tdo2014"};
  return lines;
}

TEST(ParseEventLine, AnyByteInAnyPlaceFollowsTheRules) {
  const auto dayFirst = DayFirst();
  for (const std::string& line : MutatedLines()) {
    for (std::size_t at = 0; at < line.size(); ++at) {
      for (int byte = 0; byte < 256; ++byte) {
        std::string mutated = line;
        mutated[at] = static_cast<char>(byte);
        ASSERT_NO_FATAL_FAILURE(ExpectAgreement(mutated, dayFirst));
      }
    }
  }
}

TEST(ParseEventLine, AnyByteInsertedOrRemovedAnywhereFollowsTheRules) {
  const auto yearFirst = YearFirst();
  for (const std::string& line : MutatedLines()) {
    for (std::size_t at = 0; at <= line.size(); ++at) {
      for (int byte = 0; byte < 256; ++byte) {
        std::string mutated = line;
        mutated.insert(at, 1, static_cast<char>(byte));
        ASSERT_NO_FATAL_FAILURE(ExpectAgreement(mutated, yearFirst));
      }
      std::string shorter = line;
      if (at < line.size()) shorter.erase(at, 1);
      ASSERT_NO_FATAL_FAILURE(ExpectAgreement(shorter, yearFirst));
      ASSERT_NO_FATAL_FAILURE(ExpectAgreement(line.substr(0, at), yearFirst));
      ASSERT_NO_FATAL_FAILURE(ExpectAgreement(line.substr(at), yearFirst));
    }
  }
}

TEST(ParseEventLine, RandomLinesMadeOfLikelyPiecesFollowTheRules) {
  const std::vector<std::string> pieces{
      "12.25",   "xx.15", "01.xx", "e+039", "_estr", "1",        "2",    "x",   ".",
      ",",       ",",     ",",     ",",     "*",     " ",        "-",    "~",   "yearly",
      "one2014", "tdo2",  "dp-",   "df-",   "2001",  "3rd ",     "las ", "mon", "day",
      "14-2014", "7",     "365",   "0.5",   "\t",    "\xC3\xA9", "\xFF", "K",   "\xE2\x84\xAA",
      "\xC4\xB0"};
  std::mt19937 random(1582);
  std::uniform_int_distribution<std::size_t> pick(0, pieces.size() - 1);
  std::uniform_int_distribution<int> length(3, 12);
  const auto monthFirst = MonthFirst();
  for (int i = 0; i < 200'000; ++i) {
    std::string line;
    for (int n = length(random); n > 0; --n) line += pieces[pick(random)];
    ASSERT_NO_FATAL_FAILURE(ExpectAgreement(line, monthFirst));
  }
}

TEST(ParseEventLine, ALongTitleIsReadWhole) {
  const std::string title(1'000'000, 'x');
  const std::string line = "12.25," + title + ",14,yearly";
  const auto event = ParseEventLine(line, MonthFirst(), kCurrentYear);
  ASSERT_TRUE(event.has_value());
  EXPECT_EQ(event->EventTitle, title);
}

}  // namespace
}  // namespace tidewarden
