// The programs and pages that buttons of the events editor start: the help program, the options
// program, the maker's order page.
//
// Each launch is one request to the shell. Nothing tells whether it worked, and nothing is shown
// to the user.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "core/events_path.h"
#include "core/file_system.h"
#include "core/program_end.h"
#include "core/shell.h"

namespace tidewarden {

// The full path of the help program, beside the program itself. On Windows every doubled
// backslash of the whole path becomes a single one, that of a network folder included.
[[nodiscard]] std::string HelpProgram(const ProgramFolders& folders);

// The full path of the options program, beside the program itself. On Windows by its short name,
// and with the folder as it is; by its long name where there is no such file.
[[nodiscard]] std::string OptionsProgram(FileSystem& files, const ProgramFolders& folders);

void StartHelp(Shell& shell, const ProgramFolders& folders);

// What changing to the options program needs.
struct OptionsPorts {
  FileSystem& files;
  Shell& shell;
  ProgramEnd& end;
  std::function<void()> release;  // gives back what the system would keep beyond the process
};

// Starts the options program, whether it is there or not, releases, and ends this program with
// exit code 0.
void ChangeToOptions(const OptionsPorts& ports, const ProgramFolders& folders);

// True for an address that the order page may have: "https://" and something behind it, without
// blanks and control characters.
[[nodiscard]] bool IsOrderPage(std::string_view address);

// Opens the order page. Any other address opens nothing.
void OpenOrderPage(Shell& shell, std::string_view address, PathStyle style);

}  // namespace tidewarden
