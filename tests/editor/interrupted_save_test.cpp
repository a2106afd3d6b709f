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

// --- A user's data folder that does not take the copies.

TEST(InterruptedSave, AFolderThatTakesNoCopiesDoesNotStopTheSave) {
  for (const std::string& path : {kBeforePath, kAfterPath}) {
    EditDesk desk(kBefore);
    desk.files.writesInPlace = true;
    desk.files.writeFailures[path] = StatusKind::kNoSpace;
    desk.Open();
    desk.Enter(0, "6.1", "Summer");
    desk.session().Save();
    EXPECT_FALSE(desk.session().isEntryUnderWay());
    EXPECT_EQ(desk.file(), kAfter);
    EXPECT_THAT(desk.messages.shown, IsEmpty());
    EXPECT_FALSE(desk.files.files.contains(kBeforePath));
    EXPECT_FALSE(desk.files.files.contains(kAfterPath));
  }
}

TEST(InterruptedSave, WithoutTheLockNothingIsNoted) {
  EditDesk desk(kBefore);
  desk.files.writesInPlace = true;
  desk.files.lockFailures[kNotes.lock] = StatusKind::kNoPermission;
  desk.Open();
  desk.Enter(0, "6.1", "Summer");
  desk.session().Save();
  EXPECT_EQ(desk.file(), kAfter);
  // Another process could not tell the save that is going on from an interrupted one.
  EXPECT_EQ(desk.files.CountCalls("create"), 0);
}

TEST(InterruptedSave, WhileAnotherProcessWritesTheFileItIsNotWritten) {
  EditDesk desk(kBefore);
  desk.files.writesInPlace = true;
  desk.files.lockFailures[kNotes.lock] = StatusKind::kBusy;
  desk.Open();
  desk.Enter(0, "6.1", "Summer");
  desk.session().Save();
  EXPECT_TRUE(desk.session().isEntryUnderWay());
  EXPECT_EQ(desk.file(), kBefore);
  EXPECT_THAT(desk.messages.shown, ElementsAre("Tidewarden could not save the events file:\n" +
                                               kNotes.lock + "\nanother program is using it"));
}

TEST(InterruptedSave, OldCopiesThatCannotBeMovedDoNotStopTheSave) {
  const std::string changed = kAfter + "12.31,Party,1,yearly\r\n";
  for (const std::string& file : {changed, kBefore, kAfter}) {
    InterruptedDesk desk(file);
    desk.files.renameFailures[kBeforePath] = StatusKind::kReadOnly;
    desk.files.writeFailures[kBeforePath] = StatusKind::kReadOnly;
    desk.files.writeFailures[kAfterPath] = StatusKind::kReadOnly;
    desk.Open();
    desk.Enter(0, "7.1", "July");
    desk.session().Save();
    EXPECT_THAT(desk.file(), HasSubstr("July"));
    EXPECT_THAT(desk.messages.shown, IsEmpty());
    EXPECT_EQ(desk.files.files.at(kBeforePath), kBefore);
    EXPECT_EQ(desk.files.files.at(kAfterPath), kAfter);
  }
}

TEST(InterruptedSave, OfATornFileTheCopiesAreNotOverwrittenNorTheFile) {
  const std::string torn = Torn(kBefore, kAfter, 60);
  for (const bool unreadable : {false, true}) {
    MemoryFileSystem files;
    files.writesInPlace = true;
    files.files = {{kEventsPath, torn}, {kBeforePath, kBefore}, {kAfterPath, kAfter}};
    if (unreadable) files.readFailures[kBeforePath] = StatusKind::kInputOutput;
    const WriteResult result = ReplaceEventsFile(files, kEventsPath, kRescueFolder, torn, "new");
    EXPECT_EQ(result.status.kind(), StatusKind::kBusy);
    EXPECT_EQ(result.path, kAfterPath);
    EXPECT_EQ(files.files.at(kEventsPath), torn);
    EXPECT_EQ(files.files.at(kBeforePath), kBefore);
    EXPECT_EQ(files.files.at(kAfterPath), kAfter);
  }
}

// --- Two files of one name.

TEST(InterruptedSave, TwoFilesOfOneNameHaveCopiesOfTheirOwn) {
  const std::string other = "/media/stick/dates.txt";
  const SaveNotes notes = SaveNotesOf(kRescueFolder, other);
  EXPECT_NE(notes.before, kBeforePath);
  EXPECT_NE(notes.after, kAfterPath);
  const std::string torn = Torn(kBefore, kAfter, 60);
  InterruptedDesk desk(torn);
  desk.files.files[other] = "05.05,Theirs,1,yearly\r\n";
  MemoryMessageBox messages;
  EXPECT_TRUE(SettleInterruptedSave(desk.files, messages, other, kRescueFolder).status.ok());
  EXPECT_EQ(desk.files.files.at(other), "05.05,Theirs,1,yearly\r\n");
  EXPECT_TRUE(ReplaceEventsFile(desk.files, other, kRescueFolder, "05.05,Theirs,1,yearly\r\n",
                                "05.05,Ours,1,yearly\r\n")
                  .status.ok());
  EXPECT_EQ(desk.files.files.at(other), "05.05,Ours,1,yearly\r\n");
  EXPECT_FALSE(desk.files.files.contains(notes.before));
  EXPECT_THAT(messages.shown, IsEmpty());
  // The first file's copies have waited for it.
  desk.Open();
  EXPECT_EQ(desk.file(), kBefore);
  EXPECT_FALSE(desk.hasNotes());
}

TEST(InterruptedSave, CopiesThatNameNoFolderAreLeftAlone) {
  InterruptedDesk desk(kBefore);
  desk.files.files[kRescueFolder + "/dates.before-save.txt"] = "01.01,Old,1,yearly\r\n";
  desk.files.files[kRescueFolder + "/dates.after-save.txt"] = "02.02,New,1,yearly\r\n";
  desk.Open();
  desk.Enter(0, "6.1", "Summer");
  desk.session().Save();
  EXPECT_EQ(desk.file(), kAfter);
  EXPECT_EQ(desk.files.files.at(kRescueFolder + "/dates.before-save.txt"),
            "01.01,Old,1,yearly\r\n");
  EXPECT_EQ(desk.files.files.at(kRescueFolder + "/dates.after-save.txt"), "02.02,New,1,yearly\r\n");
  EXPECT_THAT(desk.messages.shown, IsEmpty());
}

// The keys are those that FNV-1a's authors give for these texts.
TEST(InterruptedSave, TheKeyIsAHashOfTheWholePath) {
  EXPECT_EQ(SaveNotesOf("/d", "").before, "/d/.cbf29ce484222325.before-save.txt");
  EXPECT_EQ(SaveNotesOf("/d", "a").after, "/d/.af63dc4c8601ec8c.after-save.txt");
  EXPECT_EQ(SaveNotesOf("/d", "foobar").before, "/d/fo.85944171f73967e8.before-save.txt");
}

// --- What a save can leave.

TEST(InterruptedSave, OnlyWhatASaveCanLeaveIsTakenForTorn) {
  const std::string nul(1, '\0');
  struct Case {
    std::string name;
    std::string before;
    std::string after;
    std::string file;
    bool torn;
  };
  for (const Case& c : std::vector<Case>{
           {"before", "abcdef", "ABCDEF", "abcdef", true},
           {"after", "abcdef", "ABCDEF", "ABCDEF", true},
           {"new in front", "abcdef", "ABCDEF", "ABcdef", true},
           {"put back in front", "abcdef", "ABCDEF", "aBCDEF", true},
           {"put back in front of what was written", "abcdef", "ABCDEF", "aBCdef", true},
           {"new only in two places", "abcdef", "ABCDEF", "AbCdef", false},
           {"another byte", "abcdef", "ABCDEF", "ABxdef", false},
           {"space taken", "abc", "ABCDEF", "abc" + nul + nul + nul, true},
           {"space taken step by step", "abc", "ABCDEF", "abc" + nul + nul, true},
           {"space taken and begun", "abc", "ABCDEF", "AB" + std::string("c") + nul + nul + nul,
            true},
           {"written beyond the old end", "abc", "ABCDEF", "ABCDE" + nul, true},
           {"longer, but not by space", "abc", "ABCDEF", "ABCDE", false},
           {"the last byte of the old state deleted", "abcdef", "ABC", "abcde", false},
           {"cut off last", "abcdef", "ABC", "ABCdef", true},
           {"space taken for the old bytes", "abcdef", "ABC", "aBC" + nul + nul + nul, true},
           {"longer than both", "abc", "ABCDEF", "ABCDEFG", false},
           {"shorter than both", "abcd", "ABCDEF", "abc", false},
           {"nothing of nothing", "", "ABC", "", true},
           {"nothing left", "abc", "", "", true},
       }) {
    EXPECT_EQ(MayBeLeftBySave(c.file, c.before, c.after), c.torn) << c.name;
  }
}

// After a power cut any of a disk's sectors may be old or new.
TEST(InterruptedSave, SectorsMayBeWrittenInAnyOrder) {
  const std::string before(2000, 'b');
  const std::string after(2000, 'a');
  std::string file = before;
  file.replace(512, 512, 512, 'a');
  file.replace(1536, 464, 464, 'a');
  EXPECT_TRUE(MayBeLeftBySave(file, before, after));
  file[1030] = 'a';
  EXPECT_TRUE(MayBeLeftBySave(file, before, after));
  file[1040] = 'a';
  EXPECT_FALSE(MayBeLeftBySave(file, before, after)) << "two places in one sector";
}

// Between the crash and the next start a user has put the file right by hand.
TEST(InterruptedSave, AUsersOwnRepairOfATornFileIsNotUndone) {
  const std::string last = "12.25,Christmas,7,yearly\r\n";
  for (const std::string& repaired : std::vector<std::string>{
           kBefore.substr(0, kBefore.size() - last.size()),
           kAfter.substr(0, kAfter.size() - last.size()),
           "01.01,New Year,1,yearly\r\n06.01,Summer,9,yearly\r\n12.25,Christmas,7,yearly\r\n",
           kBefore + "\r\n",
           "\xEF\xBB\xBF" + kBefore,
           kBefore.substr(0, kBefore.size() - 2),
       }) {
    InterruptedDesk desk(repaired);
    desk.Open();
    EXPECT_EQ(desk.file(), repaired);
    EXPECT_THAT(desk.messages.shown, ElementsAre(Told(kKept)));
    EXPECT_EQ(desk.files.files.at(kKept), kBefore);
  }
}

// An event is deleted, and the user deletes the next one by hand: whole lines of the old state are
// all that is left, as they would be of a save that cuts the file off, which none does so.
TEST(InterruptedSave, LinesThatAUserDeletedStayDeleted) {
  const std::string lastLine = "12.31,Party,1,yearly\r\n";
  const std::string before = kAfter + lastLine;
  InterruptedDesk desk(kAfter);
  desk.files.files[kBeforePath] = before;
  desk.files.files[kAfterPath] = kBefore + lastLine;
  ASSERT_GT(kAfter.size(), (kBefore + lastLine).size());
  desk.Open();
  EXPECT_EQ(desk.file(), kAfter);
  EXPECT_EQ(desk.files.files.at(kKept), before);
}

}  // namespace
}  // namespace tidewarden
