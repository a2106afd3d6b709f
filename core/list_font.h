// The font of the reminder list, in which the alarm window shows its messages as well.
#pragma once

#include <string>

#include "core/settings_store.h"

namespace tidewarden {

struct ListFont {
  std::string name;
  bool bold = false;
  bool italic = false;
  int size = 0;  // points, 1 to 999; 0 leaves the size that the control was designed with
};

// Each of the two windows reads a size such as "9.7" in its own way.
enum class FontSizeRule {
  kWholePart,  // 9: the reminder window
  kRounded,    // 10, and halves to even: the alarm window
};

// Reads the font settings. A size that is no number, or less than 1 by its rule, gives 0; a larger
// one than 999 gives 999. Missing settings are stored with their defaults; nothing else is written.
[[nodiscard]] ListFont ReadListFont(SettingsStore& settings, FontSizeRule rule);

}  // namespace tidewarden
