#include "platform/windows/windows_shell.h"

#include <cstdlib>
#include <utility>

#include "platform/windows/windows_api.h"
#include "platform/windows/windows_text.h"

// Needs the types of windows.h.
#include <shellapi.h>

namespace tidewarden {
namespace {

void CallSystem(const ShellExecuteArguments& arguments) {
  ::ShellExecuteW(nullptr, nullptr, arguments.file.c_str(),
                  arguments.parameters.empty() ? nullptr : arguments.parameters.c_str(),
                  arguments.folder.c_str(), arguments.show);
}

}  // namespace

WindowsShell::WindowsShell(std::function<void(const ShellExecuteArguments& arguments)> call)
    : call_(call ? std::move(call) : CallSystem) {}

void WindowsShell::Execute(const ShellRequest& request) {
  call_({Wide(request.target), Wide(request.parameters), Wide(request.folder), request.show});
}

void WindowsProgramEnd::EndAtOnce(int exitCode) {
  std::_Exit(exitCode);
}

}  // namespace tidewarden
