// The walk over every day from 1 January 2000 to 31 December 2399, one whole cycle of the
// Gregorian calendar, on which a rule is asked for its next date and a second answer, found by
// turning the pages of NaiveCalendar, is compared with it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "dates/event_date_rules.h"
#include "tests/dates/naive_calendar.h"

namespace tidewarden::test {

inline constexpr int kNoPage = -1;
inline constexpr int kWalkFirstYear = 2000;
inline constexpr int kWalkLastYear = 2399;
inline constexpr long long kWalkDays = 146097;

// The two fields of an event, read once, with their texts for messages.
struct WalkField {
  std::string text;
  DateField value;
};
struct WalkOccurs {
  std::string text;
  Occurs value;
};

// Both report a failure for a text that the event line does not allow.
[[nodiscard]] WalkField ReadWalkField(const std::string& text);
[[nodiscard]] WalkOccurs ReadWalkOccurs(const std::string& text, int currentYear = kWalkLastYear);

// "05.31". Month or day 0 is "xx".
[[nodiscard]] WalkField MonthAndDayField(int month, int day);
// Every month with every day from 1 to 31, whether the month has it or not: 372 fields.
struct MonthDayField {
  int month;
  int day;
  WalkField field;
};
[[nodiscard]] std::vector<MonthDayField> AllMonthsAndDays();

// Places in the calendar, both inclusive.
struct PageSpan {
  int first;
  int last;

  [[nodiscard]] long long Count() const { return last - first + 1; }
};
[[nodiscard]] PageSpan FourCenturies();
[[nodiscard]] PageSpan PagesOfYear(int year);

void ReportDifference(const WalkField& field, const WalkOccurs& occurs, int today,
                      std::optional<CivilDate> date, int expected);

// Asks for the event's next occurrence on every day of a span and compares it with
// `expected(today)`, a place in the calendar or kNoPage. Stops at the first difference, which is
// reported. The result is the number of days on which both were equal.
template <typename Expected>
[[nodiscard]] long long CountEqualDays(PageSpan days, const WalkField& field,
                                       const WalkOccurs& occurs, Expected&& expected) {
  const NaiveCalendar& pages = NaiveCalendar::Pages();
  for (int today = days.first; today <= days.last; ++today) {
    const std::optional<CivilDate> date =
        NextOccurrence(field.value, occurs.value, pages.At(today).ToDate());
    const int page = expected(today);
    const bool equal = page == kNoPage ? !date.has_value() : date && pages.At(page).Is(*date);
    if (!equal) {
      ReportDifference(field, occurs, today, date, page);
      return today - days.first;
    }
  }
  return days.Count();
}

// The same over all four centuries.
template <typename Expected>
[[nodiscard]] long long CountEqualDays(const WalkField& field, const WalkOccurs& occurs,
                                       Expected&& expected) {
  return CountEqualDays(FourCenturies(), field, occurs, expected);
}

// All the dates of a rule in order, asked for the first that is not before today. The days must
// be asked for in order.
class ComingDates {
 public:
  explicit ComingDates(std::vector<int> dates) : dates_(std::move(dates)) {}

  [[nodiscard]] int operator()(int today) {
    while (next_ < dates_.size() && dates_[next_] < today) ++next_;
    return next_ < dates_.size() ? dates_[next_] : kNoPage;
  }

 private:
  std::vector<int> dates_;
  std::size_t next_ = 0;
};

// Every page from the walk's first day to the calendar's last that `falls` holds for.
template <typename Falls>
[[nodiscard]] std::vector<int> PagesOn(Falls&& falls) {
  const NaiveCalendar& pages = NaiveCalendar::Pages();
  std::vector<int> found;
  for (int i = FourCenturies().first; i < pages.Count(); ++i) {
    if (falls(pages.At(i))) found.push_back(i);
  }
  return found;
}

// This year's date, or next year's once it has passed; no date in a year that lacks this year's.
[[nodiscard]] inline int ThisYearOrNext(int thisYear, int nextYear, int today) {
  return thisYear == kNoPage || thisYear >= today ? thisYear : nextYear;
}

}  // namespace tidewarden::test
