// A second, slow and literal reading of event lines, to hold the parser against.
//
// It works on a list of characters, one rule after the other in the order of the file format, and
// shares nothing with the parser but the division of text into characters and their case mapping.
#pragma once

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "dates/text.h"

namespace tidewarden::model {

using Characters = std::u32string;

struct Event {
  Characters date;
  Characters dateAsStored;
  Characters title;
  int advance = 0;
  Characters occurs;
  bool hidden = false;
};

inline Characters CharactersOf(std::string_view text) {
  Characters out;
  while (!text.empty()) out.push_back(TakeCharacter(text));
  return out;
}

inline Characters Lowered(const Characters& text) {
  Characters out;
  for (const char32_t c : text) out.push_back(c < 0x110000 ? ToLower(c) : c);
  return out;
}

inline Characters First(const Characters& text, std::size_t count) {
  return text.substr(0, std::min(count, text.size()));
}

inline Characters Last(const Characters& text, std::size_t count) {
  return text.size() <= count ? text : text.substr(text.size() - count);
}

inline bool IsNumeric(const Characters& text) {
  return !text.empty() &&
         std::all_of(text.begin(), text.end(), [](char32_t c) { return c >= U'0' && c <= U'9'; });
}

// Blanks and tabs, a sign, digits with at most one point; the rest is not looked at.
inline double Value(const Characters& text) {
  std::string number;
  std::size_t i = 0;
  while (i < text.size() && (text[i] == U' ' || text[i] == U'\t')) ++i;
  const bool negative = i < text.size() && text[i] == U'-';
  if (i < text.size() && (text[i] == U'-' || text[i] == U'+')) ++i;
  for (; i < text.size(); ++i) {
    const bool point = text[i] == U'.' && number.find('.') == std::string::npos;
    if (!point && (text[i] < U'0' || text[i] > U'9')) break;
    number.push_back(static_cast<char>(text[i]));
  }
  number.insert(0, 1, '0');
  double value = 0;
  const auto read = std::from_chars(number.data(), number.data() + number.size(), value,
                                    std::chars_format::fixed);
  if (read.ec == std::errc::result_out_of_range)
    value = number.find_first_of("123456789") < number.find('.') ? 1e300 : 0;
  return negative ? -value : value;
}

inline bool IsFeast(const Characters& date) {
  static const std::vector<Characters> codes{U"_estr", U"_ashw", U"_mthr", U"_palm", U"_good",
                                             U"_ascn", U"_pent", U"_crpc", U"_rosh", U"_yomk",
                                             U"_sukk", U"_shem", U"_simh", U"_hanu", U"_puri",
                                             U"_pass", U"_shav", U"_vict", U"eastr"};
  const Characters field = Lowered(date);
  if (std::find(codes.begin(), codes.end(), field) != codes.end()) return true;
  if (field.size() < 2 || field[0] != U'e' || (field[1] != U'-' && field[1] != U'+')) return false;
  const double days = Value(Last(field, 3));
  return days > 0 && days < 366;
}

inline bool IsHalf(const Characters& half, int highest) {
  if (half == U"xx") return true;
  const double value = Value(half);
  return value >= 1 && value <= highest;
}

inline bool IsOccurs(const Characters& occurs, int currentYear) {
  if (occurs == U"quarter" || occurs == U"yearly" || occurs == U"monthly") return true;
  const char32_t third = occurs.size() > 2 ? occurs[2] : U'\0';
  const Characters tail = Last(occurs, 4);
  if (third == U'~') return IsNumeric(First(occurs, 2)) && IsNumeric(tail);
  if (third == U'-') {
    if (!IsNumeric(tail)) return false;
    if (First(occurs, 3) == U"dp-") return Value(tail) >= 0 && Value(tail) <= currentYear;
    if (First(occurs, 3) == U"df-") return Value(tail) >= 0;
    return IsNumeric(First(occurs, 2));
  }
  const Characters head = First(occurs, 4);
  if (head == U"one2" || head == U"tdo2") return Value(tail) >= 2000;
  if (head == U"1st " || head == U"2nd " || head == U"3rd " || head == U"4th " || head == U"las ") {
    const Characters day = Last(occurs, 3);
    if (day == U"sun" || day == U"mon" || day == U"tue" || day == U"wed" || day == U"thu" ||
        day == U"fri" || day == U"sat") {
      return true;
    }
  }
  return occurs == U"las day";
}

inline std::optional<Event> Parse(std::string_view line, int currentYear, bool dayFirst) {
  Event event;
  Characters text = CharactersOf(line);
  if (!text.empty() && text.back() == U'*') {
    event.hidden = true;
    text.pop_back();
  }
  std::vector<Characters> fields(1);
  for (const char32_t c : text) {
    if (c == U',') {
      fields.emplace_back();
    } else {
      fields.back().push_back(c);
    }
  }
  if (fields.size() != 4) return std::nullopt;
  const Characters& date = fields[0];
  if (date.size() != 5) return std::nullopt;
  const bool feast = IsFeast(date);
  if (!feast && (!IsHalf(First(date, 2), 12) || !IsHalf(Last(date, 2), 31))) return std::nullopt;
  event.dateAsStored = date;
  event.date = !feast && dayFirst ? Last(date, 2) + U"." + First(date, 2) : date;
  event.title = fields[1];
  Characters occurs = fields[3];
  while (!occurs.empty() && occurs.front() == U' ') occurs.erase(0, 1);
  while (!occurs.empty() && occurs.back() == U' ') occurs.pop_back();
  event.occurs = Lowered(occurs);
  if (!IsOccurs(event.occurs, currentYear)) return std::nullopt;
  const Characters kind = First(event.occurs, 3);
  if (kind == U"dp-" || kind == U"df-") return event;
  const double days = Value(fields[2]);
  if (days < 0 || days > 365) return std::nullopt;
  event.advance = static_cast<int>(std::nearbyint(days));
  return event;
}

}  // namespace tidewarden::model
