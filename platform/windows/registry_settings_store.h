// The settings store in the registry: HKEY_CURRENT_USER\Software\Tideward\<section>, one value of
// kind REG_SZ for each name.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "core/settings_store.h"

namespace tidewarden {

class RegistrySettingsStore : public SettingsStore {
 public:
  // `root` lies below HKEY_CURRENT_USER; it and the sections are made by the first write. `flush`
  // stands in for FlushRegistry in a test.
  explicit RegistrySettingsStore(std::wstring root = L"Software\\Tideward",
                                 std::function<void()> flush = {});
  ~RegistrySettingsStore() override;
  RegistrySettingsStore(const RegistrySettingsStore&) = delete;
  RegistrySettingsStore& operator=(const RegistrySettingsStore&) = delete;

  // A value of another kind reads as missing.
  Status Read(std::string_view section, std::string_view name, std::string& value) override;
  Status Write(std::string_view section, std::string_view name, std::string_view value) override;
  Status Delete(std::string_view section, std::string_view name) override;
  void Flush() override;

 private:
  [[nodiscard]] std::wstring KeyOf(std::string_view section) const;

  std::wstring root_;
  std::function<void()> flush_;
  bool isToFlush_ = false;  // something has been written since the last one
};

}  // namespace tidewarden
