// tidewarden-cli: the reminder list at a terminal, for scripts, panels, cron and ssh.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <new>
#include <sstream>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "platform/system.h"
#include "tidewarden_version.h"

namespace {

using tidewarden::cli::CommonOptions;

constexpr char kVersionText[] = "tidewarden-cli " TIDEWARDEN_VERSION;

// An empty text is more likely a slip in a script than an option left out on purpose.
CLI::Validator NotEmpty() {
  return {[](const std::string& value) { return value.empty() ? "it must not be empty" : ""; }, ""};
}

void AddClockAndFormat(CLI::App& command, CommonOptions& options) {
  command.set_version_flag("--version", kVersionText);
  command.add_option("--today", options.today, "Take this day for today")
      ->type_name("YYYY-MM-DD")
      ->check(NotEmpty());
  command
      .add_option("--short-date", options.shortDate,
                  "Write dates like this instead of as the system does: MM/dd/yyyy, "
                  "dd.MM.yyyy, yyyy-MM-dd, yy/MM/dd, ...")
      ->type_name("PATTERN")
      ->check(NotEmpty());
  command.add_flag("--json", options.json, "Print JSON");
}

void AddFiles(CLI::App& command, CommonOptions& options) {
  command.add_option("--file", options.file, "The events file; else the one in the settings")
      ->type_name("PATH")
      ->check(NotEmpty());
  command
      .add_option("--settings", options.settings,
                  "A settings file in place of your own; created when missing")
      ->type_name("PATH")
      ->check(NotEmpty());
}

tidewarden::cli::ExitCode Run(const std::vector<std::string>& arguments) {
  using namespace tidewarden::cli;
  CLI::App app{
      "Tidewarden at the terminal: what is coming, from a file of events.\n"
      "Exit codes: 0 done, 1 findings, nothing in range or no date, 2 usage,\n"
      "3 a file cannot be read, 4 a file cannot be written.",
      "tidewarden-cli"};
  app.set_version_flag("--version", kVersionText);
  app.require_subcommand(1);

  CommonOptions options;
  ListArguments listArguments;
  std::string line;
  int count = 1;

  CLI::App* list = app.add_subcommand("list", "Print the reminder list, one item a line");
  AddFiles(*list, options);
  AddClockAndFormat(*list, options);
  list->add_option("--now", options.now, "Take this time of day for now")
      ->type_name("HH:MM")
      ->check(NotEmpty());
  list->add_flag("--update", listArguments.update,
                 "Also tidy the events file as the window does: remove one-time events that are "
                 "over, show hidden events again");
  list->add_flag("--only-if-any", listArguments.onlyIfAny, "Exit with 1 when no event is in range");

  CLI::App* check = app.add_subcommand(
      "check", "Report every line that is not an event, and events that look wrong");
  AddFiles(*check, options);
  AddClockAndFormat(*check, options);

  CLI::App* next = app.add_subcommand("next", "Print the next dates of one event line");
  next->add_option("LINE", line, "An event line, such as \"12.25,Christmas,14,yearly\"")
      ->required();
  next->add_option("-n", count, "How many dates; else 1")
      ->type_name("N")
      ->check(CLI::Range(1, 10000));
  AddClockAndFormat(*next, options);

  std::vector<const char*> texts;
  texts.reserve(arguments.size());
  for (const std::string& argument : arguments) texts.push_back(argument.c_str());
  try {
    app.parse(static_cast<int>(texts.size()), texts.data());
  } catch (const CLI::ParseError& error) {
    std::ostringstream out;
    std::ostringstream complaints;
    const bool wanted = app.exit(error, out, complaints) == 0;
    static_cast<void>(std::fwrite(complaints.str().data(), 1, complaints.str().size(), stderr));
    return wanted ? Print(out.str(), kDone) : kUsage;
  }
  if (list->parsed()) return RunList(options, listArguments);
  if (check->parsed()) return RunCheck(options);
  return RunNext(options, line, count);
}

}  // namespace

int main(int argc, char** argv) {
  const char* complaint = nullptr;
  try {
    tidewarden::PrepareProgram();
    return Run(tidewarden::ProgramArguments(argc, argv));
  } catch (const std::bad_alloc&) {
    complaint = "tidewarden-cli: out of memory\n";
  } catch (...) {
    complaint = "tidewarden-cli: an error that should not happen\n";
  }
  static_cast<void>(std::fputs(complaint, stderr));
  return tidewarden::cli::kCannotRead;
}
