// Which events are alarms, and the countdown that their rows show.
#include "alarm/alarm_schedule.h"

#include <gmock/gmock.h>

#include "tests/support/layouts.h"

namespace tidewarden::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const CivilDate kToday = On(2014, 12, 22);

LocalTime At(int hour, int minute, int second = 0) {
  return {kToday, hour, minute, second};
}

TEST(AlarmSchedule, HasNoAlarmsAtFirst) {
  const AlarmSchedule alarms;
  EXPECT_FALSE(alarms.hasAlarmsToday());
  EXPECT_EQ(alarms.alarmCount(), -1);
  EXPECT_THAT(alarms.alarmTimes(), IsEmpty());
}

TEST(AlarmSchedule, TakesTitlesWithATimeBefore2460) {
  const struct {
    const char* title;
    int time;  // -1 for a title that is no alarm
  } cases[] = {
      {"Dentist 3:30pm", 1530},
      {"Dentist 9:15 am", 915},
      {"9:15", 915},
      {"0:00", 0},
      {"Meeting 12:05 am", 5},
      {"Lunch 12:30 pm", 1230},
      {"Call at 1:30pm", 1330},
      {"10:60", 1060},
      {"23:59", 2359},
      {"23:60", 2360},
      {"24:00", 2400},
      {"24:30", 2430},
      {"24:59", 2459},
      {"24:60", -1},
      {"25:00", -1},
      {"23:61", -1},
      {"Dentist", -1},
      {"Ratio 1:x", -1},
      {"Note: call 9:15", -1},
      {":30", -1},
      {"12:3", -1},
      {"", -1},
  };
  for (const auto& [title, time] : cases) {
    SCOPED_TRACE(title);
    AlarmSchedule alarms;
    alarms.ScheduleAlarm(title, kToday);
    EXPECT_EQ(alarms.hasAlarmsToday(), time >= 0);
    EXPECT_EQ(alarms.alarmCount(), time >= 0 ? 0 : -1);
    if (time >= 0) {
      EXPECT_THAT(alarms.alarmTimes(), ElementsAre(time));
      EXPECT_THAT(alarms.alarmTitles(), ElementsAre(title));
    } else {
      EXPECT_THAT(alarms.alarmTimes(), IsEmpty());
      EXPECT_THAT(alarms.alarmTitles(), IsEmpty());
    }
  }
}

TEST(AlarmSchedule, KeepsTheAlarmsInTheOrderInWhichTheyCame) {
  AlarmSchedule alarms;
  alarms.ScheduleAlarm("B 15:00", kToday);
  alarms.ScheduleAlarm("no time", kToday);
  alarms.ScheduleAlarm("A 9:00", kToday);
  alarms.ScheduleAlarm("B 15:00", kToday);
  EXPECT_EQ(alarms.alarmCount(), 2);
  EXPECT_THAT(alarms.alarmTimes(), ElementsAre(1500, 900, 1500));
  EXPECT_THAT(alarms.alarmTitles(), ElementsAre("B 15:00", "A 9:00", "B 15:00"));
}

TEST(AlarmSchedule, KeepsTheDayOfEachAlarm) {
  AlarmSchedule alarms;
  alarms.ScheduleAlarm("A 9:00", kToday);
  alarms.ScheduleAlarm("B 9:00", On(2014, 12, 23));
  EXPECT_THAT(alarms.alarmDates(), ElementsAre(kToday, On(2014, 12, 23)));
}

TEST(AlarmSchedule, HasNoRowsBeforeTheListIsThere) {
  AlarmSchedule alarms;
  alarms.ScheduleAlarm("A 9:00", kToday);
  EXPECT_THAT(alarms.alarmItemIndexes(), ElementsAre(AlarmSchedule::kNoRow));
  EXPECT_THAT(alarms.alarmItemTexts(), ElementsAre(""));
}

TEST(AlarmSchedule, ForgetsEverything) {
  AlarmSchedule alarms;
  std::vector<std::string_view> list{"A 9:00"};
  alarms.ScheduleAlarm("A 9:00", kToday);
  alarms.MatchAlarmsToList(list, At(8, 0));
  alarms.Clear();
  EXPECT_FALSE(alarms.hasAlarmsToday());
  EXPECT_EQ(alarms.alarmCount(), -1);
  EXPECT_THAT(alarms.alarmTimes(), IsEmpty());
  EXPECT_THAT(alarms.alarmTitles(), IsEmpty());
  EXPECT_THAT(alarms.alarmDates(), IsEmpty());
  EXPECT_THAT(alarms.alarmItemTexts(), IsEmpty());
  EXPECT_THAT(alarms.alarmItemIndexes(), IsEmpty());
}

// --- The countdown.

TEST(TimeToGo, IsToldInHoursAndMinutes) {
  const struct {
    const char* title;
    LocalTime now;
    const char* countdown;
  } cases[] = {
      {"X 15:30", At(14, 25), " (1:05 to go)"},
      {"X 15:30", At(15, 25), " (0:05 to go)"},
      {"X 15:30", At(15, 29), " (0:01 to go)"},
      {"X 15:30", At(15, 30), " (0:00)"},
      {"X 15:30", At(15, 31), " (0:01 passed)"},
      {"X 15:30", At(15, 35), " (0:05 passed)"},
      {"X 15:30", At(16, 30), " (1:00 passed)"},
      {"X 15:30", At(14, 30), " (1:00 to go)"},
      {"X 15:30", At(14, 31), " (0:59 to go)"},
      // Seconds do not count.
      {"X 15:30", At(15, 29, 59), " (0:01 to go)"},
      {"X 15:30", At(15, 30, 59), " (0:00)"},
      {"X 15:30", At(15, 31, 59), " (0:01 passed)"},
      // From one end of the day to the other.
      {"X 23:59", At(0, 0), " (23:59 to go)"},
      {"X 0:00", At(23, 59), " (23:59 passed)"},
      {"X 0:00", At(0, 0), " (0:00)"},
      {"X 12:05 am", At(0, 4), " (0:01 to go)"},
      // Times that no clock shows are counted in minutes all the same.
      {"X 10:60", At(10, 0), " (1:00 to go)"},
      {"X 10:60", At(11, 0), " (0:00)"},
      {"X 10:60", At(11, 1), " (0:01 passed)"},
      {"X 24:00", At(0, 0), " (24:00 to go)"},
      {"X 24:00", At(23, 59), " (0:01 to go)"},
      {"X 24:30", At(0, 0), " (24:30 to go)"},
      {"X 24:30", At(23, 59), " (0:31 to go)"},
      {"X 24:59", At(14, 25), " (10:34 to go)"},
      {"X 23:60", At(23, 59), " (0:01 to go)"},
  };
  for (const auto& [title, now, countdown] : cases) {
    SCOPED_TRACE(title + std::string(countdown));
    AlarmSchedule alarms;
    alarms.ScheduleAlarm(title, kToday);
    const std::string row = std::string("12/22/2014 Today is ") + title;
    std::vector<std::string_view> list{"row", row};
    alarms.MatchAlarmsToList(list, now);
    EXPECT_THAT(list, ElementsAre("row", row + countdown));
  }
}

// Every minute of a day, against a count in the test's own words.
TEST(TimeToGo, FollowsTheWholeDay) {
  AlarmSchedule alarms;
  alarms.ScheduleAlarm("X 13:37", kToday);
  std::vector<std::string_view> list{"X 13:37"};
  alarms.MatchAlarmsToList(list, At(0, 0));
  for (int minute = 0; minute < 24 * 60; ++minute) {
    SCOPED_TRACE(minute);
    alarms.ShowTimeToGo(0, list, At(minute / 60, minute % 60));
    const int left = 13 * 60 + 37 - minute;
    const int amount = left < 0 ? -left : left;
    std::string minutes = std::to_string(amount % 60);
    if (minutes.size() == 1) minutes = "0" + minutes;
    const std::string suffix = left > 0 ? " to go" : left < 0 ? " passed" : "";
    ASSERT_EQ(list[0], "X 13:37 (" + std::to_string(amount / 60) + ":" + minutes + suffix + ")");
  }
}

TEST(TimeToGo, ReplacesTheOneBefore) {
  AlarmSchedule alarms;
  alarms.ScheduleAlarm("X 15:30", kToday);
  std::vector<std::string_view> list{"12/22/2014 Today is X 15:30"};
  alarms.MatchAlarmsToList(list, At(15, 28));
  for (const int minute : {29, 30, 31}) alarms.ShowTimeToGo(0, list, At(15, minute));
  EXPECT_THAT(list, ElementsAre("12/22/2014 Today is X 15:30 (0:01 passed)"));
  EXPECT_THAT(alarms.alarmItemTexts(), ElementsAre("12/22/2014 Today is X 15:30"));
}

TEST(TimeToGo, IsMadeFromTheStoredRowWhateverTheRowHasBecome) {
  AlarmSchedule alarms;
  alarms.ScheduleAlarm("X 15:30", kToday);
  std::vector<std::string_view> list{"12/22/2014 Today is X 15:30"};
  alarms.MatchAlarmsToList(list, At(15, 28));
  list[0] = "something else";
  alarms.ShowTimeToGo(0, list, At(15, 30));
  EXPECT_THAT(list, ElementsAre("12/22/2014 Today is X 15:30 (0:00)"));
}

TEST(TimeToGo, IsNotShownForAnAlarmWithoutARow) {
  AlarmSchedule alarms;
  alarms.ScheduleAlarm("X 15:30", kToday);
  std::vector<std::string_view> list{"first", "second"};
  alarms.ShowTimeToGo(0, list, At(15, 30));  // before there is a list
  alarms.MatchAlarmsToList(list, At(15, 28));
  alarms.ShowTimeToGo(0, list, At(15, 30));
  EXPECT_THAT(list, ElementsAre("first", "second"));
  EXPECT_THAT(alarms.alarmItemIndexes(), ElementsAre(AlarmSchedule::kNoRow));
  EXPECT_TRUE(alarms.hasAlarmsToday());
}

TEST(TimeToGo, IsNotShownOnAListThatHasBecomeShorter) {
  AlarmSchedule alarms;
  alarms.ScheduleAlarm("X 15:30", kToday);
  std::vector<std::string_view> list{"first", "X 15:30"};
  alarms.MatchAlarmsToList(list, At(15, 28));
  list.resize(1);
  alarms.ShowTimeToGo(0, list, At(15, 30));
  list.clear();
  alarms.ShowTimeToGo(0, list, At(15, 30));
  EXPECT_THAT(list, IsEmpty());
}

}  // namespace
}  // namespace tidewarden::test
