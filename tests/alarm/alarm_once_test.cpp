// An alarm rings once and is not missed: rebuilds, sleep, midnight, clocks that are set.
#include <gmock/gmock.h>

#include "tests/alarm/alarm_desk.h"

namespace tidewarden::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(AlarmOnce, ARebuildInItsMinuteDoesNotRingItAgain) {
  AlarmDesk desk;
  desk.Build({"Dentist 3:30pm"});
  EXPECT_TRUE(desk.TickAt(15, 30, 0).showsMessages);
  desk.SetTime(15, 30, 20);
  desk.Build({"Dentist 3:30pm"});
  EXPECT_THAT(desk.list, ElementsAre(desk.rows[0] + " (0:00)"));
  EXPECT_FALSE(desk.TickAt(15, 30, 40).showsMessages);
  EXPECT_FALSE(desk.TickAt(15, 31, 0).showsMessages);
  EXPECT_EQ(desk.session.AlarmText(), "\r\nDentist 3:30pm\r\n");
}

TEST(AlarmOnce, ARebuildBeforeItsMinuteDoesNotLoseIt) {
  AlarmDesk desk;
  desk.Build({"Dentist 3:30pm"});
  desk.TickAt(15, 29);
  desk.SetTime(15, 29, 59);
  desk.Build({"Bus 3:30pm", "Dentist 3:30pm"});
  EXPECT_TRUE(desk.TickAt(15, 30).showsMessages);
  EXPECT_EQ(desk.session.AlarmText(), "\r\nBus 3:30pm\r\n\r\nDentist 3:30pm\r\n");
}

TEST(AlarmOnce, TheBuildItselfNeverRings) {
  AlarmDesk desk;
  desk.SetTime(15, 30, 5);
  desk.Build({"Dentist 3:30pm"});
  EXPECT_THAT(desk.sound.calls, IsEmpty());
  EXPECT_EQ(desk.session.AlarmText(), "");
}

TEST(AlarmOnce, AnAlarmOfTheStartMinuteDoesNotRingLate) {
  AlarmDesk desk;
  desk.SetTime(15, 30, 5);
  desk.Build({"Dentist 3:30pm"});
  EXPECT_THAT(desk.list, ElementsAre(desk.rows[0] + " (0:00)"));
  EXPECT_FALSE(desk.TickAt(15, 31).showsMessages);
  EXPECT_THAT(desk.list, ElementsAre(desk.rows[0] + " (0:01 passed)"));
}

TEST(AlarmOnce, AnAlarmOfTheStartMinuteDoesNotRingInThatMinuteEither) {
  AlarmDesk desk;
  desk.SetTime(15, 30, 10);
  desk.Build({"Dentist 3:30pm"});
  EXPECT_GT(desk.session.MillisecondsToNextTick(desk.now), 50);
  EXPECT_FALSE(desk.TickAt(15, 30, 11).showsMessages);  // with a timer of one second
  EXPECT_EQ(desk.sounds(), 0);
  EXPECT_THAT(desk.list, ElementsAre(desk.rows[0] + " (0:00)"));
  desk.SetTime(15, 30, 30);
  desk.Build({"Dentist 3:30pm"});
  EXPECT_FALSE(desk.TickAt(15, 30, 31).showsMessages);
  EXPECT_FALSE(desk.TickAt(15, 31, 0).showsMessages);
  EXPECT_THAT(desk.list, ElementsAre(desk.rows[0] + " (0:01 passed)"));
}

TEST(AlarmOnce, AStartByAClockThatIsFastLosesNoAlarm) {
  AlarmDesk desk;
  desk.SetTime(15, 30, 10);
  desk.Build({"Dentist 3:30pm"});
  desk.TickAt(15, 30, 11);
  desk.TickAt(14, 30, 12);  // and is put right
  EXPECT_FALSE(desk.TickAt(15, 29).showsMessages);
  EXPECT_TRUE(desk.TickAt(15, 30).showsMessages);
}

TEST(AlarmOnce, AlarmsFromBeforeTheStartNeverRing) {
  AlarmDesk desk;
  desk.SetTime(16, 0);
  desk.Build({"Dentist 3:30pm", "Bus 3:59pm"});
  for (int minute = 1; minute < 60; ++minute) {
    EXPECT_FALSE(desk.TickAt(16, minute).showsMessages);
  }
}

TEST(AlarmOnce, AnAlarmAddedForAMinuteThatIsOverDoesNotRing) {
  AlarmDesk desk;
  desk.Build({"Dentist 3:30pm"});
  desk.TickAt(10, 0);
  desk.SetTime(10, 0, 40);
  desk.Build({"Dentist 3:30pm", "Tea 9:59", "Tea 9:00"});
  EXPECT_GT(desk.session.MillisecondsToNextTick(desk.now), 50);
  EXPECT_FALSE(desk.TickAt(10, 1).showsMessages);
  // Not even when the computer then sleeps for a while.
  EXPECT_FALSE(desk.TickAt(11, 0).showsMessages);
}

// Whether the minute has had its tick or not, which only other alarms of the day decide.
TEST(AlarmOnce, AnAlarmAddedInItsOwnMinuteRingsInTheNextTick) {
  const std::vector<std::vector<std::string>> listsBefore{{}, {"Dentist 3:30pm"}};
  for (const auto& before : listsBefore) {
    for (const bool isTickInTime : {true, false}) {
      SCOPED_TRACE(::testing::Message() << before.size() << isTickInTime);
      AlarmDesk desk;
      desk.Build(before);
      desk.TickAt(10, 0);
      desk.SetTime(10, 0, 40);
      std::vector<std::string> titles = before;
      titles.emplace_back("Tea 10:00");
      desk.Build(titles);
      EXPECT_EQ(desk.session.MillisecondsToNextTick(desk.now), 50);
      isTickInTime ? desk.SetTime(10, 0, 41) : desk.SetTime(10, 1, 0);
      EXPECT_TRUE(desk.Tick().showsMessages);
      EXPECT_EQ(desk.session.AlarmText(), "\r\nTea 10:00\r\n");
      EXPECT_EQ(desk.sounds(), 1);
      EXPECT_GT(desk.session.MillisecondsToNextTick(desk.now), 50);
      EXPECT_FALSE(desk.TickAt(10, 1, 30).showsMessages);
    }
  }
}

TEST(AlarmOnce, AComputerThatSleptOverTheAlarmRingsItOnceWhenItWakes) {
  AlarmDesk desk;
  desk.Build({"Early 8:30", "Dentist 3:30pm", "Bus 3:45pm", "Late 4:00pm", "Later 4:01pm"});
  desk.TickAt(8, 30);
  desk.Acknowledge();
  desk.TickAt(15, 29);
  EXPECT_TRUE(desk.TickAt(16, 0, 20).showsMessages);
  EXPECT_EQ(desk.session.AlarmText(),
            "\r\nDentist 3:30pm\r\n\r\nBus 3:45pm\r\n\r\nLate 4:00pm\r\n");
  EXPECT_EQ(desk.sounds(), 1);
  desk.Acknowledge();
  EXPECT_TRUE(desk.TickAt(16, 1).showsMessages);
  EXPECT_EQ(desk.session.AlarmText(), "\r\nLater 4:01pm\r\n");
  EXPECT_FALSE(desk.TickAt(16, 2).showsMessages);
}

TEST(AlarmOnce, TheEdgesOfTheMinutesThatWereSleptOver) {
  // Slept from the tick at 12:00 to the one at 12:30.
  const struct {
    const char* title;
    bool rings;
  } cases[] = {
      {"X 11:59", false},   {"X 12:00", false},   {"X 12:01 pm", true},
      {"X 12:29 pm", true}, {"X 12:30 pm", true}, {"X 12:31 pm", false},
  };
  for (const auto& [title, rings] : cases) {
    SCOPED_TRACE(title);
    AlarmDesk desk;
    desk.SetTime(11, 58);
    desk.Build({title});
    desk.TickAt(11, 59);
    desk.TickAt(12, 0);
    desk.Acknowledge();
    EXPECT_EQ(desk.TickAt(12, 30).showsMessages, rings);
  }
}

TEST(AlarmOnce, SleepBeforeTheFirstTickIsNoDifferentFromLaterSleep) {
  AlarmDesk desk;
  desk.SetTime(15, 29, 30);
  desk.Build({"Before 15:28", "Dentist 15:30"});
  EXPECT_TRUE(desk.TickAt(15, 40).showsMessages);
  EXPECT_EQ(desk.session.AlarmText(), "\r\nDentist 15:30\r\n");
}

TEST(AlarmOnce, ARebuildBetweenWakingAndTheTickLosesNothing) {
  AlarmDesk desk;
  desk.Build({"Dentist 15:30"});
  desk.TickAt(15, 20);
  desk.SetTime(15, 40, 1);
  desk.Build({"Dentist 15:30"});  // the user has clicked on the icon at once
  EXPECT_TRUE(desk.TickAt(15, 40, 5).showsMessages);
  EXPECT_FALSE(desk.TickAt(15, 41).showsMessages);
}

TEST(AlarmOnce, AnAlarmThatWasHiddenMeanwhileIsNotMadeUpFor) {
  AlarmDesk desk;
  desk.Build({"Dentist 9:00", "Bus 18:00"});
  desk.TickAt(8, 59);
  desk.Build({"Bus 18:00"});
  desk.TickAt(9, 30);
  desk.Build({"Dentist 9:00", "Bus 18:00"});
  EXPECT_FALSE(desk.TickAt(9, 45).showsMessages);
}

TEST(AlarmOnce, OneThatHasRungStaysSilentWhenItIsHiddenAndShownAgain) {
  AlarmDesk desk;
  desk.Build({"Dentist 9:00"});
  desk.TickAt(9, 0);
  desk.Build({});
  desk.Build({"Dentist 9:00"});
  desk.SetTime(8, 50);  // and the clock is set back as well
  desk.Tick();
  EXPECT_FALSE(desk.TickAt(9, 0).showsMessages);
}

// --- Midnight.

TEST(AlarmOnce, YesterdaysListDoesNotRingAgainBeforeTheNewOneIsBuilt) {
  // As with "NewDateOffset" 0600: the list stays yesterday's until six.
  AlarmDesk desk;
  desk.Build({"Pill 5:00", "Dentist 15:30"});
  desk.TickAt(15, 30);
  desk.Acknowledge();
  desk.now.date = On(2014, 12, 23);
  for (int minute = 0; minute < 6 * 60; ++minute) {
    const AlarmTick tick = desk.TickAt(minute / 60, minute % 60);
    EXPECT_FALSE(tick.showsMessages);
    EXPECT_TRUE(tick.checksForNewDay);
  }
  desk.TickAt(6, 0);
  desk.Build({"Pill 5:00", "Dentist 15:30"});
  EXPECT_FALSE(desk.TickAt(6, 1).showsMessages);  // today's early one is over
  EXPECT_TRUE(desk.TickAt(15, 30).showsMessages);
}

TEST(AlarmOnce, AnAlarmSleptOverUntilTheNextDayIsOver) {
  AlarmDesk desk;
  desk.Build({"Dentist 23:00"});
  desk.TickAt(22, 0);
  desk.now.date = On(2014, 12, 23);
  EXPECT_FALSE(desk.TickAt(7, 0).showsMessages);
  desk.Build({"Pill 6:00", "Dentist 23:00"});
  EXPECT_FALSE(desk.TickAt(7, 1).showsMessages);
  EXPECT_TRUE(desk.TickAt(23, 0).showsMessages);
}

TEST(AlarmOnce, AnAlarmOfTheMinuteInWhichTheNewDayIsListedRingsInThatMinute) {
  AlarmDesk desk;
  desk.Build({"Dentist 15:30"});
  desk.TickAt(23, 59);
  desk.now.date = On(2014, 12, 23);
  EXPECT_TRUE(desk.TickAt(0, 0, 0).checksForNewDay);
  EXPECT_FALSE(desk.rang());
  desk.Build({"Pill 0:00"});
  EXPECT_EQ(desk.session.MillisecondsToNextTick(desk.now), 50);
  EXPECT_TRUE(desk.TickAt(0, 0, 1).showsMessages);
  EXPECT_GT(desk.session.MillisecondsToNextTick(desk.now), 50);
  EXPECT_FALSE(desk.TickAt(0, 0, 30).checksForNewDay);
  EXPECT_FALSE(desk.TickAt(0, 1).showsMessages);
}

TEST(AlarmOnce, TheSecondTickOfANewDaysMinuteDoesNotRepeatTheSound) {
  AlarmDesk desk;
  desk.Build({"Late 23:58", "Dentist 15:30"});
  desk.TickAt(23, 58);
  desk.now.date = On(2014, 12, 23);
  desk.TickAt(0, 0, 0);
  EXPECT_EQ(desk.sounds(), 1);  // the repeat for the alarm that waits
  desk.options.alarmSound = false;
  desk.Build({"Pill 0:00", "Dentist 15:30"});
  EXPECT_TRUE(desk.TickAt(0, 0, 1).showsMessages);
  EXPECT_EQ(desk.sounds(), 0);
}

TEST(AlarmOnce, TheSameTitleRingsAgainTheNextDay) {
  AlarmDesk desk;
  for (int day = 22; day <= 31; ++day) {
    desk.now = {On(2014, 12, day), 0, 0, 0};
    desk.Build({"Pill 9:00"});
    EXPECT_FALSE(desk.TickAt(8, 59).showsMessages);
    EXPECT_TRUE(desk.TickAt(9, 0).showsMessages);
    EXPECT_FALSE(desk.TickAt(9, 1).showsMessages);
  }
}

// --- Clocks that jump.

TEST(AlarmOnce, InTheNightWhenAnHourIsSkippedItsAlarmsRingAfterTheGap) {
  // 1:59 is followed by 3:00.
  AlarmDesk desk;
  desk.now = {On(2026, 3, 29), 0, 0, 0};
  desk.Build({"A 1:59", "B 2:00", "C 2:30", "D 3:00", "E 3:01"});
  desk.TickAt(1, 58);
  desk.TickAt(1, 59);
  desk.Acknowledge();
  EXPECT_TRUE(desk.TickAt(3, 0).showsMessages);
  EXPECT_EQ(desk.session.AlarmText(), "\r\nB 2:00\r\n\r\nC 2:30\r\n\r\nD 3:00\r\n");
  EXPECT_EQ(desk.sounds(), 1);
  desk.Acknowledge();
  desk.TickAt(3, 1);
  EXPECT_EQ(desk.session.AlarmText(), "\r\nE 3:01\r\n");
}

TEST(AlarmOnce, InTheNightWhenAnHourComesTwiceItsAlarmsRingOnce) {
  // 2:59 is followed by 2:00.
  AlarmDesk desk;
  desk.now = {On(2026, 10, 25), 0, 0, 0};
  desk.Build({"A 2:00", "B 2:30", "C 2:59", "D 3:00"});
  int rings = 0;
  for (int minute = 60; minute < 3 * 60; ++minute) {
    rings += desk.TickAt(minute / 60, minute % 60).showsMessages;
  }
  EXPECT_EQ(rings, 3);
  desk.Acknowledge();
  for (int minute = 2 * 60; minute < 3 * 60; ++minute) {
    EXPECT_FALSE(desk.TickAt(minute / 60, minute % 60).showsMessages) << minute;
  }
  EXPECT_TRUE(desk.TickAt(3, 0).showsMessages);
}

TEST(AlarmOnce, AClockSetBackDoesNotRingAgain) {
  AlarmDesk desk;
  desk.Build({"Dentist 15:30", "Bus 16:00"});
  desk.TickAt(15, 30);
  desk.Acknowledge();
  for (int minute = 0; minute < 60; ++minute) {
    EXPECT_FALSE(desk.TickAt(15, minute).showsMessages) << minute;
  }
  EXPECT_TRUE(desk.TickAt(16, 0).showsMessages);
}

TEST(AlarmOnce, AClockSetBackADayDoesNotRingTheListOfTomorrow) {
  AlarmDesk desk;
  desk.now = {On(2014, 12, 23), 8, 0, 0};
  desk.Build({"Dentist 15:30"});
  desk.now.date = On(2014, 12, 22);
  EXPECT_FALSE(desk.TickAt(15, 30).showsMessages);
  desk.now.date = On(2014, 12, 23);
  EXPECT_TRUE(desk.TickAt(15, 30).showsMessages);
}

TEST(AlarmOnce, AClockSetForwardRingsWhatItPassed) {
  AlarmDesk desk;
  desk.Build({"Dentist 15:30", "Bus 18:00"});
  desk.TickAt(9, 0);
  EXPECT_TRUE(desk.TickAt(17, 0).showsMessages);
  EXPECT_EQ(desk.session.AlarmText(), "\r\nDentist 15:30\r\n");
  desk.Acknowledge();
  // And is put right again: it has rung, the other one has not.
  EXPECT_FALSE(desk.TickAt(15, 30).showsMessages);
  EXPECT_TRUE(desk.TickAt(18, 0).showsMessages);
}

TEST(AlarmOnce, AfterAClockWasSetBackSleepIsStillMadeUpFor) {
  AlarmDesk desk;
  desk.SetTime(15, 25);
  desk.Build({"Tea 15:20"});
  desk.TickAt(15, 26);
  desk.TickAt(15, 0);  // the clock was 25 minutes fast
  EXPECT_TRUE(desk.TickAt(15, 40).showsMessages);
}

TEST(AlarmOnce, AClockThatJumpsYearsAheadAndBackForgetsNothing) {
  AlarmDesk desk;
  desk.Build({"Dentist 15:30"});
  desk.TickAt(15, 30);
  desk.Acknowledge();
  desk.now = {On(2038, 1, 19), 15, 30, 0};
  desk.Build({"Dentist 15:30"});
  EXPECT_TRUE(desk.Tick().showsMessages);
  desk.Acknowledge();
  desk.now = {On(2014, 12, 22), 15, 0, 0};
  desk.Build({"Dentist 15:30"});
  desk.Tick();
  EXPECT_FALSE(desk.TickAt(15, 30).showsMessages);
}

TEST(AlarmOnce, AListThatNobodyAnnouncedIsWatchedFromTheNextTickOn) {
  AlarmDesk desk;
  desk.Build({"Dentist 15:30"});
  desk.TickAt(15, 0);
  desk.schedule.Clear();
  desk.schedule.ScheduleAlarm("Tea 15:10", desk.now.date);
  desk.schedule.ScheduleAlarm("Tea 14:50", desk.now.date);
  EXPECT_FALSE(desk.TickAt(15, 5).showsMessages);
  EXPECT_TRUE(desk.TickAt(15, 10).showsMessages);
  EXPECT_EQ(desk.session.AlarmText(), "\r\nTea 15:10\r\n");
}

}  // namespace
}  // namespace tidewarden::test
