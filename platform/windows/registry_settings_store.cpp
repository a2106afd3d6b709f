#include "platform/windows/registry_settings_store.h"

#include <windows.h>

#include <utility>

#include "platform/windows/windows_handles.h"
#include "platform/windows/windows_text.h"

namespace tidewarden {
namespace {

// Registry calls give their error back.
Status FromResult(LSTATUS result) {
  return FromSystemError(static_cast<DWORD>(result));
}

class RegistryKey {
 public:
  RegistryKey() = default;
  RegistryKey(const RegistryKey&) = delete;
  RegistryKey& operator=(const RegistryKey&) = delete;
  ~RegistryKey() {
    if (key_ != nullptr) ::RegCloseKey(key_);
  }

  LSTATUS Open(const std::wstring& path, REGSAM access) {
    return ::RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, access, &key_);
  }
  LSTATUS Create(const std::wstring& path, REGSAM access) {
    return ::RegCreateKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                             access, nullptr, &key_, nullptr);
  }
  [[nodiscard]] HKEY get() const { return key_; }

 private:
  HKEY key_ = nullptr;
};

}  // namespace

RegistrySettingsStore::RegistrySettingsStore(std::wstring root) : root_(std::move(root)) {}

std::wstring RegistrySettingsStore::KeyOf(std::string_view section) const {
  return root_ + L"\\" + Wide(section);
}

Status RegistrySettingsStore::Read(std::string_view section, std::string_view name,
                                   std::string& value) {
  const std::wstring wideName = Wide(name);
  RegistryKey key;
  LSTATUS result = key.Open(KeyOf(section), KEY_QUERY_VALUE);
  DWORD kind = REG_NONE;
  DWORD bytes = 0;
  std::wstring text;
  if (result == ERROR_SUCCESS) {
    result = ::RegQueryValueExW(key.get(), wideName.c_str(), nullptr, &kind, nullptr, &bytes);
  }
  // Another program may store a longer value between the two calls.
  while (result == ERROR_SUCCESS || result == ERROR_MORE_DATA) {
    text.assign(bytes / sizeof(wchar_t) + 1, L'\0');
    bytes = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    result = ::RegQueryValueExW(key.get(), wideName.c_str(), nullptr, &kind,
                                reinterpret_cast<BYTE*>(text.data()), &bytes);
    if (result == ERROR_SUCCESS) break;
  }
  if (result == ERROR_FILE_NOT_FOUND) {
    value.clear();
    return {};
  }
  if (result != ERROR_SUCCESS) return FromResult(result);
  text.resize(bytes / sizeof(wchar_t));
  // The NUL at the end is part of the value when the writer has put it there.
  value = kind == REG_SZ ? Narrow(text.substr(0, text.find(L'\0'))) : std::string();
  return {};
}

Status RegistrySettingsStore::Write(std::string_view section, std::string_view name,
                                    std::string_view value) {
  RegistryKey key;
  LSTATUS result = key.Create(KeyOf(section), KEY_QUERY_VALUE | KEY_SET_VALUE);
  if (result != ERROR_SUCCESS) return FromResult(result);
  const std::wstring text = Wide(value);
  const auto bytes = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
  result = ::RegSetValueExW(key.get(), Wide(name).c_str(), 0, REG_SZ,
                            reinterpret_cast<const BYTE*>(text.c_str()), bytes);
  if (result == ERROR_SUCCESS) result = ::RegFlushKey(key.get());
  return FromResult(result);
}

Status RegistrySettingsStore::Delete(std::string_view section, std::string_view name) {
  RegistryKey key;
  LSTATUS result = key.Open(KeyOf(section), KEY_SET_VALUE);
  if (result == ERROR_SUCCESS) result = ::RegDeleteValueW(key.get(), Wide(name).c_str());
  return result == ERROR_FILE_NOT_FOUND ? Status() : FromResult(result);
}

}  // namespace tidewarden
