// The program's own icon, built into the program.
#pragma once

#include <QIcon>

namespace tidewarden {

// For windows and the notification area, in its sizes from 16 to 128 pixels (reading a larger one
// would take longer than building the list); between them Qt
// scales down the next larger one. Needs the application object. The first call also makes the
// pictures known to which skins refer as ":/icons/skin/...".
[[nodiscard]] QIcon ProgramIcon();

}  // namespace tidewarden
