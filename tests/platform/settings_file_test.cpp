// The settings file on a real disk, shared by several programs.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "core/get_set_save_set.h"
#include "core/ini_settings_store.h"
#include "platform/posix/posix_file_system.h"
#include "tests/support/processes.h"
#include "tests/support/temporary_folder.h"

namespace tidewarden {
namespace {

using test::BytesOf;
using test::InUnprivilegedChild;
using test::ModeOf;
using test::NamesIn;
using test::StartChild;
using test::TemporaryFolder;
using test::WaitFor;
using test::WriteBytes;
using ::testing::ElementsAre;

std::string ValueOf(SettingsStore& store, std::string_view section, std::string_view name) {
  std::string value = "(unread)";
  const Status status = store.Read(section, name, value);
  return status.ok() ? value : "(" + DescribeStatus(status) + ")";
}

class SettingsFile : public ::testing::Test {
 protected:
  PosixFileSystem files_;
  TemporaryFolder folder_;
  std::string path_ = folder_ / "config/Tideward/settings.ini";
};

TEST_F(SettingsFile, TheFirstWriteCreatesFileAndFoldersForTheUserAlone) {
  const mode_t before = ::umask(0);
  IniSettingsStore store(files_, path_);
  EXPECT_EQ(ValueOf(store, "Options", "UseSkin"), "");
  EXPECT_EQ(NamesIn(folder_.path()).size(), 0) << "reading creates nothing";
  std::string key = "UseSkin";
  EXPECT_EQ(modGetSetSaveSet::GetSet(store, key, "True", ""), "true");
  ::umask(before);
  EXPECT_EQ(BytesOf(path_), "[Options]\nUseSkin=True\n");
  EXPECT_EQ(ModeOf(path_), 0600);
  EXPECT_EQ(ModeOf(folder_ / "config/Tideward"), 0700);
  EXPECT_EQ(ModeOf(folder_ / "config"), 0700);
}

TEST_F(SettingsFile, AnExistingFileKeepsItsPermissions) {
  IniSettingsStore store(files_, path_);
  ASSERT_TRUE(store.Write("Options", "a", "1").ok());
  ASSERT_EQ(::chmod(path_.c_str(), 0644), 0);
  ASSERT_TRUE(store.Write("Options", "a", "2").ok());
  EXPECT_EQ(ModeOf(path_), 0644);
}

TEST_F(SettingsFile, ALinkToTheFileStaysALink) {
  const std::string real = folder_ / "dotfiles.ini";
  const std::string link = folder_ / "settings.ini";
  WriteBytes(real, "; kept elsewhere\r\n[Options]\r\na=1\r\n");
  ASSERT_EQ(::symlink("dotfiles.ini", link.c_str()), 0);
  IniSettingsStore store(files_, link);
  EXPECT_EQ(ValueOf(store, "Options", "a"), "1");
  ASSERT_TRUE(store.Write("Options", "b", "2").ok());
  struct stat info {};
  ASSERT_EQ(::lstat(link.c_str(), &info), 0);
  EXPECT_TRUE(S_ISLNK(info.st_mode));
  EXPECT_EQ(BytesOf(real), "; kept elsewhere\r\n[Options]\r\na=1\r\nb=2\n");
}

TEST_F(SettingsFile, AnotherStoreSeesEveryChangeAtOnce) {
  IniSettingsStore mine(files_, path_);
  IniSettingsStore other(files_, path_);
  for (int i = 0; i < 200; ++i) {
    const std::string value = std::to_string(1000 + i);  // always of the same length
    ASSERT_TRUE(mine.Write("Options", "a", value).ok());
    ASSERT_EQ(ValueOf(other, "Options", "a"), value);
    ASSERT_TRUE(other.Write("Options", "b", value).ok());
    ASSERT_EQ(ValueOf(mine, "Options", "b"), value);
  }
  ASSERT_TRUE(mine.Delete("Options", "a").ok());
  EXPECT_EQ(ValueOf(other, "Options", "a"), "");
  EXPECT_EQ(BytesOf(path_), "[Options]\nb=1199\n");
}

TEST_F(SettingsFile, AnotherProgramsChangesAreSeenAtOnce) {
  IniSettingsStore mine(files_, path_);
  for (int i = 0; i < 20; ++i) {
    const std::string value = std::to_string(1000 + i);
    EXPECT_EQ(WaitFor(StartChild([&] {
                IniSettingsStore other(files_, path_);
                if (!other.Write("Options", "a", value).ok()) ::_exit(1);
              })),
              0);
    ASSERT_EQ(ValueOf(mine, "Options", "a"), value);
  }
}

TEST_F(SettingsFile, NoWriteIsLostAmongProgramsThatWriteAtTheSameTime) {
  constexpr int kPrograms = 4;
  constexpr int kWrites = 50;
  std::vector<pid_t> programs;
  for (int program = 0; program < kPrograms; ++program) {
    programs.push_back(StartChild([&, program] {
      IniSettingsStore store(files_, path_);
      for (int i = 0; i < kWrites; ++i) {
        const std::string name = std::to_string(program) + "/" + std::to_string(i);
        const Status status = store.Write(program % 2 == 0 ? "Options" : "Edit", name, name);
        if (!status.ok()) {
          std::fprintf(stderr, "%s: %s\n", name.c_str(), DescribeStatus(status).c_str());
          ::_exit(1);
        }
        if (ValueOf(store, program % 2 == 0 ? "Options" : "Edit", name) != name) ::_exit(2);
      }
    }));
  }
  for (const pid_t program : programs) EXPECT_EQ(WaitFor(program), 0);
  IniSettingsStore store(files_, path_);
  int found = 0;
  for (int program = 0; program < kPrograms; ++program) {
    for (int i = 0; i < kWrites; ++i) {
      const std::string name = std::to_string(program) + "/" + std::to_string(i);
      if (ValueOf(store, program % 2 == 0 ? "Options" : "Edit", name) == name) ++found;
    }
  }
  EXPECT_EQ(found, kPrograms * kWrites);
}

TEST_F(SettingsFile, ValuesThatAreWrittenTogetherAreNeverSeenApart) {
  constexpr int kWrites = 100;
  IniSettingsStore store(files_, path_);
  ASSERT_TRUE(store.WriteAll({{"Options", "a", "0"}, {"Settings", "b", "0"}}).ok());
  const pid_t writer = StartChild([&] {
    IniSettingsStore mine(files_, path_);
    for (int i = 1; i <= kWrites; ++i) {
      const std::string value = std::to_string(i);
      if (!mine.WriteAll({{"Options", "a", value}, {"Settings", "b", value}}).ok()) ::_exit(1);
    }
  });
  // The reminder program stores its own values meanwhile.
  for (int i = 0; i < kWrites; ++i) {
    ASSERT_TRUE(store.Write("Edit", "Left", std::to_string(i)).ok());
    const std::string text = BytesOf(path_);
    EXPECT_EQ(ini::FindValue(text, "Options", "a"), ini::FindValue(text, "Settings", "b"));
  }
  EXPECT_EQ(WaitFor(writer), 0);
  EXPECT_EQ(BytesOf(path_), "[Options]\na=100\n[Settings]\nb=100\n[Edit]\nLeft=99\n");
}

TEST_F(SettingsFile, ACounterThatTwoProgramsReadAndWriteLosesNothingElse) {
  constexpr int kWrites = 100;
  IniSettingsStore store(files_, path_);
  std::string comments = "; one\n# two\nthree\n[Options]\nkept=yes\n";
  ASSERT_TRUE(files_.CreateEmpty(path_).ok());
  WriteBytes(path_, comments);
  std::vector<pid_t> programs;
  for (const std::string name : {"left", "top"}) {
    programs.push_back(StartChild([&, name] {
      IniSettingsStore mine(files_, path_);
      for (int i = 1; i <= kWrites; ++i) {
        // A reader all the time, which is when old content may still be in memory.
        if (ValueOf(mine, "Options", "kept") != "yes") ::_exit(1);
        if (!mine.Write("Options", name, std::to_string(i)).ok()) ::_exit(2);
        if (ValueOf(mine, "Options", name) != std::to_string(i)) ::_exit(3);
      }
    }));
  }
  for (const pid_t program : programs) EXPECT_EQ(WaitFor(program), 0);
  EXPECT_EQ(ValueOf(store, "Options", "left"), "100");
  EXPECT_EQ(ValueOf(store, "Options", "top"), "100");
  EXPECT_TRUE(BytesOf(path_).starts_with(comments));
}

TEST_F(SettingsFile, AProgramKilledInTheMiddleOfAWriteLeavesTheOldOrTheNewValue) {
  const std::string first(20'000, 'a');
  const std::string second(30'000, 'b');
  IniSettingsStore store(files_, path_);
  ASSERT_TRUE(store.Write("Options", "kept", "yes").ok());
  ASSERT_TRUE(store.Write("Options", "long", first).ok());
  for (int i = 0; i < 150; ++i) {
    const pid_t writer = StartChild([&] {
      IniSettingsStore mine(files_, path_);
      while (true) {
        static_cast<void>(mine.Write("Options", "long", second).ok());
        static_cast<void>(mine.Write("Options", "long", first).ok());
      }
    });
    std::this_thread::sleep_for(std::chrono::microseconds(500 + 53 * i % 5000));
    ::kill(writer, SIGKILL);
    WaitFor(writer);
    const std::string value = ValueOf(store, "Options", "long");
    ASSERT_TRUE(value == first || value == second) << "after kill " << i;
    ASSERT_EQ(ValueOf(store, "Options", "kept"), "yes");
  }
  ASSERT_TRUE(store.Write("Options", "long", "short").ok());
  EXPECT_EQ(BytesOf(path_), "[Options]\nkept=yes\nlong=short\n");
  EXPECT_THAT(NamesIn(folder_ / "config/Tideward"),
              ElementsAre("settings.ini", "settings.ini.lock"));
}

TEST_F(SettingsFile, AFileThatMayNotBeReadIsNotWritten) {
  const std::string path = folder_ / "settings.ini";
  const std::string content = "[Options]\nUseSkin=False\n";
  WriteBytes(path, content);
  EXPECT_EQ(InUnprivilegedChild(folder_.path(),
                                [&]() -> std::string {
                                  ::chmod(path.c_str(), 0200);
                                  IniSettingsStore store(files_, path);
                                  std::string key = "UseSkin";
                                  const std::string value =
                                      modGetSetSaveSet::GetSet(store, key, "True", "");
                                  modGetSetSaveSet::SaveSet(store, key, "Maybe");
                                  ::chmod(path.c_str(), 0600);
                                  return value + ", then " + ValueOf(store, "Options", "UseSkin");
                                }),
            "true, then False");
  EXPECT_EQ(BytesOf(path), content);
}

TEST_F(SettingsFile, WhatIsNotAFileIsNeitherReadNorReplaced) {
  const std::string asFolder = folder_ / "folder.ini";
  const std::string asPipe = folder_ / "pipe.ini";
  ASSERT_EQ(::mkdir(asFolder.c_str(), 0700), 0);
  ASSERT_EQ(::mkfifo(asPipe.c_str(), 0600), 0);
  for (const std::string& path : {asFolder, asPipe}) {
    EXPECT_EQ(test::InChild([&] {
                IniSettingsStore store(files_, path);
                std::string key = "UseSkin";
                const std::string value = modGetSetSaveSet::GetSet(store, key, "True", "");
                modGetSetSaveSet::SaveSet(store, key, "False");
                return value;
              }),
              "true");
  }
  struct stat info {};
  ASSERT_EQ(::stat(asFolder.c_str(), &info), 0);
  EXPECT_TRUE(S_ISDIR(info.st_mode));
  ASSERT_EQ(::stat(asPipe.c_str(), &info), 0);
  EXPECT_TRUE(S_ISFIFO(info.st_mode));
}

}  // namespace
}  // namespace tidewarden
