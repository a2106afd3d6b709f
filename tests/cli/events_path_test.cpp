// Where the events file is when no --file is given: the setting "Settings/Path", the program's
// folder and the user's own folders.
#include <gmock/gmock.h>

#include <filesystem>

#include "tests/cli/program.h"

namespace tidewarden::test {
namespace {

using ::testing::HasSubstr;

constexpr char kList[] = "12/22/2014   <TODAY>\n12/24/2014 A (Wednesday, 2 days)\n";
constexpr char kFile[] = "12.24,A,7,yearly\n";
constexpr char kOwnSettings[] = "home/config/Tideward/settings.ini";

class EventsPath : public ::testing::Test {
 protected:
  EventsPath() { terminal_.CopyProgram(); }

  Outcome List(const std::vector<std::string>& more = {}) const {
    std::vector<std::string> arguments{"list", "--today", "2014-12-22"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return terminal_.Run(arguments);
  }

  // The value of "Settings/Path" in a settings file.
  [[nodiscard]] std::string StoredPath(const std::string& file = kOwnSettings) const {
    const std::string text = "\n" + terminal_.folder.Read(file);
    const std::size_t section = text.find("\n[Settings]\n");
    const std::size_t begin = text.find("\nPath=", section);
    if (section == std::string::npos || begin == std::string::npos) return "(missing)";
    return text.substr(begin + 6, text.find('\n', begin + 6) - begin - 6);
  }

  void StorePath(const std::string& path) {
    terminal_.folder.Write(kOwnSettings, "[Settings]\nPath=" + path + "\n" + DefaultSettings());
  }

  Terminal terminal_;
  const TemporaryFolder& folder_ = terminal_.folder;
};

TEST_F(EventsPath, IsInTheProgramsFolderWhereThatTakesFiles) {
  folder_.Write("app/dates.txt", kFile);
  EXPECT_EQ(List(), (Outcome{0, kList, ""}));
  EXPECT_EQ(StoredPath(), folder_ / "app/dates.txt");
}

TEST_F(EventsPath, IsTheSameAtTheSecondStart) {
  folder_.Write("app/dates.txt", kFile);
  List();
  const std::string settings = folder_.Read(kOwnSettings);
  EXPECT_EQ(List(), (Outcome{0, kList, ""}));
  EXPECT_EQ(folder_.Read(kOwnSettings), settings);
}

// The first read stores the path, and it stays when the program has moved.
TEST_F(EventsPath, StaysWhereItWasWhenTheProgramMoves) {
  folder_.Write("app/dates.txt", kFile);
  List();
  folder_.MakeFolder("other");
  std::filesystem::rename(folder_ / "app/tidewarden-cli", folder_ / "other/tidewarden-cli");
  terminal_.surroundings.program = folder_ / "other/tidewarden-cli";
  EXPECT_EQ(List(), (Outcome{0, kList, ""}));
}

TEST_F(EventsPath, FollowsALinkToTheProgram) {
  folder_.Write("app/dates.txt", kFile);
  folder_.MakeFolder("bin");
  std::filesystem::create_symlink("../app/tidewarden-cli", folder_ / "bin/tidewarden-cli");
  terminal_.surroundings.program = folder_ / "bin/tidewarden-cli";
  EXPECT_EQ(List(), (Outcome{0, kList, ""}));
  EXPECT_EQ(StoredPath(), folder_ / "app/dates.txt");
}

TEST_F(EventsPath, IsInTheUsersFolderWhereTheProgramsTakesNoFiles) {
  folder_.MakeFolder("home/data/Tideward");
  folder_.Write("home/data/Tideward/dates.txt", kFile);
  terminal_.BecomeOrdinaryUser();
  folder_.SetPermissions("app", 0555);
  EXPECT_EQ(List(), (Outcome{0, kList, ""}));
  EXPECT_EQ(StoredPath(), folder_ / "home/data/Tideward/dates.txt");
}

TEST_F(EventsPath, IsInTheProgramsFolderWhereTheFileStandsThereAlready) {
  folder_.Write("app/dates.txt", kFile);
  terminal_.BecomeOrdinaryUser();
  folder_.SetPermissions("app", 0555);
  EXPECT_EQ(List(), (Outcome{0, kList, ""}));
  EXPECT_EQ(StoredPath(), folder_ / "app/dates.txt");
}

TEST_F(EventsPath, IsCreatedForTheUserAloneWithItsFolders) {
  terminal_.BecomeOrdinaryUser();
  folder_.SetPermissions("app", 0555);
  EXPECT_EQ(List().exitCode, 3);
  EXPECT_FALSE(folder_.Exists("home/data"));

  const std::string path = folder_ / "home/data/Tideward/dates.txt";
  const Outcome outcome = List({"--update"});
  EXPECT_EQ(outcome.exitCode, 0);
  EXPECT_EQ(outcome.out, "12/22/2014   <TODAY>\n");
  EXPECT_EQ(outcome.err, "tidewarden-cli: \"" + path + "\" does not exist.\n\n" +
                             "Tidewarden will now start from scratch with a new " + path +
                             " file.\n");
  EXPECT_EQ(folder_.Read("home/data/Tideward/dates.txt"), "");
  EXPECT_EQ(folder_.Permissions("home/data/Tideward/dates.txt"), 0600);
  EXPECT_EQ(folder_.Permissions("home/data/Tideward"), 0700);
  EXPECT_EQ(folder_.Permissions(kOwnSettings), 0600);
  EXPECT_EQ(folder_.Permissions("home/config/Tideward"), 0700);
}

TEST_F(EventsPath, IsUnderHomeWithoutTheVariablesForIt) {
  for (const char* value : {"", "relative/path"}) {
    SCOPED_TRACE(value);
    Terminal terminal;
    terminal.surroundings.environment["XDG_CONFIG_HOME"] = value;
    terminal.surroundings.environment["XDG_DATA_HOME"] = value;
    if (*value == '\0') {
      terminal.surroundings.environment.erase("XDG_CONFIG_HOME");
      terminal.surroundings.environment.erase("XDG_DATA_HOME");
    }
    terminal.CopyProgram();
    terminal.BecomeOrdinaryUser();
    terminal.folder.SetPermissions("app", 0555);
    EXPECT_EQ(terminal.Run({"list", "--update", "--today", "2014-12-22"}).exitCode, 0);
    EXPECT_TRUE(terminal.folder.Exists("home/.config/Tideward/settings.ini"));
    EXPECT_TRUE(terminal.folder.Exists("home/.local/share/Tideward/dates.txt"));
    EXPECT_FALSE(terminal.folder.Exists("relative"));
  }
}

// --- What may be stored.

TEST_F(EventsPath, MayBeStoredInManyWays) {
  const struct {
    const char* name;
    std::string stored;
    std::string file;  // below the test's folder
    std::string storedAfter;
  } cases[] = {
      {"a bare name", "mydates.txt", "app/mydates.txt", "mydates.txt"},
      {"a bare name without its ending", "mydates", "app/mydates.txt", "mydates.txt"},
      {"another ending", "my.dat", "app/my.dat.txt", "my.dat.txt"},
      {"the ending in capitals", "MyDates.TXT", "app/MyDates.TXT", "MyDates.TXT"},
      {"only an ending", ".txt", "app/.txt", ".txt"},
      {"below the program's folder", "\\sub\\dates.txt", "app/sub/dates.txt", "\\sub\\dates.txt"},
      {"below it without its ending", "\\sub\\dates", "app/sub/dates.txt", "\\sub\\dates.txt"},
      {"absolute", folder_ / "else/dates.txt", "else/dates.txt", folder_ / "else/dates.txt"},
      {"absolute without its ending", folder_ / "else/dates", "else/dates.txt",
       folder_ / "else/dates.txt"},
      {"relative to the current folder", "sub/dates.txt", "sub/dates.txt", "sub/dates.txt"},
      {"relative in the other system's way", "sub\\dates.txt", "sub/dates.txt", "sub\\dates.txt"},
      {"with blanks and signs", folder_ / "my = dates; #1.txt", "my = dates; #1.txt",
       folder_ / "my = dates; #1.txt"},
      {"with letters beyond ASCII", folder_ / "Übung/Zoë.txt", "Übung/Zoë.txt",
       folder_ / "Übung/Zoë.txt"},
  };
  for (const auto& [name, stored, file, storedAfter] : cases) {
    SCOPED_TRACE(name);
    StorePath(stored);
    folder_.Write(file, kFile);
    EXPECT_EQ(List(), (Outcome{0, kList, ""}));
    EXPECT_EQ(StoredPath(), storedAfter);
    std::filesystem::remove(folder_ / file);
    EXPECT_EQ(List().exitCode, 3);
  }
}

TEST_F(EventsPath, IsReadFromTheGivenSettings) {
  folder_.Write("else/dates.txt", kFile);
  folder_.Write("s.ini", "[settings]\npath=" + (folder_ / "else/dates.txt") + "\n");
  EXPECT_EQ(List({"--settings", "s.ini"}), (Outcome{0, kList, ""}));
  EXPECT_FALSE(folder_.Exists("home/config"));
  EXPECT_EQ(terminal_.Run({"check", "--settings", "s.ini"}).exitCode, 0);
}

TEST_F(EventsPath, DoesNotMatterWhenAFileIsGiven) {
  StorePath(folder_ / "missing.txt");
  folder_.Write("given.txt", kFile);
  EXPECT_EQ(List({"--file", "given.txt"}), (Outcome{0, kList, ""}));
  EXPECT_EQ(StoredPath(), folder_ / "missing.txt");
}

TEST_F(EventsPath, IsFoundByCheckToo) {
  folder_.Write("app/dates.txt", "hello\n");
  const Outcome outcome = terminal_.Run({"check"});
  EXPECT_EQ(outcome.exitCode, 1);
  EXPECT_THAT(outcome.out, ::testing::StartsWith(folder_ / "app/dates.txt:1:6: rejected: "));
  EXPECT_EQ(StoredPath(), folder_ / "app/dates.txt");
}

// --- The user's own settings cannot be read.

TEST_F(EventsPath, IsTheDefaultWhenTheUsersSettingsCannotBeRead) {
  folder_.Write("app/dates.txt", kFile);
  folder_.MakeFolder(kOwnSettings);
  const auto before = folder_.Look();
  const Outcome outcome = List();
  EXPECT_EQ(outcome.exitCode, 0);
  EXPECT_EQ(outcome.out, kList);
  EXPECT_THAT(outcome.err, HasSubstr("settings"));
  EXPECT_THAT(outcome.err, HasSubstr("folder"));
  EXPECT_EQ(folder_.Look(), before);
}

}  // namespace
}  // namespace tidewarden::test
