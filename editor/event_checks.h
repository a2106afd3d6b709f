// What is checked before an event is saved, in a fixed order, and what becomes of it: the date
// key, the occurrence code and the new row. Each failed check tells the user through a message box
// and leaves the entry as it is.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/message_box.h"
#include "dates/civil.h"
#include "dates/date_text.h"
#include "editor/event_entry.h"
#include "editor/event_rows.h"

namespace tidewarden {

// An event that has passed every check.
struct CheckedEvent {
  std::string title;  // trimmed
  EventRow row;
};

// The checks of one attempt to save.
class EventChecks {
 public:
  // `warned` tells whether the user has been warned of a first occurrence more than 300 days away,
  // which happens once. Everything outlives the checks.
  EventChecks(EventEntry& entry, MessageBox& messages, const RegionalDateFormat& format,
              CivilDate today, bool& warned);

  // Title, commas, advance notice, day count, date, occurrence code. Nothing when one of them
  // fails or the user goes back.
  [[nodiscard]] std::optional<CheckedEvent> Run();

  // The control that the failed check points at.
  [[nodiscard]] EditorFocus focus() const { return focus_; }

 private:
  // The checked date. Month and day are 0 for any ("xx").
  struct WorkingDate {
    std::string feast;  // the code of a feast, else empty
    int month = 0;
    int day = 0;
    int year = 0;  // of the kinds that count from or to a full date
  };

  [[nodiscard]] bool CheckTitle();
  [[nodiscard]] MessageAnswer AskRemoveCommas();
  [[nodiscard]] bool CheckAdvance();
  [[nodiscard]] bool CheckDayCount();
  [[nodiscard]] bool CheckEventDate();
  [[nodiscard]] bool CheckMonthOnly();
  [[nodiscard]] bool CheckDayOnly();
  [[nodiscard]] bool CheckMonthAndDay();
  [[nodiscard]] bool CheckDateSeparators(std::string_view date);
  [[nodiscard]] bool CheckLengthOfMonth();
  [[nodiscard]] bool CheckYear(std::string_view date);
  void ShowInvalidDateMessage(std::string_view part, std::string_view detail);
  [[nodiscard]] std::optional<std::string> BuildOccursCode();
  [[nodiscard]] std::optional<CivilDate> DateInCurrentYear() const;
  [[nodiscard]] bool GoesOnAfterWarning(std::string_view typedCount);
  [[nodiscard]] CheckedEvent MakeEvent(const std::string& code) const;
  void Tell(const std::string& text);

  EventEntry& entry_;
  MessageBox& messages_;
  const RegionalDateFormat& format_;
  CivilDate today_;
  bool& warned_;
  EditorFocus focus_ = EditorFocus::kNone;
  WorkingDate date_;
};

}  // namespace tidewarden
