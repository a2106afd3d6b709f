#include "platform/windows/windows_process.h"

#include <fcntl.h>
#include <io.h>

#include <cstdio>
#include <cstdlib>
#include <utility>

#include "platform/windows/windows_api.h"
#include "platform/windows/windows_text.h"

// Needs the types of windows.h.
#include <shellapi.h>

namespace tidewarden {
namespace {

UINT formerCodePage = 0;

bool IsConsole(DWORD stream) {
  DWORD mode = 0;
  return ::GetConsoleMode(::GetStdHandle(stream), &mode) != 0;
}

}  // namespace

void LoadOnlySystemLibraries() {
  ::SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
  ::SetDllDirectoryW(L"");
}

void LetEmptyDrivesFail() {
  ::SetErrorMode(::GetErrorMode() | SEM_FAILCRITICALERRORS);
}

void UseUtf8Streams() {
  for (FILE* const stream : {stdout, stderr}) {
    // A program with windows may have no streams.
    const int number = ::_fileno(stream);
    if (number >= 0) ::_setmode(number, _O_BINARY);
  }
  if (!IsConsole(STD_OUTPUT_HANDLE) && !IsConsole(STD_ERROR_HANDLE)) return;
  formerCodePage = ::GetConsoleOutputCP();
  if (::SetConsoleOutputCP(CP_UTF8) != 0 && formerCodePage != 0) {
    static_cast<void>(std::atexit(RestoreConsole));
  }
}

void RestoreConsole() {
  if (formerCodePage != 0) ::SetConsoleOutputCP(std::exchange(formerCodePage, 0));
}

std::vector<std::string> CommandLineArguments() {
  int count = 0;
  wchar_t** const texts = ::CommandLineToArgvW(::GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 0; texts != nullptr && i < count; ++i) arguments.push_back(Narrow(texts[i]));
  ::LocalFree(texts);
  return arguments;
}

}  // namespace tidewarden
