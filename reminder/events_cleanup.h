// The two changes that building the list makes to the events file: one-time events that are over
// are removed, and hidden events whose occurrence is over are shown again. Every other line stays
// byte for byte. `rescueFolder` is the user's data folder.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/event_line.h"
#include "core/file_system.h"
#include "dates/civil.h"

namespace tidewarden {

// Removes the lines of one-time events that are over (IsOverOneTimeLine) from the file. `removed`
// receives their numbers in ascending order; it is empty after a failure.
Status RemovePastOneTimeEvents(FileSystem& files, const std::string& path,
                               const std::string& rescueFolder, CivilDate today,
                               std::vector<long>& removed);

// Takes the "*" from every line that equals an entry of the hide list, letter case included.
Status UnhideEvents(FileSystem& files, const std::string& path, const std::string& rescueFolder,
                    const std::vector<std::string_view>& hideList);

}  // namespace tidewarden
