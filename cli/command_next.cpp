#include <algorithm>
#include <nlohmann/json.hpp>

#include "cli/commands.h"
#include "core/event_line.h"
#include "dates/event_date_rules.h"
#include "dates/regional_text.h"
#include "dates/text.h"

namespace tidewarden::cli {
namespace {

// A yearly 29 February stays away for up to eight years.
constexpr int kYearsWithout = 9;

// The first date from `from` on. A rule looks ahead from the day that it is asked on, and some
// dates of a year it finds only from New Year on.
std::optional<CivilDate> FirstDate(const EventRecord& event, CivilDate from) {
  auto first = NextOccurrence(event.dateField, event.occurs, from);
  if (first && *first < from) first.reset();
  const int lastYear =
      std::min(YearOf(first.value_or(AddDays(from, kYearsWithout * 366))), kLastYear - 1);
  for (int year = YearOf(from) + 1; year <= lastYear; ++year) {
    const CivilDate newYear = MakeDate(year, 1, 1);
    const auto date = NextOccurrence(event.dateField, event.occurs, newYear);
    if (date && *date >= newYear && (!first || *date < *first)) return date;
  }
  return first;
}

// The dates from `today` on, `count` at most.
std::vector<CivilDate> NextDates(const EventRecord& event, CivilDate today, int count) {
  std::vector<CivilDate> dates;
  if (HasOneDate(event.dateField, event.occurs)) {
    const auto date = NextOccurrence(event.dateField, event.occurs, today);
    if (date && (*date >= today || event.occurs.kind != OccursKind::kOneTime)) {
      dates.push_back(*date);
    }
    return dates;
  }
  CivilDate from = today;
  while (static_cast<int>(dates.size()) < count && YearOf(from) < kLastYear) {
    const CivilDate last = dates.empty() ? today : dates.back();
    const auto date = FirstDate(event, from);
    if (!date || YearOf(*date) > YearOf(last) + kYearsWithout) break;
    // A date that its own day does not give is none: a far feast may slip into another year.
    if (NextOccurrence(event.dateField, event.occurs, *date) == *date) dates.push_back(*date);
    from = AddDays(*date, 1);
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
