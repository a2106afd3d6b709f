// One line of the events file: date,title,advance,occurs and an optional "*" at its end.
//
// The parser is a pure function of the line. It is the single gate through which every line
// passes; a line that it rejects is data, not an error.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "dates/civil.h"
#include "dates/date_text.h"
#include "dates/event_fields.h"

namespace tidewarden {

// A line cut at its commas, in views into the line.
struct EventLineParts {
  std::string_view date;     // as read
  std::string_view title;    // as read
  std::string_view advance;  // as read
  std::string_view occurs;   // trimmed, in its own letter case
  bool hidden = false;       // the line ended with "*"
};

// An accepted line, read. This is all that the date rules need.
struct EventLine {
  EventLineParts parts;
  DateField dateField;
  Occurs occurs;
  int advance = 0;  // 0 to 365 days; 0 for counters
};

// An accepted line as the windows show it.
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

// Cuts a line, without its line end, at its commas. False unless there are exactly three.
[[nodiscard]] bool SplitEventLine(std::string_view line, EventLineParts& out);

// Reads the date and the occurs field of a line that has been cut. kNone in both answers means
// that the fields are accepted.
struct FieldFaults {
  DateFieldFault date = DateFieldFault::kNone;
  OccursFault occurs = OccursFault::kNone;
};
[[nodiscard]] FieldFaults ReadFields(const EventLineParts& parts, int currentYear,
                                     DateField& dateField, Occurs& occurs);

// Reads the advance field of any event but a counter: the days of notice, 0 to 365, rounded to
// the nearest whole number, halves to even. False for any other number.
[[nodiscard]] bool ReadAdvance(std::string_view field, int& out);

// All of these together: reads one line in UTF-8. A count-up ("dp-") from a year after
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

// True for a raw line whose last seven characters begin with "one", lower case, and whose first
// five characters with the last four as the year make a calendar date before today. Whether the
// line is a valid event otherwise is not asked. A feast code, an "xx" and a hidden event ("*" at
// the end) make no such date.
[[nodiscard]] bool IsOverOneTimeLine(std::string_view rawLine, CivilDate today);

// What is wrong and what would be right, for people, one sentence each without a full stop.
[[nodiscard]] std::string_view DescribeRejection(RejectReason reason);
[[nodiscard]] std::string_view RejectionHint(RejectReason reason);

}  // namespace tidewarden
