// Movable feasts: which date fields name one, and on which day it falls in a year.
#pragma once

#include <optional>
#include <string_view>

#include "dates/civil.h"
#include "dates/hebrew.h"

namespace tidewarden {

// True when a date field is a feast code, in any letter case: one of the codes of the Easter
// and Hebrew families, "_vict", or "e+" / "e-" with a number above 0 and below 366 in its last
// three characters. A field can pass this test and still have no date ("e+0.5").
[[nodiscard]] bool IsFeastCode(std::string_view dateField);

// A feast, read once from its code.
struct Feast {
  enum class Family { kNone, kEaster, kHebrew, kVictoria };
  Family family = Family::kNone;  // kNone never has a date
  int easterOffset = 0;           // kEaster: days from Easter Sunday
  modHebrew::HebrewFeast hebrew{0, 0, 0};
};

// The feast that a date field names: the Easter family is tried first, then the Hebrew one,
// then Victoria Day.
[[nodiscard]] Feast ReadFeast(std::string_view dateField);

// The day on which a feast is kept in a Gregorian year (0 to 9999).
[[nodiscard]] std::optional<CivilDate> FeastDate(const Feast& feast, int year);

// Victoria Day of a year: the Monday before 25 May.
[[nodiscard]] CivilDate VictoriaDay(int year);

}  // namespace tidewarden
