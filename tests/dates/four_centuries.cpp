#include "tests/dates/four_centuries.h"

#include <gtest/gtest.h>

#include "tests/dates/data_rows.h"

namespace tidewarden::test {

WalkField ReadWalkField(const std::string& text) {
  WalkField field{text, {}};
  EXPECT_EQ(ReadDateField(text, field.value), DateFieldFault::kNone) << text;
  return field;
}

WalkOccurs ReadWalkOccurs(const std::string& text, int currentYear) {
  WalkOccurs occurs{text, {}};
  EXPECT_EQ(ReadOccurs(text, currentYear, occurs.value), OccursFault::kNone) << text;
  return occurs;
}

WalkField MonthAndDayField(int month, int day) {
  const auto half = [](int number) { return number == 0 ? std::string("xx") : Padded(number, 2); };
  return ReadWalkField(half(month) + "." + half(day));
}

std::vector<MonthDayField> AllMonthsAndDays() {
  std::vector<MonthDayField> all;
  for (int month = 1; month <= 12; ++month) {
    for (int day = 1; day <= 31; ++day) all.push_back({month, day, MonthAndDayField(month, day)});
  }
  return all;
}

PageSpan FourCenturies() {
  return {PagesOfYear(kWalkFirstYear).first, PagesOfYear(kWalkLastYear).last};
}

PageSpan PagesOfYear(int year) {
  const NaiveCalendar& pages = NaiveCalendar::Pages();
  return {pages.IndexOf(year, 1, 1), pages.IndexOf(year, 12, 31)};
}

void ReportDifference(const WalkField& field, const WalkOccurs& occurs, int today,
                      std::optional<CivilDate> date, int expected) {
  const auto text = [](int page) { return TextOf(NaiveCalendar::Pages().At(page).ToDate()); };
  ADD_FAILURE() << field.text << "," << occurs.text << " on " << text(today) << " gives "
                << (date ? TextOf(*date) : "no date") << ", not "
                << (expected == kNoPage ? "no date" : text(expected));
}

}  // namespace tidewarden::test
