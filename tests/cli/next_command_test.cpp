// "next": the next dates of one line.
#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "core/event_line.h"
#include "dates/event_date_rules.h"
#include "dates/regional_text.h"
#include "tests/cli/program.h"
#include "tests/support/layouts.h"

namespace tidewarden::test {
namespace {

using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

struct NextCase {
  const char* line;
  const char* today;
  const char* count;
  std::vector<std::string> dates;
};

// The dates that "next --json" gives.
std::vector<std::string> Next(const std::string& line, const std::string& today,
                              const std::string& count) {
  const Terminal terminal;
  const Outcome outcome = terminal.Run({"next", line, "--today", today, "-n", count, "--json"});
  std::vector<std::string> dates;
  for (const auto& item : nlohmann::json::parse(outcome.out)) {
    dates.push_back(item.at("date").get<std::string>());
  }
  EXPECT_EQ(outcome.exitCode, dates.empty() ? 1 : 0);
  EXPECT_EQ(outcome.err.empty(), !dates.empty());
  return dates;
}

TEST(NextDates, FollowTheRuleOfTheLine) {
  const NextCase cases[] = {
      // The same day every year, today included.
      {"12.25,X,14,yearly", "2014-12-22", "3", {"2014-12-25", "2015-12-25", "2016-12-25"}},
      {"12.22,X,14,yearly", "2014-12-22", "2", {"2014-12-22", "2015-12-22"}},
      {"12.21,X,14,yearly", "2014-12-22", "2", {"2015-12-21", "2016-12-21"}},
      {"02.29,X,0,yearly", "2014-12-22", "3", {"2016-02-29", "2020-02-29", "2024-02-29"}},
      {"02.29,X,0,yearly", "2096-03-01", "1", {"2104-02-29"}},
      // Months.
      {"xx.15,X,0,monthly", "2014-12-20", "3", {"2015-01-15", "2015-02-15", "2015-03-15"}},
      {"xx.31,X,0,monthly",
       "2014-12-31",
       "4",
       {"2014-12-31", "2015-01-31", "2015-02-28", "2015-03-31"}},
      {"xx.30,X,0,monthly", "2016-01-31", "2", {"2016-02-29", "2016-03-30"}},
      {"xx.15,X,0,yearly", "2014-12-22", "2", {"2015-01-15", "2015-02-15"}},
      // Quarters.
      {"11.15,X,0,quarter", "2014-12-10", "3", {"2015-02-15", "2015-05-15", "2015-08-15"}},
      {"02.25,X,0,quarter", "2014-12-22", "2", {"2015-02-25", "2015-05-25"}},
      {"08.31,X,0,quarter", "2015-05-01", "2", {"2015-05-31", "2015-08-31"}},
      // Weekdays.
      {"05.xx,X,7,Las Mon", "2014-12-22", "2", {"2015-05-25", "2016-05-30"}},
      {"01.xx,X,7,3rd Mon", "2014-12-22", "2", {"2015-01-19", "2016-01-18"}},
      {"xx.xx,X,7,2nd Wed", "2014-12-22", "3", {"2015-01-14", "2015-02-11", "2015-03-11"}},
      {"02.xx,X,7,Las Day", "2014-12-22", "2", {"2015-02-28", "2016-02-29"}},
      {"xx.xx,X,7,Las Day", "2014-12-22", "3", {"2014-12-31", "2015-01-31", "2015-02-28"}},
      // Feasts.
      {"_estr,X,7,yearly", "2014-12-22", "3", {"2015-04-05", "2016-03-27", "2017-04-16"}},
      {"e-046,X,7,yearly", "2014-03-05", "2", {"2014-03-05", "2015-02-18"}},
      {"_rosh,X,7,yearly", "2014-12-22", "2", {"2015-09-14", "2016-10-03"}},
      {"_hanu,X,7,yearly", "2014-12-22", "2", {"2015-12-07", "2016-12-25"}},
      {"_pass,X,7,yearly", "2015-12-22", "1", {"2016-04-23"}},
      {"_vict,X,7,yearly", "2014-12-22", "2", {"2015-05-18", "2016-05-23"}},
      // Every so many days.
      {"11.24,X,7,14-2014", "2014-12-22", "3", {"2014-12-22", "2015-01-05", "2015-01-19"}},
      {"11.25,X,7,14-2014", "2014-12-22", "2", {"2014-12-23", "2015-01-06"}},
      {"08.25,X,7,20~2014", "2014-12-22", "2", {"2014-12-23", "2015-04-22"}},
      {"06.01,X,7,14-2015", "2014-12-22", "3", {"2015-06-01", "2015-06-15", "2015-06-29"}},
      // One date only.
      {"12.24,X,7,one2014", "2014-12-22", "3", {"2014-12-24"}},
      {"12.22,X,7,one2014", "2014-12-22", "3", {"2014-12-22"}},
      {"12.24,X,7,tdo2014", "2014-12-22", "3", {"2014-12-24"}},
      {"12.20,X,7,tdo2014", "2014-12-22", "3", {"2014-12-20"}},
      {"06.01,X,7,df-2015", "2014-12-22", "3", {"2015-06-01"}},
      {"06.01,X,7,dp-2001", "2014-12-22", "3", {"2001-06-01"}},
      // None.
      {"12.21,X,7,one2014", "2014-12-22", "3", {}},
      {"02.30,X,7,yearly", "2014-12-22", "3", {}},
      {"02.30,X,7,df-2015", "2014-12-22", "3", {}},
      {"01.xx,X,7,yearly", "2014-12-22", "3", {}},
      {"1a.05,X,7,yearly", "2014-12-22", "3", {}},
      // A mark does not matter.
      {"12.25,X,14,yearly*", "2014-12-22", "1", {"2014-12-25"}},
  };
  for (const auto& [line, today, count, dates] : cases) {
    SCOPED_TRACE(std::string(line) + " on " + today);
    EXPECT_THAT(Next(line, today, count), ElementsAreArray(dates));
  }
}

// Its year does not matter: the feast is neither over nor late in the years to come.
TEST(NextDates, OfAFeastFollowTheCalendarWhateverYearTheLineNames) {
  const std::vector<std::string> easters{"2015-04-05", "2016-03-27", "2017-04-16"};
  EXPECT_THAT(Next("_estr,X,7,one2014", "2014-12-22", "3"), ElementsAreArray(easters));
  EXPECT_THAT(Next("_estr,X,7,tdo2014", "2014-12-22", "3"), ElementsAreArray(easters));
}

// The days of five years on which the list would show the event as today's.
std::vector<std::string> DaysOfTheList(const std::string& line, CivilDate from, CivilDate to) {
  const auto event = ParseEventLine(line, test::MonthFirst(), YearOf(from));
  std::vector<std::string> days;
  if (!event) return days;
  for (CivilDate day = from; day <= to; day = AddDays(day, 1)) {
    if (NextOccurrence(event->dateField, event->occurs, day) == day) days.push_back(IsoDate(day));
  }
  return days;
}

TEST(NextDates, AreTheDaysOnWhichTheListShowsTheEvent) {
  for (const std::string line :
       {"11.30,X,14,quarter", "08.31,X,14,quarter", "xx.31,X,0,quarter", "12.31,X,0,quarter",
        "e-365,X,0,yearly", "e+250,X,0,yearly", "xx.15,X,0,one2027", "xx.15,X,0,tdo2027",
        "xx.xx,X,0,Las Day", "02.29,X,0,yearly", "_hanu,X,0,yearly", "11.24,X,7,14-2014",
        "05.xx,X,7,Las Mon", "xx.31,X,0,monthly"}) {
    for (const CivilDate from : {MakeDate(2026, 9, 1), MakeDate(2026, 12, 31)}) {
      SCOPED_TRACE(line + " from " + IsoDate(from));
      const auto expected = DaysOfTheList(line, from, MakeDate(2031, 12, 31));
      ASSERT_FALSE(expected.empty());
      EXPECT_EQ(Next(line, IsoDate(from), std::to_string(expected.size())), expected);
    }
  }
}

TEST(NextDates, AreOneUnlessToldOtherwise) {
  EXPECT_EQ(Terminal().Run({"next", "12.25,X,14,yearly", "--today", "2014-12-22"}),
            (Outcome{0, "12/25/2014 (Thursday, 3 days)\n", ""}));
}

TEST(NextDates, TellTheWeekdayAndTheDays) {
  const Terminal terminal;
  EXPECT_EQ(terminal.Run({"next", "12.22,X,14,01-2014", "--today", "2014-12-22", "-n", "3"}),
            (Outcome{0,
                     "12/22/2014 (Monday, today)\n"
                     "12/23/2014 (Tuesday, 1 day)\n"
                     "12/24/2014 (Wednesday, 2 days)\n",
                     ""}));
  EXPECT_EQ(terminal.Run({"next", "12.21,X,14,tdo2014", "--today", "2014-12-22"}),
            (Outcome{0, "12/21/2014 (Sunday, 1 day ago)\n", ""}));
  EXPECT_EQ(terminal.Run({"next", "12.20,X,14,tdo2014", "--today", "2014-12-22"}),
            (Outcome{0, "12/20/2014 (Saturday, 2 days ago)\n", ""}));
}

TEST(NextDates, AreWrittenInTheLayout) {
  const struct {
    const char* layout;
    const char* text;
  } cases[] = {
      {"MM/dd/yyyy", "01/02/2015"}, {"dd.MM.yyyy", "02.01.2015"}, {"yyyy-MM-dd", "2015-01-02"}};
  for (const auto& [layout, text] : cases) {
    SCOPED_TRACE(layout);
    const Terminal terminal;
    EXPECT_EQ(terminal.Run(
                  {"next", "01.02,X,14,yearly", "--today", "2014-12-22", "--short-date", layout}),
              (Outcome{0, std::string(text) + " (Friday, 11 days)\n", ""}));
    const Outcome json = terminal.Run(
        {"next", "01.02,X,14,yearly", "--today", "2014-12-22", "--short-date", layout, "--json"});
    EXPECT_EQ(
        nlohmann::json::parse(json.out),
        (nlohmann::json::array(
            {{{"date", "2015-01-02"}, {"text", text}, {"weekday", "Friday"}, {"days", 11}}})));
  }
}

TEST(NextDates, ComeInAnyNumber) {
  const std::vector<std::string> dates = Next("01.01,X,0,01-2014", "2014-12-22", "10000");
  ASSERT_EQ(dates.size(), 10000);
  EXPECT_EQ(dates.front(), "2014-12-22");
  EXPECT_EQ(dates.back(), "2042-05-08");
}

TEST(NextDates, EndWithTheYearsOfFourDigits) {
  const std::vector<std::string> dates = Next("12.25,X,0,yearly", "9990-12-22", "100");
  ASSERT_FALSE(dates.empty());
  EXPECT_EQ(dates.front(), "9990-12-25");
  EXPECT_LE(dates.size(), 10);
}

TEST(NextDates, AreNoneForAnEventThatIsOver) {
  const Terminal terminal;
  const Outcome outcome = terminal.Run({"next", "12.21,X,7,one2014", "--today", "2014-12-22"});
  EXPECT_EQ(outcome.exitCode, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_THAT(outcome.err, HasSubstr("no date"));
  EXPECT_EQ(terminal.Run({"next", "12.21,X,7,one2014", "--today", "2014-12-22", "--json"}).out,
            "[]\n");
}

TEST(NextDates, AreNotGivenForALineThatIsNoEvent) {
  const struct {
    const char* line;
    const char* reason;
  } cases[] = {
      {"", "comma"},
      {"hello", "comma"},
      {"12.25,a,b,7,yearly", "comma"},
      {"25.12,Christmas,7,yearly", "month"},
      {"12.32,Christmas,7,yearly", "day"},
      {"12.25,Christmas,400,yearly", "365"},
      {"12.25,Christmas,7,dp-2999", "future"},
  };
  for (const auto& [line, reason] : cases) {
    SCOPED_TRACE(line);
    const Outcome outcome = Terminal().Run({"next", line, "--today", "2014-12-22"});
    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, HasSubstr(reason));
    EXPECT_THAT(outcome.err, HasSubstr("column"));
  }
}

TEST(NextDates, TakeAnyTitle) {
  for (const std::string title : {"[x]", "a b", "<b>", "--file", "$HOME", "\xFF\xFE", "%s%n", "'",
                                  "\"", "\\", "Zoë", "a=b", "{}"}) {
    SCOPED_TRACE(title);
    EXPECT_EQ(Terminal().Run({"next", "12.25," + title + ",7,yearly", "--today", "2014-12-22"}),
              (Outcome{0, "12/25/2014 (Thursday, 3 days)\n", ""}));
  }
}

TEST(NextDates, LeaveNothingOnTheDisk) {
  Terminal terminal;
  const auto before = terminal.folder.Look();
  EXPECT_EQ(terminal.Run({"next", "12.25,X,14,yearly"}).exitCode, 0);
  EXPECT_EQ(terminal.Run({"next", "02.30,X,14,yearly"}).exitCode, 1);
  EXPECT_EQ(terminal.Run({"next", "x"}).exitCode, 2);
  EXPECT_EQ(terminal.folder.Look(), before);
}

}  // namespace
}  // namespace tidewarden::test
