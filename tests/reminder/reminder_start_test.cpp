// How the program starts: whether it may run, the order of the steps, and what each finds.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <tuple>
#include <vector>

#include "reminder/reminder_session.h"
#include "tests/reminder/session_desk.h"

namespace tidewarden::test {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

const LoggedMessages::Box kRestart{
    "Please close and then restart the Tidewarden for your changes to take effect.",
    MessageButtons::kOk, MessageIcon::kNone};
const LoggedMessages::Box kRunning{"The Tidewarden is already running.", MessageButtons::kOk,
                                   MessageIcon::kNone};

// ---- The order.

TEST(ReminderStart, TheStepsComeInTheirOrder) {
  SessionDesk desk("12.25,Christmas,14,yearly\r\n");
  desk.files.files["/opt/tidewarden/winaqua.skn"] = "QWidget { color: black; }";
  ASSERT_EQ(desk.Load(), WindowChange::kNone);
  const Log steps{
      "claim",
      "get Customizer/JustExited",
      "get Settings/Maximized",
      "get Settings/Path",
      // the font
      "get Settings/FontName",
      "get Settings/FontBold",
      "get Settings/FontItalic",
      "get Settings/FontSize",
      "get Options/PrefaceTodaysEventsWithTODAYis",
      "short date",
      // the skin
      "get Options/UseSkin",
      "open /opt/tidewarden/winaqua.skn",
      // the list, from its first step to its last
      "get Options/TitlebarText",
      "open /home/ann/dates.txt",
      "get Options/ShowOnlyIfEventsInRange",
      "get Options/ShowTodaysDateWithReminders",
      "get Options/QuotesPath",
      "get Options/ShowDailyQuotes",
      // the placement
      "get Settings/Maximized",
      "get Settings/Left",
      "get Settings/Top",
      "get Settings/Width",
      "get Settings/Height",
      // the colours
      "get Options/ReminderListBackColor",
      "get Options/ReminderListColors",
      "get Settings/TimerInterval",
      "get Options/ShowTodaysDateBeneathReminders",
  };
  Log found;
  for (const std::string& entry : desk.log) {
    if (std::find(steps.begin(), steps.end(), entry) != steps.end()) found.push_back(entry);
  }
  EXPECT_THAT(found, ElementsAreArray(steps));
}

TEST(ReminderStart, IsLoadedOnlyAtItsVeryEnd) {
  SessionDesk desk;
  std::vector<bool> seen;
  desk.messages.whileOpen = [&] { seen.push_back(desk.session.isLoaded()); };
  EXPECT_FALSE(desk.session.isLoaded());
  ASSERT_EQ(desk.Load(), WindowChange::kNone);
  EXPECT_THAT(seen, ElementsAre(false));
  EXPECT_TRUE(desk.session.isLoaded());
}

TEST(ReminderStart, WhatHappensToTheWindowBeforeItIsShownDoesNotCount) {
  SessionDesk desk("");
  desk.session.Shown();
  EXPECT_EQ(desk.session.StateChanged(WindowState::kMaximized), WindowChange::kNone);
  EXPECT_EQ(desk.Stored("Maximized"), "(missing)");

  SessionDesk loaded("");
  ASSERT_EQ(loaded.Load(), WindowChange::kNone);
  for (const WindowState state :
       {WindowState::kMaximized, WindowState::kNormal, WindowState::kMinimized}) {
    EXPECT_EQ(loaded.session.StateChanged(state), WindowChange::kNone);
  }
  EXPECT_EQ(loaded.Stored("Maximized"), "False");
  EXPECT_FALSE(loaded.area.isShown);
}

// ---- A picture.

TEST(ReminderStart, ForAPictureNothingIsClaimedAndTheFileIsOnlyRead) {
  const std::string events = "11.01,Long gone,0,one2014\r\n12.25,Christmas,2,yearly*\r\n";
  SessionDesk desk(events);
  desk.instance.anotherRuns = true;
  desk.Set("Customizer", "JustExited", "True");
  desk.Set("Options", "ShowOnlyIfEventsInRange", "True");
  desk.shiftKey.down = true;  // as the program has it for a picture
  EXPECT_EQ(desk.session.Load(desk.screens, "", StartFor::kPicture), WindowChange::kNone);
  EXPECT_THAT(desk.List(), ElementsAre("12/22/2014   <TODAY>"));
  EXPECT_THAT(desk.Logged("claim"), IsEmpty());
  EXPECT_THAT(desk.Logged("stage"), IsEmpty());
  EXPECT_THAT(desk.messages.boxes, IsEmpty());
  EXPECT_EQ(desk.Stored("JustExited", "Customizer"), "True");
  EXPECT_EQ(desk.file(), events);
}

TEST(ReminderStart, ForAPictureAMissingFileIsNotCreated) {
  SessionDesk desk;
  EXPECT_EQ(desk.session.Load(desk.screens, "", StartFor::kPicture), WindowChange::kNone);
  EXPECT_THAT(desk.Logged("create"), IsEmpty());
  EXPECT_THAT(desk.messages.boxes, IsEmpty());
  EXPECT_EQ(desk.session.builder().readStatus().kind(), StatusKind::kNotFound);
  EXPECT_EQ(desk.complaints.size(), 1U);
}

// ---- One copy.

struct HandBack {
  std::string stored;  // "(missing)" for nothing
  std::vector<LoggedMessages::Box> boxes;
  std::string after;
};

TEST(ReminderStart, ASecondCopyEndsInOneOfThreeWays) {
  const std::vector<HandBack> cases{
      {"(missing)", {kRunning}, "(missing)"},
      {"false", {}, "false"},
      {"False", {}, "False"},
      {"FALSE", {}, "FALSE"},
      {"true", {kRestart}, "(missing)"},
      {"True", {kRestart}, "(missing)"},
      {"TRUE", {kRestart}, "(missing)"},
      {"maybe", {kRunning}, "maybe"},
      {"1", {kRunning}, "1"},
      {"0", {kRunning}, "0"},
      {" true", {kRunning}, " true"},
  };
  for (const HandBack& c : cases) {
    SCOPED_TRACE(c.stored);
    SessionDesk desk;
    if (c.stored != "(missing)") desk.Set("Customizer", "JustExited", c.stored);
    desk.instance.anotherRuns = true;
    EXPECT_EQ(desk.Load(), WindowChange::kEnd);
    EXPECT_EQ(desk.messages.boxes, c.boxes);
    EXPECT_EQ(desk.Stored("JustExited", "Customizer"), c.after);
    EXPECT_EQ(desk.settings.writes, 0);
    EXPECT_THAT(desk.files.calls, IsEmpty());
    EXPECT_THAT(desk.area.calls, IsEmpty());
    EXPECT_EQ(desk.session.builds(), 0);
    EXPECT_FALSE(desk.session.isLoaded());
  }
}

TEST(ReminderStart, ASecondCopyDoesNothingButAnswerTheHandBack) {
  SessionDesk desk;
  desk.Set("Customizer", "JustExited", "True");
  desk.instance.anotherRuns = true;
  EXPECT_EQ(desk.Load(), WindowChange::kEnd);
  EXPECT_THAT(desk.log, ElementsAre("claim", "get Customizer/JustExited",
                                    "delete Customizer/JustExited", "box " + kRestart.text));
  desk.log.clear();
  EXPECT_EQ(desk.Load(), WindowChange::kEnd);
  EXPECT_THAT(desk.log, ElementsAre("claim", "get Customizer/JustExited", "box " + kRunning.text));
}

TEST(ReminderStart, TheOnlyCopyRemovesWhateverWasHandedBack) {
  for (const std::string stored : {"true", "False", "x", " "}) {
    SCOPED_TRACE(stored);
    SessionDesk desk("");
    desk.Set("Customizer", "JustExited", stored);
    EXPECT_EQ(desk.Load(), WindowChange::kNone);
    EXPECT_EQ(desk.Stored("JustExited", "Customizer"), "(missing)");
    EXPECT_THAT(desk.messages.boxes, IsEmpty());
  }
  SessionDesk desk("");
  EXPECT_EQ(desk.Load(), WindowChange::kNone);
  EXPECT_EQ(desk.Stored("JustExited", "Customizer"), "(missing)");
  EXPECT_THAT(desk.Logged("delete Customizer"), IsEmpty());
}

// ---- The events file.

struct PathCase {
  PathStyle style = PathStyle::kPosix;
  std::string stored;  // empty for none
  std::string after;
  std::string path;
};

TEST(ReminderStart, FindsTheEventsFile) {
  const PathStyle posix = PathStyle::kPosix;
  const PathStyle windows = PathStyle::kWindows;
  const std::vector<PathCase> cases{
      {posix, "", "/opt/tidewarden/dates.txt", "/opt/tidewarden/dates.txt"},
      {posix, "mydates", "mydates.txt", "/opt/tidewarden/mydates.txt"},
      {posix, "MyDates.TXT", "MyDates.TXT", "/opt/tidewarden/MyDates.TXT"},
      {posix, "\\sub\\dates.txt", "\\sub\\dates.txt", "/opt/tidewarden/sub/dates.txt"},
      {posix, "/home/Ann/my dates", "/home/Ann/my dates.txt", "/home/Ann/my dates.txt"},
      {windows, "", "C:\\Tide\\dates.txt", "C:\\Tide\\dates.txt"},
      {windows, "mydates", "mydates.txt", "C:\\Tide\\mydates.txt"},
      {windows, "\\sub\\dates.txt", "\\sub\\dates.txt", "C:\\Tide\\sub\\dates.txt"},
      {windows, "D:\\Ann\\dates.txt", "D:\\Ann\\dates.txt", "D:\\Ann\\dates.txt"},
  };
  for (const PathCase& c : cases) {
    SCOPED_TRACE(c.stored);
    SessionDesk desk(c.style);
    desk.Set("Settings", "Path", c.stored);
    desk.files.files[c.path] = "12.25,Christmas,14,yearly\r\n";
    EXPECT_EQ(desk.Load(), WindowChange::kNone);
    EXPECT_EQ(desk.session.EventsFilePath(), c.path);
    EXPECT_EQ(desk.Stored("Path"), c.after);
    EXPECT_EQ(desk.List().size(), 2U);
    EXPECT_THAT(desk.messages.boxes, IsEmpty());
  }
}

TEST(ReminderStart, EventsGoToTheUsersFolderWhereTheProgramsTakesNoFiles) {
  SessionDesk desk;
  desk.Set("Settings", "Path", "");
  desk.files.unwritableFolders = {"/opt/tidewarden"};
  EXPECT_EQ(desk.Load(), WindowChange::kNone);
  EXPECT_EQ(desk.session.EventsFilePath(), "/home/ann/data/dates.txt");
  EXPECT_EQ(desk.Stored("Path"), "/home/ann/data/dates.txt");
  EXPECT_EQ(desk.files.files.count("/home/ann/data/dates.txt"), 1U);
}

TEST(ReminderStart, AFileThatIsNamedByTheCallerLeavesThePathAlone) {
  SessionDesk desk;
  desk.Set("Settings", "Path", "mydates");
  desk.files.files["/home/ann/other"] = "12.25,Christmas,14,yearly\r\n";
  EXPECT_EQ(desk.session.Load(desk.screens, "/home/ann/other"), WindowChange::kNone);
  EXPECT_EQ(desk.session.EventsFilePath(), "/home/ann/other");
  EXPECT_EQ(desk.Stored("Path"), "mydates");
  EXPECT_EQ(desk.List().size(), 2U);
}

TEST(ReminderStart, AMissingFileIsToldOfAndCreated) {
  SessionDesk desk;
  EXPECT_EQ(desk.Load(), WindowChange::kNone);
  EXPECT_THAT(desk.messages.Texts(),
              ElementsAre("\"/home/ann/dates.txt\" does not exist.\n\nTidewarden will now start "
                          "from scratch with a new /home/ann/dates.txt file."));
  EXPECT_EQ(desk.file(), "");
  EXPECT_THAT(desk.List(), ElementsAre("12/22/2014   <TODAY>"));
}

TEST(ReminderStart, AFileThatCannotBeReadIsNeitherWrittenNorHiddenFromTheUser) {
  SessionDesk desk("12.25,Christmas,14,yearly\r\n");
  desk.files.failures[kSessionPath] = StatusKind::kNoPermission;
  EXPECT_EQ(desk.Load(), WindowChange::kNone);
  EXPECT_THAT(desk.List(), ElementsAre("12/22/2014   <TODAY>"));
  EXPECT_EQ(desk.files.CountCalls("stage") + desk.files.CountCalls("create"), 0);
  ASSERT_EQ(desk.complaints.size(), 1U);
  EXPECT_THAT(desk.complaints[0], ::testing::HasSubstr(kSessionPath));
}

// ---- What ends the start.

TEST(ReminderStart, AnUnsupportedLayoutEndsBeforeAnyEventsFileIsOpenedOrCreated) {
  for (const bool exists : {false, true}) {
    SCOPED_TRACE(exists);
    SessionDesk desk;
    if (exists) desk.files.files[kSessionPath] = "12.21,Gone,7,one2014\r\n";
    desk.formats.shortDate = "Thursday";
    EXPECT_EQ(desk.Load(), WindowChange::kEnd);
    EXPECT_EQ(desk.messages.boxes,
              (std::vector<LoggedMessages::Box>{
                  {"Please forgive our humble little freeware offering, but your regional setting "
                   "currently\nis not supported by Tidewarden.  Please email us your Short Date "
                   "setting as listed in\nControl Panel | Regional Options and we will work to add "
                   "support for your Regional Settings.",
                   MessageButtons::kOk, MessageIcon::kNone}}));
    EXPECT_THAT(desk.files.calls, IsEmpty());
    EXPECT_EQ(desk.files.files.size(), exists ? 1U : 0U);
    EXPECT_EQ(desk.log.back(), "box " + desk.messages.boxes[0].text);
    EXPECT_FALSE(desk.session.isLoaded());
  }
}

TEST(ReminderStart, EndsWhenNothingIsInRangeAndOnlyThenIsNothingElseDone) {
  struct Case {
    std::string option;
    std::string events;
    bool shift;
    bool ends;
  };
  const std::string far = "01.25,Far,3,yearly\r\n";
  const std::vector<Case> cases{
      {"True", far, false, true},
      {"TRUE", far, false, true},
      {"True", "", false, true},
      {"True", far, true, false},
      {"True", "12.25,Near,3,yearly\r\n", false, false},
      {"False", far, false, false},
      {"yes", far, false, false},
      {"1", far, false, false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.option + (c.shift ? " with Shift: " : ": ") + c.events);
    SessionDesk desk(c.events);
    desk.Set("Options", "ShowOnlyIfEventsInRange", c.option);
    desk.shiftKey.down = c.shift;
    EXPECT_EQ(desk.Load(), c.ends ? WindowChange::kEnd : WindowChange::kNone);
    EXPECT_EQ(desk.session.isLoaded(), !c.ends);
    EXPECT_EQ(desk.Logged("get Settings/Left").size(), c.ends ? 0U : 1U);
    EXPECT_EQ(desk.Logged("get Settings/TimerInterval").size(), c.ends ? 0U : 1U);
    EXPECT_EQ(desk.Logged("get Options/ShowDailyQuotes").size(), c.ends ? 0U : 1U);
    EXPECT_FALSE(desk.area.isShown);
    EXPECT_THAT(desk.messages.boxes, IsEmpty());
  }
}

TEST(ReminderStart, AMissingFileIsNoReasonToEnd) {
  SessionDesk desk;
  desk.Set("Options", "ShowOnlyIfEventsInRange", "True");
  EXPECT_EQ(desk.Load(), WindowChange::kNone);
  EXPECT_EQ(desk.messages.boxes.size(), 1U);
}

// ---- What the steps find.

TEST(ReminderStart, TheIconWaitsUnseenWithItsTooltip) {
  SessionDesk desk("");
  ASSERT_EQ(desk.Load(), WindowChange::kNone);
  EXPECT_EQ(desk.session.tIcon().Tooltip(),
            "For \"always on\" computers,\r\nTidewarden reminders pop up each day.");
  EXPECT_FALSE(desk.session.tIcon().Visible());
  EXPECT_THAT(desk.area.calls, IsEmpty());
}

TEST(ReminderStart, TheCaptionKeepsItsLetterCase) {
  SessionDesk desk("");
  ASSERT_EQ(desk.Load(), WindowChange::kNone);
  EXPECT_EQ(desk.session.caption(), "Your Tidewarden Upcoming Events");
  SessionDesk named("");
  named.Set("Options", "TitlebarText", "Was ANSTEHT");
  ASSERT_EQ(named.Load(), WindowChange::kNone);
  EXPECT_EQ(named.session.caption(), "Was ANSTEHT");
}

TEST(ReminderStart, TheDateLabelIsShownUnlessSwitchedOff) {
  for (const auto& [stored, shows] : std::vector<std::pair<std::string, bool>>{
           {"", true}, {"True", true}, {"maybe", true}, {"False", false}, {"FALSE", false}}) {
    SCOPED_TRACE(stored);
    SessionDesk desk("");
    desk.Set("Options", "ShowTodaysDateBeneathReminders", stored);
    ASSERT_EQ(desk.Load(), WindowChange::kNone);
    EXPECT_EQ(desk.session.showsDateLabel(), shows);
    EXPECT_EQ(desk.session.dateLabel(), "12/22/2014");
  }
}

TEST(ReminderStart, TheTimersIntervalIsKeptBetweenASecondAndAMinute) {
  const std::vector<std::pair<std::string, int>> cases{
      {"", 60000},       {"60000", 60000},   {"500", 1000},
      {"120000", 60000}, {"abc", 1000},      {"-5", 1000},
      {"0", 1000},       {"999", 1000},      {"999.9", 1000},
      {"1000", 1000},    {"1001", 1001},     {"1500.9", 1500},
      {"59999", 59999},  {"60001", 60000},   {"99999999999", 60000},
      {"2e4", 1000},     {"15000 ms", 15000}};
  for (const auto& [stored, interval] : cases) {
    SCOPED_TRACE(stored);
    SessionDesk desk("");
    desk.Set("Settings", "TimerInterval", stored);
    ASSERT_EQ(desk.Load(), WindowChange::kNone);
    EXPECT_EQ(desk.session.timerInterval(), interval);
    EXPECT_EQ(desk.Stored("TimerInterval"), stored.empty() ? "60000" : stored);
  }
}

TEST(ReminderStart, AMinutesTimerDoesNotStartAtAChangeOfMinute) {
  const std::vector<std::tuple<std::string, int, int>> cases{
      {"60000", 58, 0}, {"60000", 59, 2000}, {"60000", 0, 2000}, {"60000", 1, 0},
      {"60000", 30, 0}, {"59999", 59, 0},    {"1000", 0, 0},
  };
  for (const auto& [stored, second, delay] : cases) {
    SCOPED_TRACE(stored + " at second " + std::to_string(second));
    SessionDesk desk("");
    desk.Set("Settings", "TimerInterval", stored);
    desk.clock.now.second = second;
    ASSERT_EQ(desk.Load(), WindowChange::kNone);
    EXPECT_EQ(desk.session.timerDelay(), delay);
  }
}

TEST(ReminderStart, ANewWindowStandsInTheMiddleAlmost) {
  SessionDesk desk("");
  ASSERT_EQ(desk.Load(), WindowChange::kNone);
  EXPECT_FALSE(desk.session.placement().maximized);
  EXPECT_EQ(desk.session.placement().area, (WindowArea{12172, 7035, 4425, 2025}));
  EXPECT_EQ(desk.session.leastHeight(), 2130);
}

TEST(ReminderStart, AMaximizedWindowReadsNoPlace) {
  SessionDesk desk("");
  desk.Set("Settings", "Maximized", "TRUE");
  ASSERT_EQ(desk.Load(), WindowChange::kNone);
  EXPECT_TRUE(desk.session.placement().maximized);
  EXPECT_EQ(desk.Stored("Left"), "(missing)");
}

TEST(ReminderStart, TheQuoteRaisesTheLeastHeight) {
  SessionDesk desk("");
  desk.Set("Options", "ShowDailyQuotes", "True");
  desk.Set("Options", "QuotesPath", "/q.txt");
  desk.files.files["/q.txt"] = "// header\nFirst\nSecond\n";
  ASSERT_EQ(desk.Load(), WindowChange::kNone);
  EXPECT_TRUE(desk.session.quote().visible());
  EXPECT_EQ(desk.session.quote().text(), "First");
  EXPECT_EQ(desk.session.leastHeight(), 2130 + 1515);
}

TEST(ReminderStart, FontColoursAndSkinComeFromTheSettings) {
  SessionDesk desk("");
  desk.Set("Settings", "FontName", "DejaVu Sans");
  desk.Set("Settings", "FontSize", "14");
  desk.Set("Options", "ReminderListColors", "random");
  desk.files.files["/opt/tidewarden/winaqua.skn"] = "QWidget { color: black; }";
  desk.random.draws = {0.1};  // the second name
  desk.clock.now = {On(2014, 12, 22), 1, 2, 3};
  ASSERT_EQ(desk.Load(), WindowChange::kNone);
  EXPECT_EQ(desk.session.listFont().name, "DejaVu Sans");
  EXPECT_EQ(desk.session.listFont().size, 14);
  EXPECT_EQ(desk.session.listColours().background, (Colour{0xCC, 0, 0}));
  EXPECT_EQ(desk.session.skin(), "QWidget { color: black; }");
  EXPECT_THAT(desk.random.seeds, ElementsAre(3723));
}

}  // namespace
}  // namespace tidewarden::test
