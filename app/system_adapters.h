// What only the desktop program needs of its system, and what is another thing on each of them:
// how it starts, the notification area and the sound. Each system has its own source file.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "alarm/notification_area.h"
#include "alarm/sound_player.h"

namespace tidewarden {

// Before the application object is made. On Linux: chooses between X11, Wayland and no screen,
// unless the user has chosen. On Windows: what the program says reaches the console that it was
// started from, and libraries come from the system alone.
void PrepareDesktop(int argc, char** argv);

// The notification area and the program's own picture by the number that the area knows it by.
struct ProgramTray {
  std::unique_ptr<NotificationArea> area;
  IconHandle icon = 0;
};

// Needs the application object.
[[nodiscard]] ProgramTray MakeProgramTray();

// `complain` takes one line for standard error, without a line end.
[[nodiscard]] std::unique_ptr<SoundPlayer> MakeSystemSound(
    std::function<void(const std::string&)> complain);

}  // namespace tidewarden
