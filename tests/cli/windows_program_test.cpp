// tidewarden-cli as a program of Windows: the registry, the command line, and files that are in
// use, write-protected or no files at all.
#include <gmock/gmock.h>

#include <filesystem>

#include "dates/regional_text.h"
#include "platform/system.h"
#include "platform/windows/registry_settings_store.h"
#include "platform/windows/windows_api.h"
#include "platform/windows/windows_handles.h"
#include "platform/windows/windows_text.h"
#include "tests/cli/program.h"

namespace tidewarden::test {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

constexpr char kToday[] = "12/22/2014   <TODAY>\n";
constexpr char kList[] = "12/22/2014   <TODAY>\n12/24/2014 A (Wednesday, 2 days)\n";
constexpr char kEvent[] = "12.24,A,7,yearly\n";
constexpr char kBefore[] = "12.21,Gone,7,one2014\n12.24,A,7,yearly\n06.01,Back,7,yearly*";
constexpr char kAfter[] = "12.24,A,7,yearly\r\n06.01,Back,7,yearly\r\n";

class WindowsProgram : public ::testing::Test {
 protected:
  Outcome Update(const std::string& file = "dates.txt") {
    return terminal_.RunOnTheDay("list", {"--update", "--file", file});
  }

  Terminal terminal_;
  const TemporaryFolder& folder_ = terminal_.folder;
};

// The user's own value of "Settings/Path" stays what it was.
class StoredPath {
 public:
  StoredPath() { static_cast<void>(store_.Read("Settings", "Path", former_).ok()); }
  StoredPath(const StoredPath&) = delete;
  StoredPath& operator=(const StoredPath&) = delete;
  ~StoredPath() {
    Set("");
    if (!former_.empty()) Set(former_);
  }
  void Set(const std::string& value) {
    static_cast<void>((value.empty() ? store_.Delete("Settings", "Path")
                                     : store_.Write("Settings", "Path", value))
                          .ok());
  }
  std::string Get() {
    std::string value = "(unreadable)";
    static_cast<void>(store_.Read("Settings", "Path", value).ok());
    return value;
  }

 private:
  RegistrySettingsStore store_;
  std::string former_;
};

TEST_F(WindowsProgram, FindsTheEventsFileByTheRegistry) {
  StoredPath path;
  terminal_.CopyProgram();
  folder_.Write("app/dates.txt", kEvent);
  path.Set("");
  for (const char* start : {"first", "second"}) {
    EXPECT_EQ(terminal_.Run({"list", "--today", "2014-12-22"}), (Outcome{0, kList, ""})) << start;
    EXPECT_EQ(path.Get(), folder_ / "app/dates.txt") << start;
  }

  folder_.Write("app/sub/my.txt", "12.25,B,7,yearly\n");
  path.Set("\\sub\\my");
  EXPECT_EQ(terminal_.Run({"list", "--today", "2014-12-22"}),
            (Outcome{0, "12/22/2014   <TODAY>\n12/25/2014 B (Thursday, 3 days)\n", ""}));
  EXPECT_EQ(path.Get(), "\\sub\\my.txt");
}

TEST_F(WindowsProgram, TakesArgumentsOfEveryAlphabet) {
  const std::string title = "Zoë Ж 日本 𝄞 \"quoted\" back\\slash\\";
  EXPECT_EQ(
      terminal_.Run({"next", "12.25," + title + ",7,yearly", "--today", "2014-12-22", "--json"}),
      terminal_.Run({"next", "12.25,A,7,yearly", "--today", "2014-12-22", "--json"}));
  folder_.Write("Übung/Жанна 日本.txt", "12.24," + title + ",7,yearly\n");
  EXPECT_EQ(terminal_.RunOnTheDay("list", {"--file", "Übung/Жанна 日本.txt"}),
            (Outcome{0, kToday + ("12/24/2014 " + title + " (Wednesday, 2 days)\n"), ""}));
}

TEST_F(WindowsProgram, EndsLinesWithALineFeedAlone) {
  folder_.Write("dates.txt", "hello\n12.24,A,7,yearly\n");
  EXPECT_EQ(terminal_.RunOnTheDay("list", {"--file", "dates.txt"}), (Outcome{0, kList, ""}));
  const Outcome check = terminal_.RunOnTheDay("check", {"--file", "dates.txt"});
  EXPECT_EQ(check.exitCode, 1);
  EXPECT_THAT(check.out + check.err, Not(HasSubstr("\r")));
}

TEST_F(WindowsProgram, TakesTheSystemsDay) {
  folder_.Write("dates.txt", "");
  terminal_.WriteSettings();
  const auto today = [] { return IsoDate(MakeSystemClock()->Now().date); };
  // Midnight may come while the program runs; then either day is right.
  const std::string before = today();
  const Outcome outcome = terminal_.Run(
      {"list", "--file", "dates.txt", "--settings", "settings.ini", "--short-date", "yyyy-MM-dd"});
  const std::string after = today();
  EXPECT_TRUE(outcome.out == before + "   <TODAY>\n" || outcome.out == after + "   <TODAY>\n")
      << outcome.out;
}

TEST_F(WindowsProgram, PrintsALongListWhole) {
  std::string file;
  std::string expected = kToday;
  for (int i = 10000; i < 40000; ++i) {
    file += "12.24,Event " + std::to_string(i) + ",7,yearly\n";
    expected += "12/24/2014 Event " + std::to_string(i) + " (Wednesday, 2 days)\n";
  }
  folder_.Write("dates.txt", file);
  const Outcome outcome = terminal_.RunOnTheDay("list", {"--file", "dates.txt"});
  EXPECT_EQ(outcome.exitCode, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_TRUE(outcome.out == expected);
}

// --- What --update writes.

TEST_F(WindowsProgram, UpdatesTheFileAndLeavesNothingBesideIt) {
  folder_.Write("dates.txt", kBefore);
  folder_.Write(".dates.txt.new", "half of somethi");
  EXPECT_EQ(Update(), (Outcome{0, kList, ""}));
  EXPECT_EQ(folder_.Read("dates.txt"), kAfter);
  EXPECT_FALSE(folder_.Exists(".dates.txt.new"));
  const FileState after = LookAt(folder_ / "dates.txt");
  EXPECT_EQ(Update(), (Outcome{0, kList, ""}));
  EXPECT_EQ(LookAt(folder_ / "dates.txt"), after);
}

TEST_F(WindowsProgram, UpdatesAFileWithALongPath) {
  const std::string name =
      std::string(120, 'a') + "/" + std::string(120, 'b') + "/" + std::string(120, 'c') + ".txt";
  folder_.Write(name, kBefore);
  EXPECT_EQ(Update(name), (Outcome{0, kList, ""}));
  EXPECT_EQ(folder_.Read(name), kAfter);
}

TEST_F(WindowsProgram, CreatesAMissingFileOnlyForUpdate) {
  EXPECT_EQ(terminal_.RunOnTheDay("list", {"--file", "new/dates.txt"}).exitCode, 3);
  EXPECT_FALSE(folder_.Exists("new"));
  EXPECT_EQ(Update("new/dates.txt").out, kToday);
  EXPECT_EQ(folder_.Read("new/dates.txt"), "");
}

TEST_F(WindowsProgram, LeavesAWriteProtectedFileAsItIs) {
  folder_.Write("dates.txt", kBefore);
  folder_.SetPermissions("dates.txt", 0400);
  const FileState before = LookAt(folder_ / "dates.txt");
  const Outcome outcome = Update();
  EXPECT_EQ(outcome.exitCode, 4);
  EXPECT_EQ(outcome.out, kList);
  EXPECT_THAT(outcome.err, HasSubstr("permission denied"));
  EXPECT_EQ(LookAt(folder_ / "dates.txt"), before);
}

TEST_F(WindowsProgram, LeavesAFileInUseAsItIs) {
  folder_.Write("dates.txt", kBefore);
  const FileState before = LookAt(folder_ / "dates.txt");
  const FileHandle reader(::CreateFileW(WidePath(folder_ / "dates.txt").c_str(), GENERIC_READ,
                                        FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
  ASSERT_TRUE(reader.ok());
  const Outcome outcome = Update();
  EXPECT_EQ(outcome.exitCode, 4);
  EXPECT_EQ(outcome.out, kList);
  EXPECT_THAT(outcome.err, HasSubstr("dates.txt: "));
  EXPECT_EQ(LookAt(folder_ / "dates.txt"), before);
  EXPECT_FALSE(folder_.Exists(".dates.txt.new"));
}

// --- Things that are no readable file.

TEST_F(WindowsProgram, EndsInExitCodeThreeForWhatIsNoFile) {
  folder_.MakeFolder("folder");
  folder_.Write("exclusive.txt", kEvent);
  folder_.Write("utf16.txt", std::string("\xFF\xFE"
                                         "1\0002\0",
                                         6));
  const FileHandle exclusive(::CreateFileW(WidePath(folder_ / "exclusive.txt").c_str(),
                                           GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
  ASSERT_TRUE(exclusive.ok());
  const struct {
    const char* path;
    const char* message;
  } cases[] = {{"folder", "folder"},
               {"NUL", "not a regular file"},
               {"exclusive.txt", "another program"},
               {"utf16.txt", "UTF-16"}};
  for (const auto& [path, message] : cases) {
    for (const char* command : {"list", "check"}) {
      SCOPED_TRACE(std::string(command) + " " + path);
      const Outcome outcome = terminal_.RunOnTheDay(command, {"--file", path});
      EXPECT_EQ(outcome.exitCode, 3);
      EXPECT_EQ(outcome.out, "");
      EXPECT_THAT(outcome.err, StartsWith("tidewarden-cli: " + std::string(path) + ": "));
      EXPECT_THAT(outcome.err, HasSubstr(message));
    }
  }
}

// --- A settings file in place of the registry.

TEST_F(WindowsProgram, KeepsSettingsInAFileWhereOneIsNamed) {
  folder_.Write("dates.txt", "12.22,Party,0,yearly\n");
  folder_.Write("s.ini", "; mine\n[Options]\nListTodayWithEvents=False\n");
  const Outcome outcome = terminal_.Run(
      {"list", "--file", "dates.txt", "--settings", "s.ini", "--today", "2014-12-22"});
  EXPECT_EQ(outcome, (Outcome{0, "12/22/2014 Today is PARTY\n", ""}));
  EXPECT_THAT(folder_.Read("s.ini"), StartsWith("; mine\n[Options]\nListTodayWithEvents=False\n"));
  EXPECT_THAT(folder_.Read("s.ini"), HasSubstr("\nShowLessThan=False\n"));
  EXPECT_THAT(folder_.Read("s.ini"), Not(HasSubstr("\r")));
}

}  // namespace
}  // namespace tidewarden::test
