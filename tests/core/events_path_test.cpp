#include "core/events_path.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/memory/memory_ports.h"

namespace tidewarden {
namespace {

struct PathCase {
  std::string stored;
  std::string full;
};

TEST(EventsPath, PosixPathsKnowBothSeparators) {
  const std::vector<PathCase> cases{
      {"mydates.txt", "/opt/tw/mydates.txt"},
      {"\\dates.txt", "/opt/tw/dates.txt"},
      {"\\sub\\dates.txt", "/opt/tw/sub/dates.txt"},
      {"\\sub/dates.txt", "/opt/tw/sub/dates.txt"},
      {"/home/me/dates.txt", "/home/me/dates.txt"},
      {"/opt/tw/dates.txt", "/opt/tw/dates.txt"},
      {"/odd\\name.txt", "/odd\\name.txt"},
      {"sub/dates.txt", "sub/dates.txt"},
      {"sub\\dates.txt", "sub/dates.txt"},
      {"./dates.txt", "./dates.txt"},
      {"..\\dates.txt", "../dates.txt"},
      {"C:\\Events\\dates.txt", "C:/Events/dates.txt"},
      {" /dates.txt", " /dates.txt"},
      {"N\xC3\xB6\xC3\xABl.txt", "/opt/tw/N\xC3\xB6\xC3\xABl.txt"},
      {".txt", "/opt/tw/.txt"},
  };
  for (const PathCase& c : cases) {
    EXPECT_EQ(ResolveEventsPath(c.stored, "/opt/tw", PathStyle::kPosix), c.full) << c.stored;
  }
  EXPECT_EQ(ResolveEventsPath("dates.txt", "/", PathStyle::kPosix), "/dates.txt");
}

TEST(EventsPath, WindowsPathsFollowTheBackslash) {
  const std::vector<PathCase> cases{
      {"mydates.txt", "C:\\Tidewarden\\mydates.txt"},
      {"\\dates.txt", "C:\\Tidewarden\\dates.txt"},
      {"\\sub\\dates.txt", "C:\\Tidewarden\\sub\\dates.txt"},
      {"\\\\server\\share\\dates.txt", "C:\\Tidewarden\\\\server\\share\\dates.txt"},
      {"D:\\dates.txt", "D:\\dates.txt"},
      {"C:\\Tidewarden\\dates.txt", "C:\\Tidewarden\\dates.txt"},
      {"sub\\dates.txt", "sub\\dates.txt"},
      {"D:/data/dates.txt", "D:/data/dates.txt"},
      {"/data/dates.txt", "/data/dates.txt"},
      {"sub/dates.txt", "sub/dates.txt"},
      {"D:dates.txt", "C:\\Tidewarden\\D:dates.txt"},
  };
  for (const PathCase& c : cases) {
    EXPECT_EQ(ResolveEventsPath(c.stored, "C:\\Tidewarden", PathStyle::kWindows), c.full)
        << c.stored;
  }
  EXPECT_EQ(ResolveEventsPath("dates.txt", "C:\\", PathStyle::kWindows), "C:\\dates.txt");
}

TEST(FromProgramFolder, OnWindowsEveryRelativePathStartsThere) {
  const std::vector<PathCase> cases{
      {"bell.wav", "C:\\Tidewarden\\bell.wav"},
      {"\\bell.wav", "C:\\Tidewarden\\bell.wav"},
      {"\\alarms\\bell.wav", "C:\\Tidewarden\\alarms\\bell.wav"},
      {"alarms\\bell.wav", "C:\\Tidewarden\\alarms\\bell.wav"},
      {"alarms/bell.wav", "C:\\Tidewarden\\alarms/bell.wav"},
      {"b", "C:\\Tidewarden\\b"},
      {"\\\\server\\share\\bell.wav", "\\\\server\\share\\bell.wav"},
      {"//server/share/bell.wav", "//server/share/bell.wav"},
      {"/music/bell.wav", "/music/bell.wav"},
      {"d:\\bell.wav", "d:\\bell.wav"},
      {"d:/bell.wav", "d:/bell.wav"},
      {"d:bell.wav", "d:bell.wav"},
  };
  for (const PathCase& c : cases) {
    EXPECT_EQ(FromProgramFolder(c.stored, {"C:\\Tidewarden", "", PathStyle::kWindows}), c.full)
        << c.stored;
  }
  for (const char* const stored : {"bell.wav", "\\bell.wav"}) {
    EXPECT_EQ(FromProgramFolder(stored, {"C:\\", "", PathStyle::kWindows}), "C:\\bell.wav");
    EXPECT_EQ(FromProgramFolder(stored, {"\\\\server\\Tw", "", PathStyle::kWindows}),
              "\\\\server\\Tw\\bell.wav");
  }
}

TEST(FromProgramFolder, OnPosixEveryPathWithoutASlashInFrontStartsThere) {
  const std::vector<PathCase> cases{
      {"bell.wav", "/opt/tw/bell.wav"},
      {"\\alarms\\bell.wav", "/opt/tw/alarms/bell.wav"},
      {"alarms\\bell.wav", "/opt/tw/alarms/bell.wav"},
      {"/music/bell.wav", "/music/bell.wav"},
  };
  for (const PathCase& c : cases) {
    EXPECT_EQ(FromProgramFolder(c.stored, {"/opt/tw", "", PathStyle::kPosix}), c.full) << c.stored;
  }
}

class LocateEventsFileTest : public ::testing::Test {
 protected:
  std::string Locate() { return LocateEventsFile(settings_, files_, folders_); }
  [[nodiscard]] std::string Stored() const { return settings_.At("Settings", "Path"); }
  void Store(const std::string& value) { settings_.entries = {{"Settings", "Path", value}}; }

  MemorySettingsStore settings_;
  MemoryFileSystem files_;
  ProgramFolders folders_{"/opt/Tw", "/home/me/.local/share/Tideward", PathStyle::kPosix};
};

TEST_F(LocateEventsFileTest, TheDefaultLiesInTheProgramsFolder) {
  EXPECT_EQ(Locate(), "/opt/Tw/dates.txt");
  EXPECT_EQ(Stored(), "/opt/Tw/dates.txt");
  EXPECT_EQ(Locate(), "/opt/Tw/dates.txt") << "at the second start";
  EXPECT_EQ(settings_.writes, 1);
}

TEST_F(LocateEventsFileTest, TheDefaultOnWindowsHasABackslash) {
  folders_ = {"C:\\Tw", "C:\\Users\\me\\AppData\\Roaming\\Tideward", PathStyle::kWindows};
  EXPECT_EQ(Locate(), "C:\\Tw\\dates.txt");
  EXPECT_EQ(Stored(), "C:\\Tw\\dates.txt");
  EXPECT_EQ(Locate(), "C:\\Tw\\dates.txt");
  folders_.program = "C:\\";
  settings_.entries.clear();
  EXPECT_EQ(Locate(), "C:\\dates.txt");
}

TEST_F(LocateEventsFileTest, AProgramFolderThatTakesNoFilesGivesWayToTheUsersFolder) {
  files_.unwritableFolders = {"/opt/Tw"};
  EXPECT_EQ(Locate(), "/home/me/.local/share/Tideward/dates.txt");
  EXPECT_EQ(Stored(), "/home/me/.local/share/Tideward/dates.txt");
  Store("mine.txt");
  EXPECT_EQ(Locate(), "/home/me/.local/share/Tideward/mine.txt");
  Store("\\sub\\mine.txt");
  EXPECT_EQ(Locate(), "/home/me/.local/share/Tideward/sub/mine.txt");
}

TEST_F(LocateEventsFileTest, AnEventsFileInTheProgramsFolderKeepsItThere) {
  files_.unwritableFolders = {"/opt/Tw"};
  files_.files["/opt/Tw/dates.txt"] = "";
  EXPECT_EQ(Locate(), "/opt/Tw/dates.txt");
  EXPECT_EQ(Stored(), "/opt/Tw/dates.txt");
}

TEST_F(LocateEventsFileTest, OnWindowsTooTheUsersFolderIsTheFallback) {
  folders_ = {"C:\\Tw", "C:\\Roaming\\Tideward", PathStyle::kWindows};
  files_.unwritableFolders = {"C:\\Tw"};
  EXPECT_EQ(Locate(), "C:\\Roaming\\Tideward\\dates.txt");
  Store("mine.txt");
  EXPECT_EQ(Locate(), "C:\\Tw\\mine.txt");
  Store("\\sub\\mine.txt");
  EXPECT_EQ(Locate(), "C:\\Tw\\sub\\mine.txt");
}

// Roaming folders are often on a server, and a program may be started from one.
TEST_F(LocateEventsFileTest, OnWindowsADefaultOnTheNetworkIsAFullPath) {
  folders_ = {"C:\\Tw", "\\\\server\\me\\Tideward", PathStyle::kWindows};
  files_.unwritableFolders = {"C:\\Tw"};
  for (const char* start : {"first", "second"}) {
    EXPECT_EQ(Locate(), "\\\\server\\me\\Tideward\\dates.txt") << start;
    EXPECT_EQ(Stored(), "\\\\server\\me\\Tideward\\dates.txt") << start;
  }
  Store("\\\\SERVER\\Me\\tideward\\sub\\mine");
  EXPECT_EQ(Locate(), "\\\\SERVER\\Me\\tideward\\sub\\mine.txt");

  folders_ = {"\\\\server\\programs\\Tw", "C:\\Roaming\\Tideward", PathStyle::kWindows};
  files_.unwritableFolders.clear();
  settings_.entries.clear();
  EXPECT_EQ(Locate(), "\\\\server\\programs\\Tw\\dates.txt");
  EXPECT_EQ(Locate(), "\\\\server\\programs\\Tw\\dates.txt");
}

TEST_F(LocateEventsFileTest, OnWindowsAnyOtherRootedPathStartsAtTheProgramsFolder) {
  folders_ = {"C:\\Tw", "\\\\server\\me\\Tideward", PathStyle::kWindows};
  const std::vector<PathCase> cases{
      {"\\\\server\\share\\dates.txt", "C:\\Tw\\\\server\\share\\dates.txt"},
      {"\\\\server\\me\\TidewardToo\\dates.txt", "C:\\Tw\\\\server\\me\\TidewardToo\\dates.txt"},
      {"\\dates.txt", "C:\\Tw\\dates.txt"},
      {"C:\\Tw\\dates.txt", "C:\\Tw\\dates.txt"},
  };
  for (const PathCase& c : cases) {
    Store(c.stored);
    EXPECT_EQ(Locate(), c.full);
  }
}

TEST_F(LocateEventsFileTest, AMissingEndingIsAddedAndSavedAsStored) {
  const std::vector<std::vector<std::string>> cases{
      // stored, saved, used
      {"mydates", "mydates.txt", "/opt/Tw/mydates.txt"},
      {"\\sub\\mydates", "\\sub\\mydates.txt", "/opt/Tw/sub/mydates.txt"},
      {"/home/me/events.TX", "/home/me/events.TX.txt", "/home/me/events.TX.txt"},
      {"/home/me/Events", "/home/me/Events.txt", "/home/me/Events.txt"},
      {"txt", "txt.txt", "/opt/Tw/txt.txt"},
      {"/d/dates.txt ", "/d/dates.txt .txt", "/d/dates.txt .txt"},
      {"N\xC3\xB6\xC3\xABl", "N\xC3\xB6\xC3\xABl.txt", "/opt/Tw/N\xC3\xB6\xC3\xABl.txt"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c[0]);
    Store(c[0]);
    settings_.writes = 0;
    EXPECT_EQ(Locate(), c[2]);
    EXPECT_EQ(Stored(), c[1]);
    EXPECT_EQ(settings_.writes, 1);
    EXPECT_EQ(Locate(), c[2]);
    EXPECT_EQ(settings_.writes, 1);
  }
}

TEST_F(LocateEventsFileTest, TheEndingIsThereInAnyLetterCaseAndThePathKeepsItsCase) {
  for (const std::string stored : {"/Home/Me/My.TXT", "/Home/Me/My.Txt", "/Home/Me/My.txt"}) {
    Store(stored);
    EXPECT_EQ(Locate(), stored);
    EXPECT_EQ(Stored(), stored);
  }
  EXPECT_EQ(settings_.writes, 0);
}

TEST_F(LocateEventsFileTest, AnUnreadableStoreGivesTheDefaultAndIsNotWritten) {
  Store("/home/me/mine.txt");
  settings_.failure = StatusKind::kNoPermission;
  EXPECT_EQ(Locate(), "/opt/Tw/dates.txt");
  EXPECT_EQ(settings_.writes, 0);
}

}  // namespace
}  // namespace tidewarden
