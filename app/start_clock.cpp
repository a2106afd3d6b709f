#include "app/start_clock.h"

#include "dates/regional_text.h"
#include "dates/text.h"

namespace tidewarden {
namespace {

constexpr int kMillisecondsOfDay = 24 * 60 * 60 * 1000;

int MillisecondsOf(const LocalTime& time) {
  return ((time.hour * 60 + time.minute) * 60 + time.second) * 1000 + time.millisecond;
}

}  // namespace

std::optional<int> ReadStartTime(std::string_view text) {
  int seconds = 0;
  if (text.size() == 8 && text[5] == ':') {
    seconds = DigitsValue(text.substr(6));
    text = text.substr(0, 5);
  }
  const auto time = ReadClockTime(text);
  if (!time || seconds < 0 || seconds > 59) return std::nullopt;
  return (*time / 100 * 60 + *time % 100) * 60 + seconds;
}

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
