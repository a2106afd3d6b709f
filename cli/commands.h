// The commands of tidewarden-cli. Each does its work, prints its data on standard output and its
// messages on standard error, and gives the exit code.
#pragma once

#include <string>

#include "cli/options.h"

namespace tidewarden::cli {

struct ListArguments {
  bool update = false;     // also write what building the list changes in the events file
  bool onlyIfAny = false;  // kFindings when nothing is in range
};

[[nodiscard]] ExitCode RunList(const CommonOptions& options, const ListArguments& arguments);

[[nodiscard]] ExitCode RunCheck(const CommonOptions& options);

// The next `count` dates of an event line.
[[nodiscard]] ExitCode RunNext(const CommonOptions& options, const std::string& line, int count);

}  // namespace tidewarden::cli
