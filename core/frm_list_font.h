// The font of the list as Qt knows it, for every window that shows it.
#pragma once

#include <QFont>

#include "core/list_font.h"

namespace tidewarden {

// A size of 0 gives `designedPoints`. The face may be one that is not installed; Qt then takes
// another one for it. A substitute that the program has named to Qt for the face
// (QFont::insertSubstitution) is preferred to the face itself, also where both are installed.
[[nodiscard]] QFont FontOf(const ListFont& font, int designedPoints);

}  // namespace tidewarden
