#include "tests/dates/rules_on_texts.h"

#include <cstdlib>

#include "tests/dates/data_rows.h"
#include "tests/dates/naive_feasts.h"

namespace tidewarden::test {
namespace {

constexpr int kNoDate = -1;

// Characters of a text counted from 1, as the rules count them.
std::string Middle(const std::string& text, int from, int length) {
  const auto start = static_cast<std::size_t>(from - 1);
  return start >= text.size() ? std::string()
                              : text.substr(start, static_cast<std::size_t>(length));
}

std::string Last(const std::string& text, std::size_t length) {
  return text.size() <= length ? text : text.substr(text.size() - length);
}

std::string ReplaceAll(std::string text, const std::string& what, const std::string& by) {
  for (std::size_t at = text.find(what); at != std::string::npos;
       at = text.find(what, at + by.size())) {
    text.replace(at, what.size(), by);
  }
  return text;
}

int Number(const std::string& digits) {
  return std::atoi(digits.c_str());
}

std::string TwoDigits(int number) {
  return Padded(number, 2);
}

std::string FourDigits(int number) {
  return Padded(number, 4);
}

bool OnlyDigits(const std::string& text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

const NaiveCalendar& Pages() {
  return NaiveCalendar::Pages();
}

// 1 for "sun" to 7 for "sat", 0 for anything that is no weekday's name.
int WeekdayOf(const std::string& occurs) {
  const std::string names = "sunmontuewedthufrisat";
  const std::string name = Last(occurs, 3);
  const std::size_t at = names.find(name);
  if (name.size() != 3 || at == std::string::npos || at % 3 != 0) return 0;
  return (static_cast<int>(at) + 1 + 2) / 3;
}

int OrdinalOf(const std::string& occurs) {
  return occurs == "las day" ? -1 : Number(occurs.substr(0, 1));
}

bool BeginsWith(const std::string& text, const std::string& head) {
  return text.compare(0, head.size(), head) == 0;
}

bool HasOwnYear(const std::string& occurs) {
  return BeginsWith(occurs, "one") || BeginsWith(occurs, "tdo") || Middle(occurs, 3, 1) == "-" ||
         Middle(occurs, 3, 1) == "~";
}

}  // namespace

struct RulesOnTexts::Event {
  std::string stored;
  std::string base;  // the full date text, "xx" and codes included
  std::string occurs;
  NaiveDay today;
};

std::string RulesOnTexts::BuildDateText(const std::string& field, const std::string& year) const {
  const std::string text = layout_.yearPosition == 1 ? year + "." + field : field + "." + year;
  return ReplaceAll(text, ".", layout_.separator);
}

std::string RulesOnTexts::MaskMonth(const std::string& text) const {
  return Middle(text, 1, layout_.monthPosition - 1) + "xx" +
         Middle(text, layout_.monthPosition + 2, 100);
}

std::string RulesOnTexts::Loose(int year, int month, int day) const {
  const std::string& s = layout_.separator;
  const std::string y = FourDigits(year);
  const std::string m = std::to_string(month);
  const std::string d = std::to_string(day);
  if (layout_.yearPosition == 1) return y + s + m + s + d;
  return layout_.monthPosition == 1 ? m + s + d + s + y : d + s + m + s + y;
}

std::string RulesOnTexts::Format(const NaiveDay& day) const {
  const std::string& s = layout_.separator;
  const std::string y = FourDigits(day.year);
  const std::string m = TwoDigits(day.month);
  const std::string d = TwoDigits(day.day);
  if (layout_.yearPosition == 1) return y + s + m + s + d;
  return layout_.monthPosition == 1 ? m + s + d + s + y : d + s + m + s + y;
}

std::string RulesOnTexts::FormatIndex(int index) const {
  return index == kNoDate ? std::string() : Format(Pages().At(index));
}

int RulesOnTexts::Read(const std::string& text) const {
  const std::size_t first = text.find(layout_.separator);
  if (first == std::string::npos) return kNoDate;
  const std::size_t second = text.find(layout_.separator, first + 1);
  if (second == std::string::npos) return kNoDate;
  const std::string parts[3] = {text.substr(0, first), text.substr(first + 1, second - first - 1),
                                text.substr(second + 1)};
  for (const std::string& part : parts) {
    if (!OnlyDigits(part) || part.size() > 4) return kNoDate;
  }
  const bool yearFirst = layout_.yearPosition == 1;
  const std::string& year = yearFirst ? parts[0] : parts[2];
  const std::string& month = yearFirst || layout_.monthPosition == 4 ? parts[1] : parts[0];
  const std::string& day = yearFirst ? parts[2] : layout_.monthPosition == 1 ? parts[1] : parts[0];
  if (year.size() != 4 || month.size() > 2 || day.size() > 2) return kNoDate;
  return Pages().IndexOf(Number(year), Number(month), Number(day));
}

int RulesOnTexts::Days(const std::string& text, const NaiveDay& today) const {
  return Read(text) - Pages().IndexOf(today.year, today.month, today.day);
}

std::string RulesOnTexts::NthWeekdayDate(int month, int year, int weekday, int ordinal) const {
  if (ordinal != -1 && weekday == 0) return {};
  if (ordinal > 0) {
    int count = 0;
    for (int day = 1; day <= 31; ++day) {
      const int index = Read(Loose(year, month, day));
      if (index == kNoDate || Pages().At(index).weekday != weekday) continue;
      if (++count == ordinal) return FormatIndex(index);
    }
    return {};
  }
  for (int day = 31; day >= 1; --day) {
    const int index = Read(Loose(year, month, day));
    if (index == kNoDate) continue;
    if (ordinal == -1 || Pages().At(index).weekday == weekday) return FormatIndex(index);
  }
  return {};
}

std::string RulesOnTexts::NextNthWeekdayYearly(const Event& event) const {
  const int month = Number(event.stored.substr(0, 2));
  const int weekday = WeekdayOf(event.occurs);
  const int ordinal = OrdinalOf(event.occurs);
  int year = event.today.year;
  std::string date = NthWeekdayDate(month, year, weekday, ordinal);
  if (!date.empty() && Days(date, event.today) < 0) {
    ++year;
    date = NthWeekdayDate(month, year, weekday, ordinal);
  }
  return date;
}

std::string RulesOnTexts::NextNthWeekdayMonthly(const Event& event) const {
  const int weekday = WeekdayOf(event.occurs);
  const int ordinal = OrdinalOf(event.occurs);
  int month = event.today.month;
  int year = event.today.year;
  std::string date = NthWeekdayDate(month, year, weekday, ordinal);
  if (!date.empty() && Days(date, event.today) < 0) {
    ++month;
    if (month == 13) {
      month = 1;
      ++year;
    }
    date = NthWeekdayDate(month, year, weekday, ordinal);
  }
  return date;
}

std::string RulesOnTexts::NextMonthlyDate(const Event& event) const {
  const std::string digits = Middle(event.base, layout_.dayPosition, 2);
  const int day = Number(digits);
  int month = event.today.month;
  if (day < event.today.day) ++month;
  if (month == 13) month = 1;
  std::string text = ReplaceAll(event.base, "xx", TwoDigits(month));
  if (Read(text) != kNoDate || day < 28 || day > 31) return text;
  std::string marked = text;
  marked.insert(static_cast<std::size_t>(layout_.dayPosition + 1), "^");
  for (int attempt = day; attempt >= 28; --attempt) {
    text = ReplaceAll(marked, digits + "^", TwoDigits(attempt));
    if (Read(text) != kNoDate) break;
  }
  return text;
}

std::string RulesOnTexts::NextQuarterDate(const Event& event) const {
  const int m = Number(Middle(event.base, layout_.monthPosition, 2));
  const std::string pattern = MaskMonth(event.base);
  std::string candidates[5];
  for (int i = 0; i < 4; ++i) {
    const int month = (i * 3 + m) % 12;
    candidates[i] = ReplaceAll(pattern, "xx", TwoDigits(month == 0 ? 12 : month));
  }
  candidates[4] = ReplaceAll(pattern, "xx", TwoDigits(m % 3 == 0 ? 3 : m % 3));
  candidates[4] =
      ReplaceAll(candidates[4], FourDigits(event.today.year), FourDigits(event.today.year + 1));
  std::string chosen = candidates[0];
  int fewest = 365;
  for (const std::string& candidate : candidates) {
    if (Read(candidate) == kNoDate) continue;
    const int days = Days(candidate, event.today);
    if (days >= 0 && days < fewest) {
      fewest = days;
      chosen = candidate;
    }
  }
  return chosen;
}

std::string RulesOnTexts::NextEveryNDays(const Event& event) const {
  int n = Number(event.occurs.substr(0, 2));
  if (Middle(event.occurs, 3, 1) == "~") n += 100;
  if (Read(event.base) == kNoDate || n == 0 || Days(event.base, event.today) >= 0) {
    return event.base;
  }
  const int today = Pages().IndexOf(event.today.year, event.today.month, event.today.day);
  const int d = today - Read(event.base);
  const int k = n - (d + n) % n;
  return FormatIndex(k == n ? today : today + k);
}

std::string RulesOnTexts::Feast(const Event& event) const {
  const std::string& code = event.stored;
  const auto inYear = [&](int year) {
    if (code == "_vict") {
      for (int day = 24; day >= 18; --day) {
        const int index = Pages().IndexOf(year, 5, day);
        if (Pages().At(index).weekday == 2) return index;
      }
    }
    const MonthAndDay easter = NaiveEaster(year);
    const int sunday = Pages().IndexOf(year, easter.month, easter.day);
    if (code == "_estr" || code == "eastr") return sunday;
    if (code[0] == 'e') return sunday + Number(code.substr(2)) * (code[1] == '-' ? -1 : 1);
    if (code == "_ashw") return sunday - 46;
    if (code == "_mthr") return sunday - 21;
    if (code == "_palm") return sunday - 7;
    if (code == "_good") return sunday - 2;
    if (code == "_ascn") return sunday + 39;
    if (code == "_pent") return sunday + 49;
    if (code == "_crpc") return sunday + 60;
    return NaiveHebrewFeastIndex(code, year);
  };
  const std::string text = FormatIndex(inYear(event.today.year));
  return Days(text, event.today) < 0 ? FormatIndex(inYear(event.today.year + 1)) : text;
}

std::string RulesOnTexts::ByRule(const Event& event) const {
  const bool anyMonth = Middle(event.base, layout_.monthPosition, 2) == "xx";
  const bool anyDay = Middle(event.base, layout_.dayPosition, 2) == "xx";
  const std::string third = Middle(event.occurs, 3, 1);
  if (event.occurs == "quarter") return NextQuarterDate(event);
  if (anyMonth && anyDay) return NextNthWeekdayMonthly(event);
  if (anyMonth) return NextMonthlyDate(event);
  if (anyDay) return NextNthWeekdayYearly(event);
  if (event.stored[0] == '_' || event.stored[0] == 'e') return Feast(event);
  if (third == "-" || third == "~") return NextEveryNDays(event);
  return event.base;
}

std::string RulesOnTexts::NextOccurrence(const std::string& stored, const std::string& occurs,
                                         const NaiveDay& today) const {
  const bool code = stored[0] == '_' || stored[0] == 'e';
  const bool dayFirst = layout_.monthPosition == 4;
  const std::string field =
      dayFirst && !code ? stored.substr(3) + "." + stored.substr(0, 2) : stored;
  const std::string year = HasOwnYear(occurs) ? Last(occurs, 4) : FourDigits(today.year);
  const Event event{stored, BuildDateText(field, year), occurs, today};
  if (BeginsWith(occurs, "dp-") || BeginsWith(occurs, "df-")) {
    return Read(event.base) == kNoDate ? std::string() : event.base;
  }
  std::string date = ByRule(event);
  if (Read(date) == kNoDate) return {};
  if (Days(date, today) >= 0 || BeginsWith(occurs, "one") || BeginsWith(occurs, "tdo")) return date;
  date = ReplaceAll(date, FourDigits(today.year), FourDigits(today.year + 1));
  return Read(date) == kNoDate ? std::string() : date;
}

}  // namespace tidewarden::test
