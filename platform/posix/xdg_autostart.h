// The autostart port for desktops that follow the freedesktop standards: the file
// "tidewarden.desktop" in the user's autostart folder (Desktop Application Autostart and Desktop
// Entry standards, freedesktop.org).
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/autostart.h"
#include "core/file_system.h"

namespace tidewarden {

// The text form, as functions of texts.
namespace desktop_entry {

// An argument as an Exec line of a desktop entry needs it, quoted and escaped where necessary.
[[nodiscard]] std::string ExecArgument(std::string_view argument);

// The arguments of an Exec line, unquoted; field codes such as "%U" stay as they are. A quotation
// mark that is never closed reaches to the end.
[[nodiscard]] std::vector<std::string> ArgumentsOfExec(std::string_view exec);

// The value of a key in the group "Desktop Entry"; empty when there is none.
[[nodiscard]] std::string ValueOf(std::string_view text, std::string_view key);

// The entry with this key and value in that group, in place of every line for the key. The group
// is added when it is missing.
[[nodiscard]] std::string WithKey(std::string_view text, std::string_view key,
                                  std::string_view value);

// The entry without the key.
[[nodiscard]] std::string WithoutKey(std::string_view text, std::string_view key);

}  // namespace desktop_entry

class XdgAutostart : public Autostart {
 public:
  // `configFolder` is the user's configuration folder, `program` the full path of the program
  // that is to start. `files` outlives the object.
  XdgAutostart(FileSystem& files, const std::string& configFolder, std::string program);

  // Entries that the desktop passes over ("Hidden", "X-GNOME-Autostart-enabled=false") are off.
  [[nodiscard]] bool IsOn() override;
  Status Set(bool on) override;

 private:
  [[nodiscard]] bool StartsProgram(const std::string& entry) const;
  [[nodiscard]] std::string SwitchedOn(std::string entry) const;

  FileSystem& files_;
  std::string path_;
  std::string program_;
};

}  // namespace tidewarden
