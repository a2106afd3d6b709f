#include "alarm/alarm_session.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>

#include "alarm/alarm_sound.h"

namespace tidewarden {
namespace {

constexpr std::string_view kLineBreak = "\r\n";
constexpr std::string_view kQuitQuestion =
    "You have an alarm scheduled for later today.\n"
    "\n"
    "IF YOU QUIT NOW, YOUR ALARM WILL NOT SOUND.\n"
    "\n"
    "If you would like to set Tidewarden to sound your alarm,\n"
    "press Cancel and then the orange button to send it to the tray.\n"
    "\n"
    "Press OK to quit and ignore your alarm scheduled for today.";

// Past the full minute, so that a timer that is a little early still falls into the minute.
constexpr int kAfterFullMinute = 50;

// How many days keep their list of rung alarms: enough for a clock that is set forward by mistake
// and back again.
constexpr std::size_t kRememberedDays = 7;

constexpr std::int64_t kMinutesInDay = 1440;

std::int64_t MinuteCount(CivilDate date, int hour, int minute) {
  return DayCount{date}.time_since_epoch().count() * kMinutesInDay + std::int64_t{hour} * 60 +
         minute;
}

std::int64_t MinuteCount(const LocalTime& time) {
  return MinuteCount(time.date, time.hour, time.minute);
}

// A title may name a time such as 10:60 or 24:30, which no clock shows.
bool IsOnTheClock(int fourDigit) {
  return fourDigit / 100 < 24 && fourDigit % 100 < 60;
}

}  // namespace

AlarmSession::AlarmSession(AlarmPorts ports, ProgramFolders folders)
    : ports_(ports), folders_(std::move(folders)) {}

void AlarmSession::ListBuilt(const AlarmSchedule& schedule, LocalTime now) {
  const bool isFirst = !std::exchange(isStarted_, true);
  Adopt(schedule, MinuteCount(now) - (isFirst ? 0 : 1));
  // The minute may have had its tick with the list before, as at the beginning of a new day.
  awaitsTick_ = false;
  for (std::size_t i = 0; i < watches_.size(); ++i) {
    awaitsTick_ = awaitsTick_ || IsDue(watches_[i], schedule.alarmTimes()[i], now);
  }
}

bool AlarmSession::Knows(const AlarmSchedule& schedule) const {
  const auto& titles = schedule.alarmTitles();
  const auto& dates = schedule.alarmDates();
  if (watches_.size() != titles.size()) return false;
  for (std::size_t i = 0; i < titles.size(); ++i) {
    if (watches_[i].date != dates[i] || watches_[i].title != titles[i]) return false;
  }
  return true;
}

void AlarmSession::Adopt(const AlarmSchedule& schedule, std::int64_t sinceOfNew) {
  std::map<std::pair<CivilDate, std::string>, std::int64_t> before;
  for (Watch& watch : watches_) {
    before.insert_or_assign({watch.date, std::move(watch.title)}, watch.since);
  }
  watches_.clear();
  const auto& titles = schedule.alarmTitles();
  for (std::size_t i = 0; i < titles.size(); ++i) {
    const CivilDate date = schedule.alarmDates()[i];
    const auto found = before.find({date, titles[i]});
    watches_.push_back({date, titles[i], found == before.end() ? sinceOfNew : found->second});
  }
}

bool AlarmSession::IsDue(const Watch& watch, int time, LocalTime now) const {
  if (watch.date != now.date || !IsOnTheClock(time)) return false;
  const std::int64_t minute = MinuteCount(watch.date, time / 100, time % 100);
  const std::int64_t present = MinuteCount(now);
  // A clock that was set back has its minutes before it once more.
  const bool wasSetBack = watch.since > present;
  if (minute > present || minute <= (wasSetBack ? present - 1 : watch.since)) return false;
  return !HasRung(watch.date, watch.title);
}

bool AlarmSession::HasRung(CivilDate date, std::string_view title) const {
  return std::any_of(rung_.begin(), rung_.end(), [&](const RungOnDay& day) {
    return day.date == date && day.titles.contains(title);
  });
}

void AlarmSession::MarkRung(const std::vector<const Watch*>& due, CivilDate today) {
  if (due.empty()) return;
  auto day = std::find_if(rung_.begin(), rung_.end(),
                          [&](const RungOnDay& rung) { return rung.date == today; });
  if (day == rung_.end()) {
    if (rung_.size() == kRememberedDays) rung_.pop_front();
    rung_.push_back({today, {}});
    day = rung_.end() - 1;
  }
  for (const Watch* watch : due) day->titles.insert(watch->title);
}

AlarmTick AlarmSession::Tick(AlarmSchedule& schedule, std::vector<std::string_view>& list,
                             const AlarmOptions& options, LocalTime now) {
  ports_.sound.Rest();
  const bool isAwaited = std::exchange(awaitsTick_, false);
  if (!schedule.hasAlarmsToday()) return {};
  const std::int64_t present = MinuteCount(now);
  if (lastTick_ == present && !isAwaited) return {false, false, false, false};
  lastTick_ = present;
  lastTickMinute_ = now.FourDigit();
  if (!Knows(schedule)) Adopt(schedule, present - 1);

  const bool wasUnacknowledged = !AlarmText_.empty();
  std::vector<const Watch*> due;
  for (int i = 0; i <= schedule.alarmCount(); ++i) {
    schedule.ShowTimeToGo(i, list, now);
    Watch& watch = watches_[static_cast<std::size_t>(i)];
    if (IsDue(watch, schedule.alarmTimes()[static_cast<std::size_t>(i)], now)) {
      AlarmText_.append(kLineBreak).append(watch.title).append(kLineBreak);
      due.push_back(&watch);
    }
    watch.since = present;
  }
  MarkRung(due, now.date);

  const bool soundsFirst = !due.empty() && options.alarmSound;
  const bool soundsAgain = !soundsFirst && options.alarmBeepEachMinute && !options.disableAlarms &&
                           wasUnacknowledged && lastBeep_ != present;
  if (soundsAgain) {
    lastBeep_ = present;
    lastBeepMinute_ = now.FourDigit();
  }
  return {true, !due.empty(), soundsFirst || soundsAgain, true};
}

int AlarmSession::MillisecondsToNextTick(LocalTime now) const {
  if (awaitsTick_) return kAfterFullMinute;
  const int sinceFullMinute = now.second * 1000 + now.millisecond;
  const bool lacksTick = lastTick_ && lastTick_ != MinuteCount(now);
  if (lacksTick && sinceFullMinute < kAfterFullMinute) return kAfterFullMinute - sinceFullMinute;
  return std::min(kLongestTickWait, (60 - now.second) * 1000 - now.millisecond + kAfterFullMinute);
}

void AlarmSession::PlayAlarmSound() {
  std::string path;
  const Status status = LocateAlarmSound(ports_.settings, ports_.files, folders_, path);
  if (status.ok()) {
    ports_.sound.Play(path, SoundKindOf(path));
  } else {
    ports_.sound.Beep(path + ": " + DescribeStatus(status));
  }
}

bool AlarmSession::MayClose(const AlarmSchedule& schedule, LocalTime now, WindowState window,
                            CloseReason reason) {
  if (reason != CloseReason::kUser || window == WindowState::kMinimized) return true;
  bool isPending = false;
  for (std::size_t i = 0; i < schedule.alarmTimes().size(); ++i) {
    const CivilDate date = schedule.alarmDates()[i];
    isPending = isPending || (date == now.date && schedule.alarmTimes()[i] > now.FourDigit() &&
                              !HasRung(date, schedule.alarmTitles()[i]));
  }
  return !isPending || ports_.messages.Show(std::string(kQuitQuestion), MessageButtons::kOkCancel,
                                            MessageIcon::kNone) == MessageAnswer::kOk;
}

std::string AlarmSession::alarmMessages() const {
  std::string messages;
  std::string_view rest = AlarmText_;
  for (std::size_t at = rest.find(kLineBreak); at != std::string_view::npos;
       at = rest.find(kLineBreak)) {
    messages.append(rest.substr(0, at)).append("\n");
    rest.remove_prefix(at + kLineBreak.size());
  }
  return messages.append(rest);
}

AlarmPlacement AlarmSession::LoadAlarmPlacement(const Screens& screens) {
  return tidewarden::LoadAlarmPlacement(ports_.settings, screens);
}

ListFont AlarmSession::ReadAlarmFont() {
  return ReadListFont(ports_.settings, FontSizeRule::kRounded);
}

void AlarmSession::Maximized() {
  SaveAlarmMaximized(ports_.settings);
}

void AlarmSession::SaveAlarmPlacement(const AlarmWindowState& window, const Screens& screens) {
  tidewarden::SaveAlarmPlacement(ports_.settings, window, screens);
}

void AlarmSession::Unload(const AlarmWindowState& window, const Screens& screens) {
  SaveAlarmPlacement(window, screens);
  AlarmText_.clear();
  ports_.sound.Stop();
}

}  // namespace tidewarden
