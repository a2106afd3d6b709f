#include "reminder/reminder_list.h"

#include <utility>

#include "core/event_line.h"
#include "core/events_file.h"
#include "dates/text.h"
#include "dates/time_of_day.h"
#include "dates/year_marker.h"
#include "reminder/next_dates.h"

namespace tidewarden {
namespace {

// Rows whose date is less than this many days away name their weekday.
constexpr int kWeekdayLimit = 8;

class ListBuilder : public EventLineVisitor {
 public:
  ListBuilder(const RegionalDateFormat& format, const ListOptions& options,
              const std::string& todayPreface, CivilDate today, ReminderList& out)
      : format_(format),
        options_(options),
        todayPreface_(todayPreface),
        today_(today),
        currentYear_(YearOf(today)),
        nextDates_(today),
        out_(out) {}

  void Start() override { out_ = ReminderList(); }

  void Visit(long number, std::string_view rawLine, std::string_view text) override {
    if (!SplitEventLine(text, event_)) return;
    const NextDate& next = nextDates_.Find(event_);
    if (next.state == NextDate::State::kNone) return;
    const Source source{number, rawLine, text};
    if (next.IsCounter()) {
      AddCounter(next, source);
      return;
    }
    if (!ReadAdvance(event_.advance, advance_)) return;
    if (next.days > advance_) {
      if (event_.hidden) out_.hideList.push_back(out_.pool.Keep(rawLine));
    } else if (next.state == NextDate::State::kPassed) {
      AddPassed(next, source);
    } else if (!event_.hidden) {
      if (next.days == 0) {
        AddToday(next, source);
      } else {
        AddUpcoming(next, source);
      }
    }
  }

 private:
  struct Source {
    long line;
    std::string_view rawLine;
    std::string_view text;
  };

  void AddPassed(const NextDate& next, const Source& source) {
    if (next.kind == OccursKind::kTilDone) {
      AddOverdue(next, source);
    } else {
      out_.hasPastOneTime = true;
    }
  }

  // A new row with its title. text_ then holds its date, and Finish completes it.
  ReminderRow& AddRow(RowKind kind, const NextDate& next, const Source& source) {
    ReminderRow& row = out_.rows.emplace_back();
    row.kind = kind;
    row.date = next.date;
    row.daysToGo = next.days;
    row.line = source.line;
    row.rawLine = out_.pool.Keep(source.rawLine);
    row.title = TitleOf(row, next, source);
    row.timeOfDay = ConvertToFourDigitTime(row.title);
    text_.clear();
    AppendDate(text_, row.date, format_);
    if (options_.spellOutMonths) text_ = SpellOutMonth(text_, format_);
    if (format_.TwoDigitYear && CountCharacters(text_) == 10) text_.erase(0, 2);
    row.dateSize = static_cast<std::uint8_t>(text_.size());
    out_.anyEventsInRange = true;
    return row;
  }

  void Finish(ReminderRow& row) { row.text = out_.pool.Keep(text_); }

  // The title with its year marker applied; counters keep theirs. An ordinal counts one more once
  // this year's date has passed.
  std::string_view TitleOf(const ReminderRow& row, const NextDate& next, const Source& source) {
    const bool marked = event_.title.find('<') != std::string_view::npos;
    if (!marked && source.text.data() == source.rawLine.data()) {
      const auto offset = static_cast<std::size_t>(event_.title.data() - source.rawLine.data());
      return row.rawLine.substr(offset, event_.title.size());
    }
    std::string title(event_.title);
    if (row.kind != RowKind::kCounter) {
      const bool passed = next.state != NextDate::State::kComing;
      ApplyYearMarker(title, passed ? -1 : 0, currentYear_);
    }
    return out_.pool.Keep(title);
  }

  void AddCounter(const NextDate& next, const Source& source) {
    ReminderRow& row = AddRow(RowKind::kCounter, next, source);
    text_.append(" ").append(row.title).append(" ");
    text_ += CompareDates(today_, row.date, options_.differences);
    Finish(row);
  }

  void AddUpcoming(const NextDate& next, const Source& source) {
    ReminderRow& row = AddRow(RowKind::kUpcoming, next, source);
    text_.append(" ").append(row.title).append(" (");
    if (next.days < kWeekdayLimit && options_.weekdayOnEvents) {
      text_ += format_.WeekdayNames[static_cast<std::size_t>(WeekdayNumber(row.date))];
      text_ += ", ";
    }
    AppendNumber(text_, next.days);
    text_ += next.days == 1 ? " day" : " days";
    if (options_.showLessThan) {
      text_ += " < ";
      AppendNumber(text_, advance_);
    }
    text_ += ")";
    Finish(row);
  }

  void AddToday(const NextDate& next, const Source& source) {
    ReminderRow& row = AddRow(RowKind::kToday, next, source);
    text_ += todayPreface_;
    if (options_.capitalizeTodaysEvents) {
      text_ += ToUpper(row.title);
    } else {
      text_ += row.title;
    }
    out_.todaysTitles.push_back(row.title);
    Finish(row);
  }

  void AddOverdue(const NextDate& next, const Source& source) {
    ReminderRow& row = AddRow(RowKind::kOverdue, next, source);
    text_.append(" ").append(row.title).append(" (");
    AppendNumber(text_, -next.days);
    text_ += next.days == -1 ? " DAY OVERDUE!!!)" : " DAYS OVERDUE!!!)";
    Finish(row);
  }

  const RegionalDateFormat& format_;
  const ListOptions& options_;
  const std::string& todayPreface_;
  CivilDate today_;
  int currentYear_;
  NextDates nextDates_;
  ReminderList& out_;
  EventLineParts event_;  // of the line that is being visited
  int advance_ = 0;       // of the same line
  std::string text_;      // of the row that is being made
};

}  // namespace

Status ListEvents(FileSystem& files, const std::string& path, const RegionalDateFormat& format,
                  const ListOptions& options, const std::string& todayPreface, CivilDate today,
                  ReminderList& out) {
  ListBuilder builder(format, options, todayPreface, today, out);
  Status status = ReadEventLines(files, path, builder);
  if (!status.ok()) out = ReminderList();
  return status;
}

void AddTodayLine(ReminderList& list, const std::string& todayText,
                  const RegionalDateFormat& format, const ListOptions& options, CivilDate today) {
  std::string text = todayText + "   <" + (options.capitalizeTodaysEvents ? "TODAY" : "Today");
  if (options.weekdayOnTodayLine) {
    text += " is " + format.WeekdayNames[static_cast<std::size_t>(WeekdayNumber(today))];
  }
  text += ">";
  ReminderRow& row = list.rows.emplace_back();
  row.kind = RowKind::kTodayLine;
  row.date = today;
  row.text = list.pool.Keep(text);
}

}  // namespace tidewarden
