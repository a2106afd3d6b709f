// Saves into a folder that takes no new files: what is kept meanwhile, and what is found after one
// was interrupted.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "core/interrupted_save.h"
#include "tests/editor/edit_desk.h"

namespace tidewarden {
namespace {

using test::EditDesk;
using test::kEventsPath;
using test::kRescueFolder;
using test::kRescuePath;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

const std::string kBefore = "01.01,New Year,1,yearly\r\n12.25,Christmas,7,yearly\r\n";
const std::string kAfter =
    "01.01,New Year,1,yearly\r\n06.01,Summer,7,yearly\r\n12.25,Christmas,7,yearly\r\n";
const SaveNotes kNotes = SaveNotesOf(kRescueFolder, kEventsPath);
const std::string& kBeforePath = kNotes.before;
const std::string& kAfterPath = kNotes.after;
const std::string kKept = kRescueFolder + "/dates.undamaged1.txt";

// A desk on which a save was interrupted that would have made kAfter of kBefore.
struct InterruptedDesk : EditDesk {
  explicit InterruptedDesk(std::string file) : EditDesk(std::move(file)) {
    files.files[kBeforePath] = kBefore;
    files.files[kAfterPath] = kAfter;
    files.writesInPlace = true;
  }
  [[nodiscard]] bool hasNotes() const {
    return files.files.contains(kBeforePath) || files.files.contains(kAfterPath);
  }
};

// What is left when the first `written` bytes have reached the file: the longer content has had
// its space taken, the shorter one is cut off last.
std::string Torn(const std::string& before, const std::string& after, std::size_t written) {
  std::string file = before;
  if (file.size() < after.size()) file.resize(after.size(), '\0');
  return file.replace(0, written, after, 0, written);
}

std::string Told(const std::string& kept) {
  return "Saving the events file was interrupted, and the file has been changed since:\n" +
         kEventsPath + "\n\nThe file as it was before is now kept here:\n" + kept;
}

TEST(InterruptedSave, BothStatesAreKeptWhileTheFileIsWrittenAndGoAfterwards) {
  EditDesk desk(kBefore);
  desk.files.writesInPlace = true;
  desk.Open();
  desk.Enter(0, "6.1", "Summer");
  desk.files.calls.clear();
  desk.session().Save();
  EXPECT_EQ(desk.file(), kAfter);
  const auto at = [&](const std::string& call) {
    const auto& calls = desk.files.calls;
    return std::find(calls.begin(), calls.end(), call) - calls.begin();
  };
  EXPECT_LT(at("commit " + kBeforePath), at("commit " + kAfterPath));
  EXPECT_LT(at("commit " + kAfterPath), at("commit " + kEventsPath));
  EXPECT_LT(at("commit " + kEventsPath), at("remove " + kAfterPath));
  EXPECT_LT(at("remove " + kAfterPath), at("remove " + kBeforePath));
  EXPECT_FALSE(desk.files.files.contains(kBeforePath));
  EXPECT_FALSE(desk.files.files.contains(kAfterPath));
  EXPECT_FALSE(desk.files.files.contains(kRescuePath)) << "nothing was dropped";
}

TEST(InterruptedSave, AFileThatIsReplacedAtOnceNeedsNoCopies) {
  EditDesk desk(kBefore);
  desk.Open();
  desk.Enter(0, "6.1", "Summer");
  desk.session().Save();
  EXPECT_EQ(desk.file(), kAfter);
  EXPECT_EQ(desk.files.CountCalls("commit"), 1);
  EXPECT_EQ(desk.files.CountCalls("create"), 0);
  EXPECT_EQ(desk.files.CountCalls("lock"), 0);
}

TEST(InterruptedSave, ATornFileGetsItsOldBytesBackWithoutAWord) {
  for (const auto& [before, after] :
       std::vector<std::pair<std::string, std::string>>{{kBefore, kAfter}, {kAfter, kBefore}}) {
    for (std::size_t written = 0; written <= after.size(); ++written) {
      InterruptedDesk desk(Torn(before, after, written));
      desk.files.files[kBeforePath] = before;
      desk.files.files[kAfterPath] = after;
      const bool isWhole = desk.file() == after;
      desk.Open();
      ASSERT_EQ(desk.file(), isWhole ? after : before) << written;
      ASSERT_FALSE(desk.hasNotes());
      ASSERT_THAT(desk.messages.shown, IsEmpty());
    }
  }
}

// Putting the old bytes back can be interrupted, too.
TEST(InterruptedSave, AFileOfPartsOfBothStatesIsTorn) {
  const std::string once = Torn(kBefore, kAfter, 60);
  for (std::size_t back = 0; back <= kBefore.size(); ++back) {
    InterruptedDesk desk(std::string(once).replace(0, back, kBefore, 0, back));
    desk.Open();
    ASSERT_EQ(desk.file(), kBefore) << back;
  }
}

TEST(InterruptedSave, AFileThatHoldsOneOfTheStatesIsWhole) {
  for (const std::string& file : {kBefore, kAfter}) {
    InterruptedDesk desk(file);
    desk.Open();
    EXPECT_EQ(desk.file(), file);
    EXPECT_FALSE(desk.hasNotes());
    EXPECT_EQ(desk.files.CountCalls("commit"), 0);
    EXPECT_THAT(desk.messages.shown, IsEmpty());
  }
}

TEST(InterruptedSave, AFileThatHasBeenChangedSinceStaysAndTheUserLearnsWhereTheOldBytesAre) {
  const std::string changed = kAfter + "12.31,Party,1,yearly\r\n";
  InterruptedDesk desk(changed);
  desk.Open();
  EXPECT_EQ(desk.file(), changed);
  EXPECT_THAT(desk.messages.shown, ElementsAre(Told(kKept)));
  EXPECT_EQ(desk.messages.boxes[0].buttons, MessageButtons::kOk);
  EXPECT_EQ(desk.messages.boxes[0].icon, MessageIcon::kNone);
  EXPECT_EQ(desk.files.files.at(kKept), kBefore);
  EXPECT_FALSE(desk.hasNotes());
  // Neither another reading nor another save says it again or touches the copy.
  desk.session().Reload();
  desk.Enter(0, "7.1", "July");
  desk.session().Save();
  EXPECT_THAT(desk.messages.shown, ElementsAre(Told(kKept)));
  EXPECT_EQ(desk.files.files.at(kKept), kBefore);
  EXPECT_THAT(desk.file(), HasSubstr("July"));
  EXPECT_THAT(desk.file(), HasSubstr("Party"));
}

TEST(InterruptedSave, AKeptCopyIsNeverOverwritten) {
  InterruptedDesk desk("12.31,Party,1,yearly\r\n");
  desk.files.files[kKept] = "older";
  desk.Open();
  EXPECT_EQ(desk.files.files.at(kKept), "older");
  EXPECT_EQ(desk.files.files.at(kRescueFolder + "/dates.undamaged2.txt"), kBefore);
  EXPECT_THAT(desk.messages.shown, ElementsAre(Told(kRescueFolder + "/dates.undamaged2.txt")));
}

// A stick that is not plugged in must not cost the file its repair.
TEST(InterruptedSave, OfAFileThatIsAwayEverythingWaits) {
  InterruptedDesk desk({});
  desk.files.files.erase(kEventsPath);
  desk.Open();
  ASSERT_EQ(desk.messages.shown.size(), 1U);
  EXPECT_THAT(desk.messages.shown[0], HasSubstr("does not exist."));
  EXPECT_EQ(desk.files.files.at(kBeforePath), kBefore);
  EXPECT_EQ(desk.files.files.at(kAfterPath), kAfter);
  desk.files.files[kEventsPath] = Torn(kBefore, kAfter, 60);
  desk.session().Reload();
  EXPECT_EQ(desk.file(), kBefore);
  EXPECT_FALSE(desk.hasNotes());
}

TEST(InterruptedSave, NamesStayShortEnoughForTheDisk) {
  std::string name;
  for (int i = 0; i < 122; ++i) name += "\xd0\x96";
  const SaveNotes notes = SaveNotesOf(kRescueFolder, "/home/ann/" + name + ".txt");
  for (const std::string& path : {notes.before, notes.after,
                                  KeptCopyPath(kRescueFolder, "/home/ann/" + name + ".txt", 999)}) {
    const std::string cut = path.substr(kRescueFolder.size() + 1);
    EXPECT_LE(cut.size(), 220U);
    EXPECT_EQ(cut.substr(0, 180), name.substr(0, 180)) << "no character is split";
    EXPECT_EQ(cut[180], '.');
  }
}

TEST(InterruptedSave, AFolderThatCannotBeLookedAtDoesNotKeepAnybodyFromTheFile) {
  InterruptedDesk desk(kAfter);
  desk.files.failures[kBeforePath] = StatusKind::kInputOutput;
  desk.files.failures[kAfterPath] = StatusKind::kInputOutput;
  desk.Open();
  EXPECT_THAT(desk.messages.shown, IsEmpty());
  EXPECT_EQ(desk.List().size(), 4U);
}

TEST(InterruptedSave, OldBytesThatCannotBeMovedWaitAndTheFileIsRead) {
  const std::string changed = kAfter + "12.31,Party,1,yearly\r\n";
  InterruptedDesk desk(changed);
  desk.files.renameFailures[kBeforePath] = StatusKind::kNoPermission;
  desk.Open();
  EXPECT_THAT(desk.messages.shown, IsEmpty());
  EXPECT_EQ(desk.List().size(), 5U);
  EXPECT_EQ(desk.files.files.at(kBeforePath), kBefore);
  EXPECT_EQ(desk.files.files.at(kAfterPath), kAfter);
}

// Killed between the two copies, or between their removals.
TEST(InterruptedSave, OldBytesAloneAreRemoved) {
  InterruptedDesk desk(kBefore);
  desk.files.files.erase(kAfterPath);
  desk.Open();
  EXPECT_FALSE(desk.hasNotes());
  EXPECT_EQ(desk.file(), kBefore);
  EXPECT_THAT(desk.messages.shown, IsEmpty());
}

TEST(InterruptedSave, WithoutTheOldBytesTheFileWasNotYetWritten) {
  InterruptedDesk desk("12.31,Party,1,yearly\r\n");
  desk.files.files.erase(kBeforePath);
  desk.Open();
  EXPECT_EQ(desk.file(), "12.31,Party,1,yearly\r\n");
  EXPECT_FALSE(desk.hasNotes());
  EXPECT_THAT(desk.messages.shown, IsEmpty());
}

TEST(InterruptedSave, WhatCannotBePutRightIsToldAndNothingIsSavedOverIt) {
  const std::string torn = Torn(kBefore, kAfter, 60);
  for (const bool unreadable : {false, true}) {
    InterruptedDesk desk(torn);
    if (unreadable) {
      desk.files.failures[kBeforePath] = StatusKind::kInputOutput;
    } else {
      desk.files.commitFailures[kEventsPath] = StatusKind::kNoSpace;
    }
    desk.Open();
    const std::string box =
        "Tidewarden could not read the events file:\n" + (unreadable ? kBeforePath : kEventsPath) +
        "\n" + DescribeStatus(Status(unreadable ? StatusKind::kInputOutput : StatusKind::kNoSpace));
    EXPECT_THAT(desk.messages.shown, ElementsAre(box));
    EXPECT_THAT(desk.List(), ElementsAre("12.22  <TODAY>"));
    desk.Enter(0, "7.1", "July");
    desk.session().Save();
    EXPECT_TRUE(desk.session().isEntryUnderWay());
    EXPECT_EQ(desk.file(), torn);
    EXPECT_EQ(desk.files.files.at(kBeforePath), kBefore);
    desk.files.failures.clear();
    desk.files.commitFailures.clear();
    desk.session().Save();
    EXPECT_EQ(desk.file(),
              "01.01,New Year,1,yearly\r\n07.01,July,7,yearly\r\n"
              "12.25,Christmas,7,yearly\r\n");
    EXPECT_FALSE(desk.hasNotes());
  }
}

TEST(InterruptedSave, WithoutItsCopiesAFileIsNotWrittenInPlace) {
  for (const std::string& path : {kBeforePath, kAfterPath}) {
    EditDesk desk(kBefore);
    desk.files.writesInPlace = true;
    desk.files.writeFailures[path] = StatusKind::kNoSpace;
    desk.Open();
    desk.Enter(0, "6.1", "Summer");
    desk.session().Save();
    EXPECT_TRUE(desk.session().isEntryUnderWay());
    EXPECT_EQ(desk.file(), kBefore);
    EXPECT_THAT(desk.messages.shown, ElementsAre("Tidewarden could not save the events file:\n" +
                                                 path + "\nthe disk is full"));
  }
}

TEST(InterruptedSave, TheCopiesOfAnUnsettledSaveAreNotOverwritten) {
  MemoryFileSystem files;
  files.files[kBeforePath] = kBefore;
  files.files[kAfterPath] = kAfter;
  const WriteResult result = NoteSave(files, kEventsPath, kRescueFolder, "torn", "new");
  EXPECT_EQ(result.status.kind(), StatusKind::kBusy);
  EXPECT_EQ(result.path, kAfterPath);
  EXPECT_EQ(files.files.at(kBeforePath), kBefore);
  EXPECT_EQ(files.files.at(kAfterPath), kAfter);
}

}  // namespace
}  // namespace tidewarden
