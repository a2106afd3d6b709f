#include "editor/events_writer.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <utility>

#include "core/events_path.h"
#include "core/settings_keys.h"
#include "core/text_encoding.h"
#include "dates/text.h"

namespace tidewarden {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

void AppendLine(std::string& out, const EventRow& row, const RegionalDateFormat& format,
                HiddenMarks marks) {
  AppendEventLine(out, row.text, format);
  if (row.isHidden && marks == HiddenMarks::kKept) out += '*';
  out += kLineEnd;
}

// Bytes of a text, without the one at `end`.
struct Span {
  std::size_t begin = 0;
  std::size_t end = 0;
};

// The lines of a file that the editor has written.
class LinesOf {
 public:
  LinesOf(std::string_view text, const RegionalDateFormat& format, HiddenMarks marks)
      : text_(text), format_(format), marks_(marks) {}

  [[nodiscard]] std::string_view text() const { return text_; }

  // Where the line of a row stands, with its end; nothing when it is another one.
  [[nodiscard]] std::optional<Span> Find(const EventRow& row) {
    GoTo(row.line);
    std::string line;
    AppendLine(line, row, format_, marks_);
    if (!text_.substr(at_).starts_with(line)) return std::nullopt;
    return Span{at_, at_ + line.size()};
  }

  // The place after the last line.
  [[nodiscard]] std::optional<Span> End() const {
    if (!text_.empty() && !text_.ends_with(kLineEnd)) return std::nullopt;
    return Span{text_.size(), text_.size()};
  }

 private:
  // To the end of the text for a line that is not there.
  void GoTo(long number) {
    if (number < number_) number_ = 0;
    if (number_ == 0) at_ = 0;
    // No block has more line ends than a byte can count, so that the compiler can count in vectors
    // of bytes.
    constexpr std::size_t kBlock = 240;
    while (number_ < number && at_ < text_.size()) {
      const std::string_view block = text_.substr(at_, kBlock);
      std::uint8_t ends = 0;
      for (const char c : block) ends = static_cast<std::uint8_t>(ends + (c == '\n' ? 1 : 0));
      if (ends < number - number_) {
        at_ += block.size();
        number_ += ends;
        continue;
      }
      for (; number_ < number; ++number_) at_ = text_.find('\n', at_) + 1;
    }
  }

  long number_ = 0;     // of line ends before
  std::size_t at_ = 0;  // this place
  std::string_view text_;
  const RegionalDateFormat& format_;
  HiddenMarks marks_;
};

std::string_view FolderOf(std::string_view path) {
  const std::size_t separator = path.find_last_of("/\\");
  return separator == std::string_view::npos ? "." : path.substr(0, separator);
}

Status Replace(FileSystem& files, const std::string& path, std::string_view content) {
  std::unique_ptr<StagedFile> staged;
  Status status = files.Stage(path, content, staged);
  return status.ok() ? staged->Commit() : status;
}

// True when the rescue copy of `path` holds what its backup holds, or there is no backup.
bool IsRescued(FileSystem& files, const std::string& backup, const std::string& path,
               const std::string& rescueFolder) {
  std::string content;
  const Status status = ReadFile(files, backup, content);
  if (status.kind() == StatusKind::kNotFound) return true;
  return status.ok() && MakeRescueCopy(files, path, rescueFolder, content).status.ok();
}

bool Holds(FileSystem& files, const std::string& path, std::string_view content) {
  Likeness likeness = Likeness::kOther;
  return CompareFile(files, path, content, likeness).ok() && likeness == Likeness::kSame;
}

// True when backup 1 is a second name of the events file, or a copy of it where files have one name
// only, or is missing like that: a save that was interrupted has rotated the backups already, and
// doing it again would push an older one out.
bool IsRotated(FileSystem& files, const std::string& path, const EventsChange& change) {
  const std::string newest = BackupPath(path, 1);
  FileStamp file;
  FileStamp backup;
  if (!files.GetStamp(newest, backup).ok()) return !change.exists;
  if (!change.exists || backup.size != change.oldContent.size()) return false;
  if (files.GetStamp(path, file).ok() && file == backup) return true;
  return Holds(files, newest, change.oldContent);
}

// Steps that fail are passed over, as the later ones do not depend on them.
void RotateBackups(FileSystem& files, const std::string& path, const std::string& rescueFolder,
                   int levels, const StagedFile& staged, const EventsChange& change) {
  if (IsRotated(files, path, change)) return;
  const auto skipFailure = [](const Status& status) { static_cast<void>(status.ok()); };
  for (int k = levels; k >= 2; --k) {
    skipFailure(files.Remove(BackupPath(path, k)));
    skipFailure(files.Rename(BackupPath(path, k - 1), BackupPath(path, k)));
  }
  const std::string newest = BackupPath(path, 1);
  // The only backup makes room for a file that is not there, and must not be lost for that.
  if (!change.exists && !IsRescued(files, newest, path, rescueFolder)) return;
  // In a folder that lets no name go, backup 1 is still an older one and stays.
  if (!files.Remove(newest).ok() || !change.exists) return;
  // A second name costs nothing and keeps the first. Where there is none, or where it would change
  // with the file, the backup is a copy.
  const bool linked = staged.ReplacesAtOnce() && files.Link(path, newest).ok();
  if (!linked) skipFailure(Replace(files, newest, change.oldContent));
}

}  // namespace

int LevelsOfBackup(SettingsStore& settings) {
  const double levels = LeadingNumber(modGetSetSaveSet::Get(settings, settings::kLevelsOfBackup));
  return static_cast<int>(std::clamp(levels, 0.0, static_cast<double>(kMostBackups)));
}

std::string BackupPath(const std::string& path, int number) {
  std::string backup(WithoutEnding(path));
  return backup.append("bk").append(std::to_string(number)).append(".txt");
}

std::string RescuePath(const std::string& rescueFolder, const std::string& path) {
  return NamedAfter(rescueFolder, path, ".rescue.txt");
}

std::string EventsFileContent(const RowsToWrite& events, const RegionalDateFormat& format,
                              std::string_view old) {
  std::string text;
  text.reserve(old.size() + old.size() / 4);
  const auto append = [&](const EventRow& row) { AppendLine(text, row, format, events.marks); };
  for (std::size_t i = 0; i < events.rows.size(); ++i) {
    if (events.added != nullptr && i == events.place) append(*events.added);
    if (!events.rows[i].isToday && i != events.removed) append(events.rows[i]);
  }
  if (events.added != nullptr && events.place >= events.rows.size()) append(*events.added);
  if (text.empty() || IsAscii(old)) return text;
  if (DetectEncoding(old) == TextEncoding::kUtf8) {
    if (old.starts_with(kByteOrderMark)) text.insert(0, kByteOrderMark);
    return text;
  }
  const auto encoded = EncodeWindows1252(text);
  // Few characters in Windows-1252 may look like UTF-8, and would be read as other ones.
  const bool ambiguous = encoded && !IsAscii(*encoded) && IsValidUtf8(*encoded);
  return encoded && !ambiguous ? *encoded : text;
}

std::optional<std::string> SplicedContent(const RowsToWrite& events,
                                          const RegionalDateFormat& format, std::string_view old) {
  const std::size_t mark = old.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
  LinesOf lines(old.substr(mark), format, events.marks);
  Span cut{};
  if (events.removed) {
    const auto found = lines.Find(events.rows[*events.removed]);
    if (!found) return std::nullopt;
    cut = *found;
  }
  std::string line;
  std::size_t at = cut.begin;
  if (events.added != nullptr) {
    const auto follows = [](const EventRow& row) { return !row.isToday; };
    const auto first = events.rows.begin() + static_cast<std::ptrdiff_t>(events.place);
    const auto next = std::find_if(first, events.rows.end(), follows);
    const auto found = next == events.rows.end() ? lines.End() : lines.Find(*next);
    if (!found) return std::nullopt;
    at = found->begin;
    AppendLine(line, *events.added, format, events.marks);
  }
  const std::string_view body = lines.text();
  if (body.size() - (cut.end - cut.begin) + line.size() == 0) return std::string();
  std::string content;
  content.reserve(old.size() + line.size());
  content += old.substr(0, mark);
  const auto copy = [&](std::size_t begin, std::size_t end) {
    content += body.substr(begin, end - begin);
  };
  if (at <= cut.begin) {
    copy(0, at);
    content += line;
    copy(at, cut.begin);
    copy(cut.end, body.size());
  } else {
    copy(0, cut.begin);
    copy(cut.end, at);
    content += line;
    copy(at, body.size());
  }
  return content;
}

WriteResult MakeRescueCopy(FileSystem& files, const std::string& path,
                           const std::string& rescueFolder, std::string_view content) {
  const std::string rescuePath = RescuePath(rescueFolder, path);
  // Creates the folder, too.
  Status status = files.CreateEmpty(rescuePath);
  if (status.ok()) status = ReplaceFile(files, rescuePath, content);
  if (!status.ok()) return {std::move(status), rescuePath};
  return {};
}

WriteResult WriteEventsFile(FileSystem& files, const std::string& path,
                            const std::string& rescueFolder, int levels,
                            const EventsChange& change) {
  if (change.exists && change.oldContent == change.newContent) return {};
  const bool rescues = !change.oldContent.empty() && change.rescue == RescueNeed::kDropsSomething;
  if (rescues) {
    WriteResult copied = MakeRescueCopy(files, path, rescueFolder, change.oldContent);
    if (!copied.status.ok()) return copied;
  }
  const std::optional<std::string_view> before =
      change.exists ? std::optional<std::string_view>(change.oldContent) : std::nullopt;
  const auto beforeCommit = [&](const StagedFile& staged) {
    // Staging and noting wait for the disk, time enough for somebody else to change the file.
    Status status = CheckUntouched(files, path, before);
    // There is one rescue copy only, which a backup that has to go would replace.
    const bool rotates = levels > 0 && (change.exists || !rescues);
    if (status.ok() && rotates) {
      RotateBackups(files, path, rescueFolder, levels, staged, change);
    }
    return status;
  };
  WriteResult result =
      ReplaceEventsFile(files, path, rescueFolder, before, change.newContent, beforeCommit);
  if (result.status.ok()) return result;
  // The new bytes may have got there all the same, and the old ones not back: a second try would
  // then make the change twice.
  if (Holds(files, path, change.newContent)) return {};
  return result;
}

void RemoveLeftovers(FileSystem& files, const std::string& path, const std::string& rescueFolder) {
  const SaveNotes notes = SaveNotesOf(rescueFolder, files.FullPath(path));
  for (const std::string& target :
       {path, BackupPath(path, 1), RescuePath(rescueFolder, path), notes.before, notes.after}) {
    FileStamp stamp;
    // A link may stand in a folder that takes no new file and lead into one that does.
    const bool exists = files.GetStamp(target, stamp).ok();
    if (!exists && !files.CanCreateIn(std::string(FolderOf(target)))) continue;
    // Staging takes away what is left over, and giving the staged file up leaves nothing.
    std::unique_ptr<StagedFile> staged;
    static_cast<void>(files.Stage(target, {}, staged).ok());
  }
}

}  // namespace tidewarden
