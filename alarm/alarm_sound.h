// Which file sounds the alarm.
#pragma once

#include <string>

#include "alarm/sound_player.h"
#include "core/events_path.h"
#include "core/file_system.h"
#include "core/settings_store.h"

namespace tidewarden {

// Reads "AlarmPath", whose default is "alarms/emergency.wav" in the program's folder, and finds
// the file. The setting is read in lower case and the file is looked for in any letter case. On
// Posix "\" is read as "/", and a path that does not begin with "/" starts at the program's folder,
// as does one that begins with "\". On failure `path` is where the file was expected.
Status LocateAlarmSound(SettingsStore& settings, FileSystem& files, const ProgramFolders& folders,
                        std::string& path);

// By the end of the name.
[[nodiscard]] SoundKind SoundKindOf(const std::string& path);

}  // namespace tidewarden
