#include "platform/windows/windows_text.h"

#include "platform/windows/windows_api.h"

namespace tidewarden {
namespace {

constexpr std::wstring_view kUnlimited = L"\\\\?\\";
constexpr std::wstring_view kDevice = L"\\\\.\\";
// Folders must leave room for a name of eight characters, a point and an ending.
constexpr std::size_t kLongestOrdinary = MAX_PATH - 13;

std::wstring FullPath(const std::wstring& path) {
  std::wstring full(MAX_PATH, L'\0');
  while (true) {
    const DWORD length =
        ::GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
    if (length == 0) return path;
    const bool fits = length < full.size();
    full.resize(length);
    if (fits) return full;
  }
}

}  // namespace

std::wstring Wide(std::string_view utf8) {
  const int bytes = static_cast<int>(utf8.size());
  const int length = ::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, nullptr, 0);
  std::wstring text(static_cast<std::size_t>(length), L'\0');
  ::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, text.data(), length);
  return text;
}

std::string Narrow(std::wstring_view text) {
  const int units = static_cast<int>(text.size());
  const int length =
      ::WideCharToMultiByte(CP_UTF8, 0, text.data(), units, nullptr, 0, nullptr, nullptr);
  std::string utf8(static_cast<std::size_t>(length), '\0');
  ::WideCharToMultiByte(CP_UTF8, 0, text.data(), units, utf8.data(), length, nullptr, nullptr);
  return utf8;
}

std::wstring WidePath(const std::string& path) {
  std::wstring wide = Wide(path);
  if (wide.empty() || wide.starts_with(kUnlimited) || wide.starts_with(kDevice)) return wide;
  std::wstring full = FullPath(wide);
  if (full.size() < kLongestOrdinary || full.starts_with(kDevice)) return full;
  if (full.starts_with(L"\\\\")) {
    return std::wstring(kUnlimited).append(L"UNC").append(full.substr(1));
  }
  return std::wstring(kUnlimited) + full;
}

std::wstring FolderOf(const std::wstring& path) {
  const std::size_t slash = path.rfind(L'\\');
  if (slash == std::wstring::npos) return L".";
  const bool isRoot = slash > 0 && path[slash - 1] == L':';
  return path.substr(0, isRoot ? slash + 1 : slash);
}

}  // namespace tidewarden
