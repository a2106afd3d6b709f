// The desktop's shell through ShellExecute, and the sudden end of the process.
#pragma once

#include <functional>
#include <string>

#include "core/program_end.h"
#include "core/shell.h"

namespace tidewarden {

// The arguments of one call of ShellExecuteW; the owner window and the verb are none.
struct ShellExecuteArguments {
  std::wstring file;
  std::wstring parameters;
  std::wstring folder;
  int show = 0;
};

class WindowsShell : public Shell {
 public:
  // `call` stands in for ShellExecuteW in a test.
  explicit WindowsShell(std::function<void(const ShellExecuteArguments& arguments)> call = {});

  // One call for each request, whatever its kind.
  void Execute(const ShellRequest& request) override;

 private:
  std::function<void(const ShellExecuteArguments& arguments)> call_;
};

class WindowsProgramEnd : public ProgramEnd {
 public:
  void EndAtOnce(int exitCode) override;
};

}  // namespace tidewarden
