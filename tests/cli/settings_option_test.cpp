// "--settings": a file in place of the user's own settings.
#include <gmock/gmock.h>
#include <sys/stat.h>

#include <filesystem>
#include <sstream>

#include "tests/cli/program.h"

namespace tidewarden::test {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;
using ::testing::UnorderedElementsAre;

constexpr char kToday[] = "12/22/2014   <TODAY>\n";

class SettingsOption : public ::testing::Test {
 protected:
  SettingsOption() { terminal_.folder.Write("dates.txt", "12.22,Party,0,yearly\n"); }

  Outcome List(const std::vector<std::string>& more = {}) const {
    std::vector<std::string> arguments{"list",    "--file",     "dates.txt", "--settings", "s.ini",
                                       "--today", "2014-12-22", "--now",     "14:25"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return terminal_.Run(arguments);
  }

  // The lines of a settings file that hold values, each as "Section/Name=value".
  [[nodiscard]] std::vector<std::string> Values(const std::string& name) const {
    std::vector<std::string> values;
    std::string section;
    std::istringstream in(folder_.Read(name));
    for (std::string line; std::getline(in, line);) {
      if (line.starts_with('[') && line.ends_with(']')) {
        section = line.substr(1, line.size() - 2);
      } else if (line.find('=') != std::string::npos) {
        values.push_back(section + "/" + line);
      }
    }
    return values;
  }

  Terminal terminal_;
  const TemporaryFolder& folder_ = terminal_.folder;
};

const Outcome kParty{0, "12/22/2014   <TODAY>\n12/22/2014 Today is PARTY\n", ""};

TEST_F(SettingsOption, CreatesAMissingFileWithTheDefaults) {
  EXPECT_EQ(List(), kParty);
  EXPECT_THAT(
      Values("s.ini"),
      UnorderedElementsAre(
          "Options/TitlebarText=Your Tidewarden Upcoming Events", "Options/ShowLessThan=False",
          "Options/SpellOutReminderMonths=False", "Options/NewDateOffset=0000",
          "Options/AlarmSound=True", "Options/AlarmBeepEachMinute=True",
          "Options/DisableAlarms=False", "Options/CapitalizeTodaysEvents=True",
          "Options/PrefaceTodaysEventsWithTODAYis=True", "Options/ListTodayWithEvents=True",
          "Options/ShowDateDifferencesInDaysOnly=True", "Options/ShowOnlyIfEventsInRange=False"));
  for (const auto& [name, state] : folder_.Look()) {
    if (!name.starts_with("s.ini")) continue;
    EXPECT_EQ(state.mode & 07777U, 0600U) << name;
  }
  // The user's own settings are not looked at.
  EXPECT_FALSE(folder_.Exists("home/config"));
}

TEST_F(SettingsOption, StoresThePathWhenNoFileIsGiven) {
  terminal_.CopyProgram();
  folder_.Write("app/dates.txt", "");
  EXPECT_EQ(terminal_.Run({"list", "--settings", "s.ini", "--today", "2014-12-22"}),
            (Outcome{0, kToday, ""}));
  EXPECT_THAT(Values("s.ini"), ::testing::Contains("Settings/Path=" + (folder_ / "app/dates.txt")));
}

TEST_F(SettingsOption, CreatesTheFoldersAboveForTheUserAlone) {
  EXPECT_EQ(terminal_.Run({"list", "--file", "dates.txt", "--settings", "new/deep/s.ini", "--today",
                           "2014-12-22"}),
            kParty);
  EXPECT_EQ(folder_.Permissions("new/deep/s.ini"), 0600);
  EXPECT_EQ(folder_.Permissions("new/deep"), 0700);
  EXPECT_EQ(folder_.Permissions("new"), 0700);
}

TEST_F(SettingsOption, IsNotWrittenASecondTime) {
  List();
  const FileState before = LookAt(folder_ / "s.ini");
  EXPECT_EQ(List(), kParty);
  EXPECT_EQ(LookAt(folder_ / "s.ini"), before);
}

TEST_F(SettingsOption, ShapesTheList) {
  const struct {
    const char* settings;
    const char* out;
  } cases[] = {
      {"[Options]\nCapitalizeTodaysEvents=False\n",
       "12/22/2014   <Today>\n12/22/2014 Today is Party\n"},
      {"[options]\ncapitalizetodaysevents=FALSE\n",
       "12/22/2014   <Today>\n12/22/2014 Today is Party\n"},
      {"[Options]\r\nListTodayWithEvents=False\r\n", "12/22/2014 Today is PARTY\n"},
      {"\xEF\xBB\xBF[Options]\nListTodayWithEvents=False\n", "12/22/2014 Today is PARTY\n"},
      {"; mine\n\n[Other]\nListTodayWithEvents=False\n[Options]\nListTodayWithEvents=True",
       "12/22/2014   <TODAY>\n12/22/2014 Today is PARTY\n"},
      {"[Options]\nShowDayOfWeek=True\nPrefaceTodaysEventsWithTODAYis=blank\n",
       "12/22/2014   <TODAY is Monday>\n12/22/2014  PARTY\n"},
  };
  for (const auto& [settings, out] : cases) {
    SCOPED_TRACE(settings);
    folder_.Write("s.ini", settings);
    EXPECT_EQ(List(), (Outcome{0, out, ""}));
    // What stood in the file is still its beginning, or its values' own lines.
    std::istringstream before(settings);
    const std::string after = folder_.Read("s.ini");
    for (std::string line; std::getline(before, line);) EXPECT_THAT(after, HasSubstr(line));
  }
}

TEST_F(SettingsOption, RemovesTheObsoleteKey) {
  folder_.Write("s.ini", "[Options]\nShowTodaysDateWithReminders=True\nMine=1\n");
  EXPECT_EQ(List(), kParty);
  EXPECT_THAT(folder_.Read("s.ini"), ::testing::Not(HasSubstr("ShowTodaysDateWithReminders")));
  EXPECT_THAT(folder_.Read("s.ini"), HasSubstr("Mine=1\n"));
}

TEST_F(SettingsOption, DoesNotStoreTheWeekday) {
  List();
  List();
  EXPECT_THAT(folder_.Read("s.ini"), ::testing::Not(HasSubstr("ShowDayOfWeek")));
}

TEST_F(SettingsOption, KeepsALinkToTheFile) {
  folder_.Write("real.ini", "; mine\n");
  std::filesystem::create_symlink("real.ini", folder_ / "s.ini");
  EXPECT_EQ(List(), kParty);
  EXPECT_TRUE(std::filesystem::is_symlink(folder_ / "s.ini"));
  EXPECT_THAT(folder_.Read("real.ini"), StartsWith("; mine\n"));
  EXPECT_THAT(folder_.Read("real.ini"), HasSubstr("ShowLessThan=False\n"));
}

TEST_F(SettingsOption, KeepsThePermissionsOfTheFile) {
  folder_.Write("s.ini", "");
  folder_.SetPermissions("s.ini", 0640);
  EXPECT_EQ(List(), kParty);
  EXPECT_EQ(folder_.Permissions("s.ini"), 0640);
}

TEST_F(SettingsOption, TakesAnyBytes) {
  std::string everyByte;
  for (int byte = 0; byte < 256; ++byte) everyByte.push_back(static_cast<char>(byte));
  const std::string garbage[] = {
      everyByte,
      std::string(1000, '\0'),
      std::string(200'000, 'x'),
      std::string(20'000, '\n'),
      std::string(20'000, '['),
      "[",
      "=",
      "[]\n=\n",
      "[Options\nShowLessThan",
      "\xFF\xFE[\0O\0",
      "[Options]\n" + everyByte,
  };
  for (const std::string& bytes : garbage) {
    SCOPED_TRACE(bytes.substr(0, 20));
    folder_.Write("s.ini", bytes);
    EXPECT_EQ(List(), kParty);
    // Nothing of it is lost: the defaults stand around it.
    EXPECT_THAT(folder_.Read("s.ini"), HasSubstr("ShowLessThan=False\n"));
    EXPECT_GE(folder_.Read("s.ini").size(), bytes.size());
  }
}

// --- The user's own settings.

TEST_F(SettingsOption, IsNotNeeded) {
  EXPECT_EQ(terminal_.Run({"list", "--file", "dates.txt", "--today", "2014-12-22"}), kParty);
  EXPECT_THAT(Values("home/config/Tideward/settings.ini"),
              ::testing::Contains("Options/ShowLessThan=False"));
  EXPECT_EQ(folder_.Permissions("home/config/Tideward/settings.ini"), 0600);
  EXPECT_EQ(folder_.Permissions("home/config/Tideward"), 0700);
}

TEST_F(SettingsOption, IsNotNeededInAHomeThatCannotBeWrittenEither) {
  terminal_.BecomeOrdinaryUser();
  folder_.SetPermissions("home", 0555);
  const auto before = folder_.Look();
  EXPECT_EQ(terminal_.Run({"list", "--file", "dates.txt", "--today", "2014-12-22"}), kParty);
  EXPECT_EQ(folder_.Look(), before);
}

// --- A file that cannot be used.

struct BadSettings {
  std::string name;
  std::string path;
  std::string message;
};

void PrintTo(const BadSettings& badSettings, std::ostream* out) {
  *out << badSettings.name;
}

class UnreadableSettings : public ::testing::TestWithParam<BadSettings> {};

TEST_P(UnreadableSettings, EndInExitCodeThree) {
  Terminal terminal;
  terminal.folder.Write("dates.txt", "12.22,Party,0,yearly\n");
  terminal.folder.MakeFolder("folder");
  ASSERT_EQ(::mkfifo((terminal.folder / "fifo").c_str(), 0600), 0);
  std::filesystem::create_symlink("circle", terminal.folder / "circle");
  terminal.folder.Write("closed.ini", "[Options]\nListTodayWithEvents=False\n");
  terminal.BecomeOrdinaryUser();
  terminal.folder.SetPermissions("closed.ini", 0);
  const auto before = terminal.folder.Look();
  for (const char* command : {"list", "check"}) {
    SCOPED_TRACE(command);
    const Outcome outcome =
        terminal.Run({command, "--file", "dates.txt", "--settings", GetParam().path});
    EXPECT_EQ(outcome.exitCode, 3);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "tidewarden-cli: " + GetParam().path + ": " + GetParam().message + "\n");
    EXPECT_EQ(terminal.folder.Look(), before);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, UnreadableSettings,
    ::testing::Values(BadSettings{"Folder", "folder", "this is a folder, not a file"},
                      BadSettings{"Fifo", "fifo", "this is not a regular file"},
                      BadSettings{"Null", "/dev/null", "this is not a regular file"},
                      BadSettings{"Full", "/dev/full", "this is not a regular file"},
                      BadSettings{"Closed", "closed.ini", "permission denied"},
                      BadSettings{"Circle", "circle", "Too many levels of symbolic links"}),
    [](const auto& suite) { return suite.param.name; });

TEST_F(SettingsOption, OfAFileThatCannotBeWrittenAreReadAllTheSame) {
  folder_.Write("s.ini", "[Options]\nListTodayWithEvents=False\n");
  terminal_.BecomeOrdinaryUser();
  folder_.SetPermissions("s.ini", 0400);
  const FileState before = LookAt(folder_ / "s.ini");
  const Outcome outcome = List();
  EXPECT_EQ(outcome.exitCode, 0);
  EXPECT_EQ(outcome.out, "12/22/2014 Today is PARTY\n");
  EXPECT_EQ(LookAt(folder_ / "s.ini"), before);
}

TEST_F(SettingsOption, InAFolderThatTakesNoFilesAreReadAllTheSame) {
  folder_.Write("closed/s.ini", "[Options]\nListTodayWithEvents=False\n");
  terminal_.BecomeOrdinaryUser();
  folder_.SetPermissions("closed", 0555);
  const Outcome outcome = terminal_.Run(
      {"list", "--file", "dates.txt", "--settings", "closed/s.ini", "--today", "2014-12-22"});
  EXPECT_EQ(outcome.exitCode, 0);
  EXPECT_EQ(outcome.out, "12/22/2014 Today is PARTY\n");
}

TEST_F(SettingsOption, ThatCannotBeCreatedEndInExitCodeFour) {
  terminal_.folder.MakeFolder("closed");
  terminal_.BecomeOrdinaryUser();
  folder_.SetPermissions("closed", 0555);
  for (const char* path : {"closed/s.ini", "closed/new/s.ini", "dates.txt/s.ini"}) {
    SCOPED_TRACE(path);
    const auto before = folder_.Look();
    const Outcome outcome =
        terminal_.Run({"list", "--file", "dates.txt", "--settings", path, "--today", "2014-12-22"});
    EXPECT_EQ(outcome.exitCode, 4);
    EXPECT_EQ(outcome.out, kParty.out);
    EXPECT_THAT(outcome.err, HasSubstr(path));
    EXPECT_EQ(folder_.Look(), before);
  }
}

// No room on the disk for the settings: the list is still right.
TEST_F(SettingsOption, ThatDoNotFitOnTheDiskStayAsTheyAre) {
  folder_.Write("s.ini", "[Options]\nListTodayWithEvents=False\n");
  const FileState before = LookAt(folder_ / "s.ini");
  terminal_.surroundings.largestFile = 20;
  const Outcome outcome = List();
  EXPECT_EQ(outcome.out, "12/22/2014 Today is PARTY\n");
  EXPECT_EQ(LookAt(folder_ / "s.ini"), before);
  for (const auto& [name, state] : folder_.Look()) {
    EXPECT_TRUE(name.find(".new") == std::string::npos) << name;
  }
}

}  // namespace
}  // namespace tidewarden::test
