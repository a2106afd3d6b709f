#include "cli/options.h"

#include <cstdio>

#include "dates/regional_text.h"

namespace tidewarden::cli {
namespace {

std::optional<ExitCode> OpenSettings(const CommonOptions& options, World& world) {
  const bool own = options.settings.empty();
  if (own) {
    world.settings = MakeSystemSettings(*world.files);
  } else {
    world.settings = std::make_unique<IniSettingsStore>(*world.files, options.settings);
  }
  std::string anyValue;
  const Status status = world.settings->Read("Settings", "Path", anyValue);
  if (status.ok()) return std::nullopt;
  if (!own) {
    Complain(options.settings + ": " + DescribeStatus(status));
    return kCannotRead;
  }
  Complain("your settings cannot be read, so the defaults are used: " + DescribeStatus(status));
  return std::nullopt;
}

std::optional<ExitCode> SetTime(const CommonOptions& options, World& world) {
  world.now = MakeSystemClock()->Now();
  if (!options.today.empty()) {
    const auto date = ReadIsoDate(options.today);
    if (!date || YearOf(*date) < 1 || YearOf(*date) >= kLastYear) {
      Complain("--today takes a date such as 2026-12-31, not \"" + options.today + "\"");
      return kUsage;
    }
    world.now.date = *date;
  }
  if (!options.now.empty()) {
    const auto time = ReadClockTime(options.now);
    if (!time) {
      Complain("--now takes a time such as 08:30, not \"" + options.now + "\"");
      return kUsage;
    }
    world.now.hour = *time / 100;
    world.now.minute = *time % 100;
    world.now.second = 0;
  }
  return std::nullopt;
}

std::optional<ExitCode> SetFormat(const CommonOptions& options, World& world) {
  const auto formats = MakeSystemFormats(options.shortDate);
  auto format = DetectRegionalDateFormat(formats->ShortDate(kProbeDate), *formats);
  if (!format) {
    if (options.shortDate.empty()) {
      Complain(std::string(kUnsupportedLayoutMessage));
    } else {
      Complain("--short-date \"" + options.shortDate +
               "\" is not supported; use day, month and year in digits, such as MM/dd/yyyy, "
               "dd.MM.yyyy, yyyy-MM-dd or yy/MM/dd");
    }
    return kUsage;
  }
  world.format = std::move(*format);
  return std::nullopt;
}

}  // namespace

std::optional<ExitCode> Open(const CommonOptions& options, World& world) {
  world.files = MakeSystemFiles();
  if (const auto code = SetTime(options, world)) return code;
  if (const auto code = SetFormat(options, world)) return code;
  return OpenSettings(options, world);
}

std::string EventsFile(const CommonOptions& options, World& world) {
  return options.file.empty() ? LocateEventsFile(*world.settings, *world.files, SystemFolders())
                              : options.file;
}

void Complain(const std::string& text) {
  const std::string line = "tidewarden-cli: " + text + "\n";
  // Nobody is left to hear that standard error is closed.
  static_cast<void>(std::fwrite(line.data(), 1, line.size(), stderr));
}

ExitCode Print(const std::string& text, ExitCode otherwise) {
  const bool written =
      std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0;
  if (written) return otherwise;
  Complain("standard output cannot be written");
  return kCannotWrite;
}

}  // namespace tidewarden::cli
