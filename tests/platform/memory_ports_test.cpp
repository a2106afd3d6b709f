#include "platform/memory/memory_ports.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/memory/settings_in_memory.h"

namespace tidewarden {
namespace {

using ::testing::ElementsAre;

TEST(MemoryFileSystem, ReadsInPiecesUntilTheTakerHasEnough) {
  MemoryFileSystem files;
  files.files["a"] = "abcdefg";
  files.piece = 3;
  std::vector<std::string> pieces;
  EXPECT_TRUE(files
                  .Read("a",
                        [&](std::string_view piece) {
                          pieces.emplace_back(piece);
                          return true;
                        })
                  .ok());
  EXPECT_THAT(pieces, ElementsAre("abc", "def", "g"));
  pieces.clear();
  EXPECT_TRUE(files
                  .Read("a",
                        [&](std::string_view piece) {
                          pieces.emplace_back(piece);
                          return false;
                        })
                  .ok());
  EXPECT_THAT(pieces, ElementsAre("abc"));
}

TEST(MemoryFileSystem, ContentIsSeenAfterTheCommitOnly) {
  MemoryFileSystem files;
  files.files["a"] = "old";
  std::unique_ptr<StagedFile> staged;
  EXPECT_TRUE(files.Stage("a", "new", staged).ok());
  EXPECT_EQ(files.files["a"], "old");
  staged.reset();
  EXPECT_EQ(files.files["a"], "old");
  EXPECT_TRUE(files.Stage("a", "new", staged).ok());
  EXPECT_TRUE(staged->Commit().ok());
  EXPECT_EQ(files.files["a"], "new");
}

TEST(MemoryFileSystem, NamesAreGivenAndTakenAway) {
  MemoryFileSystem files;
  files.files["a"] = "one";
  EXPECT_TRUE(files.Link("a", "b").ok());
  FileStamp a;
  FileStamp b;
  EXPECT_TRUE(files.GetStamp("a", a).ok() && files.GetStamp("b", b).ok());
  EXPECT_EQ(a, b);
  EXPECT_FALSE(files.Link("a", "b").ok());
  EXPECT_EQ(files.Link("x", "y").kind(), StatusKind::kNotFound);
  EXPECT_TRUE(ReplaceFile(files, "a", "two").ok());
  EXPECT_EQ(files.files["b"], "one");
  EXPECT_TRUE(files.Rename("a", "b").ok());
  EXPECT_EQ(files.files["b"], "two");
  EXPECT_EQ(files.Rename("a", "b").kind(), StatusKind::kNotFound);
  EXPECT_TRUE(files.Remove("b").ok());
  EXPECT_TRUE(files.Remove("b").ok());
  EXPECT_TRUE(files.files.empty());
}

TEST(MemoryFileSystem, AFileWrittenInPlaceChangesUnderAllItsNames) {
  MemoryFileSystem files;
  files.files["a"] = "one";
  EXPECT_TRUE(files.Link("a", "b").ok());
  files.writesInPlace = true;
  std::unique_ptr<StagedFile> staged;
  EXPECT_TRUE(files.Stage("a", "two", staged).ok());
  EXPECT_FALSE(staged->ReplacesAtOnce());
  EXPECT_TRUE(staged->Commit().ok());
  EXPECT_EQ(files.files["b"], "two");
}

TEST(MemoryFileSystem, AStampChangesWithEveryCommit) {
  MemoryFileSystem files;
  FileStamp first;
  EXPECT_EQ(files.GetStamp("a", first).kind(), StatusKind::kNotFound);
  EXPECT_TRUE(ReplaceFile(files, "a", "1").ok());
  EXPECT_TRUE(files.GetStamp("a", first).ok());
  FileStamp second;
  EXPECT_TRUE(files.GetStamp("a", second).ok());
  EXPECT_EQ(first, second);
  EXPECT_TRUE(ReplaceFile(files, "a", "2").ok());
  EXPECT_TRUE(files.GetStamp("a", second).ok());
  EXPECT_FALSE(first == second);
}

TEST(MemoryFileSystem, FailsAsItIsTold) {
  MemoryFileSystem files;
  files.files["a"] = "old";
  std::string content;
  EXPECT_EQ(ReadFile(files, "b", content).kind(), StatusKind::kNotFound);
  files.failures["a"] = StatusKind::kInputOutput;
  EXPECT_EQ(ReadFile(files, "a", content).kind(), StatusKind::kInputOutput);
  std::unique_ptr<StagedFile> staged;
  EXPECT_EQ(files.Stage("a", "new", staged).kind(), StatusKind::kInputOutput);
  files.failures.clear();
  files.writeFailures["a"] = StatusKind::kNoSpace;
  EXPECT_TRUE(ReadFile(files, "a", content).ok());
  EXPECT_EQ(files.Stage("a", "new", staged).kind(), StatusKind::kNoSpace);
  EXPECT_EQ(files.CreateEmpty("a").kind(), StatusKind::kNoSpace);
  files.writeFailures.clear();
  files.commitFailures["a"] = StatusKind::kReadOnly;
  EXPECT_TRUE(files.Stage("a", "new", staged).ok());
  EXPECT_EQ(staged->Commit().kind(), StatusKind::kReadOnly);
  EXPECT_EQ(files.files["a"], "old");
  files.unwritableFolders = {"/opt"};
  EXPECT_FALSE(files.CanCreateIn("/opt"));
  EXPECT_TRUE(files.CanCreateIn("/home"));
}

TEST(MemoryFileSystem, CreatingKeepsWhatIsThere) {
  MemoryFileSystem files;
  files.files["a"] = "old";
  EXPECT_TRUE(files.CreateEmpty("a").ok());
  EXPECT_TRUE(files.CreateEmpty("b").ok());
  EXPECT_EQ(files.files["a"], "old");
  EXPECT_EQ(files.files["b"], "");
}

TEST(MemoryFileSystem, ListsTheNamesInAFolder) {
  MemoryFileSystem files;
  files.files = {{"/b", ""}, {"/opt/b/x", ""}, {"/opt/b/y", ""}, {"/opt/B", ""}, {"/optional", ""}};
  std::vector<std::string> names;
  EXPECT_TRUE(files.ListNames("/opt", names).ok());
  EXPECT_THAT(names, ElementsAre("B", "b"));
  EXPECT_TRUE(files.ListNames("/", names).ok());
  EXPECT_THAT(names, ElementsAre("b", "opt", "optional"));
  EXPECT_EQ(files.ListNames("/op", names).kind(), StatusKind::kNotFound);
  files.failures["/opt"] = StatusKind::kNoPermission;
  EXPECT_EQ(files.ListNames("/opt", names).kind(), StatusKind::kNoPermission);
  EXPECT_EQ(names.size(), 3);
  EXPECT_EQ(files.CountCalls("list"), 4);
}

TEST(MemoryFileSystem, RecordsItsCalls) {
  MemoryFileSystem files;
  std::string content;
  static_cast<void>(ReadFile(files, "a", content).ok());
  static_cast<void>(files.CreateEmpty("a").ok());
  static_cast<void>(ReplaceFile(files, "a", "x").ok());
  std::unique_ptr<FileLock> lock;
  EXPECT_TRUE(files.Lock("a", lock).ok());
  EXPECT_NE(lock, nullptr);
  EXPECT_THAT(files.calls,
              ElementsAre("read a", "create a", "read a", "stage a", "commit a", "lock a"));
  EXPECT_EQ(files.CountCalls("read"), 2);
  EXPECT_EQ(files.CountCalls("rea"), 0);
}

TEST(MemorySettingsStore, AddressesValuesWithoutRegardToCase) {
  MemorySettingsStore store;
  EXPECT_TRUE(store.Write("Edit", "Left", "1").ok());
  EXPECT_TRUE(store.Write("EDIT", "lEFT", "2").ok());
  EXPECT_EQ(store.entries.size(), 1);
  EXPECT_EQ(store.entries[0].name, "Left") << "the case of the first write stays";
  EXPECT_EQ(store.At("edit", "left"), "2");
  EXPECT_EQ(store.At("Edit", "Top"), "(missing)");
  std::string value = "before";
  EXPECT_TRUE(store.Read("Edit", "Top", value).ok());
  EXPECT_EQ(value, "");
  EXPECT_TRUE(store.Delete("edit", "LEFT").ok());
  EXPECT_TRUE(store.Delete("edit", "LEFT").ok());
  EXPECT_TRUE(store.entries.empty());
}

TEST(MemorySettingsStore, FailsAsItIsTold) {
  MemorySettingsStore store;
  store.entries = {{"Edit", "Left", "1"}};
  store.failure = StatusKind::kNoPermission;
  std::string value = "before";
  EXPECT_EQ(store.Read("Edit", "Left", value).kind(), StatusKind::kNoPermission);
  EXPECT_EQ(value, "before");
  EXPECT_EQ(store.Write("Edit", "Left", "2").kind(), StatusKind::kNoPermission);
  EXPECT_EQ(store.Delete("Edit", "Left").kind(), StatusKind::kNoPermission);
  EXPECT_EQ(store.At("Edit", "Left"), "1");
  EXPECT_EQ(store.writes, 0);
}

TEST(MemoryMessageBox, KeepsTheBoxesAndAnswersInOrder) {
  MemoryMessageBox box;
  box.answers = {MessageAnswer::kYes, MessageAnswer::kCancel};
  EXPECT_EQ(box.Show("1", MessageButtons::kYesNo, MessageIcon::kNone), MessageAnswer::kYes);
  EXPECT_EQ(box.Show("2", MessageButtons::kOkCancel, MessageIcon::kExclamation),
            MessageAnswer::kCancel);
  EXPECT_EQ(box.Show("3", MessageButtons::kOk, MessageIcon::kNone), MessageAnswer::kOk);
  ASSERT_EQ(box.boxes.size(), 3);
  EXPECT_EQ(box.boxes[1].text, "2");
  EXPECT_EQ(box.boxes[1].buttons, MessageButtons::kOkCancel);
  EXPECT_EQ(box.boxes[1].icon, MessageIcon::kExclamation);
}

TEST(MemoryMessageBox, KeepsTheTextsAndAnswersAsTold) {
  MemoryMessageBox messages;
  messages.answer = MessageAnswer::kNo;
  EXPECT_EQ(messages.Show("one", MessageButtons::kYesNo, MessageIcon::kNone), MessageAnswer::kNo);
  EXPECT_EQ(messages.Show("two", MessageButtons::kOk, MessageIcon::kExclamation),
            MessageAnswer::kNo);
  EXPECT_THAT(messages.shown, ElementsAre("one", "two"));
}

TEST(MemoryClock, StandsStill) {
  MemoryClock clock;
  clock.now = {MakeDate(2015, 1, 2), 3, 4, 5};
  EXPECT_EQ(clock.Now().date, MakeDate(2015, 1, 2));
  EXPECT_EQ(clock.Now().FourDigit(), 304);
}

TEST(MemoryShiftKey, IsUpUntilToldOtherwise) {
  MemoryShiftKey key;
  EXPECT_FALSE(key.IsDown());
  key.down = true;
  EXPECT_TRUE(key.IsDown());
}

TEST(SettingsInMemory, ReadThroughAndNeverWriteTheOtherStore) {
  MemorySettingsStore other;
  ASSERT_TRUE(other.Write("Settings", "Path", "/a").ok());
  ASSERT_TRUE(other.Write("Customizer", "JustExited", "True").ok());
  SettingsInMemory settings(other);
  const auto read = [&settings](const char* section, const char* name) {
    std::string value = "untouched";
    EXPECT_TRUE(settings.Read(section, name, value).ok());
    return value;
  };
  EXPECT_EQ(read("Settings", "Path"), "/a");
  EXPECT_EQ(read("Settings", "Left"), "");
  const int writes = other.writes;
  EXPECT_TRUE(settings.Write("Settings", "PATH", "/b").ok());
  EXPECT_TRUE(settings.Write("Settings", "Left", "15").ok());
  EXPECT_TRUE(settings.Delete("Customizer", "JustExited").ok());
  EXPECT_EQ(read("Settings", "Path"), "/b");
  EXPECT_EQ(read("Settings", "Left"), "15");
  EXPECT_EQ(read("Customizer", "JustExited"), "");
  EXPECT_EQ(other.writes, writes);
  EXPECT_EQ(other.At("Settings", "Path"), "/a");
  EXPECT_EQ(other.At("Settings", "Left"), "(missing)");
  EXPECT_EQ(other.At("Customizer", "JustExited"), "True");

  other.failure = StatusKind::kNoPermission;
  std::string value;
  EXPECT_EQ(settings.Read("Settings", "Top", value).kind(), StatusKind::kNoPermission);
}

}  // namespace
}  // namespace tidewarden
