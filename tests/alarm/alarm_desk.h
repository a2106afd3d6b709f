// An alarm session with everything around it in memory, on a clock that the test moves.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "alarm/alarm_session.h"
#include "platform/memory/memory_ports.h"
#include "platform/memory/memory_sound.h"
#include "tests/support/layouts.h"

namespace tidewarden::test {

inline const std::string kOwnSound = "/opt/tidewarden/alarms/emergency.wav";

class AlarmDesk {
 public:
  MemorySettingsStore settings;
  MemoryFileSystem files;
  MemorySoundPlayer sound;
  MemoryMessageBox messages;
  AlarmSession session{{settings, files, sound, messages},
                       {"/opt/tidewarden", "/home/ann/.data", PathStyle::kPosix}};
  AlarmOptions options;

  AlarmSchedule schedule;
  std::vector<std::string> rows;  // as the list has them without countdowns
  std::vector<std::string_view> list;
  LocalTime now{On(2014, 12, 22), 8, 0, 0};
  AlarmTick lastTick;

  AlarmDesk() { files.files[kOwnSound] = "RIFF"; }

  // Lists these events of `now`'s day, as a build of the reminder list does.
  void Build(const std::vector<std::string>& titles) {
    schedule.Clear();
    rows.clear();
    list.clear();
    for (const std::string& title : titles) {
      rows.push_back("12/22/2014 Today is " + title);
      schedule.ScheduleAlarm(title, now.date);
    }
    for (const std::string& row : rows) list.emplace_back(row);
    if (schedule.hasAlarmsToday()) schedule.MatchAlarmsToList(list, now);
    session.ListBuilt(schedule, now);
  }

  void SetTime(int hour, int minute, int second = 0) { now = {now.date, hour, minute, second, 0}; }

  // A tick at the present moment. What it played is in `sound.calls`.
  AlarmTick Tick() {
    sound.calls.clear();
    lastTick = session.Tick(schedule, list, options, now);
    if (lastTick.sounds) session.PlayAlarmSound();
    return lastTick;
  }

  // A tick at a time of the present day.
  AlarmTick TickAt(int hour, int minute, int second = 0) {
    SetTime(hour, minute, second);
    return Tick();
  }

  // The alarm window is closed.
  void Acknowledge() { session.Unload({}, {}); }

  [[nodiscard]] bool rang() const { return lastTick.showsMessages; }
  [[nodiscard]] int sounds() const { return static_cast<int>(sound.calls.size()); }
};

}  // namespace tidewarden::test
