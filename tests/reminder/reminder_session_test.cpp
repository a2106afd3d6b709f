// The life of the reminder window after its start: new days, the notification area, and closing.
#include "reminder/reminder_session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "tests/reminder/session_desk.h"

namespace tidewarden::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::string kChristmas = "12.25,Christmas,14,yearly\r\n";
const std::string kDentist = "12.22,Dentist 3:30pm,0,yearly\r\n";

// ---- A new day.

TEST(NewDay, ComesWithTheFirstTickAtOrAfterItsOffset) {
  SessionDesk desk(kChristmas);
  desk.Set("Options", "NewDateOffset", "0600");
  desk.Start();
  EXPECT_EQ(desk.TickAt(2014, 12, 22, 23, 59), WindowChange::kNone);
  EXPECT_EQ(desk.TickAt(2014, 12, 23, 0, 0), WindowChange::kNone);
  EXPECT_EQ(desk.TickAt(2014, 12, 23, 5, 59), WindowChange::kNone);
  EXPECT_EQ(desk.session.builds(), 1);
  EXPECT_EQ(desk.session.dateLabel(), "12/22/2014");
  EXPECT_EQ(desk.TickAt(2014, 12, 23, 6, 0), WindowChange::kNone);
  EXPECT_EQ(desk.session.builds(), 2);
  EXPECT_EQ(desk.session.dateLabel(), "12/23/2014");
  EXPECT_EQ(desk.TickAt(2014, 12, 23, 6, 1), WindowChange::kNone);
  EXPECT_EQ(desk.session.builds(), 2);
  EXPECT_EQ(desk.TickAt(2014, 12, 26, 7, 30), WindowChange::kNone);
  EXPECT_EQ(desk.session.builds(), 3);
}

struct OffsetCase {
  std::string stored;
  std::pair<int, int> tooEarly;  // {-1, 0} when no time is
  std::pair<int, int> inTime;    // {-1, 0} when no time is
};

TEST(NewDay, TakesTheOffsetAsItIsWritten) {
  const std::pair<int, int> none{-1, 0};
  const std::vector<OffsetCase> cases{
      {"", none, {0, 0}},           {"0000", none, {0, 0}},          {"abc", none, {0, 0}},
      {"0001", {0, 0}, {0, 1}},     {"6:30", {0, 5}, {0, 6}},        {"630", {6, 29}, {6, 30}},
      {"0630.9", {6, 29}, {6, 30}}, {"2359", {23, 58}, {23, 59}},    {"0975", {9, 59}, {10, 0}},
      {"2400", {23, 59}, none},     {"99999999999", {23, 59}, none}, {"-5", none, {0, 0}},
  };
  for (const OffsetCase& c : cases) {
    SCOPED_TRACE(c.stored);
    SessionDesk desk(kChristmas);
    desk.Set("Options", "NewDateOffset", c.stored);
    desk.Start();
    if (c.tooEarly.first >= 0) {
      static_cast<void>(desk.TickAt(2014, 12, 23, c.tooEarly.first, c.tooEarly.second));
      EXPECT_EQ(desk.session.builds(), 1);
    }
    if (c.inTime.first >= 0) {
      static_cast<void>(desk.TickAt(2014, 12, 23, c.inTime.first, c.inTime.second));
      EXPECT_EQ(desk.session.builds(), 2);
    }
  }
}

TEST(NewDay, AnotherRebuildDoesNotTakeItsPlace) {
  SessionDesk desk(kChristmas + "12.26,Boxing Day,14,yearly\r\n");
  desk.Set("Options", "NewDateOffset", "0600");
  desk.Start();
  desk.SetNow(2014, 12, 23, 0, 30);
  desk.MenuOn("Christmas");
  EXPECT_EQ(desk.session.DeleteThis(), WindowChange::kNone);
  EXPECT_EQ(desk.session.Restore(), WindowChange::kRestore);
  EXPECT_EQ(desk.session.builds(), 3);
  EXPECT_EQ(desk.TickAt(2014, 12, 23, 5, 59, WindowState::kMinimized), WindowChange::kNone);
  EXPECT_EQ(desk.TickAt(2014, 12, 23, 6, 0, WindowState::kMinimized), WindowChange::kPopUp);
  EXPECT_EQ(desk.session.builds(), 4);
}

TEST(NewDay, AClockSetBackWaitsUntilItsDateHasPassedAgain) {
  SessionDesk desk(kChristmas);
  desk.Start();
  for (const int day : {21, 20, 21, 22}) {
    EXPECT_EQ(desk.TickAt(2014, 12, day, 12, 0), WindowChange::kNone);
    EXPECT_EQ(desk.session.builds(), 1);
  }
  EXPECT_EQ(desk.TickAt(2013, 12, 31, 12, 0), WindowChange::kNone);
  EXPECT_EQ(desk.session.builds(), 1);
  EXPECT_EQ(desk.TickAt(2014, 12, 23, 0, 0), WindowChange::kNone);
  EXPECT_EQ(desk.session.builds(), 2);
}

struct PopUpCase {
  std::string name;
  bool inTray;
  bool behindEditor;
  WindowState window;
  WindowChange change;
};

TEST(NewDay, FetchesAWindowThatCannotBeSeenUnlessTheEditorStandsBeforeIt) {
  const std::vector<PopUpCase> cases{
      {"normal", false, false, WindowState::kNormal, WindowChange::kNone},
      {"maximized", false, false, WindowState::kMaximized, WindowChange::kNone},
      {"minimized", false, false, WindowState::kMinimized, WindowChange::kPopUp},
      {"in the tray", true, false, WindowState::kMinimized, WindowChange::kPopUp},
      // A hidden window may say anything of its state.
      {"in the tray, said to be normal", true, false, WindowState::kNormal, WindowChange::kPopUp},
      {"behind the editor", false, true, WindowState::kNormal, WindowChange::kNone},
      {"behind the editor, minimized", false, true, WindowState::kMinimized, WindowChange::kNone},
  };
  for (const PopUpCase& c : cases) {
    SCOPED_TRACE(c.name);
    SessionDesk desk(kChristmas);
    desk.Start();
    if (c.inTray) {
      ASSERT_EQ(desk.session.StateChanged(WindowState::kMinimized), WindowChange::kHide);
    }
    if (c.behindEditor) {
      ASSERT_EQ(desk.session.GoToEdit(desk.here), WindowChange::kHide);
    }
    EXPECT_EQ(desk.TickAt(2014, 12, 23, 0, 0, c.window), c.change);
    EXPECT_EQ(desk.session.builds(), 2);
    EXPECT_EQ(desk.session.dateLabel(), "12/23/2014");
    EXPECT_FALSE(desk.area.isShown);
    EXPECT_FALSE(desk.session.tIcon().Visible());
    // Once is enough.
    EXPECT_EQ(desk.TickAt(2014, 12, 23, 0, 1, WindowState::kNormal), WindowChange::kNone);
  }
}

TEST(NewDay, ShowsTheWindowBeforeTheListIsBuiltAndAnythingIsSaid) {
  SessionDesk desk(kChristmas);
  desk.Start();
  ASSERT_EQ(desk.session.StateChanged(WindowState::kMinimized), WindowChange::kHide);
  desk.files.files.clear();
  desk.log.clear();
  EXPECT_EQ(desk.TickAt(2014, 12, 23, 0, 0, WindowState::kMinimized), WindowChange::kPopUp);
  std::erase_if(desk.log, [](const std::string& entry) {
    return !entry.starts_with("icon") && entry != "pops up" && !entry.starts_with("open") &&
           !entry.starts_with("box");
  });
  ASSERT_EQ(desk.log.size(), 5U);
  EXPECT_THAT(Log(desk.log.begin(), desk.log.begin() + 3),
              ElementsAre("icon goes", "pops up", "open /home/ann/dates.txt"));
  EXPECT_EQ(desk.log.back(), "open /home/ann/dates.txt") << "once more behind the box";
  EXPECT_EQ(desk.session.dateLabel(), "12/23/2014");
}

TEST(NewDay, EndsTheProgramWhenNothingIsInRangeAnyMore) {
  SessionDesk desk(kChristmas);
  desk.Set("Options", "ShowOnlyIfEventsInRange", "True");
  desk.Start();
  ASSERT_EQ(desk.session.StateChanged(WindowState::kMinimized), WindowChange::kHide);
  desk.shiftKey.down = true;
  EXPECT_EQ(desk.TickAt(2015, 1, 1, 0, 0, WindowState::kMinimized), WindowChange::kPopUp);
  ASSERT_EQ(desk.session.StateChanged(WindowState::kMinimized), WindowChange::kHide);
  desk.shiftKey.down = false;
  EXPECT_EQ(desk.TickAt(2015, 1, 2, 0, 0, WindowState::kMinimized), WindowChange::kEnd);
  EXPECT_FALSE(desk.area.isShown);
  EXPECT_THAT(desk.messages.boxes, IsEmpty());
}

TEST(NewDay, WaitsForAMessageThatIsLeftOpen) {
  SessionDesk desk(kChristmas);
  desk.Start();
  desk.files.files.clear();
  std::vector<WindowChange> ticks;
  desk.messages.whileOpen = [&] {
    ticks.push_back(desk.TickAt(2014, 12, 23, 0, 0, WindowState::kMinimized));
    ticks.push_back(desk.TickAt(2014, 12, 23, 0, 1, WindowState::kMinimized));
  };
  desk.SetNow(2014, 12, 22, 23, 59);
  EXPECT_EQ(desk.session.Restore(), WindowChange::kRestore);
  EXPECT_THAT(ticks, ElementsAre(WindowChange::kNone, WindowChange::kNone));
  EXPECT_EQ(desk.messages.boxes.size(), 1U);
  EXPECT_EQ(desk.session.builds(), 2);
  EXPECT_EQ(desk.TickAt(2014, 12, 23, 0, 2, WindowState::kMinimized), WindowChange::kPopUp);
  EXPECT_EQ(desk.session.builds(), 3);
  EXPECT_EQ(desk.session.dateLabel(), "12/23/2014");
  EXPECT_EQ(desk.messages.boxes.size(), 1U);
}

TEST(NewDay, WaitsForTheMessageOfAFileThatCannotBeChanged) {
  SessionDesk desk(kChristmas);
  desk.Start();
  desk.files.writeFailures[kSessionPath] = StatusKind::kNoSpace;
  int buildsInside = 0;
  desk.messages.whileOpen = [&] {
    static_cast<void>(desk.TickAt(2014, 12, 23, 0, 0));
    buildsInside = desk.session.builds();
  };
  desk.MenuOn("Christmas");
  EXPECT_EQ(desk.session.DeleteThis(), WindowChange::kNone);
  EXPECT_EQ(buildsInside, 1);
  EXPECT_EQ(desk.session.builds(), 2);
  EXPECT_EQ(desk.messages.boxes.size(), 1U);
  static_cast<void>(desk.TickAt(2014, 12, 23, 0, 1));
  EXPECT_EQ(desk.session.builds(), 3);
}

TEST(Restore, DoesNotBuildInsideABuild) {
  SessionDesk desk(kChristmas);
  desk.Start();
  desk.files.files.clear();
  std::vector<WindowChange> inside;
  desk.messages.whileOpen = [&] { inside.push_back(desk.session.Restore()); };
  EXPECT_EQ(desk.session.Restore(), WindowChange::kRestore);
  EXPECT_THAT(inside, ElementsAre(WindowChange::kRestore));
  EXPECT_EQ(desk.messages.boxes.size(), 1U);
  EXPECT_EQ(desk.session.builds(), 2);
  EXPECT_THAT(desk.List(), ElementsAre("12/22/2014   <TODAY>"));
}

// ---- The notification area.

TEST(Tray, TakesAMinimizedWindowAndSavesNoPlacement) {
  SessionDesk desk(kChristmas);
  desk.Start();
  EXPECT_EQ(desk.session.StateChanged(WindowState::kMinimized), WindowChange::kHide);
  EXPECT_TRUE(desk.area.isShown);
  EXPECT_TRUE(desk.session.tIcon().Visible());
  EXPECT_EQ(desk.session.SendToTray(), WindowChange::kNone);
  EXPECT_EQ(desk.area.calls.back().tooltip,
            "For \"always on\" computers,\r\nTidewarden reminders pop up each day.");
  EXPECT_EQ(desk.settings.writes, 0);
  EXPECT_EQ(desk.session.builds(), 1);
}

TEST(Tray, TakesTheWindowAtOnceWhateverTheDesktopTellsOfIt) {
  SessionDesk desk(kDentist);
  desk.messages.answer = MessageAnswer::kCancel;
  desk.Start();
  EXPECT_EQ(desk.session.SendToTray(), WindowChange::kHide);
  EXPECT_TRUE(desk.area.isShown);
  EXPECT_TRUE(desk.session.tIcon().Visible());
  EXPECT_THAT(desk.area.Messages(), ElementsAre("add"));
  EXPECT_EQ(desk.settings.writes, 0);
  EXPECT_EQ(desk.session.builds(), 1);

  // A state that is told late changes nothing, and the button has done its work.
  EXPECT_EQ(desk.session.StateChanged(WindowState::kMinimized), WindowChange::kHide);
  EXPECT_EQ(desk.session.SendToTray(), WindowChange::kNone);
  EXPECT_THAT(desk.area.Messages(), ElementsAre("add"));

  // The rules of a minimized window hold, although the desktop says that it is normal.
  EXPECT_EQ(desk.TickAt(2014, 12, 23, 0, 0, WindowState::kNormal), WindowChange::kPopUp);
  EXPECT_FALSE(desk.area.isShown);
  EXPECT_EQ(desk.session.SendToTray(), WindowChange::kHide);
  EXPECT_TRUE(desk.session.Close(WindowState::kNormal, CloseReason::kUser));
  EXPECT_THAT(desk.messages.boxes, IsEmpty());
}

TEST(Tray, WithoutAnAreaTheWindowIsOnlyMinimized) {
  SessionDesk desk(kChristmas);
  desk.area.available = false;
  desk.Start();
  EXPECT_EQ(desk.session.SendToTray(), WindowChange::kMinimize);
  EXPECT_FALSE(desk.session.tIcon().Visible());
  EXPECT_EQ(desk.session.StateChanged(WindowState::kMinimized), WindowChange::kNone);
  EXPECT_THAT(desk.area.calls, IsEmpty());
  EXPECT_EQ(desk.TickAt(2014, 12, 22, 14, 26, WindowState::kMinimized), WindowChange::kNone);
  EXPECT_EQ(desk.session.StateChanged(WindowState::kNormal), WindowChange::kNone);
}

// There is one, but its program is too busy to take the icon.
TEST(Tray, AWindowWithoutAnIconIsNotHidden) {
  SessionDesk desk(kChristmas);
  desk.area.refusesIcons = true;
  desk.Start();
  EXPECT_EQ(desk.session.StateChanged(WindowState::kMinimized), WindowChange::kNone);
  EXPECT_EQ(desk.session.SendToTray(), WindowChange::kMinimize);
  EXPECT_FALSE(desk.session.tIcon().Visible());
  EXPECT_FALSE(desk.area.isShown);
  desk.area.refusesIcons = false;
  EXPECT_EQ(desk.session.SendToTray(), WindowChange::kHide);
  EXPECT_TRUE(desk.area.isShown);
}

TEST(Tray, AWindowComesBackToTheTaskListWhenTheAreaIsGone) {
  SessionDesk desk(kChristmas);
  desk.Start();
  ASSERT_EQ(desk.session.StateChanged(WindowState::kMinimized), WindowChange::kHide);
  EXPECT_EQ(desk.TickAt(2014, 12, 22, 14, 26, WindowState::kMinimized), WindowChange::kNone);
  desk.area.available = false;
  EXPECT_EQ(desk.TickAt(2014, 12, 22, 14, 27, WindowState::kMinimized),
            WindowChange::kShowMinimized);
  EXPECT_FALSE(desk.session.tIcon().Visible()) << "no icon for a window in the task list";
  EXPECT_EQ(desk.TickAt(2014, 12, 22, 14, 28, WindowState::kMinimized), WindowChange::kNone);
  desk.area.available = true;
  EXPECT_EQ(desk.TickAt(2014, 12, 22, 14, 29, WindowState::kMinimized), WindowChange::kNone);
  EXPECT_FALSE(desk.session.tIcon().Visible());
}

TEST(Tray, ANewDayWithoutTheAreaPopsTheWindowUp) {
  SessionDesk desk(kChristmas);
  desk.Start();
  ASSERT_EQ(desk.session.StateChanged(WindowState::kMinimized), WindowChange::kHide);
  desk.area.available = false;
  EXPECT_EQ(desk.TickAt(2014, 12, 23, 0, 0, WindowState::kMinimized), WindowChange::kPopUp);
}

TEST(Restore, HidesTheIconBuildsColoursAndThenShows) {
  SessionDesk desk(kChristmas);
  desk.Start();
  ASSERT_EQ(desk.session.StateChanged(WindowState::kMinimized), WindowChange::kHide);
  desk.log.clear();
  desk.Set("Options", "ReminderListColors", "blue");
  desk.Set("Settings", "Maximized", "True");
  EXPECT_EQ(desk.session.Restore(), WindowChange::kRestore);
  const Log steps{"icon goes", "open /home/ann/dates.txt", "get Options/ReminderListColors",
                  "get Settings/Maximized"};
  Log found;
  std::copy_if(desk.log.begin(), desk.log.end(), std::back_inserter(found),
               [&](const std::string& entry) {
                 return std::find(steps.begin(), steps.end(), entry) != steps.end();
               });
  EXPECT_EQ(found, steps);
  EXPECT_EQ(desk.session.listColours().background, (Colour{0, 0, 0x99}));
  EXPECT_TRUE(desk.session.placement().maximized);
  EXPECT_EQ(desk.session.builds(), 2);

  desk.Set("Settings", "Maximized", "False");
  EXPECT_EQ(desk.session.Restore(), WindowChange::kRestore);
  EXPECT_FALSE(desk.session.placement().maximized);
}

TEST(Restore, DrawsRandomColoursAnewAndKeepsTheSetting) {
  SessionDesk desk(kChristmas);
  desk.Set("Options", "ReminderListColors", "Random");
  desk.random.draws = {0.0, 0.999};
  desk.Start();
  EXPECT_EQ(desk.session.listColours(), ColoursOf("pale red"));
  EXPECT_EQ(desk.session.Restore(), WindowChange::kRestore);
  EXPECT_EQ(desk.session.listColours(), ListColours{});
  EXPECT_EQ(desk.Stored("ReminderListColors", "Options"), "Random");
}

TEST(Restore, MayEndTheProgram) {
  SessionDesk desk(kChristmas);
  desk.Set("Options", "ShowOnlyIfEventsInRange", "True");
  desk.Start();
  desk.files.files[kSessionPath] = "";
  EXPECT_EQ(desk.session.Restore(), WindowChange::kEnd);
}

// ---- The window's state and place.

TEST(WindowStates, AreRemembered) {
  SessionDesk desk("");
  desk.Start();
  EXPECT_EQ(desk.session.StateChanged(WindowState::kNormal), WindowChange::kNone);
  EXPECT_EQ(desk.settings.writes, 0);
  EXPECT_EQ(desk.session.StateChanged(WindowState::kMaximized), WindowChange::kNone);
  EXPECT_EQ(desk.Stored("Maximized"), "True");
  EXPECT_EQ(desk.session.StateChanged(WindowState::kNormal), WindowChange::kNone);
  EXPECT_EQ(desk.Stored("Maximized"), "False");
}

TEST(WindowStates, AMaximizedStartFindsItsPlaceOnce) {
  SessionDesk desk("");
  desk.Set("Settings", "Maximized", "True");
  desk.Set("Settings", "Left", "1500");
  desk.Set("Settings", "Top", "3000");
  desk.Set("Settings", "Width", "6000");
  desk.Set("Settings", "Height", "4500");
  desk.Start();
  EXPECT_EQ(desk.session.StateChanged(WindowState::kMaximized), WindowChange::kNone);
  EXPECT_EQ(desk.session.StateChanged(WindowState::kNormal), WindowChange::kPlace);
  EXPECT_EQ(desk.session.placement().area, (WindowArea{1500, 3000, 6000, 4500}));
  EXPECT_FALSE(desk.session.placement().maximized);
  EXPECT_EQ(desk.Stored("Maximized"), "False");
  EXPECT_EQ(desk.session.StateChanged(WindowState::kMaximized), WindowChange::kNone);
  EXPECT_EQ(desk.session.StateChanged(WindowState::kNormal), WindowChange::kNone);
}

TEST(WindowStates, AReleaseOverTheBareWindowSavesItsPlace) {
  SessionDesk desk("");
  desk.Start();
  desk.session.SurfaceReleased(desk.here);
  EXPECT_THAT(
      desk.Logged("set"),
      ElementsAre("set Settings/Maximized=False", "set Settings/Left=1500", "set Settings/Top=3000",
                  "set Settings/Width=6000", "set Settings/Height=4500"));
}

// ---- Screens that come and go.

const WindowArea kSecondScreen{28800, 0, 19200, 12000};

TEST(ScreensChanged, AWindowOnNoScreenIsMovedOntoOneAndTheSettingsStay) {
  SessionDesk desk("");
  desk.screens.all.push_back(kSecondScreen);
  desk.Start();
  const WindowPlacement onSecond{WindowState::kNormal, {30000, 1500, 6000, 4500}};
  EXPECT_EQ(desk.session.ScreensChanged(desk.screens, onSecond), WindowChange::kNone);
  desk.screens.all.pop_back();
  EXPECT_EQ(desk.session.ScreensChanged(desk.screens, onSecond), WindowChange::kPlace);
  // (28800 - 6000) / 2 and (16200 - 4500) / 2.
  EXPECT_EQ(desk.session.placement().area, (WindowArea{11400, 5850, 6000, 4500}));
  EXPECT_FALSE(desk.session.placement().maximized);
  EXPECT_EQ(desk.settings.writes, 0);
}

TEST(ScreensChanged, AWindowLargerThanTheScreenBeginsAtItsCorner) {
  SessionDesk desk("");
  desk.Start();
  const Screens small{{300, 600, 9600, 7200}, {{300, 600, 9600, 7200}}, true};
  const WindowPlacement large{WindowState::kNormal, {30000, 1500, 15000, 9000}};
  EXPECT_EQ(desk.session.ScreensChanged(small, large), WindowChange::kPlace);
  EXPECT_EQ(desk.session.placement().area, (WindowArea{300, 600, 15000, 9000}));
}

TEST(ScreensChanged, LeavesAWindowThatCanBeSeenOrIsSeenTo) {
  SessionDesk desk("");
  desk.Start();
  Screens wayland = desk.screens;
  wayland.canPlaceWindows = false;
  const WindowArea gone{30000, 1500, 6000, 4500};
  // One pixel can be seen.
  const WindowArea edge{28785, 1500, 6000, 4500};
  EXPECT_EQ(desk.session.ScreensChanged(desk.screens, {WindowState::kNormal, edge}),
            WindowChange::kNone);
  EXPECT_EQ(desk.session.ScreensChanged(desk.screens, {WindowState::kMaximized, gone}),
            WindowChange::kNone);
  EXPECT_EQ(desk.session.ScreensChanged(wayland, {WindowState::kNormal, gone}),
            WindowChange::kNone);
  const Screens none{{}, {}, true};
  EXPECT_EQ(desk.session.ScreensChanged(none, {WindowState::kNormal, gone}), WindowChange::kNone);
}

TEST(ScreensChanged, AWindowThatComesUpStandsOnOne) {
  SessionDesk desk("");
  desk.Start();
  const WindowArea gone{30000, 1500, 6000, 4500};
  const WindowArea edge{28785, 1500, 6000, 4500};
  EXPECT_EQ(desk.session.AreaOnAScreen(edge), edge);
  EXPECT_EQ(desk.session.AreaOnAScreen(gone), (WindowArea{11400, 5850, 6000, 4500}));
  Screens wayland = desk.screens;
  wayland.canPlaceWindows = false;
  EXPECT_EQ(desk.session.ScreensChanged(wayland, {WindowState::kMaximized, kScreen}),
            WindowChange::kNone);
  EXPECT_EQ(desk.session.AreaOnAScreen(gone), gone);
}

TEST(ScreensChanged, TheNextPlacementKnowsThem) {
  for (const bool known : {false, true}) {
    SessionDesk desk("");
    desk.Set("Settings", "Maximized", "True");
    desk.Set("Settings", "Left", "30000");
    desk.Set("Settings", "Top", "3000");
    desk.Set("Settings", "Width", "6000");
    desk.Set("Settings", "Height", "4500");
    desk.Start();
    if (known) {
      desk.screens.all.push_back(kSecondScreen);
      EXPECT_EQ(desk.session.ScreensChanged(desk.screens, {WindowState::kMaximized, kScreen}),
                WindowChange::kNone);
    }
    EXPECT_EQ(desk.session.StateChanged(WindowState::kNormal), WindowChange::kPlace);
    // Without it the middle of the first screen, less half of a new window.
    EXPECT_EQ(desk.session.placement().area.left, known ? 30000 : (28800 - 4425) / 2);
  }
}

// ---- Closing.

TEST(Close, UnloadsTheEditorHidesTheIconAndLetsTheNextCopyRun) {
  SessionDesk desk(kChristmas);
  desk.Start();
  ASSERT_EQ(desk.session.GoToEdit(desk.here), WindowChange::kHide);
  desk.log.clear();
  EXPECT_TRUE(desk.session.Close(WindowState::kNormal, CloseReason::kUser));
  EXPECT_THAT(desk.log, ElementsAre("editor closes", "icon goes", "release"));
  EXPECT_EQ(desk.session.builds(), 1) << "nothing is handed back";
  EXPECT_THAT(desk.messages.boxes, IsEmpty());

  SessionDesk alone(kChristmas);
  alone.Start();
  EXPECT_TRUE(alone.session.Close(WindowState::kNormal, CloseReason::kUser));
  EXPECT_EQ(alone.editor.unloads, 0);
}

TEST(Close, MayBeCancelledForAnAlarmThatIsToCome) {
  SessionDesk desk(kDentist);
  desk.Start();
  ASSERT_EQ(desk.session.GoToEdit(desk.here), WindowChange::kHide);
  desk.log.clear();
  desk.messages.answer = MessageAnswer::kCancel;
  EXPECT_FALSE(desk.session.Close(WindowState::kNormal, CloseReason::kUser));
  ASSERT_EQ(desk.messages.boxes.size(), 1U);
  EXPECT_EQ(desk.messages.boxes[0].buttons, MessageButtons::kOkCancel);
  EXPECT_EQ(desk.log.size(), 1U) << "nothing but the question";
  EXPECT_EQ(desk.editor.unloads, 0);
  EXPECT_TRUE(desk.instance.claimed);

  desk.messages.answer = MessageAnswer::kOk;
  EXPECT_TRUE(desk.session.Close(WindowState::kNormal, CloseReason::kUser));
  EXPECT_EQ(desk.editor.unloads, 1);
  EXPECT_FALSE(desk.instance.claimed);
}

TEST(Close, AsksNothingAtALogoutOrFromTheTray) {
  SessionDesk desk(kDentist);
  desk.messages.answer = MessageAnswer::kCancel;
  desk.Start();
  EXPECT_TRUE(desk.session.Close(WindowState::kNormal, CloseReason::kLoginSessionEnds));

  SessionDesk inTray(kDentist);
  inTray.messages.answer = MessageAnswer::kCancel;
  inTray.Start();
  ASSERT_EQ(inTray.session.StateChanged(WindowState::kMinimized), WindowChange::kHide);
  EXPECT_TRUE(inTray.session.Close(WindowState::kNormal, CloseReason::kUser));
  EXPECT_THAT(inTray.messages.boxes, IsEmpty());
  EXPECT_FALSE(inTray.area.isShown);
}

}  // namespace
}  // namespace tidewarden::test
