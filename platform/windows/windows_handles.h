// What the file adapters have in common: handles that close themselves, error codes as statuses,
// patience with files that another program holds, and permissions for the user alone.
#pragma once

#include <string>
#include <utility>

#include "core/status.h"
#include "platform/windows/windows_api.h"

namespace tidewarden {

// Owns a handle of a file. Handles are never inherited by programs that are started.
class FileHandle {
 public:
  FileHandle() = default;
  explicit FileHandle(HANDLE handle) : handle_(handle) {}
  FileHandle(FileHandle&& other) noexcept
      : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}
  FileHandle& operator=(FileHandle&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }
  FileHandle(const FileHandle&) = delete;
  FileHandle& operator=(const FileHandle&) = delete;
  ~FileHandle() { Close(); }

  [[nodiscard]] bool ok() const { return handle_ != INVALID_HANDLE_VALUE; }
  [[nodiscard]] HANDLE get() const { return handle_; }
  void Close();

 private:
  HANDLE handle_ = INVALID_HANDLE_VALUE;
};

// The status of a system error code, kOk for none. An unknown one is worded by the system.
[[nodiscard]] Status FromSystemError(DWORD error);

// The same of the call that has just failed.
[[nodiscard]] Status LastStatus();

// True when another program has the file open in a way that forbids the call. Scanners and
// backup programs do so for moments.
[[nodiscard]] bool IsSharingError(DWORD error);

// For one patient operation: a second in all.
class Patience {
 public:
  Patience() : end_(::GetTickCount64() + kMilliseconds) {}
  explicit Patience(ULONGLONG milliseconds) : end_(::GetTickCount64() + milliseconds) {}

  // Waits a moment and says whether to try again; false when the time is over.
  [[nodiscard]] bool Wait() const;

 private:
  static constexpr ULONGLONG kMilliseconds = 1000;
  ULONGLONG end_;
};

// Opens a file or folder; a sharing error is retried. On failure the last error tells why.
[[nodiscard]] FileHandle OpenPatiently(const std::wstring& path, DWORD access, DWORD share,
                                       DWORD disposition, DWORD flags,
                                       SECURITY_ATTRIBUTES* security = nullptr);

// Permissions that let the user, the system and administrators in and nobody else.
//
// They name the user by a number of this installation of Windows, so they are given only on the
// volume that Windows itself is on: it and its users come and go together, and there other users
// of the computer could read what lies outside the user's own folder. On any other volume (a
// stick, a card, a second disk whether built in or not, the network) the number means nobody to
// the next computer or after Windows has been installed anew, and the owner would be locked out:
// there the permissions are those that the folder hands on. A drive letter that stands for a
// folder counts as another volume.
class PrivateSecurity {
 public:
  // For a file or folder at `path`; for an object of the session when it is empty.
  explicit PrivateSecurity(const std::wstring& path = {});
  PrivateSecurity(const PrivateSecurity&) = delete;
  PrivateSecurity& operator=(const PrivateSecurity&) = delete;
  ~PrivateSecurity();

  // For the create calls; nullptr when the permissions are left to the system.
  [[nodiscard]] SECURITY_ATTRIBUTES* get();

 private:
  SECURITY_ATTRIBUTES attributes_{};
};

}  // namespace tidewarden
