// The settings that shape the reminder list, read once for each build.
#pragma once

#include <string>

#include "core/settings_store.h"
#include "dates/date_difference.h"

namespace tidewarden {

struct ListOptions {
  std::string titlebarText;  // the reminder window's caption
  bool showLessThan = false;
  bool spellOutMonths = false;
  int newDateOffset = 0;  // hhmm, as stored; no range is enforced
  bool alarmSound = true;
  bool alarmBeepEachMinute = true;
  bool disableAlarms = false;

  // Wording.
  bool capitalizeTodaysEvents = true;
  bool listTodayWithEvents = true;
  bool weekdayOnEvents = true;      // unless "ShowDayOfWeek" reads "false"
  bool weekdayOnTodayLine = false;  // only if "ShowDayOfWeek" reads "true"
  DifferenceForm differences = DifferenceForm::kDaysOnly;
};

[[nodiscard]] ListOptions ReadListOptions(SettingsStore& store);

// The text between the date and the title of today's events: " Today is ", two blanks for the
// value "blank", nothing for "false". The stored text itself is never shown.
[[nodiscard]] std::string ReadTodayPreface(SettingsStore& store);

}  // namespace tidewarden
