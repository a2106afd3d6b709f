#include "customizer/options.h"

#include <algorithm>
#include <array>

#include "core/settings_keys.h"

namespace tidewarden {
namespace {

using modGetSetSaveSet::Setting;
using enum OptionKind;
using enum OptionPage;
using enum SwitchReading;

constexpr std::array<PageName, kPageCount> kPages{{{kList, "The list", "list"},
                                                   {kLooks, "Colours and font", "looks"},
                                                   {kAlarms, "Alarms", "alarms"},
                                                   {kEditor, "Editor", "editor"},
                                                   {kPrinting, "Printing", "printing"},
                                                   {kFiles, "Files and backups", "files"},
                                                   {kStart, "Starting", "start"}}};

constexpr std::array<Choice, 3> kPrefaces{
    {{"True", "the words Today is"}, {"Blank", "two blanks"}, {"False", "nothing at all"}}};

constexpr std::array<Choice, 3> kWeekdays{{{"", "beside coming events"},
                                           {"True", "beside coming events and on today's line"},
                                           {"False", "nowhere"}}};

constexpr std::array<Choice, 16> kColourNames{{{"pale red", "Pale red"},
                                               {"red", "Red"},
                                               {"pale orange", "Pale orange"},
                                               {"orange", "Orange"},
                                               {"pale yellow", "Pale yellow"},
                                               {"yellow", "Yellow"},
                                               {"pale green", "Pale green"},
                                               {"green", "Green"},
                                               {"pale blue", "Pale blue"},
                                               {"blue", "Blue"},
                                               {"pale violet", "Pale violet"},
                                               {"violet", "Violet"},
                                               {"white", "White"},
                                               {"black", "Black"},
                                               {"system", "As the desktop has them"},
                                               {"random", "Others each time"}}};

constexpr Option Switch(Setting setting, OptionPage page, SwitchReading reading,
                        std::string_view label, std::string_view help,
                        std::string_view group = {}) {
  Option option{setting, kSwitch, page, group, label, help};
  option.reading = reading;
  return option;
}

constexpr Option Choose(Setting setting, OptionPage page, std::span<const Choice> choices,
                        std::string_view label, std::string_view help,
                        std::string_view group = {}) {
  Option option{setting, kChoice, page, group, label, help};
  option.choices = choices;
  return option;
}

constexpr Option Number(Setting setting, OptionPage page, double least, double most,
                        std::string_view label, std::string_view help,
                        std::string_view group = {}) {
  Option option{setting, kNumber, page, group, label, help};
  option.least = least;
  option.most = most;
  return option;
}

constexpr Option WithFractions(Option option) {
  option.fractions = true;
  return option;
}

constexpr Option Other(Setting setting, OptionKind kind, OptionPage page, std::string_view label,
                       std::string_view help, std::string_view group = {}) {
  return {setting, kind, page, group, label, help};
}

// The eight kinds of event that a page is printed from, by their numbers.
constexpr Option PrintedKind(std::size_t kind, std::string_view label, std::string_view help,
                             std::string_view group = {}) {
  return Switch(settings::kEventTypesToPrint[kind], kPrinting, kOnlyTrue, label, help, group);
}

constexpr std::array kOptions{
    Other(settings::kTitlebarText, kText, kList, "Title of the window",
          "Shown at the top of the reminder window.", "The window"),
    Switch(settings::kShowTodaysDateBeneathReminders, kList, kNotFalse,
           "Show today's date under the list", "On a line of its own, below all reminders."),
    Switch(settings::kShowDailyQuotes, kList, kOnlyTrue, "Show a quote under the list",
           "Another one with each list, out of the file under Files and backups."),
    Switch(settings::kListTodayWithEvents, kList, kNotFalse, "List today's date",
           "A line for today among the reminders, and in the editor.", "Today"),
    Switch(settings::kCapitalizeTodaysEvents, kList, kNotFalse, "Today's events in capitals",
           "DENTIST in place of Dentist."),
    Choose(settings::kPrefaceTodaysEvents, kList, kPrefaces, "Before the title of today's events",
           "What stands between the date and the title."),
    Choose(settings::kShowDayOfWeek, kList, kWeekdays, "Day of the week",
           "Shown for coming events less than eight days away.", "Coming events"),
    Switch(settings::kShowLessThan, kList, kNotFalse, "Show the days of notice",
           "(3 days < 14) in place of (3 days)."),
    Switch(settings::kSpellOutReminderMonths, kList, kNotFalse, "Months as words",
           "The name of the month in place of its number.", "Dates and counts"),
    Switch(settings::kShowDateDifferencesInDaysOnly, kList, kNotFalse, "Count in days only",
           "For counts to and from a date. Off counts years, months and days."),

    Other(settings::kReminderListColors, kColours, kLooks, "Colours of the list",
          "Text and background of the reminder list.", "Colours"),
    Switch(settings::kUseSkin, kLooks, kNotFalse, "Use the skin",
           "Off leaves the windows the plain look of the desktop."),
    Other(settings::kFontName, kFont, kLooks, "Font", "For the list, the quote and the alarms.",
          "Font of the list"),
    Number(settings::kFontSize, kLooks, 4, 99, "Size", "In points, 4 to 99."),
    Switch(settings::kFontBold, kLooks, kOnlyTrue, "Bold", "Thicker letters."),
    Switch(settings::kFontItalic, kLooks, kOnlyTrue, "Italic", "Slanted letters."),

    Switch(settings::kAlarmSound, kAlarms, kTextToBoolean, "Sound when an alarm goes off",
           "Off leaves out the first sound only; for silence switch off the repeat too.",
           "When an alarm goes off"),
    Switch(settings::kAlarmBeepEachMinute, kAlarms, kTextToBoolean, "Sound again each minute",
           "Until you press OK in the alarm window, also without the first sound."),
    Switch(settings::kDisableAlarms, kAlarms, kTextToBoolean, "Never repeat the sound",
           "Whatever is ticked above. The first sound stays."),
    Other(settings::kAlarmPath, kSoundFile, kAlarms, "Sound file", "Play lets you hear it.",
          "The sound"),

    Switch(settings::kRememberLastAdvanceNotice, kEditor, kOnlyTrue, "Remember the notice",
           "A new event begins with the days of notice that you saved last.", "A new event"),
    Switch(settings::kRememberLastOccurs, kEditor, kOnlyTrue, "Remember how often",
           "A new event begins with the kind of repeating that you saved last."),
    Switch(settings::kShowPopularObservancesArrow, kEditor, kOnlyTrue,
           "Point to the popular observances", "A hint beside their list when you add an event.",
           "Hints"),
    Switch(settings::kShowDateExample, kEditor, kOnlyTrue, "Show an example of a date",
           "Below the date while you type it."),

    Switch(settings::kShowMonthHeaders, kPrinting, kOnlyTrue, "A heading for each month",
           "The name of the month above its events.", "The page"),
    Switch(settings::kShowTableBorder, kPrinting, kNotFalse, "Lines around the events",
           "A table with borders."),
    WithFractions(Number(settings::kTableWidthAsPercentageOfPage, kPrinting, 50, 100,
                         "Width in percent",
                         "How much of the page's width the events take, 50 to 100.")),
    Other(settings::kMonthFontName, kFont, kPrinting, "Font of the headings",
          "For the names of the months."),
    Other(settings::kEventFontName, kFont, kPrinting, "Font of the events", "For everything else."),
    PrintedKind(0, "Yearly events", "Birthdays, anniversaries and feasts.", "Events to print"),
    PrintedKind(1, "Quarterly events", "Those of every three months."),
    PrintedKind(2, "Monthly events", "Those of every month."),
    PrintedKind(3, "One-time events", "Those of one day only."),
    PrintedKind(4, "Events every so many days", "Such as every 14 days."),
    PrintedKind(5, "Tasks until done", "Those that stay listed until you delete them."),
    PrintedKind(6, "Counts to and from a date", "Days past and days future."),
    PrintedKind(7, "Weekdays and last days of a month",
                "Such as the fourth Thursday or the last day."),

    Other(settings::kPath, kEventsFile, kFiles, "Events file", "The text file with your events.",
          "Events"),
    Number(settings::kLevelsOfBackup, kFiles, 0, 8, "Earlier versions to keep",
           "Copies of the events file that the editor keeps beside it, 0 to 8."),
    Other(settings::kQuotesPath, kQuotesFile, kFiles, "Quotes file",
          "One quote on each line; \u00AC breaks a line.", "Quotes"),

    Switch(
        settings::kShowOnlyIfEventsInRange, kStart, kOnlyTrue, "Run only while something is near",
        "Ends the program, also a running one, when its list has no event.", "The reminder window"),
    Other(settings::kNewDateOffset, kTime, kStart, "The new day begins at",
          "Hours and minutes, as 0630 or 06:30. A list left open overnight waits for it."),
    Number(settings::kTimerInterval, kStart, 1000, 60000, "Look at the clock every",
           "In milliseconds: 1000 is a second, 60000 a minute."),
};

}  // namespace

std::span<const PageName, kPageCount> AllPages() {
  return kPages;
}

std::span<const Option> AllOptions() {
  return kOptions;
}

std::string_view NameOf(const Option& option) {
  const std::string_view key = option.setting.key;
  return key.substr(key.rfind('/') + 1);
}

std::size_t IndexOfOption(std::string_view name) {
  const auto* const found = std::find_if(kOptions.begin(), kOptions.end(),
                                         [name](const auto& o) { return NameOf(o) == name; });
  return static_cast<std::size_t>(found - kOptions.begin());
}

std::span<const Choice> ColourNames() {
  return kColourNames;
}

}  // namespace tidewarden
