// The command line of the help program.
#pragma once

#include <QString>
#include <optional>

#include "guide/guide.h"

namespace tidewarden {

enum ExitCode { kDone = 0, kNoDisplay = 1, kUsage = 2, kCannotWrite = 4 };

struct Arguments {
  QString topic;  // empty for the contents
  QString grab;   // where a picture is to be written; empty for none
};

// Reads the command line of the running application; an exit code when there is no more to do,
// after a message when something is wrong. --help and --version end the program here.
[[nodiscard]] std::optional<ExitCode> ReadArguments(const Guide& guide, Arguments& out);

// A line on standard error, with the program's name in front.
void Complain(const QString& text);

}  // namespace tidewarden
