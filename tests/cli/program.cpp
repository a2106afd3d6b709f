#include "tests/cli/program.h"

#include <filesystem>

namespace tidewarden::test {

void PrintTo(const Outcome& outcome, std::ostream* out) {
  *out << "exit code " << outcome.exitCode << "\n--- standard output:\n"
       << outcome.out.substr(0, 4000) << "\n--- standard error:\n"
       << outcome.err.substr(0, 4000) << "\n---";
}

std::string DefaultSettings() {
  return "[Options]\n"
         "PrefaceTodaysEventsWithTODAYis=True\n"
         "TitlebarText=Your Tidewarden Upcoming Events\n"
         "ShowLessThan=False\n"
         "SpellOutReminderMonths=False\n"
         "NewDateOffset=0000\n"
         "AlarmSound=True\n"
         "AlarmBeepEachMinute=True\n"
         "DisableAlarms=False\n"
         "CapitalizeTodaysEvents=True\n"
         "ListTodayWithEvents=True\n"
         "ShowDateDifferencesInDaysOnly=True\n"
         "ShowOnlyIfEventsInRange=False\n";
}

Terminal::Terminal() {
  folder.MakeFolder("home");
  surroundings.folder = folder.path();
  surroundings.environment = {{"HOME", folder / "home"},
                              {"XDG_CONFIG_HOME", folder / "home/config"},
                              {"XDG_DATA_HOME", folder / "home/data"},
                              {"LC_ALL", "C"},
                              {"TZ", "UTC"}};
}

void Terminal::WriteSettings(const std::string& lines) const {
  // Of two values with one name the first holds.
  folder.Write("settings.ini", "[Options]\n" + lines + DefaultSettings());
}

Outcome Terminal::RunOnTheDay(const std::string& command,
                              const std::vector<std::string>& arguments) {
  std::vector<std::string> all{command, "--today", "2014-12-22"};
  if (command != "next") {
    if (!folder.Exists("settings.ini")) WriteSettings();
    all.insert(all.end(), {"--settings", "settings.ini"});
  }
  if (command == "list") all.insert(all.end(), {"--now", "14:25"});
  all.insert(all.end(), arguments.begin(), arguments.end());
  return Run(all);
}

void Terminal::CopyProgram() {
  folder.MakeFolder("app");
  std::filesystem::copy_file(TIDEWARDEN_CLI, folder / "app/tidewarden-cli");
  folder.SetPermissions("app/tidewarden-cli", 0755);
  surroundings.program = folder / "app/tidewarden-cli";
}

}  // namespace tidewarden::test
