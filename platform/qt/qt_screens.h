// The screens of the desktop as Qt knows them.
#pragma once

#include "core/window_placement.h"

namespace tidewarden {

// At this moment. On Wayland windows neither know nor choose their place.
[[nodiscard]] Screens DesktopScreens();

}  // namespace tidewarden
