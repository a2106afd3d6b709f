#include "platform/windows/windows_file_system.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "platform/windows/windows_handles.h"
#include "platform/windows/windows_staged_files.h"
#include "platform/windows/windows_text.h"

namespace tidewarden {
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
// A pipe's server does not get the user's rights from a program that only looks.
constexpr DWORD kHarmless = SECURITY_SQOS_PRESENT | SECURITY_IDENTIFICATION;
constexpr DWORD kReadPiece = 32 * 1024;  // stays in the processor's first cache
constexpr ULONGLONG kLockMilliseconds = 3000;

bool IsFolder(const std::wstring& path) {
  const DWORD attributes = ::GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// True for a path on a drive that is not there: a stick that is unplugged, or a network drive that
// is not connected yet after the login.
bool IsOnMissingDrive(const std::wstring& path) {
  const std::wstring_view unlimited = L"\\\\?\\";
  const std::size_t drive = path.starts_with(unlimited) ? unlimited.size() : 0;
  if (path.size() < drive + 2 || path[drive + 1] != L':') return false;
  const std::wstring root = path.substr(drive, 2) + L"\\";
  if (::GetFileAttributesW(root.c_str()) != INVALID_FILE_ATTRIBUTES) return false;
  // A drive may be there whose root the user may not look at.
  return LastStatus().kind() != StatusKind::kNoPermission;
}

// What an error means for the file of a path. Of a drive that is not there the system says the
// same as of a folder, but whoever begins a new file for a missing one must wait for a drive.
Status StatusAt(const std::wstring& path, DWORD error) {
  Status status = FromSystemError(error);
  if (status.kind() != StatusKind::kNotFound || !IsOnMissingDrive(path)) return status;
  return Status(StatusKind::kInputOutput, "the drive is not there");
}

// Why a file could not be opened: the system says "access denied" of a folder.
Status WhyNot(const std::wstring& path) {
  const DWORD error = ::GetLastError();
  if (error == ERROR_ACCESS_DENIED && IsFolder(path)) return Status(StatusKind::kIsFolder);
  return StatusAt(path, error);
}

Status CreateFolders(const std::wstring& folder) {
  const DWORD attributes = ::GetFileAttributesW(folder.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES) {
    const bool isFolder = (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    return isFolder ? Status() : Status(StatusKind::kNotAFolder);
  }
  Status status = LastStatus();
  if (status.kind() != StatusKind::kNotFound) return status;
  const std::wstring parent = FolderOf(folder);
  if (parent != folder && parent.size() > 2) {
    status = CreateFolders(parent);
    if (!status.ok()) return status;
  }
  PrivateSecurity security(folder);
  if (::CreateDirectoryW(folder.c_str(), security.get()) != 0) return {};
  return ::GetLastError() == ERROR_ALREADY_EXISTS ? Status() : LastStatus();
}

// Repeats a call that a file in use may refuse, with what `Call` gives for success: not 0.
template <typename Call>
Status Patiently(Call call) {
  const Patience patience;
  while (call() == 0) {
    const DWORD error = ::GetLastError();
    if (!IsSharingError(error) || !patience.Wait()) return FromSystemError(error);
  }
  return {};
}

class WindowsLock : public FileLock {
 public:
  explicit WindowsLock(FileHandle file) : file_(std::move(file)) {}

 private:
  FileHandle file_;
};

}  // namespace

Status WindowsFileSystem::Read(const std::string& path, const TakeBytes& take) {
  const std::wstring wide = WidePath(path);
  const FileHandle file = OpenPatiently(wide, GENERIC_READ, kShareAll, OPEN_EXISTING,
                                        FILE_FLAG_SEQUENTIAL_SCAN | kHarmless);
  if (!file.ok()) return WhyNot(wide);
  if (::GetFileType(file.get()) != FILE_TYPE_DISK) return Status(StatusKind::kNotAFile);
  const auto buffer = std::make_unique_for_overwrite<char[]>(kReadPiece);
  while (true) {
    DWORD got = 0;
    Status status =
        Patiently([&] { return ::ReadFile(file.get(), buffer.get(), kReadPiece, &got, nullptr); });
    if (!status.ok()) return status;
    if (got == 0 || !take({buffer.get(), got})) return {};
  }
}

Status WindowsFileSystem::GetStamp(const std::string& path, FileStamp& out) {
  const std::wstring wide = WidePath(path);
  const FileHandle file = OpenPatiently(wide, FILE_READ_ATTRIBUTES, kShareAll, OPEN_EXISTING,
                                        FILE_FLAG_BACKUP_SEMANTICS | kHarmless);
  if (!file.ok()) return StatusAt(wide, ::GetLastError());
  BY_HANDLE_FILE_INFORMATION info{};
  if (::GetFileInformationByHandle(file.get(), &info) == 0) return LastStatus();
  const auto joined = [](DWORD high, DWORD low) { return std::uint64_t{high} << 32U | low; };
  out.size = joined(info.nFileSizeHigh, info.nFileSizeLow);
  out.modified = static_cast<std::int64_t>(
      joined(info.ftLastWriteTime.dwHighDateTime, info.ftLastWriteTime.dwLowDateTime));
  out.identity = joined(info.nFileIndexHigh, info.nFileIndexLow);
  return {};
}

Status WindowsFileSystem::ListNames(const std::string& folder, std::vector<std::string>& out) {
  const std::wstring wide = WidePath(folder);
  const DWORD attributes = ::GetFileAttributesW(wide.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return LastStatus();
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) return Status(StatusKind::kNotFound);
  WIN32_FIND_DATAW entry{};
  HANDLE search =
      ::FindFirstFileW((wide + (wide.ends_with(L'\\') ? L"*" : L"\\*")).c_str(), &entry);
  std::vector<std::string> names;
  if (search == INVALID_HANDLE_VALUE) {
    // The root of an empty drive has no entries at all.
    if (::GetLastError() != ERROR_FILE_NOT_FOUND) return LastStatus();
  } else {
    const std::unique_ptr<void, BOOL (*)(HANDLE)> open(search, ::FindClose);
    do {
      std::string name = Narrow(entry.cFileName);
      if (name != "." && name != "..") names.push_back(std::move(name));
    } while (::FindNextFileW(search, &entry) != 0);
    if (::GetLastError() != ERROR_NO_MORE_FILES) return LastStatus();
  }
  std::sort(names.begin(), names.end());
  out = std::move(names);
  return {};
}

Status WindowsFileSystem::CreateEmpty(const std::string& path) {
  const std::wstring wide = WidePath(path);
  Status status = CreateFolders(FolderOf(wide));
  if (!status.ok()) return status;
  PrivateSecurity security(wide);
  // Appending: when a file has appeared meanwhile, it stays as it is.
  const FileHandle file = OpenPatiently(wide, FILE_APPEND_DATA, kShareAll, OPEN_ALWAYS,
                                        FILE_ATTRIBUTE_NORMAL | kHarmless, security.get());
  return file.ok() ? Status() : WhyNot(wide);
}

Status WindowsFileSystem::Stage(const std::string& path, std::string_view content,
                                std::unique_ptr<StagedFile>& out) {
  return StageFile(WidePath(path), content, out);
}

Status WindowsFileSystem::Lock(const std::string& path, std::unique_ptr<FileLock>& out) {
  // A link and its target are one file and have one lock.
  const std::wstring target = ResolveLink(WidePath(path));
  Status status = CreateFolders(FolderOf(target));
  if (!status.ok()) return status;
  const std::wstring beside = target + L".lock";
  PrivateSecurity security(beside);
  FileHandle file = OpenPatiently(beside, GENERIC_READ | GENERIC_WRITE, kShareAll, OPEN_ALWAYS,
                                  FILE_ATTRIBUTE_NORMAL | kHarmless, security.get());
  if (!file.ok()) return WhyNot(beside);
  const Patience patience(kLockMilliseconds);
  while (true) {
    OVERLAPPED start{};
    if (::LockFileEx(file.get(), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0,
                     &start) != 0) {
      out = std::make_unique<WindowsLock>(std::move(file));
      return {};
    }
    const DWORD error = ::GetLastError();
    const bool isHeld = IsSharingError(error) || error == ERROR_IO_PENDING;
    if (!isHeld) return FromSystemError(error);
    if (!patience.Wait()) return Status(StatusKind::kBusy);
  }
}

Status WindowsFileSystem::Remove(const std::string& path) {
  const std::wstring wide = WidePath(path);
  Status status = Patiently([&] { return ::DeleteFileW(wide.c_str()); });
  if (status.kind() == StatusKind::kNotFound) return {};
  if (status.kind() == StatusKind::kNoPermission && IsFolder(wide)) {
    return Status(StatusKind::kIsFolder);
  }
  return status;
}

Status WindowsFileSystem::Rename(const std::string& from, const std::string& to) {
  const std::wstring wideFrom = WidePath(from);
  const std::wstring wideTo = WidePath(to);
  const Patience patience;
  while (::MoveFileExW(wideFrom.c_str(), wideTo.c_str(),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) == 0) {
    const DWORD error = ::GetLastError();
    // A file that somebody reads is refused as a target with "access denied".
    const bool mayPass = IsSharingError(error) || error == ERROR_ACCESS_DENIED;
    if (!mayPass || !patience.Wait()) return FromSystemError(error);
  }
  return {};
}

Status WindowsFileSystem::Link(const std::string& from, const std::string& to) {
  // The second name belongs to the file itself, never to a symbolic link that leads to it.
  const std::wstring file = ResolveLink(WidePath(from));
  const std::wstring second = WidePath(to);
  return Patiently([&] { return ::CreateHardLinkW(second.c_str(), file.c_str(), nullptr); });
}

std::string WindowsFileSystem::FullPath(const std::string& path) {
  constexpr std::wstring_view kUnlimited = L"\\\\?\\";
  std::wstring target = ResolveLink(WidePath(path));
  if (target.starts_with(kUnlimited)) target.erase(0, kUnlimited.size());
  return Narrow(target);
}

bool WindowsFileSystem::CanCreateIn(const std::string& folder) {
  const std::wstring wide = WidePath(folder);
  if (!IsFolder(wide)) return false;
  return FileHandle(::CreateFileW(wide.c_str(), FILE_ADD_FILE, kShareAll, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_BACKUP_SEMANTICS, nullptr))
      .ok();
}

}  // namespace tidewarden
