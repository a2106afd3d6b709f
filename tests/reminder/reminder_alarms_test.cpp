// How the reminder session hands its list to the alarms and its ticks to both.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "reminder/reminder_session.h"
#include "tests/reminder/session_desk.h"

namespace tidewarden::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::string kDentist = "12.22,Dentist 3:30pm,0,yearly\r\n";
const std::string kDentistMessage = "\nDentist 3:30pm\n";

TEST(SessionAlarms, RingAtTheirMinuteOnce) {
  SessionDesk desk(kDentist);
  desk.Start();
  static_cast<void>(desk.TickAt(2014, 12, 22, 15, 29));
  EXPECT_THAT(desk.alarmsShown, IsEmpty());
  static_cast<void>(desk.TickAt(2014, 12, 22, 15, 30));
  EXPECT_THAT(desk.alarmsShown, ElementsAre(kDentistMessage));
  static_cast<void>(desk.TickAt(2014, 12, 22, 15, 30));
  static_cast<void>(desk.TickAt(2014, 12, 22, 15, 31));
  EXPECT_EQ(desk.alarmsShown.size(), 1U);
}

TEST(SessionAlarms, CountDownInTheListWithoutABuild) {
  SessionDesk desk(kDentist);
  desk.Start();
  EXPECT_NE(desk.RowWith("DENTIST 3:30PM (1:05 to go)"), ReminderSession::kNoRow);
  static_cast<void>(desk.TickAt(2014, 12, 22, 14, 26));
  EXPECT_NE(desk.RowWith("DENTIST 3:30PM (1:04 to go)"), ReminderSession::kNoRow);
  EXPECT_EQ(desk.session.builds(), 1);
}

TEST(SessionAlarms, RingLateWhenTheirMinuteWasSleptThroughButNotFromBeforeTheStart) {
  SessionDesk desk(kDentist + "12.22,Lunch 1:00pm,0,yearly\r\n");
  desk.Start();
  static_cast<void>(desk.TickAt(2014, 12, 22, 14, 26));
  static_cast<void>(desk.TickAt(2014, 12, 22, 17, 0));
  EXPECT_THAT(desk.alarmsShown, ElementsAre(kDentistMessage));
}

// --- A file that cannot be read for a while.

TEST(SessionAlarms, AreNotLostWhenTheFileCannotBeReadAtMidnight) {
  SessionDesk desk("12.23,Pill 0:02,0,yearly\r\n12.23,Tea 0:09,0,yearly\r\n");
  desk.Start();
  desk.files.failures[kSessionPath] = StatusKind::kInputOutput;
  static_cast<void>(desk.TickAt(2014, 12, 23, 0, 0));
  EXPECT_EQ(desk.RowWith("PILL"), ReminderSession::kNoRow);
  static_cast<void>(desk.TickAt(2014, 12, 23, 0, 1));
  static_cast<void>(desk.TickAt(2014, 12, 23, 0, 2));
  EXPECT_THAT(desk.alarmsShown, IsEmpty());
  desk.files.failures.clear();
  static_cast<void>(desk.TickAt(2014, 12, 23, 0, 4));
  EXPECT_NE(desk.RowWith("PILL"), ReminderSession::kNoRow);
  static_cast<void>(desk.TickAt(2014, 12, 23, 0, 5));
  EXPECT_THAT(desk.alarmsShown, ElementsAre("\nPill 0:02\n"));
  const int builds = desk.session.builds();
  static_cast<void>(desk.TickAt(2014, 12, 23, 0, 6));
  EXPECT_EQ(desk.session.builds(), builds);
}

TEST(SessionAlarms, AreNotLostWhenTheFileCannotBeReadForAMoment) {
  SessionDesk desk(kDentist);
  desk.Start();
  static_cast<void>(desk.TickAt(2014, 12, 22, 15, 28));
  desk.files.failures[kSessionPath] = StatusKind::kNoPermission;
  EXPECT_EQ(desk.session.Restore(), WindowChange::kRestore);
  static_cast<void>(desk.TickAt(2014, 12, 22, 15, 29));
  static_cast<void>(desk.TickAt(2014, 12, 22, 15, 30));
  desk.files.failures.clear();
  static_cast<void>(desk.TickAt(2014, 12, 22, 15, 31));
  static_cast<void>(desk.TickAt(2014, 12, 22, 15, 32));
  EXPECT_THAT(desk.alarmsShown, ElementsAre(kDentistMessage));
}

// A stick that is not in its place leaves no folder in which the file could be made.
TEST(SessionAlarms, AreNotLostWhenTheFileIsMissingAtMidnight) {
  SessionDesk desk("");
  desk.Start();
  desk.files.files.clear();
  desk.files.writeFailures[kSessionPath] = StatusKind::kNoPermission;
  static_cast<void>(desk.TickAt(2014, 12, 23, 0, 0));
  EXPECT_THAT(desk.List(), ElementsAre("12/23/2014   <TODAY>"));
  for (const int minute : {1, 2, 3}) static_cast<void>(desk.TickAt(2014, 12, 23, 0, minute));
  EXPECT_EQ(desk.session.builds(), 2);
  desk.files.files[kSessionPath] = "12.23,Pill 0:02,0,yearly\r\n";
  static_cast<void>(desk.TickAt(2014, 12, 23, 0, 4));
  EXPECT_NE(desk.RowWith("PILL"), ReminderSession::kNoRow);
  static_cast<void>(desk.TickAt(2014, 12, 23, 0, 5));
  EXPECT_THAT(desk.alarmsShown, ElementsAre("\nPill 0:02\n"));
  EXPECT_EQ(desk.messages.boxes.size(), 1U);
  EXPECT_EQ(desk.complaints.size(), 1U) << "that it could not be created";
  EXPECT_EQ(desk.session.builds(), 3);
}

// Nothing is made of it between the box and the next list that the user or a new day asks for.
TEST(SessionAlarms, AMissingFileIsNotCreatedBehindTheUsersBack) {
  SessionDesk desk(kDentist);
  desk.Start();
  desk.files.files.clear();
  desk.files.writeFailures[kSessionPath] = StatusKind::kNoPermission;
  static_cast<void>(desk.TickAt(2014, 12, 23, 0, 0));
  desk.files.writeFailures.clear();
  for (const int minute : {1, 2, 3}) static_cast<void>(desk.TickAt(2014, 12, 23, 0, minute));
  EXPECT_THAT(desk.files.files, IsEmpty());
  EXPECT_EQ(desk.messages.boxes.size(), 1U);
  EXPECT_EQ(desk.session.Restore(), WindowChange::kRestore);
  EXPECT_EQ(desk.messages.boxes.size(), 2U);
  EXPECT_EQ(desk.file(), "");
}

TEST(SessionAlarms, OfBeforeTheStartStaySilentWhenTheFileCouldNotBeReadThen) {
  SessionDesk desk(kDentist + "12.22,Lunch 1:00pm,0,yearly\r\n");
  desk.files.failures[kSessionPath] = StatusKind::kBusy;
  desk.Start();
  desk.files.failures.clear();
  static_cast<void>(desk.TickAt(2014, 12, 22, 14, 26));
  static_cast<void>(desk.TickAt(2014, 12, 22, 14, 27));
  EXPECT_NE(desk.RowWith("LUNCH"), ReminderSession::kNoRow);
  EXPECT_THAT(desk.alarmsShown, IsEmpty());
}

TEST(SessionAlarms, AFileThatIsNoTextIsNotReadAgainAtEachTick) {
  SessionDesk desk(kDentist);
  desk.files.failures[kSessionPath] = StatusKind::kNotText;
  desk.Start();
  static_cast<void>(desk.TickAt(2014, 12, 22, 14, 26));
  static_cast<void>(desk.TickAt(2014, 12, 22, 14, 27));
  EXPECT_EQ(desk.session.builds(), 1);
}

TEST(SessionAlarms, DoNotRingAgainAfterARebuild) {
  SessionDesk desk(kDentist);
  desk.Start();
  static_cast<void>(desk.TickAt(2014, 12, 22, 15, 30));
  EXPECT_EQ(desk.session.Restore(), WindowChange::kRestore);
  static_cast<void>(desk.TickAt(2014, 12, 22, 15, 30));
  static_cast<void>(desk.TickAt(2014, 12, 22, 15, 31));
  EXPECT_EQ(desk.alarmsShown.size(), 1U);
}

TEST(SessionAlarms, RingFromBehindTheEditorAndFromTheTray) {
  SessionDesk desk(kDentist);
  desk.Start();
  ASSERT_EQ(desk.session.GoToEdit(desk.here), WindowChange::kHide);
  static_cast<void>(desk.TickAt(2014, 12, 22, 15, 30, WindowState::kNormal));
  EXPECT_EQ(desk.alarmsShown.size(), 1U);

  SessionDesk inTray(kDentist);
  inTray.Start();
  ASSERT_EQ(inTray.session.StateChanged(WindowState::kMinimized), WindowChange::kHide);
  static_cast<void>(inTray.TickAt(2014, 12, 22, 15, 30, WindowState::kMinimized));
  EXPECT_EQ(inTray.alarmsShown.size(), 1U);
  EXPECT_TRUE(inTray.area.isShown);
}

TEST(SessionAlarms, WaitForTheEndOfABuildButNotForAnotherMessage) {
  SessionDesk desk(kDentist);
  desk.Start();
  desk.files.writeFailures[kSessionPath] = StatusKind::kNoSpace;
  std::size_t shownInside = 0;
  desk.messages.whileOpen = [&] {
    static_cast<void>(desk.TickAt(2014, 12, 22, 15, 30));
    shownInside = desk.alarmsShown.size();
  };
  desk.MenuOn("DENTIST");
  static_cast<void>(desk.session.DeleteThis());
  EXPECT_EQ(shownInside, 1U);

  SessionDesk building(kDentist);
  building.Start();
  building.files.files.clear();
  building.messages.whileOpen = [&] {
    const int rests = building.sound.rests;
    static_cast<void>(building.TickAt(2014, 12, 22, 15, 30));
    EXPECT_EQ(building.sound.rests, rests) << "no tick reaches the alarms";
    building.files.files[kSessionPath] = kDentist;
  };
  building.SetNow(2014, 12, 22, 15, 29);
  EXPECT_EQ(building.session.Restore(), WindowChange::kRestore);
  EXPECT_THAT(building.alarmsShown, IsEmpty());
  EXPECT_EQ(building.session.Restore(), WindowChange::kRestore);
  static_cast<void>(building.TickAt(2014, 12, 22, 15, 30));
  EXPECT_THAT(building.alarmsShown, ElementsAre(kDentistMessage));
}

TEST(SessionAlarms, YesterdaysListRingsNothingBeforeTheNewDaysOffset) {
  SessionDesk desk("12.22,Early 3:30am,0,yearly\r\n12.23,Dawn 7:00am,3,yearly\r\n");
  desk.Set("Options", "NewDateOffset", "0600");
  desk.SetNow(2014, 12, 22, 3, 0);
  desk.Start();
  static_cast<void>(desk.TickAt(2014, 12, 22, 3, 30));
  EXPECT_EQ(desk.alarmsShown.size(), 1U);
  desk.alarmsShown.clear();
  for (const int minute : {29, 30, 31}) {
    static_cast<void>(desk.TickAt(2014, 12, 23, 3, minute));
  }
  EXPECT_THAT(desk.alarmsShown, IsEmpty());
  static_cast<void>(desk.TickAt(2014, 12, 23, 6, 0));
  EXPECT_EQ(desk.session.builds(), 2);
  static_cast<void>(desk.TickAt(2014, 12, 23, 7, 0));
  EXPECT_EQ(desk.alarmsShown.size(), 1U);
}

TEST(SessionAlarms, AnAlarmOfTheNewDaysFirstMinuteRings) {
  SessionDesk desk("12.23,Midnight 12:00am,0,yearly\r\n");
  desk.Start();
  static_cast<void>(desk.TickAt(2014, 12, 22, 23, 59));
  static_cast<void>(desk.TickAt(2014, 12, 23, 0, 0));
  EXPECT_EQ(desk.session.builds(), 2);
  EXPECT_LT(desk.session.untilNextMinute(), 1000);
  static_cast<void>(desk.TickAt(2014, 12, 23, 0, 0));
  EXPECT_EQ(desk.alarmsShown.size(), 1U);
}

TEST(SessionAlarms, TheHelpingTickComesJustAfterTheFullMinute) {
  SessionDesk desk("");
  desk.Start();
  desk.clock.now = {On(2014, 12, 22), 14, 25, 0, 0};
  EXPECT_EQ(desk.session.untilNextMinute(), 15000);
  desk.clock.now = {On(2014, 12, 22), 14, 25, 59, 999};
  EXPECT_EQ(desk.session.untilNextMinute(), 51);
}

TEST(SessionAlarms, ASecondTickInAMinuteDoesNotLookForANewDay) {
  SessionDesk desk(kDentist);
  desk.Start();
  static_cast<void>(desk.TickAt(2014, 12, 22, 15, 0));
  desk.area.available = true;
  ASSERT_EQ(desk.session.StateChanged(WindowState::kMinimized), WindowChange::kHide);
  desk.area.available = false;
  EXPECT_EQ(desk.TickAt(2014, 12, 22, 15, 0, WindowState::kMinimized), WindowChange::kNone);
  EXPECT_EQ(desk.TickAt(2014, 12, 22, 15, 1, WindowState::kMinimized),
            WindowChange::kShowMinimized);
}

TEST(SessionAlarms, SoundWhenTheWindowIsThereAndNotBefore) {
  SessionDesk desk(kDentist);
  desk.Start();
  std::vector<std::size_t> soundedBefore;
  desk.session.ShowAlarm = [&] { soundedBefore.push_back(desk.sound.calls.size()); };
  static_cast<void>(desk.TickAt(2014, 12, 22, 15, 30));
  EXPECT_THAT(soundedBefore, ElementsAre(0U));
  EXPECT_EQ(desk.sound.calls.size(), 1U);
  static_cast<void>(desk.TickAt(2014, 12, 22, 15, 31));
  EXPECT_THAT(soundedBefore, ElementsAre(0U));
  EXPECT_EQ(desk.sound.calls.size(), 2U);
}

TEST(SessionAlarms, LeaveTheMomentOfTheSoundToTheProgram) {
  SessionDesk desk(kDentist);
  desk.Start();
  std::vector<std::size_t> windowsBefore;
  desk.session.SoundAlarm = [&] { windowsBefore.push_back(desk.alarmsShown.size()); };
  static_cast<void>(desk.TickAt(2014, 12, 22, 15, 29));
  EXPECT_THAT(windowsBefore, IsEmpty());
  static_cast<void>(desk.TickAt(2014, 12, 22, 15, 30));
  static_cast<void>(desk.TickAt(2014, 12, 22, 15, 31));
  EXPECT_THAT(windowsBefore, ElementsAre(1U, 1U));
  EXPECT_THAT(desk.sound.calls, IsEmpty());
}

TEST(SessionAlarms, FollowTheOptionsOfTheLastBuild) {
  SessionDesk desk(kDentist);
  desk.Set("Options", "AlarmSound", "False");
  desk.Start();
  static_cast<void>(desk.TickAt(2014, 12, 22, 15, 30));
  EXPECT_EQ(desk.alarmsShown.size(), 1U);
  EXPECT_THAT(desk.sound.calls, IsEmpty());

  SessionDesk loud(kDentist);
  loud.Start();
  static_cast<void>(loud.TickAt(2014, 12, 22, 15, 30));
  EXPECT_EQ(loud.sound.calls.size(), 1U);
}

}  // namespace
}  // namespace tidewarden::test
