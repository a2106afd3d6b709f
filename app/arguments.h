// The command line of the desktop program.
#pragma once

#include <QString>
#include <optional>
#include <string>

#include "dates/civil.h"

namespace tidewarden {

enum ExitCode { kDone = 0, kNoDisplay = 1, kUsage = 2, kCannotRead = 3, kCannotWrite = 4 };

struct Arguments {
  QString file;
  QString settings;
  QString shortDate;
  QString grab;
  std::optional<CivilDate> today;
  std::optional<int> now;  // seconds since midnight
};

// Reads the command line of the running application; an exit code, after a message, when
// something is wrong with it. --help and --version end the program here.
[[nodiscard]] std::optional<ExitCode> ReadArguments(Arguments& out);

// A line on standard error, with the program's name in front.
void Complain(const std::string& text);

// The same for a reason to end at once, which reaches people without a standard error, too. Gives
// `code` back.
ExitCode Refuse(ExitCode code, const std::string& text);

}  // namespace tidewarden
