// What a tick of the minute timer does: countdowns, the first sound, the repeat, the options.
#include <gmock/gmock.h>

#include <utility>

#include "tests/alarm/alarm_desk.h"

namespace tidewarden::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::string kPlayed = "wave " + kOwnSound;

TEST(AlarmTick, TheRowCountsDownToTheAlarmAndUpAgain) {
  const struct {
    int hour, minute;
    const char* suffix;
  } cases[] = {
      {8, 0, " (7:30 to go)"},    {14, 25, " (1:05 to go)"},  {14, 30, " (1:00 to go)"},
      {14, 31, " (0:59 to go)"},  {15, 25, " (0:05 to go)"},  {15, 29, " (0:01 to go)"},
      {15, 30, " (0:00)"},        {15, 31, " (0:01 passed)"}, {15, 35, " (0:05 passed)"},
      {16, 29, " (0:59 passed)"}, {16, 30, " (1:00 passed)"}, {23, 59, " (8:29 passed)"},
  };
  AlarmDesk desk;
  desk.Build({"Dentist 3:30pm"});
  for (const auto& [hour, minute, suffix] : cases) {
    EXPECT_TRUE(desk.TickAt(hour, minute).rowsChanged);
    EXPECT_THAT(desk.list, ElementsAre(desk.rows[0] + suffix));
  }
}

TEST(AlarmTick, RingsOneMinuteLongAtItsMinuteAndNeitherBeforeNorAfter) {
  AlarmDesk desk;
  desk.options.alarmBeepEachMinute = false;
  desk.Build({"Dentist 3:30pm"});
  for (int minute = 0; minute < 60; ++minute) {
    desk.TickAt(15, minute);
    EXPECT_EQ(desk.rang(), minute == 30) << minute;
    EXPECT_EQ(desk.sounds(), minute == 30 ? 1 : 0) << minute;
    EXPECT_TRUE(desk.lastTick.checksForNewDay);
  }
  EXPECT_EQ(desk.session.AlarmText(), "\r\nDentist 3:30pm\r\n");
}

TEST(AlarmTick, RingsInTheFirstAndTheLastMinuteOfTheDay) {
  AlarmDesk desk;
  desk.now = {On(2014, 12, 21), 23, 59, 0};
  desk.Build({"Yesterday 9:00"});
  desk.now = {On(2014, 12, 22), 0, 0, 0};
  desk.Build({"First 0:00", "Second 0:01", "Last 23:59", "Last 11:58 pm"});
  EXPECT_TRUE(desk.TickAt(0, 0).showsMessages);  // a tick in the minute of the build itself
  EXPECT_TRUE(desk.TickAt(0, 1).showsMessages);
  EXPECT_FALSE(desk.TickAt(23, 57).showsMessages);
  EXPECT_TRUE(desk.TickAt(23, 58).showsMessages);
  EXPECT_TRUE(desk.TickAt(23, 59).showsMessages);
}

TEST(AlarmTick, TwoAlarmsInOneMinuteGiveOneSoundAndBothTitles) {
  AlarmDesk desk;
  desk.Build({"Call at 1:30pm", "Lunch over 13:30"});
  desk.TickAt(13, 30);
  EXPECT_THAT(desk.sound.calls, ElementsAre(kPlayed));
  EXPECT_EQ(desk.session.AlarmText(), "\r\nCall at 1:30pm\r\n\r\nLunch over 13:30\r\n");
  EXPECT_EQ(desk.session.alarmMessages(), "\nCall at 1:30pm\n\nLunch over 13:30\n");
}

TEST(AlarmTick, TwoAlarmsWithTheSameTitleBothRing) {
  AlarmDesk desk;
  desk.Build({"Pill 9:00", "Pill 9:00"});
  desk.TickAt(9, 0);
  EXPECT_EQ(desk.session.AlarmText(), "\r\nPill 9:00\r\n\r\nPill 9:00\r\n");
  EXPECT_EQ(desk.sounds(), 1);
}

TEST(AlarmTick, TheSoundRepeatsEachMinuteUntilItIsAcknowledged) {
  AlarmDesk desk;
  desk.Build({"Dentist 3:30pm"});
  desk.TickAt(15, 29);
  EXPECT_EQ(desk.session.lastBeepMinute(), AlarmSession::kNoMinute);
  desk.TickAt(15, 30);
  EXPECT_THAT(desk.sound.calls, ElementsAre(kPlayed));
  EXPECT_EQ(desk.session.lastBeepMinute(), AlarmSession::kNoMinute);
  for (int minute = 31; minute < 35; ++minute) {
    desk.TickAt(15, minute);
    EXPECT_THAT(desk.sound.calls, ElementsAre(kPlayed));
    EXPECT_FALSE(desk.rang());
    EXPECT_EQ(desk.session.lastBeepMinute(), 1500 + minute);
  }
  desk.sound.calls.clear();
  desk.Acknowledge();
  EXPECT_THAT(desk.sound.calls, ElementsAre("stop"));
  EXPECT_EQ(desk.session.AlarmText(), "");
  desk.TickAt(15, 35);
  EXPECT_THAT(desk.sound.calls, IsEmpty());
}

TEST(AlarmTick, ALaterAlarmStartsAFreshListOfMessages) {
  AlarmDesk desk;
  desk.Build({"A 9:00", "B 9:01", "C 9:02"});
  desk.TickAt(9, 0);
  desk.TickAt(9, 1);
  EXPECT_EQ(desk.session.AlarmText(), "\r\nA 9:00\r\n\r\nB 9:01\r\n");
  desk.Acknowledge();
  desk.TickAt(9, 2);
  EXPECT_EQ(desk.session.AlarmText(), "\r\nC 9:02\r\n");
}

// Every combination of the three options: does the alarm minute sound, does the next one?
TEST(AlarmTick, TheOptionsDecideWhatSoundsButNeverWhatIsShown) {
  for (const bool alarmSound : {false, true}) {
    for (const bool beepEachMinute : {false, true}) {
      for (const bool disableAlarms : {false, true}) {
        SCOPED_TRACE(::testing::Message() << alarmSound << beepEachMinute << disableAlarms);
        AlarmDesk desk;
        desk.options = {alarmSound, beepEachMinute, disableAlarms};
        desk.Build({"Dentist 3:30pm", "Bus 3:33pm"});
        const bool repeats = beepEachMinute && !disableAlarms;
        desk.TickAt(15, 29);
        EXPECT_EQ(desk.sounds(), 0);
        desk.TickAt(15, 30);
        EXPECT_TRUE(desk.rang());
        EXPECT_EQ(desk.sounds(), alarmSound ? 1 : 0);
        for (const int minute : {31, 32}) {
          desk.TickAt(15, minute);
          EXPECT_FALSE(desk.rang());
          EXPECT_EQ(desk.sounds(), repeats ? 1 : 0);
        }
        // A second alarm while the first still waits: one sound, by whichever option.
        desk.TickAt(15, 33);
        EXPECT_TRUE(desk.rang());
        EXPECT_EQ(desk.sounds(), alarmSound || repeats ? 1 : 0);
        EXPECT_EQ(desk.session.AlarmText(), "\r\nDentist 3:30pm\r\n\r\nBus 3:33pm\r\n");
        desk.Acknowledge();
        desk.TickAt(15, 34);
        EXPECT_EQ(desk.sounds(), 0);
      }
    }
  }
}

TEST(AlarmTick, ASecondTickInTheSameMinuteEndsAtOnce) {
  AlarmDesk desk;
  desk.Build({"Dentist 3:30pm"});
  desk.TickAt(15, 30, 0);
  EXPECT_EQ(desk.session.lastTickMinute(), 1530);
  for (const int second : {0, 1, 30, 59}) {
    const AlarmTick tick = desk.TickAt(15, 30, second);
    EXPECT_FALSE(tick.rowsChanged);
    EXPECT_FALSE(tick.showsMessages);
    EXPECT_FALSE(tick.checksForNewDay);
    EXPECT_EQ(desk.sounds(), 0);
  }
  EXPECT_EQ(desk.session.AlarmText(), "\r\nDentist 3:30pm\r\n");
  EXPECT_TRUE(desk.TickAt(15, 31).checksForNewDay);
}

TEST(AlarmTick, WithoutAlarmsEveryTickOnlyLooksForANewDay) {
  AlarmDesk desk;
  desk.Build({"Birthday", "Ratio 1:x"});
  for (const int second : {0, 0, 30}) {
    const AlarmTick tick = desk.TickAt(9, 0, second);
    EXPECT_TRUE(tick.checksForNewDay);
    EXPECT_FALSE(tick.rowsChanged);
    EXPECT_FALSE(tick.showsMessages);
  }
  EXPECT_EQ(desk.session.lastTickMinute(), AlarmSession::kNoMinute);
}

TEST(AlarmTick, TheSameMinuteOfTheNextDayIsAnotherMinute) {
  AlarmDesk desk;
  desk.Build({"Dentist 3:30pm"});
  desk.TickAt(15, 30);
  desk.now.date = On(2014, 12, 23);
  EXPECT_TRUE(desk.Tick().checksForNewDay);
}

TEST(AlarmTick, TheRepeatEndsWithTheLastAlarmOfTheList) {
  AlarmDesk desk;
  desk.Build({"Dentist 3:30pm"});
  desk.TickAt(15, 30);
  desk.Build({});  // the event has been hidden; the window is still open
  desk.TickAt(15, 31);
  EXPECT_EQ(desk.sounds(), 0);
  EXPECT_EQ(desk.session.AlarmText(), "\r\nDentist 3:30pm\r\n");
}

TEST(AlarmTick, TimesThatNoClockShowsNeverRing) {
  AlarmDesk desk;
  desk.SetTime(0, 0);
  desk.Build({"A 10:60", "B 24:00", "C 24:30", "D 23:60", "E 24:59"});
  EXPECT_EQ(desk.schedule.alarmCount(), 4);
  for (int minute = 1; minute < 24 * 60; ++minute) {
    EXPECT_FALSE(desk.TickAt(minute / 60, minute % 60).showsMessages) << minute;
  }
  desk.now.date = On(2014, 12, 23);
  EXPECT_FALSE(desk.TickAt(0, 0).showsMessages);
  EXPECT_FALSE(desk.TickAt(0, 30).showsMessages);
}

TEST(AlarmTick, AnAlarmWithoutARowRingsAllTheSame) {
  AlarmDesk desk;
  desk.Build({"Dentist 3:30pm"});
  desk.rows = {"12/22/2014 something else"};
  desk.list = {desk.rows[0]};
  desk.schedule.MatchAlarmsToList(desk.list, desk.now);
  desk.TickAt(15, 30);
  EXPECT_TRUE(desk.rang());
  EXPECT_THAT(desk.list, ElementsAre("12/22/2014 something else"));
}

TEST(AlarmTick, MarkupAndOddCharactersStayAsTheyAre) {
  AlarmDesk desk;
  desk.Build({"<b>x</b> & \r y 9:00"});
  desk.TickAt(9, 0);
  EXPECT_EQ(desk.session.AlarmText(), "\r\n<b>x</b> & \r y 9:00\r\n");
  EXPECT_EQ(desk.session.alarmMessages(), "\n<b>x</b> & \r y 9:00\n");
}

TEST(AlarmTick, TheHelpingTickIsDueJustAfterTheFullMinute) {
  const struct {
    LocalTime now;
    int milliseconds;
  } cases[] = {
      {{On(2014, 12, 22), 15, 29, 0, 0}, 15'000},   {{On(2014, 12, 22), 15, 29, 0, 50}, 15'000},
      {{On(2014, 12, 22), 15, 29, 59, 0}, 1'050},   {{On(2014, 12, 22), 15, 29, 59, 999}, 51},
      {{On(2014, 12, 22), 15, 29, 59, 950}, 100},   {{On(2014, 12, 22), 15, 29, 30, 0}, 15'000},
      {{On(2014, 12, 22), 15, 29, 45, 50}, 15'000}, {{On(2014, 12, 22), 15, 29, 45, 51}, 14'999},
      {{On(2014, 12, 31), 23, 59, 59, 500}, 550},
  };
  const AlarmDesk desk;
  for (const auto& [now, milliseconds] : cases) {
    EXPECT_EQ(desk.session.MillisecondsToNextTick(now), milliseconds);
  }
}

// The user does something to the list right when the minute begins.
TEST(AlarmTick, TheHelpingTickIsNotPutOffByAnActionJustBeforeIt) {
  AlarmDesk desk;
  desk.Build({"Dentist 3:30pm"});
  desk.TickAt(15, 29, 45);
  for (const auto& [millisecond, wait] :
       {std::pair(0, 50), std::pair(20, 30), std::pair(49, 1), std::pair(50, 15'000)}) {
    const LocalTime now{On(2014, 12, 22), 15, 30, 0, millisecond};
    EXPECT_EQ(desk.session.MillisecondsToNextTick(now), wait);
  }
  // A tick that the timer has brought too early is the one of the minute.
  desk.SetTime(15, 30, 0);
  desk.now.millisecond = 20;
  EXPECT_TRUE(desk.Tick().showsMessages);
  EXPECT_EQ(desk.session.MillisecondsToNextTick(desk.now), 15'000);
}

TEST(AlarmTick, TheHelpingTickRingsWhatTheTimerWouldStepOver) {
  // The timer alone would tick at 15:29:59 and 15:31:00.
  AlarmDesk desk;
  desk.Build({"Dentist 3:30pm"});
  desk.TickAt(15, 29, 59);
  const int wait = desk.session.MillisecondsToNextTick(desk.now);
  EXPECT_EQ(wait, 1'050);
  desk.SetTime(15, 30, 0);
  desk.now.millisecond = 50;
  EXPECT_TRUE(desk.Tick().showsMessages);
  EXPECT_FALSE(desk.TickAt(15, 31, 0).showsMessages);
}

TEST(AlarmTick, LeavesTheSoundToItsCaller) {
  AlarmDesk desk;
  desk.Build({"Dentist 3:30pm"});
  for (const int minute : {30, 31}) {
    desk.SetTime(15, minute);
    EXPECT_TRUE(desk.session.Tick(desk.schedule, desk.list, desk.options, desk.now).sounds);
    EXPECT_THAT(desk.sound.calls, IsEmpty());
  }
}

TEST(AlarmTick, LetsThePlayerRestAtEveryTick) {
  AlarmDesk desk;
  desk.Build({});
  desk.TickAt(9, 0);
  desk.TickAt(9, 0);
  EXPECT_EQ(desk.sound.rests, 2);
}

}  // namespace
}  // namespace tidewarden::test
