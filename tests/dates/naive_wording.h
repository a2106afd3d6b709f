// The wording of a counter made step by step on texts, to check the engine's: the pieces with
// their signs, the commas put in by replacement, the signs taken out at the end.
#pragma once

#include <string>

namespace tidewarden::test {

// The distance between two places in NaiveCalendar.
[[nodiscard]] std::string WordingOnTexts(int from, int to, bool daysOnly);

}  // namespace tidewarden::test
