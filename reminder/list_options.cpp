#include "reminder/list_options.h"

#include "core/settings_keys.h"
#include "dates/text.h"

namespace tidewarden {
namespace {

using modGetSetSaveSet::Get;
using modGetSetSaveSet::isNotFalse;
using modGetSetSaveSet::isTrue;
using modGetSetSaveSet::Setting;
using modGetSetSaveSet::toBoolean;

bool ReadAlarmOption(SettingsStore& store, const Setting& setting) {
  return toBoolean(Get(store, setting), setting.defaultValue == "True");
}

// The whole part of a number, kept within what an int holds.
int WholeNumber(std::string_view text) {
  const double value = LeadingNumber(text);
  constexpr double kLimit = 1e9;
  return static_cast<int>(value > kLimit ? kLimit : value < -kLimit ? -kLimit : value);
}

}  // namespace

ListOptions ReadListOptions(SettingsStore& store) {
  ListOptions options;
  options.titlebarText = Get(store, settings::kTitlebarText);
  options.showLessThan = isNotFalse(Get(store, settings::kShowLessThan));
  options.spellOutMonths = isNotFalse(Get(store, settings::kSpellOutReminderMonths));
  options.newDateOffset = WholeNumber(Get(store, settings::kNewDateOffset));
  options.alarmSound = ReadAlarmOption(store, settings::kAlarmSound);
  options.alarmBeepEachMinute = ReadAlarmOption(store, settings::kAlarmBeepEachMinute);
  options.disableAlarms = ReadAlarmOption(store, settings::kDisableAlarms);
  options.capitalizeTodaysEvents = isNotFalse(Get(store, settings::kCapitalizeTodaysEvents));
  options.listTodayWithEvents = isNotFalse(Get(store, settings::kListTodayWithEvents));
  const std::string showDayOfWeek = Get(store, settings::kShowDayOfWeek);
  options.weekdayOnEvents = isNotFalse(showDayOfWeek);
  options.weekdayOnTodayLine = isTrue(showDayOfWeek);
  options.differences = isNotFalse(Get(store, settings::kShowDateDifferencesInDaysOnly))
                            ? DifferenceForm::kDaysOnly
                            : DifferenceForm::kYearsMonthsDays;
  return options;
}

std::string ReadTodayPreface(SettingsStore& store) {
  const std::string value = ToLower(Get(store, settings::kPrefaceTodaysEvents));
  if (value == "blank") return "  ";
  return value == "false" ? "" : " Today is ";
}

}  // namespace tidewarden
