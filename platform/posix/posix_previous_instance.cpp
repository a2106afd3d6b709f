#include "platform/posix/posix_previous_instance.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace tidewarden {
namespace {

constexpr mode_t kStickyPrivateFile = S_ISVTX | S_IRUSR | S_IWUSR;

// For the whole file. Of the kinds of locks this one belongs to the open file, as that of flock
// does, and can be asked for without being taken, as that cannot.
struct flock WholeFile() {
  struct flock lock {};
  lock.l_type = F_WRLCK;
  lock.l_whence = SEEK_SET;
  return lock;
}

}  // namespace

PosixPreviousInstance::PosixPreviousInstance(std::string path) : path_(std::move(path)) {}

PosixPreviousInstance::~PosixPreviousInstance() {
  PosixPreviousInstance::Release();
}

bool PosixPreviousInstance::Claim() {
  if (descriptor_ >= 0) return true;
  // Programs that this one starts must not hold the lock on.
  const int descriptor = ::open(path_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
  if (descriptor < 0) return true;
  // The folder of a login session may be cleaned up; what has the sticky bit stays, says the XDG
  // Base Directory standard of freedesktop.org. Where the bit is not to be had the lock holds all
  // the same.
  static_cast<void>(::fchmod(descriptor, kStickyPrivateFile));
  struct flock lock = WholeFile();
  if (::fcntl(descriptor, F_OFD_SETLK, &lock) != 0 && (errno == EAGAIN || errno == EACCES)) {
    ::close(descriptor);
    return false;
  }
  descriptor_ = descriptor;
  return true;
}

void PosixPreviousInstance::Release() {
  if (descriptor_ >= 0) ::close(descriptor_);
  descriptor_ = -1;
}

bool PosixPreviousInstance::IsClaimedByAnother() {
  if (descriptor_ >= 0) return false;
  const int descriptor = ::open(path_.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW);
  if (descriptor < 0) return false;
  struct flock lock = WholeFile();
  const bool known = ::fcntl(descriptor, F_OFD_GETLK, &lock) == 0;
  ::close(descriptor);
  return known && lock.l_type != F_UNLCK;
}

}  // namespace tidewarden
