// Port: the per-user settings store. Texts addressed by section and name, under the
// application name kApplicationName.
//
// Section and name are compared without regard to ASCII case and keep the case of their first
// write. Every read sees what other programs have written; every write is on the disk when the
// call returns.
#pragma once

#include <string>
#include <string_view>

#include "core/status.h"

namespace tidewarden {

inline constexpr std::string_view kApplicationName = "Tideward";

class SettingsStore {
 public:
  virtual ~SettingsStore() = default;

  // The value of a name; the empty text when it is missing. Any other status than kOk means
  // that the store cannot be read, and `value` is unchanged.
  virtual Status Read(std::string_view section, std::string_view name, std::string& value) = 0;

  // Stores a value, the empty text included. On failure the store is as before. A store that
  // cannot be read is not written.
  virtual Status Write(std::string_view section, std::string_view name, std::string_view value) = 0;

  // Removes a name. kOk also when it is missing.
  virtual Status Delete(std::string_view section, std::string_view name) = 0;
};

}  // namespace tidewarden
