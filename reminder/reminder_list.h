// From an events file to the rows of the reminder list: a function of the file's content, the
// layout, the options and the day. Everything else around it is the ReminderSession's.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/file_system.h"
#include "core/text_pool.h"
#include "dates/civil.h"
#include "dates/date_text.h"
#include "reminder/list_options.h"

namespace tidewarden {

enum class RowKind : std::uint8_t {
  kTodayLine,  // the line that tells today's date
  kCounter,    // days past or days to a date
  kUpcoming,
  kToday,
  kOverdue,
};

// A row of the list. Its texts are kept by the list's pool.
struct ReminderRow {
  std::string_view text;     // as listed
  std::string_view title;    // with its year marker applied; empty for the today line
  std::string_view rawLine;  // the event's line as read, without its end
  long line = 0;             // the event's line in the file; 0 for the today line
  CivilDate date{};          // of the occurrence that is shown
  int daysToGo = 0;          // negative for overdue tasks and for count-ups
  int timeOfDay = 0;         // hhmm, kNoTimeOfDay without one; the today line has 0
  RowKind kind = RowKind::kUpcoming;
  std::uint8_t dateSize = 0;  // bytes of `text` that are the date
  bool losesMark = false;     // the line's hidden mark has served: it is in the hide list
};

// Raw lines of hidden events.
using HiddenLines = std::set<std::string, std::less<>>;

// What one pass over the events gives, the rows in the order of the file.
struct ReminderList {
  std::deque<ReminderRow> rows;            // a deque, so that a long list never moves
  bool anyEventsInRange = false;           // a row other than the today line exists
  bool hasPastOneTime = false;             // a one-time event lies before today
  std::vector<std::string_view> hideList;  // raw lines of hidden events that are to be shown again
  std::vector<std::string_view> todaysTitles;  // of today's events, in the file's order
  TextPool pool;                               // what the views above look at
};

// Lists every event that falls today or within its own notice, every counter and every overdue
// task. Rejected lines and events without a date are passed over but keep their numbers. `today`
// is a real date of the years 1 to 9998. The today line is not among the rows. After a failure
// to read (see ReadEventLines) the list is empty.
//
// A hidden event is to be shown again when its occurrence is over. One that was so in an earlier
// list and has kept its mark since is in `shownAgain`, and is listed like any other.
Status ListEvents(FileSystem& files, const std::string& path, const RegionalDateFormat& format,
                  const ListOptions& options, const std::string& todayPreface, CivilDate today,
                  const HiddenLines& shownAgain, ReminderList& out);

// Adds the today line: today's date and "<TODAY>", with the weekday if wanted. It sorts before
// all other rows of its day.
void AddTodayLine(ReminderList& list, const std::string& todayText,
                  const RegionalDateFormat& format, const ListOptions& options, CivilDate today);

}  // namespace tidewarden
