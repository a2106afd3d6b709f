#include "platform/system.h"

#include <array>
#include <cstdint>

#include "dates/text.h"
#include "platform/windows/registry_autostart.h"
#include "platform/windows/registry_settings_store.h"
#include "platform/windows/windows_api.h"
#include "platform/windows/windows_file_system.h"
#include "platform/windows/windows_previous_instance.h"
#include "platform/windows/windows_process.h"
#include "platform/windows/windows_regional_formats.h"
#include "platform/windows/windows_staged_files.h"
#include "platform/windows/windows_text.h"

// Needs the types of windows.h.
#include <shlobj.h>

namespace tidewarden {
namespace {

class WindowsClock : public Clock {
 public:
  [[nodiscard]] LocalTime Now() const override {
    SYSTEMTIME now{};
    ::GetLocalTime(&now);
    return {MakeDate(now.wYear, now.wMonth, now.wDay), now.wHour, now.wMinute, now.wSecond,
            now.wMilliseconds};
  }
};

std::wstring ProgramPath() {
  std::wstring path(MAX_PATH, L'\0');
  while (true) {
    const DWORD length =
        ::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) return path.substr(0, length);
    path.resize(2 * path.size());
  }
}

// A path in the form that people write.
std::wstring Plain(const std::wstring& path) {
  if (path.starts_with(L"\\\\?\\UNC\\")) return L"\\" + path.substr(7);
  return path.starts_with(L"\\\\?\\") ? path.substr(4) : path;
}

std::string ProgramFolder() {
  return Narrow(FolderOf(Plain(ResolveLink(ProgramPath()))));
}

// One of the folders that the system knows by number; the program's own where there is none.
std::wstring SystemFolder(int number) {
  std::array<wchar_t, MAX_PATH> folder{};
  const HRESULT found =
      ::SHGetFolderPathW(nullptr, number, nullptr, SHGFP_TYPE_CURRENT, folder.data());
  // S_FALSE, which is no failure, comes with an empty text for a folder that does not exist.
  return found == S_OK && folder[0] != L'\0' ? folder.data() : FolderOf(ProgramPath());
}

// The program's own folder in one of those of the user, which is made when it is missing.
std::string OwnFolderIn(int number) {
  return JoinPath(Narrow(SystemFolder(number | CSIDL_FLAG_CREATE)), kApplicationName,
                  PathStyle::kWindows);
}

// A name for whatever path, fit for an object of the system: a hash (FNV-1a), because such names
// hold no separators.
std::wstring NameOf(const std::string& path) {
  std::uint64_t hash = 14695981039346656037U;
  for (const char c : ToLower(Narrow(WidePath(path)))) {
    hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211U;
  }
  return std::to_wstring(hash);
}

}  // namespace

void PrepareProgram() {
  LoadOnlySystemLibraries();
  LetEmptyDrivesFail();
  UseUtf8Streams();
}

std::vector<std::string> ProgramArguments(int /*argc*/, char** /*argv*/) {
  return CommandLineArguments();
}

std::unique_ptr<FileSystem> MakeSystemFiles() {
  return std::make_unique<WindowsFileSystem>();
}

std::unique_ptr<Clock> MakeSystemClock() {
  return std::make_unique<WindowsClock>();
}

std::unique_ptr<RegionalFormats> MakeSystemFormats(const std::string& shortDatePattern) {
  auto formats = std::make_unique<WindowsRegionalFormats>();
  if (shortDatePattern.empty()) return formats;
  return std::make_unique<PatternRegionalFormats>(shortDatePattern, formats->names());
}

std::unique_ptr<SettingsStore> MakeSystemSettings(FileSystem& /*files*/) {
  return std::make_unique<RegistrySettingsStore>();
}

ProgramFolders SystemFolders() {
  return {ProgramFolder(), OwnFolderIn(CSIDL_APPDATA), PathStyle::kWindows};
}

std::string ReminderProgram() {
  return JoinPath(ProgramFolder(), "tidewarden.exe", PathStyle::kWindows);
}

std::unique_ptr<Autostart> MakeAutostart(FileSystem& /*files*/) {
  return std::make_unique<RegistryAutostart>(ReminderProgram());
}

std::string GetCommonDataFolder() {
  return Narrow(SystemFolder(CSIDL_COMMON_APPDATA));
}

std::string GetLocalDataFolder() {
  return OwnFolderIn(CSIDL_LOCAL_APPDATA);
}

std::unique_ptr<PreviousInstance> MakePreviousInstance(FileSystem& /*files*/,
                                                       const std::string& settingsPath) {
  const std::wstring name = L"Tideward.Instance";
  return std::make_unique<WindowsPreviousInstance>(
      settingsPath.empty() ? name : name + L"." + NameOf(settingsPath));
}

}  // namespace tidewarden
