#include "tests/support/layouts.h"

#include <stdexcept>

#include "dates/regional_text.h"

namespace tidewarden::test {

RegionalDateFormat LayoutOf(const std::string& shortDatePattern) {
  const PatternRegionalFormats formats(shortDatePattern);
  auto format = DetectRegionalDateFormat(formats.ShortDate(kProbeDate), formats);
  if (!format) throw std::invalid_argument("unsupported layout " + shortDatePattern);
  return *format;
}

RegionalDateFormat MonthFirst() {
  return LayoutOf("MM/dd/yyyy");
}

RegionalDateFormat DayFirst() {
  return LayoutOf("dd.MM.yyyy");
}

RegionalDateFormat YearFirst() {
  return LayoutOf("yyyy-MM-dd");
}

RegionalDateFormat TwoDigitYearFirst() {
  return LayoutOf("yy/MM/dd");
}

const std::vector<NamedLayout>& AllLayouts() {
  static const std::vector<NamedLayout> layouts{{"MonthFirst", MonthFirst()},
                                                {"DayFirst", DayFirst()},
                                                {"YearFirst", YearFirst()},
                                                {"TwoDigitYearFirst", TwoDigitYearFirst()}};
  return layouts;
}

}  // namespace tidewarden::test
