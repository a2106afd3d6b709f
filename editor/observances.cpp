#include "editor/observances.h"

#include <array>

#include "dates/text.h"
#include "editor/event_rows.h"

namespace tidewarden {
namespace {

constexpr std::array<std::string_view, kObservances> kEntries = {
    "01.01,New Year's Day,yearly",
    "01.25,Robbie Burns' Night,yearly",
    "01.26,<1788> Australia Day,yearly",
    "01.xx,Martin Luther King Day,3rd Mon",
    "02.02,Groundhog Day,yearly",
    "02.14,Valentine's Day,yearly",
    "02.xx,Washington's Birthday (Holiday),3rd Mon",
    "03.17,St. Patrick's Day,yearly",
    "04.01,April Fools' Day,yearly",
    "04.15,Tax Day (US),yearly",
    "04.22,Earth Day,yearly",
    "04.23,St. Georges' Day,yearly",
    "04.25,ANZAC Day,yearly",
    "05.01,May Day,yearly",
    "05.05,Cinco de Mayo,yearly",
    "05.xx,Armed Forces Day,3rd Sat",
    "05.xx,May Day Bank Holiday,1st Mon",
    "05.xx,Memorial Day,Las Mon",
    "05.xx,Mother's Day,2nd Sun",
    "05.xx,Spring Bank Holiday,Las Mon",
    "06.14,Flag Day,yearly",
    "06.xx,Father's Day,3rd Sun",
    "07.01,<1867> Canada Day,yearly",
    "07.04,USA's <1776> Independence Day,yearly",
    "07.15,St. Swithun's Day,yearly",
    "08.xx,Summer Bank Holiday (Scot & Ire),1st Mon",
    "08.xx,Summer Bank Holiday (Eng & NI),Las Mon",
    "09.xx,Labor Day,1st Mon",
    "10.31,Halloween,yearly",
    "10.xx,Columbus Day,2nd Mon",
    "10.xx,Thanksgiving Day (Canada),2nd Mon",
    "11.05,Guy Fawkes' Night,yearly",
    "11.11,Remembrance Day,yearly",
    "11.11,Veterans Day,yearly",
    "11.30,St. Andrews' Day,yearly",
    "11.xx,Thanksgiving Day (US),4th Thu",
    "12.25,Christmas Day,yearly",
    "12.26,Boxing Day,yearly",
    "12.26,Kwanzaa Begins,yearly",
    "12.31,New Year's Eve,yearly",
    "_estr,Easter Sunday,yearly",
    "_ashw,Ash Wednesday,yearly",
    "_mthr,Mothering Sunday,yearly",
    "_palm,Palm Sunday,yearly",
    "_good,Good Friday,yearly",
    "_ascn,Ascension,yearly",
    "_pent,Pentecost Sunday,yearly",
    "_crpc,Corpus Christi,yearly",
    "_rosh,Rosh Hashanah,yearly",
    "_yomk,Yom Kippur,yearly",
    "_sukk,Sukkot,yearly",
    "_shem,Shemini Atzeret,yearly",
    "_simh,Simhat Torah,yearly",
    "_hanu,Hanukkah,yearly",
    "_puri,Purim,yearly",
    "_pass,Passover,yearly",
    "_shav,Shavuot,yearly",
    "_vict,Victoria Day,yearly",
};

}  // namespace

std::vector<std::string> PopularObservances(const RegionalDateFormat& format) {
  std::vector<std::string> entries;
  entries.reserve(kEntries.size());
  for (const std::string_view entry : kEntries) {
    std::string shown = SwapForRow(FirstCharacters(entry, kDateLength), format);
    entries.push_back(shown.append(WithoutFirstCharacters(entry, kDateLength)));
  }
  return entries;
}

Observance ReadObservance(std::string_view entry) {
  const std::size_t first = entry.find(',');
  const std::size_t second = entry.find(',', first + 1);
  std::string_view title = entry.substr(first + 1, second - first - 1);
  title = title.substr(0, title.find(" ("));
  return {std::string(entry.substr(0, first)), std::string(title),
          std::string(entry.substr(second + 1))};
}

}  // namespace tidewarden
