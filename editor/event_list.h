// From the bytes of an events file to the rows of the editor's list.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "core/status.h"
#include "dates/civil.h"
#include "dates/date_text.h"
#include "editor/event_rows.h"
#include "editor/events_writer.h"

namespace tidewarden {

// An event that is looked for: its line in the file, and the line's bytes as they were when it was
// chosen (empty when they are not known).
struct WantedLine {
  long line = -1;
  std::string_view rawLine;
};

struct EventList {
  std::vector<EventRow> rows;  // sorted
  // Whether the file holds something that the rows do not: a rejected line that is not blank, the
  // mark of a hidden event when it is not kept, the end of a title beyond 38 characters.
  RescueNeed rescue = RescueNeed::kNone;
  // Whether every row would be read back as it is from the line that it is written as. Not so for
  // a title that begins with a blank, which is not written.
  bool settled = true;
  // Whether the file holds nothing but the lines that the rows would be written as, in the order of
  // the rows, ended in CR LF and not in Windows-1252.
  bool asWritten = false;
  // Where the wanted line is now: the line itself while its bytes are the same, else the one other
  // line with these bytes, else -1.
  long wantedLine = -1;
};

// Reads every event of a file. `todayRow` adds the TODAY row in that letter case. kNotText for
// UTF-16; the list is then incomplete. `marks` says what a save of the rows will do.
Status ReadEventList(std::string_view content, const RegionalDateFormat& format, CivilDate today,
                     std::optional<TodayCase> todayRow, const WantedLine& wanted, EventList& out,
                     HiddenMarks marks = kHiddenMarks);

}  // namespace tidewarden
