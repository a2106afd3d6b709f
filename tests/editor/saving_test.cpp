// What a save and a deletion leave in the file and its backups.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "editor/events_writer.h"
#include "tests/editor/edit_desk.h"

namespace tidewarden {
namespace {

using test::EditDesk;
using test::kEventsPath;
using test::kRescueFolder;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

const std::string kTwo = "01.01,New Year,1,yearly\r\n12.25,Christmas,7,yearly\r\n";

TEST(Saving, AnAddAnEditAndADeletionRewriteTheFileInOrder) {
  EditDesk desk(kTwo);
  EditSession& session = desk.Open();
  desk.Enter(0, "6.1", "Summer");
  session.Save();
  EXPECT_EQ(desk.file(),
            "01.01,New Year,1,yearly\r\n06.01,Summer,7,yearly\r\n12.25,Christmas,7,yearly\r\n");
  EXPECT_EQ(session.selectedRow(), 1) << "the saved event is selected";
  EXPECT_EQ(session.TakeFocus(), EditorFocus::kList1);
  session.Edit();
  session.DateInputTyped("12.31");
  session.Save();
  EXPECT_EQ(desk.file(),
            "01.01,New Year,1,yearly\r\n12.25,Christmas,7,yearly\r\n12.31,Summer,7,yearly\r\n");
  EXPECT_THAT(session.EditorLineMap(), ElementsAre(0, 99999, 1, 2));
  EXPECT_EQ(session.selectedRow(), 3);
  desk.messages.answer = MessageAnswer::kYes;
  session.PopupDelete();
  EXPECT_EQ(desk.file(), kTwo);
  EXPECT_EQ(session.selectedRow(), 2) << "the last row has gone; the new last one is selected";
  EXPECT_THAT(desk.messages.boxes.back().text,
              "Are you sure you want to delete the event \"Summer\"???");
  EXPECT_EQ(desk.messages.boxes.back().buttons, MessageButtons::kYesNo);
  EXPECT_EQ(desk.messages.boxes.back().icon, MessageIcon::kNone);
}

TEST(Saving, ADeletionThatIsDeniedChangesNothing) {
  EditDesk desk(kTwo);
  desk.Set("LevelsOfBackup", "3");
  EditSession& session = desk.Open();
  ASSERT_TRUE(desk.Select("Christmas"));
  const int row = session.selectedRow();
  desk.messages.answer = MessageAnswer::kNo;
  session.Edit();
  session.Delete();
  EXPECT_FALSE(session.isEntryUnderWay());
  EXPECT_EQ(session.selectedRow(), row);
  EXPECT_EQ(session.TakeFocus(), EditorFocus::kList1);
  EXPECT_EQ(desk.file(), kTwo);
  EXPECT_EQ(desk.files.CountCalls("commit") + desk.files.CountCalls("rename"), 0);
}

TEST(Saving, DeletingNeedsAnEdit) {
  EditDesk desk(kTwo);
  EditSession& session = desk.Open();
  session.Delete();
  session.Add();
  session.Delete();
  EXPECT_THAT(desk.messages.shown, IsEmpty());
  EXPECT_EQ(desk.file(), kTwo);
}

TEST(Saving, DeletingTheLastEventLeavesAnEmptyFile) {
  for (const std::string today : {"True", "False"}) {
    EditDesk desk("01.01,New Year,1,yearly\r\n");
    desk.Set("ListTodayWithEvents", today);
    desk.Set("LevelsOfBackup", "1");
    desk.Open();
    ASSERT_TRUE(desk.Select("New Year"));
    desk.messages.answer = MessageAnswer::kYes;
    desk.session().PopupDelete();
    EXPECT_EQ(desk.file(), "");
    EXPECT_EQ(desk.Backup(1), "01.01,New Year,1,yearly\r\n");
  }
}

TEST(Saving, AnUnchangedEditWritesNothing) {
  EditDesk desk(kTwo);
  desk.Set("LevelsOfBackup", "3");
  EditSession& session = desk.Open();
  session.Edit();
  session.Save();
  EXPECT_FALSE(session.isEntryUnderWay());
  EXPECT_EQ(desk.file(), kTwo);
  EXPECT_EQ(desk.files.CountCalls("commit"), 0);
  EXPECT_EQ(desk.Backup(1), "(none)");
}

TEST(Saving, TheTodayRowIsNeverWritten) {
  for (const std::string capitals : {"True", "False"}) {
    EditDesk desk("01.01,X<TODAY> sale,1,yearly\r\n12.22,X<today>,1,yearly\r\n");
    desk.Set("CapitalizeTodaysEvents", capitals);
    desk.Open();
    desk.Enter(0, "12.25", "Christmas");
    desk.session().Save();
    EXPECT_EQ(desk.file(),
              "01.01,X<TODAY> sale,1,yearly\r\n12.22,X<today>,1,yearly\r\n"
              "12.25,Christmas,7,yearly\r\n");
  }
}

TEST(Saving, ASmallTodayMayBeEditedAndDeleted) {
  EditDesk desk(kTwo);
  desk.Set("CapitalizeTodaysEvents", "False");
  EditSession& session = desk.Open();
  ASSERT_TRUE(desk.Select("<Today>"));
  desk.messages.answer = MessageAnswer::kYes;
  session.PopupDelete();
  EXPECT_THAT(desk.messages.shown,
              ElementsAre("Are you sure you want to delete the event \"<Today>\"???"));
  EXPECT_EQ(desk.file(), kTwo);
  ASSERT_TRUE(desk.Select("<Today>"));
  session.Edit();
  EXPECT_EQ(session.entry().txtEventInput.text, "<Today>");
  EXPECT_EQ(session.entry().txtAdvanceInput.text, "0");
  EXPECT_EQ(session.entry().cmbOccursInput.index, 0);
  session.Save();
  EXPECT_THAT(desk.file(), HasSubstr("12.22,<Today>,0,yearly\r\n"));
  EXPECT_EQ(desk.List().size(), 4U);
}

TEST(Saving, AnEditedEventKeepsItsOwnDayCount) {
  EditDesk desk("12.31,Fern,3,20~2014\r\n12.31,Moss,3,05-2014\r\n");
  EditSession& session = desk.Open();
  ASSERT_TRUE(desk.Select("Moss"));
  session.Edit();
  session.Cancel();
  ASSERT_TRUE(desk.Select("Fern"));
  session.Edit();
  session.Save();
  EXPECT_EQ(desk.file(), "12.31,Fern,3,20~2014\r\n12.31,Moss,3,05-2014\r\n");
}

TEST(Saving, TheFirstRowThatBeginsWithTheTitleIsSelected) {
  EditDesk desk("01.01,Bobby,1,yearly\r\n");
  desk.Open();
  desk.Enter(0, "12.25", "Bob");
  desk.session().Save();
  EXPECT_EQ(desk.session().selectedRow(), 0);
}

// --- Backups.

TEST(Saving, WithoutBackupsNoneIsTouched) {
  EditDesk desk(kTwo);
  desk.files.files["/home/ann/datesbk1.txt"] = "mine";
  desk.Open();
  desk.Enter(0, "6.1", "Summer");
  desk.session().Save();
  EXPECT_EQ(desk.Backup(1), "mine");
}

TEST(Saving, BackupsHoldTheContentBeforeEachSave) {
  EditDesk desk(kTwo);
  desk.Set("LevelsOfBackup", "3");
  desk.Open();
  std::vector<std::string> contents;
  for (const std::string title : {"One", "Two", "Three", "Four"}) {
    contents.push_back(desk.file());
    desk.Enter(0, "6.1", title);
    desk.session().Save();
  }
  EXPECT_EQ(desk.Backup(1), contents[3]);
  EXPECT_EQ(desk.Backup(2), contents[2]);
  EXPECT_EQ(desk.Backup(3), contents[1]);
  EXPECT_EQ(desk.Backup(4), "(none)");
}

TEST(Saving, AtMostEightBackupsAreKept) {
  EditDesk desk(kTwo);
  desk.Set("LevelsOfBackup", "20");
  desk.Open();
  for (int i = 0; i < 12; ++i) {
    desk.Enter(0, "6.1", "Event " + std::to_string(i));
    desk.session().Save();
  }
  EXPECT_NE(desk.Backup(8), "(none)");
  EXPECT_EQ(desk.Backup(9), "(none)");
}

TEST(Saving, TheLevelIsAWholeNumberFromZeroToEight) {
  for (const auto& [text, levels] :
       std::vector<std::pair<std::string, int>>{{"0", 0},
                                                {"-3", 0},
                                                {"abc", 0},
                                                {"1", 1},
                                                {" 3", 3},
                                                {"2.9", 2},
                                                {"8", 8},
                                                {"9", 8},
                                                {"99999999999999999999", 8}}) {
    MemorySettingsStore settings;
    ASSERT_TRUE(settings.Write("Options", "LevelsOfBackup", text).ok());
    EXPECT_EQ(LevelsOfBackup(settings), levels) << text;
  }
}

TEST(Saving, BackupsAreNamedAfterThePathWithoutFourCharacters) {
  EXPECT_EQ(BackupPath("/x/dates.txt", 1), "/x/datesbk1.txt");
  EXPECT_EQ(BackupPath("/x/dates.TXT", 8), "/x/datesbk8.txt");
  EXPECT_EQ(BackupPath("/x/calendar", 2), "/x/calebk2.txt");
  EXPECT_EQ(BackupPath("/x/é日本語é", 2), "/x/ébk2.txt");
  EXPECT_EQ(RescuePath("/d", "/x/dates.txt"), "/d/dates.rescue.txt");
}

TEST(Saving, TheNewContentIsSafeBeforeTheBackupsAreRotatedInTheirOrder) {
  EditDesk desk(kTwo);
  desk.Set("LevelsOfBackup", "3");
  for (int i = 1; i <= 3; ++i) {
    desk.files.files[BackupPath(kEventsPath, i)] = "backup " + std::to_string(i);
  }
  desk.Open();
  desk.Enter(0, "6.1", "Summer");
  desk.files.calls.clear();
  desk.session().Save();
  const std::string stem = "/home/ann/datesbk";
  EXPECT_THAT(desk.files.calls,
              ElementsAre("read " + kEventsPath, "stage " + kEventsPath, "read " + kEventsPath,
                          "remove " + stem + "3.txt", "rename " + stem + "2.txt " + stem + "3.txt",
                          "remove " + stem + "2.txt", "rename " + stem + "1.txt " + stem + "2.txt",
                          "remove " + stem + "1.txt", "link " + kEventsPath + " " + stem + "1.txt",
                          "commit " + kEventsPath));
  EXPECT_EQ(desk.Backup(1), kTwo);
  EXPECT_EQ(desk.Backup(2), "backup 1");
  EXPECT_EQ(desk.Backup(3), "backup 2");
}

TEST(Saving, WhereFilesHaveOneNameTheBackupIsACopy) {
  EditDesk desk(kTwo);
  desk.Set("LevelsOfBackup", "2");
  desk.files.linkFailures["/home/ann/datesbk1.txt"] = StatusKind::kNoPermission;
  desk.Open();
  desk.Enter(0, "6.1", "Summer");
  desk.session().Save();
  EXPECT_EQ(desk.Backup(1), kTwo);
  EXPECT_THAT(desk.file(), HasSubstr("Summer"));
}

TEST(Saving, AFileWrittenInPlaceIsCopiedToTheBackup) {
  EditDesk desk(kTwo);
  desk.Set("LevelsOfBackup", "1");
  desk.files.writesInPlace = true;
  desk.Open();
  desk.Enter(0, "6.1", "Summer");
  desk.session().Save();
  EXPECT_EQ(desk.Backup(1), kTwo);
  EXPECT_THAT(desk.file(), HasSubstr("Summer"));
}

TEST(Saving, ABackupThatCannotBeMovedIsNotOverwritten) {
  EditDesk desk(kTwo);
  desk.Set("LevelsOfBackup", "2");
  const std::string newest = BackupPath(kEventsPath, 1);
  desk.files.files[newest] = "older";
  desk.files.renameFailures[newest] = StatusKind::kNoPermission;
  desk.files.writeFailures[newest] = StatusKind::kNoPermission;
  desk.Open();
  desk.Enter(0, "6.1", "Summer");
  desk.session().Save();
  EXPECT_THAT(desk.file(), HasSubstr("Summer"));
  EXPECT_EQ(desk.Backup(1), "older");
}

TEST(Saving, AFailedSaveDoesNotPushBackupsOutWhereFilesHaveOneName) {
  EditDesk desk(kTwo);
  desk.Set("LevelsOfBackup", "3");
  desk.files.files[BackupPath(kEventsPath, 1)] = "older";
  desk.files.linkFailures[BackupPath(kEventsPath, 1)] = StatusKind::kInputOutput;
  desk.files.commitFailures[kEventsPath] = StatusKind::kInputOutput;
  desk.Open();
  desk.Enter(0, "6.1", "Summer");
  for (int i = 0; i < 5; ++i) desk.session().Save();
  EXPECT_EQ(desk.file(), kTwo);
  EXPECT_EQ(desk.Backup(1), kTwo);
  EXPECT_EQ(desk.Backup(2), "older");
}

TEST(Saving, AFileThatVanishesAfterAFailedReadIsWrittenWhole) {
  EditDesk desk(kTwo);
  desk.Open();
  desk.Enter(0, "6.1", "Summer");
  desk.files.failures[kEventsPath] = StatusKind::kInputOutput;
  desk.session().Save();
  EXPECT_TRUE(desk.session().isEntryUnderWay());
  desk.files.failures.clear();
  desk.files.files.erase(kEventsPath);
  desk.session().Save();
  EXPECT_EQ(std::count(desk.file().begin(), desk.file().end(), '\n'),
            std::count(kTwo.begin(), kTwo.end(), '\n') + 1);
  EXPECT_THAT(desk.file(), HasSubstr("Summer"));
}

TEST(Saving, AFailedSaveKeepsACountOfAHundredDaysAndMore) {
  EditDesk desk(kTwo);
  desk.Open();
  desk.Enter(kEveryKind, "12.31", "Filter", "7", "150");
  desk.files.commitFailures[kEventsPath] = StatusKind::kInputOutput;
  desk.session().Save();
  EXPECT_TRUE(desk.session().isEntryUnderWay());
  EXPECT_EQ(desk.session().entry().txtEveryInput.text, "150");
  desk.files.commitFailures.clear();
  desk.session().Save();
  EXPECT_THAT(desk.file(), HasSubstr("50~2014"));
}

TEST(Saving, AFailedSaveDoesNotPushBackupsOutTheNextTime) {
  EditDesk desk(kTwo);
  desk.Set("LevelsOfBackup", "2");
  desk.files.files[BackupPath(kEventsPath, 1)] = "older";
  desk.files.commitFailures[kEventsPath] = StatusKind::kInputOutput;
  desk.Open();
  desk.Enter(0, "6.1", "Summer");
  for (int i = 0; i < 5; ++i) desk.session().Save();
  EXPECT_TRUE(desk.session().isEntryUnderWay());
  EXPECT_EQ(desk.file(), kTwo);
  EXPECT_EQ(desk.Backup(2), "older");
  desk.files.commitFailures.clear();
  desk.session().Save();
  EXPECT_EQ(desk.Backup(1), kTwo);
  EXPECT_EQ(desk.Backup(2), "older");
  EXPECT_THAT(desk.file(), HasSubstr("Summer"));
}

TEST(Saving, ABackupThatCannotBeMadeDoesNotStopTheSave) {
  EditDesk desk(kTwo);
  desk.Set("LevelsOfBackup", "1");
  desk.files.linkFailures[BackupPath(kEventsPath, 1)] = StatusKind::kNoPermission;
  desk.files.writeFailures[BackupPath(kEventsPath, 1)] = StatusKind::kNoSpace;
  desk.Open();
  desk.Enter(0, "6.1", "Summer");
  desk.session().Save();
  EXPECT_THAT(desk.file(), HasSubstr("Summer"));
  EXPECT_FALSE(desk.session().isEntryUnderWay());
}

}  // namespace
}  // namespace tidewarden
