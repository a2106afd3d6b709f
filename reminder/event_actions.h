// Changes that the user makes to one event straight from the reminder list: every other line of
// the events file stays byte for byte. `rescueFolder` is the user's data folder.
#pragma once

#include <optional>
#include <string>

#include "core/file_system.h"

namespace tidewarden {

// An event by the line that it had when the list was built.
struct ListedEvent {
  long line = 0;        // its number in the file, from 0
  std::string rawLine;  // its bytes, without the line end
};

// The event's line number in the file as it is now: the same when that line still has the same
// bytes, else that of the only other line that has them; nothing when it cannot be told, and when
// the file cannot be read.
[[nodiscard]] std::optional<long> FindEvent(FileSystem& files, const std::string& path,
                                            const ListedEvent& event);

// Marks an event as hidden until its next occurrence. One that is marked already stays as it is.
// An event that FindEvent does not find is left alone; that is no failure.
[[nodiscard]] Status HideEvent(FileSystem& files, const std::string& path,
                               const std::string& rescueFolder, const ListedEvent& event);

// Removes an event's line. One that FindEvent does not find is left alone; that is no failure.
[[nodiscard]] Status DeleteEvent(FileSystem& files, const std::string& path,
                                 const std::string& rescueFolder, const ListedEvent& event);

}  // namespace tidewarden
