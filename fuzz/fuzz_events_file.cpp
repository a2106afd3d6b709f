// From the bytes of an events file to the reminder list and back: reading, walking the lines,
// checking, listing, tidying. First byte: the layout and the size of the pieces in which the file
// is read; second byte: today; the rest: the file.
#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "core/event_check.h"
#include "core/event_line.h"
#include "core/events_file.h"
#include "dates/text.h"
#include "fuzz/check.h"
#include "platform/memory/memory_ports.h"
#include "reminder/list_builder.h"

namespace tidewarden::fuzz {
namespace {

const std::string kPath = "dates.txt";

// The lines of a body, cut one byte after the other.
std::vector<std::string> LinesOf(std::string_view body) {
  std::vector<std::string> lines;
  std::string line;
  for (std::size_t i = 0; i < body.size(); ++i) {
    if (body[i] != '\r' && body[i] != '\n') {
      line.push_back(body[i]);
      continue;
    }
    if (body[i] == '\r' && i + 1 < body.size() && body[i + 1] == '\n') ++i;
    lines.push_back(line);
    line.clear();
  }
  if (!line.empty()) lines.push_back(line);
  return lines;
}

struct SeenLine {
  std::string raw;
  std::string text;
};

class Collector : public EventLineVisitor {
 public:
  std::vector<SeenLine> lines;

  void Start() override { lines.clear(); }
  void Visit(long number, std::string_view rawLine, std::string_view text) override {
    FUZZ_CHECK(number == static_cast<long>(lines.size()));
    lines.push_back({std::string(rawLine), std::string(text)});
  }
};

// What the file is made of, found the slow way.
struct Content {
  TextEncoding encoding = TextEncoding::kUtf8;
  bool marked = false;
  std::vector<std::string> lines;
};

Content ContentOf(std::string_view bytes) {
  Content content;
  content.encoding = DetectEncoding(bytes);
  content.marked = bytes.starts_with(kByteOrderMark);
  content.lines = LinesOf(bytes.substr(content.marked ? kByteOrderMark.size() : 0));
  return content;
}

std::string Joined(const std::vector<std::string>& lines, bool mark) {
  std::string out(mark ? kByteOrderMark : "");
  for (const std::string& line : lines) out += line + "\r\n";
  return out;
}

void CheckReading(const Content& content, std::string_view bytes, std::size_t piece) {
  MemoryFileSystem files;
  files.files[kPath] = bytes;
  files.piece = piece;
  Collector seen;
  FUZZ_CHECK(ReadEventLines(files, kPath, seen).ok());
  FUZZ_CHECK(seen.lines.size() == content.lines.size());
  for (std::size_t i = 0; i < seen.lines.size(); ++i) {
    FUZZ_CHECK(seen.lines[i].raw == content.lines[i]);
    FUZZ_CHECK(IsValidUtf8(seen.lines[i].text));
    const auto encoded = content.encoding == TextEncoding::kUtf8
                             ? seen.lines[i].text
                             : EncodeWindows1252(seen.lines[i].text);
    FUZZ_CHECK(encoded == content.lines[i]);
  }
}

// Drops every third line, and the last character of every third line that ends in "*".
LineChange SomeChange(std::size_t number, std::string_view line) {
  if (number % 3 == 1) return LineChange::kRemove;
  return number % 3 == 2 && line.ends_with('*') ? LineChange::kDropLastCharacter
                                                : LineChange::kKeep;
}

void CheckRewriting(const Content& content, std::string_view bytes) {
  MemoryFileSystem files;
  files.files[kPath] = bytes;
  FUZZ_CHECK(
      RewriteEventsFile(files, kPath, {}, [](std::size_t /*number*/, std::string_view /*line*/) {
        return LineChange::kKeep;
      }).ok());
  FUZZ_CHECK(files.CountCalls("stage") == 0);
  FUZZ_CHECK(files.files[kPath] == bytes);

  std::vector<std::string> expected;
  bool changes = false;
  const std::vector<std::string>& lines = content.lines;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const LineChange change = SomeChange(i, lines[i]);
    if (change != LineChange::kKeep) changes = true;
    if (change == LineChange::kKeep) expected.push_back(lines[i]);
    if (change == LineChange::kDropLastCharacter) {
      expected.push_back(lines[i].substr(0, lines[i].size() - 1));
    }
  }
  FUZZ_CHECK(RewriteEventsFile(files, kPath, {}, SomeChange).ok());
  FUZZ_CHECK(files.files[kPath] ==
             (changes ? Joined(expected, content.marked) : std::string(bytes)));
}

void CheckFindings(std::string_view bytes, const RegionalDateFormat& format, CivilDate today) {
  MemoryFileSystem files;
  files.files[kPath] = bytes;
  Collector seen;
  FUZZ_CHECK(ReadEventLines(files, kPath, seen).ok());
  std::vector<Finding> findings;
  FUZZ_CHECK(CheckEvents(files, kPath, format, today, findings).ok());
  std::vector<bool> rejected(seen.lines.size(), false);
  std::size_t last = 1;
  for (const Finding& finding : findings) {
    FUZZ_CHECK(finding.line >= last && finding.line <= seen.lines.size());
    last = finding.line;
    const std::string& line = seen.lines[finding.line - 1].text;
    FUZZ_CHECK(finding.column >= 1 && finding.column <= CountCharacters(line) + 1);
    FUZZ_CHECK(!finding.reason.empty() && !finding.hint.empty());
    if (finding.kind == FindingKind::kRejected) rejected[finding.line - 1] = true;
  }
  for (std::size_t i = 0; i < seen.lines.size(); ++i) {
    const std::string& line = seen.lines[i].text;
    const bool blank = line.find_first_not_of(" \t") == std::string::npos;
    const bool accepted = ParseEventLine(line, format, YearOf(today)).has_value();
    FUZZ_CHECK(rejected[i] == (!accepted && !blank));
  }
}

void CheckSession(std::string_view bytes, const RegionalDateFormat& format, CivilDate today,
                  std::size_t piece) {
  MemoryFileSystem files;
  files.piece = piece;
  MemorySettingsStore settings;
  MemoryClock clock;
  MemoryMessageBox messages;
  MemoryShiftKey shiftKey;
  files.files[kPath] = bytes;
  clock.now.date = today;
  ListBuilder builder({settings, files, clock, messages, shiftKey, {}}, format, kPath,
                      ReadTodayPreface(settings));
  FUZZ_CHECK(builder.BuildReminderList(FileAccess::kUpdate) == BuildOutcome::kShow);
  FUZZ_CHECK(builder.List1().size() == builder.ReminderLineMap().size());
  FUZZ_CHECK(messages.shown.empty());

  const std::string tidied = files.files[kPath];
  // Without its first line a file may begin in what now counts as a mark.
  if (LooksLikeUtf16(tidied)) return;
  FUZZ_CHECK(builder.readStatus().ok() && builder.writeStatus().ok());
  const Content before = ContentOf(bytes);
  const Content after = ContentOf(tidied);
  const std::vector<std::string>& lines = after.lines;
  const std::vector<std::string>& old = before.lines;
  FUZZ_CHECK(lines.size() <= old.size());
  FUZZ_CHECK(builder.List1().size() <= old.size() + 1);
  // A row's own line may be among the removed ones; its number then means the line that follows.
  for (const long line : builder.ReminderLineMap()) {
    FUZZ_CHECK(line >= 0 && static_cast<std::size_t>(line) <= lines.size());
    FUZZ_CHECK(lines.size() < old.size() || line == 0 ||
               static_cast<std::size_t>(line) < lines.size());
  }

  // The bytes that decided the encoding may have gone, and all others then mean something else.
  if (before.encoding != after.encoding || before.marked != after.marked) return;

  // Each remaining line is one of the old ones, at most without its "*".
  std::size_t at = 0;
  for (const std::string& line : lines) {
    while (at < old.size() && old[at] != line && old[at] != line + "*") ++at;
    FUZZ_CHECK(at++ < old.size());
  }

  // A tidy file is left alone.
  const int stages = files.CountCalls("stage");
  const std::vector<std::string> list(builder.List1().begin(), builder.List1().end());
  FUZZ_CHECK(builder.BuildReminderList(FileAccess::kUpdate) == BuildOutcome::kShow);
  FUZZ_CHECK(files.CountCalls("stage") == stages);
  FUZZ_CHECK(files.files[kPath] == tidied);
  if (lines.size() < old.size()) return;
  FUZZ_CHECK(std::equal(list.begin(), list.end(), builder.List1().begin(), builder.List1().end()));
}

}  // namespace
}  // namespace tidewarden::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tidewarden;
  std::string_view bytes = fuzz::TextOf(data, size);
  const unsigned choice = fuzz::TakeByte(bytes);
  const RegionalDateFormat& format = fuzz::LayoutFor(choice);
  const std::size_t piece = choice / 16;
  const CivilDate today =
      AddDays(MakeDate(2014, 1, 1), 37 * static_cast<int>(fuzz::TakeByte(bytes)));
  MemoryFileSystem files;
  files.files[fuzz::kPath] = bytes;
  fuzz::Collector seen;
  const Status status = ReadEventLines(files, fuzz::kPath, seen);
  FUZZ_CHECK(status.ok() == !LooksLikeUtf16(bytes));
  if (!status.ok()) return 0;
  const fuzz::Content content = fuzz::ContentOf(bytes);
  fuzz::CheckReading(content, bytes, piece);
  fuzz::CheckRewriting(content, bytes);
  fuzz::CheckFindings(bytes, format, today);
  fuzz::CheckSession(bytes, format, today, piece);
  return 0;
}
