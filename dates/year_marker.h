// Year markers: "<1788> Australia Day" shown as "226th Australia Day".
#pragma once

#include <string>

namespace tidewarden {

// Replaces the year marker of a title, four digits between the title's first "<" and a ">",
// by the anniversary's ordinal: the current year, one more when `daysToGo` is negative, less
// the marker's year. The title keeps its marker when that is not above 0, and is unchanged
// when it holds no marker.
void ApplyYearMarker(std::string& title, int daysToGo, int currentYear);

}  // namespace tidewarden
