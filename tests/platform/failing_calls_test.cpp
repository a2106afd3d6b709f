// What is left on the disk when system calls fail, do half of their work or are the last thing
// that the process does. The linker puts the wrappers below in front of the real calls.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <functional>
#include <limits>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "core/ini_settings_store.h"
#include "platform/posix/posix_file_system.h"
#include "tests/support/processes.h"
#include "tests/support/temporary_folder.h"

namespace tidewarden {
namespace {

// What happens to the calls while a plan is in force.
struct Plan {
  std::string failing;  // the call that fails
  int failAt = 0;       // its how-manieth call fails, from 1; 0 for none
  int error = 0;
  int crashBefore = 0;  // the process ends before this call of any kind, from 1; 0 for never
  std::size_t atMost = std::numeric_limits<std::size_t>::max();  // bytes of one read or write
  // What happens to come in between: runs once, before the how-manieth of those calls.
  struct Between {
    std::string call;
    int at = 1;
    std::function<void()> run;
  };
  std::vector<Between> between{};
};

Plan* current = nullptr;
std::vector<std::string> calls;     // made while a plan is in force
std::map<std::string, int> counts;  // of each kind
constexpr int kCrashed = 77;

// True when the call is to fail; errno is then set.
bool Fails(const std::string& call) {
  if (current == nullptr) return false;
  calls.push_back(call);
  if (static_cast<int>(calls.size()) == current->crashBefore) ::_exit(kCrashed);
  const int made = ++counts[call];
  for (const Plan::Between& between : current->between) {
    if (between.call != call || between.at != made) continue;
    Plan* const suspended = std::exchange(current, nullptr);
    between.run();
    current = suspended;
    break;
  }
  if (call != current->failing || made != current->failAt) return false;
  errno = current->error;
  return true;
}

// Puts a plan in force until the object is gone.
class InForce {
 public:
  explicit InForce(Plan wanted) : plan_(std::move(wanted)) {
    calls.clear();
    counts.clear();
    current = &plan_;
  }
  InForce(const InForce&) = delete;
  InForce& operator=(const InForce&) = delete;
  ~InForce() { current = nullptr; }

 private:
  Plan plan_;
};

}  // namespace
}  // namespace tidewarden

extern "C" {

int __real_open(const char* path, int flags, ...);
ssize_t __real_read(int fd, void* buffer, size_t count);
ssize_t __real_write(int fd, const void* buffer, size_t count);
int __real_fsync(int fd);
int __real_rename(const char* from, const char* to);
int __real_fchmod(int fd, mode_t mode);
int __real_fchown(int fd, uid_t user, gid_t group);
int __real_flock(int fd, int operation);
int __real_ftruncate(int fd, off_t size);
int __real_posix_fallocate(int fd, off_t offset, off_t size);
int __real_mkdir(const char* path, mode_t mode);
int __real_unlink(const char* path);

int __wrap_open(const char* path, int flags, ...) {
  mode_t mode = 0;
  if ((flags & O_CREAT) != 0) {
    va_list arguments;
    va_start(arguments, flags);
    mode = va_arg(arguments, mode_t);
    va_end(arguments);
  }
  return tidewarden::Fails("open") ? -1 : __real_open(path, flags, mode);
}

ssize_t __wrap_read(int fd, void* buffer, size_t count) {
  if (tidewarden::Fails("read")) return -1;
  if (tidewarden::current != nullptr) count = std::min(count, tidewarden::current->atMost);
  return __real_read(fd, buffer, count);
}

ssize_t __wrap_write(int fd, const void* buffer, size_t count) {
  if (tidewarden::Fails("write")) return -1;
  if (tidewarden::current != nullptr) count = std::min(count, tidewarden::current->atMost);
  return __real_write(fd, buffer, count);
}

int __wrap_fsync(int fd) {
  return tidewarden::Fails("fsync") ? -1 : __real_fsync(fd);
}

int __wrap_rename(const char* from, const char* to) {
  return tidewarden::Fails("rename") ? -1 : __real_rename(from, to);
}

int __wrap_fchmod(int fd, mode_t mode) {
  return tidewarden::Fails("fchmod") ? -1 : __real_fchmod(fd, mode);
}

int __wrap_fchown(int fd, uid_t user, gid_t group) {
  return tidewarden::Fails("fchown") ? -1 : __real_fchown(fd, user, group);
}

int __wrap_flock(int fd, int operation) {
  return tidewarden::Fails("flock") ? -1 : __real_flock(fd, operation);
}

int __wrap_ftruncate(int fd, off_t size) {
  return tidewarden::Fails("ftruncate") ? -1 : __real_ftruncate(fd, size);
}

// Answers with the error itself.
int __wrap_posix_fallocate(int fd, off_t offset, off_t size) {
  return tidewarden::Fails("posix_fallocate") ? errno : __real_posix_fallocate(fd, offset, size);
}

int __wrap_mkdir(const char* path, mode_t mode) {
  return tidewarden::Fails("mkdir") ? -1 : __real_mkdir(path, mode);
}

int __wrap_unlink(const char* path) {
  return tidewarden::Fails("unlink") ? -1 : __real_unlink(path);
}

}  // extern "C"

namespace tidewarden {
namespace {

using test::BytesOf;
using test::InUnprivilegedChild;
using test::NamesIn;
using test::StartChild;
using test::TemporaryFolder;
using test::WaitFor;
using test::WriteBytes;
using ::testing::Contains;
using ::testing::ElementsAre;

const std::string kOld = "12.25,Christmas,14,yearly\r\n";
const std::string kNew = "12.25,Christmas,14,yearly\r\n12.26,Boxing Day,14,yearly\r\n";

class FailingCalls : public ::testing::Test {
 protected:
  PosixFileSystem files_;
  TemporaryFolder folder_;
  std::string path_ = folder_ / "dates.txt";
};

TEST_F(FailingCalls, AFailureOfAnyCallLeavesTheOldContentWholeAndNothingElse) {
  int failed = 0;
  for (const std::string call :
       {"open", "read", "write", "fsync", "rename", "fchmod", "fchown", "flock"}) {
    for (const int error : {EIO, ENOSPC, EDQUOT, EROFS, ENOLCK}) {
      for (int at = 1; at <= 10; ++at) {
        SCOPED_TRACE(call + " " + std::to_string(at) + ", " + std::to_string(error));
        WriteBytes(path_, kOld);
        Status status;
        int made = 0;
        {
          const InForce inForce({call, at, error});
          status = ReplaceFile(files_, path_, kNew);
          made = counts[call];
        }
        EXPECT_EQ(BytesOf(path_), status.ok() ? kNew : kOld);
        EXPECT_THAT(NamesIn(folder_.path()), ElementsAre("dates.txt"));
        if (!status.ok()) ++failed;
        if (made < at) break;
      }
    }
  }
  EXPECT_GE(failed, 20);
}

TEST_F(FailingCalls, AFullDiskIsReportedAsOne) {
  WriteBytes(path_, kOld);
  for (const int error : {ENOSPC, EDQUOT}) {
    for (const std::string call : {"write", "fsync"}) {
      const InForce inForce({call, 1, error});
      EXPECT_EQ(ReplaceFile(files_, path_, kNew).kind(), StatusKind::kNoSpace) << call;
    }
  }
  const InForce inForce({"open", 2, EROFS});
  EXPECT_EQ(ReplaceFile(files_, path_, kNew).kind(), StatusKind::kReadOnly);
}

TEST_F(FailingCalls, ADiskThatFillsUpHalfWayLeavesTheOldContent) {
  const std::string content(10'000, 'x');
  for (int at = 1; at <= 10; ++at) {
    WriteBytes(path_, kOld);
    Plan halfWay{"write", at, ENOSPC};
    halfWay.atMost = 1000;
    const InForce inForce(halfWay);
    EXPECT_EQ(ReplaceFile(files_, path_, content).kind(), StatusKind::kNoSpace);
    EXPECT_EQ(BytesOf(path_), kOld);
    EXPECT_THAT(NamesIn(folder_.path()), ElementsAre("dates.txt"));
  }
}

TEST_F(FailingCalls, AReadThatFailsIsNoShorterFile) {
  WriteBytes(path_, std::string(1'000'000, 'x'));
  for (int at = 1; at <= 3; ++at) {
    Plan plan{"read", at, EIO};
    plan.atMost = 1000;
    const InForce inForce(plan);
    std::string content = "before";
    EXPECT_EQ(ReadFile(files_, path_, content).kind(), StatusKind::kInputOutput);
    EXPECT_EQ(content, "before");
  }
}

TEST_F(FailingCalls, ReadsAndWritesInSmallPiecesAreGoneThroughToTheEnd) {
  std::string content;
  for (int i = 0; i < 5000; ++i) content += std::to_string(i) + ",";
  for (const std::size_t atMost : {1U, 7U, 4096U}) {
    Plan plan;
    plan.atMost = atMost;
    const InForce inForce(plan);
    EXPECT_TRUE(ReplaceFile(files_, path_, content).ok());
    EXPECT_EQ(BytesOf(path_), content);
    std::string back;
    EXPECT_TRUE(ReadFile(files_, path_, back).ok());
    EXPECT_EQ(back, content);
    content += "more";
  }
}

TEST_F(FailingCalls, AnInterruptedCallIsRepeated) {
  for (const std::string call : {"open", "read", "write", "fsync"}) {
    for (int at = 1; at <= 3; ++at) {
      SCOPED_TRACE(call + " " + std::to_string(at));
      WriteBytes(path_, kOld);
      const InForce inForce({call, at, EINTR});
      EXPECT_TRUE(ReplaceFile(files_, path_, kNew).ok());
      EXPECT_EQ(BytesOf(path_), kNew);
    }
  }
}

TEST_F(FailingCalls, TheContentIsFlushedBeforeTheRenameAndTheFolderAfterIt) {
  WriteBytes(path_, kOld);
  const InForce inForce({});
  ASSERT_TRUE(ReplaceFile(files_, path_, kNew).ok());
  std::string order;
  for (const std::string& call : calls) {
    if (call == "write" || call == "fsync" || call == "rename") order += call + " ";
  }
  EXPECT_EQ(order, "write fsync rename fsync ");
}

TEST_F(FailingCalls, AnEmptyFileIsFlushedOnlyWhenItGoesIntoPlace) {
  WriteBytes(path_, kOld);
  const auto flushesAndRenames = [] {
    std::string order;
    for (const std::string& call : calls) {
      if (call == "fsync" || call == "rename") order += call + " ";
    }
    return order;
  };
  {
    const InForce inForce({});
    std::unique_ptr<StagedFile> staged;
    ASSERT_TRUE(files_.Stage(path_, "", staged).ok());
    staged.reset();
    EXPECT_EQ(flushesAndRenames(), "");
  }
  {
    const InForce inForce({"fsync", 1, EIO});
    EXPECT_EQ(ReplaceFile(files_, path_, "").kind(), StatusKind::kInputOutput);
    EXPECT_EQ(flushesAndRenames(), "fsync ");
  }
  EXPECT_EQ(BytesOf(path_), kOld);
  const InForce inForce({});
  ASSERT_TRUE(ReplaceFile(files_, path_, "").ok());
  EXPECT_EQ(flushesAndRenames(), "fsync rename fsync ");
  EXPECT_EQ(BytesOf(path_), "");
}

TEST_F(FailingCalls, AProcessThatEndsBeforeAnyCallLeavesTheOldOrTheNewContent) {
  for (const bool exists : {true, false}) {
    int crashes = 0;
    bool sawOld = false;
    bool sawNew = false;
    for (int at = 1; at <= 100; ++at) {
      SCOPED_TRACE(at);
      ::unlink(path_.c_str());
      if (exists) WriteBytes(path_, kOld);
      const int status = WaitFor(StartChild([&] {
        Plan plan;
        plan.crashBefore = at;
        plan.atMost = 10;
        const InForce inForce(plan);
        static_cast<void>(ReplaceFile(files_, path_, kNew).ok());
      }));
      ASSERT_TRUE(WIFEXITED(status));
      const std::string content = BytesOf(path_);
      const std::string old = exists ? kOld : "(unreadable)";
      EXPECT_TRUE(content == old || content == kNew) << content;
      sawOld = sawOld || content == old;
      sawNew = sawNew || content == kNew;
      // Whatever stays behind is in nobody's way.
      ASSERT_TRUE(ReplaceFile(files_, path_, kNew + "again").ok());
      EXPECT_EQ(BytesOf(path_), kNew + "again");
      EXPECT_LE(NamesIn(folder_.path()).size(), 2);
      if (WEXITSTATUS(status) != kCrashed) break;
      ++crashes;
    }
    EXPECT_GE(crashes, 12);
    EXPECT_TRUE(sawOld && sawNew);
    // The next save but one finds a tidy folder.
    EXPECT_TRUE(ReplaceFile(files_, path_, kOld).ok());
    EXPECT_THAT(NamesIn(folder_.path()), ElementsAre("dates.txt"));
  }
}

TEST_F(FailingCalls, InAnUnwritableFolderNoSpaceIsNoticedBeforeTheOldContentIsTouched) {
  WriteBytes(path_, kOld);
  EXPECT_EQ(InUnprivilegedChild(folder_.path(),
                                [&]() -> std::string {
                                  ::chmod(folder_.path().c_str(), 0500);
                                  const InForce inForce({"posix_fallocate", 1, ENOSPC});
                                  const Status status = ReplaceFile(files_, path_, kNew);
                                  if (status.kind() != StatusKind::kNoSpace) return "no failure";
                                  return BytesOf(path_);
                                }),
            kOld);
}

TEST_F(FailingCalls, InAnUnwritableFolderAFailedWriteIsTakenBack) {
  const std::string longer = kOld + kOld + kOld;
  for (const std::string& content : {longer, std::string("short\r\n")}) {
    for (const std::string call : {"write", "ftruncate", "fsync", "posix_fallocate"}) {
      if (call == "posix_fallocate" && content != longer) continue;
      SCOPED_TRACE(call);
      WriteBytes(path_, kOld);
      EXPECT_EQ(InUnprivilegedChild(folder_.path(),
                                    [&]() -> std::string {
                                      ::chmod(folder_.path().c_str(), 0500);
                                      Plan plan{call, call == "write" ? 2 : 1, EIO};
                                      plan.atMost = 5;
                                      const InForce inForce(plan);
                                      const Status status = ReplaceFile(files_, path_, content);
                                      if (status.ok()) return "no failure";
                                      return BytesOf(path_);
                                    }),
                kOld);
      ::chmod(folder_.path().c_str(), 0700);
    }
  }
}

// A save finds the file of another one, which is done with it before it can be locked and has
// begun the next one under the same name. That one is in use and must stay.
TEST_F(FailingCalls, ASaveNeverTakesTheFileOfAnotherOneThatIsStillGoingOn) {
  WriteBytes(path_, kOld);
  std::unique_ptr<StagedFile> first;
  ASSERT_TRUE(files_.Stage(path_, "first", first).ok());
  std::unique_ptr<StagedFile> next;
  std::unique_ptr<StagedFile> mine;
  Status status;
  {
    Plan plan;
    plan.between = {{"flock", 1, [&] {
                       EXPECT_TRUE(first->Commit().ok());
                       first.reset();
                       EXPECT_TRUE(files_.Stage(path_, "next", next).ok());
                     }}};
    const InForce inForce(plan);
    status = files_.Stage(path_, "mine", mine);
  }
  EXPECT_EQ(status.kind(), StatusKind::kBusy);
  EXPECT_EQ(BytesOf(path_), "first");
  ASSERT_NE(next, nullptr);
  EXPECT_TRUE(next->Commit().ok());
  EXPECT_EQ(BytesOf(path_), "next");
}

// The same, but the file is in its place before it can even be opened, and the next one has begun
// when the name is about to be removed.
TEST_F(FailingCalls, ASaveRemovesNothingUnderANameThatItDidNotOpen) {
  WriteBytes(path_, kOld);
  std::unique_ptr<StagedFile> first;
  ASSERT_TRUE(files_.Stage(path_, "first", first).ok());
  std::unique_ptr<StagedFile> next;
  std::unique_ptr<StagedFile> mine;
  Status status;
  {
    Plan plan;
    plan.between = {{"open", 2,
                     [&] {
                       EXPECT_TRUE(first->Commit().ok());
                       first.reset();
                     }},
                    {"unlink", 1, [&] { EXPECT_TRUE(files_.Stage(path_, "next", next).ok()); }}};
    const InForce inForce(plan);
    status = files_.Stage(path_, "mine", mine);
  }
  EXPECT_EQ(first, nullptr);
  EXPECT_EQ(BytesOf(path_), "first");
  if (next != nullptr) {
    EXPECT_EQ(status.kind(), StatusKind::kBusy);
    EXPECT_TRUE(next->Commit().ok());
    EXPECT_EQ(BytesOf(path_), "next");
  } else {
    ASSERT_TRUE(status.ok());
    EXPECT_TRUE(mine->Commit().ok());
    EXPECT_EQ(BytesOf(path_), "mine");
  }
}

TEST_F(FailingCalls, ASettingThatCannotBeWrittenKeepsItsOldValue) {
  const std::string path = folder_ / "settings.ini";
  IniSettingsStore store(files_, path);
  ASSERT_TRUE(store.Write("Options", "UseSkin", "True").ok());
  const std::string before = BytesOf(path);
  for (const std::string call : {"write", "fsync", "rename", "flock", "mkdir", "open"}) {
    for (int at = 1; at <= 4; ++at) {
      Status status;
      {
        const InForce inForce({call, at, EIO});
        status = store.Write("Options", "UseSkin", "False");
      }
      if (status.ok()) {
        ASSERT_TRUE(store.Write("Options", "UseSkin", "True").ok());
      }
      EXPECT_EQ(BytesOf(path), before) << call << " " << at;
      std::string value;
      EXPECT_TRUE(store.Read("Options", "UseSkin", value).ok());
      EXPECT_EQ(value, "True");
      EXPECT_THAT(NamesIn(folder_.path()), ElementsAre("settings.ini", "settings.ini.lock"));
    }
  }
}

}  // namespace
}  // namespace tidewarden
