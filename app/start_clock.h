// A clock that starts at the day and time of the command line and runs on from there.
#pragma once

#include <chrono>
#include <optional>
#include <string_view>

#include "core/clock.h"

namespace tidewarden {

// "HH:MM" or "HH:MM:SS" as seconds since midnight; nothing for another text.
[[nodiscard]] std::optional<int> ReadStartTime(std::string_view text);

class StartClock : public Clock {
 public:
  // Without `today` and `now` (seconds since midnight) it is the system's clock.
  StartClock(const Clock& system, std::optional<CivilDate> today, std::optional<int> now);

  [[nodiscard]] LocalTime Now() const override;

 private:
  const Clock& system_;
  bool isOwn_;
  CivilDate startDate_;
  int startMilliseconds_;
  std::chrono::steady_clock::time_point started_ = std::chrono::steady_clock::now();
};

}  // namespace tidewarden
