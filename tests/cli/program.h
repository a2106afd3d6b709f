// Runs tidewarden-cli as a whole program and tells what it printed.
#pragma once

#include <map>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "tests/support/temporary_folder.h"

namespace tidewarden::test {

struct Outcome {
  int exitCode = 0;  // 128 and the signal's number for a program that was killed
  std::string out;
  std::string err;
  bool operator==(const Outcome&) const = default;
};

void PrintTo(const Outcome& outcome, std::ostream* out);

// Where standard output goes.
enum class StandardOutput { kCaptured, kFullDevice, kClosed, kPipeWithoutReader };

// How the program is run, besides its arguments.
struct Surroundings {
  std::string program = TIDEWARDEN_CLI;
  std::map<std::string, std::string> environment;
  std::string folder;  // the current one
  StandardOutput output = StandardOutput::kCaptured;
  bool closeAllStreams = false;  // standard input and error too
  bool ignorePipeSignal = false;
  bool asOrdinaryUser = false;               // an unprivileged user when the test runs as root
  std::optional<unsigned long> largestFile;  // in bytes
};

// Runs the program to its end. One that runs for a minute is killed, which throws, as does
// anything that keeps it from being run at all.
Outcome RunProgram(const Surroundings& surroundings, const std::vector<std::string>& arguments);

// Every setting that a list reads, with its default: a settings file that need not be written.
[[nodiscard]] std::string DefaultSettings();

// A folder with a home in it, and the program run there: in the C locale and in UTC, with
// nothing of the user's own environment.
class Terminal {
 public:
  Terminal();

  TemporaryFolder folder;
  Surroundings surroundings;

  Outcome Run(const std::vector<std::string>& arguments) const {
    return RunProgram(surroundings, arguments);
  }

  // Writes settings.ini: lines for the section "Options", then the default settings.
  void WriteSettings(const std::string& lines = {}) const;

  // `command` on 22 December 2014 at 14:25, with settings.ini for its settings, which are written
  // when they are not there.
  Outcome RunOnTheDay(const std::string& command, const std::vector<std::string>& arguments);

  // The program's copy in the folder "app", from where it is run from now on.
  void CopyProgram();

  // Lets the ordinary user write in the test's folder, and makes the program's runs his.
  void BecomeOrdinaryUser();
};

}  // namespace tidewarden::test
