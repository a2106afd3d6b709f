#include "platform/posix/posix_file_system.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <initializer_list>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/processes.h"
#include "tests/support/temporary_folder.h"

namespace tidewarden {
namespace {

using test::BytesOf;
using test::InChild;
using test::InUnprivilegedChild;
using test::ModeOf;
using test::NamesIn;
using test::ScopedVariable;
using test::StartChild;
using test::TemporaryFolder;
using test::WaitFor;
using test::WriteBytes;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::string kOld = "12.25,Christmas,14,yearly\r\n";
const std::string kNew = "12.25,Christmas,14,yearly\r\n12.26,Boxing Day,14,yearly\r\n";

// The outcome in a word that failed tests can show.
std::string Word(const Status& status) {
  switch (status.kind()) {
    case StatusKind::kOk:
      return "ok";
    case StatusKind::kNotFound:
      return "not found";
    case StatusKind::kNoPermission:
      return "no permission";
    case StatusKind::kIsFolder:
      return "folder";
    case StatusKind::kNotAFile:
      return "not a file";
    case StatusKind::kNotAFolder:
      return "not a folder";
    case StatusKind::kNotText:
      return "not text";
    case StatusKind::kNoSpace:
      return "no space";
    case StatusKind::kBusy:
      return "busy";
    case StatusKind::kReadOnly:
      return "read-only";
    case StatusKind::kTooLarge:
      return "too large";
    case StatusKind::kInputOutput:
      break;
  }
  return "error: " + status.detail();
}

// The bytes read, or the word for why there are none in parentheses.
std::string ReadBy(FileSystem& files, const std::string& path) {
  std::string content;
  const Status status = ReadFile(files, path, content);
  return status.ok() ? content : "(" + Word(status) + ")";
}

std::string Replace(const std::string& path, std::string_view content) {
  PosixFileSystem files;
  return Word(ReplaceFile(files, path, content));
}

// Words in the order in which they are made.
std::string Joined(std::initializer_list<std::string> words) {
  std::string out;
  for (const std::string& word : words) out += (out.empty() ? "" : ", ") + word;
  return out;
}

ino_t InodeOf(const std::string& path) {
  struct stat info {};
  return ::stat(path.c_str(), &info) == 0 ? info.st_ino : 0;
}

// Sets the umask until the object is gone.
class ScopedUmask {
 public:
  explicit ScopedUmask(mode_t mask) : before_(::umask(mask)) {}
  ScopedUmask(const ScopedUmask&) = delete;
  ScopedUmask& operator=(const ScopedUmask&) = delete;
  ~ScopedUmask() { ::umask(before_); }

 private:
  mode_t before_;
};

class PosixFiles : public ::testing::Test {
 protected:
  PosixFileSystem files_;
  TemporaryFolder folder_;
  std::string path_ = folder_ / "dates.txt";
};

// ---- Reading.

TEST_F(PosixFiles, ReadsEveryByte) {
  std::string all;
  for (int i = 0; i < 256; ++i) all.push_back(static_cast<char>(i));
  std::string big;
  for (int i = 0; i < 12'345; ++i) big += all;
  for (const std::string& content : {std::string(), std::string("x"), all, big}) {
    WriteBytes(path_, content);
    EXPECT_EQ(ReadBy(files_, path_), content);
  }
}

TEST_F(PosixFiles, ReadingEndsWhenTheTakerHasEnough) {
  WriteBytes(path_, std::string(10'000'000, 'x'));
  std::size_t taken = 0;
  EXPECT_TRUE(files_
                  .Read(path_,
                        [&](std::string_view piece) {
                          taken += piece.size();
                          return false;
                        })
                  .ok());
  EXPECT_GT(taken, 0);
  EXPECT_LT(taken, 10'000'000);
}

TEST_F(PosixFiles, TellsWhatStandsInPlaceOfAFile) {
  const std::string fifo = folder_ / "fifo";
  ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
  const std::string socketPath = folder_ / "socket";
  const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  ASSERT_LT(socketPath.size(), sizeof address.sun_path);
  std::copy(socketPath.begin(), socketPath.end(), address.sun_path);
  ASSERT_EQ(::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
  WriteBytes(path_, kOld);
  ASSERT_EQ(::symlink("nowhere", (folder_ / "dangling").c_str()), 0);
  ASSERT_EQ(::symlink("loop", (folder_ / "loop").c_str()), 0);
  ASSERT_EQ(::symlink(fifo.c_str(), (folder_ / "to-fifo").c_str()), 0);

  const std::vector<std::pair<std::string, std::string>> cases{
      {folder_ / "missing", "(not found)"},
      {folder_ / "missing/dates.txt", "(not found)"},
      {path_ + "/dates.txt", "(not found)"},
      {"", "(not found)"},
      {folder_ / "dangling", "(not found)"},
      {folder_.path(), "(folder)"},
      {"/", "(folder)"},
      {fifo, "(not a file)"},
      {folder_ / "to-fifo", "(not a file)"},
      {socketPath, "(not a file)"},
      {"/dev/null", "(not a file)"},
      {"/dev/zero", "(not a file)"},
      {"/dev/full", "(not a file)"},
      {folder_ / "loop", "(error: Too many levels of symbolic links)"},
      {folder_ / std::string(300, 'x'), "(error: File name too long)"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.first);
    // In a child, so that waiting for the pipe's other end would be noticed.
    EXPECT_EQ(InChild([&] { return ReadBy(files_, c.first); }), c.second);
  }
  ::close(socket);
}

TEST_F(PosixFiles, AFileThatTheUserMayNotReadIsNotTakenForMissing) {
  WriteBytes(path_, kOld);
  const std::string closed = folder_ / "closed";
  ASSERT_EQ(::mkdir(closed.c_str(), 0700), 0);
  WriteBytes(closed + "/dates.txt", kOld);
  const std::string answer = InUnprivilegedChild(folder_.path(), [&] {
    ::chmod(path_.c_str(), 0);
    ::chmod(closed.c_str(), 0);
    FileStamp stamp;
    return Joined({ReadBy(files_, path_), ReadBy(files_, closed + "/dates.txt"),
                   Word(files_.GetStamp(closed + "/dates.txt", stamp))});
  });
  EXPECT_EQ(answer, "(no permission), (no permission), no permission");
}

TEST_F(PosixFiles, TakesNamesInAnyLanguage) {
  const std::string name = folder_ /
                           "Gl\xC3\xBC"
                           "ck & \xE6\x97\xA5\xE6\x9C\xAC \n'\".txt";
  EXPECT_EQ(Replace(name, kOld), "ok");
  EXPECT_EQ(ReadBy(files_, name), kOld);
  EXPECT_EQ(Replace(name, kNew), "ok");
  EXPECT_EQ(NamesIn(folder_.path()).size(), 1);
}

// ---- Stamps.

TEST_F(PosixFiles, AStampTellsWhetherAFileHasChanged) {
  FileStamp first;
  EXPECT_EQ(Word(files_.GetStamp(path_, first)), "not found");
  WriteBytes(path_, kOld);
  EXPECT_EQ(Word(files_.GetStamp(path_, first)), "ok");
  FileStamp second;
  EXPECT_EQ(Word(files_.GetStamp(path_, second)), "ok");
  EXPECT_EQ(first, second);
  EXPECT_EQ(ReadBy(files_, path_), kOld);
  EXPECT_EQ(Word(files_.GetStamp(path_, second)), "ok");
  EXPECT_EQ(first, second) << "reading is no change";

  std::string other = kOld;
  other[0] = '2';
  EXPECT_EQ(Replace(path_, other), "ok");
  EXPECT_EQ(Word(files_.GetStamp(path_, second)), "ok");
  EXPECT_FALSE(first == second) << "replaced by as many bytes";

  timespec times[2]{{0, UTIME_OMIT}, {1'000'000'000, 5}};
  ASSERT_EQ(::utimensat(AT_FDCWD, path_.c_str(), times, 0), 0);
  EXPECT_EQ(Word(files_.GetStamp(path_, first)), "ok");
  times[1].tv_nsec = 6;
  ASSERT_EQ(::utimensat(AT_FDCWD, path_.c_str(), times, 0), 0);
  EXPECT_EQ(Word(files_.GetStamp(path_, second)), "ok");
  EXPECT_FALSE(first == second) << "a nanosecond later";
  EXPECT_EQ(Word(files_.GetStamp(folder_.path(), second)), "ok");
}

// ---- Creating.

TEST_F(PosixFiles, ANewFileAndItsFoldersAreForTheUserAlone) {
  for (const mode_t mask : {0U, 022U, 077U}) {
    const ScopedUmask umask(mask);
    const std::string base = folder_ / ("mask" + std::to_string(mask));
    EXPECT_EQ(Word(files_.CreateEmpty(base + "/a//b/dates.txt")), "ok");
    EXPECT_EQ(BytesOf(base + "/a/b/dates.txt"), "");
    EXPECT_EQ(ModeOf(base + "/a/b/dates.txt"), 0600);
    for (const std::string& made : {base, base + "/a", base + "/a/b"}) {
      EXPECT_EQ(ModeOf(made), 0700) << made;
    }
    EXPECT_EQ(Replace(base + "/new.txt", kNew), "ok");
    EXPECT_EQ(ModeOf(base + "/new.txt"), 0600);
    std::unique_ptr<FileLock> lock;
    EXPECT_EQ(Word(files_.Lock(base + "/c/settings.ini", lock)), "ok");
    EXPECT_EQ(ModeOf(base + "/c"), 0700);
    EXPECT_EQ(ModeOf(base + "/c/settings.ini.lock"), 0600);
  }
}

TEST_F(PosixFiles, CreatingHarmsNothingThatIsThere) {
  WriteBytes(path_, kOld);
  ASSERT_EQ(::chmod(path_.c_str(), 0644), 0);
  EXPECT_EQ(Word(files_.CreateEmpty(path_)), "ok");
  EXPECT_EQ(BytesOf(path_), kOld);
  EXPECT_EQ(ModeOf(path_), 0644);
  EXPECT_EQ(Word(files_.CreateEmpty(folder_.path())), "folder");
  EXPECT_EQ(Word(files_.CreateEmpty(path_ + "/below")), "not a folder");
  EXPECT_EQ(Word(files_.CreateEmpty(path_ + "/below/below")), "not a folder");
  const std::string fifo = folder_ / "fifo";
  ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
  EXPECT_EQ(InChild([&] { return Word(files_.CreateEmpty(fifo)); }), "not a file");
}

TEST_F(PosixFiles, CreatingThroughALinkCreatesItsTarget) {
  ASSERT_EQ(::symlink("real.txt", path_.c_str()), 0);
  EXPECT_EQ(Word(files_.CreateEmpty(path_)), "ok");
  EXPECT_EQ(BytesOf(folder_ / "real.txt"), "");
  struct stat info {};
  ASSERT_EQ(::lstat(path_.c_str(), &info), 0);
  EXPECT_TRUE(S_ISLNK(info.st_mode));
}

TEST_F(PosixFiles, NothingIsCreatedWhereTheUserMayNot) {
  const std::string closed = folder_ / "closed";
  ASSERT_EQ(::mkdir(closed.c_str(), 0700), 0);
  const std::string answer = InUnprivilegedChild(folder_.path(), [&] {
    ::chmod(closed.c_str(), 0500);
    std::unique_ptr<FileLock> lock;
    std::unique_ptr<StagedFile> staged;
    return Joined({Word(files_.CreateEmpty(closed + "/dates.txt")),
                   Word(files_.CreateEmpty(closed + "/sub/dates.txt")),
                   Word(files_.Stage(closed + "/dates.txt", kNew, staged)),
                   Word(files_.Lock(closed + "/dates.txt", lock)),
                   files_.CanCreateIn(closed) ? "can" : "cannot"});
  });
  EXPECT_EQ(answer, "no permission, no permission, no permission, no permission, cannot");
  EXPECT_THAT(NamesIn(closed), IsEmpty());
}

TEST_F(PosixFiles, ListsWhatAFolderHolds) {
  const std::vector<std::string> before{"unchanged"};
  std::vector<std::string> names = before;
  EXPECT_EQ(files_.ListNames(folder_ / "missing", names).kind(), StatusKind::kNotFound);
  WriteBytes(path_, "");
  EXPECT_EQ(files_.ListNames(path_, names).kind(), StatusKind::kNotFound);
  EXPECT_EQ(names, before);
  const std::string folder = folder_ / "listed";
  ASSERT_EQ(::mkdir(folder.c_str(), 0700), 0);
  EXPECT_TRUE(files_.ListNames(folder, names).ok());
  EXPECT_THAT(names, IsEmpty());
  WriteBytes(folder + "/a b", "");
  WriteBytes(folder + "/.hidden", "");
  ASSERT_EQ(::mkdir((folder + "/Inner").c_str(), 0700), 0);
  EXPECT_TRUE(files_.ListNames(folder, names).ok());
  EXPECT_THAT(names, ::testing::UnorderedElementsAre("a b", ".hidden", "Inner"));
}

TEST_F(PosixFiles, TellsWhereFilesMayBeCreated) {
  WriteBytes(path_, "");
  EXPECT_TRUE(files_.CanCreateIn(folder_.path()));
  EXPECT_FALSE(files_.CanCreateIn(folder_ / "missing"));
  EXPECT_FALSE(files_.CanCreateIn(path_));
  EXPECT_FALSE(files_.CanCreateIn(""));
  const std::string passable = folder_ / "listed";
  ASSERT_EQ(::mkdir(passable.c_str(), 0700), 0);
  EXPECT_EQ(InUnprivilegedChild(folder_.path(),
                                [&] {
                                  std::string answers;
                                  for (const mode_t mode : {0700U, 0500U, 0600U, 0300U, 0U}) {
                                    ::chmod(passable.c_str(), mode);
                                    answers += files_.CanCreateIn(passable) ? "+" : "-";
                                  }
                                  return answers;
                                }),
            "+--+-");
}

// ---- Replacing.

TEST_F(PosixFiles, ReplacingLeavesOneFileWithTheNewContent) {
  for (const std::string& content :
       {kOld, kNew, std::string(), std::string(3'000'000, 'x'), kOld}) {
    EXPECT_EQ(Replace(path_, content), "ok");
    EXPECT_EQ(BytesOf(path_), content);
    EXPECT_THAT(NamesIn(folder_.path()), ElementsAre("dates.txt"));
  }
}

TEST_F(PosixFiles, ReplacingByTheSameContentTouchesNothing) {
  WriteBytes(path_, kOld);
  const ino_t inode = InodeOf(path_);
  FileStamp before;
  ASSERT_TRUE(files_.GetStamp(path_, before).ok());
  EXPECT_EQ(Replace(path_, kOld), "ok");
  FileStamp after;
  ASSERT_TRUE(files_.GetStamp(path_, after).ok());
  EXPECT_EQ(before, after);
  EXPECT_EQ(InodeOf(path_), inode);
}

TEST_F(PosixFiles, AnExistingFileKeepsItsPermissions) {
  for (const mode_t mask : {0U, 022U, 077U}) {
    const ScopedUmask umask(mask);
    for (const mode_t mode : {0600U, 0640U, 0644U, 0660U, 0664U, 0666U, 0700U, 0755U}) {
      WriteBytes(path_, kOld);
      ASSERT_EQ(::chmod(path_.c_str(), mode), 0);
      EXPECT_EQ(Replace(path_, kNew), "ok");
      EXPECT_EQ(ModeOf(path_), mode);
      EXPECT_EQ(BytesOf(path_), kNew);
    }
  }
}

TEST_F(PosixFiles, TheNewContentIsNeverReadableByMoreThanTheOld) {
  WriteBytes(path_, kOld);
  ASSERT_EQ(::chmod(path_.c_str(), 0640), 0);
  const ScopedUmask umask(0);
  std::unique_ptr<StagedFile> staged;
  ASSERT_EQ(Word(files_.Stage(path_, kNew, staged)), "ok");
  for (const std::string& name : NamesIn(folder_.path())) {
    EXPECT_EQ(ModeOf(folder_ / name) & ~mode_t{0640}, 0) << name;
  }
}

TEST_F(PosixFiles, AnExistingFileKeepsItsOwnerAndGroup) {
  WriteBytes(path_, kOld);
  // Only root may give a file away; for everybody else the file is their own anyway.
  if (::geteuid() == 0) {
    ASSERT_EQ(::chown(path_.c_str(), 1234, 5678), 0);
  }
  struct stat before {};
  ASSERT_EQ(::stat(path_.c_str(), &before), 0);
  EXPECT_EQ(Replace(path_, kNew), "ok");
  struct stat after {};
  ASSERT_EQ(::stat(path_.c_str(), &after), 0);
  EXPECT_EQ(after.st_uid, before.st_uid);
  EXPECT_EQ(after.st_gid, before.st_gid);
}

TEST_F(PosixFiles, AFileKeepsItsGroupInAFolderThatHandsOnItsOwn) {
  WriteBytes(path_, kOld);
  // New files in the folder get the folder's group; this one has the user's.
  if (::geteuid() == 0) {
    ASSERT_EQ(::chown(folder_.path().c_str(), 0, 5678), 0);
  }
  ASSERT_EQ(::chmod(folder_.path().c_str(), 02700), 0);
  struct stat before {};
  ASSERT_EQ(::stat(path_.c_str(), &before), 0);
  EXPECT_EQ(Replace(path_, kNew), "ok");
  struct stat after {};
  ASSERT_EQ(::stat(path_.c_str(), &after), 0);
  EXPECT_EQ(after.st_gid, before.st_gid);
}

TEST_F(PosixFiles, NothingHappensBeforeTheCommit) {
  WriteBytes(path_, kOld);
  std::unique_ptr<StagedFile> staged;
  ASSERT_EQ(Word(files_.Stage(path_, kNew, staged)), "ok");
  EXPECT_EQ(BytesOf(path_), kOld);
  EXPECT_EQ(NamesIn(folder_.path()).size(), 2);
  EXPECT_EQ(Word(staged->Commit()), "ok");
  EXPECT_EQ(BytesOf(path_), kNew);
  staged.reset();
  EXPECT_EQ(BytesOf(path_), kNew);
  EXPECT_THAT(NamesIn(folder_.path()), ElementsAre("dates.txt"));
}

TEST_F(PosixFiles, ContentThatIsGivenUpLeavesNothingBehind) {
  WriteBytes(path_, kOld);
  std::unique_ptr<StagedFile> staged;
  ASSERT_EQ(Word(files_.Stage(path_, kNew, staged)), "ok");
  staged.reset();
  EXPECT_EQ(BytesOf(path_), kOld);
  EXPECT_THAT(NamesIn(folder_.path()), ElementsAre("dates.txt"));
}

TEST_F(PosixFiles, WhatIsNotAFileIsNotReplaced) {
  const std::string fifo = folder_ / "fifo";
  ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
  const std::string folder = folder_ / "folder";
  ASSERT_EQ(::mkdir(folder.c_str(), 0700), 0);
  EXPECT_EQ(InChild([&] { return Replace(fifo, kNew); }), "not a file");
  EXPECT_EQ(Replace(folder, kNew), "folder");
  EXPECT_EQ(Replace("/dev/full", kNew), "not a file");
  EXPECT_EQ(Replace(folder_ / "missing/dates.txt", kNew), "not found");
  EXPECT_THAT(NamesIn(folder_.path()), ElementsAre("fifo", "folder"));
}

TEST_F(PosixFiles, AWriteProtectedFileIsNotReplaced) {
  WriteBytes(path_, kOld);
  EXPECT_EQ(InUnprivilegedChild(folder_.path(),
                                [&] {
                                  ::chmod(path_.c_str(), 0444);
                                  return Joined({Replace(path_, kNew), BytesOf(path_)});
                                }),
            "no permission, " + kOld);
  EXPECT_THAT(NamesIn(folder_.path()), ElementsAre("dates.txt"));
}

TEST_F(PosixFiles, AFileThatMayBeWrittenButNotReadIsNotReplaced) {
  WriteBytes(path_, kOld);
  EXPECT_EQ(InUnprivilegedChild(folder_.path(),
                                [&] {
                                  ::chmod(path_.c_str(), 0200);
                                  std::string outcome = Replace(path_, kNew);
                                  ::chmod(path_.c_str(), 0600);
                                  return outcome;
                                }),
            "no permission");
  EXPECT_EQ(BytesOf(path_), kOld);
}

TEST_F(PosixFiles, ANameOfTheGreatestLengthCanBeReplaced) {
  const std::string longest = folder_ / (std::string(251, 'x') + ".txt");
  EXPECT_EQ(Replace(longest, kOld), "ok");
  EXPECT_EQ(Replace(longest, kNew), "ok");
  EXPECT_EQ(BytesOf(longest), kNew);
}

TEST_F(PosixFiles, ARelativePathIsTakenFromTheCurrentFolder) {
  EXPECT_EQ(
      InChild([&] {
        if (::chdir(folder_.path().c_str()) != 0) return std::string("no folder");
        return Joined({Word(files_.CreateEmpty("sub/dates.txt")), Replace("sub/dates.txt", kOld),
                       Replace("dates.txt", kNew), ReadBy(files_, "dates.txt")});
      }),
      "ok, ok, ok, " + kNew);
  EXPECT_EQ(BytesOf(folder_ / "sub/dates.txt"), kOld);
}

// ---- Symbolic links.

struct LinkCase {
  std::string name;
  std::vector<std::pair<std::string, std::string>> links;  // name and target, "@" for the folder
  std::string path;
  std::string target;
};

TEST_F(PosixFiles, ALinkStaysAndItsTargetIsReplaced) {
  const std::vector<LinkCase> cases{
      {"relative", {{"link", "real.txt"}}, "link", "real.txt"},
      {"absolute", {{"link", "@/real.txt"}}, "link", "real.txt"},
      {"into a folder", {{"link", "sub/real.txt"}}, "link", "sub/real.txt"},
      {"out of a folder", {{"sub/link", "../real.txt"}}, "sub/link", "real.txt"},
      {"chain", {{"link", "middle"}, {"middle", "sub/real.txt"}}, "link", "sub/real.txt"},
      {"linked folder", {{"linked", "sub"}}, "linked/real.txt", "sub/real.txt"},
      {"link in a linked folder",
       {{"linked", "sub"}, {"sub/link", "../real.txt"}},
       "linked/link",
       "real.txt"},
  };
  for (const bool exists : {true, false}) {
    for (const LinkCase& c : cases) {
      SCOPED_TRACE(c.name + (exists ? "" : ", dangling"));
      const TemporaryFolder folder;
      ASSERT_EQ(::mkdir((folder / "sub").c_str(), 0700), 0);
      for (auto [name, target] : c.links) {
        if (target.starts_with('@')) target = folder.path() + target.substr(1);
        ASSERT_EQ(::symlink(target.c_str(), (folder / name).c_str()), 0);
      }
      if (exists) {
        WriteBytes(folder / c.target, kOld);
        ASSERT_EQ(::chmod((folder / c.target).c_str(), 0644), 0);
      }
      EXPECT_EQ(Replace(folder / c.path, kNew), "ok");
      for (const auto& [name, target] : c.links) {
        struct stat info {};
        ASSERT_EQ(::lstat((folder / name).c_str(), &info), 0);
        EXPECT_TRUE(S_ISLNK(info.st_mode)) << name << " is no longer a link";
      }
      EXPECT_EQ(BytesOf(folder / c.target), kNew);
      EXPECT_EQ(BytesOf(folder / c.path), kNew);
      EXPECT_EQ(ModeOf(folder / c.target), exists ? 0644 : 0600);
      EXPECT_EQ(NamesIn(folder / "sub").size() + NamesIn(folder.path()).size(), 2 + c.links.size());
    }
  }
}

TEST_F(PosixFiles, EveryPathToAFileHasOneFullPath) {
  ASSERT_EQ(::mkdir((folder_ / "sub").c_str(), 0700), 0);
  ASSERT_EQ(::symlink("sub", (folder_ / "linked").c_str()), 0);
  ASSERT_EQ(::symlink("../sub/dates.txt", (folder_ / "sub/link").c_str()), 0);
  const std::string full = std::filesystem::canonical(folder_.path()).string() + "/sub/dates.txt";
  for (const bool exists : {false, true}) {
    if (exists) WriteBytes(full, kOld);
    EXPECT_EQ(InChild([&]() -> std::string {
                if (::chdir((folder_ / "sub").c_str()) != 0) return "no folder";
                for (const std::string& path :
                     {full, folder_ / "sub/dates.txt", folder_ / "sub/../sub/./dates.txt",
                      folder_ / "linked/dates.txt", folder_ / "sub/link", folder_ / "linked/link",
                      std::string("dates.txt"), std::string("../linked/link")}) {
                  if (files_.FullPath(path) != full) return path + ": " + files_.FullPath(path);
                }
                return files_.FullPath("../dates.txt") == full ? "another file" : "the same";
              }),
              "the same");
  }
  EXPECT_EQ(files_.FullPath("/dates.txt"), "/dates.txt");
  EXPECT_EQ(files_.FullPath("/no/such/dates.txt"), "/no/such/dates.txt");
}

TEST_F(PosixFiles, ALoopOfLinksIsLeftAlone) {
  ASSERT_EQ(::symlink("b", (folder_ / "a").c_str()), 0);
  ASSERT_EQ(::symlink("a", (folder_ / "b").c_str()), 0);
  EXPECT_EQ(Replace(folder_ / "a", kNew), "error: Too many levels of symbolic links");
  EXPECT_THAT(NamesIn(folder_.path()), ElementsAre("a", "b"));
}

// ---- A folder that takes no new file.

TEST_F(PosixFiles, InAnUnwritableFolderTheFileItselfIsWritten) {
  WriteBytes(path_, kOld);
  ASSERT_EQ(::chmod(path_.c_str(), 0640), 0);
  const ino_t inode = InodeOf(path_);
  const std::string answer = InUnprivilegedChild(folder_.path(), [&]() -> std::string {
    ::chmod(folder_.path().c_str(), 0500);
    if (files_.CanCreateIn(folder_.path())) return "the folder takes new files";
    std::unique_ptr<StagedFile> staged;
    Status status = files_.Stage(path_, kNew, staged);
    if (!status.ok()) return "staging: " + Word(status);
    if (BytesOf(path_) != kOld) return "changed before the commit";
    staged.reset();
    if (BytesOf(path_) != kOld) return "changed without a commit";
    for (const std::string& content :
         {kNew, kOld, std::string(), std::string(1'000'000, 'x'), kNew}) {
      status = ReplaceFile(files_, path_, content);
      if (!status.ok()) return "replacing: " + Word(status);
      if (BytesOf(path_) != content) return "other content";
    }
    ::chmod(path_.c_str(), 0440);
    status = files_.Stage(path_, kOld, staged);
    ::chmod(path_.c_str(), 0640);
    return "write-protected: " + Word(status);
  });
  EXPECT_EQ(answer, "write-protected: no permission");
  EXPECT_EQ(BytesOf(path_), kNew);
  EXPECT_EQ(InodeOf(path_), inode);
  EXPECT_EQ(ModeOf(path_), 0640);
  EXPECT_THAT(NamesIn(folder_.path()), ElementsAre("dates.txt"));
}

// ---- What killed processes leave behind.

// The name under which a process keeps the content before it commits it.
std::string TemporaryNameFor(const std::string& folder, const std::string& path) {
  PosixFileSystem files;
  const std::vector<std::string> before = NamesIn(folder);
  std::unique_ptr<StagedFile> staged;
  if (!files.Stage(path, kNew, staged).ok()) return "";
  for (const std::string& name : NamesIn(folder)) {
    if (std::find(before.begin(), before.end(), name) == before.end()) return folder + "/" + name;
  }
  return "";
}

TEST_F(PosixFiles, TheTemporaryFileOfAKilledProcessIsInNobodysWay) {
  WriteBytes(path_, kOld);
  const int status = WaitFor(StartChild([&] {
    std::unique_ptr<StagedFile> staged;
    if (files_.Stage(path_, "half", staged).ok()) ::raise(SIGKILL);
  }));
  EXPECT_TRUE(WIFSIGNALED(status));
  ASSERT_EQ(NamesIn(folder_.path()).size(), 2) << "the killed process should leave its file";
  EXPECT_EQ(BytesOf(path_), kOld);
  EXPECT_EQ(Replace(path_, kNew), "ok");
  EXPECT_EQ(BytesOf(path_), kNew);
  EXPECT_THAT(NamesIn(folder_.path()), ElementsAre("dates.txt"));
}

TEST_F(PosixFiles, WhateverStandsUnderTheTemporaryNameIsNotFollowedOrWaitedFor) {
  WriteBytes(path_, kOld);
  const std::string temporary = TemporaryNameFor(folder_.path(), path_);
  ASSERT_NE(temporary, "");
  const std::string victim = folder_ / "victim";

  WriteBytes(temporary, "left behind, and longer than the new content by far: " + kNew);
  ASSERT_EQ(::chmod(temporary.c_str(), 0444), 0);
  EXPECT_EQ(Replace(path_, kNew), "ok");
  EXPECT_EQ(BytesOf(path_), kNew);

  WriteBytes(victim, "precious");
  ASSERT_EQ(::symlink(victim.c_str(), temporary.c_str()), 0);
  EXPECT_EQ(Replace(path_, kOld), "ok");
  EXPECT_EQ(BytesOf(path_), kOld);
  EXPECT_EQ(BytesOf(victim), "precious");

  ASSERT_EQ(::mkfifo(temporary.c_str(), 0600), 0);
  EXPECT_EQ(InChild([&] { return Replace(path_, kNew); }), "ok");
  EXPECT_EQ(BytesOf(path_), kNew);

  ASSERT_EQ(::link(victim.c_str(), temporary.c_str()), 0);
  EXPECT_EQ(Replace(path_, kOld), "ok");
  EXPECT_EQ(BytesOf(victim), "precious");

  ASSERT_EQ(::mkdir(temporary.c_str(), 0700), 0);
  EXPECT_NE(InChild([&] { return Replace(path_, kNew); }), "ok");
  EXPECT_EQ(BytesOf(path_), kOld);
}

TEST_F(PosixFiles, TwoProcessesDoNotStageTheSameFileAtOnce) {
  WriteBytes(path_, kOld);
  int ready[2];
  ASSERT_EQ(::pipe(ready), 0);
  const pid_t other = StartChild([&] {
    std::unique_ptr<StagedFile> staged;
    static_cast<void>(files_.Stage(path_, "other", staged).ok());
    static_cast<void>(::write(ready[1], "x", 1) == 1);
    ::pause();
  });
  char byte = 0;
  ASSERT_EQ(::read(ready[0], &byte, 1), 1);
  EXPECT_EQ(Replace(path_, kNew), "busy");
  EXPECT_EQ(BytesOf(path_), kOld);
  ::kill(other, SIGKILL);
  WaitFor(other);
  EXPECT_EQ(Replace(path_, kNew), "ok");
  EXPECT_THAT(NamesIn(folder_.path()), ElementsAre("dates.txt"));
  ::close(ready[0]);
  ::close(ready[1]);
}

// Content that tells whether it is whole.
std::string WholeContent(int writer, int round) {
  const auto lines = static_cast<std::size_t>(1 + (writer * 7 + round * 13) % 400);
  std::string content = std::to_string(lines) + "\n";
  for (std::size_t i = 0; i < lines; ++i) {
    content += "12.25," + std::to_string(writer) + " " + std::to_string(round) + ",14,yearly\r\n";
  }
  return content + "end";
}

bool IsWhole(const std::string& content) {
  const std::size_t lines = std::strtoul(content.c_str(), nullptr, 10);
  const auto breaks = static_cast<std::size_t>(std::count(content.begin(), content.end(), '\n'));
  return content.ends_with("\nend") && breaks == lines + 1;
}

TEST_F(PosixFiles, WhileManyProcessesSaveEveryReaderSeesOneWholeContent) {
  constexpr int kWriters = 4;
  constexpr int kRounds = 150;
  ASSERT_EQ(Replace(path_, WholeContent(0, 0)), "ok");
  std::vector<pid_t> writers;
  for (int writer = 0; writer < kWriters; ++writer) {
    writers.push_back(StartChild([&, writer] {
      for (int round = 0; round < kRounds; ++round) {
        const Status status = ReplaceFile(files_, path_, WholeContent(writer, round));
        // Nothing but another process's turn is a reason to fail.
        if (!status.ok() && status.kind() != StatusKind::kBusy) {
          std::fprintf(stderr, "writer %d, round %d: %s\n", writer, round, Word(status).c_str());
          ::_exit(1);
        }
      }
    }));
  }
  const pid_t reader = StartChild([&] {
    while (true) {
      if (!IsWhole(BytesOf(path_))) {
        std::fprintf(stderr, "a reader sees '%s'\n", BytesOf(path_).substr(0, 60).c_str());
        ::_exit(1);
      }
    }
  });
  for (const pid_t writer : writers) EXPECT_EQ(WaitFor(writer), 0);
  ::kill(reader, SIGKILL);
  const int seen = WaitFor(reader);
  EXPECT_TRUE(WIFSIGNALED(seen) && WTERMSIG(seen) == SIGKILL) << "a reader saw half a file";
  EXPECT_TRUE(IsWhole(BytesOf(path_)));
  EXPECT_THAT(NamesIn(folder_.path()), ElementsAre("dates.txt"));
}

TEST_F(PosixFiles, KilledAtAnyMomentTheFileIsOldOrNew) {
  const std::string old(40'000, 'o');
  const std::string fresh(60'000, 'n');
  ASSERT_EQ(Replace(path_, old), "ok");
  int killedWhileBusy = 0;
  for (int i = 0; i < 300; ++i) {
    const pid_t writer = StartChild([&] {
      while (true) {
        static_cast<void>(ReplaceFile(files_, path_, old).ok());
        static_cast<void>(ReplaceFile(files_, path_, fresh).ok());
      }
    });
    std::this_thread::sleep_for(std::chrono::microseconds(300 + 37 * i % 4000));
    ::kill(writer, SIGKILL);
    WaitFor(writer);
    const std::string content = BytesOf(path_);
    ASSERT_TRUE(content == old || content == fresh) << "after kill " << i;
    if (NamesIn(folder_.path()).size() > 1) ++killedWhileBusy;
  }
  EXPECT_GT(killedWhileBusy, 10) << "too few processes were killed in the middle of a write";
  EXPECT_EQ(Replace(path_, kNew), "ok");
  EXPECT_THAT(NamesIn(folder_.path()), ElementsAre("dates.txt"));
}

// ---- A full disk.

// Lets no file grow beyond `bytes`; a write beyond fails.
void LimitFileSize(rlim_t bytes) {
  ::signal(SIGXFSZ, SIG_IGN);
  const rlimit limit{bytes, bytes};
  ::setrlimit(RLIMIT_FSIZE, &limit);
}

TEST_F(PosixFiles, AFileThatOutgrowsItsLimitIsLeftAsItWas) {
  WriteBytes(path_, kOld);
  EXPECT_EQ(InChild([&] {
              LimitFileSize(8192);
              return Joined({Replace(path_, std::string(100'000, 'x')), Replace(path_, kNew)});
            }),
            "too large, ok");
  EXPECT_EQ(BytesOf(path_), kNew);
  EXPECT_THAT(NamesIn(folder_.path()), ElementsAre("dates.txt"));
}

// Puts a disk of 64 kB over the folder, for this process alone.
bool MountTinyDisk(const std::string& folder) {
  return ::unshare(CLONE_NEWNS) == 0 &&
         ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
         ::mount("tidewarden", folder.c_str(), "tmpfs", 0, "size=64k,mode=0777") == 0;
}

// The same, or a limit on the size of files where nothing can be mounted. The result is the outcome
// of a save that does not fit.
std::string RunOutOfSpace(const std::string& folder) {
  if (MountTinyDisk(folder)) return "no space";
  std::fprintf(stderr, "NO DISK CAN BE MOUNTED HERE: a limit on the file's size stands in.\n");
  LimitFileSize(32'768);
  return "too large";
}

TEST_F(PosixFiles, AFullDiskLeavesTheOldContentAndNothingElse) {
  const std::string answer = InChild([&]() -> std::string {
    const std::string expected = RunOutOfSpace(folder_.path());
    if (Replace(path_, kOld) != "ok") return "the first file does not fit";
    for (const std::size_t size : {70'000U, 62'000U, 66'000U, 200'000U}) {
      const std::string outcome = Replace(path_, std::string(size, 'x'));
      if (outcome != expected) return std::to_string(size) + ": " + outcome;
      if (BytesOf(path_) != kOld) return "the old content is gone";
      if (NamesIn(folder_.path()).size() != 1) return "something stays behind";
    }
    return Joined({Replace(path_, kNew), BytesOf(path_)});
  });
  EXPECT_EQ(answer, "ok, " + kNew);
}

TEST_F(PosixFiles, AFullDiskLeavesTheOldContentAlsoInAnUnwritableFolder) {
  const std::string answer = InChild([&]() -> std::string {
    const std::string expected = RunOutOfSpace(folder_.path());
    WriteBytes(path_, kOld);
    WriteBytes(folder_ / "other", std::string(20'000, 'y'));
    return InUnprivilegedChild(folder_.path(), [&]() -> std::string {
      ::chmod(folder_.path().c_str(), 0500);
      const std::string outcome = Replace(path_, std::string(60'000, 'x'));
      if (outcome != expected) return "full: " + outcome;
      if (BytesOf(path_) != kOld) return "the old content is gone";
      return Joined({Replace(path_, kNew), BytesOf(path_)});
    });
  });
  EXPECT_EQ(answer, "ok, " + kNew);
}

// ---- Locks.

TEST_F(PosixFiles, AFileIsRemovedOnceAndForAll) {
  WriteBytes(folder_ / "a", "one");
  EXPECT_TRUE(files_.Remove(folder_ / "a").ok());
  EXPECT_TRUE(files_.Remove(folder_ / "a").ok());
  EXPECT_THAT(NamesIn(folder_.path()), IsEmpty());
  ASSERT_EQ(::mkdir((folder_ / "b").c_str(), 0700), 0);
  EXPECT_FALSE(files_.Remove(folder_ / "b").ok());
  EXPECT_THAT(NamesIn(folder_.path()), ElementsAre("b"));
}

TEST_F(PosixFiles, ANewNameTakesThePlaceOfAnother) {
  WriteBytes(folder_ / "a", "one");
  WriteBytes(folder_ / "b", "two");
  EXPECT_TRUE(files_.Rename(folder_ / "a", folder_ / "b").ok());
  EXPECT_EQ(BytesOf(folder_ / "b"), "one");
  EXPECT_THAT(NamesIn(folder_.path()), ElementsAre("b"));
  EXPECT_EQ(files_.Rename(folder_ / "a", folder_ / "b").kind(), StatusKind::kNotFound);
  EXPECT_EQ(BytesOf(folder_ / "b"), "one");
}

TEST_F(PosixFiles, ASecondNameKeepsTheOldContentWhenTheFileIsReplaced) {
  WriteBytes(folder_ / "a", "one");
  EXPECT_TRUE(files_.Link(folder_ / "a", folder_ / "b").ok());
  FileStamp a;
  FileStamp b;
  EXPECT_TRUE(files_.GetStamp(folder_ / "a", a).ok());
  EXPECT_TRUE(files_.GetStamp(folder_ / "b", b).ok());
  EXPECT_EQ(a, b);
  EXPECT_FALSE(files_.Link(folder_ / "a", folder_ / "b").ok());
  EXPECT_EQ(files_.Link(folder_ / "x", folder_ / "y").kind(), StatusKind::kNotFound);
  EXPECT_TRUE(ReplaceFile(files_, folder_ / "a", "two").ok());
  EXPECT_EQ(BytesOf(folder_ / "a"), "two");
  EXPECT_EQ(BytesOf(folder_ / "b"), "one");
}

TEST_F(PosixFiles, TheSecondNameOfALinkIsOneOfItsTarget) {
  WriteBytes(folder_ / "real", "one");
  ASSERT_EQ(::symlink("real", (folder_ / "a").c_str()), 0);
  EXPECT_TRUE(files_.Link(folder_ / "a", folder_ / "b").ok());
  EXPECT_TRUE(ReplaceFile(files_, folder_ / "a", "two").ok());
  EXPECT_EQ(BytesOf(folder_ / "real"), "two");
  EXPECT_EQ(BytesOf(folder_ / "b"), "one");
}

TEST_F(PosixFiles, OnlyInAnUnwritableFolderIsAFileNotReplacedAtOnce) {
  WriteBytes(path_, "old");
  std::unique_ptr<StagedFile> staged;
  ASSERT_TRUE(files_.Stage(path_, "new", staged).ok());
  EXPECT_TRUE(staged->ReplacesAtOnce());
  staged.reset();
  EXPECT_EQ(InUnprivilegedChild(folder_.path(),
                                [&]() -> std::string {
                                  ::chmod(folder_.path().c_str(), 0500);
                                  std::unique_ptr<StagedFile> inPlace;
                                  if (!files_.Stage(path_, "new", inPlace).ok()) return "refused";
                                  return inPlace->ReplacesAtOnce() ? "at once" : "in place";
                                }),
            "in place");
}

TEST_F(PosixFiles, ALockIsHeldAgainstEverybodyElse) {
  const std::string path = folder_ / "settings.ini";
  std::unique_ptr<FileLock> lock;
  ASSERT_EQ(Word(files_.Lock(path, lock)), "ok");
  std::unique_ptr<FileLock> second;
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(Word(files_.Lock(path, second)), "busy");
  EXPECT_EQ(second, nullptr);
  const auto waited = std::chrono::steady_clock::now() - begin;
  EXPECT_GE(waited, std::chrono::seconds(1));
  EXPECT_LE(waited, std::chrono::seconds(30));
  EXPECT_EQ(InChild([&] {
              std::unique_ptr<FileLock> inChild;
              return Word(files_.Lock(path, inChild));
            }),
            "busy");
  std::unique_ptr<FileLock> other;
  EXPECT_EQ(Word(files_.Lock(folder_ / "other.ini", other)), "ok");
  lock.reset();
  EXPECT_EQ(Word(files_.Lock(path, second)), "ok");
  EXPECT_THAT(NamesIn(folder_.path()), ElementsAre("other.ini.lock", "settings.ini.lock"))
      << "the lock's file stays, the locked file is not created";
}

TEST_F(PosixFiles, ALockIsWaitedFor) {
  const std::string path = folder_ / "settings.ini";
  int ready[2];
  ASSERT_EQ(::pipe(ready), 0);
  const pid_t holder = StartChild([&] {
    std::unique_ptr<FileLock> lock;
    static_cast<void>(files_.Lock(path, lock).ok());
    static_cast<void>(::write(ready[1], "x", 1) == 1);
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
  });
  char byte = 0;
  ASSERT_EQ(::read(ready[0], &byte, 1), 1);
  std::unique_ptr<FileLock> lock;
  EXPECT_EQ(Word(files_.Lock(path, lock)), "ok");
  EXPECT_EQ(WaitFor(holder), 0);
  ::close(ready[0]);
  ::close(ready[1]);
}

TEST_F(PosixFiles, TheLockOfAKilledProcessIsFree) {
  const std::string path = folder_ / "settings.ini";
  const int status = WaitFor(StartChild([&] {
    std::unique_ptr<FileLock> lock;
    if (files_.Lock(path, lock).ok()) ::raise(SIGKILL);
  }));
  EXPECT_TRUE(WIFSIGNALED(status));
  std::unique_ptr<FileLock> lock;
  EXPECT_EQ(Word(files_.Lock(path, lock)), "ok");
}

TEST_F(PosixFiles, ALockIsNotTakenThroughALinkOrAPipe) {
  const std::string path = folder_ / "settings.ini";
  WriteBytes(folder_ / "victim", "precious");
  ASSERT_EQ(::symlink((folder_ / "victim").c_str(), (path + ".lock").c_str()), 0);
  std::unique_ptr<FileLock> lock;
  EXPECT_FALSE(files_.Lock(path, lock).ok());
  EXPECT_EQ(BytesOf(folder_ / "victim"), "precious");
}

}  // namespace
}  // namespace tidewarden
