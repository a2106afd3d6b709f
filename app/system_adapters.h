// What only programs with windows need of their system, and what is another thing on each of
// them: how they start, the notification area, the sound and the Shift key. Each system has its
// own source file.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "alarm/notification_area.h"
#include "alarm/sound_player.h"
#include "core/program_end.h"
#include "core/shell.h"
#include "reminder/shift_key.h"

class QCoreApplication;

namespace tidewarden {

// Who places the windows of a program.
enum class WindowPlaces { kProgram, kDesktop };

// Before the application object is made, which must not be done when this is false: there is no
// display, and the command line asks for a window. On Linux: chooses X11 for a program that places
// its windows, and no screen for one that only tells its version or its help or, where there is no
// desktop, only makes a picture, unless the user has chosen. On Windows: what the program says
// reaches the console that it was started from, and libraries and plugins come from the system and
// the program alone.
[[nodiscard]] bool PrepareDesktop(int argc, char** argv, WindowPlaces places);

// After it is made. On Linux: programs that are started from here choose for themselves. On
// Windows: windows that ask to stay above the others are put there by the system's own call, and a
// font of dots has a substitute of outlines.
void SettleDesktop(QCoreApplication& application);

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

[[nodiscard]] std::unique_ptr<ShiftKey> MakeSystemShiftKey();
[[nodiscard]] std::unique_ptr<Shell> MakeSystemShell();
[[nodiscard]] std::unique_ptr<ProgramEnd> MakeProgramEnd();

}  // namespace tidewarden
