// What a program settles for itself when it starts.
#pragma once

#include <string>
#include <vector>

namespace tidewarden {

// From now on libraries come from the system's own folder: none from the current folder, none
// from the search path. Called before anything else.
void LoadOnlySystemLibraries();

// From now on an attempt to use a drive without a medium, such as an empty card reader, fails at
// once. Otherwise the system first asks for the medium in a box of its own and waits.
void LetEmptyDrivesFail();

// Standard output and standard error carry the bytes that are written, without another line end,
// and a console shows them as UTF-8. The console has its own code page back when the program ends.
void UseUtf8Streams();

// The console has its own code page back already now, for a program that goes on without it.
void RestoreConsole();

// The command line in UTF-8, the program's name first.
[[nodiscard]] std::vector<std::string> CommandLineArguments();

}  // namespace tidewarden
