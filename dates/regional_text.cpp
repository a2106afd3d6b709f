#include "dates/regional_text.h"

#include <algorithm>

#include "dates/text.h"

namespace tidewarden {
namespace {

// The zeros of the decimal digit runs (general category Nd) that locales use for dates:
// Arabic-Indic, its extended form, N'Ko, Devanagari, Bengali, Gurmukhi, Gujarati, Oriya, Tamil,
// Telugu, Kannada, Malayalam, Thai, Lao, Tibetan, Myanmar, Khmer, Mongolian, Ol Chiki, Meetei
// Mayek, fullwidth, Chakma, Adlam.
constexpr char32_t kDigitZeros[] = {
    0x0660, 0x06F0, 0x07C0, 0x0966, 0x09E6, 0x0A66,  0x0AE6,  0x0B66,
    0x0BE6, 0x0C66, 0x0CE6, 0x0D66, 0x0E50, 0x0ED0,  0x0F20,  0x1040,
    0x17E0, 0x1810, 0x1C50, 0xABF0, 0xFF10, 0x11136, 0x1E950,
};

bool IsDirectionMark(char32_t c) {
  return c == 0x200E || c == 0x200F || c == 0x061C || (c >= 0x202A && c <= 0x202E) ||
         (c >= 0x2066 && c <= 0x2069);
}

bool IsNoBreakBlank(char32_t c) {
  return c == 0x00A0 || c == 0x202F || c == 0x2007;
}

char32_t PlainDigit(char32_t c) {
  for (const char32_t zero : kDigitZeros) {
    if (c >= zero && c < zero + 10) return U'0' + (c - zero);
  }
  return c;
}

void AppendField(std::string& out, char letter, std::size_t count, CivilDate date,
                 const CalendarNames& names) {
  const auto month = static_cast<std::size_t>(MonthOf(date) - 1);
  const auto weekday = static_cast<std::size_t>(WeekdayNumber(date) - 1);
  if (letter == 'd') {
    if (count <= 2) {
      AppendNumber(out, DayOf(date), static_cast<int>(count));
    } else {
      out += count == 3 ? names.weekdayAbbreviations[weekday] : names.weekdays[weekday];
    }
  } else if (letter == 'M') {
    if (count <= 2) {
      AppendNumber(out, MonthOf(date), static_cast<int>(count));
    } else {
      out += count == 3 ? names.monthAbbreviations[month] : names.months[month];
    }
  } else if (count <= 2) {
    AppendNumber(out, YearOf(date) % 100, 2);
  } else {
    AppendNumber(out, YearOf(date), 4);
  }
}

}  // namespace

const CalendarNames& EnglishCalendarNames() {
  static const CalendarNames names{
      {"January", "February", "March", "April", "May", "June", "July", "August", "September",
       "October", "November", "December"},
      {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"},
      {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"},
      {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"}};
  return names;
}

std::string CleanRegionalText(std::string_view text) {
  std::string out;
  while (!text.empty()) {
    const char first = text.front();
    char32_t c = TakeCharacter(text);
    if (c > 0x10FFFF) {
      out.push_back(first);
      continue;
    }
    if (IsDirectionMark(c)) continue;
    c = IsNoBreakBlank(c) ? U' ' : PlainDigit(c);
    const bool behindSeparator =
        !out.empty() && (out.back() == '.' || out.back() == '-' || out.back() == '/');
    if (c == U' ' && behindSeparator) continue;
    AppendCharacter(out, c);
  }
  return out;
}

std::string FormatByPattern(std::string_view pattern, CivilDate date, const CalendarNames& names) {
  std::string out;
  bool quoted = false;
  for (std::size_t i = 0; i < pattern.size();) {
    const char c = pattern[i];
    if (c == '\'') {
      const bool doubled = i + 1 < pattern.size() && pattern[i + 1] == '\'';
      if (doubled) {
        out.push_back('\'');
      } else {
        quoted = !quoted;
      }
      i += doubled ? 2 : 1;
    } else if (!quoted && (c == 'd' || c == 'M' || c == 'y')) {
      const std::size_t end = std::min(pattern.find_first_not_of(c, i), pattern.size());
      AppendField(out, c, end - i, date, names);
      i = end;
    } else if (!quoted && c == 'g') {
      // An era belongs to another calendar, and its blanks to it.
      i = std::min(pattern.find_first_not_of("g ", i), pattern.size());
      while (i == pattern.size() && out.ends_with(' ')) out.pop_back();
    } else {
      out.push_back(c);
      ++i;
    }
  }
  return out;
}

std::string NamedRegionalFormats::DayAndMonthName(CivilDate date, DayMonthOrder order,
                                                  std::string_view separator) const {
  std::string day;
  AppendNumber(day, DayOf(date), 2);
  const std::string& month = names_.monthAbbreviations[static_cast<std::size_t>(MonthOf(date) - 1)];
  const bool dayFirst = order == DayMonthOrder::kDayFirst;
  return (dayFirst ? day : month) + std::string(separator) + (dayFirst ? month : day);
}

std::string NamedRegionalFormats::WeekdayName(int weekday) const {
  return names_.weekdays[static_cast<std::size_t>(weekday - 1)];
}

std::string NamedRegionalFormats::MonthName(int month) const {
  const auto index = static_cast<std::size_t>(month - 1);
  return names_.monthsAlone[index].empty() ? names_.months[index] : names_.monthsAlone[index];
}

std::string PatternRegionalFormats::ShortDate(CivilDate date) const {
  return CleanRegionalText(FormatByPattern(pattern_, date, names()));
}

std::optional<CivilDate> ReadIsoDate(std::string_view text) {
  if (text.size() != 10 || text[4] != '-' || text[7] != '-') return std::nullopt;
  const int year = DigitsValue(text.substr(0, 4));
  const int month = DigitsValue(text.substr(5, 2));
  const int day = DigitsValue(text.substr(8, 2));
  if (year < 0 || month < 0 || day < 0) return std::nullopt;
  const CivilDate date = MakeDate(year, month, day);
  return IsRealDate(date) ? std::optional(date) : std::nullopt;
}

std::string IsoDate(CivilDate date) {
  std::string out;
  AppendNumber(out, YearOf(date), 4);
  out.push_back('-');
  AppendNumber(out, MonthOf(date), 2);
  out.push_back('-');
  AppendNumber(out, DayOf(date), 2);
  return out;
}

std::optional<int> ReadClockTime(std::string_view text) {
  if (text.size() != 5 || text[2] != ':') return std::nullopt;
  const int hour = DigitsValue(text.substr(0, 2));
  const int minute = DigitsValue(text.substr(3, 2));
  if (hour < 0 || hour > 23 || minute < 0 || minute > 59) return std::nullopt;
  return hour * 100 + minute;
}

}  // namespace tidewarden
