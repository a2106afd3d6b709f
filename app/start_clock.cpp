#include "app/start_clock.h"

namespace tidewarden {
namespace {

constexpr int kSecondsOfDay = 24 * 60 * 60;

int SecondsOf(const LocalTime& time) {
  return (time.hour * 60 + time.minute) * 60 + time.second;
}

}  // namespace

StartClock::StartClock(const Clock& system, std::optional<CivilDate> today, std::optional<int> now)
    : system_(system),
      isOwn_(today || now),
      startDate_(today.value_or(system.Now().date)),
      startSeconds_(now.value_or(SecondsOf(system.Now()))) {}

LocalTime StartClock::Now() const {
  if (!isOwn_) return system_.Now();
  const auto elapsed =
      std::chrono::duration_cast<std::chrono::seconds>(std::chrono::steady_clock::now() - started_);
  const auto seconds = startSeconds_ + elapsed.count();
  const int time = static_cast<int>(seconds % kSecondsOfDay);
  return {AddDays(startDate_, static_cast<int>(seconds / kSecondsOfDay)), time / 3600,
          time / 60 % 60, time % 60};
}

}  // namespace tidewarden
