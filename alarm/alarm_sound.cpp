#include "alarm/alarm_sound.h"

#include "core/find_file.h"
#include "core/settings_keys.h"
#include "dates/text.h"

namespace tidewarden {
namespace {

// A current directory is whatever the program was started from.
std::string FromProgramFolder(const std::string& stored, const ProgramFolders& folders) {
  const std::string path = ResolveEventsPath(stored, folders.program, folders.style);
  return path.starts_with('/') ? path : folders.program + "/" + path;
}

}  // namespace

Status LocateAlarmSound(SettingsStore& settings, FileSystem& files, const ProgramFolders& folders,
                        std::string& path) {
  const bool posix = folders.style == PathStyle::kPosix;
  const std::string ownSound =
      folders.program + (posix ? "/alarms/emergency.wav" : "\\alarms\\emergency.wav");
  const std::string stored = modGetSetSaveSet::Get(settings, settings::kAlarmPath, ownSound);
  const std::string wanted = posix ? FromProgramFolder(stored, folders) : stored;
  return FindFileInAnyCase(files, wanted, path);
}

SoundKind SoundKindOf(const std::string& path) {
  return ToLower(path).ends_with(".wav") ? SoundKind::kWave : SoundKind::kOther;
}

}  // namespace tidewarden
