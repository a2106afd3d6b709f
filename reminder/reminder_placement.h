// Where the reminder window stands, kept in the settings.
#pragma once

#include "core/settings_store.h"
#include "core/window_placement.h"

namespace tidewarden {

// The size of a new window, and the least that a user can give it; the quote below the list needs
// its own height in addition (DailyQuote::reserveTwips).
inline constexpr int kReminderWidth = 4425;
inline constexpr int kReminderHeight = 2025;
inline constexpr int kLeastReminderWidth = 4455;
inline constexpr int kLeastReminderHeight = 2130;

// Where a window is to stand: maximized, or in an area.
struct StoredPlacement {
  bool maximized = false;
  WindowArea area;
};

// A window as it stands.
struct WindowPlacement {
  WindowState state = WindowState::kNormal;
  WindowArea area;
};

// Reads the stored placement. One that is damaged (left or top below -4, a size below that of a
// new window, a number beyond 16 bits) gives a new window in the middle of the primary screen and
// leaves its marks under "Settings/Left", unless that middle is itself beyond 16 bits. One that
// meets no screen keeps its size and is moved to the middle; nothing is written for that. Where
// windows do not know their place, left and top are neither read nor written.
[[nodiscard]] StoredPlacement LoadWindowPlacement(SettingsStore& settings, const Screens& screens);

// An area of the same size in the middle of the primary screen; what is larger than the screen
// begins at its left and top.
[[nodiscard]] WindowArea InTheMiddle(const WindowArea& area, const Screens& screens);

// Writes whether the window is maximized and, in the normal state, where it stands. Where windows
// do not know their place only the size is written.
void SaveWindowPlacement(SettingsStore& settings, const WindowPlacement& placement,
                         const Screens& screens);

}  // namespace tidewarden
