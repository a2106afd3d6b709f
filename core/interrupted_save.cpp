#include "core/interrupted_save.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <utility>

#include "core/events_path.h"

namespace tidewarden {
namespace {

// Is told where an undamaged copy is kept.
using TellKeptCopy = std::function<void(const std::string& keptPath)>;

// Every byte stands at its place in one of the two states, or is space that was taken for the
// longer one and not yet written.
bool IsTorn(std::string_view file, std::string_view before, std::string_view after) {
  if (file.size() < std::min(before.size(), after.size())) return false;
  if (file.size() > std::max(before.size(), after.size())) return false;
  for (std::size_t i = 0; i < file.size(); ++i) {
    const bool isOld = i < before.size() ? file[i] == before[i] : file[i] == '\0';
    const bool isNew = i < after.size() && file[i] == after[i];
    if (!isOld && !isNew) return false;
  }
  return true;
}

// A bound for a folder in which every name seems to be taken.
constexpr int kMostKeptCopies = 1000;

bool IsThere(FileSystem& files, const std::string& path) {
  FileStamp stamp;
  return files.GetStamp(path, stamp).kind() != StatusKind::kNotFound;
}

// The state after the save goes first: without it the other one says nothing.
void Forget(FileSystem& files, const SaveNotes& notes) {
  if (files.Remove(notes.after).ok()) static_cast<void>(files.Remove(notes.before).ok());
}

WriteResult WriteBack(FileSystem& files, const std::string& path, std::string_view content) {
  std::unique_ptr<StagedFile> staged;
  Status status = files.Stage(path, content, staged);
  if (status.ok()) status = staged->Commit();
  if (!status.ok()) return {std::move(status), path};
  return {};
}

WriteResult Keep(FileSystem& files, const std::string& path, const std::string& rescueFolder,
                 const TellKeptCopy& tell) {
  int number = 1;
  while (number < kMostKeptCopies && IsThere(files, KeptCopyPath(rescueFolder, path, number))) {
    ++number;
  }
  if (number == kMostKeptCopies) return {};
  const std::string kept = KeptCopyPath(rescueFolder, path, number);
  const SaveNotes notes = SaveNotesOf(rescueFolder, path);
  // The file is whole, so what cannot be moved waits where it is.
  if (!files.Rename(notes.before, kept).ok()) return {};
  static_cast<void>(files.Remove(notes.after));
  tell(kept);
  return {};
}

// Held while a file is written in place or that is settled: another copy of the program must not
// take a save that is going on for an interrupted one.
WriteResult LockSaves(FileSystem& files, const std::string& path, const std::string& rescueFolder,
                      std::unique_ptr<FileLock>& lock) {
  const std::string locked = NamedAfter(rescueFolder, path, ".save");
  Status status = files.Lock(locked, lock);
  if (!status.ok()) return {std::move(status), locked};
  return {};
}

// Without `tell` a file that has been changed since is left for the next call.
WriteResult Settle(FileSystem& files, const std::string& path, const std::string& rescueFolder,
                   const TellKeptCopy& tell) {
  const SaveNotes notes = SaveNotesOf(rescueFolder, path);
  std::string after;
  Status status = ReadFile(files, notes.after, after);
  if (status.kind() == StatusKind::kNotFound) {
    // The file was not yet written.
    static_cast<void>(files.Remove(notes.before));
    return {};
  }
  if (!status.ok()) return {std::move(status), notes.after};
  std::string before;
  status = ReadFile(files, notes.before, before);
  if (status.kind() == StatusKind::kNotFound) {
    Forget(files, notes);
    return {};
  }
  if (!status.ok()) return {std::move(status), notes.before};

  std::string current;
  status = ReadFile(files, path, current);
  // It may be on a disk that is away for now.
  if (status.kind() == StatusKind::kNotFound) return {};
  if (!status.ok()) return {std::move(status), path};
  if (IsTorn(current, before, after)) {
    if (current != before && current != after) {
      WriteResult result = WriteBack(files, path, before);
      if (!result.status.ok()) return result;
    }
    Forget(files, notes);
    return {};
  }
  return tell ? Keep(files, path, rescueFolder, tell) : WriteResult();
}

}  // namespace

SaveNotes SaveNotesOf(const std::string& rescueFolder, const std::string& path) {
  return {NamedAfter(rescueFolder, path, ".before-save.txt"),
          NamedAfter(rescueFolder, path, ".after-save.txt")};
}

std::string KeptCopyPath(const std::string& rescueFolder, const std::string& path, int number) {
  return NamedAfter(rescueFolder, path, ".undamaged" + std::to_string(number) + ".txt");
}

WriteResult NoteSave(FileSystem& files, const std::string& path, const std::string& rescueFolder,
                     std::string_view before, std::string_view after) {
  const SaveNotes notes = SaveNotesOf(rescueFolder, path);
  if (IsThere(files, notes.after)) return {Status(StatusKind::kBusy), notes.after};
  // Creates the folder, too.
  Status status = files.CreateEmpty(notes.before);
  if (status.ok()) status = ReplaceFile(files, notes.before, before);
  if (!status.ok()) return {std::move(status), notes.before};
  status = ReplaceFile(files, notes.after, after);
  if (!status.ok()) return {std::move(status), notes.after};
  return {};
}

WriteResult SettleInterruptedSave(FileSystem& files, MessageBox& messages, const std::string& path,
                                  const std::string& rescueFolder) {
  const SaveNotes notes = SaveNotesOf(rescueFolder, path);
  // In a folder that cannot be looked at, nothing can be put right; the file may be whole.
  FileStamp stamp;
  const bool interrupted = files.GetStamp(notes.after, stamp).ok();
  if (!interrupted && !files.GetStamp(notes.before, stamp).ok()) return {};
  std::unique_ptr<FileLock> lock;
  WriteResult locked = LockSaves(files, path, rescueFolder, lock);
  // In a folder that takes no lock, nobody else begins such a save either.
  if (locked.status.kind() == StatusKind::kBusy) return locked;
  return Settle(files, path, rescueFolder, [&](const std::string& keptPath) {
    messages.Show("Saving the events file was interrupted, and the file has been changed since:\n" +
                      path + "\n\nThe file as it was before is now kept here:\n" + keptPath,
                  MessageButtons::kOk, MessageIcon::kNone);
  });
}

WriteResult ReplaceEventsFile(FileSystem& files, const std::string& path,
                              const std::string& rescueFolder,
                              std::optional<std::string_view> before, std::string_view after,
                              const BeforeCommit& beforeCommit) {
  std::unique_ptr<StagedFile> staged;
  Status status = files.Stage(path, after, staged);
  if (!status.ok()) return {std::move(status), path};
  // A file that is written in place is torn when the process is killed meanwhile.
  const bool inPlace = before && !staged->ReplacesAtOnce();
  std::unique_ptr<FileLock> lock;
  if (inPlace) {
    WriteResult noted = LockSaves(files, path, rescueFolder, lock);
    if (noted.status.ok()) noted = NoteSave(files, path, rescueFolder, *before, after);
    if (!noted.status.ok()) return noted;
  }
  if (beforeCommit) status = beforeCommit(*staged);
  if (!status.ok()) {
    if (inPlace) Forget(files, SaveNotesOf(rescueFolder, path));
    return {std::move(status), path};
  }
  status = staged->Commit();
  // What cannot be settled now is settled before the file is next read.
  if (inPlace) static_cast<void>(Settle(files, path, rescueFolder, {}));
  if (!status.ok()) return {std::move(status), path};
  return {};
}

}  // namespace tidewarden
