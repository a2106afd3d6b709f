// The adapters and folders of the system that the program is built for, for the composition
// roots. Each system has its own implementation of this header.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/autostart.h"
#include "core/clock.h"
#include "core/events_path.h"
#include "core/file_system.h"
#include "core/settings_store.h"
#include "dates/regional_formats.h"
#include "reminder/previous_instance.h"

namespace tidewarden {

// What a program does before anything else. On Windows: libraries come from the system's own
// folder, and the standard streams carry bytes as they are written, UTF-8 for a console.
void PrepareProgram();

// The command line in UTF-8, the program's own name first; from what main was given where the
// system gives it in that form.
[[nodiscard]] std::vector<std::string> ProgramArguments(int argc, char** argv);

[[nodiscard]] std::unique_ptr<FileSystem> MakeSystemFiles();
[[nodiscard]] std::unique_ptr<Clock> MakeSystemClock();

// The user's own date layout, or `shortDatePattern` in its place when that is not empty (pattern
// letters of FormatByPattern); names in the user's language either way.
[[nodiscard]] std::unique_ptr<RegionalFormats> MakeSystemFormats(
    const std::string& shortDatePattern);

// The user's own settings: on Linux the file "settings.ini" in his configuration folder for the
// program, on Windows the registry.
[[nodiscard]] std::unique_ptr<SettingsStore> MakeSystemSettings(FileSystem& files);

[[nodiscard]] ProgramFolders SystemFolders();

// The full path of the reminder program, which lies beside the running one.
[[nodiscard]] std::string ReminderProgram();

// The start of the reminder program at login: on Linux an entry in the user's autostart folder, on
// Windows one in the registry.
[[nodiscard]] std::unique_ptr<Autostart> MakeAutostart(FileSystem& files);

// Where pages for printing are written, without a separator at the end; may not exist yet. On
// Windows the folder for the data of applications that all users share (CSIDL_COMMON_APPDATA); on
// Linux, where users share no folder that they may write to, the user's data folder for the
// program.
[[nodiscard]] std::string GetCommonDataFolder();

// Where a page is written that cannot be written there: the user's own folder for data that stays
// on this computer, on Windows CSIDL_LOCAL_APPDATA, which does not travel with the user as
// ProgramFolders::userData may; on Linux his data folder for the program. May not exist yet.
[[nodiscard]] std::string GetLocalDataFolder();

// The one copy of the program in the user's login session; with other settings than the user's
// own (`settingsPath` not empty), the one copy that runs on that file.
[[nodiscard]] std::unique_ptr<PreviousInstance> MakePreviousInstance(
    FileSystem& files, const std::string& settingsPath);

}  // namespace tidewarden
