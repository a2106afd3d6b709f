#include "dates/event_fields.h"

#include <cstring>

#include "dates/text.h"

namespace tidewarden {
namespace {

constexpr std::string_view kWeekdays = "sunmontuewedthufrisat";

// One half of a month-and-day field. False when it is rejected.
bool ReadHalf(std::string_view half, int highest, int& out) {
  if (half == "xx") {
    out = DateField::kAny;
    return true;
  }
  const int digits = DigitsValue(Trim(half));
  out = digits >= 0 ? digits : DateField::kNotADate;
  if (digits >= 0) return digits >= 1 && digits <= highest;
  const double value = LeadingNumber(half);
  return value >= 1 && value <= highest;
}

// A word known at compile time, compared without a call.
template <std::size_t N>
bool Is(std::string_view text, const char (&word)[N]) {
  return text.size() == N - 1 && std::memcmp(text.data(), word, N - 1) == 0;
}

// The weekday that three letters of any case name, 0 for none.
int WeekdayOf(std::string_view name) {
  if (name.size() != 3) return 0;
  const char lower[] = {ToLowerAscii(name[0]), ToLowerAscii(name[1]), ToLowerAscii(name[2])};
  for (std::size_t i = 0; i < kWeekdays.size(); i += 3) {
    if (std::memcmp(lower, kWeekdays.data() + i, 3) == 0) return static_cast<int>(i / 3) + 1;
  }
  return 0;
}

std::string_view LastBytes(std::string_view text, std::size_t count) {
  return text.size() <= count ? text : text.substr(text.size() - count);
}

// "14-2026", "20~2026", "dp-2001", "df-2030".
OccursFault ReadDashed(std::string_view occurs, int currentYear, Occurs& out) {
  const std::string_view head = occurs.substr(0, 2);
  const std::string_view tail = LastBytes(occurs, 4);
  const bool counter = occurs[2] == '-' && (head == "dp" || head == "df");
  if (!counter && !IsDigits(head)) return OccursFault::kInterval;
  if (!IsDigits(tail)) return OccursFault::kYear;
  out.year = DigitsValue(tail);
  if (!counter) {
    out.kind = OccursKind::kEveryNDays;
    out.interval = DigitsValue(head) + (occurs[2] == '~' ? 100 : 0);
    return OccursFault::kNone;
  }
  out.kind = head == "dp" ? OccursKind::kDaysPast : OccursKind::kDaysFuture;
  if (out.kind == OccursKind::kDaysPast && out.year > currentYear) {
    return OccursFault::kYearInFuture;
  }
  return OccursFault::kNone;
}

OccursFault ReadWeekday(std::string_view occurs, Occurs& out) {
  if (Is(occurs, "las day")) {
    out.kind = OccursKind::kLastDay;
    out.ordinal = -1;
    return OccursFault::kNone;
  }
  out.kind = OccursKind::kNthWeekday;
  out.ordinal = occurs[0] == 'l' ? 0 : occurs[0] - '0';
  out.weekday = WeekdayOf(LastBytes(occurs, 3));
  return out.weekday == 0 ? OccursFault::kWeekday : OccursFault::kNone;
}

// "1st ", "2nd ", "3rd ", "4th " or "las ".
bool IsOrdinal(std::string_view head) {
  constexpr char kEndings[][4] = {"st ", "nd ", "rd ", "th "};
  if (head.size() != 4 || head[0] < '1' || head[0] > '4') return Is(head, "las ");
  return std::memcmp(head.data() + 1, kEndings[head[0] - '1'], 3) == 0;
}

// Two digits up to `highest`, or "xx". False for anything less common.
bool ReadPlainHalf(const char* half, unsigned highest, int& out) {
  if (half[0] == 'x' && half[1] == 'x') {
    out = DateField::kAny;
    return true;
  }
  const auto tens = static_cast<unsigned>(half[0] - '0');
  const auto ones = static_cast<unsigned>(half[1] - '0');
  const unsigned value = 10 * tens + ones;
  out = static_cast<int>(value);
  return tens <= 9 && ones <= 9 && value >= 1 && value <= highest;
}

// The common case of ReadDateField, which needs no look at characters.
bool ReadPlainDate(std::string_view stored, DateField& out) {
  out.isFeast = false;
  return stored.size() == 5 && static_cast<unsigned char>(stored[2]) < 0x80 &&
         ReadPlainHalf(stored.data(), 12, out.month) &&
         ReadPlainHalf(stored.data() + 3, 31, out.day);
}

}  // namespace

DateFieldFault ReadDateField(std::string_view stored, DateField& out) {
  if (ReadPlainDate(stored, out)) return DateFieldFault::kNone;
  const bool plain = stored.size() == 5 && IsAscii(stored);
  if (!plain && CountCharacters(stored) != 5) return DateFieldFault::kLength;
  out = DateField();
  if (IsFeastCode(stored)) {
    out.isFeast = true;
    // In "e+1xx" the wildcard counts before the feast, and leaves it without a date.
    if (!stored.ends_with("xx")) out.feast = ReadFeast(stored);
    return DateFieldFault::kNone;
  }
  const std::string_view month = plain ? stored.substr(0, 2) : FirstCharacters(stored, 2);
  const std::string_view day = plain ? stored.substr(3, 2) : LastCharacters(stored, 2);
  if (!ReadHalf(month, 12, out.month)) return DateFieldFault::kMonth;
  if (!ReadHalf(day, 31, out.day)) return DateFieldFault::kDay;
  return DateFieldFault::kNone;
}

// Positions may be counted in bytes here: every accepted form has ASCII digits or letters at
// each place that is looked at, and a byte of a longer character is neither.
OccursFault ReadOccurs(std::string_view occurs, int currentYear, Occurs& out) {
  out = Occurs();
  if (Is(occurs, "yearly")) return OccursFault::kNone;
  if (Is(occurs, "monthly") || Is(occurs, "quarter")) {
    out.kind = occurs[0] == 'm' ? OccursKind::kMonthly : OccursKind::kQuarter;
    return OccursFault::kNone;
  }
  if (occurs.size() < 3) return OccursFault::kUnknown;
  if (occurs[2] == '~' || occurs[2] == '-') return ReadDashed(occurs, currentYear, out);
  const std::string_view head = occurs.substr(0, 4);
  if (IsOrdinal(head)) return ReadWeekday(occurs, out);
  const bool oneTime = Is(head.substr(0, 3), "one");
  if (!oneTime && !Is(head.substr(0, 3), "tdo")) return OccursFault::kUnknown;
  const int year = DigitsValue(LastBytes(occurs, 4));
  if (!head.ends_with('2') || year < 2000) return OccursFault::kYearTooEarly;
  out.kind = oneTime ? OccursKind::kOneTime : OccursKind::kTilDone;
  out.year = year;
  return OccursFault::kNone;
}

}  // namespace tidewarden
