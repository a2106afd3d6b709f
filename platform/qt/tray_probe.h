// Whether the desktop has a notification area at this moment, found out without asking Qt for one:
// the first time that Qt looks for a host of StatusNotifierItems and there is none, it takes it for
// granted that there never will be one.
#pragma once

namespace tidewarden {

// True when a host of StatusNotifierItems is on the session bus, or when the screen of X11 has a
// system tray. Waits a few seconds at most for a panel that does not answer.
[[nodiscard]] bool DesktopHasTray();

// For QtNotificationArea: the same, and Qt can use it.
[[nodiscard]] bool QtHasTray();

}  // namespace tidewarden
