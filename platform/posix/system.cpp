#include "platform/system.h"

#include <unistd.h>

#include <array>
#include <climits>
#include <cstdlib>
#include <ctime>

#include "core/ini_settings_store.h"
#include "platform/posix/posix_file_system.h"
#include "platform/posix/posix_folders.h"
#include "platform/posix/posix_previous_instance.h"
#include "platform/posix/posix_regional_formats.h"
#include "platform/posix/xdg_autostart.h"

namespace tidewarden {
namespace {

class PosixClock : public Clock {
 public:
  [[nodiscard]] LocalTime Now() const override {
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    // The user may have travelled, and the program runs for weeks.
    ::tzset();
    std::tm tm{};
    ::localtime_r(&now.tv_sec, &tm);
    return {MakeDate(tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday), tm.tm_hour, tm.tm_min,
            tm.tm_sec < 60 ? tm.tm_sec : 59, static_cast<int>(now.tv_nsec / 1'000'000)};
  }
};

std::string HomeFolder() {
  const char* home = std::getenv("HOME");
  return home != nullptr && *home != '\0' ? home : "/";
}

// One of the XDG base directories, whose variables count only when they hold an absolute path.
std::string XdgFolder(const char* variable, const char* fallbackInHome) {
  const char* value = std::getenv(variable);
  return value != nullptr && *value == '/' ? value : HomeFolder() + fallbackInHome;
}

std::string OwnFolderIn(const std::string& folder) {
  return folder + "/" + std::string(kApplicationName);
}

std::string ConfigFolder() {
  return XdgFolder("XDG_CONFIG_HOME", "/.config");
}

std::string ExecutableFolder() {
  std::array<char, PATH_MAX> path{};
  const ssize_t length = ::readlink("/proc/self/exe", path.data(), path.size());
  if (length <= 0) return ".";
  const std::string executable(path.data(), static_cast<std::size_t>(length));
  const std::size_t slash = executable.rfind('/');
  return slash == 0 ? "/" : executable.substr(0, slash);
}

std::string InstancePath(FileSystem& files, const std::string& settingsPath) {
  const char* runtime = std::getenv("XDG_RUNTIME_DIR");
  if (settingsPath.empty() && runtime != nullptr && *runtime == '/' && files.CanCreateIn(runtime)) {
    return std::string(runtime) + "/tidewarden.instance";
  }
  return (settingsPath.empty() ? SettingsFilePath() : settingsPath) + ".instance";
}

}  // namespace

void PrepareProgram() {}

std::vector<std::string> ProgramArguments(int argc, char** argv) {
  return {argv, argv + argc};
}

std::unique_ptr<FileSystem> MakeSystemFiles() {
  return std::make_unique<PosixFileSystem>();
}

std::unique_ptr<Clock> MakeSystemClock() {
  return std::make_unique<PosixClock>();
}

std::unique_ptr<RegionalFormats> MakeSystemFormats(const std::string& shortDatePattern) {
  auto formats = std::make_unique<PosixRegionalFormats>();
  if (shortDatePattern.empty()) return formats;
  return std::make_unique<PatternRegionalFormats>(shortDatePattern, formats->names());
}

std::string SettingsFilePath() {
  return OwnFolderIn(ConfigFolder()) + "/settings.ini";
}

std::unique_ptr<SettingsStore> MakeSystemSettings(FileSystem& files) {
  return std::make_unique<IniSettingsStore>(files, SettingsFilePath());
}

ProgramFolders SystemFolders() {
  return {ExecutableFolder(), OwnFolderIn(XdgFolder("XDG_DATA_HOME", "/.local/share")),
          PathStyle::kPosix};
}

std::string ReminderProgram() {
  return JoinPath(ExecutableFolder(), "tidewarden", PathStyle::kPosix);
}

std::unique_ptr<Autostart> MakeAutostart(FileSystem& files) {
  return std::make_unique<XdgAutostart>(files, ConfigFolder(), ReminderProgram());
}

std::string GetCommonDataFolder() {
  return SystemFolders().userData;
}

std::string GetLocalDataFolder() {
  return SystemFolders().userData;
}

std::unique_ptr<PreviousInstance> MakePreviousInstance(FileSystem& files,
                                                       const std::string& settingsPath) {
  const std::string path = InstancePath(files, settingsPath);
  // For the folder. Where it cannot be made there is nothing to claim.
  static_cast<void>(files.CreateEmpty(path));
  return std::make_unique<PosixPreviousInstance>(path);
}

}  // namespace tidewarden
