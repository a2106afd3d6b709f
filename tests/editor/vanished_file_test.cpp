// Saves of a file that has vanished while the editor was open: its events and its backups.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "editor/events_writer.h"
#include "tests/editor/edit_desk.h"

namespace tidewarden {
namespace {

using test::EditDesk;
using test::kEventsPath;
using test::kRescuePath;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

const std::string kTwo = "01.01,New Year,1,yearly\r\n12.25,Christmas,7,yearly\r\n";

// Saves a file that has vanished while the editor was open.
void SaveVanished(EditDesk& desk, int levels, int backups) {
  desk.Set("LevelsOfBackup", std::to_string(levels));
  for (int k = 1; k <= backups; ++k) {
    desk.files.files[BackupPath(kEventsPath, k)] = "backup " + std::to_string(k);
  }
  desk.Open();
  desk.Enter(0, "6.1", "Summer");
  desk.files.files.erase(kEventsPath);
  desk.session().Save();
}

// Backup 1 makes room for the old file, of which there is none.
TEST(VanishedFile, IsWrittenAgainWithAllItsEvents) {
  struct Case {
    int levels;
    int backups;
    std::vector<std::string> left;
  };
  for (const Case& c : std::vector<Case>{
           {0, 2, {"backup 1", "backup 2", "(none)"}},
           {2, 0, {"(none)", "(none)", "(none)"}},
           {2, 1, {"(none)", "backup 1", "(none)"}},
           {3, 2, {"(none)", "backup 1", "backup 2"}},
           {3, 3, {"(none)", "backup 1", "backup 2"}},
       }) {
    SCOPED_TRACE(std::to_string(c.levels) + " wanted, " + std::to_string(c.backups) + " there");
    EditDesk desk(kTwo);
    SaveVanished(desk, c.levels, c.backups);
    EXPECT_EQ(desk.file(),
              "01.01,New Year,1,yearly\r\n06.01,Summer,7,yearly\r\n12.25,Christmas,7,yearly\r\n");
    EXPECT_THAT((std::vector<std::string>{desk.Backup(1), desk.Backup(2), desk.Backup(3)}),
                ElementsAreArray(c.left));
    EXPECT_THAT(desk.messages.shown, IsEmpty());
  }
}

TEST(VanishedFile, ItsOnlyBackupGoesIntoTheRescueCopy) {
  EditDesk desk(kTwo);
  SaveVanished(desk, 1, 1);
  EXPECT_THAT(desk.file(), HasSubstr("Summer"));
  EXPECT_EQ(desk.Backup(1), "(none)");
  EXPECT_EQ(desk.files.files.at(kRescuePath), "backup 1");

  EditDesk full(kTwo);
  full.files.writeFailures[kRescuePath] = StatusKind::kNoSpace;
  SaveVanished(full, 1, 1);
  EXPECT_THAT(full.file(), HasSubstr("Summer"));
  EXPECT_EQ(full.Backup(1), "backup 1") << "without its copy it stays";
}

TEST(VanishedFile, TheRescueCopyOfItsOwnBytesIsNotReplacedByABackup) {
  EditDesk desk(kTwo + "not an event\r\n");
  SaveVanished(desk, 1, 1);
  EXPECT_THAT(desk.file(), HasSubstr("Summer"));
  EXPECT_EQ(desk.files.files.at(kRescuePath), kTwo + "not an event\r\n");
  EXPECT_EQ(desk.Backup(1), "backup 1");
}

TEST(VanishedFile, FailedSavesPushNoBackupOut) {
  EditDesk desk(kTwo);
  desk.files.commitFailures[kEventsPath] = StatusKind::kInputOutput;
  SaveVanished(desk, 3, 2);
  for (int i = 0; i < 5; ++i) desk.session().Save();
  EXPECT_TRUE(desk.session().isEntryUnderWay());
  EXPECT_EQ(desk.Backup(2), "backup 1");
  EXPECT_EQ(desk.Backup(3), "backup 2");
  desk.files.commitFailures.clear();
  desk.session().Save();
  EXPECT_THAT(desk.file(), HasSubstr("Summer"));
  EXPECT_EQ(desk.Backup(2), "backup 1");
  EXPECT_EQ(desk.Backup(3), "backup 2");
}

// --- What the editor has read is in nobody's file any more.

TEST(EmptiedFile, ASaveKeepsWhatWasInItInTheRescueCopy) {
  for (const bool withBackups : {false, true}) {
    EditDesk desk(kTwo);
    if (withBackups) desk.Set("LevelsOfBackup", "2");
    desk.Open();
    desk.Enter(0, "6.1", "Summer");
    desk.files.files[kEventsPath].clear();
    desk.session().Save();
    EXPECT_EQ(desk.file(), "06.01,Summer,7,yearly\r\n");
    EXPECT_EQ(desk.files.files[kRescuePath], kTwo);
    EXPECT_THAT(desk.messages.shown, IsEmpty());
    // The next save has nothing to lose.
    desk.files.files.erase(kRescuePath);
    desk.Enter(0, "7.1", "July");
    desk.session().Save();
    EXPECT_THAT(desk.file(), HasSubstr("July"));
    EXPECT_FALSE(desk.files.files.contains(kRescuePath));
  }
}

TEST(EmptiedFile, ADeletionFindsNothingAndKeepsWhatWasInItInTheRescueCopy) {
  EditDesk desk(kTwo);
  desk.Open();
  ASSERT_TRUE(desk.Select("Christmas"));
  desk.session().Edit();
  desk.files.files[kEventsPath].clear();
  desk.messages.answer = MessageAnswer::kYes;
  desk.session().Delete();
  EXPECT_EQ(desk.file(), "");
  EXPECT_EQ(desk.files.files[kRescuePath], kTwo);
}

TEST(EmptiedFile, WithoutTheRescueCopyNothingIsSaved) {
  EditDesk desk(kTwo);
  desk.files.writeFailures[kRescuePath] = StatusKind::kNoSpace;
  desk.Open();
  desk.Enter(0, "6.1", "Summer");
  desk.files.files[kEventsPath].clear();
  desk.session().Save();
  EXPECT_EQ(desk.file(), "");
  EXPECT_TRUE(desk.session().isEntryUnderWay());
  EXPECT_EQ(desk.messages.shown.size(), 1U);
}

TEST(EmptiedFile, OneThatWasEmptyBeforeLeavesNoRescueCopy) {
  EditDesk desk;
  desk.Open();
  desk.Enter(0, "6.1", "Summer");
  desk.session().Save();
  EXPECT_EQ(desk.file(), "06.01,Summer,7,yearly\r\n");
  // The user deletes the last event.
  ASSERT_TRUE(desk.Select("Summer"));
  desk.messages.answer = MessageAnswer::kYes;
  desk.session().PopupDelete();
  EXPECT_EQ(desk.file(), "");
  EXPECT_FALSE(desk.files.files.contains(kRescuePath));
}

TEST(VanishedFile, ThatIsMadeAnewLeavesItsEventsInTheRescueCopy) {
  EditDesk desk(kTwo);
  desk.Open();
  desk.files.files.erase(kEventsPath);
  std::string rescuedBefore;
  desk.messages.whileOpen = [&] { rescuedBefore = desk.files.files[kRescuePath]; };
  desk.session().Reload();
  EXPECT_EQ(desk.messages.shown.size(), 1U);
  EXPECT_EQ(rescuedBefore, kTwo) << "the box may stand for long";
  EXPECT_EQ(desk.file(), "");
  // What is gone is not lost a second time.
  desk.files.files[kRescuePath] = "the user's";
  desk.files.files.erase(kEventsPath);
  desk.session().Reload();
  EXPECT_EQ(desk.files.files[kRescuePath], "the user's");
}

TEST(VanishedFile, WhoseRescueCopyCannotBeMadeIsToldOf) {
  EditDesk desk(kTwo);
  desk.Open();
  desk.files.writeFailures[kRescuePath] = StatusKind::kNoSpace;
  desk.files.files.erase(kEventsPath);
  desk.session().Reload();
  ASSERT_EQ(desk.messages.shown.size(), 2U);
  EXPECT_THAT(desk.messages.shown[0], HasSubstr(kRescuePath));
  EXPECT_EQ(desk.file(), "");
}

TEST(VanishedFile, OfAnEarlierOpeningIsNotRemembered) {
  EditDesk desk(kTwo);
  desk.Open();
  desk.session().Closed(std::nullopt, EditorClosing::kReturnToReminders);
  desk.files.files.erase(kEventsPath);
  desk.Open();
  EXPECT_EQ(desk.messages.shown.size(), 1U);
  EXPECT_FALSE(desk.files.files.contains(kRescuePath));
}

}  // namespace
}  // namespace tidewarden
