#include "dates/time_of_day.h"

#include <cstddef>

#include "dates/text.h"

namespace tidewarden {
namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

enum class HalfDay { kNone, kMorning, kAfternoon };

HalfDay HalfDayAt(std::string_view behindMinutes) {
  const auto begins = [&](char first, char second, std::string_view text) {
    return text.size() >= 2 && ToLowerAscii(text[0]) == first && ToLowerAscii(text[1]) == second;
  };
  const bool blank = !behindMinutes.empty() && behindMinutes[0] == ' ';
  const std::string_view word = blank ? behindMinutes.substr(1) : behindMinutes;
  if (begins('a', 'm', word)) return HalfDay::kMorning;
  if (begins('p', 'm', word)) return HalfDay::kAfternoon;
  return HalfDay::kNone;
}

}  // namespace

int ConvertToFourDigitTime(std::string_view title) {
  const std::size_t colon = title.find(':');
  if (colon == std::string_view::npos || colon == 0 || title.size() - colon - 1 < 2) {
    return kNoTimeOfDay;
  }
  if (!IsDigit(title[colon - 1]) || !IsDigit(title[colon + 1]) || !IsDigit(title[colon + 2])) {
    return kNoTimeOfDay;
  }
  int hours = title[colon - 1] - '0';
  if (colon >= 2 && IsDigit(title[colon - 2])) hours += 10 * (title[colon - 2] - '0');
  const int minutes = 10 * (title[colon + 1] - '0') + (title[colon + 2] - '0');
  const HalfDay half = HalfDayAt(title.substr(colon + 3));
  if (half == HalfDay::kMorning && hours == 12) {
    hours = 0;
  } else if (half == HalfDay::kAfternoon && hours < 12) {
    hours += 12;
  }
  return hours < 25 && minutes < 61 ? hours * 100 + minutes : kNoTimeOfDay;
}

}  // namespace tidewarden
