// A year of alarms on a clock that runs a minute at each step: every due alarm exactly once, and
// no more memory at the end than at the beginning.
#include <gmock/gmock.h>

#include <atomic>
#include <cstdlib>
#include <map>
#include <new>

#include "dates/text.h"
#include "tests/alarm/alarm_desk.h"

namespace {

std::atomic<long long> liveBytes{0};
constexpr std::size_t kHeader = alignof(std::max_align_t);

}  // namespace

// Counts what the whole program has allocated and not given back.
void* operator new(std::size_t size) {
  auto* const block = static_cast<char*>(std::malloc(size + kHeader));
  if (block == nullptr) throw std::bad_alloc();
  *reinterpret_cast<std::size_t*>(block) = size;
  liveBytes += static_cast<long long>(size);
  return block + kHeader;
}
void operator delete(void* block) noexcept {
  if (block == nullptr) return;
  char* const start = static_cast<char*>(block) - kHeader;
  liveBytes -= static_cast<long long>(*reinterpret_cast<std::size_t*>(start));
  std::free(start);
}
void operator delete(void* block, std::size_t /*size*/) noexcept {
  operator delete(block);
}

namespace tidewarden::test {
namespace {

// The same numbers on every machine.
class Numbers {
 public:
  int Below(int limit) {
    state_ = state_ * 6364136223846793005ULL + 1442695040888963407ULL;
    return static_cast<int>((state_ >> 33) % static_cast<unsigned>(limit));
  }

 private:
  unsigned long long state_ = 2014;
};

constexpr int kMinutes = 24 * 60;

std::string TitleAt(int minute, int number) {
  std::string title = "Alarm " + std::to_string(number) + " at ";
  AppendNumber(title, minute / 60, 2);
  title += ":";
  AppendNumber(title, minute % 60, 2);
  return title;
}

// How often each of a day's titles stands in the messages.
void Count(const AlarmSession& session, std::map<std::string, int>& rung) {
  const std::string& text = session.AlarmText();
  for (std::size_t at = text.find("Alarm "); at != std::string::npos;
       at = text.find("Alarm ", at + 1)) {
    ++rung[text.substr(at, text.find("\r\n", at) - at)];
  }
}

// Frees what the stand-ins have written down.
void ForgetRecords(AlarmDesk& desk) {
  desk.Build({});
  std::vector<std::string>().swap(desk.sound.calls);
  std::vector<std::string>().swap(desk.files.calls);
}

TEST(AlarmSoak, InAYearEveryDueAlarmRingsExactlyOnce) {
  AlarmDesk desk;
  Numbers numbers;
  long long afterTheFirstMonth = 0;
  int due = 0;
  const CivilDate start = On(2026, 1, 1);
  for (int day = 0; day < 365; ++day) {
    std::vector<std::string> titles;
    std::map<std::string, int> rung;
    for (int i = numbers.Below(8); i >= 0; --i) {
      titles.push_back(TitleAt(numbers.Below(kMinutes), i));
      rung[titles.back()] = 0;
    }
    desk.now = {AddDays(start, day), 0, 0, 0, 50};
    if (day > 0) desk.Tick();  // finds the new day
    desk.Build(titles);
    due += static_cast<int>(titles.size());
    const int asleepFrom = numbers.Below(3) == 0 ? 1 + numbers.Below(kMinutes - 200) : kMinutes;
    const int asleepUntil = asleepFrom + 1 + numbers.Below(180);
    for (int minute = 0; minute < kMinutes; ++minute) {
      if (minute >= asleepFrom && minute < asleepUntil) continue;
      desk.SetTime(minute / 60, minute % 60, numbers.Below(60));
      if (numbers.Below(300) == 0) desk.Build(titles);
      if (desk.Tick().showsMessages) {
        Count(desk.session, rung);
        desk.Acknowledge();
      }
      if (numbers.Below(10) == 0) static_cast<void>(desk.Tick());  // two ticks in a minute
    }
    for (const auto& [title, times] : rung) {
      ASSERT_EQ(times, 1) << title << " on day " << day;
    }
    if (day == 30) {
      ForgetRecords(desk);
      afterTheFirstMonth = liveBytes;
    }
  }
  EXPECT_GT(due, 365);
  ForgetRecords(desk);
  // The days before hold more or fewer alarms, and texts have their spare room.
  EXPECT_LT(liveBytes - afterTheFirstMonth, 4'000);
}

}  // namespace
}  // namespace tidewarden::test
