// The reminder's own changes to an events file in a folder that takes no new files: what is kept
// meanwhile, and what the reminder finds when it starts after one was interrupted.
#include <gmock/gmock.h>

#include <algorithm>
#include <string>
#include <vector>

#include "core/interrupted_save.h"
#include "tests/reminder/session_desk.h"

namespace tidewarden::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::string kBefore = "12.23,First,7,yearly\r\n12.24,Second,7,yearly\r\n";
const std::string kAfter = "12.23,First,7,yearly*\r\n12.24,Second,7,yearly\r\n";
// The first 30 bytes have been written, and space has been taken for one byte more.
const std::string kTorn = kAfter.substr(0, 30) + kBefore.substr(30) + std::string(1, '\0');
const SaveNotes kNotes = SaveNotesOf("/home/ann/data", kSessionPath);
const std::string& kBeforePath = kNotes.before;
const std::string& kAfterPath = kNotes.after;
const std::string kKept = "/home/ann/data/dates.undamaged1.txt";
const std::string kTold =
    "Saving the events file was interrupted, and the file has been changed since:\n" +
    kSessionPath + "\n\nThe file as it was before is now kept here:\n" + kKept;

// A desk on which hiding the first event was interrupted.
struct InterruptedDesk : SessionDesk {
  explicit InterruptedDesk(const std::string& file) : SessionDesk(file) {
    files.files[kBeforePath] = kBefore;
    files.files[kAfterPath] = kAfter;
    files.writesInPlace = true;
  }
  [[nodiscard]] bool hasNotes() const {
    return files.files.contains(kBeforePath) || files.files.contains(kAfterPath);
  }
};

TEST(ReminderInterruptedSave, BothStatesAreKeptWhileAnEventIsHiddenOrDeleted) {
  for (const bool hides : {true, false}) {
    SessionDesk desk(kBefore);
    desk.files.writesInPlace = true;
    desk.Start();
    desk.MenuOn("First");
    static_cast<void>(hides ? desk.session.HideThis() : desk.session.DeleteThis());
    EXPECT_EQ(desk.file(), hides ? kAfter : "12.24,Second,7,yearly\r\n");
    const auto at = [&](const std::string& call) {
      const auto& calls = desk.files.calls;
      return std::find(calls.begin(), calls.end(), call) - calls.begin();
    };
    EXPECT_LT(at("commit " + kBeforePath), at("commit " + kAfterPath));
    EXPECT_LT(at("commit " + kAfterPath), at("commit " + kSessionPath));
    EXPECT_LT(at("commit " + kSessionPath), at("remove " + kAfterPath));
    EXPECT_LT(at("remove " + kAfterPath), at("remove " + kBeforePath));
    EXPECT_EQ(desk.files.files.size(), 1U);
  }
}

TEST(ReminderInterruptedSave, BothStatesAreKeptWhileTheFileIsTidied) {
  SessionDesk desk("12.21,Gone,7,one2014\r\n" + kBefore + "06.01,Back,7,yearly*\r\n");
  desk.files.writesInPlace = true;
  EXPECT_EQ(desk.Load(), WindowChange::kNone);
  EXPECT_EQ(desk.file(), kBefore + "06.01,Back,7,yearly\r\n");
  const auto& calls = desk.files.calls;
  EXPECT_EQ(std::count(calls.begin(), calls.end(), "commit " + kBeforePath), 2);
  EXPECT_EQ(std::count(calls.begin(), calls.end(), "commit " + kAfterPath), 2);
  EXPECT_FALSE(desk.files.files.contains(kBeforePath));
  EXPECT_FALSE(desk.files.files.contains(kAfterPath));
}

TEST(ReminderInterruptedSave, AFileThatIsReplacedAtOnceNeedsNoCopies) {
  SessionDesk desk(kBefore);
  desk.Start();
  desk.MenuOn("First");
  EXPECT_EQ(desk.session.HideThis(), WindowChange::kNone);
  EXPECT_EQ(desk.file(), kAfter);
  // Read, checked once more when the new content is safe, replaced, and listed anew.
  EXPECT_THAT(desk.files.calls,
              ElementsAre("read " + kSessionPath, "stage " + kSessionPath, "read " + kSessionPath,
                          "commit " + kSessionPath, "read " + kSessionPath));
}

TEST(ReminderInterruptedSave, AFolderThatTakesNoCopiesDoesNotStopTheChange) {
  for (const std::string& path : {kBeforePath, kAfterPath}) {
    SessionDesk desk(kBefore);
    desk.files.writesInPlace = true;
    desk.files.writeFailures[path] = StatusKind::kNoSpace;
    desk.Start();
    desk.MenuOn("First");
    EXPECT_EQ(desk.session.HideThis(), WindowChange::kNone);
    EXPECT_EQ(desk.file(), kAfter);
    EXPECT_THAT(desk.messages.Texts(), IsEmpty());
    EXPECT_EQ(desk.files.files.size(), 1U);
  }
}

TEST(ReminderInterruptedSave, ATornFileIsPutRightBeforeTheFirstListWithoutAWord) {
  InterruptedDesk desk(kTorn);
  EXPECT_EQ(desk.Load(), WindowChange::kNone);
  EXPECT_EQ(desk.file(), kBefore);
  EXPECT_NE(desk.RowWith("First"), ReminderSession::kNoRow);
  EXPECT_NE(desk.RowWith("Second"), ReminderSession::kNoRow);
  EXPECT_FALSE(desk.hasNotes());
  EXPECT_THAT(desk.messages.boxes, IsEmpty());
  EXPECT_THAT(desk.complaints, IsEmpty());
}

TEST(ReminderInterruptedSave,
     AFileThatHasBeenChangedSinceStaysAndTheUserLearnsWhereTheOldBytesAre) {
  const std::string changed = kAfter + "12.25,Third,7,yearly\r\n";
  InterruptedDesk desk(changed);
  EXPECT_EQ(desk.Load(), WindowChange::kNone);
  EXPECT_THAT(desk.messages.boxes,
              ElementsAre(LoggedMessages::Box{kTold, MessageButtons::kOk, MessageIcon::kNone}));
  EXPECT_EQ(desk.file(), changed);
  EXPECT_EQ(desk.files.files.at(kKept), kBefore);
  EXPECT_FALSE(desk.hasNotes());
  EXPECT_NE(desk.RowWith("Third"), ReminderSession::kNoRow);
  // It is said once.
  EXPECT_EQ(desk.session.Restore(), WindowChange::kRestore);
  EXPECT_EQ(desk.messages.boxes.size(), 1U);
}

TEST(ReminderInterruptedSave, APictureLeavesEverythingAsItIs) {
  for (const std::string& file : {kTorn, kAfter, kAfter + "12.25,Third,7,yearly\r\n"}) {
    InterruptedDesk desk(file);
    const auto before = desk.files.files;
    EXPECT_EQ(desk.session.Load(desk.screens, "", StartFor::kPicture), WindowChange::kNone);
    EXPECT_EQ(desk.files.files, before);
    EXPECT_EQ(desk.files.CountCalls("stage"), 0);
    EXPECT_EQ(desk.files.CountCalls("remove"), 0);
    EXPECT_THAT(desk.messages.boxes, IsEmpty());
  }
}

TEST(ReminderInterruptedSave, WhatCannotBePutRightIsListedAndNotChanged) {
  const std::string gone = "12.21,Gone,7,one2014\r\n";
  const std::string untidy = kBefore + gone;
  const std::string torn = kAfter.substr(0, 30) + untidy.substr(30);
  InterruptedDesk desk(torn);
  desk.files.files[kBeforePath] = untidy;
  desk.files.files[kAfterPath] = kAfter + gone;
  desk.files.commitFailures[kSessionPath] = StatusKind::kNoSpace;
  EXPECT_EQ(desk.Load(), WindowChange::kNone);
  EXPECT_EQ(desk.file(), torn);
  EXPECT_TRUE(desk.hasNotes());
  EXPECT_NE(desk.RowWith("cond"), ReminderSession::kNoRow);
  EXPECT_THAT(desk.complaints, ElementsAre(kSessionPath + ": cannot be changed: the disk is full"));
  // The next list is built after another try.
  desk.files.commitFailures.clear();
  EXPECT_EQ(desk.session.Restore(), WindowChange::kRestore);
  EXPECT_EQ(desk.file(), kBefore);
  EXPECT_FALSE(desk.hasNotes());
}

// Events may be missing from it.
TEST(ReminderInterruptedSave, AListOfATornFileIsNoReasonToEnd) {
  InterruptedDesk desk(kTorn);
  desk.files.commitFailures[kSessionPath] = StatusKind::kNoSpace;
  desk.SetNow(2014, 3, 1, 12, 0);
  desk.Set("Options", "ShowOnlyIfEventsInRange", "True");
  EXPECT_EQ(desk.Load(), WindowChange::kNone);
  desk.files.commitFailures.clear();
  EXPECT_EQ(desk.session.Restore(), WindowChange::kEnd);
}

TEST(ReminderInterruptedSave, AnEditorThatWorksOnTheFileSettlesItItself) {
  SessionDesk desk(kBefore);
  desk.Start();
  desk.editor.loaded = true;
  desk.files.files[kAfterPath] = kAfter;
  desk.files.files[kBeforePath] = kBefore;
  EXPECT_EQ(desk.session.Restore(), WindowChange::kRestore);
  EXPECT_TRUE(desk.files.files.contains(kAfterPath));
}

}  // namespace
}  // namespace tidewarden::test
