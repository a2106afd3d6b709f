// Where the alarm window stands, kept in the settings.
#pragma once

#include "core/settings_store.h"
#include "core/window_placement.h"

namespace tidewarden {

// In twips: the least size that a user can give to the window, and the smaller one in which it
// opens as long as no other is stored.
inline constexpr int kLeastAlarmWidth = 4815;
inline constexpr int kLeastAlarmHeight = 2550;
inline constexpr int kFirstAlarmWidth = 4455;
inline constexpr int kFirstAlarmHeight = 2130;

// Where the window is to open.
struct AlarmPlacement {
  bool maximized = false;
  WindowArea area;  // in the normal state, also when it opens maximized
  bool operator==(const AlarmPlacement&) const = default;
};

// The window as it stands.
struct AlarmWindowState {
  WindowState state = WindowState::kNormal;
  bool visible = true;
  WindowArea area;
};

// Reads the stored placement. It counts when all four numbers are stored and readable, left and
// top are not negative and the size is not below the least one; otherwise the window opens in
// its first size, at the place where the least size would be in the middle of the primary screen.
// Missing numbers are stored with their defaults. A window that would meet no screen is moved to
// the corner of the primary one, and nothing is written for that. Where windows cannot choose
// their place only the size counts.
[[nodiscard]] AlarmPlacement LoadAlarmPlacement(SettingsStore& settings, const Screens& screens);

// Writes whether the window is maximized and, when it is visible and in the normal state, where
// it stands. Where windows do not know their place only the size is written.
void SaveAlarmPlacement(SettingsStore& settings, const AlarmWindowState& window,
                        const Screens& screens);

// Writes that the window has been maximized.
void SaveAlarmMaximized(SettingsStore& settings);

}  // namespace tidewarden
