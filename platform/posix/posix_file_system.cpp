#include "platform/posix/posix_file_system.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <optional>
#include <utility>

namespace tidewarden {
namespace {

constexpr mode_t kPrivateFile = S_IRUSR | S_IWUSR;
constexpr mode_t kPrivateFolder = S_IRWXU;
constexpr mode_t kModeBits = 07777;
constexpr std::size_t kReadPiece = std::size_t{32} * 1024;  // stays in the processor's first cache
// Looked at often, because two programs that write without a pause would else starve each other.
constexpr int kLockAttempts = 1500;
constexpr long kLockPauseNanoseconds = 2'000'000;

Status FromErrno(int error) {
  switch (error) {
    case ENOENT:
    case ENOTDIR:
      return Status(StatusKind::kNotFound);
    case EACCES:
    case EPERM:
      return Status(StatusKind::kNoPermission);
    case EISDIR:
      return Status(StatusKind::kIsFolder);
    case ENXIO:
    case ENODEV:
      return Status(StatusKind::kNotAFile);
    case ENOSPC:
    case EDQUOT:
      return Status(StatusKind::kNoSpace);
    case EROFS:
      return Status(StatusKind::kReadOnly);
    case ENOMEM:
    case EFBIG:
    case EOVERFLOW:
      return Status(StatusKind::kTooLarge);
    default:
      return Status(StatusKind::kInputOutput, std::strerror(error));
  }
}

// Repeats a system call that a signal has interrupted.
template <typename Call>
auto Retried(Call call) {
  auto result = call();
  while (result == -1 && errno == EINTR) result = call();
  return result;
}

class Descriptor {
 public:
  Descriptor() = default;
  explicit Descriptor(int fd) : fd_(fd) {}
  Descriptor(Descriptor&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(fd_, other.fd_);
    return *this;
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() {
    if (fd_ >= 0) ::close(fd_);
  }

  [[nodiscard]] bool ok() const { return fd_ >= 0; }
  [[nodiscard]] int get() const { return fd_; }

  // Closes and tells whether the system had something to complain about.
  bool Close() { return ::close(std::exchange(fd_, -1)) == 0; }

 private:
  int fd_ = -1;
};

Descriptor Open(const std::string& path, int flags, mode_t mode = 0) {
  return Descriptor(Retried([&] { return ::open(path.c_str(), flags | O_CLOEXEC, mode); }));
}

std::string FolderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

std::string NameOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

// The file that a path leads to through any links; it need not exist.
std::string Resolved(std::string path) {
  constexpr int kMostLinks = 40;  // as many as the system follows
  for (int links = 0; links < kMostLinks; ++links) {
    std::array<char, PATH_MAX> target{};
    const ssize_t length = ::readlink(path.c_str(), target.data(), target.size());
    if (length <= 0 || static_cast<std::size_t>(length) == target.size()) break;
    const std::string_view to(target.data(), static_cast<std::size_t>(length));
    std::string next = to.front() == '/' ? std::string() : FolderOf(path).append("/");
    next += to;
    path = std::move(next);
  }
  return path;
}

Status CreateFolders(const std::string& folder) {
  struct stat present {};
  if (::stat(folder.c_str(), &present) == 0) {
    return S_ISDIR(present.st_mode) ? Status() : Status(StatusKind::kNotAFolder);
  }
  if (errno == ENOTDIR) return Status(StatusKind::kNotAFolder);
  if (errno != ENOENT) return FromErrno(errno);
  const std::string parent = FolderOf(folder);
  if (parent != folder) {
    Status status = CreateFolders(parent);
    if (!status.ok()) return status;
  }
  if (::mkdir(folder.c_str(), kPrivateFolder) != 0 && errno != EEXIST) return FromErrno(errno);
  return {};
}

Status WriteAll(int fd, std::string_view content) {
  while (!content.empty()) {
    const ssize_t written = ::write(fd, content.data(), content.size());
    if (written < 0) {
      if (errno == EINTR) continue;
      return FromErrno(errno);
    }
    content.remove_prefix(static_cast<std::size_t>(written));
  }
  return {};
}

Status Flush(int fd) {
  return Retried([&] { return ::fsync(fd); }) == 0 ? Status() : FromErrno(errno);
}

// Makes a rename durable. Not every file system can flush a folder; the rename itself is done.
void FlushFolder(const std::string& folder) {
  const Descriptor fd = Open(folder, O_RDONLY | O_DIRECTORY);
  if (fd.ok()) static_cast<void>(::fsync(fd.get()));
}

void Pause() {
  const timespec pause{0, kLockPauseNanoseconds};
  ::nanosleep(&pause, nullptr);
}

// Content in a file of its own beside the target. The file's lock, held until the end, tells it
// from one that a killed process has left behind.
class StagedBeside : public StagedFile {
 public:
  StagedBeside(std::string target, std::string temporary, Descriptor fd)
      : target_(std::move(target)), temporary_(std::move(temporary)), fd_(std::move(fd)) {}
  ~StagedBeside() override {
    if (!committed_) ::unlink(temporary_.c_str());
  }

  Status Fill(std::string_view content, const std::optional<struct stat>& like) {
    if (like) {
      // Another owner's file keeps its owner where the system allows it.
      struct stat own {};
      if (::fstat(fd_.get(), &own) != 0) return FromErrno(errno);
      if (like->st_uid != own.st_uid || like->st_gid != own.st_gid) {
        static_cast<void>(::fchown(fd_.get(), like->st_uid, like->st_gid) == 0);
      }
      if (::fchmod(fd_.get(), like->st_mode & kModeBits) != 0) return FromErrno(errno);
    }
    isEmpty_ = content.empty();
    if (isEmpty_) return {};
    Status status = WriteAll(fd_.get(), content);
    return status.ok() ? Flush(fd_.get()) : status;
  }

  [[nodiscard]] bool ReplacesAtOnce() const override { return true; }

  Status Commit() override {
    // Without a byte only the file's permissions wait for the disk, and they may wait until here.
    if (isEmpty_) {
      Status status = Flush(fd_.get());
      if (!status.ok()) return status;
    }
    if (::rename(temporary_.c_str(), target_.c_str()) != 0) return FromErrno(errno);
    committed_ = true;
    FlushFolder(FolderOf(target_));
    return {};
  }

 private:
  std::string target_;
  std::string temporary_;
  Descriptor fd_;
  bool isEmpty_ = false;
  bool committed_ = false;
};

// Content for a file in a folder that takes no new files.
class StagedInPlace : public StagedFile {
 public:
  StagedInPlace(Descriptor fd, std::string_view content) : fd_(std::move(fd)), content_(content) {}

  [[nodiscard]] bool ReplacesAtOnce() const override { return false; }

  Status Commit() override {
    Status status = ReadOld();
    if (!status.ok()) return status;
    // Space for the longer content is taken first, so that a full disk is noticed while the old
    // content is still whole.
    const auto size = static_cast<off_t>(content_.size());
    const auto oldSize = static_cast<off_t>(old_.size());
    if (size > oldSize) {
      const int error = ::posix_fallocate(fd_.get(), 0, size);
      if (error != 0) {
        static_cast<void>(::ftruncate(fd_.get(), oldSize) == 0);
        return FromErrno(error);
      }
    }
    status = Overwrite(content_);
    if (!status.ok()) PutBack();
    return status;
  }

 private:
  void PutBack() {
    // The file has its old size before it has old bytes again, however far this comes.
    if (old_.size() > content_.size()) {
      static_cast<void>(::posix_fallocate(fd_.get(), 0, static_cast<off_t>(old_.size())) == 0);
    }
    static_cast<void>(Overwrite(old_).ok());
  }

  Status ReadOld() {
    struct stat present {};
    if (::fstat(fd_.get(), &present) != 0) return FromErrno(errno);
    old_.resize(static_cast<std::size_t>(present.st_size));
    for (std::size_t at = 0; at < old_.size();) {
      const ssize_t got = Retried([&] {
        return ::pread(fd_.get(), old_.data() + at, old_.size() - at, static_cast<off_t>(at));
      });
      if (got < 0) return FromErrno(errno);
      if (got == 0) return Status(StatusKind::kInputOutput, "the file is being changed");
      at += static_cast<std::size_t>(got);
    }
    return {};
  }

  Status Overwrite(std::string_view content) {
    if (::lseek(fd_.get(), 0, SEEK_SET) != 0) return FromErrno(errno);
    Status status = WriteAll(fd_.get(), content);
    const auto size = static_cast<off_t>(content.size());
    if (status.ok() && Retried([&] { return ::ftruncate(fd_.get(), size); }) != 0) {
      status = FromErrno(errno);
    }
    return status.ok() ? Flush(fd_.get()) : status;
  }

  Descriptor fd_;
  std::string content_;
  std::string old_;
};

bool IsSameFile(int fd, const std::string& path) {
  struct stat opened {};
  struct stat named {};
  return ::fstat(fd, &opened) == 0 && ::lstat(path.c_str(), &named) == 0 &&
         opened.st_ino == named.st_ino && opened.st_dev == named.st_dev;
}

bool IsOwn(const std::string& path) {
  struct stat info {};
  return ::lstat(path.c_str(), &info) == 0 && info.st_uid == ::geteuid();
}

// Creates the file beside the target. One that stands there already belongs to a process that is
// saving right now (it holds the lock) or to one that died (it does not).
Status CreateTemporary(const std::string& temporary, Descriptor& out) {
  for (int attempt = 0; attempt < kLockAttempts; ++attempt) {
    Descriptor fd = Open(temporary, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, kPrivateFile);
    if (fd.ok()) {
      static_cast<void>(::flock(fd.get(), LOCK_EX));
      if (!IsSameFile(fd.get(), temporary)) continue;
      out = std::move(fd);
      return {};
    }
    if (errno != EEXIST) return FromErrno(errno);
    fd = Open(temporary, O_WRONLY | O_NOFOLLOW | O_NONBLOCK);
    if (!fd.ok() && errno == ENOENT) continue;  // it has gone into its place
    // Another user's file that cannot be opened may be a save that is still going on.
    if (!fd.ok() && errno == EACCES && !IsOwn(temporary)) return FromErrno(EACCES);
    const bool inUse = fd.ok() && ::flock(fd.get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    if (inUse) {
      Pause();
    } else if (fd.ok() && !IsSameFile(fd.get(), temporary)) {
      // It went into place before it could be locked; another one may have the name by now.
      continue;
    } else if (::unlink(temporary.c_str()) != 0 && errno != ENOENT) {
      return FromErrno(errno);
    }
  }
  return Status(StatusKind::kBusy);
}

class PosixLock : public FileLock {
 public:
  explicit PosixLock(Descriptor fd) : fd_(std::move(fd)) {}

 private:
  Descriptor fd_;
};

}  // namespace

Status PosixFileSystem::Read(const std::string& path, const TakeBytes& take) {
  // Without waiting: opening a pipe would otherwise block until somebody writes to it.
  const Descriptor fd = Open(path, O_RDONLY | O_NONBLOCK | O_NOCTTY);
  if (!fd.ok()) return FromErrno(errno);
  struct stat info {};
  if (::fstat(fd.get(), &info) != 0) return FromErrno(errno);
  if (S_ISDIR(info.st_mode)) return Status(StatusKind::kIsFolder);
  if (!S_ISREG(info.st_mode)) return Status(StatusKind::kNotAFile);
  const auto buffer = std::make_unique_for_overwrite<char[]>(kReadPiece);
  while (true) {
    const ssize_t got = Retried([&] { return ::read(fd.get(), buffer.get(), kReadPiece); });
    if (got < 0) return FromErrno(errno);
    if (got == 0 || !take({buffer.get(), static_cast<std::size_t>(got)})) return {};
  }
}

Status PosixFileSystem::GetStamp(const std::string& path, FileStamp& out) {
  struct stat info {};
  if (::stat(path.c_str(), &info) != 0) return FromErrno(errno);
  out.size = static_cast<std::uint64_t>(info.st_size);
  out.modified = static_cast<std::int64_t>(info.st_mtim.tv_sec) * 1'000'000'000 +
                 static_cast<std::int64_t>(info.st_mtim.tv_nsec);
  out.identity = static_cast<std::uint64_t>(info.st_ino);
  return {};
}

Status PosixFileSystem::ListNames(const std::string& folder, std::vector<std::string>& out) {
  const std::unique_ptr<DIR, int (*)(DIR*)> open(::opendir(folder.c_str()), ::closedir);
  if (open == nullptr) return FromErrno(errno);
  std::vector<std::string> names;
  for (;;) {
    // The end and a failure both give no entry; only the error number tells them apart.
    errno = 0;
    const dirent* const entry = ::readdir(open.get());
    if (entry == nullptr) break;
    const std::string_view name = static_cast<const char*>(entry->d_name);
    if (name != "." && name != "..") names.emplace_back(name);
  }
  if (errno != 0) return FromErrno(errno);
  std::sort(names.begin(), names.end());
  out = std::move(names);
  return {};
}

Status PosixFileSystem::CreateEmpty(const std::string& path) {
  Status status = CreateFolders(FolderOf(path));
  if (!status.ok()) return status;
  // Appending: when a file has appeared meanwhile, it stays as it is.
  Descriptor fd = Open(path, O_WRONLY | O_CREAT | O_APPEND | O_NONBLOCK, kPrivateFile);
  if (!fd.ok()) return FromErrno(errno);
  return fd.Close() ? Status() : FromErrno(errno);
}

Status PosixFileSystem::Stage(const std::string& path, std::string_view content,
                              std::unique_ptr<StagedFile>& out) {
  const std::string target = Resolved(path);
  const std::string folder = FolderOf(target);
  // Names have 255 bytes; a long one is cut.
  const std::string temporary = folder + "/." + NameOf(target).substr(0, 240) + ".new";

  struct stat info {};
  std::optional<struct stat> present;
  if (::stat(target.c_str(), &info) == 0) {
    if (S_ISDIR(info.st_mode)) return Status(StatusKind::kIsFolder);
    if (!S_ISREG(info.st_mode)) return Status(StatusKind::kNotAFile);
    // A file that its owner has write-protected is not to be replaced behind his back.
    if (::access(target.c_str(), W_OK) != 0) return FromErrno(errno);
    present = info;
  } else if (errno != ENOENT) {
    return FromErrno(errno);
  }

  Descriptor fd;
  Status status = CreateTemporary(temporary, fd);
  const bool folderRefuses = status.kind() == StatusKind::kNoPermission;
  if (folderRefuses && present) {
    Descriptor direct = Open(target, O_RDWR | O_NOFOLLOW);
    if (direct.ok()) {
      out = std::make_unique<StagedInPlace>(std::move(direct), content);
      return {};
    }
  }
  if (!status.ok()) return status;

  auto staged = std::make_unique<StagedBeside>(target, temporary, std::move(fd));
  status = staged->Fill(content, present);
  if (status.ok()) out = std::move(staged);
  return status;
}

Status PosixFileSystem::Lock(const std::string& path, std::unique_ptr<FileLock>& out) {
  // A link and its target are one file and have one lock.
  const std::string target = Resolved(path);
  Status status = CreateFolders(FolderOf(target));
  if (!status.ok()) return status;
  Descriptor fd = Open(target + ".lock", O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK, kPrivateFile);
  if (!fd.ok()) return FromErrno(errno);
  for (int attempt = 0; attempt < kLockAttempts; ++attempt) {
    if (::flock(fd.get(), LOCK_EX | LOCK_NB) == 0) {
      out = std::make_unique<PosixLock>(std::move(fd));
      return {};
    }
    if (errno != EWOULDBLOCK && errno != EINTR) return FromErrno(errno);
    Pause();
  }
  return Status(StatusKind::kBusy);
}

Status PosixFileSystem::Remove(const std::string& path) {
  if (::unlink(path.c_str()) == 0 || errno == ENOENT) return {};
  return FromErrno(errno);
}

Status PosixFileSystem::Rename(const std::string& from, const std::string& to) {
  return ::rename(from.c_str(), to.c_str()) == 0 ? Status() : FromErrno(errno);
}

Status PosixFileSystem::Link(const std::string& from, const std::string& to) {
  // The second name belongs to the file itself, never to a symbolic link that leads to it.
  const int linked = ::linkat(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), AT_SYMLINK_FOLLOW);
  return linked == 0 ? Status() : FromErrno(errno);
}

std::string PosixFileSystem::FullPath(const std::string& path) {
  std::string target = Resolved(path);
  std::array<char, PATH_MAX> folder{};
  if (::realpath(FolderOf(target).c_str(), folder.data()) == nullptr) return target;
  const std::string_view real(folder.data());
  return std::string(real == "/" ? std::string_view() : real) + "/" + NameOf(target);
}

bool PosixFileSystem::CanCreateIn(const std::string& folder) {
  struct stat info {};
  return ::stat(folder.c_str(), &info) == 0 && S_ISDIR(info.st_mode) &&
         ::access(folder.c_str(), W_OK | X_OK) == 0;
}

}  // namespace tidewarden
