// The names in a folder, and files that are found by them when their letter case is unknown.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "core/find_file.h"
#include "platform/posix/posix_file_system.h"
#include "tests/support/processes.h"
#include "tests/support/temporary_folder.h"

namespace tidewarden {
namespace {

using test::InUnprivilegedChild;
using test::TemporaryFolder;
using test::WriteBytes;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::string Found(const std::string& path) {
  PosixFileSystem files;
  std::string found;
  return FindFileInAnyCase(files, path, found).ok() ? found : "(none)";
}

TEST(ListNames, GivesEveryNameInCodePointOrder) {
  const TemporaryFolder folder;
  for (const char* const name : {"b", "ä", "A", "a", ".hidden"}) WriteBytes(folder / name, "");
  ASSERT_EQ(::mkdir((folder / "Folder").c_str(), 0700), 0);
  ASSERT_EQ(::symlink("nowhere", (folder / "link").c_str()), 0);
  std::vector<std::string> names;
  EXPECT_TRUE(PosixFileSystem().ListNames(folder.path(), names).ok());
  EXPECT_THAT(names, ElementsAre(".hidden", "A", "Folder", "a", "b", "link", "ä"));
}

TEST(ListNames, AnEmptyFolderHasNone) {
  const TemporaryFolder folder;
  std::vector<std::string> names{"before"};
  EXPECT_TRUE(PosixFileSystem().ListNames(folder.path(), names).ok());
  EXPECT_THAT(names, IsEmpty());
}

TEST(ListNames, TellsWhatIsNoFolder) {
  const TemporaryFolder folder;
  WriteBytes(folder / "file", "");
  std::vector<std::string> names{"before"};
  PosixFileSystem files;
  EXPECT_EQ(files.ListNames(folder / "nowhere", names).kind(), StatusKind::kNotFound);
  EXPECT_EQ(files.ListNames(folder / "file", names).kind(), StatusKind::kNotFound);
  EXPECT_THAT(names, ElementsAre("before"));
}

TEST(ListNames, TellsWhenTheSystemRefuses) {
  const TemporaryFolder folder;
  const std::string answer = InUnprivilegedChild(folder.path(), [&]() -> std::string {
    const std::string locked = folder / "Locked";
    ::mkdir(locked.c_str(), 0700);
    WriteBytes(locked + "/a", "");
    ::chmod(locked.c_str(), 0100);
    PosixFileSystem files;
    std::vector<std::string> names;
    if (files.ListNames(locked, names).kind() != StatusKind::kNoPermission) return "it listed";
    return Found(folder / "locked/a") == locked + "/a" ? "found" : "not found";
  });
  ::chmod((folder / "Locked").c_str(), 0700);
  EXPECT_EQ(answer, "found");
}

TEST(FindFileInAnyCase, FindsRealFiles) {
  const TemporaryFolder folder;
  ASSERT_EQ(::mkdir((folder / "Quotes").c_str(), 0700), 0);
  const std::string path = folder / "Quotes/Inspiration.txt";
  WriteBytes(path, "");
  PosixFileSystem files;
  EXPECT_EQ(Found(folder / "quotes/inspiration.txt"), path);
  EXPECT_EQ(Found(folder / "QUOTES/../quotes/Inspiration.TXT"),
            folder / "Quotes/../Quotes/Inspiration.txt");
  ASSERT_EQ(::chdir(folder.path().c_str()), 0);
  EXPECT_EQ(Found("quotes/inspiration.txt"), "Quotes/Inspiration.txt");
  ASSERT_EQ(::chdir("/"), 0);
}

}  // namespace
}  // namespace tidewarden
