// The occurrence kinds that the events editor offers, and the codes that stand for them in the
// events file ("yearly", "one2026", "20~2026", "3rd Mon").
//
// Everything here tests a kind by its index in the list, never by its text.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "dates/civil.h"

namespace tidewarden {

inline constexpr int kOccurrenceKinds = 44;

// Indexes with a meaning of their own. From kFirstWeekdayKind on an item is an ordinal and a
// weekday; the last one is "Las Day".
inline constexpr int kYearlyKind = 0;
inline constexpr int kMonthlyKind = 2;
inline constexpr int kOneTimeKind = 3;
inline constexpr int kEveryKind = 4;
inline constexpr int kTilDoneKind = 5;
inline constexpr int kDaysPastKind = 6;
inline constexpr int kDaysFutureKind = 7;
inline constexpr int kFirstWeekdayKind = 8;

// The items of the list in their order: "yearly", ..., "1st Sun", ..., "Las Day".
[[nodiscard]] const std::array<std::string, kOccurrenceKinds>& OccurrenceItems();

// True for the two kinds that count days from or to a full date and have no advance notice.
[[nodiscard]] constexpr bool IsCounterKind(int index) {
  return index == kDaysPastKind || index == kDaysFutureKind;
}

// The item that a stored code belongs to, in any letter case; nothing when there is none.
[[nodiscard]] std::optional<int> OccursIndexOf(std::string_view code);

// The number of days in a code such as "14-2026" or "20~2026" (120).
[[nodiscard]] int EveryCountOf(std::string_view code);

// The year in which a day and month next fall: the current year, or the next one when they lie
// before today. For 29 February the first year from the current one on that has that day, not
// before today. `month` and `day` are those of a day that some year has.
[[nodiscard]] int YearOfNext(int month, int day, CivilDate today);

// "one2026", "tdo2026", "dp-1788", "df-2030" for the four kinds that are a word and a year. The
// year is written with four digits.
[[nodiscard]] std::string CodeWithYear(int index, int year);

// "07-2026" for 7 days, "20~2026" for 120. `days` is 1 to 199.
[[nodiscard]] std::string EveryCode(int days, int year);

}  // namespace tidewarden
