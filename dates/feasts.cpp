#include "dates/feasts.h"

#include <algorithm>
#include <string>

#include "dates/easter.h"
#include "dates/text.h"

namespace tidewarden {
namespace {

constexpr std::string_view kCodes[] = {
    "_estr", "_ashw", "_mthr", "_palm", "_good", "_ascn", "_pent", "_crpc", "_rosh", "_yomk",
    "_sukk", "_shem", "_simh", "_hanu", "_puri", "_pass", "_shav", "_vict", "eastr",
};

}  // namespace

bool IsFeastCode(std::string_view dateField) {
  // Every code begins with one of two characters; most fields are plain dates.
  if (dateField.empty() || (dateField[0] != '_' && ToLowerAscii(dateField[0]) != 'e')) return false;
  const std::string field = ToLower(dateField);
  if (std::find(std::begin(kCodes), std::end(kCodes), field) != std::end(kCodes)) return true;
  if (field.size() < 2 || field[0] != 'e' || (field[1] != '-' && field[1] != '+')) return false;
  const double days = LeadingNumber(LastCharacters(field, 3));
  return days > 0 && days < 366;
}

Feast ReadFeast(std::string_view dateField) {
  Feast feast;
  if (const auto offset = modEaster::EasterOffsetOf(dateField)) {
    feast.family = Feast::Family::kEaster;
    feast.easterOffset = *offset;
  } else if (const auto hebrew = modHebrew::HebrewFeastOf(dateField)) {
    feast.family = Feast::Family::kHebrew;
    feast.hebrew = *hebrew;
  } else if (ToLower(FirstCharacters(dateField, 5)) == "_vict") {
    feast.family = Feast::Family::kVictoria;
  }
  return feast;
}

std::optional<CivilDate> FeastDate(const Feast& feast, int year) {
  if (year < kFirstYear || year > kLastYear) return std::nullopt;
  std::optional<CivilDate> date;
  switch (feast.family) {
    case Feast::Family::kEaster:
      date = modEaster::EasterDate(year, feast.easterOffset);
      break;
    case Feast::Family::kHebrew:
      date = modHebrew::HebrewToGregorian(year + feast.hebrew.yearAddend, feast.hebrew.month,
                                          feast.hebrew.day);
      break;
    case Feast::Family::kVictoria:
      date = VictoriaDay(year);
      break;
    case Feast::Family::kNone:
      break;
  }
  if (date && !IsRealDate(*date)) date.reset();
  return date;
}

CivilDate VictoriaDay(int year) {
  constexpr int kMonday = 2;
  const CivilDate last = MakeDate(year, 5, 24);
  return AddDays(last, -((WeekdayNumber(last) - kMonday + 7) % 7));
}

}  // namespace tidewarden
