#include "platform/windows/registry_key.h"

#include <cstring>

#include "platform/windows/windows_handles.h"

namespace tidewarden {
namespace {

// Registry calls give their error back.
Status FromResult(LSTATUS result) {
  return FromSystemError(static_cast<DWORD>(result));
}

class Key {
 public:
  Key() = default;
  Key(const Key&) = delete;
  Key& operator=(const Key&) = delete;
  ~Key() {
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

Status ReadRegistry(const std::wstring& key, const std::wstring& name,
                    std::optional<RegistryValue>& out) {
  Key opened;
  LSTATUS result = opened.Open(key, KEY_QUERY_VALUE);
  RegistryValue value;
  DWORD size = 0;
  if (result == ERROR_SUCCESS) {
    result = ::RegQueryValueExW(opened.get(), name.c_str(), nullptr, &value.kind, nullptr, &size);
  }
  if (result == ERROR_SUCCESS) {
    // Another program may store a longer value between the two calls.
    do {
      value.bytes.resize(size);
      result = ::RegQueryValueExW(opened.get(), name.c_str(), nullptr, &value.kind,
                                  reinterpret_cast<BYTE*>(value.bytes.data()), &size);
    } while (result == ERROR_MORE_DATA);
  }
  if (result == ERROR_FILE_NOT_FOUND) {
    out.reset();
    return {};
  }
  if (result != ERROR_SUCCESS) return FromResult(result);
  value.bytes.resize(size);
  out = std::move(value);
  return {};
}

Status WriteRegistryText(const std::wstring& key, const std::wstring& name,
                         std::wstring_view text) {
  const std::wstring ended(text);
  const std::size_t bytes = (ended.size() + 1) * sizeof(wchar_t);
  return WriteRegistry(key, name, {REG_SZ, {reinterpret_cast<const char*>(ended.c_str()), bytes}});
}

Status WriteRegistry(const std::wstring& key, const std::wstring& name,
                     const RegistryValue& value) {
  Key opened;
  LSTATUS result = opened.Create(key, KEY_QUERY_VALUE | KEY_SET_VALUE);
  if (result != ERROR_SUCCESS) return FromResult(result);
  result = ::RegSetValueExW(opened.get(), name.c_str(), 0, value.kind,
                            reinterpret_cast<const BYTE*>(value.bytes.data()),
                            static_cast<DWORD>(value.bytes.size()));
  return FromResult(result);
}

Status DeleteFromRegistry(const std::wstring& key, const std::wstring& name) {
  Key opened;
  LSTATUS result = opened.Open(key, KEY_SET_VALUE);
  if (result == ERROR_SUCCESS) result = ::RegDeleteValueW(opened.get(), name.c_str());
  return result == ERROR_FILE_NOT_FOUND ? Status() : FromResult(result);
}

void FlushRegistry() {
  ::RegFlushKey(HKEY_CURRENT_USER);
}

std::wstring TextOf(const RegistryValue& value) {
  if (value.kind != REG_SZ) return {};
  std::wstring text(value.bytes.size() / sizeof(wchar_t), L'\0');
  std::memcpy(text.data(), value.bytes.data(), text.size() * sizeof(wchar_t));
  return text.substr(0, text.find(L'\0'));
}

}  // namespace tidewarden
