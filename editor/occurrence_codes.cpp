#include "editor/occurrence_codes.h"

#include "dates/text.h"

namespace tidewarden {
namespace {

// Above this an interval does not fit its two digits, and "~" stands for the missing hundred.
constexpr int kMostPlainDays = 99;
constexpr int kHundred = 100;

std::array<std::string, kOccurrenceKinds> MakeItems() {
  std::array<std::string, kOccurrenceKinds> items{"yearly",  "quarter",  "monthly",  "one-time",
                                                  "every -", "til done", "dayspast", "daysfutr"};
  std::size_t next = kFirstWeekdayKind;
  for (const char* const ordinal : {"1st ", "2nd ", "3rd ", "4th ", "Las "}) {
    for (const char* const weekday : {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"}) {
      items[next++] = std::string(ordinal) + weekday;
    }
  }
  items[next] = "Las Day";
  return items;
}

}  // namespace

const std::array<std::string, kOccurrenceKinds>& OccurrenceItems() {
  static const auto items = MakeItems();
  return items;
}

std::optional<int> OccursIndexOf(std::string_view code) {
  const std::string lower = ToLower(code);
  const std::string_view head = FirstCharacters(lower, 3);
  if (head == "one") return kOneTimeKind;
  if (head == "dp-") return kDaysPastKind;
  if (head == "df-") return kDaysFutureKind;
  if (head.ends_with('~') || (head.ends_with('-') && CountCharacters(head) == 3)) return kEveryKind;
  if (head == "tdo") return kTilDoneKind;
  for (std::size_t i = 0; i < OccurrenceItems().size(); ++i) {
    if (EqualIgnoringCase(lower, OccurrenceItems()[i])) return static_cast<int>(i);
  }
  return std::nullopt;
}

int EveryCountOf(std::string_view code) {
  const int digits = static_cast<int>(LeadingNumber(FirstCharacters(code, 2)));
  return digits + (FirstCharacters(code, 3).ends_with('~') ? kHundred : 0);
}

int YearOfNext(int month, int day, CivilDate today) {
  // Leap years are at most eight years apart.
  constexpr int kFarthest = 8;
  const int current = YearOf(today);
  for (int year = current; year <= current + kFarthest; ++year) {
    const CivilDate date = MakeDate(year, month, day);
    if (IsRealDate(date) && date >= today) return year;
  }
  return current;
}

std::string CodeWithYear(int index, int year) {
  std::string code = "one";
  if (index == kTilDoneKind) code = "tdo";
  if (index == kDaysPastKind) code = "dp-";
  if (index == kDaysFutureKind) code = "df-";
  AppendNumber(code, year, 4);
  return code;
}

std::string EveryCode(int days, int year) {
  std::string code;
  AppendNumber(code, days > kMostPlainDays ? days - kHundred : days, 2);
  code += days > kMostPlainDays ? '~' : '-';
  AppendNumber(code, year, 4);
  return code;
}

}  // namespace tidewarden
