// The page as a file of a real system: who may read it, and what becomes of what had its name.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <memory>
#include <string>

#include "editor/page_printer.h"
#include "platform/system.h"
#include "tests/support/processes.h"
#include "tests/support/temporary_folder.h"

namespace tidewarden::test {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;

class PageOnDisk : public ::testing::Test {
 protected:
  TemporaryFolder folder_;
  std::unique_ptr<FileSystem> files_ = MakeSystemFiles();
  std::string page_ = folder_ / "data/print.htm";

  Status Write(const std::string& content) { return WritePage(*files_, page_, content); }
};

TEST_F(PageOnDisk, IsForTheUserAloneWithItsFolder) {
  ASSERT_TRUE(Write("page").ok());
  EXPECT_EQ(folder_.Read("data/print.htm"), "page");
  EXPECT_EQ(folder_.Permissions("data/print.htm"), 0600U);
  EXPECT_EQ(folder_.Permissions("data"), 0700U);
  EXPECT_THAT(NamesIn(folder_ / "data"), ElementsAre("print.htm"));
}

TEST_F(PageOnDisk, IsAFreshFileInPlaceOfAnOlderPage) {
  folder_.Write("data/print.htm", "older");
  folder_.SetPermissions("data/print.htm", 0644);
  ASSERT_EQ(::link(page_.c_str(), (folder_ / "data/kept.htm").c_str()), 0);
  ASSERT_TRUE(Write("page").ok());
  EXPECT_EQ(folder_.Read("data/print.htm"), "page");
  EXPECT_EQ(folder_.Permissions("data/print.htm"), 0600U);
  EXPECT_EQ(folder_.Read("data/kept.htm"), "older");
}

TEST_F(PageOnDisk, ReplacesALinkAndDoesNotFollowIt) {
  folder_.Write("precious.txt", "precious");
  folder_.MakeFolder("data");
  for (const std::string target : {"../precious.txt", "../nowhere.txt"}) {
    ::unlink(page_.c_str());
    ASSERT_EQ(::symlink(target.c_str(), page_.c_str()), 0);
    ASSERT_EQ(::symlink(target.c_str(), (page_ + ".unfinished").c_str()), 0);
    ASSERT_TRUE(Write("page").ok());
    EXPECT_EQ(folder_.Read("data/print.htm"), "page");
    EXPECT_FALSE(fs::is_symlink(page_));
    EXPECT_EQ(folder_.Read("precious.txt"), "precious");
    EXPECT_FALSE(folder_.Exists("nowhere.txt"));
    EXPECT_THAT(NamesIn(folder_ / "data"), ElementsAre("print.htm"));
  }
}

TEST_F(PageOnDisk, LeavesAFolderOfItsNameAlone) {
  folder_.MakeFolder("data/print.htm");
  EXPECT_FALSE(Write("page").ok());
  EXPECT_THAT(NamesIn(folder_ / "data"), ElementsAre("print.htm"));
}

TEST_F(PageOnDisk, CannotBeWrittenWhereAFileStandsInPlaceOfTheFolder) {
  folder_.Write("data", "a file");
  EXPECT_EQ(Write("page").kind(), StatusKind::kNotAFolder);
  EXPECT_EQ(folder_.Read("data"), "a file");
}

TEST_F(PageOnDisk, KeepsTheOlderOneWhereTheFolderTakesNoFiles) {
  folder_.Write("data/print.htm", "older");
  const std::string answer = InUnprivilegedChild(folder_.path(), [this] {
    folder_.SetPermissions("data", 0500);
    const Status status = Write("page");
    folder_.SetPermissions("data", 0700);
    return DescribeStatus(status);
  });
  EXPECT_EQ(answer, "permission denied");
  EXPECT_EQ(folder_.Read("data/print.htm"), "older");
}

}  // namespace
}  // namespace tidewarden::test
