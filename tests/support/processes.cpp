#include "tests/support/processes.h"

#include <fcntl.h>
#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <stdexcept>
#include <string_view>

namespace tidewarden::test {
namespace {

namespace fs = std::filesystem;

constexpr uid_t kNobody = 65534;
constexpr unsigned kPatienceSeconds = 60;

void Send(int fd, std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = ::write(fd, text.data(), text.size());
    if (written <= 0) return;
    text.remove_prefix(static_cast<std::size_t>(written));
  }
}

std::string Receive(int fd) {
  std::string text;
  char buffer[4096];
  while (true) {
    const ssize_t got = ::read(fd, buffer, sizeof buffer);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) return text;
    text.append(buffer, static_cast<std::size_t>(got));
  }
}

}  // namespace

pid_t StartChild(const std::function<void()>& body) {
  const pid_t child = ::fork();
  if (child < 0) throw std::runtime_error("no process");
  if (child > 0) return child;
  ::alarm(kPatienceSeconds);
  body();
  ::_exit(0);
}

int WaitFor(pid_t child) {
  int status = 0;
  while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  return status;
}

std::string InChild(const std::function<std::string()>& body) {
  int ends[2];
  if (::pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  const pid_t child = StartChild([&] {
    ::close(ends[0]);
    Send(ends[1], body());
  });
  ::close(ends[1]);
  std::string text = Receive(ends[0]);
  ::close(ends[0]);
  const int status = WaitFor(child);
  if (WIFSIGNALED(status)) {
    return text + "(ended by signal " + std::to_string(WTERMSIG(status)) + ")";
  }
  if (WEXITSTATUS(status) != 0) {
    return text + "(exit code " + std::to_string(WEXITSTATUS(status)) + ")";
  }
  return text;
}

void GiveAway(const std::string& folder) {
  if (::geteuid() != 0) return;
  const auto give = [](const std::string& path) {
    if (::lchown(path.c_str(), kNobody, kNobody) != 0) {
      throw std::runtime_error(path + " cannot be given away: " + std::strerror(errno));
    }
  };
  give(folder);
  for (const auto& entry : fs::recursive_directory_iterator(folder)) give(entry.path());
}

bool GiveUpRights() {
  if (::geteuid() != 0) return true;
  return ::setgroups(0, nullptr) == 0 && ::setgid(kNobody) == 0 && ::setuid(kNobody) == 0 &&
         ::geteuid() == kNobody && ::setuid(0) != 0;
}

std::string InUnprivilegedChild(const std::string& folder,
                                const std::function<std::string()>& body) {
  GiveAway(folder);
  return InChild([&]() -> std::string {
    if (!GiveUpRights()) {
      return std::string("THE RIGHTS OF ROOT CANNOT BE GIVEN UP HERE, SO NOTHING WAS TESTED: ") +
             std::strerror(errno);
    }
    return body();
  });
}

ScopedVariable::ScopedVariable(std::string name, const char* value) : name_(std::move(name)) {
  const char* before = std::getenv(name_.c_str());
  wasSet_ = before != nullptr;
  if (wasSet_) before_ = before;
  if (value != nullptr) {
    ::setenv(name_.c_str(), value, 1);
  } else {
    ::unsetenv(name_.c_str());
  }
}

ScopedVariable::~ScopedVariable() {
  if (wasSet_) {
    ::setenv(name_.c_str(), before_.c_str(), 1);
  } else {
    ::unsetenv(name_.c_str());
  }
}

}  // namespace tidewarden::test
