#include "alarm/alarm_schedule.h"

#include <cstdlib>
#include <set>
#include <unordered_map>

#include "dates/text.h"
#include "dates/time_of_day.h"

namespace tidewarden {
namespace {

int MinuteOfDay(int fourDigit) {
  return fourDigit / 100 * 60 + fourDigit % 100;
}

// The row may hold the title in capitals, and not every capital has the small letter of the title
// as its own: a final sigma and a dotless i come back as others.
std::string Folded(std::string_view text) {
  return ToLower(ToUpper(text));
}

}  // namespace

void AlarmSchedule::Clear() {
  *this = AlarmSchedule();
}

void AlarmSchedule::ScheduleAlarm(std::string_view title, CivilDate today) {
  const int time = ConvertToFourDigitTime(title);
  if (time >= kNoTimeOfDay) return;
  alarmTimes_.push_back(time);
  alarmTitles_.emplace_back(title);
  alarmDates_.push_back(today);
  alarmItemTexts_.emplace_back();
  alarmItemIndexes_.push_back(kNoRow);
  shownTexts_.emplace_back();
}

void AlarmSchedule::MatchAlarmsToList(std::vector<std::string_view>& list, LocalTime now) {
  // Every row is looked up by its last characters, once for each length that a title has, so
  // that thousands of alarms do not each walk the whole list.
  std::unordered_map<std::string, int> rowOfTitle;
  std::set<std::size_t> lengths;
  std::set<std::string> ends;
  for (const std::string& title : alarmTitles_) {
    rowOfTitle.emplace(Folded(title), kNoRow);
    lengths.insert(CountCharacters(title));
    ends.insert(Folded(LastCharacters(title, 1)));
  }
  for (std::size_t row = 0; row < list.size(); ++row) {
    if (!ends.contains(Folded(LastCharacters(list[row], 1)))) continue;
    for (const std::size_t length : lengths) {
      const auto found = rowOfTitle.find(Folded(LastCharacters(list[row], length)));
      if (found != rowOfTitle.end() && found->second == kNoRow) {
        found->second = static_cast<int>(row);
      }
    }
  }
  for (std::size_t i = 0; i < alarmTitles_.size(); ++i) {
    alarmItemIndexes_[i] = rowOfTitle.at(Folded(alarmTitles_[i]));
    if (alarmItemIndexes_[i] != kNoRow) {
      alarmItemTexts_[i] = list[static_cast<std::size_t>(alarmItemIndexes_[i])];
    }
  }
  for (int i = 0; i <= alarmCount(); ++i) ShowTimeToGo(i, list, now);
}

void AlarmSchedule::ShowTimeToGo(int i, std::vector<std::string_view>& list, LocalTime now) {
  const auto alarm = static_cast<std::size_t>(i);
  const int row = alarmItemIndexes_[alarm];
  if (row < 0 || static_cast<std::size_t>(row) >= list.size()) return;
  const int minutes = MinuteOfDay(alarmTimes_[alarm]) - MinuteOfDay(now.FourDigit());
  std::string& text = shownTexts_[alarm];
  text = alarmItemTexts_[alarm] + " (";
  AppendNumber(text, std::abs(minutes) / 60);
  text += ":";
  AppendNumber(text, std::abs(minutes) % 60, 2);
  text += minutes > 0 ? " to go)" : minutes < 0 ? " passed)" : ")";
  list[static_cast<std::size_t>(row)] = text;
}

}  // namespace tidewarden
