#include "core/settings_keys.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/memory/memory_ports.h"

namespace tidewarden::settings {
namespace {

struct KeyCase {
  Setting setting;
  std::string section;
  std::string name;
  std::string stored;  // after the first read of an empty store; "(missing)" for nothing
  std::string firstRead;
};

TEST(SettingsKeys, AnEmptyStoreAnswersEveryKeyAndKeepsItsDefault) {
  const std::string title = "Your Tidewarden Upcoming Events";
  const std::string missing = "(missing)";
  const std::vector<KeyCase> cases{
      {kPath, "Settings", "Path", missing, ""},
      {kTitlebarText, "Options", "TitlebarText", title, title},
      {kShowLessThan, "Options", "ShowLessThan", "False", "false"},
      {kSpellOutReminderMonths, "Options", "SpellOutReminderMonths", "False", "false"},
      {kCapitalizeTodaysEvents, "Options", "CapitalizeTodaysEvents", "True", "true"},
      {kPrefaceTodaysEvents, "Options", "PrefaceTodaysEventsWithTODAYis", "True", "True"},
      {kListTodayWithEvents, "Options", "ListTodayWithEvents", "True", "true"},
      {kShowDateDifferencesInDaysOnly, "Options", "ShowDateDifferencesInDaysOnly", "True", "true"},
      {kShowDayOfWeek, "Options", "ShowDayOfWeek", missing, ""},
      {kShowOnlyIfEventsInRange, "Options", "ShowOnlyIfEventsInRange", "False", "false"},
      {kNewDateOffset, "Options", "NewDateOffset", "0000", "0000"},
      {kAlarmSound, "Options", "AlarmSound", "True", "true"},
      {kAlarmBeepEachMinute, "Options", "AlarmBeepEachMinute", "True", "true"},
      {kDisableAlarms, "Options", "DisableAlarms", "False", "false"},
      {kQuotesPath, "Options", "QuotesPath", missing, ""},
      {kShowDailyQuotes, "Options", "ShowDailyQuotes", "False", "false"},
      {kAlarmPath, "Options", "AlarmPath", missing, ""},
      {kAlarmMaximized, "Alarm", "Maximized", "False", "false"},
      {kAlarmLeft, "Alarm", "Left", missing, ""},
      {kAlarmTop, "Alarm", "Top", missing, ""},
      {kAlarmWidth, "Alarm", "Width", "4815", "4815"},
      {kAlarmHeight, "Alarm", "Height", "2550", "2550"},
      {kEditLeft, "Edit", "Left", "-1", "-1"},
      {kEditTop, "Edit", "Top", "-1", "-1"},
      {kEditHeight, "Edit", "Height", "4845", "4845"},
      {kLevelsOfBackup, "Options", "LevelsOfBackup", "0", "0"},
      {kShowPopularObservancesArrow, "Options", "ShowPopularObservancesArrow", "True", "true"},
      {kShowDateExample, "Options", "ShowDateExample", "True", "true"},
      {kRememberLastAdvanceNotice, "Options", "RememberLastAdvanceNotice", "False", "false"},
      {kRememberLastOccurs, "Options", "RememberLastOccurs", "False", "false"},
      {kRememberLastAdvanceNoticeValue, "Options", "RememberLastAdvanceNoticeValue", missing, ""},
      {kRememberLastOccursIndex, "Options", "RememberLastOccursIndex", missing, ""},
      {kMaximized, "Settings", "Maximized", "False", "false"},
      {kLeft, "Settings", "Left", missing, ""},
      {kTop, "Settings", "Top", missing, ""},
      {kWidth, "Settings", "Width", "4425", "4425"},
      {kHeight, "Settings", "Height", "2025", "2025"},
      {kTimerInterval, "Settings", "TimerInterval", "60000", "60000"},
      {kFontName, "Settings", "FontName", "MS Sans Serif", "MS Sans Serif"},
      {kFontBold, "Settings", "FontBold", "False", "false"},
      {kFontItalic, "Settings", "FontItalic", "False", "false"},
      {kFontSize, "Settings", "FontSize", "8", "8"},
      {kUseSkin, "Options", "UseSkin", "True", "true"},
      {kReminderListColors, "Options", "ReminderListColors", "pale green", "pale green"},
      {kShowTodaysDateBeneathReminders, "Options", "ShowTodaysDateBeneathReminders", "True",
       "true"},
      {kShowTableBorder, "Printing", "ShowTableBorder", "False", "false"},
      {kTableWidthAsPercentageOfPage, "Printing", "TableWidthAsPercentageOfPage", "90", "90"},
      {kShowMonthHeaders, "Printing", "ShowMonthHeaders", "True", "true"},
      {kMonthFontName, "Printing", "MonthFontName", "Arial", "arial"},
      {kEventFontName, "Printing", "EventFontName", "Arial", "arial"},
      {kEventTypesToPrint[0], "Printing", "EventTypesToPrint0", "True", "true"},
      {kEventTypesToPrint[1], "Printing", "EventTypesToPrint1", "True", "true"},
      {kEventTypesToPrint[2], "Printing", "EventTypesToPrint2", "True", "true"},
      {kEventTypesToPrint[3], "Printing", "EventTypesToPrint3", "True", "true"},
      {kEventTypesToPrint[4], "Printing", "EventTypesToPrint4", "True", "true"},
      {kEventTypesToPrint[5], "Printing", "EventTypesToPrint5", "True", "true"},
      {kEventTypesToPrint[6], "Printing", "EventTypesToPrint6", "True", "true"},
      {kEventTypesToPrint[7], "Printing", "EventTypesToPrint7", "True", "true"},
      {kJustExited, "Customizer", "JustExited", missing, ""},
      {kShowTodaysDateWithReminders, "Options", "ShowTodaysDateWithReminders", missing, ""},
      {kReminderListBackColor, "Options", "ReminderListBackColor", missing, ""},
  };
  for (const KeyCase& c : cases) {
    SCOPED_TRACE(c.name);
    MemorySettingsStore store;
    EXPECT_EQ(Get(store, c.setting), c.firstRead);
    EXPECT_EQ(store.At(c.section, c.name), c.stored);
    EXPECT_EQ(store.entries.size(), c.stored == missing ? 0 : 1);
  }
}

TEST(SettingsKeys, OnlyShownTextsAndPathsKeepTheirLetterCase) {
  for (const Setting& setting : {kPath, kTitlebarText, kPrefaceTodaysEvents, kFontName}) {
    EXPECT_EQ(setting.mode, "KeepCaps") << setting.key;
  }
  for (const Setting& setting : {kShowLessThan,
                                 kSpellOutReminderMonths,
                                 kCapitalizeTodaysEvents,
                                 kListTodayWithEvents,
                                 kShowDateDifferencesInDaysOnly,
                                 kShowDayOfWeek,
                                 kShowOnlyIfEventsInRange,
                                 kNewDateOffset,
                                 kAlarmSound,
                                 kAlarmBeepEachMinute,
                                 kDisableAlarms,
                                 kQuotesPath,
                                 kShowDailyQuotes,
                                 kAlarmPath,
                                 kAlarmMaximized,
                                 kAlarmLeft,
                                 kAlarmTop,
                                 kAlarmWidth,
                                 kAlarmHeight,
                                 kMaximized,
                                 kLeft,
                                 kTop,
                                 kWidth,
                                 kHeight,
                                 kTimerInterval,
                                 kFontBold,
                                 kFontItalic,
                                 kFontSize,
                                 kUseSkin,
                                 kReminderListColors,
                                 kShowTodaysDateBeneathReminders,
                                 kShowTableBorder,
                                 kTableWidthAsPercentageOfPage,
                                 kShowMonthHeaders,
                                 kMonthFontName,
                                 kEventFontName,
                                 kEventTypesToPrint[0],
                                 kEventTypesToPrint[7],
                                 kJustExited,
                                 kShowTodaysDateWithReminders,
                                 kReminderListBackColor}) {
    EXPECT_EQ(setting.mode, "") << setting.key;
  }
}

TEST(SettingsKeys, TheStoreBelongsToTheApplication) {
  EXPECT_EQ(kApplicationName, "Tideward");
}

}  // namespace
}  // namespace tidewarden::settings
