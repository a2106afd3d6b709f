#include "core/interrupted_save.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <utility>

#include "core/events_path.h"

namespace tidewarden {
namespace {

// Is told where an undamaged copy is kept.
using TellKeptCopy = std::function<void(const std::string& keptPath)>;

// A bound for a folder in which every name seems to be taken.
constexpr int kMostKeptCopies = 1000;
// The least that a disk writes at once.
constexpr std::size_t kSector = 512;

// The hash FNV-1a of Fowler, Noll and Vo (RFC 9923) with 64 bits, in 16 hexadecimal digits.
std::string KeyOf(std::string_view text) {
  constexpr std::uint64_t kOffsetBasis = 0xCBF29CE484222325;
  constexpr std::uint64_t kPrime = 0x100000001B3;
  std::uint64_t hash = kOffsetBasis;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * kPrime;
  std::string key;
  for (int shift = 60; shift >= 0; shift -= 4) {
    key += "0123456789abcdef"[(hash >> static_cast<unsigned>(shift)) & 0xFU];
  }
  return key;
}

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
                 const SaveNotes& notes, const TellKeptCopy& tell) {
  int number = 1;
  while (number < kMostKeptCopies && IsThere(files, KeptCopyPath(rescueFolder, path, number))) {
    ++number;
  }
  if (number == kMostKeptCopies) return {};
  const std::string kept = KeptCopyPath(rescueFolder, path, number);
  // The file is whole, so what cannot be moved waits where it is.
  if (!files.Rename(notes.before, kept).ok()) return {};
  static_cast<void>(files.Remove(notes.after));
  tell(kept);
  return {};
}

// Held while a file is written in place or that is settled: another copy of the program must not
// take a save that is going on for an interrupted one.
WriteResult LockSaves(FileSystem& files, const SaveNotes& notes, std::unique_ptr<FileLock>& lock) {
  Status status = files.Lock(notes.lock, lock);
  if (!status.ok()) return {std::move(status), notes.lock};
  return {};
}

// Without `tell` a file that has been changed since is left for the next call.
WriteResult Settle(FileSystem& files, const std::string& path, const std::string& rescueFolder,
                   const SaveNotes& notes, const TellKeptCopy& tell) {
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
  if (MayBeLeftBySave(current, before, after)) {
    if (current != before && current != after) {
      WriteResult result = WriteBack(files, path, before);
      if (!result.status.ok()) return result;
    }
    Forget(files, notes);
    return {};
  }
  return tell ? Keep(files, path, rescueFolder, notes, tell) : WriteResult();
}

// Where a file is written in place, and what for.
struct SaveInPlace {
  FileSystem& files;
  const std::string& path;
  const std::string& rescueFolder;
  std::string_view before;
  std::string_view after;
  SaveNotes notes{};
};

// Puts both states into the user's data folder, which is created when needed.
bool WriteNotes(const SaveInPlace& save) {
  // Creates the folder, too.
  return save.files.CreateEmpty(save.notes.before).ok() &&
         ReplaceFile(save.files, save.notes.before, save.before).ok() &&
         ReplaceFile(save.files, save.notes.after, save.after).ok();
}

// Whether a save can note its states where an earlier one has.
enum class Room { kFree, kTaken, kTorn };

// Takes away what an earlier save has left that was finished. kTorn when it says that the file is
// torn, or cannot be asked; that is settled before the file is written again.
Room MakeRoom(const SaveInPlace& save) {
  FileStamp stamp;
  const auto look = [&] { return save.files.GetStamp(save.notes.after, stamp).kind(); };
  const StatusKind found = look();
  if (found == StatusKind::kNotFound) return Room::kFree;
  if (found != StatusKind::kOk) return Room::kTaken;
  std::string before;
  std::string after;
  if (!ReadFile(save.files, save.notes.after, after).ok()) return Room::kTorn;
  const Status status = ReadFile(save.files, save.notes.before, before);
  if (!status.ok() && status.kind() != StatusKind::kNotFound) return Room::kTorn;
  if (status.ok() && save.before != before && save.before != after) {
    return MayBeLeftBySave(save.before, before, after) ? Room::kTorn : Room::kTaken;
  }
  Forget(save.files, save.notes);
  return look() == StatusKind::kNotFound ? Room::kFree : Room::kTaken;
}

// Makes good what a failed save has left of the file, by the old bytes in memory.
void PutBack(const SaveInPlace& save) {
  std::string current;
  if (!ReadFile(save.files, save.path, current).ok()) return;
  if (current == save.before || current == save.after) return;
  if (!MayBeLeftBySave(current, save.before, save.after)) return;
  static_cast<void>(WriteBack(save.files, save.path, save.before).status.ok());
}

WriteResult ReplaceInPlace(const SaveInPlace& save, std::unique_ptr<StagedFile> staged,
                           const BeforeCommit& beforeCommit) {
  std::unique_ptr<FileLock> lock;
  WriteResult locked = LockSaves(save.files, save.notes, lock);
  if (locked.status.kind() == StatusKind::kBusy) return locked;
  const Room room = MakeRoom(save);
  if (room == Room::kTorn) return {Status(StatusKind::kBusy), save.notes.after};
  // Without the lock another process would settle a save that is still going on.
  const bool noted = locked.status.ok() && room == Room::kFree;
  if (noted && !WriteNotes(save)) Forget(save.files, save.notes);

  Status status = beforeCommit ? beforeCommit(*staged) : Status();
  const bool begun = status.ok();
  if (begun) status = staged->Commit();
  // The file may be open in it, and closed to others.
  staged.reset();
  if (begun && !status.ok()) PutBack(save);
  // What cannot be settled now is settled before the file is next read.
  if (noted && begun) {
    static_cast<void>(Settle(save.files, save.path, save.rescueFolder, save.notes, {}));
  } else if (noted) {
    Forget(save.files, save.notes);
  }
  if (!status.ok()) return {std::move(status), save.path};
  return {};
}

}  // namespace

SaveNotes SaveNotesOf(const std::string& rescueFolder, const std::string& fullPath) {
  const std::string key = "." + KeyOf(fullPath);
  return {NamedAfter(rescueFolder, fullPath, key + ".before-save.txt"),
          NamedAfter(rescueFolder, fullPath, key + ".after-save.txt"),
          NamedAfter(rescueFolder, fullPath, ".save")};
}

std::string KeptCopyPath(const std::string& rescueFolder, const std::string& path, int number) {
  return NamedAfter(rescueFolder, path, ".undamaged" + std::to_string(number) + ".txt");
}

bool MayBeLeftBySave(std::string_view file, std::string_view before, std::string_view after) {
  const std::size_t shorter = std::min(before.size(), after.size());
  const std::size_t longer = std::max(before.size(), after.size());
  if (file.size() < shorter || file.size() > longer) return false;
  // Space that was taken and not yet written.
  const auto isHole = [&](std::size_t at) { return at >= shorter && file[at] == '\0'; };
  const auto isFrom = [&](std::string_view state, std::size_t at) {
    return isHole(at) || (at < state.size() && file[at] == state[at]);
  };
  // Only space is taken step by step.
  if (file.size() != before.size() && file.size() != after.size()) {
    for (std::size_t at = shorter; at < file.size(); ++at) {
      if (!isHole(at)) return false;
    }
  }
  // In each sector old bytes that were put back, new ones, and old ones that were not yet reached.
  std::size_t at = 0;
  while (at < file.size()) {
    const std::size_t end = std::min(file.size(), at + kSector);
    while (at < end && isFrom(before, at)) ++at;
    while (at < end && isFrom(after, at)) ++at;
    while (at < end && isFrom(before, at)) ++at;
    if (at < end) return false;
  }
  return true;
}

WriteResult SettleInterruptedSave(FileSystem& files, MessageBox& messages, const std::string& path,
                                  const std::string& rescueFolder) {
  const SaveNotes notes = SaveNotesOf(rescueFolder, files.FullPath(path));
  // In a folder that cannot be looked at, nothing can be put right; the file may be whole.
  FileStamp stamp;
  const bool interrupted = files.GetStamp(notes.after, stamp).ok();
  if (!interrupted && !files.GetStamp(notes.before, stamp).ok()) return {};
  std::unique_ptr<FileLock> lock;
  WriteResult locked = LockSaves(files, notes, lock);
  // In a folder that takes no lock, nobody else begins such a save either.
  if (locked.status.kind() == StatusKind::kBusy) return locked;
  return Settle(files, path, rescueFolder, notes, [&](const std::string& keptPath) {
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
  if (before && !staged->ReplacesAtOnce()) {
    return ReplaceInPlace({files, path, rescueFolder, *before, after,
                           SaveNotesOf(rescueFolder, files.FullPath(path))},
                          std::move(staged), beforeCommit);
  }
  if (beforeCommit) status = beforeCommit(*staged);
  if (status.ok()) status = staged->Commit();
  if (!status.ok()) return {std::move(status), path};
  return {};
}

}  // namespace tidewarden
