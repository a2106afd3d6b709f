// "list --update": what it writes, and that it writes all or nothing.
#include <gmock/gmock.h>

#include <filesystem>

#include "core/interrupted_save.h"
#include "tests/cli/program.h"

namespace tidewarden::test {
namespace {

using ::testing::HasSubstr;

constexpr char kBefore[] =
    "12.21,Gone,7,one2014\n"
    "hello\r"
    "12.24,A,7,yearly\n"
    "06.01,Back,7,yearly*\n"
    "\n"
    "12.25,B,7,yearly";
constexpr char kAfter[] =
    "hello\r\n"
    "12.24,A,7,yearly\r\n"
    "06.01,Back,7,yearly\r\n"
    "\r\n"
    "12.25,B,7,yearly\r\n";
constexpr char kList[] =
    "12/22/2014   <TODAY>\n"
    "12/24/2014 A (Wednesday, 2 days)\n"
    "12/25/2014 B (Thursday, 3 days)\n";

class UpdateOption : public ::testing::Test {
 protected:
  UpdateOption() {
    terminal_.folder.Write("dates.txt", kBefore);
    terminal_.WriteSettings();
  }

  Outcome Update(const std::string& file = "dates.txt") {
    return terminal_.RunOnTheDay("list", {"--update", "--file", file});
  }

  // What a save in place keeps of "dates.txt" meanwhile, relative to the folder.
  [[nodiscard]] std::string BeforePath() const { return Notes().before; }
  [[nodiscard]] std::string AfterPath() const { return Notes().after; }

  // The file is as it was and nothing was left beside it.
  void ExpectUntouched(const FileState& before, const std::string& file = "dates.txt") {
    EXPECT_EQ(LookAt(folder_ / file), before);
    for (const auto& [name, state] : folder_.Look()) {
      EXPECT_EQ(name.find(".new"), std::string::npos) << name;
    }
  }

  Terminal terminal_;
  const TemporaryFolder& folder_ = terminal_.folder;

 private:
  [[nodiscard]] SaveNotes Notes() const {
    const std::filesystem::path folder = std::filesystem::canonical(folder_.path());
    return SaveNotesOf("home/data/Tideward", (folder / "dates.txt").string());
  }
};

TEST_F(UpdateOption, RemovesWhatIsOverAndShowsWhatWasHidden) {
  EXPECT_EQ(Update(), (Outcome{0, kList, ""}));
  EXPECT_EQ(folder_.Read("dates.txt"), kAfter);
  ExpectUntouched(LookAt(folder_ / "dates.txt"));
}

TEST_F(UpdateOption, ChangesNothingTheSecondTime) {
  Update();
  const FileState before = LookAt(folder_ / "dates.txt");
  EXPECT_EQ(Update(), (Outcome{0, kList, ""}));
  ExpectUntouched(before);
}

TEST_F(UpdateOption, TouchesNoFileThatNeedsNoChange) {
  folder_.Write("dates.txt", "hello\r\n12.24,A,7,yearly\r12.25,B,7,yearly\n12.26,C,7,yearly*");
  const FileState before = LookAt(folder_ / "dates.txt");
  EXPECT_EQ(Update(), (Outcome{0, kList, ""}));
  ExpectUntouched(before);
}

TEST_F(UpdateOption, KeepsThePermissionsOfTheFile) {
  for (const mode_t mode : {0600U, 0640U, 0644U, 0666U, 0700U}) {
    SCOPED_TRACE(mode);
    folder_.Write("dates.txt", kBefore);
    folder_.SetPermissions("dates.txt", mode);
    EXPECT_EQ(Update(), (Outcome{0, kList, ""}));
    EXPECT_EQ(folder_.Read("dates.txt"), kAfter);
    EXPECT_EQ(folder_.Permissions("dates.txt"), mode);
  }
}

TEST_F(UpdateOption, KeepsALinkToTheFile) {
  folder_.Write("real/file.txt", kBefore);
  std::filesystem::create_symlink("real/file.txt", folder_ / "link.txt");
  EXPECT_EQ(Update("link.txt"), (Outcome{0, kList, ""}));
  EXPECT_TRUE(std::filesystem::is_symlink(folder_ / "link.txt"));
  EXPECT_EQ(folder_.Read("real/file.txt"), kAfter);
}

TEST_F(UpdateOption, CreatesAMissingFileForTheUserAlone) {
  EXPECT_EQ(Update("new/folder/dates.txt"),
            (Outcome{0, "12/22/2014   <TODAY>\n",
                     "tidewarden-cli: \"new/folder/dates.txt\" does not exist.\n\n"
                     "Tidewarden will now start from scratch with a new new/folder/dates.txt "
                     "file.\n"}));
  EXPECT_EQ(folder_.Read("new/folder/dates.txt"), "");
  EXPECT_EQ(folder_.Permissions("new/folder/dates.txt"), 0600);
  EXPECT_EQ(folder_.Permissions("new/folder"), 0700);
}

TEST_F(UpdateOption, CreatesTheTargetOfALinkThatLeadsNowhere) {
  std::filesystem::create_symlink("real.txt", folder_ / "link.txt");
  EXPECT_EQ(Update("link.txt").exitCode, 0);
  EXPECT_TRUE(std::filesystem::is_symlink(folder_ / "link.txt"));
  EXPECT_EQ(folder_.Read("real.txt"), "");
}

// The file is missing and stays missing, so it is writing that fails.
TEST_F(UpdateOption, EndsInExitCodeFourWhereAMissingFileCannotBeCreated) {
  folder_.MakeFolder("closed");
  terminal_.BecomeOrdinaryUser();
  folder_.SetPermissions("closed", 0555);
  const Outcome outcome = Update("closed/dates.txt");
  EXPECT_EQ(outcome.exitCode, 4);
  EXPECT_THAT(outcome.err, HasSubstr("closed/dates.txt: "));
  EXPECT_THAT(outcome.err, HasSubstr("permission denied"));
  EXPECT_FALSE(folder_.Exists("closed/dates.txt"));
}

TEST_F(UpdateOption, IsNotPossibleBelowAFile) {
  const Outcome outcome = Update("settings.ini/dates.txt");
  EXPECT_EQ(outcome.exitCode, 4);
  EXPECT_THAT(outcome.err, HasSubstr("settings.ini/dates.txt: "));
}

// --- Files that cannot be written.

TEST_F(UpdateOption, OfAWriteProtectedFileEndsInExitCodeFour) {
  terminal_.BecomeOrdinaryUser();
  folder_.SetPermissions("dates.txt", 0400);
  const FileState before = LookAt(folder_ / "dates.txt");
  const Outcome outcome = Update();
  EXPECT_EQ(outcome.exitCode, 4);
  EXPECT_EQ(outcome.out, kList);
  EXPECT_THAT(outcome.err, HasSubstr("dates.txt: "));
  EXPECT_THAT(outcome.err, HasSubstr("permission denied"));
  ExpectUntouched(before);
}

TEST_F(UpdateOption, OfAWriteProtectedFileThatNeedsNoChangeIsFine) {
  folder_.Write("dates.txt", "12.24,A,7,yearly\n12.25,B,7,yearly\n");
  terminal_.BecomeOrdinaryUser();
  folder_.SetPermissions("dates.txt", 0400);
  EXPECT_EQ(Update(), (Outcome{0, kList, ""}));
}

TEST_F(UpdateOption, InAFolderThatTakesNoFilesWritesIntoTheFile) {
  folder_.Write("closed/dates.txt", kBefore);
  terminal_.BecomeOrdinaryUser();
  folder_.SetPermissions("closed", 0555);
  const ino_t identity = LookAt(folder_ / "closed/dates.txt").identity;
  EXPECT_EQ(Update("closed/dates.txt"), (Outcome{0, kList, ""}));
  EXPECT_EQ(folder_.Read("closed/dates.txt"), kAfter);
  EXPECT_EQ(LookAt(folder_ / "closed/dates.txt").identity, identity);
}

TEST_F(UpdateOption, UndoesWhatAnInterruptedSaveHasTornAndNothingElseDoes) {
  // Twenty bytes of the new content have been written.
  const std::string before = "12.24,A,7,yearly\r\n12.25,B,7,yearly\r\n";
  const std::string after = "12.25,B,7,yearly\r\n12.24,A,7,yearly\r\n";
  const std::string torn = after.substr(0, 20) + before.substr(20);
  folder_.Write("dates.txt", torn);
  folder_.Write(BeforePath(), before);
  folder_.Write(AfterPath(), after);
  EXPECT_EQ(terminal_.RunOnTheDay("list", {"--file", "dates.txt"}).exitCode, 0);
  EXPECT_EQ(folder_.Read("dates.txt"), torn);
  EXPECT_TRUE(folder_.Exists(AfterPath()));
  EXPECT_EQ(Update(), (Outcome{0, kList, ""}));
  EXPECT_EQ(folder_.Read("dates.txt"), before);
  EXPECT_FALSE(folder_.Exists(BeforePath()));
  EXPECT_FALSE(folder_.Exists(AfterPath()));
}

TEST_F(UpdateOption, TellsOfAFileThatHasBeenChangedSinceItsSaveWasInterrupted) {
  folder_.Write("dates.txt", kAfter);
  folder_.Write(BeforePath(), "12.24,A,7,yearly\r\n");
  folder_.Write(AfterPath(), "");
  const Outcome outcome = Update();
  EXPECT_EQ(outcome.exitCode, 0);
  EXPECT_EQ(outcome.out, kList);
  EXPECT_THAT(outcome.err, HasSubstr("Saving the events file was interrupted, and the file has "
                                     "been changed since:\ndates.txt\n"));
  EXPECT_EQ(folder_.Read("dates.txt"), kAfter);
  EXPECT_EQ(folder_.Read("home/data/Tideward/dates.undamaged1.txt"), "12.24,A,7,yearly\r\n");
}

TEST_F(UpdateOption, WithoutRoomOnTheDiskLeavesTheOldFileWhole) {
  const FileState before = LookAt(folder_ / "dates.txt");
  for (const unsigned long largest : {0UL, 1UL, 20UL, 60UL}) {
    SCOPED_TRACE(largest);
    terminal_.surroundings.largestFile = largest;
    const Outcome outcome = Update();
    EXPECT_EQ(outcome.exitCode, 4);
    EXPECT_THAT(outcome.err, HasSubstr("dates.txt: "));
    ExpectUntouched(before);
  }
}

TEST_F(UpdateOption, WithoutRoomInAFolderThatTakesNoFilesLeavesTheOldFileWhole) {
  folder_.Write("closed/dates.txt", kBefore);
  folder_.Write("closed/long.txt", "06.01,X,7,yearly*\n12.24,A,7,yearly\n12.25,B,7,yearly\n\n\n\n");
  terminal_.BecomeOrdinaryUser();
  folder_.SetPermissions("closed", 0555);
  // The new content is longer than the old one, by the carriage returns.
  const FileState before = LookAt(folder_ / "closed/long.txt");
  terminal_.surroundings.largestFile = static_cast<unsigned long>(before.size);
  EXPECT_EQ(Update("closed/long.txt").exitCode, 4);
  EXPECT_EQ(folder_.Read("closed/long.txt"), before.content);
}

// A killed process leaves its temporary file behind; the next one takes no harm from it.
TEST_F(UpdateOption, IsNotHinderedByALeftOver) {
  folder_.Write(".dates.txt.new", "half of somethi");
  EXPECT_EQ(Update(), (Outcome{0, kList, ""}));
  EXPECT_EQ(folder_.Read("dates.txt"), kAfter);
  EXPECT_FALSE(folder_.Exists(".dates.txt.new"));
}

TEST_F(UpdateOption, DoesNotFollowALinkInPlaceOfItsTemporaryFile) {
  folder_.Write("victim.txt", "keep me");
  std::filesystem::create_symlink("victim.txt", folder_ / ".dates.txt.new");
  EXPECT_EQ(Update(), (Outcome{0, kList, ""}));
  EXPECT_EQ(folder_.Read("victim.txt"), "keep me");
  EXPECT_EQ(folder_.Read("dates.txt"), kAfter);
}

TEST_F(UpdateOption, WorksWithALongName) {
  const std::string name = std::string(250, 'n') + ".txt";
  folder_.Write(name, kBefore);
  EXPECT_EQ(Update(name), (Outcome{0, kList, ""}));
  EXPECT_EQ(folder_.Read(name), kAfter);
}

TEST_F(UpdateOption, OfAFileWithOneMoreNameLeavesTheOtherNameItsContent) {
  std::filesystem::create_hard_link(folder_ / "dates.txt", folder_ / "other.txt");
  EXPECT_EQ(Update(), (Outcome{0, kList, ""}));
  EXPECT_EQ(folder_.Read("dates.txt"), kAfter);
  const std::string other = folder_.Read("other.txt");
  EXPECT_TRUE(other == kBefore || other == kAfter);
}

}  // namespace
}  // namespace tidewarden::test
