// Looks through an events file for what its owner should know: lines that are not events, and
// events that will not do what they seem to say.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "core/file_system.h"
#include "dates/civil.h"
#include "dates/date_text.h"

namespace tidewarden {

enum class FindingKind {
  kRejected,       // not an event; blank lines are not reported
  kPastOneTime,    // over, and removed when the list is next built, or hidden for good
  kDuplicate,      // the same date, title and rule as an earlier line
  kNeverComes,     // no date in any year to come, such as 02.30
  kNeverUnhidden,  // hidden, and its notice is never shorter than the days to go
};

struct Finding {
  FindingKind kind = FindingKind::kRejected;
  std::size_t line = 0;    // from 1
  std::size_t column = 1;  // in characters, from 1
  std::string reason;      // one sentence without a full stop
  std::string hint;        // what to do, the same way
};

// The findings of an events file in the order of its lines. `out` is empty after a failure to
// read (see ReadEventLines).
Status CheckEvents(FileSystem& files, const std::string& path, const RegionalDateFormat& format,
                   CivilDate today, std::vector<Finding>& out);

// A short name for scripts: "rejected", "past-one-time", "duplicate", "never-comes",
// "never-unhidden".
[[nodiscard]] std::string_view FindingName(FindingKind kind);

}  // namespace tidewarden
