#include "platform/windows/windows_regional_formats.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <utility>

#include "dates/text.h"
#include "platform/windows/windows_api.h"
#include "platform/windows/windows_text.h"

namespace tidewarden {
namespace {

constexpr std::size_t kLongestText = 256;
constexpr int kFirstSystemYear = 1601;  // of the system's own dates

using Buffer = std::array<wchar_t, kLongestText>;

// What a call has put into the buffer. Its answer counts the NUL at the end and is 0 for a
// failure.
std::string Cleaned(const Buffer& text, int answer) {
  if (answer <= 1) return {};
  const std::string clean =
      CleanRegionalText(Narrow({text.data(), static_cast<std::size_t>(answer) - 1}));
  return std::string(Trim(clean));
}

// Puts an item of the locale's data into `out`, which keeps its text when there is none.
void Take(const wchar_t* locale, LCTYPE item, std::string& out) {
  Buffer text{};
  const int answer = ::GetLocaleInfoEx(locale, item, text.data(), static_cast<int>(text.size()));
  std::string clean = Cleaned(text, answer);
  if (!clean.empty()) out = std::move(clean);
}

// The same for a name of the Gregorian calendar.
void TakeName(const wchar_t* locale, CALTYPE item, std::string& out) {
  Buffer text{};
  const int answer = ::GetCalendarInfoEx(locale, CAL_GREGORIAN, nullptr, item, text.data(),
                                         static_cast<int>(text.size()), nullptr);
  std::string clean = Cleaned(text, answer);
  if (!clean.empty()) out = std::move(clean);
}

CalendarNames NamesOf(const wchar_t* locale) {
  CalendarNames names = EnglishCalendarNames();
  for (std::size_t i = 0; i < names.months.size(); ++i) {
    const auto offset = static_cast<CALTYPE>(i);
    // In the form that stands beside a day, where a language has one.
    TakeName(locale, (CAL_SMONTHNAME1 + offset) | CAL_RETURN_GENITIVE_NAMES, names.months[i]);
    TakeName(locale, (CAL_SABBREVMONTHNAME1 + offset) | CAL_RETURN_GENITIVE_NAMES,
             names.monthAbbreviations[i]);
    TakeName(locale, CAL_SMONTHNAME1 + offset, names.monthsAlone[i]);
  }
  for (std::size_t i = 0; i < names.weekdays.size(); ++i) {
    // The system counts from Monday.
    const auto offset = static_cast<LCTYPE>((i + 6) % 7);
    Take(locale, LOCALE_SDAYNAME1 + offset, names.weekdays[i]);
    Take(locale, LOCALE_SABBREVDAYNAME1 + offset, names.weekdayAbbreviations[i]);
  }
  return names;
}

bool PrefersGregorian(const wchar_t* locale) {
  DWORD calendar = CAL_GREGORIAN;
  ::GetLocaleInfoEx(locale, LOCALE_ICALENDARTYPE | LOCALE_RETURN_NUMBER,
                    reinterpret_cast<wchar_t*>(&calendar), sizeof calendar / sizeof(wchar_t));
  switch (calendar) {
    case CAL_GREGORIAN:
    case CAL_GREGORIAN_US:
    case CAL_GREGORIAN_ME_FRENCH:
    case CAL_GREGORIAN_ARABIC:
    case CAL_GREGORIAN_XLIT_ENGLISH:
    case CAL_GREGORIAN_XLIT_FRENCH:
      return true;
    default:
      return false;
  }
}

}  // namespace

WindowsRegionalFormats::WindowsRegionalFormats(const wchar_t* locale)
    : NamedRegionalFormats(EnglishCalendarNames()), locale_(locale == nullptr ? L"" : locale) {
  Take(Locale(), LOCALE_SSHORTDATE, pattern_);
  if (pattern_.empty()) return;
  SetNames(NamesOf(Locale()));
  // The system writes an era even for this calendar, as "A.D.".
  isForSystem_ = PrefersGregorian(Locale()) && pattern_.find('g') == std::string::npos;
}

const wchar_t* WindowsRegionalFormats::Locale() const {
  return locale_.empty() ? LOCALE_NAME_USER_DEFAULT : locale_.c_str();
}

std::string WindowsRegionalFormats::ShortDate(CivilDate date) const {
  if (pattern_.empty()) return FormatByPattern("MM/dd/yyyy", date, names());
  if (isForSystem_ && YearOf(date) >= kFirstSystemYear) {
    SYSTEMTIME day{};
    day.wYear = static_cast<WORD>(YearOf(date));
    day.wMonth = static_cast<WORD>(MonthOf(date));
    day.wDay = static_cast<WORD>(DayOf(date));
    Buffer text{};
    const int answer = ::GetDateFormatEx(Locale(), DATE_SHORTDATE, &day, nullptr, text.data(),
                                         static_cast<int>(text.size()), nullptr);
    std::string shown = Cleaned(text, answer);
    if (!shown.empty()) return shown;
  }
  return CleanRegionalText(FormatByPattern(pattern_, date, names()));
}

}  // namespace tidewarden
