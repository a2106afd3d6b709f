// The optional skin of the windows: a style sheet in the program's folder.
#pragma once

#include <string>

#include "core/events_path.h"
#include "core/file_system.h"
#include "core/settings_store.h"

namespace tidewarden {

// The text of "winaqua.skn", for each window to apply to itself; empty when the user wants no
// skin ("UseSkin" reads "false"), and when the file is missing, unreadable, larger than 1 MiB, no
// UTF-8 or holds a NUL.
[[nodiscard]] std::string ReadSkin(SettingsStore& settings, FileSystem& files,
                                   const ProgramFolders& folders);

}  // namespace tidewarden
