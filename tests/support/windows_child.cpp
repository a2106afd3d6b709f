#include "tests/support/windows_child.h"

#include <array>
#include <stdexcept>

#include "platform/windows/windows_text.h"

namespace tidewarden::test {

Child::Child(const std::string& program, const std::vector<std::string>& arguments,
             const std::string& folder) {
  SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
  HANDLE ends[2];
  if (::CreatePipe(&ends[0], &ends[1], &inherited, 0) == 0) throw std::runtime_error("no pipe");
  ::SetHandleInformation(ends[0], HANDLE_FLAG_INHERIT, 0);
  output_ = FileHandle(ends[0]);
  const FileHandle writer(ends[1]);

  std::wstring commandLine = L"\"" + WidePath(program) + L"\"";
  for (const std::string& argument : arguments) commandLine += L" \"" + Wide(argument) + L"\"";
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdOutput = writer.get();
  PROCESS_INFORMATION process{};
  if (::CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr,
                       WidePath(folder).c_str(), &startup, &process) == 0) {
    throw std::runtime_error(program + " was not run: error " + std::to_string(::GetLastError()));
  }
  ::CloseHandle(process.hThread);
  process_ = FileHandle(process.hProcess);
}

Child::~Child() {
  Kill();
}

std::string Child::ReadLine() {
  std::string line;
  char c = '\0';
  DWORD got = 0;
  while (::ReadFile(output_.get(), &c, 1, &got, nullptr) != 0 && got == 1 && c != '\n') {
    if (c != '\r') line.push_back(c);
  }
  return line;
}

std::string Child::ReadRest() {
  std::string text;
  std::array<char, 4096> buffer{};
  DWORD got = 0;
  while (::ReadFile(output_.get(), buffer.data(), static_cast<DWORD>(buffer.size()), &got,
                    nullptr) != 0 &&
         got > 0) {
    text.append(buffer.data(), got);
  }
  return text;
}

void Child::Kill() {
  ::TerminateProcess(process_.get(), 1);
  ::WaitForSingleObject(process_.get(), INFINITE);
}

}  // namespace tidewarden::test
