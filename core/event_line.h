// One line of the events file: date,title,advance,occurs and an optional "*" at its end.
//
// The parser is a pure function of the line. It is the single gate through which every line
// passes; a line that it rejects is data, not an error.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "dates/date_text.h"
#include "dates/event_fields.h"

namespace tidewarden {

// What an accepted line says, in views into the line. This is all that the date rules need; it
// is read without any allocation for the lines that people write.
struct EventLine {
  std::string_view date;    // as read
  std::string_view title;   // as read
  std::string_view occurs;  // trimmed, in its own letter case
  int advance = 0;          // 0 to 365 days; 0 for counters
  bool hidden = false;      // the line ended with "*"
  DateField dateField;
  Occurs occursRule;
};

// The same as the windows show it.
struct EventRecord {
  std::string EventDate;               // the date field as the user sees it: "25.12" in a
                                       // day-first layout; feast codes as they stand
  std::string_view EventDateAsStored;  // the date field exactly as read
  std::string_view EventTitle;         // the title field, untrimmed
  int EventAdvance = 0;                // 0 to 365 days; 0 for counters
  std::string EventOccurs;             // the occurs field, trimmed and lower-cased
  bool EventHidden = false;            // the line ended with "*"
  DateField dateField;
  Occurs occurs;
};

enum class RejectReason {
  kCommas,      // not exactly three commas
  kDateLength,  // the date field is not five characters long
  kMonth,
  kDay,
  kOccursUnknown,
  kOccursInterval,
  kOccursYear,
  kOccursYearInFuture,
  kOccursYearTooEarly,
  kOccursWeekday,
  kAdvance,  // not a number from 0 to 365
};

struct Rejection {
  RejectReason reason = RejectReason::kCommas;
  std::size_t column = 1;  // the character at which the fault begins, from 1
};

// Reads one line, without its line end, in UTF-8. A count-up ("dp-") from a year after
// `currentYear` is rejected. False for a rejected line: `out` is then incomplete, and
// `rejection`, when given, tells the first fault.
[[nodiscard]] bool ReadEventLine(std::string_view line, int currentYear, EventLine& out,
                                 Rejection* rejection = nullptr);

// The same as a record in the user's order; nothing for a rejected line. The views of the record
// point into the line.
[[nodiscard]] std::optional<EventRecord> ParseEventLine(std::string_view line,
                                                        const RegionalDateFormat& format,
                                                        int currentYear,
                                                        Rejection* rejection = nullptr);

// What is wrong and what would be right, for people, one sentence each without a full stop.
[[nodiscard]] std::string_view DescribeRejection(RejectReason reason);
[[nodiscard]] std::string_view RejectionHint(RejectReason reason);

}  // namespace tidewarden
