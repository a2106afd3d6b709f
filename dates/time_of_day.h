// Times of day written in event titles.
#pragma once

#include <string_view>

namespace tidewarden {

// "There is no time": sorts after every real time of day.
inline constexpr int kNoTimeOfDay = 2460;

// The time of day in a title as the whole number hhmm, or kNoTimeOfDay. Only the first ":" is
// looked at: one or two digits before it, two behind, then "am" or "pm" with or without a blank
// before it, in any case ("9:15 am" 915, "1:30pm" 1330, "12:05 am" 5). Hour 24 and minute 60
// are let through, so results up to 2460 occur.
[[nodiscard]] int ConvertToFourDigitTime(std::string_view title);

}  // namespace tidewarden
