#include <nlohmann/json.hpp>

#include "cli/commands.h"
#include "core/event_line.h"
#include "dates/event_date_rules.h"
#include "dates/regional_text.h"
#include "dates/text.h"

namespace tidewarden::cli {
namespace {

// The dates from `today` on, `count` at most. A yearly 29 February skips the common years.
std::vector<CivilDate> NextDates(const EventRecord& event, CivilDate today, int count) {
  std::vector<CivilDate> dates;
  if (HasOneDate(event.dateField, event.occurs)) {
    const auto date = NextOccurrence(event.dateField, event.occurs, today);
    if (date && (*date >= today || event.occurs.kind != OccursKind::kOneTime)) {
      dates.push_back(*date);
    }
    return dates;
  }
  constexpr int kYearsWithout = 9;
  CivilDate from = today;
  int lastYear = YearOf(today) + kYearsWithout;
  while (static_cast<int>(dates.size()) < count && YearOf(from) <= lastYear &&
         YearOf(from) < kLastYear) {
    const auto date = NextOccurrence(event.dateField, event.occurs, from);
    if (date && *date >= from) {
      dates.push_back(*date);
      from = AddDays(*date, 1);
      lastYear = YearOf(from) + kYearsWithout;
    } else {
      from = MakeDate(YearOf(from) + 1, 1, 1);
    }
  }
  return dates;
}

std::string Distance(int days) {
  std::string text;
  if (days == 0) return "today";
  AppendNumber(text, days < 0 ? -days : days);
  text += days == 1 || days == -1 ? " day" : " days";
  if (days < 0) text += " ago";
  return text;
}

}  // namespace

ExitCode RunNext(const CommonOptions& options, const std::string& line, int count) {
  World world;
  if (const auto code = Open(options, world)) return *code;
  Rejection rejection;
  const CivilDate today = world.now.date;
  const auto event = ParseEventLine(line, world.format, YearOf(today), &rejection);
  if (!event) {
    Complain("this is not an event line: " + std::string(DescribeRejection(rejection.reason)) +
             " (column " + std::to_string(rejection.column) + "; " +
             std::string(RejectionHint(rejection.reason)) + ")");
    return kUsage;
  }
  const std::vector<CivilDate> dates = NextDates(*event, today, count);
  std::string text;
  nlohmann::ordered_json items = nlohmann::ordered_json::array();
  for (const CivilDate date : dates) {
    const std::string weekday =
        world.format.WeekdayNames[static_cast<std::size_t>(WeekdayNumber(date))];
    const int days = DaysBetween(today, date);
    // A layout with a two-digit year shows two digits, as the list does.
    const std::string shown =
        FormatDate(date, world.format).substr(world.format.TwoDigitYear ? 2 : 0);
    text.append(shown).append(" (").append(weekday).append(", ");
    text.append(Distance(days)).append(")\n");
    items.push_back(
        {{"date", IsoDate(date)}, {"text", shown}, {"weekday", weekday}, {"days", days}});
  }
  if (dates.empty()) Complain("this event has no date from today on");
  const std::string json = items.dump(2, ' ', false, nlohmann::json::error_handler_t::replace);
  return Print(options.json ? json + "\n" : text, dates.empty() ? kFindings : kDone);
}

}  // namespace tidewarden::cli
