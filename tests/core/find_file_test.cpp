#include "core/find_file.h"

#include <gmock/gmock.h>

#include "platform/memory/memory_ports.h"

namespace tidewarden {
namespace {

TEST(FindFileInAnyCase, FindsWhatDiffersInLetterCaseOnly) {
  const struct {
    const char* wanted;
    const char* exists;
  } cases[] = {
      {"/opt/sounds/bell.wav", "/opt/sounds/bell.wav"},
      {"/opt/sounds/bell.wav", "/opt/Sounds/BELL.wav"},
      {"/opt/sounds/bell.wav", "/Opt/sounds/bell.WAV"},
      {"/home/äpfel/bell.wav", "/home/Äpfel/bell.wav"},
      {"sounds/bell.wav", "Sounds/Bell.wav"},
      {"bell.wav", "Bell.wav"},
      {"//opt//bell.wav", "//opt//Bell.wav"},
  };
  for (const auto& [wanted, exists] : cases) {
    MemoryFileSystem files;
    files.files[exists] = "sound";
    std::string found;
    EXPECT_TRUE(FindFileInAnyCase(files, wanted, found).ok()) << wanted;
    EXPECT_EQ(found, exists);
  }
}

TEST(FindFileInAnyCase, ThePathAsItStandsComesFirst) {
  MemoryFileSystem files;
  files.files["/Opt/bell.wav"] = "other";
  files.files["/opt/bell.wav"] = "this";
  std::string found;
  EXPECT_TRUE(FindFileInAnyCase(files, "/opt/bell.wav", found).ok());
  EXPECT_EQ(found, "/opt/bell.wav");
  EXPECT_EQ(files.CountCalls("list"), 0);
}

TEST(FindFileInAnyCase, OfSeveralTheFirstByCodePointsThatLeadsToAFile) {
  MemoryFileSystem files;
  files.files["/OPT/other.wav"] = "";
  files.files["/Opt/BELL.wav"] = "";
  files.files["/Opt/Bell.wav"] = "";
  files.files["/opt/Bell.wav"] = "";
  std::string found;
  EXPECT_TRUE(FindFileInAnyCase(files, "/opt/bell.wav", found).ok());
  EXPECT_EQ(found, "/Opt/BELL.wav");
  files.failures["/Opt/BELL.wav"] = StatusKind::kNoPermission;
  EXPECT_TRUE(FindFileInAnyCase(files, "/opt/bell.wav", found).ok());
  EXPECT_EQ(found, "/Opt/Bell.wav");
}

TEST(FindFileInAnyCase, AFolderThatCannotBeListedIsTakenAsWritten) {
  MemoryFileSystem files;
  files.files["/home/ann/Sounds/bell.wav"] = "";
  files.failures["/home/"] = StatusKind::kNoPermission;
  std::string found;
  EXPECT_TRUE(FindFileInAnyCase(files, "/home/ann/sounds/bell.wav", found).ok());
  EXPECT_EQ(found, "/home/ann/Sounds/bell.wav");
}

TEST(FindFileInAnyCase, OtherwiseTellsWhyThePathItselfCannotBeRead) {
  MemoryFileSystem files;
  files.files["/opt/bell.wave"] = "";
  std::string found;
  EXPECT_EQ(FindFileInAnyCase(files, "/opt/bell.wav", found).kind(), StatusKind::kNotFound);
  EXPECT_EQ(found, "/opt/bell.wav");
  files.failures["/opt/folder"] = StatusKind::kIsFolder;
  EXPECT_EQ(FindFileInAnyCase(files, "/opt/folder", found).kind(), StatusKind::kIsFolder);
  EXPECT_EQ(FindFileInAnyCase(files, "", found).kind(), StatusKind::kNotFound);
}

TEST(FindFileInAnyCase, GivesUpAmongCountlessFoldersOfTheSameName) {
  MemoryFileSystem files;
  // Eight letters in every case at each of two levels, and no file below.
  const auto variant = [](unsigned bits) {
    std::string name = "abcdefgh";
    for (std::size_t i = 0; i < name.size(); ++i) {
      if ((bits >> i & 1U) != 0) name[i] = static_cast<char>(name[i] - 'a' + 'A');
    }
    return name;
  };
  for (unsigned outer = 0; outer < 256; ++outer) {
    files.files["/" + variant(outer) + "/" + variant(outer) + "/other"] = "";
  }
  std::string found;
  EXPECT_EQ(FindFileInAnyCase(files, "/abcdefgh/abcdefgh/bell.wav", found).kind(),
            StatusKind::kNotFound);
  EXPECT_LE(files.CountCalls("list"), 200);
}

}  // namespace
}  // namespace tidewarden
