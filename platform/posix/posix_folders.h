// Where the user's files of the program are on POSIX systems.
#pragma once

#include <string>

namespace tidewarden {

// "settings.ini" in the user's configuration folder for the program.
[[nodiscard]] std::string SettingsFilePath();

}  // namespace tidewarden
