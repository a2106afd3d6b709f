#include "platform/windows/windows_handles.h"

#include <sddl.h>

#include <array>
#include <cstddef>

#include "platform/windows/windows_text.h"

namespace tidewarden {
namespace {

constexpr DWORD kPauseMilliseconds = 10;
constexpr DWORD kDiskQuotaExceeded = 1295;  // has no name in every set of headers

std::string SystemWording(DWORD error) {
  std::array<wchar_t, 512> text{};
  DWORD length =
      ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error,
                       0, text.data(), static_cast<DWORD>(text.size()), nullptr);
  // The system ends its sentences with a full stop and a line break.
  while (length > 0 && (text[length - 1] <= L' ' || text[length - 1] == L'.')) --length;
  if (length == 0) return "system error " + std::to_string(error);
  return Narrow({text.data(), length});
}

// The user's security number as text; empty when the system does not tell.
std::wstring UserNumber() {
  HANDLE token = nullptr;
  if (::OpenProcessToken(::GetCurrentProcess(), TOKEN_QUERY, &token) == 0) return {};
  alignas(TOKEN_USER) std::array<std::byte, sizeof(TOKEN_USER) + SECURITY_MAX_SID_SIZE> bytes{};
  DWORD size = 0;
  std::wstring number;
  wchar_t* text = nullptr;
  if (::GetTokenInformation(token, TokenUser, bytes.data(), static_cast<DWORD>(bytes.size()),
                            &size) != 0 &&
      ::ConvertSidToStringSidW(reinterpret_cast<TOKEN_USER*>(bytes.data())->User.Sid, &text) != 0) {
    number = text;
    ::LocalFree(text);
  }
  ::CloseHandle(token);
  return number;
}

// Where the volume of a path begins, in the form that people write; empty when it cannot be told.
std::wstring VolumeOf(const std::wstring& path) {
  std::wstring volume(path.size() + MAX_PATH, L'\0');
  if (::GetVolumePathNameW(path.c_str(), volume.data(), static_cast<DWORD>(volume.size())) == 0) {
    return {};
  }
  volume.resize(volume.find(L'\0'));
  return volume.starts_with(L"\\\\?\\") ? volume.substr(4) : volume;
}

bool IsOnSystemVolume(const std::wstring& path) {
  std::wstring windows(MAX_PATH, L'\0');
  const UINT length = ::GetSystemWindowsDirectoryW(windows.data(), MAX_PATH);
  if (length == 0 || length >= MAX_PATH) return false;
  windows.resize(length);
  const std::wstring own = VolumeOf(path);
  const std::wstring system = VolumeOf(windows);
  return !own.empty() &&
         ::CompareStringOrdinal(own.c_str(), -1, system.c_str(), -1, TRUE) == CSTR_EQUAL;
}

}  // namespace

void FileHandle::Close() {
  if (handle_ != INVALID_HANDLE_VALUE) ::CloseHandle(handle_);
  handle_ = INVALID_HANDLE_VALUE;
}

Status FromSystemError(DWORD error) {
  switch (error) {
    case ERROR_SUCCESS:
      return {};
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_DIRECTORY:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
      return Status(StatusKind::kNotFound);
    case ERROR_ACCESS_DENIED:
    case ERROR_NETWORK_ACCESS_DENIED:
    case ERROR_PRIVILEGE_NOT_HELD:
      return Status(StatusKind::kNoPermission);
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case kDiskQuotaExceeded:
      return Status(StatusKind::kNoSpace);
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_USER_MAPPED_FILE:
      return Status(StatusKind::kBusy);
    case ERROR_WRITE_PROTECT:
      return Status(StatusKind::kReadOnly);
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
    case ERROR_FILE_TOO_LARGE:
      return Status(StatusKind::kTooLarge);
    default:
      return Status(StatusKind::kInputOutput, SystemWording(error));
  }
}

Status LastStatus() {
  return FromSystemError(::GetLastError());
}

bool IsSharingError(DWORD error) {
  return error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION ||
         error == ERROR_USER_MAPPED_FILE;
}

bool Patience::Wait() const {
  if (::GetTickCount64() >= end_) return false;
  ::Sleep(kPauseMilliseconds);
  return true;
}

FileHandle OpenPatiently(const std::wstring& path, DWORD access, DWORD share, DWORD disposition,
                         DWORD flags, SECURITY_ATTRIBUTES* security) {
  const Patience patience;
  while (true) {
    FileHandle handle(
        ::CreateFileW(path.c_str(), access, share, security, disposition, flags, nullptr));
    if (handle.ok() || !IsSharingError(::GetLastError())) return handle;
    const DWORD error = ::GetLastError();
    const bool again = patience.Wait();
    ::SetLastError(error);
    if (!again) return handle;
  }
}

PrivateSecurity::PrivateSecurity(const std::wstring& path) {
  attributes_.nLength = sizeof attributes_;
  if (!path.empty() && !IsOnSystemVolume(path)) return;
  const std::wstring user = UserNumber();
  if (user.empty()) return;
  // Inherited by what is created in a folder; protected from what the folder above grants.
  const std::wstring access = L"D:P(A;OICI;FA;;;" + user + L")(A;OICI;FA;;;SY)(A;OICI;FA;;;BA)";
  // On failure the pointer stays null, and the permissions are the system's own.
  ::ConvertStringSecurityDescriptorToSecurityDescriptorW(
      access.c_str(), SDDL_REVISION_1, &attributes_.lpSecurityDescriptor, nullptr);
}

PrivateSecurity::~PrivateSecurity() {
  if (attributes_.lpSecurityDescriptor != nullptr) ::LocalFree(attributes_.lpSecurityDescriptor);
}

SECURITY_ATTRIBUTES* PrivateSecurity::get() {
  return attributes_.lpSecurityDescriptor != nullptr ? &attributes_ : nullptr;
}

}  // namespace tidewarden
