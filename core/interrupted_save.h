// Replacing the events file, what is kept while it is written in place, and what becomes of it when
// such a save was interrupted.
//
// In a folder that takes no new files the events file itself is written, and is torn when the
// process is killed meanwhile. Before that, the bytes of both states are put into the user's data
// folder (`rescueFolder` everywhere), the old ones first. They go again when the file is whole.
// Whoever reads the file and may change it settles first what an interrupted save has left. Where
// that folder does not take the notes either, the old bytes are kept in memory only: an error is
// made good, a killed process is not.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "core/file_system.h"
#include "core/message_box.h"

namespace tidewarden {

struct WriteResult {
  Status status;
  std::string path;  // the file that failed; empty after success
};

// Where the two states of a file are kept: in the user's data folder for an events file "dates.txt"
// "dates.KEY.before-save.txt" and "dates.KEY.after-save.txt". The key is made of the file's whole
// path (FileSystem::FullPath), so that two files of one name have notes of their own.
struct SaveNotes {
  std::string before;
  std::string after;
  std::string lock;  // FileSystem::Lock of this path is held meanwhile
};
[[nodiscard]] SaveNotes SaveNotesOf(const std::string& rescueFolder, const std::string& fullPath);

// "dates.undamaged1.txt": the file as it was before an interrupted save that cannot be undone.
[[nodiscard]] std::string KeptCopyPath(const std::string& rescueFolder, const std::string& path,
                                       int number);

// True for what a save in place can leave of a file that held `before` and was to hold `after`, the
// two included. A save writes from the front to the back, puts the old bytes back in the same
// way, and takes space for the longer state before and cuts the rest off afterwards; only the
// order in which the sectors of a disk are written is not known after a power cut.
[[nodiscard]] bool MayBeLeftBySave(std::string_view file, std::string_view before,
                                   std::string_view after);

// Settles what an interrupted save has left, and does nothing without. A file that holds one of
// the two states is whole. One that a save can have left otherwise is torn and gets its old bytes
// back. Any other has been changed since and stays as it is; its old bytes are then kept under a
// name that no other copy has, and the user is told. Of a file that is away for now everything
// stays. On failure all that is needed for another try is still there; kBusy while another process
// writes the file in place.
[[nodiscard]] WriteResult SettleInterruptedSave(FileSystem& files, MessageBox& messages,
                                                const std::string& path,
                                                const std::string& rescueFolder);

// Is called when the new content is safe, right before the file gets it. A failure ends the save.
using BeforeCommit = std::function<Status(const StagedFile& staged)>;

// Replaces an events file that holds `before`, or one that does not exist (without `before`), by
// `after`. Where it has to be written in place, both states are kept meanwhile. On failure the file
// holds what it held, or the next SettleInterruptedSave gives it back. kBusy while another process
// writes the file in place, and for a torn file that is not yet settled.
[[nodiscard]] WriteResult ReplaceEventsFile(FileSystem& files, const std::string& path,
                                            const std::string& rescueFolder,
                                            std::optional<std::string_view> before,
                                            std::string_view after,
                                            const BeforeCommit& beforeCommit = {});

}  // namespace tidewarden
