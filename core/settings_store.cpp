#include "core/settings_store.h"

namespace tidewarden {

Status SettingsStore::WriteAll(const std::vector<SettingValue>& values) {
  std::vector<SettingValue> before = values;
  for (SettingValue& value : before) {
    Status status = Read(value.section, value.name, value.value);
    if (!status.ok()) return status;
  }
  for (std::size_t i = 0; i < values.size(); ++i) {
    Status status = Write(values[i].section, values[i].name, values[i].value);
    if (status.ok()) continue;
    for (std::size_t back = 0; back < i; ++back) {
      const SettingValue& old = before[back];
      // What cannot be put back either is lost with the reason that is told already.
      static_cast<void>((old.value.empty() ? Delete(old.section, old.name)
                                           : Write(old.section, old.name, old.value))
                            .ok());
    }
    return status;
  }
  return {};
}

}  // namespace tidewarden
