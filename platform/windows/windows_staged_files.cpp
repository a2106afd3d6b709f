#include "platform/windows/windows_staged_files.h"

#include <aclapi.h>
#include <winioctl.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

#include "platform/windows/windows_text.h"

namespace tidewarden {
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
// Of a new file: to fill it, to rename it, and to delete it when it is given up.
constexpr DWORD kRightsToWrite = GENERIC_READ | GENERIC_WRITE | DELETE;
constexpr ULONGLONG kSaveMilliseconds = 3000;  // as long as another program may be saving

Status WriteAll(HANDLE file, std::string_view content) {
  constexpr std::size_t kMost = std::size_t{1} << 30;
  while (!content.empty()) {
    DWORD written = 0;
    const auto piece = static_cast<DWORD>(std::min(content.size(), kMost));
    if (::WriteFile(file, content.data(), piece, &written, nullptr) == 0) return LastStatus();
    if (written == 0) return Status(StatusKind::kInputOutput, "nothing was written");
    content.remove_prefix(written);
  }
  return {};
}

Status Flush(HANDLE file) {
  return ::FlushFileBuffers(file) != 0 ? Status() : LastStatus();
}

Status SetEnd(HANDLE file, std::size_t size) {
  LARGE_INTEGER position{};
  position.QuadPart = static_cast<LONGLONG>(size);
  const bool set =
      ::SetFilePointerEx(file, position, nullptr, FILE_BEGIN) != 0 && ::SetEndOfFile(file) != 0;
  return set ? Status() : LastStatus();
}

// Gives a new file the permissions of the one that it will replace, and its owner where the
// system allows that. File systems without permissions have nothing to give.
void CopyPermissions(const std::wstring& from, HANDLE to) {
  std::wstring name = from;
  PACL access = nullptr;
  PSID owner = nullptr;
  PSECURITY_DESCRIPTOR descriptor = nullptr;
  if (::GetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT,
                              DACL_SECURITY_INFORMATION | OWNER_SECURITY_INFORMATION, &owner,
                              nullptr, &access, nullptr, &descriptor) != ERROR_SUCCESS) {
    return;
  }
  SECURITY_DESCRIPTOR_CONTROL control = 0;
  DWORD revision = 0;
  if (::GetSecurityDescriptorControl(descriptor, &control, &revision) != 0) {
    const SECURITY_INFORMATION inheritance = (control & SE_DACL_PROTECTED) != 0
                                                 ? PROTECTED_DACL_SECURITY_INFORMATION
                                                 : UNPROTECTED_DACL_SECURITY_INFORMATION;
    ::SetSecurityInfo(to, SE_FILE_OBJECT, DACL_SECURITY_INFORMATION | inheritance, nullptr, nullptr,
                      access, nullptr);
    ::SetSecurityInfo(to, SE_FILE_OBJECT, OWNER_SECURITY_INFORMATION, owner, nullptr, nullptr,
                      nullptr);
  }
  ::LocalFree(descriptor);
}

// Renames an open file over its target, at once for everybody who looks.
Status RenameOver(HANDLE file, const std::wstring& target) {
  const std::size_t nameBytes = target.size() * sizeof(wchar_t);
  std::vector<std::byte> bytes(sizeof(FILE_RENAME_INFO) + nameBytes);
  auto* const info = reinterpret_cast<FILE_RENAME_INFO*>(bytes.data());
  info->ReplaceIfExists = TRUE;
  info->FileNameLength = static_cast<DWORD>(nameBytes);
  std::memcpy(info->FileName, target.data(), nameBytes);
  const Patience patience;
  while (true) {
    if (::SetFileInformationByHandle(file, FileRenameInfo, info,
                                     static_cast<DWORD>(bytes.size())) != 0) {
      return {};
    }
    const DWORD error = ::GetLastError();
    // A target that somebody reads is refused with "access denied".
    const bool mayPass = IsSharingError(error) || error == ERROR_ACCESS_DENIED;
    if (!mayPass || !patience.Wait()) {
      return FromSystemError(error == ERROR_ACCESS_DENIED ? ERROR_SHARING_VIOLATION : error);
    }
  }
}

// Content in a file of its own beside the target. While this lives, nobody else may write or
// delete the file, which tells it from one that a killed process has left behind.
class StagedBeside : public StagedFile {
 public:
  StagedBeside(std::wstring target, std::wstring temporary, FileHandle file)
      : target_(std::move(target)), temporary_(std::move(temporary)), file_(std::move(file)) {}
  ~StagedBeside() override {
    file_.Close();
    if (!committed_) ::DeleteFileW(temporary_.c_str());
  }

  Status Fill(std::string_view content, bool replaces) {
    if (replaces) CopyPermissions(target_, file_.get());
    Status status = WriteAll(file_.get(), content);
    return status.ok() ? Flush(file_.get()) : status;
  }

  [[nodiscard]] bool ReplacesAtOnce() const override { return true; }

  Status Commit() override {
    const DWORD attributes = ::GetFileAttributesW(target_.c_str());
    Status status = RenameOver(file_.get(), target_);
    if (!status.ok()) return status;
    committed_ = true;
    // The new name is part of what the system keeps of the file. It is in force already.
    static_cast<void>(Flush(file_.get()).ok());
    file_.Close();
    constexpr DWORD kKept = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & kKept) != 0) {
      ::SetFileAttributesW(target_.c_str(), attributes);
    }
    return {};
  }

 private:
  std::wstring target_;
  std::wstring temporary_;
  FileHandle file_;
  bool committed_ = false;
};

// Content for a file in a folder that takes no new files.
class StagedInPlace : public StagedFile {
 public:
  StagedInPlace(FileHandle file, std::string_view content)
      : file_(std::move(file)), content_(content) {}

  [[nodiscard]] bool ReplacesAtOnce() const override { return false; }

  Status Commit() override {
    Status status = ReadOld();
    if (!status.ok()) return status;
    // Space for the longer content is taken first, so that a full disk is noticed while the old
    // content is still whole.
    if (content_.size() > old_.size()) {
      status = SetEnd(file_.get(), content_.size());
      if (!status.ok()) {
        static_cast<void>(SetEnd(file_.get(), old_.size()).ok());
        return status;
      }
    }
    status = Overwrite(content_);
    if (!status.ok()) {
      // The file has its old size before it has old bytes again, however far this comes.
      if (old_.size() > content_.size()) static_cast<void>(SetEnd(file_.get(), old_.size()).ok());
      static_cast<void>(Overwrite(old_).ok());
    }
    return status;
  }

 private:
  Status ReadOld() {
    LARGE_INTEGER size{};
    if (::GetFileSizeEx(file_.get(), &size) == 0) return LastStatus();
    old_.resize(static_cast<std::size_t>(size.QuadPart));
    for (std::size_t at = 0; at < old_.size();) {
      DWORD got = 0;
      const auto piece = static_cast<DWORD>(std::min<std::size_t>(old_.size() - at, 1U << 30U));
      if (::ReadFile(file_.get(), old_.data() + at, piece, &got, nullptr) == 0) return LastStatus();
      if (got == 0) return Status(StatusKind::kInputOutput, "the file is being changed");
      at += got;
    }
    return {};
  }

  Status Overwrite(std::string_view content) {
    const LARGE_INTEGER start{};
    if (::SetFilePointerEx(file_.get(), start, nullptr, FILE_BEGIN) == 0) return LastStatus();
    Status status = WriteAll(file_.get(), content);
    if (status.ok()) status = SetEnd(file_.get(), content.size());
    return status.ok() ? Flush(file_.get()) : status;
  }

  FileHandle file_;
  std::string content_;
  std::string old_;
};

// The content of a compressed file may have little room without that.
void Compress(HANDLE file) {
  USHORT format = COMPRESSION_FORMAT_DEFAULT;
  DWORD size = 0;
  ::DeviceIoControl(file, FSCTL_SET_COMPRESSION, &format, sizeof format, nullptr, 0, &size,
                    nullptr);
}

// Creates the file beside the target. One that stands there already belongs to a program that is
// saving right now (it cannot be deleted) or to one that died. `replaced` are the attributes of
// the file that is to be replaced, or nothing.
Status CreateTemporary(const std::wstring& temporary, std::optional<DWORD> replaced,
                       FileHandle& out) {
  // A replacement takes over the permissions of what it replaces.
  PrivateSecurity security(temporary);
  SECURITY_ATTRIBUTES* const ownerOnly = replaced ? nullptr : security.get();
  // Encrypted from its first byte on.
  const DWORD encrypted = replaced.value_or(0) & FILE_ATTRIBUTE_ENCRYPTED;
  const auto create = [&](DWORD rights) {
    const HANDLE file =
        ::CreateFileW(temporary.c_str(), rights, FILE_SHARE_READ, ownerOnly, CREATE_NEW,
                      encrypted != 0 ? encrypted : FILE_ATTRIBUTE_NORMAL, nullptr);
    // A file that is about to vanish refuses everybody until it has.
    if (file == INVALID_HANDLE_VALUE && ::GetLastError() == ERROR_ACCESS_DENIED &&
        ::GetFileAttributesW(temporary.c_str()) != INVALID_FILE_ATTRIBUTES) {
      ::SetLastError(ERROR_DELETE_PENDING);
    }
    return file;
  };
  const Patience patience(kSaveMilliseconds);
  while (true) {
    FileHandle file = replaced ? CreateReplacement(create) : FileHandle(create(kRightsToWrite));
    if (file.ok()) {
      if ((replaced.value_or(0) & FILE_ATTRIBUTE_COMPRESSED) != 0) Compress(file.get());
      out = std::move(file);
      return {};
    }
    const DWORD error = ::GetLastError();
    const bool inTheWay = error == ERROR_FILE_EXISTS || error == ERROR_ALREADY_EXISTS ||
                          error == ERROR_DELETE_PENDING || IsSharingError(error);
    if (!inTheWay) return FromSystemError(error);
    ::DeleteFileW(temporary.c_str());
    if (!patience.Wait()) {
      return Status(error == ERROR_DELETE_PENDING ? StatusKind::kNoPermission : StatusKind::kBusy);
    }
  }
}

// What stands at the target: kOk for a file that may be written, kNotFound for none.
Status LookAtTarget(const std::wstring& target) {
  const DWORD attributes = ::GetFileAttributesW(target.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES) {
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return Status(StatusKind::kIsFolder);
    // A file that its owner has write-protected is not to be replaced behind his back.
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) return Status(StatusKind::kNoPermission);
  }
  // What has no attributes may still be there: a device, or a file that somebody keeps closed.
  const FileHandle file = OpenPatiently(target, FILE_WRITE_DATA, kShareAll, OPEN_EXISTING,
                                        SECURITY_SQOS_PRESENT | SECURITY_IDENTIFICATION);
  if (!file.ok()) return LastStatus();
  return ::GetFileType(file.get()) == FILE_TYPE_DISK ? Status() : Status(StatusKind::kNotAFile);
}

}  // namespace

FileHandle CreateReplacement(const std::function<HANDLE(DWORD rights)>& create) {
  FileHandle file;
  for (const DWORD more : {DWORD{WRITE_DAC | WRITE_OWNER}, DWORD{WRITE_DAC}, DWORD{0}}) {
    file = FileHandle(create(kRightsToWrite | more));
    if (file.ok() || ::GetLastError() != ERROR_ACCESS_DENIED) break;
  }
  return file;
}

std::wstring ResolveLink(const std::wstring& path) {
  const DWORD attributes = ::GetFileAttributesW(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) {
    return path;
  }
  const FileHandle file = OpenPatiently(path, 0, kShareAll, OPEN_EXISTING,
                                        FILE_FLAG_BACKUP_SEMANTICS | SECURITY_SQOS_PRESENT);
  if (!file.ok()) return path;
  std::wstring target(static_cast<std::size_t>(std::numeric_limits<SHORT>::max()) + 1, L'\0');
  const DWORD length = ::GetFinalPathNameByHandleW(
      file.get(), target.data(), static_cast<DWORD>(target.size()), FILE_NAME_NORMALIZED);
  if (length == 0 || length >= target.size()) return path;
  target.resize(length);
  return target;
}

Status StageInPlace(const std::wstring& path, std::string_view content,
                    std::unique_ptr<StagedFile>& out) {
  FileHandle file = OpenPatiently(path, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL);
  if (!file.ok()) return LastStatus();
  out = std::make_unique<StagedInPlace>(std::move(file), content);
  return {};
}

Status StageFile(const std::wstring& path, std::string_view content,
                 std::unique_ptr<StagedFile>& out) {
  const std::wstring target = ResolveLink(path);
  const std::wstring folder = FolderOf(target);
  const std::wstring name = target.substr(target.rfind(L'\\') + 1);
  // Names have 255 units; a long one is cut.
  const std::wstring separator = folder.ends_with(L'\\') ? L"" : L"\\";
  const std::wstring temporary = folder + separator + L"." + name.substr(0, 240) + L".new";

  Status present = LookAtTarget(target);
  const bool replaces = present.ok();
  if (!replaces && present.kind() != StatusKind::kNotFound) return present;

  std::optional<DWORD> replaced;
  if (replaces) replaced = ::GetFileAttributesW(target.c_str());
  if (replaced == INVALID_FILE_ATTRIBUTES) replaced = 0;
  const bool isEncrypted = (replaced.value_or(0) & FILE_ATTRIBUTE_ENCRYPTED) != 0;

  FileHandle file;
  Status status = CreateTemporary(temporary, replaced, file);
  // A secret is not to be written down beside the file because it cannot be encrypted there.
  const bool folderRefuses = status.kind() == StatusKind::kNoPermission ||
                             (isEncrypted && status.kind() == StatusKind::kInputOutput);
  if (replaces && folderRefuses && StageInPlace(target, content, out).ok()) return {};
  if (!status.ok()) return status;

  auto staged = std::make_unique<StagedBeside>(target, temporary, std::move(file));
  status = staged->Fill(content, replaces);
  if (status.ok()) out = std::move(staged);
  return status;
}

}  // namespace tidewarden
