#include "platform/posix/posix_previous_instance.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace tidewarden {
namespace {

constexpr mode_t kStickyPrivateFile = S_ISVTX | S_IRUSR | S_IWUSR;

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
  int result = 0;
  do {
    result = ::flock(descriptor, LOCK_EX | LOCK_NB);
  } while (result != 0 && errno == EINTR);
  if (result != 0 && errno == EWOULDBLOCK) {
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

}  // namespace tidewarden
