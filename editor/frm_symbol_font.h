// The font "Orrinvale Dingbats", whose characters are the pictures on the editor's buttons. It is
// drawn in fonts/orrinvale_dingbats.svg and built into the program.
//
//   "0" to "="  fourteen small pictures for cmdDonate
//   P O X S C   print, options, delete, save, cancel
#pragma once

#include <QFont>

namespace tidewarden {

inline constexpr char kSymbolFontFamily[] = "Orrinvale Dingbats";

// The font in a size in device-independent pixels, loaded at the first call.
[[nodiscard]] QFont SymbolFont(int pixelSize);

}  // namespace tidewarden
