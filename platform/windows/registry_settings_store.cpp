#include "platform/windows/registry_settings_store.h"

#include <utility>

#include "platform/windows/registry_key.h"
#include "platform/windows/windows_text.h"

namespace tidewarden {

RegistrySettingsStore::RegistrySettingsStore(std::wstring root, std::function<void()> flush)
    : root_(std::move(root)), flush_(flush ? std::move(flush) : FlushRegistry) {}

RegistrySettingsStore::~RegistrySettingsStore() {
  RegistrySettingsStore::Flush();
}

void RegistrySettingsStore::Flush() {
  if (std::exchange(isToFlush_, false)) flush_();
}

std::wstring RegistrySettingsStore::KeyOf(std::string_view section) const {
  return root_ + L"\\" + Wide(section);
}

Status RegistrySettingsStore::Read(std::string_view section, std::string_view name,
                                   std::string& value) {
  std::optional<RegistryValue> stored;
  Status status = ReadRegistry(KeyOf(section), Wide(name), stored);
  if (status.ok()) value = stored ? Narrow(TextOf(*stored)) : std::string();
  return status;
}

Status RegistrySettingsStore::Write(std::string_view section, std::string_view name,
                                    std::string_view value) {
  isToFlush_ = true;
  return WriteRegistryText(KeyOf(section), Wide(name), Wide(value));
}

Status RegistrySettingsStore::Delete(std::string_view section, std::string_view name) {
  isToFlush_ = true;
  return DeleteFromRegistry(KeyOf(section), Wide(name));
}

}  // namespace tidewarden
