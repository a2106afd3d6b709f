#include "core/window_placement.h"

#include <algorithm>

#include "dates/text.h"

namespace tidewarden {
namespace {

// Optional sign, digits with at most one point, at least one digit.
bool IsPlainNumber(std::string_view text) {
  if (!text.empty() && (text.front() == '-' || text.front() == '+')) text.remove_prefix(1);
  const std::size_t point = text.find('.');
  if (point == std::string_view::npos) return IsDigits(text);
  const std::string_view whole = text.substr(0, point);
  const std::string_view decimals = text.substr(point + 1);
  return (whole.empty() || IsDigits(whole)) && (decimals.empty() || IsDigits(decimals)) &&
         text.size() > 1;
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
