// Which file sounds, and by which means.
#include "alarm/alarm_sound.h"

#include <gmock/gmock.h>

#include "tests/alarm/alarm_desk.h"

namespace tidewarden::test {
namespace {

using ::testing::ElementsAre;
using ::testing::StartsWith;

std::vector<std::string> PlayedFor(AlarmDesk& desk) {
  desk.sound.calls.clear();
  desk.session.PlayAlarmSound();
  return desk.sound.calls;
}

TEST(PlayAlarmSound, TheDefaultIsTheProgramsOwnSoundAndIsStored) {
  AlarmDesk desk;
  EXPECT_THAT(PlayedFor(desk), ElementsAre("wave " + kOwnSound));
  EXPECT_EQ(desk.settings.At("Options", "AlarmPath"), kOwnSound);
}

TEST(PlayAlarmSound, TheEndOfTheNameDecidesByWhichMeans) {
  const struct {
    const char* name;
    const char* call;
  } cases[] = {
      {"/music/Bell.mp3", "media /music/Bell.mp3"},
      {"/music/bell.ogg", "media /music/bell.ogg"},
      {"/music/BELL.WAV", "wave /music/BELL.WAV"},
      {"/music/bell.wav", "wave /music/bell.wav"},
      {"/music/bell.wav.mp3", "media /music/bell.wav.mp3"},
      {"/music/wav", "media /music/wav"},
  };
  for (const auto& [name, call] : cases) {
    AlarmDesk desk;
    desk.files.files[name] = "sound";
    ASSERT_TRUE(desk.settings.Write("Options", "AlarmPath", name).ok());
    EXPECT_THAT(PlayedFor(desk), ElementsAre(call));
  }
}

TEST(PlayAlarmSound, AMissingFileBeepsAndSaysWhich) {
  AlarmDesk desk;
  desk.files.files.clear();
  EXPECT_THAT(PlayedFor(desk), ElementsAre(StartsWith("beep " + kOwnSound + ": ")));
  EXPECT_TRUE(desk.messages.shown.empty());
}

TEST(PlayAlarmSound, WhatIsNoFileBeeps) {
  for (const StatusKind kind : {StatusKind::kIsFolder, StatusKind::kNotAFile,
                                StatusKind::kNoPermission, StatusKind::kInputOutput}) {
    AlarmDesk desk;
    desk.files.failures[kOwnSound] = kind;
    EXPECT_THAT(PlayedFor(desk), ElementsAre(StartsWith("beep ")));
  }
}

TEST(PlayAlarmSound, PathsOnPosix) {
  const struct {
    const char* stored;
    const char* expected;
  } cases[] = {
      {"bell.wav", "/opt/tidewarden/bell.wav"},
      {"\\sub\\bell.wav", "/opt/tidewarden/sub/bell.wav"},
      {"/music/bell.wav", "/music/bell.wav"},
      {"sub\\bell.wav", "/opt/tidewarden/sub/bell.wav"},
      {"sub/bell.wav", "/opt/tidewarden/sub/bell.wav"},
      {"./bell.wav", "/opt/tidewarden/./bell.wav"},
  };
  for (const auto& [stored, expected] : cases) {
    AlarmDesk desk;
    desk.files.files[expected] = "sound";
    ASSERT_TRUE(desk.settings.Write("Options", "AlarmPath", stored).ok());
    EXPECT_THAT(PlayedFor(desk), ElementsAre(std::string("wave ") + expected));
  }
}

TEST(PlayAlarmSound, PathsOnWindows) {
  const ProgramFolders folders{"C:\\Tidewarden", "", PathStyle::kWindows};
  MemorySettingsStore settings;
  MemoryFileSystem files;
  std::string path;
  EXPECT_EQ(LocateAlarmSound(settings, files, folders, path).kind(), StatusKind::kNotFound);
  EXPECT_EQ(path, "c:\\tidewarden\\alarms\\emergency.wav");
  for (const char* const stored : {"\\\\server\\share\\bell.wav", "d:\\bell.wav"}) {
    ASSERT_TRUE(settings.Write("Options", "AlarmPath", stored).ok());
    files.files[stored] = "sound";
    EXPECT_TRUE(LocateAlarmSound(settings, files, folders, path).ok());
    EXPECT_EQ(path, stored);
  }
  // Whatever lies beside the place that the program was started from is not meant.
  files.files = {{"bell.wav", "other"}, {"\\bell.wav", "other"}};
  for (const char* const stored : {"bell.wav", "\\bell.wav"}) {
    ASSERT_TRUE(settings.Write("Options", "AlarmPath", stored).ok());
    EXPECT_EQ(LocateAlarmSound(settings, files, folders, path).kind(), StatusKind::kNotFound);
    EXPECT_EQ(path, "C:\\Tidewarden\\bell.wav");
  }
}

TEST(PlayAlarmSound, AFolderWithCapitalsIsFound) {
  const ProgramFolders folders{"/home/Ann/Tidewarden", "", PathStyle::kPosix};
  MemorySettingsStore settings;
  MemoryFileSystem files;
  files.files["/home/Ann/Tidewarden/alarms/emergency.wav"] = "sound";
  std::string path;
  EXPECT_TRUE(LocateAlarmSound(settings, files, folders, path).ok());
  EXPECT_EQ(path, "/home/Ann/Tidewarden/alarms/emergency.wav");
}

}  // namespace
}  // namespace tidewarden::test
