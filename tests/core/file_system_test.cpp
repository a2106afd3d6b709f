#include "core/file_system.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "platform/memory/memory_ports.h"

namespace tidewarden {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Not;

TEST(ReadFile, GathersThePieces) {
  MemoryFileSystem files;
  files.files["a"] = "12.25,Christmas,14,yearly\r\n";
  files.files["empty"] = "";
  for (const std::size_t piece : {0U, 1U, 2U, 7U, 1000U}) {
    files.piece = piece;
    std::string content = "before";
    EXPECT_TRUE(ReadFile(files, "a", content).ok());
    EXPECT_EQ(content, "12.25,Christmas,14,yearly\r\n");
    EXPECT_TRUE(ReadFile(files, "empty", content).ok());
    EXPECT_EQ(content, "");
  }
}

TEST(ReadFile, AFailureLeavesTheOutputAlone) {
  MemoryFileSystem files;
  std::string content = "before";
  EXPECT_EQ(ReadFile(files, "a", content).kind(), StatusKind::kNotFound);
  files.files["a"] = "text";
  files.failures["a"] = StatusKind::kInputOutput;
  EXPECT_EQ(ReadFile(files, "a", content).kind(), StatusKind::kInputOutput);
  EXPECT_EQ(content, "before");
}

// Gives half of the file and then fails.
class BrokenFile : public MemoryFileSystem {
 public:
  Status Read(const std::string& path, const TakeBytes& take) override {
    const std::string& content = files[path];
    static_cast<void>(take(content.substr(0, content.size() / 2)));
    return Status(StatusKind::kInputOutput);
  }
};

TEST(ReadFile, AFailureHalfWayLeavesTheOutputAlone) {
  BrokenFile files;
  files.files["a"] = "12.25,Christmas,14,yearly\r\n";
  std::string content = "before";
  EXPECT_EQ(ReadFile(files, "a", content).kind(), StatusKind::kInputOutput);
  EXPECT_EQ(content, "before");
}

TEST(CompareFile, ComparesEveryByteInPiecesOfAnySize) {
  MemoryFileSystem files;
  const std::string content = "12.25,Christmas,14,yearly\r\n";
  for (const std::size_t piece : {0U, 1U, 2U, 7U, 1000U}) {
    files.piece = piece;
    for (const std::string& held :
         {content, std::string(), content + "x", content.substr(1), std::string("x"),
          content.substr(0, content.size() - 1), "x" + content.substr(1)}) {
      files.files["a"] = held;
      Likeness likeness = held == content ? Likeness::kOther : Likeness::kSame;
      EXPECT_TRUE(CompareFile(files, "a", content, likeness).ok());
      EXPECT_EQ(likeness, held == content ? Likeness::kSame : Likeness::kOther) << held;
      EXPECT_TRUE(CompareFile(files, "a", held, likeness).ok());
      EXPECT_EQ(likeness, Likeness::kSame) << held;
    }
  }
}

TEST(CompareFile, AFailureLeavesTheOutputAlone) {
  BrokenFile broken;
  broken.files["a"] = "same";
  MemoryFileSystem files;
  for (const Likeness before : {Likeness::kSame, Likeness::kOther}) {
    Likeness likeness = before;
    EXPECT_EQ(CompareFile(broken, "a", "same", likeness).kind(), StatusKind::kInputOutput);
    EXPECT_EQ(CompareFile(files, "a", "", likeness).kind(), StatusKind::kNotFound);
    EXPECT_EQ(likeness, before);
  }
}

TEST(ReplaceFile, StagesAndThenCommits) {
  MemoryFileSystem files;
  files.files["a"] = "old";
  EXPECT_TRUE(ReplaceFile(files, "a", "new").ok());
  EXPECT_EQ(files.files["a"], "new");
  EXPECT_EQ(files.CountCalls("stage"), 1);
  EXPECT_EQ(files.CountCalls("commit"), 1);
}

TEST(ReplaceFile, CreatesAMissingFile) {
  MemoryFileSystem files;
  EXPECT_TRUE(ReplaceFile(files, "a", "new").ok());
  EXPECT_EQ(files.files["a"], "new");
}

TEST(ReplaceFile, WritesNothingWhenNothingChanges) {
  MemoryFileSystem files;
  for (const std::string content : {"", "same", "\r\n"}) {
    files.files["a"] = content;
    EXPECT_TRUE(ReplaceFile(files, "a", content).ok());
  }
  EXPECT_EQ(files.CountCalls("stage"), 0);
}

TEST(ReplaceFile, AFailureLeavesTheOldContent) {
  MemoryFileSystem files;
  files.files["a"] = "old";
  files.writeFailures["a"] = StatusKind::kNoSpace;
  EXPECT_EQ(ReplaceFile(files, "a", "new").kind(), StatusKind::kNoSpace);
  EXPECT_EQ(files.files["a"], "old");
  files.writeFailures.clear();
  files.commitFailures["a"] = StatusKind::kReadOnly;
  EXPECT_EQ(ReplaceFile(files, "a", "new").kind(), StatusKind::kReadOnly);
  EXPECT_EQ(files.files["a"], "old");
}

TEST(ReplaceFile, AReadThatFailsIsNotFollowedByAWrite) {
  BrokenFile files;
  files.files["a"] = "12.25,Christmas,14,yearly\r\n";
  EXPECT_EQ(ReplaceFile(files, "a", "new").kind(), StatusKind::kInputOutput);
  EXPECT_EQ(files.files["a"], "12.25,Christmas,14,yearly\r\n");
  EXPECT_THAT(files.calls, Not(Contains("stage a")));
}

TEST(FileStamp, DiffersInAnyPart) {
  const FileStamp stamp{1, 2, 3};
  EXPECT_EQ(stamp, (FileStamp{1, 2, 3}));
  EXPECT_FALSE(stamp == (FileStamp{0, 2, 3}));
  EXPECT_FALSE(stamp == (FileStamp{1, 0, 3}));
  EXPECT_FALSE(stamp == (FileStamp{1, 2, 0}));
}

}  // namespace
}  // namespace tidewarden
