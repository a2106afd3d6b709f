#include "reminder/reminder_list.h"

#include <array>
#include <utility>

#include "core/event_line.h"
#include "core/events_file.h"
#include "dates/text.h"
#include "dates/time_of_day.h"
#include "dates/year_marker.h"
#include "reminder/line_ends.h"
#include "reminder/next_dates.h"

namespace tidewarden {
namespace {

// Rows whose date is less than this many days away name their weekday.
constexpr int kWeekdayLimit = 8;

class RowCollector : public EventLineVisitor {
 public:
  RowCollector(const RegionalDateFormat& format, const ListOptions& options,
               const std::string& todayPreface, CivilDate today, const HiddenLines& shownAgain,
               ReminderList& out)
      : format_(format),
        options_(options),
        todayPreface_(todayPreface),
        today_(today),
        currentYear_(YearOf(today)),
        nextDates_(today),
        shownAgain_(shownAgain),
        out_(out) {}

  void Start() override { out_ = ReminderList(); }

  void Visit(long number, std::string_view rawLine, std::string_view text) override {
    const Source source{number, rawLine, text};
    LineEnds ends;
    if (!ReadLineEnds(text, ends)) {
      ReadWhole(source);
      return;
    }
    // Most lines are not listed today, and that shows at their ends, whatever stands between.
    if (ends.advance >= nextDates_.Find(ends.fields).noticeNeeded) ReadWhole(source);
  }

 private:
  struct Source {
    long line;
    std::string_view rawLine;
    std::string_view text;
  };

  void ReadWhole(const Source& source) {
    if (!SplitEventLine(source.text, event_)) return;
    const NextDate& next = nextDates_.Find(event_);
    if (next.state == NextDate::State::kNone) return;
    losesMark_ = false;
    if (next.IsCounter()) {
      AddCounter(next, source);
      return;
    }
    if (!ReadAdvance(event_.advance, advance_)) return;
    losesMark_ = event_.hidden &&
                 (next.days > advance_ || shownAgain_.find(source.rawLine) != shownAgain_.end());
    if (losesMark_) {
      out_.hideList.push_back(out_.pool.Keep(source.rawLine));
      event_.hidden = false;
    }
    if (next.days > advance_) return;
    if (next.state == NextDate::State::kPassed) {
      AddPassed(next, source);
    } else if (!event_.hidden) {
      if (next.days == 0) {
        AddToday(next, source);
      } else {
        AddUpcoming(next, source);
      }
    }
  }

  void AddPassed(const NextDate& next, const Source& source) {
    if (next.kind == OccursKind::kTilDone) {
      AddOverdue(next, source);
    } else {
      out_.hasPastOneTime = true;
    }
  }

  // What the rows of one day have in common. There are many rows and few days.
  struct DayTexts {
    CivilDate day{};
    std::string date;
    int advance = -1;       // the notice that `countdown` is for
    std::string countdown;  // behind the titles of coming events
  };

  // A new row with its title. SetText completes it.
  ReminderRow& AddRow(RowKind kind, const NextDate& next, const Source& source) {
    ReminderRow& row = out_.rows.emplace_back();
    row.kind = kind;
    row.date = next.date;
    row.daysToGo = next.days;
    row.line = source.line;
    row.rawLine = out_.pool.Keep(source.rawLine);
    row.losesMark = losesMark_;
    row.title = TitleOf(row, next, source);
    row.timeOfDay = ConvertToFourDigitTime(row.title);
    out_.anyEventsInRange = true;
    return row;
  }

  void SetText(ReminderRow& row, std::string_view before, std::string_view title,
               std::string_view after) {
    const std::string_view date = TextsOf(row).date;
    row.dateSize = static_cast<std::uint8_t>(date.size());
    row.text = out_.pool.Join(std::array{date, before, title, after});
  }

  DayTexts& TextsOf(const ReminderRow& row) {
    DayTexts& texts = dayTexts_[static_cast<unsigned>(row.daysToGo) % dayTexts_.size()];
    if (texts.day != row.date) {
      texts = {row.date, DateText(row.date), -1, {}};
    }
    return texts;
  }

  std::string DateText(CivilDate date) {
    std::string text = FormatDate(date, format_);
    if (options_.spellOutMonths) text = SpellOutMonth(text, format_);
    if (format_.TwoDigitYear && CountCharacters(text) == 10) text.erase(0, 2);
    return text;
  }

  std::string Countdown(const ReminderRow& row) {
    std::string text = " (";
    if (row.daysToGo < kWeekdayLimit && options_.weekdayOnEvents) {
      text += format_.WeekdayNames[static_cast<std::size_t>(WeekdayNumber(row.date))];
      text += ", ";
    }
    AppendNumber(text, row.daysToGo);
    text += row.daysToGo == 1 ? " day" : " days";
    if (options_.showLessThan) {
      text += " < ";
      AppendNumber(text, advance_);
    }
    text += ")";
    return text;
  }

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
    SetText(row, " ", row.title, " " + CompareDates(today_, row.date, options_.differences));
  }

  void AddUpcoming(const NextDate& next, const Source& source) {
    ReminderRow& row = AddRow(RowKind::kUpcoming, next, source);
    DayTexts& texts = TextsOf(row);
    if (texts.advance != advance_) {
      texts.advance = advance_;
      texts.countdown = Countdown(row);
    }
    SetText(row, " ", row.title, texts.countdown);
  }

  void AddToday(const NextDate& next, const Source& source) {
    ReminderRow& row = AddRow(RowKind::kToday, next, source);
    if (options_.capitalizeTodaysEvents) {
      SetText(row, todayPreface_, ToUpper(row.title), {});
    } else {
      SetText(row, todayPreface_, row.title, {});
    }
    out_.todaysTitles.push_back(row.title);
  }

  void AddOverdue(const NextDate& next, const Source& source) {
    ReminderRow& row = AddRow(RowKind::kOverdue, next, source);
    std::string overdue = " (";
    AppendNumber(overdue, -next.days);
    overdue += next.days == -1 ? " DAY OVERDUE!!!)" : " DAYS OVERDUE!!!)";
    SetText(row, " ", row.title, overdue);
  }

  const RegionalDateFormat& format_;
  const ListOptions& options_;
  const std::string& todayPreface_;
  CivilDate today_;
  int currentYear_;
  NextDates nextDates_;
  const HiddenLines& shownAgain_;
  ReminderList& out_;
  EventLineParts event_;               // of the line that is being visited
  int advance_ = 0;                    // of the same line
  bool losesMark_ = false;             // of the same line, see ReminderRow
  std::array<DayTexts, 16> dayTexts_;  // each day has one place, which it shares with others
};

}  // namespace

Status ListEvents(FileSystem& files, const std::string& path, const RegionalDateFormat& format,
                  const ListOptions& options, const std::string& todayPreface, CivilDate today,
                  const HiddenLines& shownAgain, ReminderList& out) {
  RowCollector collector(format, options, todayPreface, today, shownAgain, out);
  Status status = ReadEventLines(files, path, collector);
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
