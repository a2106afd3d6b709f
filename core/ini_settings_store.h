// The settings store in a plain file: UTF-8, "[Section]" lines and "Name=value" lines split at
// the first "=". A value is kept exactly, blanks, backslashes and quotes included; a line break
// inside one is written as a blank. Lines that are neither, such as comments behind ";" or "#",
// are kept when the file is rewritten.
//
// Two programs may share the file: a write takes a lock, reads the file again, changes one value
// and replaces the file whole. A file that cannot be read is never written.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/file_system.h"
#include "core/settings_store.h"

namespace tidewarden {

// The text form, as functions of the file's text. A name holds no "=" and no line break and does
// not begin with "[", ";" or "#".
namespace ini {

// The first value under section and name; nothing when there is none.
[[nodiscard]] std::optional<std::string_view> FindValue(std::string_view text,
                                                        std::string_view section,
                                                        std::string_view name);

// The text with that value set: its line replaced, or a line added behind the section's last
// value, or the section added at the end.
[[nodiscard]] std::string WithValue(std::string_view text, std::string_view section,
                                    std::string_view name, std::string_view value);

// The text without any line for section and name.
[[nodiscard]] std::string WithoutValue(std::string_view text, std::string_view section,
                                       std::string_view name);

// True for a name that the text form can hold.
[[nodiscard]] bool IsStorableName(std::string_view name);

}  // namespace ini

class IniSettingsStore : public SettingsStore {
 public:
  // `path` need not exist; the file and its folder are created by the first write, for the user
  // alone. `files` outlives the store.
  IniSettingsStore(FileSystem& files, std::string path);

  Status Read(std::string_view section, std::string_view name, std::string& value) override;
  Status Write(std::string_view section, std::string_view name, std::string_view value) override;
  // In one replacement of the file.
  Status WriteAll(const std::vector<SettingValue>& values) override;
  Status Delete(std::string_view section, std::string_view name) override;

 private:
  Status Refresh();
  Status Change(const std::string& changed);

  FileSystem& files_;
  std::string path_;
  std::string content_;  // as last read
  FileStamp stamp_;      // of content_; meaningful when loaded_
  bool loaded_ = false;
};

}  // namespace tidewarden
