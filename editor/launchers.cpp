#include "editor/launchers.h"

#include <algorithm>

namespace tidewarden {
namespace {

constexpr std::string_view kSecureAddress = "https://";

// From left to right; what has been replaced is not looked at again.
std::string WithSingleBackslashes(std::string_view path) {
  std::string single;
  for (std::size_t i = 0; i < path.size(); ++i) {
    single.push_back(path[i]);
    if (path.substr(i, 2) == "\\\\") ++i;
  }
  return single;
}

}  // namespace

std::string HelpProgram(const ProgramFolders& folders) {
  if (folders.style == PathStyle::kPosix) return JoinPath(folders.program, "twdocs", folders.style);
  return WithSingleBackslashes(folders.program + "\\twdocs.exe");
}

std::string OptionsProgram(FileSystem& files, const ProgramFolders& folders) {
  if (folders.style == PathStyle::kPosix) {
    return JoinPath(folders.program, "customizer", folders.style);
  }
  // Not every disk gives short names.
  std::string program = folders.program + "\\custom~1.exe";
  FileStamp stamp;
  const bool isMissing = files.GetStamp(program, stamp).kind() == StatusKind::kNotFound;
  return isMissing ? folders.program + "\\customizer.exe" : program;
}

void StartHelp(Shell& shell, const ProgramFolders& folders) {
  shell.Execute(RequestFor(ShellTarget::kProgram, HelpProgram(folders), folders.style));
}

void ChangeToOptions(const OptionsPorts& ports, const ProgramFolders& folders) {
  ports.shell.Execute(
      RequestFor(ShellTarget::kProgram, OptionsProgram(ports.files, folders), folders.style));
  if (ports.release) ports.release();
  ports.end.EndAtOnce(0);
}

bool IsOrderPage(std::string_view address) {
  return address.size() > kSecureAddress.size() && address.starts_with(kSecureAddress) &&
         std::none_of(address.begin(), address.end(),
                      [](char c) { return static_cast<unsigned char>(c) <= ' ' || c == '\x7F'; });
}

void OpenOrderPage(Shell& shell, std::string_view address, PathStyle style) {
  if (!IsOrderPage(address)) return;
  shell.Execute(RequestFor(ShellTarget::kWebPage, std::string(address), style));
}

}  // namespace tidewarden
