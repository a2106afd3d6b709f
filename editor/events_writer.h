// Writing the events file from the editor's rows, with its rolling backups.
//
// The file is never missing and never half written: the new content is safe on the disk before the
// backups are rotated, and replaces the file in one step. Backup 1 is the newest; backup k is the
// path without its last four characters, "bk", k and ".txt".
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/file_system.h"
#include "core/interrupted_save.h"
#include "core/settings_store.h"
#include "dates/date_text.h"
#include "editor/event_rows.h"

namespace tidewarden {

inline constexpr int kMostBackups = 8;

// The number of backups that the user wants, "LevelsOfBackup": 0 to 8.
[[nodiscard]] int LevelsOfBackup(SettingsStore& settings);

[[nodiscard]] std::string BackupPath(const std::string& path, int number);

// The one copy that is kept of a file of which a save drops something, or of a backup that goes
// without a successor: in the user's data folder, named after the events file ("dates.rescue.txt").
[[nodiscard]] std::string RescuePath(const std::string& rescueFolder, const std::string& path);

// The events that a file is to hold: those of `rows`, in their order, but for the one at `removed`,
// and `added` before the row at `place`.
struct RowsToWrite {
  const std::vector<EventRow>& rows;
  std::optional<std::size_t> removed;
  const EventRow* added = nullptr;
  std::size_t place = 0;
  HiddenMarks marks = kHiddenMarks;
};

// The bytes of a file that holds these events, as the successor of a file with
// the bytes `old`: its encoding and byte-order mark stay, unless a title does not fit into it or
// the bytes would be read in another one; the file is then UTF-8. No row, no byte.
[[nodiscard]] std::string EventsFileContent(const RowsToWrite& events,
                                            const RegionalDateFormat& format, std::string_view old);

// The same for a file whose old bytes are what it would give for `events.rows` without the change,
// the event of each row in the line that the row names, and are not in Windows-1252 (see
// EventList): copies the old bytes around the change. Nothing when the lines concerned say
// otherwise.
[[nodiscard]] std::optional<std::string> SplicedContent(const RowsToWrite& events,
                                                        const RegionalDateFormat& format,
                                                        std::string_view old);

// Whether the old bytes hold something that the new ones do not, besides what the user changes.
enum class RescueNeed { kNone, kDropsSomething };

// What is to become of the file.
struct EventsChange {
  std::string_view oldContent;  // as it is now, or as it was when a vanished file was last read
  std::string_view newContent;
  RescueNeed rescue = RescueNeed::kNone;
  bool exists = true;
};

// Replaces the events file by the new content, with `levels` backups (0 to 8) and after a rescue
// copy of the old content if one is needed, be the file there or vanished. A file that holds the
// new content already is left alone, backups included. On failure the events file holds what it
// held, and nothing else than the backups has changed. kBusy, with the backups as they were, when
// the file does not hold the old content any more: the change is then to be applied to what it
// holds now. A file that holds the new content in spite of an error is a success. A backup that
// cannot be made does not stop the save. Of a file that does not exist the backups make room for a
// new backup 1 as well, of which there is none; when there is but one, its content goes into the
// rescue copy, unless that is needed for the old content: the backups then stay. Where the file has
// to be written in place, a killed save is settled by SettleInterruptedSave.
[[nodiscard]] WriteResult WriteEventsFile(FileSystem& files, const std::string& path,
                                          const std::string& rescueFolder, int levels,
                                          const EventsChange& change);

// Puts bytes of the events file into its rescue copy.
[[nodiscard]] WriteResult MakeRescueCopy(FileSystem& files, const std::string& path,
                                         const std::string& rescueFolder, std::string_view content);

// Removes what a killed save has left beside the file.
void RemoveLeftovers(FileSystem& files, const std::string& path, const std::string& rescueFolder);

}  // namespace tidewarden
