// Builds the reminder list from the events file and the settings, and keeps the file tidy while
// doing so. A window or a terminal reads the result and shows it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "alarm/alarm_schedule.h"
#include "core/clock.h"
#include "core/file_system.h"
#include "core/message_box.h"
#include "core/settings_store.h"
#include "dates/date_text.h"
#include "reminder/list_options.h"
#include "reminder/reminder_list.h"
#include "reminder/shift_key.h"

namespace tidewarden {

// What the builder asks of the world. Everything outlives the builder.
struct ListPorts {
  SettingsStore& settings;
  FileSystem& files;
  const Clock& clock;
  MessageBox& messages;
  ShiftKey& shiftKey;
  std::string rescueFolder;  // the user's data folder; see core/interrupted_save.h
};

enum class BuildOutcome {
  kShow,
  kEnd,  // nothing is in range and the user wants to see the list only then: end the program
};

// Whether building the list may change the events file.
enum class FileAccess {
  kUpdate,    // undoes what an interrupted save has torn, creates a missing file, removes past
              // one-time events, shows hidden ones again
  kShared,    // as long as an editor works on the file: it stays as it is, a missing file stays
              // missing, since the editor's next save brings its events back, and an empty list is
              // no reason to end
  kReadOnly,  // the file is only read
};

class ListBuilder {
 public:
  // `todayPreface` introduces today's events (see ReadTodayPreface).
  ListBuilder(ListPorts ports, RegionalDateFormat format, std::string eventsFilePath,
              std::string todayPreface);

  // Builds everything below anew. After kEnd the list is empty and the file unchanged, but for what
  // was torn. A file that exists but cannot be read gives a list without events and is not touched;
  // nor is one that is torn and cannot be put right: its list is of what it holds.
  BuildOutcome BuildReminderList(FileAccess access);

  // The user has hidden the event of this line, from now on until its next occurrence.
  void EventHidden(std::string rawLine);

  // The rows as listed, countdowns of alarms included. The views are good until the next build.
  [[nodiscard]] const std::vector<std::string_view>& List1() const { return List1_; }

  // For each row the line number of its event in the file as it now is, from 0; 0 for the today
  // line.
  [[nodiscard]] const std::vector<long>& ReminderLineMap() const { return ReminderLineMap_; }

  // For each row what is known of it. The rows' own texts have no countdown.
  [[nodiscard]] const std::deque<ReminderRow>& rows() const { return list_.rows; }

  // Today's date for the label under the list.
  [[nodiscard]] const std::string& dateLabel() const { return dateLabel_; }

  [[nodiscard]] const ListOptions& options() const { return options_; }
  [[nodiscard]] const AlarmSchedule& alarms() const { return alarms_; }

  [[nodiscard]] const RegionalDateFormat& format() const { return format_; }

  // When the list was built.
  [[nodiscard]] const LocalTime& builtAt() const { return builtAt_; }

  // For the alarms' ticks, which change the countdowns in the rows.
  [[nodiscard]] AlarmSchedule& alarms() { return alarms_; }
  [[nodiscard]] std::vector<std::string_view>& List1() { return List1_; }
  [[nodiscard]] const std::string& EventsFilePath() const { return EventsFilePath_; }
  [[nodiscard]] bool anyEventsInRange() const { return list_.anyEventsInRange; }

  // How reading the events file, and changing it, ended in the last build. kNotFound for a missing
  // file that has not been created.
  [[nodiscard]] const Status& readStatus() const { return readStatus_; }
  [[nodiscard]] const Status& writeStatus() const { return writeStatus_; }

  // The file is missing and writeStatus tells why it could not be created.
  [[nodiscard]] bool couldNotCreate() const {
    return readStatus_.kind() == StatusKind::kNotFound && !writeStatus_.ok();
  }

 private:
  void ReadEvents(CivilDate today);
  [[nodiscard]] bool EndsWithoutEvents();
  void TidyEventsFile(CivilDate today);
  void RemovePastOneTime(CivilDate today);
  void UnhideListed();
  void FillList(LocalTime now);

  ListPorts ports_;
  RegionalDateFormat format_;
  std::string EventsFilePath_;

  std::string todayPreface_;
  ListOptions options_;
  ReminderList list_;
  // Hidden events that are to be shown again and whose mark could not be taken off yet: beside an
  // editor, or because writing has failed. Their occurrence may be near before it can.
  HiddenLines shownAgain_;
  AlarmSchedule alarms_;
  LocalTime builtAt_;
  std::vector<std::string_view> List1_;
  std::vector<long> ReminderLineMap_;
  std::string dateLabel_;
  Status readStatus_;
  Status writeStatus_;
};

}  // namespace tidewarden
