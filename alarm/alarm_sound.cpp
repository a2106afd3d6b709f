#include "alarm/alarm_sound.h"

#include "core/find_file.h"
#include "core/settings_keys.h"
#include "dates/text.h"

namespace tidewarden {

Status LocateAlarmSound(SettingsStore& settings, FileSystem& files, const ProgramFolders& folders,
                        std::string& path) {
  const bool posix = folders.style == PathStyle::kPosix;
  const std::string ownSound =
      folders.program + (posix ? "/alarms/emergency.wav" : "\\alarms\\emergency.wav");
  const std::string stored = modGetSetSaveSet::Get(settings, settings::kAlarmPath, ownSound);
  return FindFileInAnyCase(files, FromProgramFolder(stored, folders), path);
}

SoundKind SoundKindOf(const std::string& path) {
  return ToLower(path).ends_with(".wav") ? SoundKind::kWave : SoundKind::kOther;
}

}  // namespace tidewarden
