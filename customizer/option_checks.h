// Whether a text can be the value of an option, said in plain words.
#pragma once

#include <string>
#include <string_view>

#include "core/clock.h"
#include "core/events_path.h"
#include "core/file_system.h"
#include "core/settings_store.h"
#include "customizer/options.h"

namespace tidewarden {

// Where the programs would look for the files that a path option names.
struct PathSurroundings {
  SettingsStore& settings;  // only read
  FileSystem& files;        // only read
  ProgramFolders folders;
};

// What is wrong with a value, as one or two short sentences; empty when nothing is. An empty text
// stands for the default and is never wrong. Paths are looked up as the program itself would.
[[nodiscard]] std::string CheckOption(const Option& option, std::string_view text,
                                      const PathSurroundings& paths);

// The text to store for what was typed: a time "6:30" becomes "0630", blanks around a number go;
// any other text stays.
[[nodiscard]] std::string StorableText(const Option& option, std::string_view text);

// A time in a form that the box takes but the reminder reads as another time, such as a stored
// "6:30": what to type in its place, as sentences. Empty for everything else.
[[nodiscard]] std::string MisreadTime(const Option& option, std::string_view text);

// The default of an option, worked out where it depends on the program's folder.
[[nodiscard]] std::string DefaultOf(const Option& option, const PathSurroundings& paths);

// How a switch reads a text.
[[nodiscard]] bool ReadSwitch(const Option& option, std::string_view stored);

// The choice that a stored text stands for, in any letter case, by its index; -1 for none.
[[nodiscard]] int ChoiceOf(const Option& option, std::string_view stored);

}  // namespace tidewarden
