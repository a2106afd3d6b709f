// Every setting that the engine reads, with its default and mode. A default that is empty here
// although the setting has one is worked out by the caller.
#pragma once

#include <array>

#include "core/get_set_save_set.h"

namespace tidewarden::settings {

using modGetSetSaveSet::kKeepCaps;
using modGetSetSaveSet::Setting;

// Where the events file is; the default depends on the program's folder.
inline constexpr Setting kPath{"Settings/Path", "", kKeepCaps};

// Wording of the reminder list.
inline constexpr Setting kTitlebarText{"TitlebarText", "Your Tidewarden Upcoming Events",
                                       kKeepCaps};
inline constexpr Setting kShowLessThan{"ShowLessThan", "False"};
inline constexpr Setting kSpellOutReminderMonths{"SpellOutReminderMonths", "False"};
inline constexpr Setting kCapitalizeTodaysEvents{"CapitalizeTodaysEvents", "True"};
inline constexpr Setting kPrefaceTodaysEvents{"PrefaceTodaysEventsWithTODAYis", "True", kKeepCaps};
inline constexpr Setting kListTodayWithEvents{"ListTodayWithEvents", "True"};
inline constexpr Setting kShowDateDifferencesInDaysOnly{"ShowDateDifferencesInDaysOnly", "True"};
// Left unset until the user chooses: events then show their weekday and the today line does not.
inline constexpr Setting kShowDayOfWeek{"ShowDayOfWeek", ""};

// The reminder window: place (the defaults of left and top depend on the screen), and looks.
inline constexpr Setting kMaximized{"Settings/Maximized", "False"};
inline constexpr Setting kLeft{"Settings/Left", ""};
inline constexpr Setting kTop{"Settings/Top", ""};
inline constexpr Setting kWidth{"Settings/Width", "4425"};
inline constexpr Setting kHeight{"Settings/Height", "2025"};
inline constexpr Setting kTimerInterval{"Settings/TimerInterval", "60000"};
inline constexpr Setting kFontName{"Settings/FontName", "MS Sans Serif", kKeepCaps};
inline constexpr Setting kFontBold{"Settings/FontBold", "False"};
inline constexpr Setting kFontItalic{"Settings/FontItalic", "False"};
inline constexpr Setting kFontSize{"Settings/FontSize", "8"};
inline constexpr Setting kUseSkin{"UseSkin", "True"};
inline constexpr Setting kReminderListColors{"ReminderListColors", "pale green"};
inline constexpr Setting kShowTodaysDateBeneathReminders{"ShowTodaysDateBeneathReminders", "True"};

// Set by the options program when it closes; looked at and removed at the next start.
inline constexpr Setting kJustExited{"Customizer/JustExited", ""};

// When the list is shown at all.
inline constexpr Setting kShowOnlyIfEventsInRange{"ShowOnlyIfEventsInRange", "False"};
inline constexpr Setting kNewDateOffset{"NewDateOffset", "0000"};

// Alarms.
inline constexpr Setting kAlarmSound{"AlarmSound", "True"};
inline constexpr Setting kAlarmBeepEachMinute{"AlarmBeepEachMinute", "True"};
inline constexpr Setting kDisableAlarms{"DisableAlarms", "False"};
// The default is in the program's folder.
inline constexpr Setting kAlarmPath{"AlarmPath", ""};

// The alarm window's place; the defaults of left and top depend on the screen.
inline constexpr Setting kAlarmMaximized{"Alarm/Maximized", "False"};
inline constexpr Setting kAlarmLeft{"Alarm/Left", ""};
inline constexpr Setting kAlarmTop{"Alarm/Top", ""};
inline constexpr Setting kAlarmWidth{"Alarm/Width", "4815"};
inline constexpr Setting kAlarmHeight{"Alarm/Height", "2550"};

// The daily quote. The default path depends on the program's folder.
inline constexpr Setting kQuotesPath{"QuotesPath", ""};
inline constexpr Setting kShowDailyQuotes{"ShowDailyQuotes", "False"};

// The events editor.
inline constexpr Setting kEditLeft{"Edit/Left", "-1"};
inline constexpr Setting kEditTop{"Edit/Top", "-1"};
inline constexpr Setting kEditHeight{"Edit/Height", "4845"};
inline constexpr Setting kLevelsOfBackup{"LevelsOfBackup", "0"};
inline constexpr Setting kShowPopularObservancesArrow{"ShowPopularObservancesArrow", "True"};
inline constexpr Setting kShowDateExample{"ShowDateExample", "True"};
inline constexpr Setting kRememberLastAdvanceNotice{"RememberLastAdvanceNotice", "False"};
inline constexpr Setting kRememberLastOccurs{"RememberLastOccurs", "False"};
// Nothing until an event has been saved.
inline constexpr Setting kRememberLastAdvanceNoticeValue{"RememberLastAdvanceNoticeValue", ""};
inline constexpr Setting kRememberLastOccursIndex{"RememberLastOccursIndex", ""};

// Printing.
inline constexpr Setting kShowTableBorder{"Printing/ShowTableBorder", "False"};
inline constexpr Setting kTableWidthAsPercentageOfPage{"Printing/TableWidthAsPercentageOfPage",
                                                       "90"};
inline constexpr Setting kShowMonthHeaders{"Printing/ShowMonthHeaders", "True"};
inline constexpr Setting kMonthFontName{"Printing/MonthFontName", "Arial"};
inline constexpr Setting kEventFontName{"Printing/EventFontName", "Arial"};
// By kind of event: yearly, quarterly, monthly, one-time, every so many days, until done, counters,
// weekdays and last days of a month.
inline constexpr std::array<Setting, 8> kEventTypesToPrint{
    {{"Printing/EventTypesToPrint0", "True"},
     {"Printing/EventTypesToPrint1", "True"},
     {"Printing/EventTypesToPrint2", "True"},
     {"Printing/EventTypesToPrint3", "True"},
     {"Printing/EventTypesToPrint4", "True"},
     {"Printing/EventTypesToPrint5", "True"},
     {"Printing/EventTypesToPrint6", "True"},
     {"Printing/EventTypesToPrint7", "True"}}};

// No longer used; removed from the store when found.
inline constexpr Setting kShowTodaysDateWithReminders{"ShowTodaysDateWithReminders", ""};
inline constexpr Setting kReminderListBackColor{"ReminderListBackColor", ""};

}  // namespace tidewarden::settings
