#include "app/start_clock.h"

namespace tidewarden {
namespace {

constexpr int kMillisecondsOfDay = 24 * 60 * 60 * 1000;

int MillisecondsOf(const LocalTime& time) {
  return ((time.hour * 60 + time.minute) * 60 + time.second) * 1000 + time.millisecond;
}

}  // namespace

StartClock::StartClock(const Clock& system, std::optional<CivilDate> today, std::optional<int> now)
    : system_(system),
      isOwn_(today || now),
      startDate_(today.value_or(system.Now().date)),
      startMilliseconds_(now ? *now * 1000 : MillisecondsOf(system.Now())) {}

LocalTime StartClock::Now() const {
  if (!isOwn_) return system_.Now();
  const auto elapsed = std::chrono::duration_cast<std::chrono::milliseconds>(
      std::chrono::steady_clock::now() - started_);
  const auto since = startMilliseconds_ + elapsed.count();
  const int time = static_cast<int>(since % kMillisecondsOfDay);
  const int second = time / 1000;
  return {AddDays(startDate_, static_cast<int>(since / kMillisecondsOfDay)), second / 3600,
          second / 60 % 60, second % 60, time % 1000};
}

}  // namespace tidewarden
