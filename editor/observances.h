// The 58 popular observances that the events editor offers: 40 by date and 18 movable feasts.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "dates/date_text.h"

namespace tidewarden {

inline constexpr int kObservances = 58;

// What picking an observance puts into the entry row.
struct Observance {
  std::string date;    // five characters as shown: "01.26", "26.01", "xx.01", "_estr"
  std::string title;   // without the words in parentheses that only tell two entries apart
  std::string occurs;  // "yearly", "3rd Mon"
};

// The entries as the box shows them, "01.26,<1788> Australia Day,yearly". Where the month does
// not come first the date is shown day first.
[[nodiscard]] std::vector<std::string> PopularObservances(const RegionalDateFormat& format);

// Reads an entry of the box.
[[nodiscard]] Observance ReadObservance(std::string_view entry);

}  // namespace tidewarden
