// The distance between two dates in words, as count-ups and count-downs show it.
#pragma once

#include <string>

#include "dates/civil.h"

namespace tidewarden {

enum class DifferenceForm { kDaysOnly, kYearsMonthsDays };

// The wording of `to` - `from`, both real dates, for example "(4952 days past)",
// "(2 years, 2 months, 5 days future)" or "(IS TODAY)". In the days-only form the word is
// always "days" and a same-day distance reads "(0 daysIS TODAY)". The text never has a sign.
[[nodiscard]] std::string CompareDates(CivilDate from, CivilDate to, DifferenceForm form);

}  // namespace tidewarden
