// What the command line says, common to all commands, and the world that a command works in.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "core/ini_settings_store.h"
#include "dates/date_text.h"
#include "platform/system.h"

namespace tidewarden::cli {

enum ExitCode {
  kDone = 0,
  kFindings = 1,  // check found something; nothing is in range; an event never comes
  kUsage = 2,
  kCannotRead = 3,
  kCannotWrite = 4,
};

// As typed; empty texts stand for options that were not given.
struct CommonOptions {
  std::string file;
  std::string settings;
  std::string today;      // YYYY-MM-DD
  std::string now;        // HH:MM
  std::string shortDate;  // pattern letters
  bool json = false;
};

// The adapters of this run. Built once by Open.
struct World {
  std::unique_ptr<FileSystem> files;
  std::unique_ptr<SettingsStore> settings;
  LocalTime now;
  RegionalDateFormat format;
};

// Prepares the world, or explains on standard error why not and gives the exit code.
[[nodiscard]] std::optional<ExitCode> Open(const CommonOptions& options, World& world);

// The events file of `options`, or the one that the settings name.
[[nodiscard]] std::string EventsFile(const CommonOptions& options, World& world);

// Prints "tidewarden-cli: TEXT" on standard error.
void Complain(const std::string& text);

// Writes a text to standard output; kCannotWrite when that fails, as on a full disk.
[[nodiscard]] ExitCode Print(const std::string& text, ExitCode otherwise);

}  // namespace tidewarden::cli
