#include "dates/date_difference.h"

#include <cstdlib>

#include "dates/text.h"

namespace tidewarden {
namespace {

// The same day of another month, or that month's last day. Years are not bounded here: the
// steps never leave the neighbourhood of a real date.
CivilDate AddMonths(CivilDate date, int months) {
  const CivilDate moved = date + std::chrono::months{months};
  if (moved.ok()) return moved;
  return CivilDate{moved.year() / moved.month() / std::chrono::last};
}

struct Difference {
  int years = 0;
  int months = 0;
  int days = 0;
};

Difference YearsMonthsDays(CivilDate from, CivilDate to) {
  // The anchor overflows: 31 February is 3 March.
  const CivilDate monthStart{to.year(), to.month(), std::chrono::day{1}};
  const CivilDate anchor = AddDays(monthStart, DayOf(from) - 1);
  int days = DaysBetween(anchor, to);
  int months = 12 * (YearOf(to) - YearOf(from)) + MonthOf(to) - MonthOf(from);
  if (months < 0 && days > 0) {
    ++months;
    days = DaysBetween(AddMonths(anchor, 1), to);
  } else if (months >= 1 && days < 0) {
    --months;
    days = DaysBetween(AddMonths(anchor, -1), to);
  }
  return {std::abs(months) / 12, std::abs(months % 12), std::abs(days)};
}

void AppendPiece(std::string& out, int count, std::string_view unit) {
  if (count == 0) return;
  if (out.size() > 1) out += ", ";
  AppendNumber(out, count);
  out += unit;
  if (count >= 2) out += "s";
}

}  // namespace

std::string CompareDates(CivilDate from, CivilDate to, DifferenceForm form) {
  const int total = DaysBetween(from, to);
  std::string out = "(";
  if (form == DifferenceForm::kDaysOnly) {
    AppendNumber(out, std::abs(total));
    out += " days";
  } else {
    const Difference difference = YearsMonthsDays(from, to);
    AppendPiece(out, difference.years, " year");
    AppendPiece(out, difference.months, " month");
    AppendPiece(out, difference.days, " day");
  }
  out += total == 0 ? "IS TODAY" : total > 0 ? " future" : " past";
  out += ")";
  return out;
}

}  // namespace tidewarden
