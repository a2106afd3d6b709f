#include "core/list_font.h"

#include <algorithm>

#include "core/settings_keys.h"
#include "dates/text.h"

namespace tidewarden {

using namespace modGetSetSaveSet;

ListFont ReadListFont(SettingsStore& settings, FontSizeRule rule) {
  constexpr double kLargest = 999;
  ListFont font;
  font.name = Get(settings, settings::kFontName);
  font.bold = isTrue(Get(settings, settings::kFontBold));
  font.italic = isTrue(Get(settings, settings::kFontItalic));
  const double size = std::clamp(LeadingNumber(Get(settings, settings::kFontSize)), 0.0, kLargest);
  font.size = static_cast<int>(
      rule == FontSizeRule::kRounded ? static_cast<double>(RoundHalfToEven(size)) : size);
  return font;
}

}  // namespace tidewarden
