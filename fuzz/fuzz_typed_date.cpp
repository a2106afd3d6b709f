// Dates as the user types them, and the probe text that tells the layout. First byte: the layout;
// the rest: the typed text.
#include <algorithm>
#include <cstdint>
#include <string>

#include "dates/date_text.h"
#include "dates/text.h"
#include "fuzz/check.h"

namespace tidewarden::fuzz {
namespace {

constexpr int kCurrentYear = 2014;

std::string WithSeparator(std::string_view typed, char separator) {
  std::string out(typed);
  std::replace_if(
      out.begin(), out.end(), [](char c) { return c == ' ' || c == '-' || c == '/' || c == '.'; },
      separator);
  return out;
}

void CheckTyped(std::string_view typed, const RegionalDateFormat& format) {
  const int day = ExtractDay(typed, format);
  const int month = ExtractMonth(typed, format);
  const int year = ExtractYear(typed, format, kCurrentYear);
  const std::string normal = NormalizeDateText(typed, format, kCurrentYear);
  FUZZ_CHECK(day >= -32768 && day <= 32767);
  FUZZ_CHECK(month >= -32768 && month <= 32767);

  // The separators are interchangeable.
  for (const char separator : {' ', '-', '/', '.'}) {
    const std::string same = WithSeparator(typed, separator);
    FUZZ_CHECK(ExtractDay(same, format) == day);
    FUZZ_CHECK(ExtractMonth(same, format) == month);
    FUZZ_CHECK(ExtractYear(same, format, kCurrentYear) == year);
    FUZZ_CHECK(NormalizeDateText(same, format, kCurrentYear) == normal);
  }
  if (normal.empty()) {
    FUZZ_CHECK(year == 0);
    return;
  }
  const std::string pointed = WithSeparator(typed, '.');
  const auto date = ReadFullDate(normal, format);
  FUZZ_CHECK(date.has_value());
  FUZZ_CHECK(FormatDate(*date, format) == normal);
  FUZZ_CHECK(NormalizeDateText(normal, format, kCurrentYear) == normal);
  FUZZ_CHECK(YearOf(*date) == year);
  FUZZ_CHECK(ExtractDay(normal, format) == DayOf(*date));
  FUZZ_CHECK(ExtractMonth(normal, format) == MonthOf(*date));
  // Day and month alone are read only from texts of the right length. What can be normalized is
  // ASCII, so that bytes are characters.
  const auto separators = std::count(pointed.begin(), pointed.end(), '.');
  const bool fits = separators == (typed.size() >= 6 ? 2 : 1);
  FUZZ_CHECK(day == (fits ? DayOf(*date) : 0));
  FUZZ_CHECK(month == (fits ? MonthOf(*date) : 0));
}

void CheckProbe(std::string_view probe) {
  const PatternRegionalFormats formats("MM/dd/yyyy");
  const auto format = DetectRegionalDateFormat(probe, formats);
  if (!format) return;
  FUZZ_CHECK(format->DateSeparator.size() == 1);
  FUZZ_CHECK(format->IsMonthFirst() + format->IsDayFirst() + format->IsYearFirst() == 1);
  FUZZ_CHECK(format->TwoDigitYear == (format->DisplayDateFormat.size() == 8));
  FUZZ_CHECK(format->FullDateFormat.size() == 10);
  const CivilDate date = MakeDate(2014, 12, 31);
  FUZZ_CHECK(ReadFullDate(FormatDate(date, *format), *format) == date);
}

}  // namespace
}  // namespace tidewarden::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tidewarden;
  std::string_view typed = fuzz::TextOf(data, size);
  const RegionalDateFormat& format = fuzz::LayoutFor(fuzz::TakeByte(typed));
  fuzz::CheckTyped(typed, format);
  fuzz::CheckProbe(typed);
  // Texts of any kind may reach the functions that show dates.
  static_cast<void>(SpellOutMonth(typed, format));
  static_cast<void>(MaskMonth(typed, format));
  static_cast<void>(ReadFullDate(typed, format));
  return 0;
}
