// The way from the reminder list into the editor and back.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>

#include "reminder/reminder_session.h"
#include "tests/reminder/session_desk.h"

namespace tidewarden::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::string kChristmas = "12.25,Christmas,14,yearly\r\n";

TEST(Editor, OpensAfterThePlacementIsSavedAndHidesTheWindow) {
  SessionDesk desk(kChristmas);
  desk.Start();
  EXPECT_EQ(desk.session.GoToEdit(desk.here), WindowChange::kHide);
  EXPECT_THAT(desk.log, ElementsAre("set Settings/Maximized=False", "set Settings/Left=1500",
                                    "set Settings/Top=3000", "set Settings/Width=6000",
                                    "set Settings/Height=4500", "editor opens"));
  EXPECT_EQ(desk.editor.request(), std::pair(-1L, false));
  // A hidden window that calls itself minimized is not in the tray.
  EXPECT_EQ(desk.session.StateChanged(WindowState::kMinimized), WindowChange::kNone);
  EXPECT_FALSE(desk.area.isShown);

  desk.files.files[kSessionPath] += "12.26,Boxing Day,14,yearly\r\n";
  desk.editor.loaded = false;
  EXPECT_EQ(desk.session.Restore(), WindowChange::kRestore);
  EXPECT_NE(desk.RowWith("Boxing Day"), ReminderSession::kNoRow);
  EXPECT_EQ(desk.session.StateChanged(WindowState::kMinimized), WindowChange::kHide);
}

TEST(Editor, ARestoredOneTakesThePlaceOfTheWindowAgain) {
  SessionDesk desk(kChristmas);
  desk.Start();
  ASSERT_EQ(desk.session.GoToEdit(desk.here), WindowChange::kHide);
  // Minimized, it hands back and stays loaded.
  ASSERT_EQ(desk.session.Restore(), WindowChange::kRestore);
  EXPECT_EQ(desk.session.EditorRestored(), WindowChange::kHide);
  // Behind the editor the window is not in the tray, and no new day brings it up.
  EXPECT_EQ(desk.session.StateChanged(WindowState::kMinimized), WindowChange::kNone);
  EXPECT_FALSE(desk.area.isShown);
  EXPECT_EQ(desk.TickAt(2014, 12, 23, 0, 0, WindowState::kMinimized), WindowChange::kNone);

  ASSERT_EQ(desk.session.Restore(), WindowChange::kRestore);
  ASSERT_EQ(desk.session.SendToTray(), WindowChange::kHide);
  EXPECT_EQ(desk.session.EditorRestored(), WindowChange::kNone);
  EXPECT_TRUE(desk.area.isShown);

  desk.editor.loaded = false;
  ASSERT_EQ(desk.session.Restore(), WindowChange::kRestore);
  EXPECT_EQ(desk.session.EditorRestored(), WindowChange::kNone);
}

// The editor's next save writes a file that has vanished with all its events; one that has become
// empty it would take for a file without events.
TEST(Editor, AFileThatVanishesBesideItIsNotMadeAnewByANewDay) {
  SessionDesk desk(kChristmas + "12.23,Pill 0:02,0,yearly\r\n");
  desk.Start();
  ASSERT_EQ(desk.session.GoToEdit(desk.here), WindowChange::kHide);
  const std::string before = desk.file();
  desk.files.files.erase(kSessionPath);
  for (const int minute : {0, 1, 2}) {
    static_cast<void>(desk.TickAt(2014, 12, 23, 0, minute));
  }
  EXPECT_THAT(desk.List(), ElementsAre("12/23/2014   <TODAY>"));
  EXPECT_EQ(desk.session.builds(), 2);
  EXPECT_EQ(desk.session.Restore(), WindowChange::kRestore);
  EXPECT_EQ(desk.files.files.count(kSessionPath), 0);
  EXPECT_THAT(desk.Logged("create"), IsEmpty());
  EXPECT_THAT(desk.messages.boxes, IsEmpty());
  EXPECT_THAT(desk.complaints, ElementsAre(kSessionPath + ": the file does not exist"));

  desk.files.files[kSessionPath] = before;
  static_cast<void>(desk.TickAt(2014, 12, 23, 0, 4));
  static_cast<void>(desk.TickAt(2014, 12, 23, 0, 5));
  EXPECT_THAT(desk.alarmsShown, ElementsAre("\nPill 0:02\n"));
}

TEST(Editor, AFileThatVanishesBesideItIsToldOfAtItsReturn) {
  SessionDesk desk(kChristmas);
  desk.Start();
  ASSERT_EQ(desk.session.GoToEdit(desk.here), WindowChange::kHide);
  desk.files.files.erase(kSessionPath);
  EXPECT_EQ(desk.session.Restore(), WindowChange::kRestore);
  EXPECT_THAT(desk.messages.boxes, IsEmpty());
  desk.editor.loaded = false;
  EXPECT_EQ(desk.session.Restore(), WindowChange::kRestore);
  EXPECT_EQ(desk.messages.boxes.size(), 1U);
  EXPECT_EQ(desk.file(), "");
}

TEST(Editor, AChangeOfAFileThatVanishedBesideItIsToldToHaveFailed) {
  SessionDesk desk(kChristmas);
  desk.Start();
  ASSERT_EQ(desk.session.GoToEdit(desk.here), WindowChange::kHide);
  ASSERT_EQ(desk.session.Restore(), WindowChange::kRestore);
  desk.MenuOn("Christmas");
  desk.files.files.erase(kSessionPath);
  EXPECT_EQ(desk.session.HideThis(), WindowChange::kNone);
  EXPECT_THAT(desk.messages.Texts(),
              ElementsAre("The events file could not be changed:\n" + kSessionPath));
  EXPECT_EQ(desk.files.files.count(kSessionPath), 0);
}

TEST(Editor, EveryWayOfOpeningSetsBothRequests) {
  SessionDesk desk("hello\r\n" + kChristmas + "12.20,Pay rent,7,tdo2014\r\n");
  desk.Start();
  const auto open = [&](std::string_view text) {
    desk.session.SelectRow(desk.RowWith(text));
    return desk.session.DoubleClick(desk.here);
  };
  EXPECT_EQ(open("<TODAY>"), WindowChange::kHide);
  EXPECT_EQ(desk.editor.request(), std::pair(-1L, true));
  EXPECT_EQ(open("Christmas"), WindowChange::kHide);
  EXPECT_EQ(desk.editor.request(), std::pair(1L, false));
  EXPECT_EQ(open("<TODAY>"), WindowChange::kHide);
  EXPECT_EQ(desk.session.GoToEdit(desk.here), WindowChange::kHide);
  EXPECT_EQ(desk.editor.request(), std::pair(-1L, false));
  desk.MenuOn("Pay rent");
  EXPECT_EQ(desk.session.EditEvent(desk.here), WindowChange::kHide);
  EXPECT_EQ(desk.editor.request(), std::pair(2L, false));
  EXPECT_EQ(desk.editor.requests.size(), 5U);
}

TEST(Editor, TheTodayLineIsKnownInAnyLetterCase) {
  SessionDesk desk(kChristmas);
  desk.Set("Options", "CapitalizeTodaysEvents", "False");
  desk.Set("Options", "ShowDayOfWeek", "True");
  desk.Start();
  desk.session.SelectRow(desk.RowWith("   <Today is Monday>"));
  EXPECT_EQ(desk.session.DoubleClick(desk.here), WindowChange::kHide);
  EXPECT_EQ(desk.editor.request(), std::pair(-1L, true));
}

TEST(Editor, OnlyThreeBlanksMakeATitleLookLikeTodaysLine) {
  SessionDesk desk("12.24,Two  <today,9,yearly\r\n12.24,Three   <Today,9,yearly\r\n");
  desk.Start();
  desk.session.SelectRow(desk.RowWith("Two  <today"));
  EXPECT_EQ(desk.session.DoubleClick(desk.here), WindowChange::kHide);
  EXPECT_EQ(desk.editor.request(), std::pair(0L, false));
  desk.session.SelectRow(desk.RowWith("Three   <Today"));
  EXPECT_EQ(desk.session.DoubleClick(desk.here), WindowChange::kHide);
  EXPECT_EQ(desk.editor.request(), std::pair(-1L, true));
}

TEST(Editor, IsToldTheBytesOfTheLine) {
  SessionDesk desk("12.25,No\xEBl,14,yearly\r\n");
  desk.Start();
  desk.session.SelectRow(desk.RowWith("Noël"));
  EXPECT_EQ(desk.session.DoubleClick(desk.here), WindowChange::kHide);
  EXPECT_EQ(desk.editor.requests.back().rawLine, "12.25,No\xEBl,14,yearly");
  desk.session.SelectRow(desk.RowWith("<TODAY>"));
  EXPECT_EQ(desk.session.DoubleClick(desk.here), WindowChange::kHide);
  EXPECT_EQ(desk.editor.requests.back().rawLine, "");
  EXPECT_EQ(desk.session.GoToEdit(desk.here), WindowChange::kHide);
  EXPECT_EQ(desk.editor.requests.back().rawLine, "");
}

TEST(Editor, WithoutASelectedRowADoubleClickDoesNothing) {
  SessionDesk desk(kChristmas);
  desk.Start();
  for (const int row : {ReminderSession::kNoRow, 2, 99}) {
    desk.session.SelectRow(row);
    EXPECT_EQ(desk.session.DoubleClick(desk.here), WindowChange::kNone);
  }
  EXPECT_THAT(desk.editor.requests, IsEmpty());
  EXPECT_THAT(desk.log, IsEmpty());
}

TEST(Editor, ARebuildSelectsNothing) {
  SessionDesk desk(kChristmas);
  desk.Start();
  desk.session.SelectRow(1);
  EXPECT_EQ(desk.session.Restore(), WindowChange::kRestore);
  EXPECT_EQ(desk.session.selectedRow(), ReminderSession::kNoRow);
  EXPECT_EQ(desk.session.DoubleClick(desk.here), WindowChange::kNone);
}

TEST(Editor, AnEventThatHasMovedInTheFileIsOpenedWhereItIsNow) {
  SessionDesk desk(kChristmas + "12.26,Boxing Day,14,yearly\r\n");
  desk.Start();
  desk.session.SelectRow(desk.RowWith("Boxing Day"));
  desk.files.files[kSessionPath] = "12.24,New,14,yearly\n" + desk.file();
  EXPECT_EQ(desk.session.DoubleClick(desk.here), WindowChange::kHide);
  EXPECT_EQ(desk.editor.request(), std::pair(2L, false));
}

TEST(Editor, AnEventThatIsGoneIsNotOpenedButTheListIsBuiltAnew) {
  SessionDesk desk(kChristmas);
  desk.Start();
  desk.session.SelectRow(desk.RowWith("Christmas"));
  desk.files.files[kSessionPath] = "12.24,New,14,yearly\r\n";
  EXPECT_EQ(desk.session.DoubleClick(desk.here), WindowChange::kNone);
  EXPECT_THAT(desk.editor.requests, IsEmpty());
  EXPECT_EQ(desk.session.builds(), 2);
  EXPECT_NE(desk.RowWith("New"), ReminderSession::kNoRow);
}

TEST(Editor, WhereItCannotBeShownTheWindowStays) {
  SessionDesk desk(kChristmas);
  desk.editor.canBeShown = false;
  desk.Start();
  EXPECT_EQ(desk.session.GoToEdit(desk.here), WindowChange::kNone);
  EXPECT_EQ(desk.editor.requests.size(), 1U);
  EXPECT_EQ(desk.session.StateChanged(WindowState::kMinimized), WindowChange::kHide);
}

TEST(Editor, WhileItIsLoadedABuildLeavesTheFileAndTheProgramAlone) {
  SessionDesk desk(kChristmas);
  desk.Set("Options", "ShowOnlyIfEventsInRange", "True");
  desk.Start();
  ASSERT_EQ(desk.session.GoToEdit(desk.here), WindowChange::kHide);
  desk.editor.entryUnderWay = true;
  const std::string events = "12.21,Gone,7,one2014\r\n12.20,Over,1,yearly*\r\n";
  desk.files.files[kSessionPath] = events;
  EXPECT_EQ(desk.TickAt(2014, 12, 23, 0, 0), WindowChange::kNone);
  EXPECT_EQ(desk.session.builds(), 2);
  EXPECT_EQ(desk.file(), events);
  EXPECT_EQ(desk.files.CountCalls("stage"), 0);
  EXPECT_THAT(desk.List(), ElementsAre("12/23/2014   <TODAY>"));
  // A minimized editor hands back too, and stays loaded.
  EXPECT_EQ(desk.session.Restore(), WindowChange::kRestore);
  EXPECT_EQ(desk.file(), events);

  desk.editor.loaded = false;
  desk.shiftKey.down = true;
  EXPECT_EQ(desk.session.Restore(), WindowChange::kRestore);
  EXPECT_EQ(desk.file(), "12.20,Over,1,yearly\r\n");
  desk.shiftKey.down = false;
  EXPECT_EQ(desk.session.Restore(), WindowChange::kEnd);
}

// --- A hidden event whose mark has served while the editor is open.

const std::string kBins = "12.22,Bins 7:00am,2,07-2014";

// The editor is open and minimized from a Monday on which the event is hidden to the next one.
void OpenEditorForAWeek(SessionDesk& desk) {
  desk.SetNow(2014, 12, 22, 8, 0);
  desk.Start();
  ASSERT_EQ(desk.RowWith("BINS"), ReminderSession::kNoRow);
  ASSERT_EQ(desk.session.GoToEdit(desk.here), WindowChange::kHide);
  ASSERT_EQ(desk.session.Restore(), WindowChange::kRestore);
  for (int day = 23; day <= 29; ++day) {
    static_cast<void>(desk.TickAt(2014, 12, day, 0, 0));
    ASSERT_EQ(desk.RowWith("Bins") == ReminderSession::kNoRow, day < 27 || day == 29) << day;
    ASSERT_EQ(desk.file(), kBins + "*\r\n");
  }
}

TEST(HiddenBesideTheEditor, ComesBackAndRingsBeforeItsMarkGoes) {
  SessionDesk desk(kBins + "*\r\n");
  OpenEditorForAWeek(desk);
  EXPECT_NE(desk.RowWith("BINS"), ReminderSession::kNoRow);
  static_cast<void>(desk.TickAt(2014, 12, 29, 7, 0));
  EXPECT_THAT(desk.alarmsShown, ElementsAre("\nBins 7:00am\n"));
  EXPECT_EQ(desk.file(), kBins + "*\r\n");

  desk.editor.loaded = false;
  EXPECT_EQ(desk.session.Restore(), WindowChange::kRestore);
  EXPECT_EQ(desk.file(), kBins + "\r\n");
  EXPECT_EQ(desk.alarmsShown.size(), 1U);
  // Its row knows the line without the mark.
  EXPECT_TRUE(desk.MenuOn("BINS").mnuHideThis);
  EXPECT_EQ(desk.session.HideThis(), WindowChange::kNone);
  EXPECT_EQ(desk.file(), kBins + "*\r\n");
  EXPECT_EQ(desk.RowWith("BINS"), ReminderSession::kNoRow);
}

TEST(HiddenBesideTheEditor, StaysHiddenWhenTheUserHidesItAnew) {
  SessionDesk desk(kBins + "*\r\n");
  OpenEditorForAWeek(desk);
  EXPECT_TRUE(desk.MenuOn("BINS").mnuHideThis);
  EXPECT_EQ(desk.session.HideThis(), WindowChange::kNone);
  EXPECT_EQ(desk.RowWith("BINS"), ReminderSession::kNoRow);
  static_cast<void>(desk.TickAt(2014, 12, 29, 7, 0));
  EXPECT_THAT(desk.alarmsShown, IsEmpty());
  desk.editor.loaded = false;
  EXPECT_EQ(desk.session.Restore(), WindowChange::kRestore);
  EXPECT_EQ(desk.RowWith("BINS"), ReminderSession::kNoRow);
  EXPECT_EQ(desk.file(), kBins + "*\r\n");
  static_cast<void>(desk.TickAt(2014, 12, 30, 0, 0));
  EXPECT_EQ(desk.file(), kBins + "\r\n") << "until its next occurrence";
}

}  // namespace
}  // namespace tidewarden::test
