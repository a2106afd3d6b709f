
#include <array>
#include <stdexcept>
#include <thread>

#include "platform/windows/windows_api.h"
#include "platform/windows/windows_handles.h"
#include "platform/windows/windows_text.h"
#include "tests/cli/program.h"

namespace tidewarden::test {
namespace {

constexpr DWORD kLongestRun = 60'000;

[[noreturn]] void Fail(const std::string& what) {
  throw std::runtime_error(what + ": error " + std::to_string(::GetLastError()));
}

// A pipe whose writing end the program inherits.
struct Pipe {
  Pipe() {
    SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    HANDLE ends[2];
    if (::CreatePipe(&ends[0], &ends[1], &inherited, 0) == 0) Fail("CreatePipe");
    ::SetHandleInformation(ends[0], HANDLE_FLAG_INHERIT, 0);
    reader = FileHandle(ends[0]);
    writer = FileHandle(ends[1]);
  }
  FileHandle reader;
  FileHandle writer;
};

std::string ReadAll(HANDLE pipe) {
  std::string text;
  std::array<char, 65536> buffer{};
  DWORD got = 0;
  while (::ReadFile(pipe, buffer.data(), static_cast<DWORD>(buffer.size()), &got, nullptr) != 0 &&
         got > 0) {
    text.append(buffer.data(), got);
  }
  return text;
}

// An argument as the system's own rules take it apart again: quotation marks and the backslashes
// before them are escaped.
std::wstring Quoted(const std::wstring& argument) {
  std::wstring out = L"\"";
  std::size_t backslashes = 0;
  for (const wchar_t c : argument) {
    if (c == L'"') out.append(backslashes + 1, L'\\');
    backslashes = c == L'\\' ? backslashes + 1 : 0;
    out.push_back(c);
  }
  return out.append(backslashes, L'\\') + L"\"";
}

// The test's own environment and what the surroundings add.
std::wstring Environment(const Surroundings& surroundings) {
  std::wstring block;
  wchar_t* const own = ::GetEnvironmentStringsW();
  for (const wchar_t* entry = own; *entry != L'\0'; entry += std::wstring_view(entry).size() + 1) {
    block.append(entry).push_back(L'\0');
  }
  ::FreeEnvironmentStringsW(own);
  for (const auto& [name, value] : surroundings.environment) {
    block.append(Wide(name + "=" + value)).push_back(L'\0');
  }
  block.push_back(L'\0');
  return block;
}

}  // namespace

Outcome RunProgram(const Surroundings& surroundings, const std::vector<std::string>& arguments) {
  const std::wstring program = WidePath(surroundings.program);
  std::wstring commandLine = Quoted(program);
  for (const std::string& argument : arguments) {
    commandLine.append(L" ").append(Quoted(Wide(argument)));
  }
  std::wstring environment = Environment(surroundings);
  const std::wstring folder = WidePath(surroundings.folder);

  Pipe out;
  Pipe err;
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdOutput = out.writer.get();
  startup.hStdError = err.writer.get();
  PROCESS_INFORMATION process{};
  if (::CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, TRUE,
                       CREATE_UNICODE_ENVIRONMENT, environment.data(), folder.c_str(), &startup,
                       &process) == 0) {
    Fail(surroundings.program + " was not run");
  }
  out.writer.Close();
  err.writer.Close();
  const FileHandle running(process.hProcess);
  const FileHandle thread(process.hThread);

  Outcome outcome;
  std::thread errors([&] { outcome.err = ReadAll(err.reader.get()); });
  outcome.out = ReadAll(out.reader.get());
  errors.join();
  if (::WaitForSingleObject(running.get(), kLongestRun) != WAIT_OBJECT_0) {
    ::TerminateProcess(running.get(), 1);
    throw std::runtime_error("the program did not come to an end");
  }
  DWORD exitCode = 0;
  ::GetExitCodeProcess(running.get(), &exitCode);
  outcome.exitCode = static_cast<int>(exitCode);
  return outcome;
}

// There is no other user to become.
void Terminal::BecomeOrdinaryUser() {}

}  // namespace tidewarden::test
