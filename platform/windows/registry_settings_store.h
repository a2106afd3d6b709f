// The settings store in the registry: HKEY_CURRENT_USER\Software\Tideward\<section>, one value of
// kind REG_SZ for each name.
#pragma once

#include <string>
#include <string_view>

#include "core/settings_store.h"

namespace tidewarden {

class RegistrySettingsStore : public SettingsStore {
 public:
  // `root` lies below HKEY_CURRENT_USER; it and the sections are made by the first write.
  explicit RegistrySettingsStore(std::wstring root = L"Software\\Tideward");

  // A value of another kind reads as missing.
  Status Read(std::string_view section, std::string_view name, std::string& value) override;
  Status Write(std::string_view section, std::string_view name, std::string_view value) override;
  Status Delete(std::string_view section, std::string_view name) override;

 private:
  [[nodiscard]] std::wstring KeyOf(std::string_view section) const;

  std::wstring root_;
};

}  // namespace tidewarden
