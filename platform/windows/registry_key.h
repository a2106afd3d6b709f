// Values of the user's own part of the registry.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/status.h"
#include "platform/windows/windows_api.h"

namespace tidewarden {

struct RegistryValue {
  DWORD kind = REG_NONE;
  std::string bytes;  // as they are stored
};

// The value of a name in a key below HKEY_CURRENT_USER; nothing when either is missing. On failure
// `out` is unchanged.
[[nodiscard]] Status ReadRegistry(const std::wstring& key, const std::wstring& name,
                                  std::optional<RegistryValue>& out);

// Stores a text (REG_SZ), making the missing keys. Other programs see it at once; the system brings
// it to the disk within its own time.
[[nodiscard]] Status WriteRegistryText(const std::wstring& key, const std::wstring& name,
                                       std::wstring_view text);

// Stores a value as ReadRegistry has given it.
[[nodiscard]] Status WriteRegistry(const std::wstring& key, const std::wstring& name,
                                   const RegistryValue& value);

// Removes a name. kOk also when it is missing.
[[nodiscard]] Status DeleteFromRegistry(const std::wstring& key, const std::wstring& name);

// Brings the user's part of the registry to the disk. A matter of milliseconds: not for each value.
void FlushRegistry();

// The text of a value of kind REG_SZ, which may lack its NUL; the empty text for other kinds.
[[nodiscard]] std::wstring TextOf(const RegistryValue& value);

}  // namespace tidewarden
