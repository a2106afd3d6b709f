// Today's alarms: the events of today whose title holds a time of day, and the countdown that
// their rows of the reminder list show.
//
// The list builder fills the schedule on every build. The schedule knows nothing of windows,
// sound or the clock; the current time comes in as a parameter.
#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "dates/civil.h"

namespace tidewarden {

class AlarmSchedule {
 public:
  // The index of an alarm that stands on no row.
  static constexpr int kNoRow = -1;

  // Forgets all alarms.
  void Clear();

  // Adds an event of `today`, the day of the list. `title` is the event's title with its year
  // marker applied and its own letter case. A title without a time before 2460 is no alarm.
  void ScheduleAlarm(std::string_view title, CivilDate today);

  // Finds the row of each alarm, the first whose end equals the title, and shows its countdown
  // there. Letter case is ignored, also where capitals do not map back. Alarms that stand on no row
  // keep none. The list then looks at texts of this schedule, until Clear.
  void MatchAlarmsToList(std::vector<std::string_view>& list, LocalTime now);

  // Rewrites the row of alarm `i` with the time that is left: the row's own text and " (1:05 to
  // go)", " (0:05 passed)" or " (0:00)". Does nothing for an alarm without a row.
  void ShowTimeToGo(int i, std::vector<std::string_view>& list, LocalTime now);

  [[nodiscard]] bool hasAlarmsToday() const { return alarmCount() >= 0; }

  // The index of the last alarm, -1 when there are none.
  [[nodiscard]] int alarmCount() const { return static_cast<int>(alarmTimes_.size()) - 1; }

  // One entry for each alarm, in the order in which they were scheduled.
  [[nodiscard]] const std::vector<int>& alarmTimes() const { return alarmTimes_; }
  [[nodiscard]] const std::vector<std::string>& alarmTitles() const { return alarmTitles_; }
  [[nodiscard]] const std::vector<CivilDate>& alarmDates() const { return alarmDates_; }
  [[nodiscard]] const std::vector<std::string>& alarmItemTexts() const { return alarmItemTexts_; }
  [[nodiscard]] const std::vector<int>& alarmItemIndexes() const { return alarmItemIndexes_; }

 private:
  std::vector<int> alarmTimes_;
  std::vector<std::string> alarmTitles_;
  std::vector<CivilDate> alarmDates_;
  std::vector<std::string> alarmItemTexts_;
  std::vector<int> alarmItemIndexes_;
  std::deque<std::string> shownTexts_;  // the rows with their countdowns, one for each alarm
};

}  // namespace tidewarden
