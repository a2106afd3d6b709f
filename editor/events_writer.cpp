#include "editor/events_writer.h"

#include <algorithm>
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

std::string_view FolderOf(std::string_view path) {
  const std::size_t separator = path.find_last_of("/\\");
  return separator == std::string_view::npos ? "." : path.substr(0, separator);
}

Status Replace(FileSystem& files, const std::string& path, std::string_view content) {
  std::unique_ptr<StagedFile> staged;
  Status status = files.Stage(path, content, staged);
  return status.ok() ? staged->Commit() : status;
}

// True when backup 1 is a second name of the events file, or a copy of it where files have one name
// only: a save that was interrupted has rotated the backups already, and doing it again would push
// an older one out.
bool IsRotated(FileSystem& files, const std::string& path, std::string_view oldContent) {
  const std::string newest = BackupPath(path, 1);
  FileStamp file;
  FileStamp backup;
  if (!files.GetStamp(newest, backup).ok() || backup.size != oldContent.size()) return false;
  if (files.GetStamp(path, file).ok() && file == backup) return true;
  std::string held;
  return ReadFile(files, newest, held).ok() && held == oldContent;
}

// Steps that fail are passed over, as the later ones do not depend on them.
void RotateBackups(FileSystem& files, const std::string& path, int levels, const StagedFile& staged,
                   std::string_view oldContent) {
  if (IsRotated(files, path, oldContent)) return;
  const auto skipFailure = [](const Status& status) { static_cast<void>(status.ok()); };
  for (int k = levels; k >= 2; --k) {
    skipFailure(files.Remove(BackupPath(path, k)));
    skipFailure(files.Rename(BackupPath(path, k - 1), BackupPath(path, k)));
  }
  const std::string newest = BackupPath(path, 1);
  // In a folder that lets no name go, backup 1 is still an older one and stays.
  if (!files.Remove(newest).ok()) return;
  // A second name costs nothing and keeps the first. Where there is none, or where it would change
  // with the file, the backup is a copy.
  const bool linked = staged.ReplacesAtOnce() && files.Link(path, newest).ok();
  if (!linked) skipFailure(Replace(files, newest, oldContent));
}

Status MakeRescueCopy(FileSystem& files, const std::string& rescuePath,
                      std::string_view oldContent) {
  // Creates the folder, too.
  Status status = files.CreateEmpty(rescuePath);
  return status.ok() ? ReplaceFile(files, rescuePath, oldContent) : status;
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
  const auto append = [&](const EventRow& row) {
    AppendEventLine(text, row.text, format);
    text += kLineEnd;
  };
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

Status CheckUntouched(FileSystem& files, const std::string& path, const EventsChange& change) {
  std::string present;
  Status status = ReadFile(files, path, present);
  const bool exists = status.kind() != StatusKind::kNotFound;
  if (exists && !status.ok()) return status;
  const bool same = exists == change.exists && (!exists || present == change.oldContent);
  return same ? Status() : Status(StatusKind::kBusy);
}

WriteResult WriteEventsFile(FileSystem& files, const std::string& path,
                            const std::string& rescueFolder, int levels,
                            const EventsChange& change) {
  if (change.exists && change.oldContent == change.newContent) return {};
  if (!change.oldContent.empty() && change.rescue == RescueNeed::kDropsSomething) {
    const std::string rescuePath = RescuePath(rescueFolder, path);
    Status status = MakeRescueCopy(files, rescuePath, change.oldContent);
    if (!status.ok()) return {std::move(status), rescuePath};
  }
  const std::optional<std::string_view> before =
      change.exists ? std::optional<std::string_view>(change.oldContent) : std::nullopt;
  const auto beforeCommit = [&](const StagedFile& staged) {
    // Staging and noting wait for the disk, time enough for somebody else to change the file.
    Status status = CheckUntouched(files, path, change);
    if (status.ok() && change.exists && levels > 0) {
      RotateBackups(files, path, levels, staged, change.oldContent);
    }
    return status;
  };
  WriteResult result =
      ReplaceEventsFile(files, path, rescueFolder, before, change.newContent, beforeCommit);
  if (result.status.ok()) return result;
  // The new bytes may have got there all the same, and the old ones not back: a second try would
  // then make the change twice.
  std::string present;
  if (ReadFile(files, path, present).ok() && present == change.newContent) return {};
  return result;
}

void RemoveLeftovers(FileSystem& files, const std::string& path, const std::string& rescueFolder) {
  const SaveNotes notes = SaveNotesOf(rescueFolder, path);
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
