#include "tests/editor/expected_line.h"

#include <algorithm>
#include <cctype>
#include <chrono>
#include <cstdio>
#include <vector>

#include "dates/feasts.h"
#include "dates/text.h"
#include "editor/occurrence_codes.h"

namespace tidewarden::test {
namespace {

std::string WithDigits(int value, int width) {
  char text[16];
  std::snprintf(text, sizeof text, "%0*d", width, value);
  return text;
}

bool IsPlain(const std::string& text) {
  return !text.empty() && text.size() < 5 &&
         std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

std::string WithoutBlanksAtTheEnds(std::string text) {
  text.erase(0, std::min(text.find_first_not_of(' '), text.size()));
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}

std::string Title(const EntryRow& entry) {
  std::string title = entry.txtEventInput.text;
  title.erase(std::remove(title.begin(), title.end(), ','), title.end());
  return WithoutBlanksAtTheEnds(title);
}

// The parts of a date; empty when one of them is no plain number.
std::vector<int> PartsOf(const std::string& date) {
  std::vector<int> parts;
  std::string part;
  for (const char c : date + ".") {
    if (c != '.' && c != '-' && c != '/') {
      part += c;
      continue;
    }
    if (!IsPlain(part)) return {};
    parts.push_back(std::stoi(part));
    part.clear();
  }
  return parts;
}

struct Date {
  std::string stored;
  int year = 0;  // that a code needs
};

// The first year from the current one in which a day exists and is not over.
int NextYear(int month, int day, CivilDate today) {
  using namespace std::chrono;
  for (year y = today.year();; ++y) {
    const year_month_day date{y, std::chrono::month(static_cast<unsigned>(month)),
                              std::chrono::day(static_cast<unsigned>(day))};
    if (date.ok() && sys_days(date) >= sys_days(today)) return static_cast<int>(y);
  }
}

std::optional<Date> DateOf(const EntryRow& entry, const RegionalDateFormat& format,
                           CivilDate today) {
  const int kind = entry.cmbOccursInput.index;
  const std::string& typed = entry.txtDateInput.text;
  if (kind == kMonthlyKind) {
    return Date{"xx." + WithDigits(static_cast<int>(NumberIn(typed.substr(0, 2))), 2)};
  }
  if (kind >= kFirstWeekdayKind) {
    const bool every =
        entry.chkEveryMonth.checked ||
        (typed.size() >= 2 && std::tolower(typed[0]) == 'x' && std::tolower(typed[1]) == 'x');
    if (every) return Date{"xx.xx"};
    return Date{WithDigits(static_cast<int>(NumberIn(typed.substr(0, 2))), 2) + ".xx"};
  }
  const int thisYear = static_cast<int>(today.year());
  if (CountCharacters(typed) == 5 && typed.find(',') == std::string::npos && IsFeastCode(typed)) {
    const auto feast = FeastDate(ReadFeast(typed), thisYear);
    return Date{typed, feast && *feast < today ? thisYear + 1 : thisYear};
  }
  std::vector<int> parts = PartsOf(typed);
  const bool counts = kind == kDaysPastKind || kind == kDaysFutureKind;
  if (parts.size() != (counts ? 3 : 2)) return std::nullopt;
  Date date;
  if (counts) {
    const bool yearFirst = format.IsYearFirst();
    date.year = yearFirst ? parts[0] : parts[2];
    const std::size_t digits =
        yearFirst ? typed.find_first_of("./-") : typed.size() - typed.find_last_of("./-") - 1;
    if (digits < 3) date.year += date.year < 30 ? 2000 : 1900;
    if (yearFirst) parts = {parts[1], parts[2]};
  }
  const bool monthIsFirst = format.IsMonthFirst() || (counts && format.IsYearFirst());
  const int month = monthIsFirst ? parts[0] : parts[1];
  const int day = monthIsFirst ? parts[1] : parts[0];
  if (!counts) date.year = NextYear(month, day, today);
  date.stored = WithDigits(month, 2) + "." + WithDigits(day, 2);
  return date;
}

std::string Code(const EntryRow& entry, int year) {
  const int kind = entry.cmbOccursInput.index;
  const std::string four = WithDigits(year, 4);
  if (kind == kOneTimeKind) return "one" + four;
  if (kind == kTilDoneKind) return "tdo" + four;
  if (kind == kDaysPastKind) return "dp-" + four;
  if (kind == kDaysFutureKind) return "df-" + four;
  if (kind == kEveryKind) {
    const int days = static_cast<int>(NumberIn(entry.txtEveryInput.text));
    return WithDigits(days % 100, 2) + (days >= 100 ? "~" : "-") + four;
  }
  const std::vector<std::string> plain{"yearly", "quarter", "monthly"};
  if (kind < static_cast<int>(plain.size())) return plain[static_cast<std::size_t>(kind)];
  if (kind == kOccurrenceKinds - 1) return "las day";
  const std::vector<std::string> ordinals{"1st ", "2nd ", "3rd ", "4th ", "las "};
  const std::vector<std::string> days{"sun", "mon", "tue", "wed", "thu", "fri", "sat"};
  const auto place = static_cast<std::size_t>(kind - kFirstWeekdayKind);
  return ordinals.at(place / 7) + days.at(place % 7);
}

}  // namespace

double NumberIn(const std::string& text) {
  std::size_t at = std::min(text.find_first_not_of(' '), text.size());
  std::string number;
  if (at < text.size() && (text[at] == '-' || text[at] == '+')) number += text[at++];
  const auto digits = [&] {
    std::size_t count = 0;
    for (; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++count) number += text[at++];
    return count;
  };
  if (digits() == 0) return 0;
  if (at < text.size() && text[at] == '.') {
    number += text[at++];
    digits();
  }
  return std::stod(number);
}

std::optional<std::string> ExpectedLine(const EntryRow& entry, const RegionalDateFormat& format,
                                        CivilDate today) {
  const auto date = DateOf(entry, format, today);
  if (!date) return std::nullopt;
  const int kind = entry.cmbOccursInput.index;
  const bool counts = kind == kDaysPastKind || kind == kDaysFutureKind;
  const int advance = counts ? 0 : static_cast<int>(NumberIn(entry.txtAdvanceInput.text));
  return date->stored + "," + Title(entry) + "," + std::to_string(advance) + "," +
         Code(entry, date->year);
}

}  // namespace tidewarden::test
