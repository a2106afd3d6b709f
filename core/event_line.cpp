#include "core/event_line.h"

#include <algorithm>
#include <array>

#include "dates/text.h"

namespace tidewarden {
namespace {

// Where the fourth comma stands, or the end of a line with too few of them.
const char* CommaFault(std::string_view line) {
  int commas = 0;
  for (const char& c : line) {
    if (c == ',' && ++commas == 4) return &c;
  }
  return line.data() + line.size();
}

RejectReason ReasonOf(DateFieldFault fault) {
  switch (fault) {
    case DateFieldFault::kMonth:
      return RejectReason::kMonth;
    case DateFieldFault::kDay:
      return RejectReason::kDay;
    default:
      return RejectReason::kDateLength;
  }
}

RejectReason ReasonOf(OccursFault fault) {
  switch (fault) {
    case OccursFault::kInterval:
      return RejectReason::kOccursInterval;
    case OccursFault::kYear:
      return RejectReason::kOccursYear;
    case OccursFault::kYearInFuture:
      return RejectReason::kOccursYearInFuture;
    case OccursFault::kYearTooEarly:
      return RejectReason::kOccursYearTooEarly;
    case OccursFault::kWeekday:
      return RejectReason::kOccursWeekday;
    default:
      return RejectReason::kOccursUnknown;
  }
}

// Reads an occurs field in any letter case. Most are in lower case already, and one that is
// accepted as it stands means the same in lower case. The others fit into a few ASCII letters,
// or take the long way.
OccursFault ReadAnyCase(std::string_view occurs, int currentYear, Occurs& out) {
  const OccursFault fault = ReadOccurs(occurs, currentYear, out);
  if (fault == OccursFault::kNone) return fault;
  std::array<char, 8> lower{};
  if (occurs.size() > lower.size() || !IsAscii(occurs)) {
    return ReadOccurs(ToLower(occurs), currentYear, out);
  }
  const std::size_t size = std::min(occurs.size(), lower.size());
  for (std::size_t i = 0; i < size; ++i) lower[i] = ToLowerAscii(occurs[i]);
  return ReadOccurs({lower.data(), size}, currentYear, out);
}

// Tells where reading a line stopped, to whoever wants to know.
bool Reject(std::string_view line, RejectReason reason, const char* at, Rejection* rejection) {
  if (rejection == nullptr) return false;
  const auto offset = static_cast<std::size_t>(at - line.data());
  rejection->reason = reason;
  rejection->column = CountCharacters(line.substr(0, offset)) + 1;
  return false;
}

std::string InUsersOrder(std::string_view stored, const DateField& field,
                         const RegionalDateFormat& format) {
  if (field.isFeast || !format.IsDayFirst()) return std::string(stored);
  std::string swapped(LastCharacters(stored, 2));
  swapped += '.';
  swapped += FirstCharacters(stored, 2);
  return swapped;
}

}  // namespace

// The date and the two fields at the end are short, so the ends are searched first and the title is
// scanned once.
bool SplitEventLine(std::string_view line, EventLineParts& out) {
  out.hidden = line.ends_with('*');
  if (out.hidden) line.remove_suffix(1);
  const std::size_t first = line.find(',');
  const std::size_t third = line.rfind(',');
  if (first == third) return false;
  const std::size_t second = line.rfind(',', third - 1);
  if (first == second) return false;
  out.title = line.substr(first + 1, second - first - 1);
  if (out.title.find(',') != std::string_view::npos) return false;
  out.date = line.substr(0, first);
  out.advance = line.substr(second + 1, third - second - 1);
  out.occurs = Trim(line.substr(third + 1));
  return true;
}

FieldFaults ReadFields(const EventLineParts& parts, int currentYear, DateField& dateField,
                       Occurs& occurs) {
  FieldFaults faults;
  faults.date = ReadDateField(parts.date, dateField);
  if (faults.date == DateFieldFault::kNone) {
    faults.occurs = ReadAnyCase(parts.occurs, currentYear, occurs);
  }
  return faults;
}

bool ReadAdvance(std::string_view field, int& out) {
  if (const int plain = DigitsValue(field); plain >= 0 && plain <= 365) {
    out = plain;
    return true;
  }
  const double days = LeadingNumber(field);
  if (days < 0 || days > 365) return false;
  out = static_cast<int>(RoundHalfToEven(days));
  return true;
}

bool ReadEventLine(std::string_view line, int currentYear, EventLine& out, Rejection* rejection) {
  const auto reject = [line, rejection](RejectReason reason, const char* at) {
    return Reject(line, reason, at, rejection);
  };
  EventLineParts& parts = out.parts;
  if (!SplitEventLine(line, parts)) {
    return reject(RejectReason::kCommas,
                  CommaFault(line.substr(0, line.size() - (parts.hidden ? 1 : 0))));
  }
  const FieldFaults faults = ReadFields(parts, currentYear, out.dateField, out.occurs);
  if (faults.date != DateFieldFault::kNone) {
    const bool day = faults.date == DateFieldFault::kDay;
    return reject(ReasonOf(faults.date),
                  parts.date.data() + (day ? FirstCharacters(parts.date, 3).size() : 0));
  }
  if (faults.occurs != OccursFault::kNone) {
    return reject(ReasonOf(faults.occurs), parts.occurs.data());
  }
  out.advance = 0;
  if (!out.occurs.IsCounter() && !ReadAdvance(parts.advance, out.advance)) {
    return reject(RejectReason::kAdvance, parts.advance.data());
  }
  return true;
}

std::optional<EventRecord> ParseEventLine(std::string_view line, const RegionalDateFormat& format,
                                          int currentYear, Rejection* rejection) {
  EventLine read;
  if (!ReadEventLine(line, currentYear, read, rejection)) return std::nullopt;
  EventRecord event;
  event.EventDate = InUsersOrder(read.parts.date, read.dateField, format);
  event.EventDateAsStored = read.parts.date;
  event.EventTitle = read.parts.title;
  event.EventAdvance = read.advance;
  event.EventOccurs = ToLower(read.parts.occurs);
  event.EventHidden = read.parts.hidden;
  event.dateField = read.dateField;
  event.occurs = read.occurs;
  return event;
}

bool IsOverOneTimeLine(std::string_view rawLine, CivilDate today) {
  constexpr std::size_t kTailLength = 7;  // "one" and a year
  if (rawLine.size() < kTailLength) return false;
  const std::string_view tail = rawLine.substr(rawLine.size() - kTailLength);
  const int year = DigitsValue(tail.substr(3));
  if (!tail.starts_with("one") || year < 0) return false;
  DateField field;
  if (ReadDateField(FirstCharacters(rawLine, 5), field) != DateFieldFault::kNone) return false;
  if (field.isFeast || field.month < 1 || field.day < 1) return false;
  const CivilDate date = MakeDate(year, field.month, field.day);
  return IsRealDate(date) && date < today;
}

std::string_view DescribeRejection(RejectReason reason) {
  switch (reason) {
    case RejectReason::kCommas:
      return "an event line has exactly three commas";
    case RejectReason::kDateLength:
      return "the date is not five characters long";
    case RejectReason::kMonth:
      return "the month is neither 01 to 12 nor xx";
    case RejectReason::kDay:
      return "the day is neither 01 to 31 nor xx";
    case RejectReason::kOccursUnknown:
      return "the last field names no way to repeat";
    case RejectReason::kOccursInterval:
      return "the interval before the year is not two digits";
    case RejectReason::kOccursYear:
      return "the last field does not end in a four-digit year";
    case RejectReason::kOccursYearInFuture:
      return "a count-up cannot begin in a future year";
    case RejectReason::kOccursYearTooEarly:
      return "one-time events and tasks take the years 2000 to 2999";
    case RejectReason::kOccursWeekday:
      return "the weekday is not one of sun, mon, tue, wed, thu, fri, sat";
    case RejectReason::kAdvance:
      return "the notice is not a number from 0 to 365";
  }
  return {};
}

std::string_view RejectionHint(RejectReason reason) {
  switch (reason) {
    case RejectReason::kCommas:
      return "write date,title,notice,occurs; a title holds no comma";
    case RejectReason::kDateLength:
      return "write MM.DD with two digits each, month first, or a feast code such as _estr";
    case RejectReason::kMonth:
      return "the month comes first in the file, whatever the order on your screen";
    case RejectReason::kDay:
      return "write the day with two digits behind the month, as in 12.25";
    case RejectReason::kOccursUnknown:
      return "use yearly, monthly, quarter, one2026, tdo2026, 14-2026, dp-2001, df-2030, 3rd Mon, "
             "Las Fri or Las Day";
    case RejectReason::kOccursInterval:
      return "write 14-2026 for every 14 days, 20~2026 for every 120";
    case RejectReason::kOccursYear:
      return "end the field in the year, as in 14-2026";
    case RejectReason::kOccursYearInFuture:
      return "use df- to count down to a date to come";
    case RejectReason::kOccursYearTooEarly:
      return "write the year behind the word, as in one2026";
    case RejectReason::kOccursWeekday:
      return "write 1st, 2nd, 3rd, 4th or Las, a blank and the weekday, as in 3rd Mon";
    case RejectReason::kAdvance:
      return "the third field is the number of days of notice";
  }
  return {};
}

}  // namespace tidewarden
