// When the skin file is used, and when it is passed over.
#include "core/skin.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "platform/memory/memory_ports.h"

namespace tidewarden {
namespace {

using namespace std::string_literals;

const std::string kSheet = "QWidget { color: #102030; }\n";
const std::string kFile = "/opt/tidewarden/winaqua.skn";

struct SkinDesk {
  MemorySettingsStore settings;
  MemoryFileSystem files;
  ProgramFolders folders{"/opt/tidewarden", "/home/ann/data", PathStyle::kPosix};

  std::string Read() { return ReadSkin(settings, files, folders); }
};

TEST(Skin, IsTheTextOfTheFileInTheProgramsFolder) {
  SkinDesk desk;
  desk.files.files[kFile] = kSheet;
  EXPECT_EQ(desk.Read(), kSheet);
  EXPECT_EQ(desk.settings.At("Options", "UseSkin"), "True");

  SkinDesk windows;
  windows.folders = {"C:\\Tide", "C:\\Users\\Ann", PathStyle::kWindows};
  windows.files.files["C:\\Tide\\winaqua.skn"] = kSheet;
  EXPECT_EQ(windows.Read(), kSheet);
}

TEST(Skin, IsUsedUnlessSwitchedOff) {
  for (const auto& [stored, isUsed] : std::vector<std::pair<std::string, bool>>{
           {"True", true}, {"maybe", true}, {"0", true}, {"False", false}, {"FALSE", false}}) {
    SCOPED_TRACE(stored);
    SkinDesk desk;
    desk.files.files[kFile] = kSheet;
    static_cast<void>(desk.settings.Write("Options", "UseSkin", stored).ok());
    EXPECT_EQ(desk.Read(), isUsed ? kSheet : "");
    EXPECT_EQ(desk.files.CountCalls("read"), isUsed ? 1 : 0);
  }
}

TEST(Skin, AMissingOrUnreadableFileIsNone) {
  SkinDesk desk;
  EXPECT_EQ(desk.Read(), "");
  desk.files.files[kFile] = kSheet;
  for (const StatusKind kind :
       {StatusKind::kNoPermission, StatusKind::kIsFolder, StatusKind::kInputOutput}) {
    desk.files.failures[kFile] = kind;
    EXPECT_EQ(desk.Read(), "");
  }
}

TEST(Skin, OnlyTextOfAMebibyteAtMostIsTaken) {
  const std::size_t most = std::size_t{1024} * 1024;
  const std::vector<std::pair<std::string, bool>> cases{{std::string(most, ' '), true},
                                                        {std::string(most + 1, ' '), false},
                                                        {std::string(3 * most, ' '), false},
                                                        {"QWidget { font: \"N\xC3\xB6l\"; }", true},
                                                        {"QWidget { font: \"N\xF6l\"; }", false},
                                                        {"QWidget {}\0"s, false},
                                                        {"\0"s, false},
                                                        {"", true}};
  for (const auto& [bytes, isTaken] : cases) {
    for (const std::size_t piece : {std::size_t{0}, std::size_t{65536}}) {
      SkinDesk desk;
      desk.files.files[kFile] = bytes;
      desk.files.piece = piece;
      EXPECT_TRUE(desk.Read() == (isTaken ? bytes : "")) << bytes.size();
    }
  }
}

TEST(Skin, AMarkInFrontIsNoPartOfIt) {
  SkinDesk desk;
  desk.files.files[kFile] = "\xEF\xBB\xBF" + kSheet;
  EXPECT_EQ(desk.Read(), kSheet);
  desk.files.files[kFile] = "\xEF\xBB\xBF";
  EXPECT_EQ(desk.Read(), "");
}

}  // namespace
}  // namespace tidewarden
