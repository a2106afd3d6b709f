// Saves that fail, files that others change meanwhile, what a save drops, and encodings.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "editor/events_writer.h"
#include "tests/editor/edit_desk.h"

namespace tidewarden {
namespace {

using test::EditDesk;
using test::kEventsPath;
using test::kRescuePath;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

const std::string kTwo = "01.01,New Year,1,yearly\r\n12.25,Christmas,7,yearly\r\n";

std::string Failure(const std::string& path, const std::string& reason) {
  return "Tidewarden could not save the events file:\n" + path + "\n" + reason;
}

// --- Failures.

TEST(SavingCarefully, AFailureIsToldAndTheEntryStays) {
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

TEST(SavingCarefully, AFailedEditAndAFailedDeletionKeepTheirRow) {
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

TEST(SavingCarefully, WithBackupsAFailureIsSilentButTheEntryStays) {
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

TEST(SavingCarefully, NothingIsSavedAfterAFailedReadUntilOneSucceeds) {
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

TEST(SavingCarefully, UnreadableTextIsNeverReplaced) {
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

TEST(SavingCarefully, AFileThatCannotBeMadeIsToldAndMadeByTheNextSave) {
  EditDesk desk;
  desk.files.files.clear();
  desk.files.writeFailures[kEventsPath] = StatusKind::kNoPermission;
  EditSession& session = desk.Open();
  const std::string missing = "\"" + kEventsPath +
                              "\" does not exist.\n\n"
                              "Tidewarden will now start from scratch with a new " +
                              kEventsPath + " file.";
  EXPECT_THAT(desk.messages.shown, ElementsAre(missing, Failure(kEventsPath, "permission denied")));
  EXPECT_EQ(desk.messages.boxes[1].buttons, MessageButtons::kOk);
  EXPECT_THAT(desk.List(), ElementsAre("12.22  <TODAY>"));
  desk.files.writeFailures.clear();
  desk.Enter(0, "6.1", "Summer");
  session.Save();
  EXPECT_EQ(desk.file(), "06.01,Summer,7,yearly\r\n");
  EXPECT_EQ(desk.messages.shown.size(), 2U);
}

TEST(SavingCarefully, AFileThatHoldsTheChangeInSpiteOfAnErrorIsSaved) {
  for (const bool inPlace : {false, true}) {
    SCOPED_TRACE(inPlace);
    EditDesk desk(kTwo);
    desk.files.writesInPlace = inPlace;
    desk.Open();
    desk.files.failsAfterWriting = true;
    desk.files.commitFailures[kEventsPath] = StatusKind::kInputOutput;
    desk.Enter(0, "6.1", "Summer");
    desk.session().Save();
    desk.session().Save();
    EXPECT_EQ(desk.file(),
              "01.01,New Year,1,yearly\r\n06.01,Summer,7,yearly\r\n12.25,Christmas,7,yearly\r\n");
    EXPECT_FALSE(desk.session().isEntryUnderWay()) << "a second try would add it again";
    EXPECT_THAT(desk.messages.shown, IsEmpty());
    EXPECT_EQ(desk.List().size(), 4U);
  }
}

// --- The file has changed meanwhile.

TEST(SavingCarefully, ChangesFromOutsideAreKept) {
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

TEST(SavingCarefully, AnEventThatHasGoneMeanwhileIsAddedByAnEditAndNotMissedByADeletion) {
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

// A count-up from a year to come is no event, and is one when that year has come.
TEST(SavingCarefully, ALineThatTheNewYearMakesAnEventIsKept) {
  const std::string file = "01.01,New Year,1,yearly\r\n06.01,Wedding,0,dp-2015\r\n";
  for (const bool deletes : {false, true}) {
    SCOPED_TRACE(deletes);
    EditDesk desk(file);
    desk.Open();
    EXPECT_EQ(desk.List().size(), 2U) << "one event and the row of today";
    desk.clock.now.date = MakeDate(2015, 1, 1);
    if (deletes) {
      ASSERT_TRUE(desk.Select("New Year"));
      desk.messages.answer = MessageAnswer::kYes;
      desk.session().PopupDelete();
      EXPECT_EQ(desk.file(), "06.01,Wedding,0,dp-2015\r\n");
      EXPECT_EQ(desk.List().size(), 2U);
    } else {
      desk.Enter(0, "7.1", "Summer");
      desk.session().Save();
      EXPECT_EQ(desk.file(), file + "07.01,Summer,7,yearly\r\n");
      EXPECT_EQ(desk.List().size(), 4U);
    }
    EXPECT_FALSE(desk.files.files.contains(kRescuePath)) << "nothing was dropped";
  }
}

// Others write a file while a save is under way, once for each content.
void ChangeWhileSaving(EditDesk& desk, std::vector<std::optional<std::string>> contents) {
  desk.files.onStaged = [&desk, contents = std::move(contents),
                         next = std::size_t{0}](const std::string& path) mutable {
    if (path != kEventsPath || next == contents.size()) return;
    const std::optional<std::string>& content = contents[next++];
    if (content) {
      desk.files.files[kEventsPath] = *content;
    } else {
      desk.files.files.erase(kEventsPath);
    }
  };
}

TEST(SavingCarefully, AChangeWhileTheSaveIsUnderWayIsKept) {
  const std::string outside = kTwo + "12.31,Eve,1,yearly\r\n";
  const std::string both =
      "01.01,New Year,1,yearly\r\n06.01,Summer,7,yearly\r\n12.25,Christmas,7,yearly\r\n"
      "12.31,Eve,1,yearly\r\n";
  for (const bool inPlace : {false, true}) {
    SCOPED_TRACE(inPlace);
    EditDesk desk(kTwo);
    desk.files.writesInPlace = inPlace;
    desk.Set("LevelsOfBackup", "3");
    desk.files.files[BackupPath(kEventsPath, 1)] = "older";
    desk.Open();
    desk.Enter(0, "6.1", "Summer");
    ChangeWhileSaving(desk, {kTwo + "07.04,Picnic,3,yearly\r\n", outside});
    desk.session().Save();
    EXPECT_EQ(desk.file(), both);
    EXPECT_EQ(desk.Backup(1), outside);
    EXPECT_EQ(desk.Backup(2), "older") << "the tries in between rotate nothing";
    EXPECT_EQ(desk.Backup(3), "(none)");
    EXPECT_THAT(desk.messages.shown, IsEmpty());
    EXPECT_FALSE(desk.session().isEntryUnderWay());
    EXPECT_EQ(desk.List().size(), 5U) << "with the other's event and the row of today";
    for (const auto& [path, content] : desk.files.files) {
      EXPECT_EQ(path.find("-save.txt"), std::string::npos) << path;
    }
  }
}

TEST(SavingCarefully, AnEventThatGoesWhileItsDeletionIsUnderWayIsNotMissed) {
  EditDesk desk(kTwo);
  desk.Open();
  ASSERT_TRUE(desk.Select("Christmas"));
  desk.session().Edit();
  const std::string outside = "07.04,Picnic,3,yearly\r\n";
  ChangeWhileSaving(desk, {outside});
  desk.messages.answer = MessageAnswer::kYes;
  desk.session().Delete();
  EXPECT_EQ(desk.file(), outside);
  EXPECT_FALSE(desk.session().isEntryUnderWay());
}

TEST(SavingCarefully, AFileThatGoesOrComesWhileTheSaveIsUnderWayLosesNothing) {
  EditDesk gone(kTwo);
  gone.Open();
  gone.Enter(0, "6.1", "Summer");
  ChangeWhileSaving(gone, {std::nullopt});
  gone.session().Save();
  EXPECT_EQ(gone.file(),
            "01.01,New Year,1,yearly\r\n06.01,Summer,7,yearly\r\n12.25,Christmas,7,yearly\r\n");

  EditDesk come(kTwo);
  come.Open();
  come.Enter(0, "6.1", "Summer");
  come.files.files.erase(kEventsPath);
  ChangeWhileSaving(come, {"07.04,Picnic,3,yearly\r\n"});
  come.session().Save();
  EXPECT_EQ(come.file(), "06.01,Summer,7,yearly\r\n07.04,Picnic,3,yearly\r\n");
}

TEST(SavingCarefully, AFileThatChangesAgainAndAgainIsLeftToTheOtherProgram) {
  for (const bool inPlace : {false, true}) {
    SCOPED_TRACE(inPlace);
    EditDesk desk(kTwo);
    desk.files.writesInPlace = inPlace;
    desk.Open();
    desk.Enter(0, "6.1", "Summer");
    const std::string last = "03.03,C,1,yearly\r\n";
    ChangeWhileSaving(desk, {"01.01,A,1,yearly\r\n", "02.02,B,1,yearly\r\n", last});
    desk.session().Save();
    EXPECT_EQ(desk.file(), last);
    EXPECT_THAT(desk.messages.shown,
                ElementsAre(Failure(kEventsPath, "another program is using it")));
    EXPECT_TRUE(desk.session().isEntryUnderWay());
    EXPECT_EQ(desk.session().entry().txtEventInput.text, "Summer");
    desk.session().Save();
    EXPECT_EQ(desk.file(), last + "06.01,Summer,7,yearly\r\n");
    EXPECT_EQ(desk.messages.shown.size(), 1U);
  }
}

TEST(SavingCarefully, AFileThatIsOnlyBusyIsTriedOnce) {
  EditDesk desk(kTwo);
  desk.Open();
  desk.Enter(0, "6.1", "Summer");
  desk.files.writeFailures[kEventsPath] = StatusKind::kBusy;
  desk.files.calls.clear();
  desk.session().Save();
  EXPECT_EQ(desk.files.CountCalls("stage"), 1);
  EXPECT_THAT(desk.messages.shown,
              ElementsAre(Failure(kEventsPath, "another program is using it")));
}

// --- Rescue copies.

TEST(SavingCarefully, WhateverASaveDropsIsInTheRescueCopy) {
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
    for (const bool vanishes : {false, true}) {
      SCOPED_TRACE(c.file + (vanishes ? "(vanishes)" : ""));
      EditDesk desk(c.file);
      desk.Open();
      desk.Enter(0, "12.31", "New");
      if (vanishes) desk.files.files.erase(kEventsPath);
      desk.session().Save();
      EXPECT_EQ(desk.file(), c.rest + "12.31,New,7,yearly\r\n");
      EXPECT_EQ(desk.files.files.contains(kRescuePath), c.rescued);
      if (c.rescued) {
        EXPECT_EQ(desk.files.files[kRescuePath], c.file);
      }
    }
  }
}

TEST(SavingCarefully, AFileThatNeverWasLeavesNoRescueCopy) {
  EditDesk desk;
  desk.Open();
  desk.Enter(0, "12.31", "New");
  desk.files.files.erase(kEventsPath);
  desk.session().Save();
  EXPECT_EQ(desk.file(), "12.31,New,7,yearly\r\n");
  EXPECT_FALSE(desk.files.files.contains(kRescuePath));
}

TEST(SavingCarefully, WithoutItsRescueCopyASaveDropsNothing) {
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

TEST(SavingCarefully, WithBackupsAMissingRescueCopyStopsTheSaveWithoutAWord) {
  const std::string file = "not an event\r\n01.01,A,1,yearly*\r\n";
  EditDesk desk(file);
  desk.Set("LevelsOfBackup", "2");
  desk.files.files[BackupPath(kEventsPath, 1)] = "older";
  desk.files.writeFailures[kRescuePath] = StatusKind::kNoSpace;
  desk.Open();
  desk.Enter(0, "12.31", "New");
  desk.session().Save();
  EXPECT_EQ(desk.file(), file);
  EXPECT_EQ(desk.Backup(1), "older");
  EXPECT_EQ(desk.Backup(2), "(none)");
  EXPECT_TRUE(desk.session().isEntryUnderWay());
  EXPECT_EQ(desk.session().entry().txtEventInput.text, "New");
  EXPECT_THAT(desk.messages.shown, IsEmpty());
  desk.files.writeFailures.clear();
  desk.session().Save();
  EXPECT_EQ(desk.file(), "01.01,A,1,yearly\r\n12.31,New,7,yearly\r\n");
  EXPECT_EQ(desk.files.files[kRescuePath], file);
  EXPECT_EQ(desk.Backup(1), file);
  EXPECT_EQ(desk.Backup(2), "older");
}

// --- Encodings.

TEST(SavingCarefully, TheEncodingAndTheByteOrderMarkStay) {
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

TEST(SavingCarefully, ATitleBeyondWindows1252TurnsTheFileIntoUtf8) {
  EditDesk desk("01.01,Caf\xE9 \x81,1,yearly\r\n");
  desk.Open();
  desk.Enter(0, "12.31", "日本");
  desk.session().Save();
  EXPECT_EQ(desk.file(), "01.01,Café \xC2\x81,1,yearly\r\n12.31,日本,7,yearly\r\n");
}

TEST(SavingCarefully, ContentThatWouldBeReadInAnotherEncodingBecomesUtf8) {
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
