#include "dates/date_text.h"

#include <algorithm>
#include <set>
#include <vector>

#include "dates/regional_text.h"
#include "dates/text.h"

namespace tidewarden {
namespace {

constexpr int kProbeYearForNames = 1992;

bool IsOneOf(std::string_view text, std::initializer_list<std::string_view> choices) {
  return std::find(choices.begin(), choices.end(), text) != choices.end();
}

std::string Joined(std::string_view first, std::string_view second, std::string_view third,
                   std::string_view separator) {
  std::string out(first);
  out.append(separator).append(second).append(separator).append(third);
  return out;
}

void SetOrder(RegionalDateFormat& format, int month, int day, int year) {
  format.MonthPosition = month;
  format.DayPosition = day;
  format.YearPosition = year;
}

std::string Replaced(std::string_view text, std::string_view anyOf, std::string_view by) {
  std::string out;
  for (const char c : text) {
    if (anyOf.find(c) != std::string_view::npos) {
      out += by;
    } else {
      out.push_back(c);
    }
  }
  return out;
}

std::vector<std::string> PartsOf(std::string_view typed) {
  std::vector<std::string> parts(1);
  for (const char c : typed) {
    if (std::string_view(". -/").find(c) != std::string_view::npos) {
      parts.emplace_back();
    } else {
      parts.back().push_back(c);
    }
  }
  return parts;
}

// The parts of a typed date, or none when their number does not fit the text's length.
std::vector<std::string> PartsThatFitTheLength(std::string_view typed) {
  std::vector<std::string> parts = PartsOf(typed);
  const std::size_t wanted = CountCharacters(typed) >= 6 ? 3 : 2;
  if (parts.size() != wanted) parts.clear();
  return parts;
}

int SixteenBit(std::string_view part) {
  const double value = LeadingNumber(part);
  if (value < -32768.0 || value > 32767.0) return 0;
  const long long rounded = RoundHalfToEven(value);
  return rounded < -32768 || rounded > 32767 ? 0 : static_cast<int>(rounded);
}

std::size_t DayPart(std::size_t parts, const RegionalDateFormat& format) {
  if (format.DayPosition == 1) return 0;
  if (format.DayPosition == 4) return 1;
  return parts == 3 ? 2 : 0;
}

std::size_t MonthPart(const RegionalDateFormat& format) {
  return format.MonthPosition == 1 ? 0 : 1;
}

int TypedYear(std::string_view digits) {
  const int value = digits.size() <= 4 ? DigitsValue(digits) : -1;
  if (value < 0 || digits.size() > 2) return value;
  return value < 30 ? 2000 + value : 1900 + value;
}

void CorrectSummerMonths(RegionalDateFormat& format) {
  std::string& june = format.MonthNames[6];
  std::string& july = format.MonthNames[7];
  if (june != july) return;
  if (june == "iyu") {
    june = "iyn";
    july = "iyl";
  } else if (june == "jui") {
    june = "jun";
    july = "jul";
  }
}

bool NamesAreUsable(const RegionalDateFormat& format) {
  const std::set<std::string> distinct(format.MonthNames.begin() + 1, format.MonthNames.end());
  return distinct.size() >= 11 && !distinct.contains("");
}

}  // namespace

void BuildMonthNames(RegionalDateFormat& format, const RegionalFormats& formats) {
  const DayMonthOrder order =
      format.IsMonthFirst() ? DayMonthOrder::kMonthFirst : DayMonthOrder::kDayFirst;
  for (int month = 1; month <= 12; ++month) {
    const std::string text = formats.DayAndMonthName(MakeDate(kProbeYearForNames, month, 15), order,
                                                     format.DateSeparator);
    const std::string letters = Replaced(text, "15" + format.DateSeparator, "");
    format.MonthNames[static_cast<std::size_t>(month)] = FirstCharacters(letters, 3);
  }
  CorrectSummerMonths(format);
  if (!NamesAreUsable(format)) {
    const auto& english = EnglishCalendarNames().monthAbbreviations;
    std::copy(english.begin(), english.end(), format.MonthNames.begin() + 1);
  }
}

std::optional<RegionalDateFormat> DetectRegionalDateFormat(std::string_view probeText,
                                                           const RegionalFormats& formats) {
  RegionalDateFormat format;
  const std::string head = ToLower(FirstCharacters(probeText, 5));
  // Every accepted head begins with ASCII, so its third character is its third byte.
  if (IsOneOf(head, {"12/31", "12-31", "12.31", "12 31"})) {
    format.DateSeparator = head.substr(2, 1);
    format.DisplayDateFormat = Joined("mm", "dd", "yyyy", format.DateSeparator);
    SetOrder(format, 1, 4, 7);
  } else if (IsOneOf(head,
                     {"31/12", "31-12", "31.12", "31 12", "31/de", "31-de", "31.de", "31 de"})) {
    format.DateSeparator = head.substr(2, 1);
    format.DisplayDateFormat = Joined("dd", "mm", "yyyy", format.DateSeparator);
    SetOrder(format, 4, 1, 7);
  } else if (IsOneOf(head, {"1992/", "1992-", "1992.", "1992 "})) {
    format.DateSeparator = head.substr(4, 1);
    format.DisplayDateFormat = Joined("yyyy", "mm", "dd", format.DateSeparator);
    SetOrder(format, 6, 9, 1);
  } else if (IsOneOf(head, {"92/12", "92-12", "92.12", "92 12"})) {
    format.DateSeparator = head.substr(2, 1);
    format.DisplayDateFormat = Joined("yy", "mm", "dd", format.DateSeparator);
    SetOrder(format, 6, 9, 1);
    format.TwoDigitYear = true;
  } else {
    return std::nullopt;
  }
  format.FullDateFormat = (format.TwoDigitYear ? "yy" : "") + format.DisplayDateFormat;
  BuildMonthNames(format, formats);
  const std::string december = ToLower(format.MonthNames[12]);
  format.DateEntryExample = format.IsMonthFirst()
                                ? "12" + format.DateSeparator + "31 or " + december + "31"
                                : "31" + format.DateSeparator + "12 or 31" + december;
  format.MonthEntryExample = "12 or " + december;
  for (int weekday = 1; weekday <= 7; ++weekday) {
    format.WeekdayNames[static_cast<std::size_t>(weekday)] = formats.WeekdayName(weekday);
  }
  return format;
}

void AppendDate(std::string& out, CivilDate date, const RegionalDateFormat& format) {
  const std::string_view separator = format.DateSeparator;
  if (format.IsYearFirst()) {
    AppendNumber(out, YearOf(date), 4);
    out += separator;
    AppendNumber(out, MonthOf(date), 2);
    out += separator;
    AppendNumber(out, DayOf(date), 2);
    return;
  }
  AppendNumber(out, format.IsMonthFirst() ? MonthOf(date) : DayOf(date), 2);
  out += separator;
  AppendNumber(out, format.IsMonthFirst() ? DayOf(date) : MonthOf(date), 2);
  out += separator;
  AppendNumber(out, YearOf(date), 4);
}

std::string FormatDate(CivilDate date, const RegionalDateFormat& format) {
  std::string out;
  AppendDate(out, date, format);
  return out;
}

std::optional<CivilDate> ReadFullDate(std::string_view text, const RegionalDateFormat& format) {
  if (text.size() != 10) return std::nullopt;
  const auto at = [&](int position, std::size_t length) {
    return DigitsValue(text.substr(static_cast<std::size_t>(position) - 1, length));
  };
  const int year = at(format.YearPosition, 4);
  const int month = at(format.MonthPosition, 2);
  const int day = at(format.DayPosition, 2);
  if (year < 0 || month < 0 || day < 0) return std::nullopt;
  const CivilDate date = MakeDate(year, month, day);
  return IsRealDate(date) ? std::optional(date) : std::nullopt;
}

int ExtractDay(std::string_view typed, const RegionalDateFormat& format) {
  const std::vector<std::string> parts = PartsThatFitTheLength(typed);
  return parts.empty() ? 0 : SixteenBit(parts[DayPart(parts.size(), format)]);
}

int ExtractMonth(std::string_view typed, const RegionalDateFormat& format) {
  const std::vector<std::string> parts = PartsThatFitTheLength(typed);
  return parts.empty() ? 0 : SixteenBit(parts[MonthPart(format)]);
}

std::string NormalizeDateText(std::string_view typed, const RegionalDateFormat& format,
                              int currentYear) {
  const std::vector<std::string> parts = PartsOf(typed);
  if (parts.size() != 2 && parts.size() != 3) return {};
  const bool full = parts.size() == 3;
  const int year =
      full ? TypedYear(parts[format.IsYearFirst() ? std::size_t{0} : std::size_t{2}]) : currentYear;
  const int month = DigitsValue(parts[MonthPart(format)]);
  const int day = DigitsValue(parts[DayPart(parts.size(), format)]);
  if (year < 0 || month < 0 || day < 0) return {};
  const CivilDate date = MakeDate(year, month, day);
  return IsRealDate(date) ? FormatDate(date, format) : std::string();
}

int ExtractYear(std::string_view typed, const RegionalDateFormat& format, int currentYear) {
  const auto date = ReadFullDate(NormalizeDateText(typed, format, currentYear), format);
  return date ? YearOf(*date) : 0;
}

std::string BuildDateText(std::string_view dateField, std::string_view year,
                          const RegionalDateFormat& format) {
  std::string text(format.IsYearFirst() ? year : dateField);
  text.push_back('.');
  text += format.IsYearFirst() ? dateField : year;
  return Replaced(text, ".", format.DateSeparator);
}

std::string SpellOutMonth(std::string_view dateText, const RegionalDateFormat& format) {
  if (format.TwoDigitYear) return std::string(dateText);
  const auto before = static_cast<std::size_t>(format.MonthPosition) - 1;
  if (dateText.size() < before + 2) return std::string(dateText);
  const int month = DigitsValue(dateText.substr(before, 2));
  if (month < 1 || month > 12) return std::string(dateText);
  std::string out = Replaced(dateText, "-./", " ");
  out.replace(before, 2, format.MonthNames[static_cast<std::size_t>(month)]);
  return out;
}

std::string MaskMonth(std::string_view dateText, const RegionalDateFormat& format) {
  const auto before = static_cast<std::size_t>(format.MonthPosition) - 1;
  if (dateText.size() < before + 2) return std::string(dateText);
  std::string out(dateText);
  out.replace(before, 2, "xx");
  return out;
}

}  // namespace tidewarden
