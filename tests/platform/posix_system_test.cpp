// Folders, clock and adapters as the programs get them.
#include "platform/system.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "core/events_file.h"
#include "core/get_set_save_set.h"
#include "core/settings_keys.h"
#include "dates/date_text.h"
#include "platform/memory/memory_ports.h"
#include "platform/posix/posix_folders.h"
#include "tests/support/processes.h"
#include "tests/support/temporary_folder.h"

namespace tidewarden {
namespace {

namespace fs = std::filesystem;
using test::BytesOf;
using test::InChild;
using test::InUnprivilegedChild;
using test::ModeOf;
using test::ScopedVariable;
using test::TemporaryFolder;
using test::WriteBytes;
using ::testing::EndsWith;
using ::testing::StartsWith;

constexpr const char* kPrintProgramFolder = TIDEWARDEN_TEST_PRINT_PROGRAM_FOLDER;

TEST(SystemFolders, SettingsFollowTheUsersConfigurationFolder) {
  const ScopedVariable home("HOME", "/home/me");
  {
    const ScopedVariable config("XDG_CONFIG_HOME", "/cfg");
    EXPECT_EQ(SettingsFilePath(), "/cfg/Tideward/settings.ini");
  }
  for (const char* unusable : {"", "relative/folder", "~/cfg"}) {
    const ScopedVariable config("XDG_CONFIG_HOME", unusable);
    EXPECT_EQ(SettingsFilePath(), "/home/me/.config/Tideward/settings.ini") << unusable;
  }
  const ScopedVariable config("XDG_CONFIG_HOME", nullptr);
  EXPECT_EQ(SettingsFilePath(), "/home/me/.config/Tideward/settings.ini");
}

TEST(SystemFolders, DataFollowsTheUsersDataFolder) {
  const ScopedVariable home("HOME", "/home/me");
  {
    const ScopedVariable data("XDG_DATA_HOME", "/data");
    EXPECT_EQ(SystemFolders().userData, "/data/Tideward");
  }
  for (const char* unusable : {"", "relative"}) {
    const ScopedVariable data("XDG_DATA_HOME", unusable);
    EXPECT_EQ(SystemFolders().userData, "/home/me/.local/share/Tideward");
  }
  const ScopedVariable data("XDG_DATA_HOME", nullptr);
  EXPECT_EQ(SystemFolders().userData, "/home/me/.local/share/Tideward");
}

TEST(SystemFolders, WithoutHomeTheUserDatabaseTells) {
  const ScopedVariable config("XDG_CONFIG_HOME", nullptr);
  for (const char* home : {static_cast<const char*>(nullptr), ""}) {
    const ScopedVariable noHome("HOME", home);
    EXPECT_THAT(SettingsFilePath(), StartsWith("/"));
    EXPECT_THAT(SettingsFilePath(), EndsWith("/.config/Tideward/settings.ini"));
  }
}

// What a program says on its standard output.
std::string OutputOf(const std::string& command) {
  std::string output;
  FILE* const pipe = ::popen(command.c_str(), "r");
  if (pipe == nullptr) return "(not started)";
  char buffer[4096];
  while (std::fgets(buffer, sizeof buffer, pipe) != nullptr) output += buffer;
  return ::pclose(pipe) == 0 ? output : output + "(failed)";
}

TEST(SystemFolders, TheProgramsFolderIsThatOfTheExecutable) {
  const ProgramFolders folders = SystemFolders();
  EXPECT_EQ(folders.program, fs::read_symlink("/proc/self/exe").parent_path().string());
  EXPECT_EQ(folders.style, PathStyle::kPosix);
}

TEST(SystemFolders, PagesAreWrittenToTheUsersOwnFolder) {
  const ScopedVariable data("XDG_DATA_HOME", "/home/ann/share");
  EXPECT_EQ(SystemFolders().userData, "/home/ann/share/Tideward");
  EXPECT_EQ(GetCommonDataFolder(), "/home/ann/share/Tideward");
  EXPECT_EQ(GetLocalDataFolder(), "/home/ann/share/Tideward");
}

TEST(SystemFolders, TheProgramsFolderIsFoundThroughLinksAndFromAnywhere) {
  const fs::path executable = fs::canonical(kPrintProgramFolder);
  const std::string expected = executable.parent_path().string() + "\n";
  const TemporaryFolder folder;
  fs::create_symlink(executable, folder / "started-through-this");
  fs::create_directory_symlink(executable.parent_path(), folder / "bin");
  EXPECT_EQ(OutputOf("'" + executable.string() + "'"), expected);
  EXPECT_EQ(OutputOf("'" + (folder / "started-through-this") + "'"), expected);
  EXPECT_EQ(OutputOf("cd '" + folder.path() + "' && ./started-through-this"), expected);
  EXPECT_EQ(OutputOf("cd / && PATH='" + (folder / "bin") + "' " + executable.filename().string()),
            expected);
}

TEST(SystemSettings, LieInTheSettingsFile) {
  const TemporaryFolder folder;
  const ScopedVariable config("XDG_CONFIG_HOME", folder.path().c_str());
  const auto files = MakeSystemFiles();
  const auto settings = MakeSystemSettings(*files);
  EXPECT_EQ(modGetSetSaveSet::Get(*settings, settings::kShowLessThan), "false");
  EXPECT_EQ(BytesOf(folder / "Tideward/settings.ini"), "[Options]\nShowLessThan=False\n");
  EXPECT_EQ(ModeOf(folder / "Tideward"), 0700);
  EXPECT_EQ(ModeOf(folder / "Tideward/settings.ini"), 0600);
}

TEST(SystemFiles, AProgramInASystemFolderKeepsItsEventsInTheUsersFolder) {
  const TemporaryFolder folder;
  fs::create_directory(folder / "program");
  const std::string answer = InUnprivilegedChild(folder.path(), [&]() -> std::string {
    ::chmod((folder / "program").c_str(), 0500);
    const auto files = MakeSystemFiles();
    MemorySettingsStore settings;
    const ProgramFolders folders{folder / "program", folder / "home/share/Tideward",
                                 PathStyle::kPosix};
    const std::string path = LocateEventsFile(settings, *files, folders);
    MemoryMessageBox messages;
    const Status status = CreateNewEventsFile(*files, messages, path);
    if (!status.ok()) return DescribeStatus(status);
    if (settings.At("Settings", "Path") != path) return "another path is stored";
    return path;
  });
  const std::string path = folder / "home/share/Tideward/dates.txt";
  EXPECT_EQ(answer, path);
  EXPECT_EQ(BytesOf(path), "");
  EXPECT_EQ(ModeOf(path), 0600);
  EXPECT_EQ(ModeOf(folder / "home/share/Tideward"), 0700);
}

TEST(SystemFiles, AnEventsFileInAnUnwritableProgramFolderIsUsed) {
  const TemporaryFolder folder;
  fs::create_directory(folder / "program");
  WriteBytes(folder / "program/dates.txt", "");
  const std::string answer = InUnprivilegedChild(folder.path(), [&] {
    ::chmod((folder / "program").c_str(), 0500);
    const auto files = MakeSystemFiles();
    MemorySettingsStore settings;
    return LocateEventsFile(settings, *files,
                            {folder / "program", folder / "home", PathStyle::kPosix});
  });
  EXPECT_EQ(answer, folder / "program/dates.txt");
}

// Date and time of day `offset` seconds east of Greenwich.
std::string ClockAt(std::time_t time, long offset) {
  const long local = static_cast<long>(time) + offset;
  const CivilDate date = AddDays(MakeDate(1970, 1, 1), static_cast<int>(local / 86'400));
  return std::to_string(YearOf(date)) + " " + std::to_string(MonthOf(date)) + " " +
         std::to_string(DayOf(date)) + " " + std::to_string(local % 86'400);
}

TEST(SystemClock, TellsTheLocalDateAndTime) {
  struct Zone {
    const char* name;
    long offset;
  };
  for (const Zone zone : {Zone{"UTC0", 0}, Zone{"ABC-14", 14 * 3600}, Zone{"ABC12", -12 * 3600},
                          Zone{"ABC-5:30", 5 * 3600 + 1800}}) {
    SCOPED_TRACE(zone.name);
    EXPECT_EQ(InChild([&]() -> std::string {
                ::setenv("TZ", zone.name, 1);
                ::tzset();
                const auto clock = MakeSystemClock();
                const std::time_t before = std::time(nullptr);
                const LocalTime now = clock->Now();
                const std::time_t after = std::time(nullptr);
                const std::string seen =
                    std::to_string(YearOf(now.date)) + " " + std::to_string(MonthOf(now.date)) +
                    " " + std::to_string(DayOf(now.date)) + " " +
                    std::to_string(now.hour * 3600 + now.minute * 60 + now.second);
                for (std::time_t time = before; time <= after; ++time) {
                  if (seen == ClockAt(time, zone.offset)) return "right";
                }
                return seen + " instead of " + ClockAt(before, zone.offset);
              }),
              "right");
  }
}

TEST(SystemClock, FollowsAChangeOfTheTimeZone) {
  EXPECT_EQ(InChild([]() -> std::string {
              const auto clock = MakeSystemClock();
              ::setenv("TZ", "UTC0", 1);
              const int before = clock->Now().hour;
              ::setenv("TZ", "ABC-5", 1);
              const int later = (clock->Now().hour - before + 24) % 24;
              // The hour may have ended in between.
              return later == 5 || later == 6 ? "five hours" : std::to_string(later);
            }),
            "five hours");
}

TEST(SystemFormats, APatternTakesThePlaceOfTheUsersLayout) {
  const ScopedVariable all("LC_ALL", "C");
  EXPECT_EQ(MakeSystemFormats("")->ShortDate(kProbeDate), "12/31/1992");
  EXPECT_EQ(MakeSystemFormats("yyyy-MM-dd")->ShortDate(kProbeDate), "1992-12-31");
  EXPECT_EQ(MakeSystemFormats("dd. MM. yyyy")->ShortDate(kProbeDate), "31.12.1992");
  EXPECT_EQ(MakeSystemFormats("dd MMM yyyy")->ShortDate(kProbeDate), "31 Dec 1992");
  EXPECT_EQ(MakeSystemFormats("yyyy-MM-dd")->WeekdayName(1), "Sunday");
}

}  // namespace
}  // namespace tidewarden
