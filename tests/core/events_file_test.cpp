#include "core/events_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/event_line.h"
#include "dates/text.h"
#include "platform/memory/memory_ports.h"
#include "tests/support/layouts.h"

namespace tidewarden {
namespace {

using namespace std::string_literals;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Pair;

constexpr const char* kPath = "dates.txt";
constexpr const char* kDataFolder = "data";

class Collector : public EventLineVisitor {
 public:
  std::vector<std::pair<std::string, std::string>> lines;  // raw, and as UTF-8
  std::vector<long> numbers;
  int starts = 0;

  void Start() override {
    ++starts;
    lines.clear();
    numbers.clear();
  }
  void Visit(long number, std::string_view rawLine, std::string_view text) override {
    EXPECT_GT(starts, 0);
    numbers.push_back(number);
    lines.emplace_back(rawLine, text);
  }

  [[nodiscard]] std::vector<std::string> Raw() const {
    std::vector<std::string> raw;
    for (const auto& line : lines) raw.push_back(line.first);
    return raw;
  }
  [[nodiscard]] std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (const auto& line : lines) texts.push_back(line.second);
    return texts;
  }
};

struct FileCase {
  std::string name;
  std::string bytes;
  std::vector<std::string> raw;
  std::vector<std::string> text;
};

const std::vector<FileCase>& FileCases() {
  static const std::vector<FileCase> cases{
      {"empty", "", {}, {}},
      {"only a byte-order mark", "\xEF\xBB\xBF", {}, {}},
      {"CR LF", "a\r\nb\r\n", {"a", "b"}, {"a", "b"}},
      {"LF", "a\nb\n", {"a", "b"}, {"a", "b"}},
      {"CR", "a\rb\r", {"a", "b"}, {"a", "b"}},
      {"no last end", "a\r\nb", {"a", "b"}, {"a", "b"}},
      {"blank lines count", "\r\n\na\r\n\r\n", {"", "", "a", ""}, {"", "", "a", ""}},
      {"UTF-8", "N\xC3\xB6l\r\na\r\n", {"N\xC3\xB6l", "a"}, {"N\xC3\xB6l", "a"}},
      {"UTF-8 with a mark",
       "\xEF\xBB\xBFN\xC3\xB6l\r\na\r\n",
       {"N\xC3\xB6l", "a"},
       {"N\xC3\xB6l", "a"}},
      {"a mark and a blank line", "\xEF\xBB\xBF\r\na", {"", "a"}, {"", "a"}},
      {"a mark further down is text",
       "a\r\n\xEF\xBB\xBF"
       "b\r\n",
       {"a",
        "\xEF\xBB\xBF"
        "b"},
       {"a",
        "\xEF\xBB\xBF"
        "b"}},
      {"Windows-1252",
       "a\r\nN\xF6l \x80\x81\r\n",
       {"a", "N\xF6l \x80\x81"},
       {"a", "N\xC3\xB6l \xE2\x82\xAC\xC2\x81"}},
      // One byte anywhere decides for the whole file.
      {"a late stray byte",
       "N\xC3\xB6l\r\na\r\n\xFF",
       {"N\xC3\xB6l", "a", "\xFF"},
       {"N\xC3\x83\xC2\xB6l", "a", "\xC3\xBF"}},
      {"a mark and a stray byte",
       "\xEF\xBB\xBF"
       "a\r\nN\xE9o\r\n",
       {"a", "N\xE9o"},
       {"a", "N\xC3\xA9o"}},
      {"a mark and a stray byte in its line",
       "\xEF\xBB\xBFN\xE9o\r\n\xEF\xBB\xBF",
       {"N\xE9o", "\xEF\xBB\xBF"},
       {"N\xC3\xA9o", "\xC3\xAF\xC2\xBB\xC2\xBF"}},
      {"two marks and a stray byte",
       "\xEF\xBB\xBF\xEF\xBB\xBF\xE9\n",
       {"\xEF\xBB\xBF\xE9"},
       {"\xC3\xAF\xC2\xBB\xC2\xBF\xC3\xA9"}},
      {"a mark of UTF-16 behind the mark is text",
       "\xEF\xBB\xBF\xFF\xFE\0\n"s,
       {"\xFF\xFE\0"s},
       {"\xC3\xBF\xC3\xBE\0"s}},
      {"NUL is text", "a\0b\r\n"s, {"a\0b"s}, {"a\0b"s}},
  };
  return cases;
}

TEST(ReadEventLines, VisitsEveryLineInOrderInPiecesOfAnySize) {
  for (const FileCase& c : FileCases()) {
    for (std::size_t piece = 0; piece <= c.bytes.size() + 1; ++piece) {
      SCOPED_TRACE(c.name + " in pieces of " + std::to_string(piece));
      MemoryFileSystem files;
      files.files[kPath] = c.bytes;
      files.piece = piece;
      Collector seen;
      ASSERT_TRUE(ReadEventLines(files, kPath, seen).ok());
      EXPECT_EQ(seen.Raw(), c.raw);
      EXPECT_EQ(seen.Texts(), c.text);
      for (std::size_t i = 0; i < seen.numbers.size(); ++i) {
        EXPECT_EQ(seen.numbers[i], static_cast<long>(i));
      }
    }
  }
}

TEST(ReadEventLines, AnEmptyFileStillStarts) {
  MemoryFileSystem files;
  files.files[kPath] = "";
  Collector seen;
  EXPECT_TRUE(ReadEventLines(files, kPath, seen).ok());
  EXPECT_EQ(seen.starts, 1);
}

TEST(ReadEventLines, AStrayByteBehindMegabytesOfUtf8ChangesTheReadingOfAll) {
  std::string bytes;
  for (int i = 0; i < 50'000; ++i) bytes += "12.25,N\xC3\xB6\xC3\xABl,14,yearly\r\n";
  MemoryFileSystem files;
  files.files[kPath] = bytes + "\xE9";
  files.piece = 65536;
  Collector seen;
  ASSERT_TRUE(ReadEventLines(files, kPath, seen).ok());
  ASSERT_EQ(seen.lines.size(), 50'001);
  EXPECT_EQ(seen.lines.front().second, "12.25,N\xC3\x83\xC2\xB6\xC3\x83\xC2\xABl,14,yearly");
  EXPECT_EQ(seen.lines.back().second, "\xC3\xA9");
  EXPECT_EQ(seen.numbers.back(), 50'000);
}

TEST(ReadEventLines, TellsWhyThereAreNoLines) {
  MemoryFileSystem files;
  Collector seen;
  EXPECT_EQ(ReadEventLines(files, kPath, seen).kind(), StatusKind::kNotFound);
  files.files[kPath] = "12.25,Christmas,14,yearly\r\n";
  for (const StatusKind kind : {StatusKind::kNoPermission, StatusKind::kIsFolder,
                                StatusKind::kNotAFile, StatusKind::kInputOutput}) {
    files.failures[kPath] = kind;
    EXPECT_EQ(ReadEventLines(files, kPath, seen).kind(), kind);
  }
}

// Every byte value in place of, and before, every byte of a file: what is not asked to change stays
// as it is.
TEST(RewriteEventsFile, KeepsEveryByteOfTheOtherLines) {
  const std::string base = "12.25,A,1,yearly\r\n01.01,B,2,yearly\r\n";
  for (std::size_t at = 0; at <= base.size(); ++at) {
    for (int byte = 0; byte < 256; ++byte) {
      std::string bytes = base;
      bytes.insert(at, 1, static_cast<char>(byte));
      MemoryFileSystem files;
      files.files[kPath] = bytes;
      const Status status = RewriteEventsFile(
          files, kPath, kDataFolder, [](std::size_t /*number*/, std::string_view line) {
            return line.find("B") != std::string_view::npos ? LineChange::kRemove
                                                            : LineChange::kKeep;
          });
      ASSERT_TRUE(status.ok()) << at << ' ' << byte;
      // Of the lines without a B every byte is left, in order; line ends may be written anew.
      std::string kept;
      std::string line;
      const auto finish = [&] {
        if (line.find('B') == std::string::npos) kept += line;
        line.clear();
      };
      for (const char c : bytes) {
        if (c == '\r' || c == '\n') {
          finish();
        } else {
          line += c;
        }
      }
      finish();
      std::string left = files.files[kPath];
      std::erase_if(left, [](char c) { return c == '\r' || c == '\n'; });
      ASSERT_EQ(left, kept) << at << ' ' << byte;
    }
  }
}

std::string Utf16(std::string_view ascii, bool bigEndian, bool marked = true) {
  std::string out;
  if (marked) out = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
  for (const char c : ascii) {
    if (bigEndian) out.push_back('\0');
    out.push_back(c);
    if (!bigEndian) out.push_back('\0');
  }
  return out;
}

TEST(Utf16, WithoutAMarkIsNotReadEither) {
  for (const bool bigEndian : {false, true}) {
    MemoryFileSystem files;
    files.files[kPath] = Utf16("12.25,Christmas,14,yearly\r\n", bigEndian, false);
    for (const std::size_t piece : {0U, 1U, 3U}) {
      files.piece = piece;
      Collector seen;
      EXPECT_EQ(ReadEventLines(files, kPath, seen).kind(), StatusKind::kNotText) << piece;
    }
  }
}

TEST(Utf16, IsNeitherReadNorRewritten) {
  for (const bool bigEndian : {false, true}) {
    for (const std::string ascii : {"12.25,Christmas,14,yearly", "12.25,Christmas,14,yearly\r\n",
                                    "12.25,Christmas,14,yearly\r\n12.26,Boxing Day,14,yearly\r\n",
                                    "\r\n", "\r\n12.25,Christmas,14,yearly\r\n"}) {
      const std::string bytes = Utf16(ascii, bigEndian);
      for (const std::size_t piece : {0U, 1U, 2U, 3U, 16U}) {
        SCOPED_TRACE(testing::PrintToString(bytes) + " by " + std::to_string(piece));
        MemoryFileSystem files;
        files.files[kPath] = bytes;
        files.piece = piece;
        Collector seen;
        EXPECT_EQ(ReadEventLines(files, kPath, seen).kind(), StatusKind::kNotText);
        int asked = 0;
        EXPECT_EQ(RewriteEventsFile(files, kPath, kDataFolder,
                                    [&](std::size_t /*number*/, std::string_view /*line*/) {
                                      ++asked;
                                      return LineChange::kRemove;
                                    })
                      .kind(),
                  StatusKind::kNotText);
        EXPECT_EQ(asked, 0);
        EXPECT_EQ(files.files[kPath], bytes);
        EXPECT_EQ(files.CountCalls("stage"), 0);
      }
    }
  }
}

TEST(ReadEventLines, TheSameEventsInEveryLineEnd) {
  const std::vector<std::string> lines{"12.25,Christmas,14,yearly*", "hello", "",
                                       "xx.15,Rent,3,monthly"};
  for (const std::string end : {"\r\n", "\n", "\r"}) {
    MemoryFileSystem files;
    for (const std::string& line : lines) files.files[kPath] += line + end;
    Collector seen;
    ASSERT_TRUE(ReadEventLines(files, kPath, seen).ok());
    EXPECT_EQ(seen.Texts(), lines);
    const auto event = ParseEventLine(seen.lines[0].second, test::MonthFirst(), 2014);
    ASSERT_TRUE(event.has_value());
    EXPECT_TRUE(event->EventHidden);
    EXPECT_EQ(event->EventOccurs, "yearly");
  }
}

// ---- Rewriting.

// Removes lines that begin with "-" and takes the "*" from those that end in one.
LineChange Change(std::size_t /*number*/, std::string_view line) {
  if (line.starts_with('-')) return LineChange::kRemove;
  return line.ends_with('*') ? LineChange::kDropLastCharacter : LineChange::kKeep;
}

struct RewriteCase {
  std::string name;
  std::string before;
  std::string after;
};

TEST(RewriteEventsFile, ChangesOnlyTheLinesItIsToldTo) {
  const std::vector<RewriteCase> cases{
      {"removed", "a\r\n-b\r\nc\r\n", "a\r\nc\r\n"},
      {"shown again", "a\r\nb*\r\nc\r\n", "a\r\nb\r\nc\r\n"},
      {"both", "-a\r\nb*\r\n-c\r\n", "b\r\n"},
      {"all removed", "-a\r\n-b\r\n", ""},
      {"only one star goes", "a**\r\n", "a*\r\n"},
      {"rejected and blank lines stay", "hello\r\n\r\n,,,,\r\n-a\r\n  \r\n",
       "hello\r\n\r\n,,,,\r\n  \r\n"},
      {"blanks and tabs stay", " a \t\r\n-b\r\n", " a \t\r\n"},
      {"LF becomes CR LF", "a\n-b\nc\n", "a\r\nc\r\n"},
      {"CR becomes CR LF", "a\r-b\rc\r", "a\r\nc\r\n"},
      {"mixed ends", "a\n-b\r\nc\r\rd*", "a\r\nc\r\n\r\nd\r\n"},
      {"no last end", "-a\r\nb", "b\r\n"},
      {"mark stays",
       "\xEF\xBB\xBF"
       "a\r\n-b\r\n",
       "\xEF\xBB\xBF"
       "a\r\n"},
      {"mark stays when its line goes", "\xEF\xBB\xBF-a\r\nb\r\n",
       "\xEF\xBB\xBF"
       "b\r\n"},
      {"mark stays when everything goes", "\xEF\xBB\xBF-a\r\n", "\xEF\xBB\xBF"},
      {"mark stays in Windows-1252",
       "\xEF\xBB\xBF"
       "a*\r\nN\xE9o\r\n-b\r\n",
       "\xEF\xBB\xBF"
       "a\r\nN\xE9o\r\n"},
      {"mark stays in Windows-1252 when its line goes", "\xEF\xBB\xBF-a\r\nN\xE9o\r\n",
       "\xEF\xBB\xBFN\xE9o\r\n"},
      {"UTF-8 stays", "N\xC3\xB6l\r\n-b\r\n", "N\xC3\xB6l\r\n"},
      {"Windows-1252 stays", "N\xF6l \x81\x8D\x8F\x90\x9D\x80\r\n-b\r\nc*\r\n",
       "N\xF6l \x81\x8D\x8F\x90\x9D\x80\r\nc\r\n"},
      {"mixed encodings stay", "N\xC3\xB6l\r\nN\xF6l\r\n-b\r\n", "N\xC3\xB6l\r\nN\xF6l\r\n"},
      {"NUL stays", "a\0b\r\n-c\r\n"s, "a\0b\r\n"s},
  };
  for (const RewriteCase& c : cases) {
    SCOPED_TRACE(c.name);
    MemoryFileSystem files;
    files.files[kPath] = c.before;
    EXPECT_TRUE(RewriteEventsFile(files, kPath, kDataFolder, Change).ok());
    EXPECT_EQ(files.files[kPath], c.after);
    EXPECT_EQ(files.CountCalls("stage"), 1);
    EXPECT_TRUE(RewriteEventsFile(files, kPath, kDataFolder, [](auto, auto) {
                  return LineChange::kKeep;
                }).ok());
    EXPECT_EQ(files.CountCalls("stage"), 1);
  }
}

TEST(RewriteEventsFile, AppendsTheHiddenMarkToTheLinesItIsToldTo) {
  const std::vector<RewriteCase> cases{
      {"in the middle", "a\r\n-b\r\nc\r\n", "a\r\n-b*\r\nc\r\n"},
      {"the first", "-a\r\nb\r\n", "-a*\r\nb\r\n"},
      {"the last, without an end", "a\n-b", "a\r\n-b*\r\n"},
      {"several", "-a\n-b\n", "-a*\r\n-b*\r\n"},
      {"behind blanks", "-a \r\n", "-a *\r\n"},
      {"a second one, when asked to", "-a*\r\n", "-a**\r\n"},
      {"before a lone CR", "-a\rb\r", "-a*\r\nb\r\n"},
      {"behind a byte-order mark", "\xEF\xBB\xBF-a\r\n", "\xEF\xBB\xBF-a*\r\n"},
      {"in Windows-1252", "-N\xF6l\r\n", "-N\xF6l*\r\n"},
      {"in UTF-8", "-N\xC3\xB6l\r\n", "-N\xC3\xB6l*\r\n"},
  };
  for (const RewriteCase& c : cases) {
    SCOPED_TRACE(c.name);
    MemoryFileSystem files;
    files.files[kPath] = c.before;
    EXPECT_TRUE(RewriteEventsFile(files, kPath, kDataFolder, [](auto, std::string_view line) {
                  return line.starts_with('-') ? LineChange::kAppendHiddenMark : LineChange::kKeep;
                }).ok());
    EXPECT_EQ(files.files[kPath], c.after);
    EXPECT_EQ(files.CountCalls("stage"), 1);
  }
}

TEST(RewriteEventsFile, ABlankLineCanBeMarkedToo) {
  MemoryFileSystem files;
  files.files[kPath] = "\r\na\r\n";
  EXPECT_TRUE(RewriteEventsFile(files, kPath, kDataFolder, [](std::size_t number, auto) {
                return number == 0 ? LineChange::kAppendHiddenMark : LineChange::kKeep;
              }).ok());
  EXPECT_EQ(files.files[kPath], "*\r\na\r\n");
}

TEST(RewriteEventsFile, WritesNothingWhenNoLineChanges) {
  for (const std::string bytes : {"", "a", "a\n", "a\r\nb\r\n", "a\rb\n\n",
                                  "\xEF\xBB\xBF"
                                  "a\r\n",
                                  "\xEF\xBB\xBF", "N\xF6l\n", "\xEF\xBB\xBFN\xF6l\n"}) {
    SCOPED_TRACE(testing::PrintToString(bytes));
    MemoryFileSystem files;
    files.files[kPath] = bytes;
    EXPECT_TRUE(RewriteEventsFile(files, kPath, kDataFolder, Change).ok());
    EXPECT_EQ(files.files[kPath], bytes);
    EXPECT_EQ(files.CountCalls("stage"), 0);
  }
}

TEST(RewriteEventsFile, AsksForEveryRawLineInOrder) {
  MemoryFileSystem files;
  files.files[kPath] =
      "\xEF\xBB\xBF"
      "a\r\n\nN\xC3\xB6l\rb";
  std::vector<std::pair<std::size_t, std::string>> asked;
  EXPECT_TRUE(
      RewriteEventsFile(files, kPath, kDataFolder, [&](std::size_t number, std::string_view line) {
        asked.emplace_back(number, line);
        return LineChange::kKeep;
      }).ok());
  EXPECT_THAT(asked, ElementsAre(Pair(0, "a"), Pair(1, ""), Pair(2, "N\xC3\xB6l"), Pair(3, "b")));
}

TEST(VisitEventLines, GivesTheLinesOfBytesThatHaveBeenRead) {
  for (const FileCase& c : FileCases()) {
    SCOPED_TRACE(c.name);
    Collector seen;
    ASSERT_TRUE(VisitEventLines(c.bytes, seen).ok());
    EXPECT_EQ(seen.Raw(), c.raw);
    EXPECT_EQ(seen.Texts(), c.text);
  }
  Collector none;
  EXPECT_EQ(VisitEventLines("\xFF\xFE\x31\x00"s, none).kind(), StatusKind::kNotText);
}

TEST(RewriteEventsFile, AgreesWithReadingOnTheNumbersOfTheLines) {
  for (const FileCase& c : FileCases()) {
    SCOPED_TRACE(c.name);
    MemoryFileSystem files;
    files.files[kPath] = c.bytes;
    std::vector<std::string> asked;
    EXPECT_TRUE(RewriteEventsFile(files, kPath, kDataFolder,
                                  [&](std::size_t number, std::string_view line) {
                                    EXPECT_EQ(number, asked.size());
                                    asked.emplace_back(line);
                                    return LineChange::kKeep;
                                  })
                    .ok());
    EXPECT_EQ(asked, c.raw);
  }
}

TEST(RewriteEventsFile, ReadsTheFileAfresh) {
  MemoryFileSystem files;
  files.files[kPath] = "a\r\n-b\r\n";
  Collector seen;
  EXPECT_TRUE(ReadEventLines(files, kPath, seen).ok());
  files.files[kPath] = "x\r\n-b\r\ny\r\n";
  EXPECT_TRUE(RewriteEventsFile(files, kPath, kDataFolder, Change).ok());
  EXPECT_EQ(files.files[kPath], "x\r\ny\r\n");
}

TEST(RewriteEventsFile, AFileThatCannotBeReadIsNotWritten) {
  for (const StatusKind kind : {StatusKind::kNoPermission, StatusKind::kIsFolder,
                                StatusKind::kNotAFile, StatusKind::kInputOutput}) {
    MemoryFileSystem files;
    files.files[kPath] = "-a\r\nb\r\n";
    files.failures[kPath] = kind;
    EXPECT_EQ(RewriteEventsFile(files, kPath, kDataFolder, Change).kind(), kind);
    EXPECT_EQ(files.files[kPath], "-a\r\nb\r\n");
    EXPECT_EQ(files.CountCalls("stage"), 0);
  }
  MemoryFileSystem files;
  EXPECT_EQ(RewriteEventsFile(files, kPath, kDataFolder, Change).kind(), StatusKind::kNotFound);
  EXPECT_THAT(files.files, IsEmpty());
}

TEST(RewriteEventsFile, AReadThatBreaksHalfWayIsNotFollowedByAWrite) {
  class BrokenFile : public MemoryFileSystem {
   public:
    Status Read(const std::string& path, const TakeBytes& take) override {
      static_cast<void>(take(std::string_view(files[path]).substr(0, 4)));
      return Status(StatusKind::kInputOutput);
    }
  };
  BrokenFile files;
  files.files[kPath] = "-a\r\nb\r\n";
  EXPECT_EQ(RewriteEventsFile(files, kPath, kDataFolder, Change).kind(), StatusKind::kInputOutput);
  EXPECT_EQ(files.files[kPath], "-a\r\nb\r\n");
  EXPECT_EQ(files.CountCalls("stage"), 0);
}

TEST(RewriteEventsFile, AFailedWriteLeavesTheOldBytes) {
  MemoryFileSystem files;
  files.files[kPath] = "-a\r\nb\r\n";
  files.writeFailures[kPath] = StatusKind::kNoSpace;
  EXPECT_EQ(RewriteEventsFile(files, kPath, kDataFolder, Change).kind(), StatusKind::kNoSpace);
  EXPECT_EQ(files.files[kPath], "-a\r\nb\r\n");
  files.writeFailures.clear();
  files.commitFailures[kPath] = StatusKind::kReadOnly;
  EXPECT_EQ(RewriteEventsFile(files, kPath, kDataFolder, Change).kind(), StatusKind::kReadOnly);
  EXPECT_EQ(files.files[kPath], "-a\r\nb\r\n");
}

// ---- Another program writes the file while a change waits for the disk.

// Writes `contents`, one at each staging; nothing is a file that goes.
void WriteMeanwhile(MemoryFileSystem& files, std::vector<std::optional<std::string>> contents) {
  files.onStaged = [&files, contents = std::move(contents),
                    next = std::size_t{0}](const std::string& path) mutable {
    if (path != kPath || next == contents.size()) return;
    const std::optional<std::string>& content = contents[next++];
    if (content) {
      files.files[kPath] = *content;
    } else {
      files.files.erase(kPath);
    }
  };
}

TEST(RewriteEventsFile, WhatIsWrittenMeanwhileIsKeptAndGetsTheChange) {
  for (const bool inPlace : {false, true}) {
    SCOPED_TRACE(inPlace);
    MemoryFileSystem files;
    files.writesInPlace = inPlace;
    files.files[kPath] = "a\r\n-b\r\n";
    WriteMeanwhile(files, {"x\r\na\r\n-b\r\n", "x\ny\n-b\n-c\n"});
    std::vector<std::string> looks;
    EXPECT_TRUE(RewriteEventsFile(files, kPath, kDataFolder, Change, [&](std::string_view content) {
                  looks.emplace_back(content);
                }).ok());
    EXPECT_THAT(files.files, ElementsAre(Pair(kPath, "x\r\ny\r\n")));
    EXPECT_THAT(looks, ElementsAre("a\r\n-b\r\n", "x\r\na\r\n-b\r\n", "x\ny\n-b\n-c\n"));
  }
}

TEST(RewriteEventsFile, AFileThatIsChangedEachTimeIsLeftToTheOtherProgram) {
  for (const bool inPlace : {false, true}) {
    SCOPED_TRACE(inPlace);
    MemoryFileSystem files;
    files.writesInPlace = inPlace;
    files.files[kPath] = "-a\n";
    WriteMeanwhile(files, {"-a\n1\n", "-a\n2\n", "-a\n3\n", "-a\n4\n"});
    EXPECT_EQ(RewriteEventsFile(files, kPath, kDataFolder, Change).kind(), StatusKind::kBusy);
    EXPECT_THAT(files.files, ElementsAre(Pair(kPath, "-a\n3\n")));
    EXPECT_EQ(files.CountCalls("commit " + std::string(kPath)), 0);
  }
}

TEST(RewriteEventsFile, AFileThatGoesMeanwhileIsNotMadeAgain) {
  MemoryFileSystem files;
  files.files[kPath] = "-a\nb\n";
  WriteMeanwhile(files, {std::nullopt});
  EXPECT_EQ(RewriteEventsFile(files, kPath, kDataFolder, Change).kind(), StatusKind::kNotFound);
  EXPECT_THAT(files.files, IsEmpty());
}

TEST(RewriteEventsFile, AFileThatCannotBeReadMeanwhileIsNotReplaced) {
  MemoryFileSystem files;
  files.files[kPath] = "-a\nb\n";
  files.onStaged = [&](const std::string& path) {
    files.failures[path] = StatusKind::kInputOutput;
  };
  EXPECT_EQ(RewriteEventsFile(files, kPath, kDataFolder, Change).kind(), StatusKind::kInputOutput);
  EXPECT_THAT(files.files, ElementsAre(Pair(kPath, "-a\nb\n")));
}

TEST(RewriteEventsFile, ADiskThatIsBusyIsAskedOnce) {
  MemoryFileSystem files;
  files.files[kPath] = "-a\nb\n";
  files.writeFailures[kPath] = StatusKind::kBusy;
  EXPECT_EQ(RewriteEventsFile(files, kPath, kDataFolder, Change).kind(), StatusKind::kBusy);
  EXPECT_EQ(files.CountCalls("stage"), 1);
}

// ---- A missing file.

TEST(CreateNewEventsFile, TellsTheUserAndCreatesAnEmptyFile) {
  MemoryFileSystem files;
  MemoryMessageBox messages;
  EXPECT_TRUE(CreateNewEventsFile(files, messages, "/home/me/dates.txt").ok());
  EXPECT_THAT(messages.shown, ElementsAre("\"/home/me/dates.txt\" does not exist.\n\n"
                                          "Tidewarden will now start from scratch with a new "
                                          "/home/me/dates.txt file."));
  ASSERT_TRUE(files.files.contains("/home/me/dates.txt"));
  EXPECT_EQ(files.files["/home/me/dates.txt"], "");
}

TEST(CreateNewEventsFile, ShowsAPlainBoxWithOneButton) {
  class Recorder : public MessageBox {
   public:
    std::vector<std::pair<MessageButtons, MessageIcon>> shown;
    MessageAnswer Show(const std::string& /*text*/, MessageButtons buttons,
                       MessageIcon icon) override {
      shown.emplace_back(buttons, icon);
      return MessageAnswer::kOk;
    }
  };
  MemoryFileSystem files;
  Recorder messages;
  EXPECT_TRUE(CreateNewEventsFile(files, messages, kPath).ok());
  EXPECT_THAT(messages.shown, ElementsAre(Pair(MessageButtons::kOk, MessageIcon::kNone)));
  EXPECT_EQ(kMessageTitle, "Tidewarden");
}

TEST(CreateNewEventsFile, AFileThatHasAppearedMeanwhileKeepsItsContent) {
  MemoryFileSystem files;
  files.files[kPath] = "12.25,Christmas,14,yearly\r\n";
  MemoryMessageBox messages;
  EXPECT_TRUE(CreateNewEventsFile(files, messages, kPath).ok());
  EXPECT_EQ(files.files[kPath], "12.25,Christmas,14,yearly\r\n");
}

TEST(CreateNewEventsFile, AFailureIsReportedAndNothingMoreIsShown) {
  MemoryFileSystem files;
  files.writeFailures[kPath] = StatusKind::kReadOnly;
  MemoryMessageBox messages;
  EXPECT_EQ(CreateNewEventsFile(files, messages, kPath).kind(), StatusKind::kReadOnly);
  EXPECT_EQ(messages.shown.size(), 1);
  EXPECT_THAT(files.files, IsEmpty());
}

}  // namespace
}  // namespace tidewarden
