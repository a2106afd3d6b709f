// A year of the running program without its windows, on a clock of seconds and with the two timers
// of the reminder window: every due alarm rings exactly once and in its minute, and at the end of
// the year there is no more memory in use than at the end of the first month.
#include <gmock/gmock.h>

#include <atomic>
#include <cstdlib>
#include <map>
#include <new>

#include "dates/text.h"
#include "tests/reminder/session_desk.h"

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

constexpr int kDays = 365;
constexpr int kMinute = 60;
constexpr int kHour = 60 * kMinute;
constexpr int kDay = 24 * kHour;
constexpr int kMonth = 30 * kDay;

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

// What becomes of an alarm. Moments are seconds since the beginning of the year, as clocks on the
// wall show them.
struct Fate {
  int minute = 0;  // the moment at which its minute begins
  bool isDue = true;
  int dueFrom = 0;  // it rings from here on
  int dueTo = 0;    // and before here
  int rings = 0;
  int rangAt = 0;
};

// A stretch of the clock on the wall that does not take place.
struct Gap {
  int from = 0;
  int to = 0;
};

class Year {
 public:
  Year() {
    used_.reserve(kDays);
    MakeGaps();
    MakeAlarms();
    desk_.files.files[kSessionPath] = events_;
    SetClock();
    EXPECT_EQ(desk_.Load(), WindowChange::kNone);
    desk_.session.ShowAlarm = [this] { TakeMessages(); };
    alarmDue_ = desk_.session.timerDelay() / 1000 + kMinute;
    ArmHelper();
  }

  void Run() {
    while (wall_ < kDays * kDay) {
      ++wall_;
      ++elapsed_;
      JumpOverGap();
      if (elapsed_ >= alarmDue_) {
        Tick();
        alarmDue_ += kMinute;
        ArmHelper();
      }
      if (elapsed_ >= helperDue_) {
        Tick();
        ArmHelper();
      }
      if (wall_ >= acknowledgeAt_) Acknowledge();
      if (wall_ >= rebuildAt_) Rebuild();
      // Not just after a gap, because an empty list forgets which alarms have been passed.
      if (wall_ >= measureAt_ && elapsed_ > lastGap_ + 2 * kMinute) Measure();
    }
  }

  [[nodiscard]] const std::map<std::string, Fate>& fates() const { return fates_; }
  [[nodiscard]] const std::vector<long long>& used() const { return used_; }

 private:
  static CivilDate DateOf(int moment) { return AddDays(On(2026, 1, 1), moment / kDay); }

  void SetClock() {
    const int second = wall_ % kDay;
    desk_.clock.now = {DateOf(wall_), second / kHour, second / kMinute % 60, second % kMinute, 0};
  }

  // Naps in the day, nights in which the computer sleeps, and the hour that is left out in spring.
  void MakeGaps() {
    for (int day = 0; day < kDays; ++day) {
      const int start = day * kDay;
      if (day == kSpring) {
        gaps_.push_back({start + 2 * kHour, start + 3 * kHour});
      } else if (day != kAutumn && numbers_.Below(3) == 0) {
        const int from = start + 2 * kHour + numbers_.Below(17 * kHour);
        gaps_.push_back({from, from + 1 + numbers_.Below(3 * kHour)});
      }
      if (day + 1 < kDays && day + 1 != kAutumn && day + 1 != kSpring && numbers_.Below(5) == 0) {
        gaps_.push_back(
            {start + 23 * kHour + numbers_.Below(kHour), start + kDay + numbers_.Below(kHour)});
      }
    }
  }

  void MakeAlarms() {
    for (int day = 0; day < kDays; ++day) {
      for (int i = numbers_.Below(8); i >= 0; --i) {
        // Many alarms at the edges of the day and near each other.
        const int minute = numbers_.Below(10) == 0   ? 0
                           : numbers_.Below(10) == 0 ? 1439
                                                     : numbers_.Below(1440);
        AddAlarm(day, minute, i);
      }
    }
    for (const int day : {kSpring, kAutumn}) {
      for (int i = 0; i < 20; ++i) AddAlarm(day, 90 + 7 * i, 10 + i);
    }
  }

  void AddAlarm(int day, int minute, int number) {
    const CivilDate date = DateOf(day * kDay);
    std::string text;
    AppendNumber(text, MonthOf(date), 2);
    text += ".";
    AppendNumber(text, DayOf(date), 2);
    std::string title = "Alarm " + std::to_string(number) + " of " + text + " at ";
    AppendNumber(title, minute / 60, 2);
    title += ":";
    AppendNumber(title, minute % 60, 2);
    events_ += text + "," + title + ",0,yearly\r\n";
    fates_[title] = FateOf(day * kDay + minute * kMinute);
  }

  [[nodiscard]] Fate FateOf(int begins) const {
    Fate fate{begins, true, begins, begins + kMinute, 0, 0};
    // Nothing ticks in the minute of the start.
    if (begins == 0) fate.isDue = false;
    for (const Gap& gap : gaps_) {
      // In the steady run of things the tick comes in the first second of a minute; after a gap it
      // may be a quarter of a minute and a second away.
      if (gap.to < begins - 1 || gap.from > begins + 1) continue;
      const bool overnight = gap.from / kDay != gap.to / kDay;
      fate.isDue = !overnight;
      // The timers have stood still as well, and wait out the rest of a quarter of a minute.
      fate.dueTo = std::max(fate.dueTo, gap.to + kMinute / 4 + 2);
    }
    return fate;
  }

  void JumpOverGap() {
    if (nextGap_ < gaps_.size() && wall_ >= gaps_[nextGap_].from) {
      wall_ = std::max(wall_, gaps_[nextGap_].to);
      ++nextGap_;
      lastGap_ = elapsed_;
    }
    // In autumn the hour from two to three comes twice.
    if (!isAutumnOver_ && wall_ == kAutumn * kDay + 3 * kHour) {
      wall_ -= kHour;
      isAutumnOver_ = true;
    }
  }

  void Tick() {
    SetClock();
    EXPECT_EQ(desk_.session.Tick(WindowState::kNormal), WindowChange::kNone);
  }
  void ArmHelper() {
    SetClock();
    helperDue_ = elapsed_ + (desk_.session.untilNextMinute() + 999) / 1000;
  }

  void TakeMessages() {
    const std::string& text = desk_.alarms.AlarmText();
    for (std::size_t at = text.find("Alarm ", taken_); at != std::string::npos;
         at = text.find("Alarm ", at + 1)) {
      Fate& fate = fates_.at(text.substr(at, text.find("\r\n", at) - at));
      ++fate.rings;
      fate.rangAt = wall_;
    }
    taken_ = text.size();
    acknowledgeAt_ = wall_ + numbers_.Below(10 * kMinute);
  }
  void Acknowledge() {
    desk_.alarms.Unload({}, {});
    taken_ = 0;
    acknowledgeAt_ = kNever;
  }
  void Rebuild() {
    SetClock();
    EXPECT_EQ(desk_.session.Restore(), WindowChange::kRestore);
    ForgetRecords();
    rebuildAt_ = wall_ + 1 + numbers_.Below(6 * kHour);
  }

  // What the stand-ins have written down.
  void ForgetRecords() {
    Log().swap(desk_.log);
    Log().swap(desk_.sound.calls);
    Log().swap(desk_.files.calls);
    decltype(desk_.area.calls)().swap(desk_.area.calls);
  }

  // With a list without events, so that the days can be compared.
  void Measure() {
    desk_.files.files[kSessionPath] = "";
    Rebuild();
    used_.push_back(liveBytes);
    desk_.files.files[kSessionPath] = events_;
    Rebuild();
    measureAt_ += kMonth;
  }

  static constexpr int kNever = kDays * kDay + 1;
  static constexpr int kSpring = 87;   // 29 March
  static constexpr int kAutumn = 297;  // 25 October

  Numbers numbers_;
  std::vector<Gap> gaps_;
  std::string events_;
  std::map<std::string, Fate> fates_;
  std::vector<long long> used_;
  SessionDesk desk_;

  int wall_ = 0;
  int elapsed_ = 0;  // the clock of the timers, which stands still while the computer sleeps
  int alarmDue_ = 0;
  int helperDue_ = 0;
  int acknowledgeAt_ = kNever;
  int rebuildAt_ = kHour;
  int measureAt_ = kMonth;
  int lastGap_ = 0;
  std::size_t taken_ = 0;
  std::size_t nextGap_ = 0;
  bool isAutumnOver_ = false;
};

TEST(AlarmSoak, InAYearEveryDueAlarmRingsExactlyOnceAndInItsMinute) {
  Year year;
  year.Run();
  int due = 0;
  int late = 0;
  int notDue = 0;
  for (const auto& [title, fate] : year.fates()) {
    SCOPED_TRACE(title);
    if (!fate.isDue) {
      ++notDue;
      EXPECT_LE(fate.rings, 1);
      continue;
    }
    ++due;
    ASSERT_EQ(fate.rings, 1);
    EXPECT_GE(fate.rangAt, fate.dueFrom);
    EXPECT_LT(fate.rangAt, fate.dueTo);
    if (fate.rangAt >= fate.minute + kMinute) ++late;
  }
  EXPECT_GT(due, 1'400);
  EXPECT_GT(late, 20);    // slept over or left out in spring
  EXPECT_GT(notDue, 10);  // slept over until the next day

  // What has rung in the last days is remembered, and that is now more and now less.
  ASSERT_EQ(year.used().size(), 12U);
  for (const long long bytes : year.used()) EXPECT_LT(bytes - year.used().front(), 4'000);
}

}  // namespace
}  // namespace tidewarden::test
