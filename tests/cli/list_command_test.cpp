// The options of "list", what its JSON holds, and the clock.
#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "tests/cli/program.h"

namespace tidewarden::test {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

TEST(ListJson, HoldsEveryField) {
  Terminal terminal;
  terminal.folder.Write("dates.txt",
                        "12.21,Gone,7,one2014\n"
                        "06.01,Sober,0,dp-2001\n"
                        "12.20,Pay \"rent\",7,tdo2014\n"
                        "12.22,<1788> Zoë 3:30pm,0,yearly\n"
                        "12.24,Night 12:05 am,14,yearly\n"
                        "12.24,Late 24:00,14,yearly\n"
                        "12.25,Christmas,14,yearly\n");
  const Outcome outcome = terminal.RunOnTheDay("list", {"--file", "dates.txt", "--json"});
  EXPECT_EQ(outcome.exitCode, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_TRUE(outcome.out.ends_with("]\n"));
  const char* const expected = R"json([
    {"line": 1, "text": "06/01/2001 Sober (4952 days past)",
                    "kind" : "counter",
                    "date" : "2001-06-01",
                    "days" : -4952,
                    "title" : "Sober",
                    "time" : null
},
    {"line": 2, "text": "12/20/2014 Pay \"rent\" (2 DAYS OVERDUE!!!)", "kind": "overdue",
     "date": "2014-12-20", "days": -2, "title": "Pay \"rent\"", "time": null},
    {"line": 0, "text": "12/22/2014   <TODAY>", "kind": "today-line",
     "date": "2014-12-22", "days": 0, "title": "", "time": null},
    {"line": 3, "text": "12/22/2014 Today is 226TH ZOË 3:30PM (1:05 to go)", "kind": "today",
     "date": "2014-12-22", "days": 0, "title": "226th Zoë 3:30pm", "time": "15:30"},
    {"line": 4, "text": "12/24/2014 Night 12:05 am (Wednesday, 2 days)", "kind": "upcoming",
     "date": "2014-12-24", "days": 2, "title": "Night 12:05 am", "time": "00:05"},
    {"line": 5, "text": "12/24/2014 Late 24:00 (Wednesday, 2 days)", "kind": "upcoming",
     "date": "2014-12-24", "days": 2, "title": "Late 24:00", "time": "24:00"},
    {"line": 6, "text": "12/25/2014 Christmas (Thursday, 3 days)", "kind": "upcoming",
     "date": "2014-12-25", "days": 3, "title": "Christmas", "time": null}
  ])json";
  EXPECT_EQ(nlohmann::json::parse(outcome.out), nlohmann::json::parse(expected));
}

TEST(ListJson, IsAnEmptyArrayForAnEmptyList) {
  Terminal terminal;
  terminal.folder.Write("dates.txt", "");
  terminal.WriteSettings("ListTodayWithEvents=False\n");
  EXPECT_EQ(terminal.RunOnTheDay("list", {"--file", "dates.txt", "--json"}),
            (Outcome{0, "[]\n", ""}));
}

TEST(ListJson, DatesAreIsoWhateverTheLayout) {
  for (const char* layout : {"MM/dd/yyyy", "dd.MM.yyyy", "yyyy-MM-dd", "yy/MM/dd"}) {
    SCOPED_TRACE(layout);
    Terminal terminal;
    terminal.folder.Write("dates.txt", "01.02,New,14,yearly\n");
    const Outcome outcome =
        terminal.RunOnTheDay("list", {"--file", "dates.txt", "--json", "--short-date", layout});
    const auto items = nlohmann::json::parse(outcome.out);
    ASSERT_EQ(items.size(), 2);
    EXPECT_EQ(items[0].at("date"), "2014-12-22");
    EXPECT_EQ(items[1].at("date"), "2015-01-02");
    EXPECT_EQ(items[1].at("days"), 11);
  }
}

TEST(OnlyIfAny, TellsByTheExitCodeWhetherAnEventIsInRange) {
  const struct {
    const char* name;
    const char* file;
    const char* settings;
    int exitCode;
    const char* out;
  } cases[] = {
      {"no events", "", "", 1, "12/22/2014   <TODAY>\n"},
      {"too far away", "12.30,Far,7,yearly\n", "", 1, "12/22/2014   <TODAY>\n"},
      {"in range", "12.23,Near,7,yearly\n", "", 0,
       "12/22/2014   <TODAY>\n12/23/2014 Near (Tuesday, 1 day)\n"},
      {"a counter", "06.01,Sober,0,dp-2001\n", "", 0,
       "06/01/2001 Sober (4952 days past)\n12/22/2014   <TODAY>\n"},
      {"no today line", "12.30,Far,7,yearly\n", "ListTodayWithEvents=False\n", 1, ""},
      {"the window would not be shown", "12.30,Far,7,yearly\n", "ShowOnlyIfEventsInRange=True\n", 1,
       ""},
  };
  for (const auto& [name, file, settings, exitCode, out] : cases) {
    SCOPED_TRACE(name);
    Terminal terminal;
    terminal.folder.Write("dates.txt", file);
    terminal.WriteSettings(settings);
    EXPECT_EQ(terminal.RunOnTheDay("list", {"--file", "dates.txt", "--only-if-any"}),
              (Outcome{exitCode, out, ""}));
    EXPECT_EQ(terminal.RunOnTheDay("list", {"--file", "dates.txt"}), (Outcome{0, out, ""}));
  }
}

TEST(TodayOption, TakesAnyDayOfFourDigitYears) {
  const struct {
    const char* today;
    const char* row;
  } cases[] = {
      {"0001-01-01", "01/01/0001   <TODAY>\n"},
      {"1582-10-10", "10/10/1582   <TODAY>\n"},
      {"2016-02-29", "02/29/2016   <TODAY>\n"},
      {"9998-12-31", "12/31/9998   <TODAY>\n"},
  };
  for (const auto& [today, row] : cases) {
    SCOPED_TRACE(today);
    Terminal terminal;
    terminal.WriteSettings();
    terminal.folder.Write("dates.txt", "");
    EXPECT_EQ(terminal.Run(
                  {"list", "--file", "dates.txt", "--settings", "settings.ini", "--today", today}),
              (Outcome{0, row, ""}));
  }
}

TEST(NowOption, RunsTheCountdown) {
  const struct {
    const char* now;
    const char* countdown;
  } cases[] = {
      {"00:00", "(15:30 to go)"}, {"15:25", "(0:05 to go)"},  {"15:30", "(0:00)"},
      {"15:35", "(0:05 passed)"}, {"23:59", "(8:29 passed)"},
  };
  for (const auto& [now, countdown] : cases) {
    SCOPED_TRACE(now);
    Terminal terminal;
    terminal.WriteSettings();
    terminal.folder.Write("dates.txt", "12.22,Dentist 3:30pm,0,yearly\n");
    const Outcome outcome = terminal.Run({"list", "--file", "dates.txt", "--settings",
                                          "settings.ini", "--today", "2014-12-22", "--now", now});
    EXPECT_THAT(outcome.out, HasSubstr(std::string("DENTIST 3:30PM ") + countdown + "\n"));
  }
}

TEST(ShortDateOption, TakesEveryLayoutThatCanBePlaced) {
  const struct {
    const char* pattern;
    const char* row;
  } cases[] = {
      {"MM/dd/yyyy", "12/02/2014   <TODAY>\n"},  {"MM-dd-yyyy", "12-02-2014   <TODAY>\n"},
      {"MM/dd/yy", "12/02/2014   <TODAY>\n"},    {"M.d.yyyy", "12.02.2014   <TODAY>\n"},
      {"dd.MM.yyyy", "02.12.2014   <TODAY>\n"},  {"dd/MM/yy", "02/12/2014   <TODAY>\n"},
      {"dd MMM yyyy", "02 12 2014   <TODAY>\n"}, {"dd-MMM-yy", "02-12-2014   <TODAY>\n"},
      {"yyyy-MM-dd", "2014-12-02   <TODAY>\n"},  {"yyyy. MM. dd.", "2014.12.02   <TODAY>\n"},
      {"yy/MM/dd", "2014/12/02   <TODAY>\n"},    {"yy.MM.dd", "2014.12.02   <TODAY>\n"},
  };
  for (const auto& [pattern, row] : cases) {
    SCOPED_TRACE(pattern);
    Terminal terminal;
    terminal.WriteSettings();
    terminal.folder.Write("dates.txt", "");
    EXPECT_EQ(terminal.Run({"list", "--file", "dates.txt", "--settings", "settings.ini", "--today",
                            "2014-12-02", "--short-date", pattern}),
              (Outcome{0, row, ""}));
  }
}

TEST(ShortDateOption, RefusesLayoutsThatCannotBePlaced) {
  for (const char* pattern : {"MMM dd yyyy", "dddd", "x", "yyyy", "MMdd", "dd''MM''yyyy"}) {
    SCOPED_TRACE(pattern);
    Terminal terminal;
    terminal.folder.Write("dates.txt", "");
    const auto before = terminal.folder.Look();
    const Outcome outcome =
        terminal.Run({"list", "--file", "dates.txt", "--settings", "settings.ini", "--today",
                      "2014-12-02", "--short-date", pattern});
    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, HasSubstr(pattern));
    EXPECT_EQ(terminal.folder.Look(), before);
  }
}

// --- The file and the messages.

TEST(ListFile, IsTakenByAnyPath) {
  const Outcome expected{0, "12/22/2014   <TODAY>\n12/24/2014 A (Wednesday, 2 days)\n", ""};
  for (const char* name : {"dates.txt", "./dates.txt", "no ending", "sub/ümlaut $x.lst", "-dash",
                           "a,b=c[d].txt", "back\\slash"}) {
    SCOPED_TRACE(name);
    Terminal terminal;
    terminal.folder.Write(name, "12.24,A,7,yearly\n");
    EXPECT_EQ(terminal.RunOnTheDay("list", {std::string("--file=") + name}), expected);
    EXPECT_EQ(terminal.RunOnTheDay("list", {"--file", terminal.folder / name}), expected);
  }
}

TEST(ListFile, IsAnErrorWhenMissingAndIsNotCreated) {
  for (const char* command : {"list", "check"}) {
    for (const char* name : {"missing.txt", "no/such/folder/missing.txt"}) {
      SCOPED_TRACE(std::string(command) + " " + name);
      Terminal terminal;
      const Outcome outcome = terminal.RunOnTheDay(command, {"--file", name});
      EXPECT_EQ(outcome.exitCode, 3);
      EXPECT_EQ(outcome.out, "");
      EXPECT_THAT(outcome.err, HasSubstr(name));
      EXPECT_THAT(outcome.err, HasSubstr("does not exist"));
      EXPECT_THAT(outcome.err, Not(HasSubstr("start from scratch")));
      EXPECT_FALSE(terminal.folder.Exists(name));
      EXPECT_FALSE(terminal.folder.Exists("no"));
    }
  }
}

TEST(ListFile, IsNotTouchedByAnythingButUpdate) {
  for (const auto& arguments : std::vector<std::vector<std::string>>{{"list"},
                                                                     {"list", "--json"},
                                                                     {"list", "--only-if-any"},
                                                                     {"check"},
                                                                     {"check", "--json"}}) {
    SCOPED_TRACE(::testing::PrintToString(arguments));
    Terminal terminal;
    // It holds everything that --update would change.
    terminal.folder.Write("dates.txt",
                          "12.21,Gone,7,one2014\n"
                          "06.01,Hidden,7,yearly*\r"
                          "12.24,A,7,yearly");
    terminal.WriteSettings();
    const auto before = terminal.folder.Look();
    std::vector<std::string> rest(arguments.begin() + 1, arguments.end());
    rest.insert(rest.end(), {"--file", "dates.txt"});
    EXPECT_LE(terminal.RunOnTheDay(arguments[0], rest).exitCode, 1);
    EXPECT_EQ(terminal.folder.Look(), before);
  }
}

}  // namespace
}  // namespace tidewarden::test
