// What the tests of the Windows adapters let a second process do:
//   claim NAME      claims to be the only copy, prints the answer, waits to be ended
//   lock PATH       locks a file, prints the answer, waits to be ended
//   library NAME    loads a library as a program of this project does, prints whether it could
//   any-library NAME  the same without its precautions
//   write PATH      writes its current folder into a file

#include <cstdio>
#include <fstream>
#include <string>

#include "platform/windows/windows_api.h"
#include "platform/windows/windows_file_system.h"
#include "platform/windows/windows_previous_instance.h"
#include "platform/windows/windows_process.h"
#include "platform/windows/windows_text.h"

namespace {

void Say(const char* text) {
  std::puts(text);
  std::fflush(stdout);
}

std::string CurrentFolder() {
  std::wstring folder(MAX_PATH, L'\0');
  folder.resize(::GetCurrentDirectoryW(MAX_PATH, folder.data()));
  return tidewarden::Narrow(folder);
}

}  // namespace

int main() {
  using namespace tidewarden;
  const std::vector<std::string> arguments = CommandLineArguments();
  const std::string& command = arguments.at(1);
  const std::string& operand = arguments.at(2);
  if (command == "claim") {
    WindowsPreviousInstance instance(Wide(operand));
    Say(instance.Claim() ? "only" : "other");
    ::Sleep(INFINITE);
  } else if (command == "lock") {
    WindowsFileSystem files;
    std::unique_ptr<FileLock> lock;
    Say(files.Lock(operand, lock).ok() ? "locked" : "refused");
    ::Sleep(INFINITE);
  } else if (command == "library" || command == "any-library") {
    if (command == "library") LoadOnlySystemLibraries();
    Say(::LoadLibraryW(Wide(operand).c_str()) != nullptr ? "loaded" : "refused");
  } else {
    const std::string folder = CurrentFolder();
    WindowsFileSystem files;
    static_cast<void>(ReplaceFile(files, operand, folder).ok());
  }
  return 0;
}
