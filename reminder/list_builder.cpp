#include "reminder/list_builder.h"

#include <algorithm>
#include <utility>

#include "core/events_file.h"
#include "core/interrupted_save.h"
#include "core/settings_keys.h"
#include "dates/text.h"
#include "reminder/events_cleanup.h"
#include "reminder/row_order.h"

namespace tidewarden {

using modGetSetSaveSet::Delete;
using modGetSetSaveSet::Get;
using modGetSetSaveSet::isTrue;

ListBuilder::ListBuilder(ListPorts ports, RegionalDateFormat format, std::string eventsFilePath,
                         std::string todayPreface)
    : ports_(std::move(ports)),
      format_(std::move(format)),
      EventsFilePath_(std::move(eventsFilePath)),
      todayPreface_(std::move(todayPreface)) {}

BuildOutcome ListBuilder::BuildReminderList(FileAccess access) {
  // One reading of the clock, so that a build across midnight agrees with itself.
  const LocalTime now = ports_.clock.Now();
  builtAt_ = now;
  List1_.clear();
  ReminderLineMap_.clear();
  list_ = ReminderList();
  alarms_.Clear();
  dateLabel_.clear();
  writeStatus_ = Status();
  options_ = ReadListOptions(ports_.settings);

  if (access == FileAccess::kUpdate) {
    writeStatus_ =
        SettleInterruptedSave(ports_.files, ports_.messages, EventsFilePath_, ports_.rescueFolder)
            .status;
    // What cannot be settled must not be changed either.
    if (!writeStatus_.ok()) access = FileAccess::kShared;
  }
  ReadEvents(now.date);
  if (readStatus_.ok()) {
    if (access != FileAccess::kShared && EndsWithoutEvents()) {
      list_ = ReminderList();
      return BuildOutcome::kEnd;
    }
    if (access == FileAccess::kUpdate) TidyEventsFile(now.date);
  } else if (readStatus_.kind() == StatusKind::kNotFound && access == FileAccess::kUpdate) {
    writeStatus_ = CreateNewEventsFile(ports_.files, ports_.messages, EventsFilePath_);
    // The box may have stood for long, and the file may have come with its events meanwhile.
    ReadEvents(now.date);
  }
  if (!Get(ports_.settings, settings::kShowTodaysDateWithReminders).empty()) {
    Delete(ports_.settings, settings::kShowTodaysDateWithReminders);
  }
  FillList(now);
  return BuildOutcome::kShow;
}

void ListBuilder::ReadEvents(CivilDate today) {
  readStatus_ = ListEvents(ports_.files, EventsFilePath_, format_, options_, todayPreface_, today,
                           shownAgain_, list_);
  // Lines that are not in the file any more are forgotten.
  if (readStatus_.ok()) shownAgain_ = HiddenLines(list_.hideList.begin(), list_.hideList.end());
}

bool ListBuilder::EndsWithoutEvents() {
  return isTrue(Get(ports_.settings, settings::kShowOnlyIfEventsInRange)) &&
         !list_.anyEventsInRange && !ports_.shiftKey.IsDown();
}

void ListBuilder::TidyEventsFile(CivilDate today) {
  if (list_.hasPastOneTime) RemovePastOneTime(today);
  if (!list_.hideList.empty()) UnhideListed();
}

void ListBuilder::RemovePastOneTime(CivilDate today) {
  std::vector<long> removed;
  writeStatus_ =
      RemovePastOneTimeEvents(ports_.files, EventsFilePath_, ports_.rescueFolder, today, removed);
  for (ReminderRow& row : list_.rows) {
    const auto before = std::lower_bound(removed.begin(), removed.end(), row.line);
    row.line -= static_cast<long>(before - removed.begin());
  }
}

void ListBuilder::UnhideListed() {
  Status status = UnhideEvents(ports_.files, EventsFilePath_, ports_.rescueFolder, list_.hideList);
  if (!status.ok()) {
    writeStatus_ = std::move(status);
    return;
  }
  shownAgain_.clear();
  for (ReminderRow& row : list_.rows) {
    if (row.losesMark) row.rawLine.remove_suffix(1);
  }
}

void ListBuilder::EventHidden(std::string rawLine) {
  if (!rawLine.ends_with('*')) rawLine += '*';
  shownAgain_.erase(rawLine);
}

void ListBuilder::FillList(LocalTime now) {
  std::string todayText = FormatDate(now.date, format_);
  if (options_.spellOutMonths) todayText = SpellOutMonth(todayText, format_);
  if (options_.listTodayWithEvents) {
    AddTodayLine(list_, todayText, format_, options_, now.date);
  }
  SortRows(list_.rows);
  dateLabel_ = format_.TwoDigitYear ? todayText.substr(2) : todayText;

  List1_.reserve(list_.rows.size());
  ReminderLineMap_.reserve(list_.rows.size());
  for (const ReminderRow& row : list_.rows) {
    List1_.push_back(row.text);
    ReminderLineMap_.push_back(row.line);
  }
  for (const std::string_view title : list_.todaysTitles) alarms_.ScheduleAlarm(title, now.date);
  if (alarms_.hasAlarmsToday()) alarms_.MatchAlarmsToList(List1_, now);
}

}  // namespace tidewarden
