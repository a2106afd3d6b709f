// What can be wrong with a value, and what a damaged one looks like.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/settings_keys.h"
#include "reminder/list_options.h"
#include "tests/customizer/options_desk.h"

namespace tidewarden::test {
namespace {

struct CheckCase {
  std::string name;
  std::string text;
  std::string wrong;  // empty when nothing is
};

constexpr char kWholePath[] = "Type the whole path, from the first / on.";

std::string Check(OptionsDesk& desk, const CheckCase& c) {
  return CheckOption(AllOptions()[IndexOfOption(c.name)], c.text,
                     {desk.settings, desk.files, desk.folders});
}

void ExpectAll(OptionsDesk& desk, const std::vector<CheckCase>& cases) {
  for (const CheckCase& c : cases) EXPECT_EQ(Check(desk, c), c.wrong) << c.name << ": " << c.text;
}

TEST(OptionChecks, NumbersLieInTheirRange) {
  const std::string backups = "Type a number from 0 to 8.";
  const std::string size = "Type a number from 4 to 99.";
  const std::string width = "Type a number from 50 to 100.";
  const std::string clock = "Type a number from 1000 to 60000.";
  OptionsDesk desk;
  ExpectAll(desk, {{"LevelsOfBackup", "0", ""},
                   {"LevelsOfBackup", "8", ""},
                   {"LevelsOfBackup", " 3 ", ""},
                   {"LevelsOfBackup", "9", backups},
                   {"LevelsOfBackup", "-1", backups},
                   {"LevelsOfBackup", "3x", backups},
                   {"LevelsOfBackup", "three", backups},
                   {"LevelsOfBackup", "1.5", backups},
                   {"LevelsOfBackup", "1e0", backups},
                   {"FontSize", "3", size},
                   {"FontSize", "4", ""},
                   {"FontSize", "99", ""},
                   {"FontSize", "100", size},
                   {"FontSize", "99999999999999999999", size},
                   {"TableWidthAsPercentageOfPage", "49.9", width},
                   {"TableWidthAsPercentageOfPage", "50", ""},
                   {"TableWidthAsPercentageOfPage", "75.5", ""},
                   {"TableWidthAsPercentageOfPage", "100", ""},
                   {"TableWidthAsPercentageOfPage", "100.5", width},
                   {"TableWidthAsPercentageOfPage", "75.", width},
                   {"TableWidthAsPercentageOfPage", "7.5.5", width},
                   {"TimerInterval", "999", clock},
                   {"TimerInterval", "1000", ""},
                   {"TimerInterval", "60000", ""},
                   {"TimerInterval", "60001", clock}});
}

TEST(OptionChecks, TimesAreTimesOfDay) {
  const std::string wrong = "Type a time of day such as 0630.";
  OptionsDesk desk;
  ExpectAll(desk, {{"NewDateOffset", "0000", ""},
                   {"NewDateOffset", "0630", ""},
                   {"NewDateOffset", "630", ""},
                   {"NewDateOffset", "6:30", ""},
                   {"NewDateOffset", "06:30", ""},
                   {"NewDateOffset", "23:59", ""},
                   {"NewDateOffset", "2360", wrong},
                   {"NewDateOffset", "2400", wrong},
                   {"NewDateOffset", "6", wrong},
                   {"NewDateOffset", "6:3", wrong},
                   {"NewDateOffset", ":630", wrong},
                   {"NewDateOffset", "06:300", wrong},
                   {"NewDateOffset", "six", wrong}});
}

TEST(OptionChecks, AnEmptyTextStandsForTheDefault) {
  OptionsDesk desk;
  for (const Option& option : AllOptions()) {
    EXPECT_EQ(Check(desk, {std::string(NameOf(option)), "", ""}), "") << option.setting.key;
  }
}

TEST(OptionChecks, TheEventsFileIsThereOrCanBeMade) {
  OptionsDesk desk;
  desk.files.failures["/home/ann"] = StatusKind::kIsFolder;
  desk.files.failures["/home/ann/secret.txt"] = StatusKind::kNoPermission;
  desk.files.unwritableFolders.insert(desk.files.unwritableFolders.end(), {"/nowhere", "/usr"});
  desk.files.files["/usr"] = "";  // exists
  ExpectAll(desk,
            {{"Path", kEventsPath, ""},
             {"Path", "/home/ann/new.txt", ""},
             {"Path", "new.txt", ""},
             {"Path", "\\new.txt", ""},
             {"Path", "/home/ann", "This is a folder. Add the name of a file."},
             {"Path", "/home/ann/secret.txt", "This file cannot be read: permission denied."},
             {"Path", "/home/ann/secret", "This file cannot be read: permission denied."},
             {"Path", "/nowhere/dates.txt", "There is no folder /nowhere."},
             {"Path", "/usr/dates.txt", "There is no such file, and none can be made in /usr."},
             {"Path", "sub/dates.txt", kWholePath},
             {"Path", "~/dates.txt", kWholePath}});
  EXPECT_EQ(desk.files.CountCalls("create"), 0);
  EXPECT_EQ(desk.files.CountCalls("stage"), 0);
}

TEST(OptionChecks, SoundsAndQuotesAreFoundAsTheProgramFindsThem) {
  OptionsDesk desk;
  desk.files.files["/home/ann/Bell.OGG"] = "OggS";
  desk.files.failures["/home/ann"] = StatusKind::kIsFolder;
  desk.files.files["/home/ann/empty.txt"] = "// nothing\n";
  ExpectAll(desk, {{"AlarmPath", kSoundPath, ""},
                   {"AlarmPath", "\\alarms\\emergency.wav", ""},
                   {"AlarmPath", "/home/ann/Bell.OGG", ""},
                   {"AlarmPath", "/home/ann/none.wav", "There is no file /home/ann/none.wav."},
                   {"AlarmPath", "none.wav", "There is no file /opt/tidewarden/none.wav."},
                   {"AlarmPath", "sub/none.wav", kWholePath},
                   {"QuotesPath", kQuotesPath, ""},
                   {"QuotesPath", "/home/ann/none.txt", "There is no file /home/ann/none.txt."},
                   {"QuotesPath", "/home/ann/empty.txt", "There are no quotes in this file."},
                   {"QuotesPath", "/home/ann", "This is a folder. Add the name of a file."},
                   {"QuotesPath", "\\Quotes\\Inspiration.txt", ""},
                   {"QuotesPath", "none.txt", "There is no file /opt/tidewarden/none.txt."},
                   {"QuotesPath", "Quotes/Inspiration.txt", kWholePath}});
}

TEST(OptionChecks, OnWindowsTooTheyAreFoundAsTheProgramFindsThem) {
  OptionsDesk desk;
  desk.folders = {"C:\\Tw", "C:\\Roaming\\Tideward", PathStyle::kWindows};
  desk.files.files["C:\\Tw\\bell.wav"] = desk.files.files["\\\\server\\share\\bell.wav"] = "RIFF";
  desk.files.files["C:\\Tw\\words.txt"] = "One\r\n";
  // Beside whatever the programs were started from.
  desk.files.files["none.wav"] = desk.files.files["none.txt"] = "Other\r\n";
  const std::string wants = "Type the whole path, with its drive.";
  ExpectAll(desk, {{"AlarmPath", "bell.wav", ""},
                   {"AlarmPath", "\\bell.wav", ""},
                   {"AlarmPath", "\\\\server\\share\\bell.wav", ""},
                   {"AlarmPath", "none.wav", "There is no file C:\\Tw\\none.wav."},
                   {"AlarmPath", "sub\\bell.wav", wants},
                   {"QuotesPath", "words.txt", ""},
                   {"QuotesPath", "\\words.txt", ""},
                   {"QuotesPath", "none.txt", "There is no file C:\\Tw\\none.txt."},
                   {"QuotesPath", "sub\\words.txt", wants}});
}

TEST(OptionChecks, AFileOnADriveThatIsAwayIsNotCalledMissing) {
  OptionsDesk desk;
  desk.folders = {"C:\\Tw", "C:\\Roaming\\Tideward", PathStyle::kWindows};
  const std::string note = "This file cannot be read: the system reports an error.";
  for (const char* const path : {"E:\\dates.txt", "e:\\dates.txt"}) {
    desk.files.failures[path] = StatusKind::kInputOutput;
  }
  ExpectAll(desk, {{"Path", "E:\\dates.txt", note},
                   {"AlarmPath", "E:\\dates.txt", note},
                   {"QuotesPath", "E:\\dates.txt", note}});
}

TEST(OptionChecks, ColoursAreNamesOrPairs) {
  const std::string wrong = "These colours are not known; the list has the colours of the desktop.";
  OptionsDesk desk;
  ExpectAll(desk, {{"ReminderListColors", "pale green", ""},
                   {"ReminderListColors", "VIOLET", ""},
                   {"ReminderListColors", "system", ""},
                   {"ReminderListColors", "random", ""},
                   {"ReminderListColors", "FF0000,ffffff", ""},
                   {"ReminderListColors", "FF0000,fffff", wrong},
                   {"ReminderListColors", "GG0000,ffffff", wrong},
                   {"ReminderListColors", " green", wrong},
                   {"ReminderListColors", "mauve", wrong}});
}

struct DamagedCase {
  std::string section;
  std::string name;
  std::string stored;
  std::string note;
};

TEST(Options, DamagedValuesAreShownAsTheyAreAndStay) {
  const std::string stays = " The setting stays as it is until you change it.";
  const std::vector<DamagedCase> cases{
      {"Options", "UseSkin", "maybe", "The settings say \"maybe\" here." + stays},
      {"Options", "ShowDailyQuotes", "1", "The settings say \"1\" here." + stays},
      {"Options", "ShowDayOfWeek", "often", "The settings say \"often\" here." + stays},
      {"Options", "LevelsOfBackup", "many", "Type a number from 0 to 8." + stays},
      {"Options", "LevelsOfBackup", "20", "Type a number from 0 to 8." + stays},
      {"Options", "NewDateOffset", "9999", "Type a time of day such as 0630." + stays},
      {"Options", "NewDateOffset", "6:30",
       "The settings say \"6:30\", which the reminder does not read as this time. Type 0630." +
           stays},
      {"Options", "AlarmPath", "/gone/bell.wav", "There is no file /gone/bell.wav." + stays},
      {"Options", "ReminderListColors", "mauve",
       "These colours are not known; the list has the colours of the desktop." + stays},
  };
  for (const DamagedCase& c : cases) {
    SCOPED_TRACE(c.name + "=" + c.stored);
    OptionsDesk desk;
    desk.Set(c.section, c.name, c.stored);
    EXPECT_EQ(desk.Text(c.name), c.stored);
    EXPECT_EQ(desk.Note(c.name).text, c.note);
    EXPECT_FALSE(desk.Note(c.name).refuses);
    // Another option can be saved beside it.
    desk.Tick("FontBold", true);
    EXPECT_EQ(desk.session().Save(), SaveOutcome::kSaved);
    EXPECT_EQ(desk.settings.At(c.section, c.name), c.stored);
    EXPECT_EQ(desk.settings.At("Settings", "FontBold"), "True");
  }
}

TEST(Options, ATimeThatTheReminderReadsRightHasNoNote) {
  for (const char* const stored : {"0630", "630", "0000", "0:05", "2359"}) {
    OptionsDesk desk;
    desk.Set("Options", "NewDateOffset", stored);
    // "0:05" is read as 0, five minutes too early.
    EXPECT_EQ(desk.Note("NewDateOffset").text.empty(), std::string(stored) != "0:05") << stored;
  }
}

TEST(Options, ATimeThatIsMisreadIsMendedByTypingItAnew) {
  OptionsDesk desk;
  desk.Set("Options", "NewDateOffset", "6:30");
  desk.Type("NewDateOffset", "06:30");
  EXPECT_EQ(desk.Note("NewDateOffset").text, "");
  EXPECT_EQ(desk.session().Save(), SaveOutcome::kSaved);
  EXPECT_EQ(desk.settings.At("Options", "NewDateOffset"), "0630");
}

TEST(Options, ASwitchShowsADamagedTextAsItsReaderTakesIt) {
  struct SwitchCase {
    const char* name;
    const char* stored;
    bool on;
  };
  // On unless "false"; on only if "true"; true, false or a number, else the default.
  for (const SwitchCase& c : std::vector<SwitchCase>{{"UseSkin", "maybe", true},
                                                     {"UseSkin", "FALSE", false},
                                                     {"ShowLessThan", "0", true},
                                                     {"FontBold", "maybe", false},
                                                     {"FontBold", "1", false},
                                                     {"FontBold", "TRUE", true},
                                                     {"AlarmSound", "0", false},
                                                     {"AlarmSound", "yes", true},
                                                     {"DisableAlarms", "-1", true},
                                                     {"DisableAlarms", "yes", false}}) {
    OptionsDesk desk;
    const bool inSettings = std::string(c.name) == "FontBold";
    desk.Set(inSettings ? "Settings" : "Options", c.name, c.stored);
    EXPECT_EQ(desk.IsOn(c.name), c.on) << c.name << "=" << c.stored;
  }
}

TEST(Options, AnUnknownChoiceIsOfferedAsLongAsItIsStored) {
  OptionsDesk desk;
  desk.Set("Options", "PrefaceTodaysEventsWithTODAYis", "Hello");
  const std::size_t option = IndexOfOption("PrefaceTodaysEventsWithTODAYis");
  EXPECT_EQ(desk.session().Choices(option).size(), 4U);
  EXPECT_EQ(desk.session().Choices(option).front().stored, "Hello");
  EXPECT_EQ(desk.session().ChosenOf(option), 0U);
  desk.Type("PrefaceTodaysEventsWithTODAYis", "False");
  EXPECT_EQ(desk.session().ChosenOf(option), 3U);
  EXPECT_EQ(desk.session().Choices(option).front().stored, "Hello") << "it can be had back";
  desk.Type("PrefaceTodaysEventsWithTODAYis", "Hello");
  EXPECT_FALSE(desk.session().hasChanges());
  desk.Type("PrefaceTodaysEventsWithTODAYis", "False");
  EXPECT_EQ(desk.session().Save(), SaveOutcome::kSaved);
  EXPECT_EQ(desk.session().Choices(option).size(), 3U);
  EXPECT_EQ(ReadTodayPreface(desk.settings), "");
}

TEST(Options, AValueIsRefusedOnlyOnceItHasBeenLeft) {
  OptionsDesk desk;
  const std::size_t backups = IndexOfOption("LevelsOfBackup");
  desk.Type("LevelsOfBackup", "12");
  EXPECT_EQ(desk.Note("LevelsOfBackup").text, "") << "while it is typed";
  desk.session().Look(backups);
  EXPECT_EQ(desk.Note("LevelsOfBackup").text, "Type a number from 0 to 8.");
  EXPECT_TRUE(desk.Note("LevelsOfBackup").refuses);
  EXPECT_EQ(desk.session().firstRefused(), backups);
  desk.Type("LevelsOfBackup", "1");
  EXPECT_EQ(desk.Note("LevelsOfBackup").text, "") << "as soon as it is right";
  EXPECT_EQ(desk.session().firstRefused(), std::nullopt);
}

}  // namespace
}  // namespace tidewarden::test
