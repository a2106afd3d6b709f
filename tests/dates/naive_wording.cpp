#include "tests/dates/naive_wording.h"

#include <cstdlib>

#include "tests/dates/naive_calendar.h"

namespace tidewarden::test {
namespace {

std::string Piece(int count, const std::string& unit) {
  return std::to_string(count) + unit + (std::abs(count) >= 2 ? "s" : "");
}

int OneMonthFrom(int index, int step) {
  const NaiveCalendar& pages = NaiveCalendar::Pages();
  NaiveDay day = pages.At(index);
  day.month += step;
  if (day.month == 13) day = {day.year + 1, 1, day.day, 0};
  if (day.month == 0) day = {day.year - 1, 12, day.day, 0};
  const int length = NaiveMonthLength(day.year, day.month);
  return pages.IndexOf(day.year, day.month, day.day < length ? day.day : length);
}

void Replace(std::string& text, const std::string& what, const std::string& by) {
  for (std::size_t at = text.find(what); at != std::string::npos;
       at = text.find(what, at + by.size())) {
    text.replace(at, what.size(), by);
  }
}

std::string YearsMonthsDays(int from, int to) {
  const NaiveCalendar& pages = NaiveCalendar::Pages();
  const NaiveDay& a = pages.At(from);
  const NaiveDay& b = pages.At(to);
  const int anchor = pages.IndexOf(b.year, b.month, 1) + a.day - 1;
  int days = to - anchor;
  int months = (b.year * 12 + b.month) - (a.year * 12 + a.month);
  if (months < 0 && days > 0) {
    ++months;
    days = to - OneMonthFrom(anchor, 1);
  } else if (months >= 1 && days < 0) {
    --months;
    days = to - OneMonthFrom(anchor, -1);
  }
  const int years = std::abs(months) / 12;
  months = months % 12;
  std::string pieces = "(";
  if (years != 0) pieces += Piece(years, " year");
  if (months != 0) pieces += " " + Piece(months, " month");
  if (days != 0) pieces += " " + Piece(days, " day");
  for (const char* letter : {"r", "h", "s"}) {
    Replace(pieces, std::string(letter) + " ", std::string(letter) + ", ");
  }
  return pieces;
}

}  // namespace

std::string WordingOnTexts(int from, int to, bool daysOnly) {
  const int total = to - from;
  std::string text = daysOnly ? "(" + std::to_string(total) + " days" : YearsMonthsDays(from, to);
  Replace(text, "( ", "(");
  Replace(text, "-", "");
  return text + (total == 0 ? "IS TODAY" : total > 0 ? " future" : " past") + ")";
}

}  // namespace tidewarden::test
