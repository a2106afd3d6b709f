// Finding, hiding and deleting an event of a file that may have changed.
#include "reminder/event_actions.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/memory/memory_ports.h"

namespace tidewarden {
namespace {

constexpr char kPath[] = "dates.txt";
constexpr char kDataFolder[] = "data";

struct ActionCase {
  std::string name;
  long line;
  std::string rawLine;
  std::string file;
  std::optional<long> found;
  std::string hidden;
  std::string deleted;

  [[nodiscard]] ListedEvent event() const { return {line, rawLine}; }
};

const std::vector<ActionCase>& Cases() {
  static const std::vector<ActionCase> cases{
      {"in its place", 1, "b", "a\r\nb\r\nc\r\n", 1, "a\r\nb*\r\nc\r\n", "a\r\nc\r\n"},
      {"the first", 0, "a", "a\r\nb\r\n", 0, "a*\r\nb\r\n", "b\r\n"},
      {"the last, without an end", 1, "b", "a\r\nb", 1, "a\r\nb*\r\n", "a\r\n"},
      {"the only one", 0, "a", "a\r\n", 0, "a*\r\n", ""},
      {"further down", 0, "b", "a\r\nb\r\n", 1, "a\r\nb*\r\n", "a\r\n"},
      {"further up", 9, "a", "a\r\nb\r\n", 0, "a*\r\nb\r\n", "b\r\n"},
      {"one of three equals, in its place", 2, "a", "a\r\nb\r\na\r\na\r\n", 2,
       "a\r\nb\r\na*\r\na\r\n", "a\r\nb\r\na\r\n"},
      {"two equals elsewhere", 1, "a", "a\r\nb\r\na\r\n", std::nullopt, "a\r\nb\r\na\r\n",
       "a\r\nb\r\na\r\n"},
      {"none", 0, "x", "a\r\nb\r\n", std::nullopt, "a\r\nb\r\n", "a\r\nb\r\n"},
      {"letter case counts", 0, "A", "a\r\n", std::nullopt, "a\r\n", "a\r\n"},
      {"blanks count", 0, "a", "a \r\n", std::nullopt, "a \r\n", "a \r\n"},
      {"a mark counts", 0, "a", "a*\r\n", std::nullopt, "a*\r\n", "a*\r\n"},
      {"marked already", 1, "b*", "a\nb*\n", 1, "a\nb*\n", "a\r\n"},
      {"other ends of lines", 1, "b", "a\nb\rc\n\n", 1, "a\r\nb*\r\nc\r\n\r\n", "a\r\nc\r\n\r\n"},
      {"Windows-1252", 1, "N\xF6l", "N\xF6\r\nN\xF6l\r\n", 1, "N\xF6\r\nN\xF6l*\r\n", "N\xF6\r\n"},
      {"a byte-order mark is no part of the line", 0, "a",
       "\xEF\xBB\xBF"
       "a\r\nb\r\n",
       0,
       "\xEF\xBB\xBF"
       "a*\r\nb\r\n",
       "\xEF\xBB\xBF"
       "b\r\n"},
      {"an empty file", 0, "a", "", std::nullopt, "", ""},
  };
  return cases;
}

TEST(EventActions, ActOnTheEventAndOnNothingElse) {
  for (const ActionCase& c : Cases()) {
    SCOPED_TRACE(c.name);
    MemoryFileSystem files;
    files.files[kPath] = c.file;
    EXPECT_EQ(FindEvent(files, kPath, c.event()), c.found);
    EXPECT_EQ(files.files[kPath], c.file);
    EXPECT_EQ(files.CountCalls("stage"), 0);

    EXPECT_TRUE(HideEvent(files, kPath, kDataFolder, c.event()).ok());
    EXPECT_EQ(files.files[kPath], c.hidden);
    EXPECT_EQ(files.CountCalls("stage"), c.hidden == c.file ? 0 : 1);

    files.files[kPath] = c.file;
    files.calls.clear();
    EXPECT_TRUE(DeleteEvent(files, kPath, kDataFolder, c.event()).ok());
    EXPECT_EQ(files.files[kPath], c.deleted);
    EXPECT_EQ(files.CountCalls("stage"), c.deleted == c.file ? 0 : 1);
  }
}

TEST(EventActions, TellWhyTheyCouldNot) {
  for (const StatusKind kind : {StatusKind::kNoPermission, StatusKind::kInputOutput}) {
    MemoryFileSystem files;
    files.files[kPath] = "a\r\n";
    files.failures[kPath] = kind;
    EXPECT_EQ(FindEvent(files, kPath, {0, "a"}), std::nullopt);
    EXPECT_EQ(HideEvent(files, kPath, kDataFolder, {0, "a"}).kind(), kind);
    EXPECT_EQ(DeleteEvent(files, kPath, kDataFolder, {0, "a"}).kind(), kind);
    EXPECT_EQ(files.CountCalls("stage"), 0);
  }
  MemoryFileSystem full;
  full.files[kPath] = "a\r\n";
  full.writeFailures[kPath] = StatusKind::kNoSpace;
  EXPECT_EQ(FindEvent(full, kPath, {0, "a"}), 0);
  EXPECT_EQ(HideEvent(full, kPath, kDataFolder, {0, "a"}).kind(), StatusKind::kNoSpace);
  EXPECT_EQ(DeleteEvent(full, kPath, kDataFolder, {0, "a"}).kind(), StatusKind::kNoSpace);
  EXPECT_EQ(full.files[kPath], "a\r\n");
}

TEST(EventActions, CreateNoFileThatIsMissing) {
  MemoryFileSystem files;
  EXPECT_EQ(FindEvent(files, kPath, {0, "a"}), std::nullopt);
  EXPECT_EQ(HideEvent(files, kPath, kDataFolder, {0, "a"}).kind(), StatusKind::kNotFound);
  EXPECT_EQ(DeleteEvent(files, kPath, kDataFolder, {0, "a"}).kind(), StatusKind::kNotFound);
  EXPECT_TRUE(files.files.empty());
}

// Another program writes the file while a change of the reminder's waits for the disk.
void WriteMeanwhile(MemoryFileSystem& files, std::vector<std::string> contents) {
  files.onStaged = [&files, contents = std::move(contents),
                    next = std::size_t{0}](const std::string& path) mutable {
    if (path == kPath && next < contents.size()) files.files[kPath] = contents[next++];
  };
}

TEST(EventActions, KeepWhatIsWrittenMeanwhile) {
  struct Case {
    std::string name;
    std::vector<std::string> meanwhile;
    std::string hidden;
    std::string deleted;
  };
  const std::vector<Case> cases{
      {"a line more", {"a\r\nb\r\nc\r\n"}, "a\r\nb*\r\nc\r\n", "a\r\nc\r\n"},
      {"a line above", {"x\r\na\r\nb\r\n"}, "x\r\na\r\nb*\r\n", "x\r\na\r\n"},
      {"twice", {"x\r\na\r\nb\r\n", "b\r\ny\r\n"}, "b*\r\ny\r\n", "y\r\n"},
      {"the event changes", {"a\r\nB\r\n"}, "a\r\nB\r\n", "a\r\nB\r\n"},
      {"the event goes", {"a\r\n"}, "a\r\n", "a\r\n"},
      {"two of them, elsewhere", {"b\r\na\r\nb\r\n"}, "b\r\na\r\nb\r\n", "b\r\na\r\nb\r\n"},
  };
  for (const Case& c : cases) {
    for (const bool hides : {true, false}) {
      SCOPED_TRACE(c.name);
      MemoryFileSystem files;
      files.files[kPath] = "a\r\nb\r\n";
      WriteMeanwhile(files, c.meanwhile);
      const ListedEvent event{1, "b"};
      EXPECT_TRUE((hides ? HideEvent(files, kPath, kDataFolder, event)
                         : DeleteEvent(files, kPath, kDataFolder, event))
                      .ok());
      EXPECT_EQ(files.files[kPath], hides ? c.hidden : c.deleted);
    }
  }
}

}  // namespace
}  // namespace tidewarden
