// Whether there is a desktop to open a window on, and what can be done without one. Without a
// desktop Qt would end the program with a crash.
#pragma once

namespace tidewarden {

// Only X11 and Wayland can be absent; elsewhere the desktop is part of the system. A platform that
// was asked for by QT_QPA_PLATFORM is taken at its word.
[[nodiscard]] bool HasDisplay();

// True when the command line asks for a text such as the help, or, where there is no display, for
// a picture of a window: both can be done off the screen.
[[nodiscard]] bool WorksOffscreen(int argc, char** argv);

}  // namespace tidewarden
