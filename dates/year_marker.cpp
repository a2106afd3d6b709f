#include "dates/year_marker.h"

#include <string_view>

#include "dates/text.h"

namespace tidewarden {
namespace {

std::string_view OrdinalSuffix(int number) {
  const int lastTwo = number % 100;
  if (lastTwo >= 11 && lastTwo <= 13) return "th";
  switch (number % 10) {
    case 1:
      return "st";
    case 2:
      return "nd";
    case 3:
      return "rd";
    default:
      return "th";
  }
}

}  // namespace

void ApplyYearMarker(std::string& title, int daysToGo, int currentYear) {
  constexpr std::size_t kMarkerLength = 6;
  const std::size_t start = title.find('<');
  if (start == std::string::npos || title.size() < start + kMarkerLength ||
      title[start + kMarkerLength - 1] != '>') {
    return;
  }
  const std::string_view digits = std::string_view(title).substr(start + 1, 4);
  if (!IsDigits(digits)) return;
  const int count = currentYear + (daysToGo < 0 ? 1 : 0) - DigitsValue(digits);
  if (count <= 0) return;
  std::string ordinal;
  AppendNumber(ordinal, count);
  ordinal += OrdinalSuffix(count);
  title.replace(start, kMarkerLength, ordinal);
}

}  // namespace tidewarden
