// Events for the benchmarks: the same ones for Tidewarden and, as reminders, for remind.
#pragma once

#include <cstddef>
#include <string>

namespace tidewarden::bench {

struct EventTexts {
  std::string events;     // an events file
  std::string reminders;  // the same events in remind's language
};

// `count` events with 7 days' notice: 70 % yearly, 15 % monthly, 15 % on the nth or last weekday
// of a month. The same count always gives the same events.
[[nodiscard]] EventTexts MakeEvents(std::size_t count);

}  // namespace tidewarden::bench
