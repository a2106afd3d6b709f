// Whether there is a desktop to open a window on. Without one Qt would end the program with a
// crash.
#pragma once

#include <QSysInfo>

namespace tidewarden {

// Only X11 and Wayland can be absent; elsewhere the desktop is part of the system. A platform that
// was asked for by QT_QPA_PLATFORM is taken at its word.
[[nodiscard]] inline bool HasDisplay() {
  return QSysInfo::kernelType() == QStringLiteral("winnt") ||
         qEnvironmentVariableIsSet("QT_QPA_PLATFORM") || !qEnvironmentVariableIsEmpty("DISPLAY") ||
         !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

}  // namespace tidewarden
