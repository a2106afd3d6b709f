#include "tests/cli/program.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <stdexcept>

#include "tests/support/processes.h"

namespace tidewarden::test {
namespace {

constexpr std::chrono::seconds kLongestRun{60};

// Written by the child when it cannot become the program, behind a byte that no text has.
constexpr char kNotStarted = '\xFF';

[[noreturn]] void Fail(const std::string& what) {
  throw std::runtime_error(what + ": " + std::strerror(errno));
}

struct Pipe {
  Pipe() {
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) Fail("pipe");
  }
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;
  ~Pipe() {
    Close(0);
    Close(1);
  }
  void Close(std::size_t end) {
    if (ends[end] >= 0) ::close(ends[end]);
    ends[end] = -1;
  }
  std::array<int, 2> ends{-1, -1};
};

// What follows runs in the child between fork and exec.

[[noreturn]] void GiveUp(int report, const char* step) {
  const char* reason = std::strerror(errno);
  static_cast<void>(::write(report, &kNotStarted, 1) == 1);
  static_cast<void>(::write(report, step, std::strlen(step)) == 1);
  static_cast<void>(::write(report, ": ", 2) == 1);
  static_cast<void>(::write(report, reason, std::strlen(reason)) == 1);
  ::_exit(1);
}

void SetStreams(const Surroundings& surroundings, Pipe& out, Pipe& err, int report) {
  const int input = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
  if (input < 0 || ::dup2(input, STDIN_FILENO) < 0) GiveUp(report, "standard input");
  int output = out.ends[1];
  if (surroundings.output == StandardOutput::kFullDevice) {
    output = ::open("/dev/full", O_WRONLY | O_CLOEXEC);
  }
  if (output < 0 || ::dup2(output, STDOUT_FILENO) < 0) GiveUp(report, "standard output");
  if (::dup2(err.ends[1], STDERR_FILENO) < 0) GiveUp(report, "standard error");
  if (surroundings.output == StandardOutput::kClosed) ::close(STDOUT_FILENO);
  if (surroundings.closeAllStreams) {
    ::close(STDIN_FILENO);
    ::close(STDOUT_FILENO);
    ::close(STDERR_FILENO);
  }
}

void SetLimits(const Surroundings& surroundings, int report) {
  // What the program creates is private without the help of a mask.
  ::umask(0);
  ::signal(SIGPIPE, surroundings.ignorePipeSignal ? SIG_IGN : SIG_DFL);
  if (surroundings.largestFile) {
    // The signal would end the program before the system call could fail.
    ::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{*surroundings.largestFile, *surroundings.largestFile};
    if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) GiveUp(report, "setrlimit");
  }
  if (surroundings.asOrdinaryUser && !GiveUpRights()) GiveUp(report, "the rights of root");
}

[[noreturn]] void BecomeProgram(const Surroundings& surroundings, char* const* arguments,
                                char* const* environment, Pipe& out, Pipe& err, int report) {
  if (::chdir(surroundings.folder.c_str()) != 0) GiveUp(report, "chdir");
  SetLimits(surroundings, report);
  SetStreams(surroundings, out, err, report);
  ::execve(surroundings.program.c_str(), arguments, environment);
  GiveUp(report, "exec");
}

// Pointers to texts that the caller keeps, with a null pointer behind them.
std::vector<char*> Pointers(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

// Reads until all three pipes are at their end.
void Collect(Pipe& out, Pipe& err, Pipe& report, Outcome& outcome, std::string& notStarted,
             pid_t child) {
  const auto deadline = std::chrono::steady_clock::now() + kLongestRun;
  struct Stream {
    int fd;
    std::string* text;
  };
  std::vector<Stream> open{{err.ends[0], &outcome.err}, {report.ends[0], &notStarted}};
  if (out.ends[0] >= 0) open.push_back({out.ends[0], &outcome.out});
  std::vector<char> buffer(std::size_t{64} * 1024);
  while (!open.empty()) {
    std::vector<pollfd> polled;
    for (const Stream& stream : open) polled.push_back({stream.fd, POLLIN, 0});
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
        deadline - std::chrono::steady_clock::now());
    const int ready = left.count() <= 0
                          ? 0
                          : ::poll(polled.data(), polled.size(), static_cast<int>(left.count()));
    if (ready < 0 && errno == EINTR) continue;
    if (ready <= 0) {
      ::kill(child, SIGKILL);
      ::waitpid(child, nullptr, 0);
      throw std::runtime_error("the program did not come to an end");
    }
    for (std::size_t i = polled.size(); i-- > 0;) {
      if (polled[i].revents == 0) continue;
      const ssize_t got = ::read(open[i].fd, buffer.data(), buffer.size());
      if (got < 0 && errno == EINTR) continue;
      if (got <= 0) {
        open.erase(open.begin() + static_cast<std::ptrdiff_t>(i));
      } else {
        open[i].text->append(buffer.data(), static_cast<std::size_t>(got));
      }
    }
  }
}

}  // namespace

Outcome RunProgram(const Surroundings& surroundings, const std::vector<std::string>& arguments) {
  std::vector<std::string> all{"tidewarden-cli"};
  all.insert(all.end(), arguments.begin(), arguments.end());
  std::vector<std::string> environment;
  for (const auto& [name, value] : surroundings.environment) {
    environment.push_back(name + "=" + value);
  }
  const std::vector<char*> argumentPointers = Pointers(all);
  const std::vector<char*> environmentPointers = Pointers(environment);

  Pipe out;
  Pipe err;
  Pipe report;
  if (surroundings.output == StandardOutput::kPipeWithoutReader) out.Close(0);
  const pid_t child = ::fork();
  if (child < 0) Fail("fork");
  if (child == 0) {
    BecomeProgram(surroundings, argumentPointers.data(), environmentPointers.data(), out, err,
                  report.ends[1]);
  }
  out.Close(1);
  err.Close(1);
  report.Close(1);

  Outcome outcome;
  std::string notStarted;
  Collect(out, err, report, outcome, notStarted, child);
  int status = 0;
  while (::waitpid(child, &status, 0) < 0) {
    if (errno != EINTR) Fail("waitpid");
  }
  if (!notStarted.empty()) {
    throw std::runtime_error(surroundings.program + " was not run: " + notStarted.substr(1));
  }
  outcome.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  return outcome;
}

void Terminal::BecomeOrdinaryUser() {
  surroundings.asOrdinaryUser = true;
  if (::geteuid() != 0) return;
  // The program as it was built may stand where only its builder may look.
  if (!folder.Exists("app")) CopyProgram();
  GiveAway(folder.path());
}

}  // namespace tidewarden::test
