#include "tests/support/faulty_calls.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>

namespace tidewarden::test {
namespace {

bool inForce = false;
Fault current;
int made = 0;

// True when the call that is about to be made fails; errno is then set.
bool Fails() {
  if (!inForce) return false;
  ++made;
  if (made == current.killBefore) ::kill(::getpid(), SIGKILL);
  const bool fails = current.failAt != 0 && made >= current.failAt &&
                     (current.lasting || made < current.failAt + current.many);
  if (fails) errno = current.error;
  return fails;
}

std::size_t AtMost(std::size_t count) {
  return inForce ? std::min(count, current.atMost) : count;
}

}  // namespace

void Inject(const Fault& fault) {
  current = fault;
  made = 0;
  inForce = true;
}

int CallsMade() {
  return made;
}

const std::vector<std::string>& WrappedCalls() {
  static const std::vector<std::string> names{
      "access", "close",    "fchmod",   "fchown", "flock",     "fstat",  "fsync", "ftruncate",
      "linkat", "lseek",    "lstat",    "mkdir",  "nanosleep", "open",   "pread", "posix_fallocate",
      "read",   "readlink", "realpath", "rename", "stat",      "unlink", "write"};
  return names;
}

}  // namespace tidewarden::test

using tidewarden::test::AtMost;
using tidewarden::test::Fails;

extern "C" {

int __real_access(const char* path, int mode);
int __real_close(int fd);
int __real_fchmod(int fd, mode_t mode);
int __real_fchown(int fd, uid_t user, gid_t group);
int __real_flock(int fd, int operation);
int __real_fstat(int fd, struct stat* out);
int __real_fsync(int fd);
int __real_ftruncate(int fd, off_t size);
int __real_linkat(int from, const char* old, int to, const char* name, int flags);
off_t __real_lseek(int fd, off_t offset, int whence);
int __real_lstat(const char* path, struct stat* out);
int __real_mkdir(const char* path, mode_t mode);
int __real_nanosleep(const timespec* wanted, timespec* left);
int __real_open(const char* path, int flags, ...);
ssize_t __real_pread(int fd, void* buffer, size_t count, off_t offset);
int __real_posix_fallocate(int fd, off_t offset, off_t size);
ssize_t __real_read(int fd, void* buffer, size_t count);
int __real_rename(const char* from, const char* to);
ssize_t __real_readlink(const char* path, char* buffer, size_t size);
char* __real_realpath(const char* path, char* buffer);
int __real_stat(const char* path, struct stat* out);
int __real_unlink(const char* path);
ssize_t __real_write(int fd, const void* buffer, size_t count);

int __wrap_access(const char* path, int mode) {
  return Fails() ? -1 : __real_access(path, mode);
}

// The descriptor is gone also when closing fails.
int __wrap_close(int fd) {
  const bool fails = Fails();
  const int error = errno;
  const int result = __real_close(fd);
  if (fails) errno = error;
  return fails ? -1 : result;
}

int __wrap_fchmod(int fd, mode_t mode) {
  return Fails() ? -1 : __real_fchmod(fd, mode);
}

int __wrap_fchown(int fd, uid_t user, gid_t group) {
  return Fails() ? -1 : __real_fchown(fd, user, group);
}

int __wrap_flock(int fd, int operation) {
  return Fails() ? -1 : __real_flock(fd, operation);
}

int __wrap_fstat(int fd, struct stat* out) {
  return Fails() ? -1 : __real_fstat(fd, out);
}

// What has been written outlives the process without being flushed, and no power is cut here.
int __wrap_fsync(int /*fd*/) {
  return Fails() ? -1 : 0;
}

int __wrap_ftruncate(int fd, off_t size) {
  return Fails() ? -1 : __real_ftruncate(fd, size);
}

int __wrap_linkat(int from, const char* old, int to, const char* name, int flags) {
  return Fails() ? -1 : __real_linkat(from, old, to, name, flags);
}

off_t __wrap_lseek(int fd, off_t offset, int whence) {
  return Fails() ? -1 : __real_lseek(fd, offset, whence);
}

int __wrap_lstat(const char* path, struct stat* out) {
  return Fails() ? -1 : __real_lstat(path, out);
}

int __wrap_mkdir(const char* path, mode_t mode) {
  return Fails() ? -1 : __real_mkdir(path, mode);
}

int __wrap_nanosleep(const timespec* wanted, timespec* left) {
  return Fails() ? -1 : __real_nanosleep(wanted, left);
}

int __wrap_open(const char* path, int flags, ...) {
  mode_t mode = 0;
  if ((flags & O_CREAT) != 0) {
    va_list arguments;
    va_start(arguments, flags);
    mode = va_arg(arguments, mode_t);
    va_end(arguments);
  }
  return Fails() ? -1 : __real_open(path, flags, mode);
}

ssize_t __wrap_pread(int fd, void* buffer, size_t count, off_t offset) {
  return Fails() ? -1 : __real_pread(fd, buffer, AtMost(count), offset);
}

// Answers with the error itself.
int __wrap_posix_fallocate(int fd, off_t offset, off_t size) {
  return Fails() ? errno : __real_posix_fallocate(fd, offset, size);
}

ssize_t __wrap_read(int fd, void* buffer, size_t count) {
  return Fails() ? -1 : __real_read(fd, buffer, AtMost(count));
}

int __wrap_rename(const char* from, const char* to) {
  return Fails() ? -1 : __real_rename(from, to);
}

ssize_t __wrap_readlink(const char* path, char* buffer, size_t size) {
  return Fails() ? -1 : __real_readlink(path, buffer, size);
}

char* __wrap_realpath(const char* path, char* buffer) {
  return Fails() ? nullptr : __real_realpath(path, buffer);
}

int __wrap_stat(const char* path, struct stat* out) {
  return Fails() ? -1 : __real_stat(path, out);
}

int __wrap_unlink(const char* path) {
  return Fails() ? -1 : __real_unlink(path);
}

ssize_t __wrap_write(int fd, const void* buffer, size_t count) {
  return Fails() ? -1 : __real_write(fd, buffer, AtMost(count));
}

}  // extern "C"
