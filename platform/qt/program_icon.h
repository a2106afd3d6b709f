// The program's own icon, built into the program.
#pragma once

#include <QIcon>

namespace tidewarden {

// For windows and the notification area, in its sizes from 16 to 256 pixels; between them Qt
// scales down the next larger one. Needs the application object.
[[nodiscard]] QIcon ProgramIcon();

}  // namespace tidewarden
