// What a save and a deletion leave in the file, its backups and the rescue copy.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/text_encoding.h"
#include "editor/events_writer.h"
#include "tests/editor/edit_desk.h"

namespace tidewarden {
namespace {

using test::EditDesk;
using test::kEventsPath;
using test::kRescueFolder;
using test::kRescuePath;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

const std::string kTwo = "01.01,New Year,1,yearly\r\n12.25,Christmas,7,yearly\r\n";

std::string Failure(const std::string& path, const std::string& reason) {
  return "Tidewarden could not save the events file:\n" + path + "\n" + reason;
}

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
              ElementsAre("read " + kEventsPath, "stage " + kEventsPath, "remove " + stem + "3.txt",
                          "rename " + stem + "2.txt " + stem + "3.txt", "remove " + stem + "2.txt",
                          "rename " + stem + "1.txt " + stem + "2.txt", "remove " + stem + "1.txt",
                          "link " + kEventsPath + " " + stem + "1.txt", "commit " + kEventsPath));
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

TEST(Saving, AFileWrittenInPlaceIsCopiedToTheBackupAndToTheRescueCopy) {
  EditDesk desk(kTwo);
  desk.Set("LevelsOfBackup", "1");
  desk.files.writesInPlace = true;
  desk.Open();
  desk.Enter(0, "6.1", "Summer");
  desk.session().Save();
  EXPECT_EQ(desk.Backup(1), kTwo);
  EXPECT_EQ(desk.files.files[kRescuePath], kTwo);
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

// --- Failures.

TEST(Saving, AFailureIsToldAndTheEntryStays) {
  for (const bool atCommit : {false, true}) {
    EditDesk desk(kTwo);
    auto& failures = atCommit ? desk.files.commitFailures : desk.files.writeFailures;
    EditSession& session = desk.Open();
    failures[kEventsPath] = StatusKind::kNoSpace;
    desk.Enter(0, "6.1", "Summer", "14");
    session.Save();
    EXPECT_THAT(desk.messages.shown, ElementsAre(Failure(kEventsPath, "the disk is full")));
    EXPECT_EQ(desk.messages.boxes[0].buttons, MessageButtons::kOk);
    EXPECT_EQ(desk.messages.boxes[0].icon, MessageIcon::kNone);
    EXPECT_TRUE(session.isEntryUnderWay());
    EXPECT_EQ(session.entry().txtEventInput.text, "Summer");
    EXPECT_EQ(session.List1().size(), 3U);
    EXPECT_EQ(desk.file(), kTwo);
    EXPECT_EQ(desk.settings.At("Options", "RememberLastAdvanceNoticeValue"), "(missing)");
    failures.clear();
    session.Save();
    EXPECT_THAT(desk.file(), HasSubstr("06.01,Summer,14,yearly\r\n"));
  }
}

TEST(Saving, AFailedEditAndAFailedDeletionKeepTheirRow) {
  EditDesk desk(kTwo);
  EditSession& session = desk.Open();
  desk.files.writeFailures[kEventsPath] = StatusKind::kReadOnly;
  ASSERT_TRUE(desk.Select("Christmas"));
  session.Edit();
  session.EventInputTyped("Xmas");
  session.Save();
  EXPECT_TRUE(session.isEntryUnderWay());
  EXPECT_EQ(session.List1()[2].text.substr(6, 9), "Christmas");
  desk.messages.answers = {MessageAnswer::kYes};
  session.Delete();
  EXPECT_TRUE(session.isEntryUnderWay());
  EXPECT_EQ(session.List1().size(), 3U);
  EXPECT_EQ(desk.file(), kTwo);
  EXPECT_EQ(desk.messages.shown.back(), Failure(kEventsPath, "the disk is read-only"));
}

TEST(Saving, WithBackupsAFailureIsSilentButTheEntryStays) {
  EditDesk desk(kTwo);
  desk.Set("LevelsOfBackup", "3");
  desk.files.files[BackupPath(kEventsPath, 1)] = "older";
  EditSession& session = desk.Open();
  desk.files.writeFailures[kEventsPath] = StatusKind::kNoSpace;
  desk.Enter(0, "6.1", "Summer");
  session.Save();
  EXPECT_THAT(desk.messages.shown, IsEmpty());
  EXPECT_TRUE(session.isEntryUnderWay());
  EXPECT_EQ(desk.file(), kTwo);
  EXPECT_EQ(desk.Backup(1), "older") << "nothing is rotated";
}

TEST(Saving, NothingIsSavedAfterAFailedReadUntilOneSucceeds) {
  for (const StatusKind kind : {StatusKind::kNoPermission, StatusKind::kInputOutput}) {
    EditDesk desk(kTwo);
    desk.Set("LevelsOfBackup", "3");
    desk.files.failures[kEventsPath] = kind;
    EditSession& session = desk.Open();
    const std::string box = "Tidewarden could not read the events file:\n" + kEventsPath + "\n" +
                            DescribeStatus(Status(kind));
    EXPECT_THAT(desk.messages.shown, ElementsAre(box));
    EXPECT_THAT(desk.List(), ElementsAre("12.22  <TODAY>"));
    desk.Enter(0, "6.1", "Summer");
    session.Save();
    EXPECT_THAT(desk.messages.shown, ElementsAre(box, box));
    EXPECT_TRUE(session.isEntryUnderWay());
    EXPECT_EQ(desk.file(), kTwo);
    desk.files.failures.clear();
    session.Save();
    EXPECT_EQ(desk.file(),
              "01.01,New Year,1,yearly\r\n06.01,Summer,7,yearly\r\n12.25,Christmas,7,yearly\r\n");
  }
}

TEST(Saving, UnreadableTextIsNeverReplaced) {
  const std::string utf16(
      "\xFF\xFE"
      "1\0002\0",
      6);
  EditDesk desk(utf16);
  EditSession& session = desk.Open();
  EXPECT_THAT(desk.messages.shown, ElementsAre(HasSubstr("UTF-16")));
  desk.Enter(0, "6.1", "Summer");
  session.Save();
  EXPECT_EQ(desk.file(), utf16);
  EXPECT_TRUE(session.isEntryUnderWay());
}

TEST(Saving, AFileThatVanishedIsWrittenAgainWithAllItsEvents) {
  EditDesk desk(kTwo);
  desk.Set("LevelsOfBackup", "2");
  desk.files.files[BackupPath(kEventsPath, 1)] = "older";
  desk.Open();
  desk.Enter(0, "6.1", "Summer");
  desk.files.files.erase(kEventsPath);
  desk.session().Save();
  EXPECT_EQ(desk.file(),
            "01.01,New Year,1,yearly\r\n06.01,Summer,7,yearly\r\n12.25,Christmas,7,yearly\r\n");
  EXPECT_EQ(desk.Backup(1), "older");
}

// --- The file has changed meanwhile.

TEST(Saving, ChangesFromOutsideAreKept) {
  const std::string outside =
      "01.01,New Year,1,yearly\n07.04,Picnic,3,yearly\n"
      "12.25,Christmas,7,yearly\n";
  EditDesk added(kTwo);
  added.Open();
  added.Enter(0, "6.1", "Summer");
  added.files.files[kEventsPath] = outside;
  added.session().Save();
  EXPECT_EQ(added.file(),
            "01.01,New Year,1,yearly\r\n06.01,Summer,7,yearly\r\n07.04,Picnic,3,yearly\r\n"
            "12.25,Christmas,7,yearly\r\n");
  EXPECT_THAT(added.messages.shown, IsEmpty());

  EditDesk edited(kTwo);
  edited.Open();
  ASSERT_TRUE(edited.Select("Christmas"));
  edited.session().Edit();
  edited.session().EventInputTyped("Xmas");
  edited.files.files[kEventsPath] = outside;
  edited.session().Save();
  EXPECT_EQ(edited.file(),
            "01.01,New Year,1,yearly\r\n07.04,Picnic,3,yearly\r\n12.25,Xmas,7,yearly\r\n");

  EditDesk deleted(kTwo);
  deleted.Open();
  ASSERT_TRUE(deleted.Select("Christmas"));
  deleted.session().Edit();
  deleted.files.files[kEventsPath] = outside;
  deleted.messages.answer = MessageAnswer::kYes;
  deleted.session().Delete();
  EXPECT_EQ(deleted.file(), "01.01,New Year,1,yearly\r\n07.04,Picnic,3,yearly\r\n");
}

TEST(Saving, AnEventThatHasGoneMeanwhileIsAddedByAnEditAndNotMissedByADeletion) {
  const std::string outside = "07.04,Picnic,3,yearly\n";
  EditDesk edited(kTwo);
  edited.Open();
  ASSERT_TRUE(edited.Select("Christmas"));
  edited.session().Edit();
  edited.session().EventInputTyped("Xmas");
  edited.files.files[kEventsPath] = outside;
  edited.session().Save();
  EXPECT_EQ(edited.file(), "07.04,Picnic,3,yearly\r\n12.25,Xmas,7,yearly\r\n");

  EditDesk deleted(kTwo);
  deleted.Open();
  ASSERT_TRUE(deleted.Select("Christmas"));
  deleted.session().Edit();
  deleted.files.files[kEventsPath] = outside;
  deleted.messages.answer = MessageAnswer::kYes;
  deleted.session().Delete();
  EXPECT_EQ(deleted.file(), outside);
  EXPECT_EQ(deleted.files.CountCalls("commit"), 0);
  EXPECT_FALSE(deleted.session().isEntryUnderWay());
  EXPECT_EQ(deleted.List().size(), 2U) << "the list shows the file as it now is";
}

// --- Rescue copies.

TEST(Saving, WhateverASaveDropsIsInTheRescueCopy) {
  const std::string longTitle(45, 'a');
  struct Case {
    std::string file;
    std::string rest;  // of the file after the save, before the new event
    bool rescued;
  };
  for (const Case& c :
       std::vector<Case>{{"01.01,A,1,yearly*\r\n", "01.01,A,1,yearly\r\n", true},
                         {"not an event\r\n01.01,A,1,yearly\r\n", "01.01,A,1,yearly\r\n", true},
                         {"01.01,A,1,dp-2999\r\n", "", true},
                         {"01.01," + longTitle + ",1,yearly\r\n",
                          "01.01," + longTitle.substr(0, 38) + ",1,yearly\r\n", true},
                         {"01.01," + longTitle.substr(0, 38) + "   ,1,yearly\r\n",
                          "01.01," + longTitle.substr(0, 38) + ",1,yearly\r\n", false},
                         {"\r\n  \r\n01.01, A ,1,YEARLY\r\n", "01.01,A,1,yearly\r\n", false}}) {
    SCOPED_TRACE(c.file);
    EditDesk desk(c.file);
    desk.Open();
    desk.Enter(0, "12.31", "New");
    desk.session().Save();
    EXPECT_EQ(desk.file(), c.rest + "12.31,New,7,yearly\r\n");
    EXPECT_EQ(desk.files.files.contains(kRescuePath), c.rescued);
    if (c.rescued) {
      EXPECT_EQ(desk.files.files[kRescuePath], c.file);
    }
  }
}

TEST(Saving, WithoutItsRescueCopyASaveDropsNothing) {
  const std::string file = "not an event\r\n01.01,A,1,yearly\r\n";
  EditDesk desk(file);
  desk.files.writeFailures[kRescuePath] = StatusKind::kNoPermission;
  desk.Open();
  desk.Enter(0, "12.31", "New");
  desk.session().Save();
  EXPECT_EQ(desk.file(), file);
  EXPECT_TRUE(desk.session().isEntryUnderWay());
  EXPECT_THAT(desk.messages.shown, ElementsAre(Failure(kRescuePath, "permission denied")));
}

// --- Encodings.

TEST(Saving, TheEncodingAndTheByteOrderMarkStay) {
  EditDesk western("01.01,Caf\xE9,1,yearly\r\n");
  western.Open();
  western.Enter(0, "12.31", "Réveillon");
  western.session().Save();
  EXPECT_EQ(western.file(), "01.01,Caf\xE9,1,yearly\r\n12.31,R\xE9veillon,7,yearly\r\n");

  EditDesk marked(
      "\xEF\xBB\xBF"
      "01.01,Café,1,yearly\n");
  marked.Open();
  marked.Enter(0, "12.31", "Réveillon");
  marked.session().Save();
  EXPECT_EQ(marked.file(),
            "\xEF\xBB\xBF"
            "01.01,Café,1,yearly\r\n12.31,Réveillon,7,yearly\r\n");

  EditDesk fresh;
  fresh.Open();
  fresh.Enter(0, "12.31", "日本 😀");
  fresh.session().Save();
  EXPECT_EQ(fresh.file(), "12.31,日本 😀,7,yearly\r\n");
}

TEST(Saving, ATitleBeyondWindows1252TurnsTheFileIntoUtf8) {
  EditDesk desk("01.01,Caf\xE9 \x81,1,yearly\r\n");
  desk.Open();
  desk.Enter(0, "12.31", "日本");
  desk.session().Save();
  EXPECT_EQ(desk.file(), "01.01,Café \xC2\x81,1,yearly\r\n12.31,日本,7,yearly\r\n");
}

TEST(Saving, ContentThatWouldBeReadInAnotherEncodingBecomesUtf8) {
  // The bytes of the remaining title are valid UTF-8 for another text.
  EditDesk desk("01.01,\xC3\xA9,1,yearly\r\n12.25,Caf\xE9,1,yearly\r\n");
  desk.Open();
  ASSERT_TRUE(desk.Select("Caf"));
  desk.messages.answer = MessageAnswer::kYes;
  desk.session().PopupDelete();
  EXPECT_EQ(desk.file(), "01.01,Ã©,1,yearly\r\n");
  EXPECT_EQ(desk.List()[0].substr(6, 4), "Ã©");
}

}  // namespace
}  // namespace tidewarden
