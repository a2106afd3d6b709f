// Port: the per-user settings store. Texts addressed by section and name, under the
// application name kApplicationName.
//
// Section and name are compared without regard to ASCII case and keep the case of their first
// write. Every read sees what other programs have written. Every write is seen by other programs
// when the call returns, and is on the disk then or, in a store that saves up such efforts, after
// the next Flush.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/status.h"

namespace tidewarden {

inline constexpr std::string_view kApplicationName = "Tideward";

struct SettingValue {
  std::string section;
  std::string name;
  std::string value;
};

class SettingsStore {
 public:
  virtual ~SettingsStore() = default;

  // The value of a name; the empty text when it is missing. Any other status than kOk means
  // that the store cannot be read, and `value` is unchanged.
  virtual Status Read(std::string_view section, std::string_view name, std::string& value) = 0;

  // Stores a value, the empty text included. On failure the store is as before. A store that
  // cannot be read is not written.
  virtual Status Write(std::string_view section, std::string_view name, std::string_view value) = 0;

  // Stores several values, all of them or none. This form writes them one by one and puts the
  // old ones back when one fails, a missing one for an empty one; a store that can write them at
  // once does so in its own form.
  virtual Status WriteAll(const std::vector<SettingValue>& values);

  // Removes a name. kOk also when it is missing.
  virtual Status Delete(std::string_view section, std::string_view name) = 0;

  // Brings to the disk what is not there yet. To be called before the process ends in a way that
  // destroys no objects; a store that needs it does it by itself when it is destroyed.
  virtual void Flush() {}
};

}  // namespace tidewarden
