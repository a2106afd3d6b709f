// Every option: what is stored is shown, what the user makes of it is stored, and the programs'
// own readers understand it as the user meant it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "alarm/alarm_sound.h"
#include "core/settings_keys.h"
#include "core/skin.h"
#include "dates/text.h"
#include "editor/events_writer.h"
#include "editor/print_page.h"
#include "reminder/daily_quote.h"
#include "reminder/list_appearance.h"
#include "reminder/list_options.h"
#include "tests/customizer/options_desk.h"
#include "tests/support/source_folder.h"

namespace tidewarden::test {
namespace {

using namespace modGetSetSaveSet;

std::string OnOff(bool on) {
  return on ? "on" : "off";
}

// What a program makes of the settings, as a text.
using Reader = std::function<std::string(OptionsDesk&)>;

Reader ListSwitch(bool ListOptions::*option) {
  return [option](OptionsDesk& desk) { return OnOff(ReadListOptions(desk.settings).*option); };
}
Reader OnlyTrue(Setting setting) {
  return [setting](OptionsDesk& desk) { return OnOff(isTrue(Get(desk.settings, setting))); };
}
Reader NotFalse(Setting setting) {
  return [setting](OptionsDesk& desk) { return OnOff(isNotFalse(Get(desk.settings, setting))); };
}
Reader Lower(Setting setting) {
  return [setting](OptionsDesk& desk) { return Get(desk.settings, setting); };
}

std::string Weekdays(OptionsDesk& desk) {
  const ListOptions options = ReadListOptions(desk.settings);
  return OnOff(options.weekdayOnEvents) + " " + OnOff(options.weekdayOnTodayLine);
}
std::string Differences(OptionsDesk& desk) {
  return OnOff(ReadListOptions(desk.settings).differences == DifferenceForm::kDaysOnly);
}
std::string Hex(const std::optional<Colour>& colour) {
  if (!colour) return "system";
  return std::to_string(colour->red) + "." + std::to_string(colour->green) + "." +
         std::to_string(colour->blue);
}
std::string Colours(OptionsDesk& desk) {
  SplitMixNumbers random;
  const ListColours colours = ApplyListColors(desk.settings, random, desk.clock.now);
  return Hex(colours.text) + " on " + Hex(colours.background);
}
std::string Quote(OptionsDesk& desk) {
  SplitMixNumbers random;
  DailyQuote quote(desk.settings, desk.files, random, desk.folders);
  quote.LoadDailyQuote(desk.clock.now);
  return OnOff(quote.visible());
}
std::string Sound(OptionsDesk& desk) {
  std::string path;
  const Status status = LocateAlarmSound(desk.settings, desk.files, desk.folders, path);
  return status.ok() ? path : "none";
}
std::string EventsFile(OptionsDesk& desk) {
  return LocateEventsFile(desk.settings, desk.files, desk.folders);
}

struct RoundTrip {
  std::string name;
  std::string section;
  std::string stored;       // at first
  std::string entered;      // by the user, as a text; "on" and "off" for a switch
  std::string storedAfter;  // exactly
  Reader read;
  std::string readBefore;
  std::string readAfter;
};

// What the page for printing is made by.
Reader Page(bool PageOptions::*value) {
  return [value](OptionsDesk& desk) { return OnOff(ReadPageOptions(desk.settings).*value); };
}
Reader Page(std::string PageOptions::*value) {
  return [value](OptionsDesk& desk) { return ReadPageOptions(desk.settings).*value; };
}
std::string PageWidth(OptionsDesk& desk) {
  std::ostringstream width;
  width << ReadPageOptions(desk.settings).widthPercent;
  return width.str();
}
Reader IsPrinted(std::size_t kind) {
  return
      [kind](OptionsDesk& desk) { return OnOff(ReadPageOptions(desk.settings).isPrinted[kind]); };
}

std::vector<RoundTrip> ListTrips() {
  const auto title = [](OptionsDesk& desk) { return ReadListOptions(desk.settings).titlebarText; };
  const auto preface = [](OptionsDesk& desk) { return ReadTodayPreface(desk.settings); };
  const auto offset = [](OptionsDesk& desk) {
    return std::to_string(ReadListOptions(desk.settings).newDateOffset);
  };
  return {
      {"TitlebarText", "Options", "Dates", " Ann's Übersicht ", " Ann's Übersicht ", title, "Dates",
       " Ann's Übersicht "},
      {"ShowTodaysDateBeneathReminders", "Options", "True", "off", "False",
       NotFalse(settings::kShowTodaysDateBeneathReminders), "on", "off"},
      {"ShowDailyQuotes", "Options", "False", "on", "True", Quote, "off", "on"},
      {"ListTodayWithEvents", "Options", "True", "off", "False",
       ListSwitch(&ListOptions::listTodayWithEvents), "on", "off"},
      {"CapitalizeTodaysEvents", "Options", "TRUE", "off", "False",
       ListSwitch(&ListOptions::capitalizeTodaysEvents), "on", "off"},
      {"PrefaceTodaysEventsWithTODAYis", "Options", "True", "Blank", "Blank", preface, " Today is ",
       "  "},
      {"PrefaceTodaysEventsWithTODAYis", "Options", "blank", "False", "False", preface, "  ", ""},
      {"ShowDayOfWeek", "Options", "", "True", "True", Weekdays, "on off", "on on"},
      {"ShowDayOfWeek", "Options", "True", "False", "False", Weekdays, "on on", "off off"},
      {"ShowDayOfWeek", "Options", "False", "", "", Weekdays, "off off", "on off"},
      {"ShowLessThan", "Options", "False", "on", "True", ListSwitch(&ListOptions::showLessThan),
       "off", "on"},
      {"SpellOutReminderMonths", "Options", "False", "on", "True",
       ListSwitch(&ListOptions::spellOutMonths), "off", "on"},
      {"ShowDateDifferencesInDaysOnly", "Options", "True", "off", "False", Differences, "on",
       "off"},
      {"ReminderListColors", "Options", "pale green", "violet", "violet", Colours,
       "0.0.0 on 153.255.153", "255.255.255 on 153.0.153"},
      {"ReminderListColors", "Options", "system", "FF0000,00FF7F", "FF0000,00FF7F", Colours,
       "system on system", "255.0.0 on 0.255.127"},
      {"NewDateOffset", "Options", "0000", "6:30", "0630", offset, "0", "630"},
      {"NewDateOffset", "Options", "0630", "2359", "2359", offset, "630", "2359"},
      {"ShowOnlyIfEventsInRange", "Options", "False", "on", "True",
       OnlyTrue(settings::kShowOnlyIfEventsInRange), "off", "on"},
      {"TimerInterval", "Settings", "60000", "1000", "1000", Lower(settings::kTimerInterval),
       "60000", "1000"},
  };
}

std::vector<RoundTrip> LookTrips() {
  const auto skin = [](OptionsDesk& desk) {
    return OnOff(!ReadSkin(desk.settings, desk.files, desk.folders).empty());
  };
  const auto face = [](OptionsDesk& desk) { return ApplyListFont(desk.settings).name; };
  const auto size = [](OptionsDesk& desk) {
    return std::to_string(ApplyListFont(desk.settings).size);
  };
  const auto bold = [](OptionsDesk& desk) { return OnOff(ApplyListFont(desk.settings).bold); };
  const auto italic = [](OptionsDesk& desk) { return OnOff(ApplyListFont(desk.settings).italic); };
  return {
      {"UseSkin", "Options", "True", "off", "False", skin, "on", "off"},
      {"FontName", "Settings", "MS Sans Serif", "DejaVu Serif", "DejaVu Serif", face,
       "MS Sans Serif", "DejaVu Serif"},
      {"FontSize", "Settings", "8", " 14 ", "14", size, "8", "14"},
      {"FontBold", "Settings", "False", "on", "True", bold, "off", "on"},
      {"FontItalic", "Settings", "True", "off", "False", italic, "on", "off"},
  };
}

std::vector<RoundTrip> AlarmAndFileTrips() {
  const auto backups = [](OptionsDesk& desk) {
    return std::to_string(LevelsOfBackup(desk.settings));
  };
  return {
      {"AlarmSound", "Options", "True", "off", "False", ListSwitch(&ListOptions::alarmSound), "on",
       "off"},
      {"AlarmBeepEachMinute", "Options", "1", "off", "False",
       ListSwitch(&ListOptions::alarmBeepEachMinute), "on", "off"},
      {"DisableAlarms", "Options", "False", "on", "True", ListSwitch(&ListOptions::disableAlarms),
       "off", "on"},
      {"AlarmPath", "Options", kSoundPath, "/home/ann/My Bell.ogg", "/home/ann/My Bell.ogg", Sound,
       kSoundPath, "/home/ann/My Bell.ogg"},
      {"Path", "Settings", kEventsPath, "/home/ann/Other.txt", "/home/ann/Other.txt", EventsFile,
       kEventsPath, "/home/ann/Other.txt"},
      {"Path", "Settings", kEventsPath, "/home/ann/plans", "/home/ann/plans", EventsFile,
       kEventsPath, "/home/ann/plans.txt"},
      {"LevelsOfBackup", "Options", "0", "8", "8", backups, "0", "8"},
      {"QuotesPath", "Options", kQuotesPath, "/home/ann/Quotes.txt", "/home/ann/Quotes.txt",
       Lower(settings::kQuotesPath), ToLower(kQuotesPath), "/home/ann/quotes.txt"},
  };
}

std::vector<RoundTrip> EditorAndPrintTrips() {
  std::vector<RoundTrip> trips{
      {"RememberLastAdvanceNotice", "Options", "False", "on", "True",
       OnlyTrue(settings::kRememberLastAdvanceNotice), "off", "on"},
      {"RememberLastOccurs", "Options", "False", "on", "True",
       OnlyTrue(settings::kRememberLastOccurs), "off", "on"},
      {"ShowPopularObservancesArrow", "Options", "True", "off", "False",
       OnlyTrue(settings::kShowPopularObservancesArrow), "on", "off"},
      {"ShowDateExample", "Options", "True", "off", "False", OnlyTrue(settings::kShowDateExample),
       "on", "off"},
      {"ShowMonthHeaders", "Printing", "True", "off", "False", Page(&PageOptions::hasMonthHeaders),
       "on", "off"},
      {"ShowTableBorder", "Printing", "False", "on", "True", Page(&PageOptions::hasBorder), "off",
       "on"},
      {"TableWidthAsPercentageOfPage", "Printing", "90", "75.5", "75.5", PageWidth, "90", "75.5"},
      {"MonthFontName", "Printing", "Arial", "Georgia", "Georgia", Page(&PageOptions::monthFont),
       "arial", "georgia"},
      {"EventFontName", "Printing", "Arial", "Verdana", "Verdana", Page(&PageOptions::eventFont),
       "arial", "verdana"},
  };
  for (std::size_t kind = 0; kind < kPrintedTypes; ++kind) {
    const std::string name = "EventTypesToPrint" + std::to_string(kind);
    trips.push_back({name, "Printing", "True", "off", "False", IsPrinted(kind), "on", "off"});
  }
  return trips;
}

std::vector<RoundTrip> AllTrips() {
  std::vector<RoundTrip> all;
  for (const auto& trips : {ListTrips(), LookTrips(), AlarmAndFileTrips(), EditorAndPrintTrips()}) {
    all.insert(all.end(), trips.begin(), trips.end());
  }
  return all;
}

TEST(Options, EveryOneGoesFromTheStoreToTheUserAndBackAsItsReaderReadsIt) {
  for (const RoundTrip& trip : AllTrips()) {
    SCOPED_TRACE(trip.name + ": " + trip.stored + " to " + trip.entered);
    OptionsDesk desk;
    desk.files.files["/home/ann/My Bell.ogg"] = "OggS";
    desk.files.files["/home/ann/Quotes.txt"] = "Three\n";
    desk.files.files["/home/ann/Other.txt"] = "";
    desk.Set(trip.section, trip.name, trip.stored);
    EXPECT_EQ(desk.Text(trip.name), trip.stored);
    EXPECT_EQ(trip.read(desk), trip.readBefore);

    const bool isSwitch = AllOptions()[IndexOfOption(trip.name)].kind == OptionKind::kSwitch;
    if (isSwitch) {
      EXPECT_EQ(OnOff(desk.IsOn(trip.name)), trip.readBefore);
      desk.Tick(trip.name, trip.entered == "on");
    } else {
      desk.Type(trip.name, trip.entered);
    }
    EXPECT_EQ(trip.read(desk), trip.readBefore) << "before it is saved";
    EXPECT_EQ(desk.session().Save(), SaveOutcome::kSaved);
    EXPECT_EQ(desk.settings.At(trip.section, trip.name), trip.storedAfter);
    EXPECT_EQ(trip.read(desk), trip.readAfter);
    desk.Reopen();
    // The reader of the events file adds an ending.
    EXPECT_EQ(desk.Text(trip.name), desk.settings.At(trip.section, trip.name));
    if (isSwitch) {
      EXPECT_EQ(OnOff(desk.IsOn(trip.name)), trip.readAfter);
    }
  }
}

TEST(Options, NoneIsLeftOutOfTheRoundTrips) {
  std::set<std::string> names;
  for (const RoundTrip& trip : AllTrips()) names.insert(trip.name);
  std::set<std::string> offered;
  for (const Option& option : AllOptions()) offered.emplace(NameOf(option));
  EXPECT_EQ(offered, names);
  EXPECT_EQ(offered.size(), AllOptions().size()) << "names are not shared";
}

TEST(Options, EveryOneHasALabelAndALineOfHelpWithItsDefault) {
  OptionsDesk desk;
  for (std::size_t i = 0; i < AllOptions().size(); ++i) {
    const Option& option = AllOptions()[i];
    SCOPED_TRACE(option.setting.key);
    EXPECT_FALSE(option.label.empty());
    EXPECT_FALSE(option.help.empty());
    EXPECT_THAT(desk.session().Help(i), ::testing::HasSubstr(std::string(option.help)));
    EXPECT_THAT(desk.session().Help(i), ::testing::ContainsRegex(" Default: .+\\.$"));
  }
  const auto help = [&desk](const char* name) { return desk.session().Help(IndexOfOption(name)); };
  EXPECT_THAT(help("UseSkin"), ::testing::EndsWith(" Default: on."));
  EXPECT_THAT(help("DisableAlarms"), ::testing::EndsWith(" Default: off."));
  EXPECT_THAT(help("ReminderListColors"), ::testing::EndsWith(" Default: pale green."));
  EXPECT_THAT(help("PrefaceTodaysEventsWithTODAYis"),
              ::testing::EndsWith(" Default: the words Today is."));
  EXPECT_THAT(help("FontSize"), ::testing::EndsWith(" Default: 8."));
  EXPECT_THAT(help("AlarmPath"), ::testing::EndsWith(" Default: " + kSoundPath + "."));
  desk.sound.endings = {"wav", "mp3", "mid"};
  EXPECT_THAT(help("AlarmPath"), ::testing::StartsWith("A wav, mp3 or mid file. Play "));
  desk.sound.endings = {"wav", "ogg"};
  EXPECT_THAT(help("AlarmPath"), ::testing::StartsWith("A wav or ogg file. Play "));
  EXPECT_THAT(help("QuotesPath"), ::testing::EndsWith(" Default: " + kQuotesPath + "."));
  EXPECT_THAT(help("Path"), ::testing::EndsWith("/.local/share/Tideward/dates.txt."));
}

// With nothing stored every option shows its default, and no reader would say otherwise.
TEST(Options, AnEmptyStoreShowsTheDefaultsAndStaysEmpty) {
  OptionsDesk desk;
  desk.settings.entries.clear();
  for (std::size_t i = 0; i < AllOptions().size(); ++i) {
    const Option& option = AllOptions()[i];
    SCOPED_TRACE(option.setting.key);
    if (!option.setting.defaultValue.empty()) {
      EXPECT_EQ(desk.session().Text(i), option.setting.defaultValue);
    }
    EXPECT_EQ(desk.session().Note(i).text, "");
  }
  static_cast<void>(desk.session().preview());
  static_cast<void>(desk.session().skin());
  EXPECT_FALSE(desk.session().hasChanges());
  EXPECT_EQ(desk.session().Save(), SaveOutcome::kSaved);
  EXPECT_EQ(desk.settings.entries.size(), 0U);
  EXPECT_EQ(desk.settings.writes, 0);
}

// The keys that nobody types: where windows stand, what was entered last, what is obsolete.
TEST(Options, EveryKeyIsOfferedOrIsNobodysChoice) {
  using namespace settings;
  const std::set<std::string_view> nobodys{kMaximized.key,
                                           kLeft.key,
                                           kTop.key,
                                           kWidth.key,
                                           kHeight.key,
                                           kAlarmMaximized.key,
                                           kAlarmLeft.key,
                                           kAlarmTop.key,
                                           kAlarmWidth.key,
                                           kAlarmHeight.key,
                                           kEditLeft.key,
                                           kEditTop.key,
                                           kEditHeight.key,
                                           kJustExited.key,
                                           kRememberLastAdvanceNoticeValue.key,
                                           kRememberLastOccursIndex.key,
                                           kShowTodaysDateWithReminders.key,
                                           kReminderListBackColor.key};
  std::set<std::string_view> offered;
  for (const Option& option : AllOptions()) offered.insert(option.setting.key);
  for (const std::string_view key : nobodys) EXPECT_FALSE(offered.contains(key)) << key;

  std::ifstream file(SourceFolder() / "core/settings_keys.h");
  std::ostringstream header;
  header << file.rdbuf();
  const std::string text = header.str();
  static const std::regex key(R"re(\{"([A-Za-z/0-9]+)",)re");
  int keys = 0;
  for (std::sregex_iterator it(text.begin(), text.end(), key), end; it != end; ++it, ++keys) {
    const std::string name = (*it)[1];
    EXPECT_TRUE(offered.contains(name) || nobodys.contains(name)) << name;
  }
  EXPECT_GE(keys, 48);
}

}  // namespace
}  // namespace tidewarden::test
