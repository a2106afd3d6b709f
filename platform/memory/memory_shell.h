// The desktop's shell and the end of the program, in memory: they record what is asked of them.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "core/program_end.h"
#include "core/shell.h"

namespace tidewarden {

class MemoryShell : public Shell {
 public:
  std::vector<ShellRequest> requests;

  void Execute(const ShellRequest& request) override { requests.push_back(request); }
};

class MemoryProgramEnd : public ProgramEnd {
 public:
  std::optional<int> exitCode;   // of the last end
  std::function<void()> ending;  // called first, when set

  void EndAtOnce(int code) override {
    if (ending) ending();
    exitCode = code;
  }
};

}  // namespace tidewarden
