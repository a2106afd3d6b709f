#include "core/event_check.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "core/event_line.h"
#include "dates/event_date_rules.h"
#include "dates/text.h"
#include "platform/memory/memory_ports.h"
#include "reminder/events_cleanup.h"
#include "tests/support/layouts.h"

namespace tidewarden {
namespace {

using test::MonthFirst;
using test::On;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr const char* kPath = "dates.txt";
constexpr CivilDate kToday = MakeDate(2014, 12, 22);

std::vector<Finding> Check(const std::string& bytes, CivilDate today = kToday) {
  MemoryFileSystem files;
  files.files[kPath] = bytes;
  std::vector<Finding> findings;
  EXPECT_TRUE(CheckEvents(files, kPath, MonthFirst(), today, findings).ok());
  return findings;
}

// The kinds of one line's findings, as "kind kind".
std::string KindsOf(const std::string& line, CivilDate today = kToday) {
  std::string kinds;
  for (const Finding& finding : Check(line + "\r\n", today)) {
    EXPECT_EQ(finding.line, 1);
    EXPECT_FALSE(finding.reason.empty());
    EXPECT_FALSE(finding.hint.empty());
    EXPECT_FALSE(finding.reason.ends_with('.')) << finding.reason;
    EXPECT_FALSE(finding.hint.ends_with('.')) << finding.hint;
    kinds += (kinds.empty() ? "" : " ") + std::string(FindingName(finding.kind));
  }
  return kinds;
}

TEST(EventCheck, NothingIsSaidAboutSoundEvents) {
  for (const std::string line : {"12.25,Christmas,14,yearly",
                                 "12.22,Today,0,one2014",
                                 "12.23,Tomorrow,0,one2014",
                                 "01.01,Task,7,tdo2010",
                                 "06.01,Sober,0,dp-2001",
                                 "06.01,Past goal,0,df-2001",
                                 "06.01,Goal,0,df-2030",
                                 "xx.31,Rent,3,monthly",
                                 "xx.15,Rent,3,yearly",
                                 "02.29,Leap day,7,yearly",
                                 "02.29,Leap day,7,one2016",
                                 "02.29,Leap day,7,dp-2000",
                                 "02.30,Tax,7,quarter",
                                 "06.31,Tax,7,quarter",
                                 "xx.xx,Club,3,1st Sun",
                                 "01.xx,King,7,3rd Mon",
                                 "02.xx,Close,7,Las Day",
                                 "_estr,Easter,7,yearly",
                                 "_rosh,New year,7,yearly",
                                 "_vict,Victoria,7,yearly",
                                 "e-046,Ashes,7,yearly",
                                 "06.01,Bins,0,14-2014",
                                 "06.01,Later,0,14-2030",
                                 "12-25,Odd separator,7,yearly",
                                 "",
                                 "   ",
                                 "\t",
                                 " \t "}) {
    EXPECT_EQ(KindsOf(line), "") << line;
  }
}

TEST(EventCheck, ARejectedLineIsReportedWithItsReasonHintAndColumn) {
  struct RejectedLine {
    std::string line;
    RejectReason reason;
    std::size_t column;
  };
  const std::vector<RejectedLine> cases{
      {"hello", RejectReason::kCommas, 6},
      {"1.15,X,7,yearly", RejectReason::kDateLength, 1},
      {"13.01,X,7,yearly", RejectReason::kMonth, 1},
      {"01.32,X,7,yearly", RejectReason::kDay, 4},
      {"01.xx,X,7,5th Mon", RejectReason::kOccursUnknown, 11},
      {"06.01,X,7,ab-2014", RejectReason::kOccursInterval, 11},
      {"06.01,X,7,14-201", RejectReason::kOccursYear, 11},
      {"06.01,X,7,dp-2999", RejectReason::kOccursYearInFuture, 11},
      {"06.01,X,7,one1999", RejectReason::kOccursYearTooEarly, 11},
      {"01.xx,X,7,1st day", RejectReason::kOccursWeekday, 11},
      {"06.01,X,400,yearly", RejectReason::kAdvance, 9},
  };
  for (const RejectedLine& c : cases) {
    SCOPED_TRACE(c.line);
    const auto findings = Check(c.line);
    ASSERT_EQ(findings.size(), 1);
    EXPECT_EQ(findings[0].kind, FindingKind::kRejected);
    EXPECT_EQ(findings[0].line, 1);
    EXPECT_EQ(findings[0].column, c.column);
    EXPECT_EQ(findings[0].reason, DescribeRejection(c.reason));
    EXPECT_EQ(findings[0].hint, RejectionHint(c.reason));
  }
}

TEST(EventCheck, LinesAreCountedFromOneBlankOnesIncluded) {
  const auto findings =
      Check("\xEF\xBB\xBFhello\r\n\r\n12.25,Christmas,14,yearly\r\n  \nworld\r02.30,X,7,yearly");
  ASSERT_EQ(findings.size(), 3);
  EXPECT_EQ(findings[0].line, 1);
  EXPECT_EQ(findings[0].column, 6) << "the byte-order mark is not part of the line";
  EXPECT_EQ(findings[1].line, 5);
  EXPECT_EQ(findings[2].line, 6);
  EXPECT_EQ(findings[2].kind, FindingKind::kNeverComes);
}

TEST(EventCheck, AByteOrderMarkIsNoPartOfTheFirstLineInEitherEncoding) {
  for (const std::string title : {"N\xC3\xA9o", "N\xE9o"}) {
    EXPECT_THAT(Check("\xEF\xBB\xBF"
                      "12.25,Christmas,14,yearly\r\n12.24," +
                      title + ",7,yearly\r\n"),
                IsEmpty());
  }
}

TEST(EventCheck, ColumnsCountCharactersInEitherEncoding) {
  for (const std::string title : {"N\xC3\xB6\xC3\xABl", "N\xF6\xEBl"}) {
    const auto findings = Check("06.01," + title + ",400,yearly\r\n");
    ASSERT_EQ(findings.size(), 1);
    EXPECT_EQ(findings[0].column, 12);
  }
}

TEST(EventCheck, AOneTimeEventIsOverFromTheDayAfter) {
  EXPECT_EQ(KindsOf("12.21,X,7,one2014"), "past-one-time");
  EXPECT_EQ(KindsOf("12.21,X,7,one2014*"), "past-one-time");
  EXPECT_EQ(KindsOf("12.22,X,7,one2014"), "");
  EXPECT_EQ(KindsOf("12.23,X,7,one2014"), "");
  EXPECT_EQ(KindsOf("12.31,X,7,one2000"), "past-one-time");
  EXPECT_EQ(KindsOf("01.01,X,7,one2999"), "");
  EXPECT_EQ(KindsOf("12.21,X,7,tdo2014"), "") << "a task stays until it is done";
  EXPECT_EQ(KindsOf("12.21,X,7,14-2014"), "");
}

TEST(EventCheck, RemovalIsPromisedOnlyForOneTimeLinesThatWillBeRemoved) {
  for (const std::string line :
       {"06.01,X,7,one2014", "06.01,X,7,one2014*", "06.01,X,7,ONE2014", "06.01,X,7,one2014 ",
        "06.01,X,7, one2014", "xx.15,X,7,one2013", "06-01,X,7,one2014"}) {
    SCOPED_TRACE("'" + line + "'");
    const auto findings = Check(line);
    ASSERT_EQ(findings.size(), 1);
    EXPECT_EQ(findings[0].kind, FindingKind::kPastOneTime);
    MemoryFileSystem files;
    files.files[kPath] = line + "\r\n";
    std::vector<long> removed;
    EXPECT_TRUE(RemovePastOneTimeEvents(files, kPath, "data", kToday, removed).ok());
    const bool promised = findings[0].hint.find("removed") != std::string::npos;
    EXPECT_EQ(promised, !removed.empty()) << findings[0].hint;
  }
}

TEST(EventCheck, AnEventWithoutAnyDateNeverComes) {
  for (const std::string line :
       {"02.30,X,7,yearly", "02.31,X,7,yearly", "04.31,X,7,monthly", "06.31,X,7,one2020",
        "02.29,X,7,one2015", "02.29,X,7,one2100", "02.30,X,7,tdo2014", "02.30,X,7,14-2014",
        "02.30,X,7,dp-2001", "02.30,X,7,df-2030", "1a.05,X,7,yearly", "12.+5,X,7,yearly",
        "01.xx,X,7,yearly", "xx.xx,X,7,monthly", "01.xx,X,7,one2014", "e+0.5,X,7,yearly",
        "02.30,X,7,yearly*"}) {
    EXPECT_EQ(KindsOf(line), "never-comes") << line;
  }
}

TEST(EventCheck, ALeapDayIsNotTakenForNever) {
  for (const CivilDate today : {On(2014, 12, 22), On(2016, 2, 29), On(2016, 3, 1), On(2015, 12, 31),
                                On(2096, 3, 1), On(2097, 1, 1), On(2099, 12, 31)}) {
    EXPECT_EQ(KindsOf("02.29,X,7,yearly", today), "") << YearOf(today);
  }
}

TEST(EventCheck, ASecondLineWithTheSameDateTitleAndRuleIsADuplicate) {
  struct Pair {
    std::string first;
    std::string second;
    bool duplicate;
  };
  const std::vector<Pair> cases{
      {"12.25,Christmas,14,yearly", "12.25,Christmas,14,yearly", true},
      {"12.25,Christmas,14,yearly", "12.25,Christmas,7,yearly", true},
      {"12.25,Christmas,14,yearly", "12.25,Christmas,14,yearly*", true},
      {"12.25,Christmas,14,yearly", "12.25,Christmas,14, Yearly", true},
      {"12.25,Christmas,14,yearly", "12-25,Christmas,14,yearly", true},
      {"02.30,Never,14,yearly", "1a.05,Never,14,yearly", false},
      {"_estr,Easter,14,yearly", "_ESTR,Easter,14,yearly", true},
      {"06.01,Goal,x,dp-2001", "06.01,Goal,y,dp-2001", true},
      {"12.25,Christmas,14,yearly", "12.26,Christmas,14,yearly", false},
      {"12.25,Christmas,14,yearly", "12.25,Boxing Day,14,yearly", false},
      {"12.25,Christmas,14,yearly", "12.25,Christmas,14,monthly", false},
      {"06.01,Bins,0,14-2014", "06.01,Bins,0,14-2015", false},
      {"hello", "hello", false},
      {"", "", false},
  };
  for (const Pair& c : cases) {
    SCOPED_TRACE(c.first + " / " + c.second);
    int duplicates = 0;
    for (const Finding& finding : Check(c.first + "\r\n\r\n" + c.second + "\r\n")) {
      if (finding.kind != FindingKind::kDuplicate) continue;
      ++duplicates;
      EXPECT_EQ(finding.line, 3);
      EXPECT_THAT(finding.reason, HasSubstr("line 1"));
    }
    EXPECT_EQ(duplicates, c.duplicate ? 1 : 0);
  }
}

TEST(EventCheck, EveryFurtherCopyIsReportedAndNamesTheFirst) {
  const std::string line = "12.25,Christmas,14,yearly\r\n";
  const auto findings = Check("x\r\n" + line + line + line);
  ASSERT_EQ(findings.size(), 3);
  EXPECT_EQ(findings[1].line, 3);
  EXPECT_EQ(findings[2].line, 4);
  for (std::size_t i = 1; i <= 2; ++i) {
    EXPECT_EQ(findings[i].kind, FindingKind::kDuplicate);
    EXPECT_THAT(findings[i].reason, HasSubstr("line 2"));
  }
}

TEST(EventCheck, OneLineCanHaveTwoFindings) {
  const auto findings = Check("06.01,X,7,one2014\r\n06.01,X,7,one2014\r\n");
  std::vector<std::pair<std::size_t, std::string>> seen;
  for (const Finding& f : findings) seen.emplace_back(f.line, FindingName(f.kind));
  EXPECT_THAT(seen, ::testing::UnorderedElementsAre(std::pair(1, "past-one-time"),
                                                    std::pair(2, "duplicate"),
                                                    std::pair(2, "past-one-time")));
}

// Whether a hidden event is shown again on one of the days of the next 20 years, going through
// them one by one as the list does.
bool ComesBack(const std::string& line, CivilDate today) {
  const auto event = ParseEventLine(line, MonthFirst(), YearOf(today));
  for (int i = 0; event && i < 20 * 366; ++i) {
    const CivilDate day = AddDays(today, i);
    auto date = EventDateByRule(event->dateField, event->occurs, day);
    if (!date) continue;
    if (*date < day && event->occurs.kind != OccursKind::kOneTime) {
      date = MoveToNextYear(*date, day);
    }
    if (date && DaysBetween(day, *date) > event->EventAdvance) return true;
  }
  return false;
}

struct HiddenCase {
  std::string name;
  std::string before;  // of the advance
  std::string after;
  std::vector<int> advances;
};

TEST(EventCheck, AHiddenEventThatIsNeverFurtherAwayThanItsNoticeDoesNotComeBack) {
  const std::vector<HiddenCase> cases{
      {"yearly", "12.25,X,", ",yearly*", {0, 7, 363, 364, 365}},
      {"monthly", "xx.15,X,", ",monthly*", {0, 28, 29, 30, 31, 365}},
      {"last of the month", "xx.31,X,", ",monthly*", {28, 29, 30, 31}},
      {"quarter", "11.30,X,", ",quarter*", {80, 89, 90, 91, 92, 93}},
      {"weekday of each month", "xx.xx,X,", ",1st Sun*", {26, 27, 28, 33, 34, 35}},
      {"last day of each month", "xx.xx,X,", ",Las Day*", {28, 29, 30, 31}},
      {"weekday of a month", "01.xx,X,", ",3rd Mon*", {7, 363, 365}},
      {"every 14 days", "06.01,X,", ",14-2014*", {0, 12, 13, 14}},
      {"every day", "06.01,X,", ",01-2014*", {0, 1}},
      {"every 120 days", "06.01,X,", ",20~2014*", {0, 118, 119, 120}},
      {"starts later", "06.01,X,", ",14-2016*", {14, 365}},
      {"Easter", "_estr,X,", ",yearly*", {0, 350, 365}},
      {"Hebrew feast", "_rosh,X,", ",yearly*", {0, 350, 365}},
      {"Monday before 25 May", "_vict,X,", ",yearly*", {0, 363, 365}},
      {"leap day", "02.29,X,", ",yearly*", {0, 7, 57, 58, 59, 60, 365}},
      {"one time, near", "12.25,X,", ",one2014*", {0, 2, 3, 14}},
      {"one time, far", "06.01,X,", ",one2015*", {7, 160, 161, 200}},
      {"one time, today", "12.22,X,", ",one2014*", {0, 7}},
  };
  int flagged = 0;
  int free = 0;
  for (const HiddenCase& c : cases) {
    for (const int advance : c.advances) {
      const std::string line = c.before + std::to_string(advance) + c.after;
      SCOPED_TRACE(c.name + ": " + line);
      const bool comesBack = ComesBack(line, kToday);
      EXPECT_EQ(KindsOf(line), comesBack ? "" : "never-unhidden");
      ++(comesBack ? free : flagged);
      // Without the mark there is nothing to say.
      EXPECT_EQ(KindsOf(line.substr(0, line.size() - 1)), "");
    }
  }
  EXPECT_GT(flagged, 15);
  EXPECT_GT(free, 15);
}

TEST(EventCheck, LimitsOfComingBackByHand) {
  // The day after Christmas it is 364 days to the next one, 365 in a leap year.
  EXPECT_EQ(KindsOf("12.25,X,364,yearly*"), "");
  EXPECT_EQ(KindsOf("12.25,X,365,yearly*"), "never-unhidden");
  // On the 16th of a month of 31 days it is 30 days to the next 15th.
  EXPECT_EQ(KindsOf("xx.15,X,29,monthly*"), "");
  EXPECT_EQ(KindsOf("xx.15,X,30,monthly*"), "never-unhidden");
  EXPECT_EQ(KindsOf("06.01,X,12,14-2014*"), "");
  EXPECT_EQ(KindsOf("06.01,X,13,14-2014*"), "never-unhidden");
  // Only in a leap year does the event have a date, at most 59 days away.
  EXPECT_EQ(KindsOf("02.29,X,58,yearly*"), "");
  EXPECT_EQ(KindsOf("02.29,X,59,yearly*"), "never-unhidden");
}

TEST(EventCheck, HiddenTasksAndCountersAreListedAnyway) {
  for (const std::string line :
       {"12.21,X,7,tdo2014*", "12.31,X,365,tdo2014*", "06.01,X,0,dp-2001*", "06.01,X,0,df-2030*"}) {
    EXPECT_EQ(KindsOf(line), "") << line;
  }
}

TEST(EventCheck, AFileThatCannotBeReadHasNoFindings) {
  MemoryFileSystem files;
  std::vector<Finding> findings{{FindingKind::kRejected, 1, 1, "old", "old"}};
  EXPECT_EQ(CheckEvents(files, kPath, MonthFirst(), kToday, findings).kind(),
            StatusKind::kNotFound);
  EXPECT_THAT(findings, IsEmpty());
  files.files[kPath] = "hello\r\n";
  files.failures[kPath] = StatusKind::kNoPermission;
  findings = {{FindingKind::kRejected, 1, 1, "old", "old"}};
  EXPECT_EQ(CheckEvents(files, kPath, MonthFirst(), kToday, findings).kind(),
            StatusKind::kNoPermission);
  EXPECT_THAT(findings, IsEmpty());
}

TEST(EventCheck, StartsAnewWhenTheEncodingTurnsOut) {
  // The lines before the stray byte are looked at twice, and are no duplicates of themselves.
  const auto findings = Check("12.25,Christmas,14,yearly\r\nhello\r\n06.01,\xE9,7,yearly\r\n");
  ASSERT_EQ(findings.size(), 1);
  EXPECT_EQ(findings[0].line, 2);
}

TEST(EventCheck, FindingsHaveNamesForScripts) {
  EXPECT_EQ(FindingName(FindingKind::kRejected), "rejected");
  EXPECT_EQ(FindingName(FindingKind::kPastOneTime), "past-one-time");
  EXPECT_EQ(FindingName(FindingKind::kDuplicate), "duplicate");
  EXPECT_EQ(FindingName(FindingKind::kNeverComes), "never-comes");
  EXPECT_EQ(FindingName(FindingKind::kNeverUnhidden), "never-unhidden");
}

}  // namespace
}  // namespace tidewarden
