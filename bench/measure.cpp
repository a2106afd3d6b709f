// Runs commands in turn and reports what each needed as a whole process:
//   measure ROUNDS COMMAND ARGS... --- COMMAND ARGS... ...
// Prints a line for each command: least and median CPU milliseconds (user and system), the most
// memory in KiB, and the least milliseconds from start to end. Standard output of the commands is
// discarded; one that fails ends everything.
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

struct Run {
  double cpu = 0;
  double wall = 0;
  long memory = 0;
};

double Milliseconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
}

Run RunOnce(std::vector<char*> command) {
  command.push_back(nullptr);
  const auto start = std::chrono::steady_clock::now();
  const pid_t child = vfork();
  if (child == 0) {
    const int null = open("/dev/null", O_WRONLY);
    dup2(null, STDOUT_FILENO);
    execvp(command[0], command.data());
    _exit(127);
  }
  int status = 0;
  rusage usage{};
  if (child < 0 || wait4(child, &status, 0, &usage) != child || !WIFEXITED(status) ||
      WEXITSTATUS(status) != 0) {
    std::fprintf(stderr, "measure: %s failed\n", command[0]);
    std::exit(1);
  }
  const std::chrono::duration<double, std::milli> wall = std::chrono::steady_clock::now() - start;
  return {Milliseconds(usage.ru_utime) + Milliseconds(usage.ru_stime), wall.count(),
          usage.ru_maxrss};
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) return 2;
  const int rounds = std::max(1, std::atoi(argv[1]));
  std::vector<std::vector<char*>> commands(1);
  for (int i = 2; i < argc; ++i) {
    if (std::string(argv[i]) == "---") {
      commands.emplace_back();
    } else {
      commands.back().push_back(argv[i]);
    }
  }
  std::vector<std::vector<Run>> runs(commands.size());
  for (int round = 0; round < rounds; ++round) {
    for (std::size_t i = 0; i < commands.size(); ++i) runs[i].push_back(RunOnce(commands[i]));
  }
  for (std::vector<Run>& all : runs) {
    std::sort(all.begin(), all.end(), [](const Run& a, const Run& b) { return a.cpu < b.cpu; });
    double wall = all.front().wall;
    long memory = 0;
    for (const Run& run : all) {
      wall = std::min(wall, run.wall);
      memory = std::max(memory, run.memory);
    }
    std::printf("%.3f %.3f %ld %.3f\n", all.front().cpu, all[all.size() / 2].cpu, memory, wall);
  }
  return 0;
}
