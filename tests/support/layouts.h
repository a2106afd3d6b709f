// The regional layouts that the tests run in.
#pragma once

#include <string>
#include <vector>

#include "dates/date_text.h"

namespace tidewarden::test {

// The layout that a pattern of letters gives, with English names. The pattern must be supported.
[[nodiscard]] RegionalDateFormat LayoutOf(const std::string& shortDatePattern);

[[nodiscard]] RegionalDateFormat MonthFirst();         // MM/dd/yyyy
[[nodiscard]] RegionalDateFormat DayFirst();           // dd.MM.yyyy
[[nodiscard]] RegionalDateFormat YearFirst();          // yyyy-MM-dd
[[nodiscard]] RegionalDateFormat TwoDigitYearFirst();  // yy/MM/dd

struct NamedLayout {
  std::string name;  // fit for a test's name
  RegionalDateFormat format;
};

// All four.
[[nodiscard]] const std::vector<NamedLayout>& AllLayouts();

// Short for MakeDate.
[[nodiscard]] inline CivilDate On(int year, int month, int day) {
  return MakeDate(year, month, day);
}

}  // namespace tidewarden::test
