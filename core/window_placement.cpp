#include "core/window_placement.h"

#include <algorithm>

#include "dates/text.h"

namespace tidewarden {
namespace {

// Optional sign and digits; a point needs digits on both sides.
bool IsPlainNumber(std::string_view text) {
  if (!text.empty() && (text.front() == '-' || text.front() == '+')) text.remove_prefix(1);
  const std::size_t point = text.find('.');
  if (point == std::string_view::npos) return IsDigits(text);
  return IsDigits(text.substr(0, point)) && IsDigits(text.substr(point + 1));
}

}  // namespace

bool MeetsAScreen(const WindowArea& area, const Screens& screens) {
  return screens.all.empty() ||
         std::any_of(screens.all.begin(), screens.all.end(), [&](const WindowArea& screen) {
           return area.left < screen.left + screen.width && screen.left < area.left + area.width &&
                  area.top < screen.top + screen.height && screen.top < area.top + area.height;
         });
}

bool ReadPlacementNumber(std::string_view text, int& out) {
  out = 0;
  text = Trim(text);
  if (!IsPlainNumber(text)) return true;
  const long long number = RoundHalfToEven(LeadingNumber(text));
  if (number < -32768 || number > 32767) return false;
  out = static_cast<int>(number);
  return true;
}

}  // namespace tidewarden
