// Where the events file is: the setting "Settings/Path" and the rules that make a full path of
// what a user may have typed there.
#pragma once

#include <string>
#include <string_view>

#include "core/file_system.h"
#include "core/settings_store.h"

namespace tidewarden {

enum class PathStyle { kPosix, kWindows };

// The folders that the program knows, in the system's form, without a separator at the end.
struct ProgramFolders {
  std::string program;   // of the executable, symbolic links resolved
  std::string userData;  // the user's data folder for the program; may not exist yet
  PathStyle style = PathStyle::kPosix;
};

// A file in a folder.
[[nodiscard]] std::string JoinPath(std::string_view folder, std::string_view name, PathStyle style);

// A path without its last four characters, which are the ending ".txt" of an events file.
[[nodiscard]] std::string_view WithoutEnding(std::string_view path);

// A file in the user's data folder, named after the events file: its name without the last four
// characters, a very long one cut, and `ending`.
[[nodiscard]] std::string NamedAfter(const std::string& rescueFolder, const std::string& path,
                                     std::string_view ending);

// A stored path as a full path.
//
// Windows: a text that begins with "\" gets the folder in front; one without any "\" or "/" gets
// the folder and "\".
// Posix: a text that begins with "/" stays. Else "\" is read as "/"; a text that began with "\"
// gets the folder in front, one without any separator the folder and "/".
// Any other text stays as it is.
[[nodiscard]] std::string ResolveEventsPath(std::string_view stored, std::string_view folder,
                                            PathStyle style);

// The stored path of another file of the program's, a sound or the quotes, as a full path: as
// ResolveEventsPath gives it for the program's folder, and from there, too, when that is still no
// full path. But on Windows a text that has a drive or begins with "\\" or "/" stays.
[[nodiscard]] std::string FromProgramFolder(std::string_view stored, const ProgramFolders& folders);

// Reads "Settings/Path" and resolves it. A value that does not end in ".txt" gets that ending
// and is saved back. The default lies in the program's folder when that takes new files or already
// holds "dates.txt", else in the user's data folder. Relative paths start from the program's folder
// on Windows, and from the default's folder on Posix. A path that begins with one of the two
// folders where these are on the network ("\\server\share\...") is full: it stays as it is.
[[nodiscard]] std::string LocateEventsFile(SettingsStore& settings, FileSystem& files,
                                           const ProgramFolders& folders);

}  // namespace tidewarden
