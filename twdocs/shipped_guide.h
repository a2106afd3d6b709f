// The guide that is built into the program.
#pragma once

#include "guide/guide.h"

namespace tidewarden {

[[nodiscard]] Guide ShippedGuide();

}  // namespace tidewarden
