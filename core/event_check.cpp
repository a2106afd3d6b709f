#include "core/event_check.h"

#include <optional>
#include <unordered_map>
#include <utility>

#include "core/event_line.h"
#include "core/events_file.h"
#include "dates/event_date_rules.h"
#include "dates/text.h"

namespace tidewarden {
namespace {

// Whatever rule an event follows, it has shown its longest and shortest gaps after so many
// occurrences or, for 29 February, so many years.
constexpr int kOccurrencesToTry = 60;
constexpr int kYearsToTry = 9;

// A date, and the first day from which the rules give it: some events have no date at all for
// years.
struct FoundDate {
  CivilDate from;
  CivilDate date;
};

// True when a date that has passed is still the event's.
bool StaysWhenPassed(const EventRecord& event) {
  return event.occurs.IsCounter() || (!IsMovedOn(event.occurs) && !event.dateField.isFeast);
}

std::optional<FoundDate> FirstDate(const EventRecord& event, CivilDate today) {
  for (int year = 0; year <= kYearsToTry; ++year) {
    const int tried = YearOf(today) + year;
    if (tried >= kLastYear) break;
    const CivilDate from = year == 0 ? today : MakeDate(tried, 1, 1);
    const auto date = NextOccurrence(event.dateField, event.occurs, from);
    if (date && (*date >= from || StaysWhenPassed(event))) return FoundDate{from, *date};
  }
  return std::nullopt;
}

// True when some day to come finds the event further away than its notice, which is when a
// hidden event is shown again.
bool IsEverUnhidden(const EventRecord& event, CivilDate today) {
  CivilDate from = today;
  for (int i = 0; i < kOccurrencesToTry && YearOf(from) < kLastYear; ++i) {
    const auto found = FirstDate(event, from);
    if (!found || found->date < from) return false;
    if (DaysBetween(found->from, found->date) > event.EventAdvance) return true;
    if (HasOneDate(event.dateField, event.occurs)) return false;
    from = AddDays(found->date, 1);
  }
  return false;
}

class Checker : public EventLineVisitor {
 public:
  Checker(const RegionalDateFormat& format, CivilDate today) : format_(format), today_(today) {}

  void Start() override {
    findings_.clear();
    seen_.clear();
  }

  void Visit(long index, std::string_view rawLine, std::string_view line) override {
    const auto number = static_cast<std::size_t>(index) + 1;
    Rejection rejection;
    const auto event = ParseEventLine(line, format_, YearOf(today_), &rejection);
    if (!event) {
      if (line.find_first_not_of(" \t") == std::string_view::npos) return;
      Add(FindingKind::kRejected, number, rejection.column,
          std::string(DescribeRejection(rejection.reason)),
          std::string(RejectionHint(rejection.reason)));
      return;
    }
    LookForDuplicate(*event, number);
    LookAtDates(*event, rawLine, number);
  }

  std::vector<Finding> TakeFindings() { return std::move(findings_); }

 private:
  void Add(FindingKind kind, std::size_t line, std::size_t column, std::string reason,
           std::string hint) {
    findings_.push_back({kind, line, column, std::move(reason), std::move(hint)});
  }

  void LookAtDates(const EventRecord& event, std::string_view rawLine, std::size_t number) {
    const OccursKind kind = event.occurs.kind;
    const auto found = FirstDate(event, today_);
    if (!found) {
      Add(FindingKind::kNeverComes, number, 1, "this event never comes",
          "its date does not exist, or does not fit the way it repeats");
    } else if (kind == OccursKind::kOneTime && found->date < today_) {
      Add(FindingKind::kPastOneTime, number, 1, "this one-time event is over",
          IsOverOneTimeLine(rawLine, today_)
              ? "it is removed when the reminder list is next shown"
              : "it is not shown any more but stays in the file; delete the line");
    } else if (event.EventHidden && !event.occurs.IsCounter() && kind != OccursKind::kTilDone &&
               !IsEverUnhidden(event, today_)) {
      Add(FindingKind::kNeverUnhidden, number, 1, "this event is hidden and will not come back",
          "its notice is as long as the time between two dates; shorten it or remove the *");
    }
  }

  // The date as it is meant: whatever stands between month and day is the same to every reader.
  static std::string DateKey(const EventRecord& event) {
    const DateField& field = event.dateField;
    if (field.isFeast || field.month == DateField::kNotADate || field.day == DateField::kNotADate) {
      return ToLower(event.EventDateAsStored);
    }
    std::string key;
    AppendNumber(key, field.month);
    key += '.';
    AppendNumber(key, field.day);
    return key;
  }

  void LookForDuplicate(const EventRecord& event, std::size_t number) {
    std::string key = DateKey(event);
    key.append(",").append(ToLower(Trim(event.EventTitle))).append(",").append(event.EventOccurs);
    const auto [earlier, isNew] = seen_.emplace(std::move(key), number);
    if (isNew) return;
    std::string reason = "the same event stands in line ";
    AppendNumber(reason, static_cast<int>(earlier->second));
    Add(FindingKind::kDuplicate, number, 1, std::move(reason), "remove one of the two lines");
  }

  const RegionalDateFormat& format_;
  CivilDate today_;
  std::vector<Finding> findings_;
  std::unordered_map<std::string, std::size_t> seen_;
};

}  // namespace

Status CheckEvents(FileSystem& files, const std::string& path, const RegionalDateFormat& format,
                   CivilDate today, std::vector<Finding>& out) {
  out.clear();
  Checker checker(format, today);
  Status status = ReadEventLines(files, path, checker);
  if (status.ok()) out = checker.TakeFindings();
  return status;
}

std::string_view FindingName(FindingKind kind) {
  switch (kind) {
    case FindingKind::kRejected:
      return "rejected";
    case FindingKind::kPastOneTime:
      return "past-one-time";
    case FindingKind::kDuplicate:
      return "duplicate";
    case FindingKind::kNeverComes:
      return "never-comes";
    case FindingKind::kNeverUnhidden:
      return "never-unhidden";
  }
  return {};
}

}  // namespace tidewarden
