#include "reminder/reminder_list.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <utility>

#include "core/event_line.h"
#include "core/events_file.h"
#include "dates/event_date_rules.h"
#include "dates/text.h"
#include "dates/time_of_day.h"
#include "dates/year_marker.h"

namespace tidewarden {
namespace {

// Rows whose date is less than this many days away name their weekday.
constexpr int kWeekdayLimit = 8;

// The answer of the date rules for one event.
struct NextDate {
  enum class State : std::uint8_t {
    kUnknown,
    kNone,     // the event has no date
    kComing,   // today or later
    kMovedOn,  // next year, because this year's date has passed
    kPassed,   // before today
  };
  State state = State::kUnknown;
  CivilDate date{};
  int days = 0;  // from today to `date`
};

// Finds the next dates of events for one day. What the rules give for the fields that most
// events have, a month and a day or a weekday without a year, is worked out once and remembered:
// there are few of them, and files have many lines.
class NextDates {
 public:
  explicit NextDates(CivilDate today) : today_(today) {}

  // The answer is good until the next question.
  [[nodiscard]] const NextDate& Find(const DateField& field, const Occurs& occurs) {
    if (field.isFeast || occurs.year >= 0 || field.month < 0 || field.day < 0) {
      other_ = Ask(field, occurs);
      return other_;
    }
    NextDate& known = known_[IndexOf(field, occurs)];
    if (known.state == NextDate::State::kUnknown) known = Ask(field, occurs);
    return known;
  }

 private:
  static constexpr std::size_t kDays = 32;    // 0 for "xx"
  static constexpr std::size_t kMonths = 13;  // 0 for "xx"
  static constexpr std::size_t kQuarterOrdinal = 6;
  static constexpr std::size_t kOrdinals = 7;  // -1 to 4, and one for "quarter"
  static constexpr std::size_t kWeekdays = 8;  // 0 for none
  static constexpr std::size_t kFixedDays = kMonths * kDays * 2;

  // With a fixed day all that counts of the occurs field is whether it is "quarter"; with any
  // day it is the weekday and its ordinal too.
  static std::size_t IndexOf(const DateField& field, const Occurs& occurs) {
    const auto month = static_cast<std::size_t>(field.month);
    const std::size_t quarter = occurs.kind == OccursKind::kQuarter ? 1 : 0;
    if (field.day != DateField::kAny) {
      return (month * kDays + static_cast<std::size_t>(field.day)) * 2 + quarter;
    }
    const auto ordinal =
        quarter == 1 ? kQuarterOrdinal : static_cast<std::size_t>(occurs.ordinal) + 1;
    return kFixedDays + (month * kOrdinals + ordinal) * kWeekdays +
           static_cast<std::size_t>(occurs.weekday);
  }

  [[nodiscard]] NextDate Ask(const DateField& field, const Occurs& occurs) const {
    using State = NextDate::State;
    auto date = EventDateByRule(field, occurs, today_);
    if (!date) return {State::kNone, {}, 0};
    State state = *date < today_ ? State::kPassed : State::kComing;
    if (state == State::kPassed && IsMovedOn(occurs)) {
      date = MoveToNextYear(*date, today_);
      if (!date || *date < today_) return {State::kNone, {}, 0};
      state = State::kMovedOn;
    }
    return {state, *date, DaysBetween(today_, *date)};
  }

  CivilDate today_;
  NextDate other_;
  std::array<NextDate, kFixedDays + kMonths * kOrdinals * kWeekdays> known_{};
};

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
    if (!ReadEventLine(text, currentYear_, event_)) return;
    const NextDate& next = nextDates_.Find(event_.dateField, event_.occursRule);
    if (next.state == NextDate::State::kNone) return;
    if (next.days > event_.advance && !event_.hidden && !event_.occursRule.IsCounter()) return;
    const Source source{number, rawLine, text};
    if (event_.occursRule.IsCounter()) {
      AddCounter(next, source);
    } else if (next.state == NextDate::State::kPassed) {
      AddPassed(next, source);
    } else if (next.days == 0) {
      if (!event_.hidden) AddToday(next, source);
    } else if (event_.hidden) {
      if (next.days > event_.advance) out_.hideList.push_back(out_.pool.Keep(rawLine));
    } else {
      AddUpcoming(next, source);
    }
  }

 private:
  struct Source {
    long line;
    std::string_view rawLine;
    std::string_view text;
  };

  void AddPassed(const NextDate& next, const Source& source) {
    if (event_.occursRule.kind == OccursKind::kTilDone) {
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
      AppendNumber(text_, event_.advance);
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
  EventLine event_;   // of the line that is being visited
  std::string text_;  // of the row that is being made
};

// What a row is sorted by, beside the row so that sorting moves little: the words are compared
// one after the other. The first is the day and the time, the others are the start of the text,
// lower-cased and with its first byte as the most significant. The date at the head of the text
// is the same for all rows of a day and left out.
struct SortKey {
  std::array<std::uint64_t, 4> words;
  std::size_t row;
};

constexpr std::size_t kWord = sizeof(std::uint64_t);

// Eight bytes of ASCII with their letters in lower case, all at once.
constexpr std::uint64_t LowerAsciiWord(std::uint64_t word) {
  constexpr std::uint64_t kOnes = 0x0101010101010101;
  const std::uint64_t fromA = word + kOnes * (0x80 - 'A');
  const std::uint64_t behindZ = word + kOnes * (0x80 - 'Z' - 1);
  const std::uint64_t upper = fromA & ~behindZ & (kOnes * 0x80);
  return word | (upper >> 2U);
}
static_assert(LowerAsciiWord(0x40415A5B60617A7F) == 0x40617A5B60617A7F);

// The bytes in the order in which a text compares.
std::uint64_t BigEndian(const char* bytes) {
  std::uint64_t word = 0;
  for (std::size_t i = 0; i < kWord; ++i) {
    word = word << 8U | static_cast<unsigned char>(bytes[i]);
  }
  return word;
}

SortKey KeyOf(const ReminderRow& row, std::size_t index) {
  constexpr std::int64_t kTimesOfDay = 10000;
  constexpr std::int64_t kBeforeAllYears = 1'000'000;  // days; makes the first word positive
  constexpr std::uint64_t kNotAscii = 0x8080808080808080;
  constexpr std::size_t kTextBytes = 3 * kWord;
  SortKey key{{0, 0, 0, 0}, index};
  const std::int64_t day = DayCount{row.date}.time_since_epoch().count() + kBeforeAllYears;
  // The today line lies before its day's first minute.
  const bool first = row.kind == RowKind::kTodayLine;
  key.words[0] = static_cast<std::uint64_t>(day * kTimesOfDay + row.timeOfDay + (first ? 0 : 1));

  const std::string_view text = row.text.substr(row.dateSize);
  std::array<char, kTextBytes> start{};
  std::memcpy(start.data(), text.data(), std::min(text.size(), kTextBytes));
  std::uint64_t all = 0;
  for (std::size_t i = 0; i < 3; ++i) {
    const std::uint64_t word = BigEndian(start.data() + i * kWord);
    all |= word;
    key.words[i + 1] = LowerAsciiWord(word);
  }
  if ((all & kNotAscii) != 0) {
    start.fill(0);
    ToLower(FirstCharacters(text, kTextBytes)).copy(start.data(), kTextBytes);
    for (std::size_t i = 0; i < 3; ++i) key.words[i + 1] = BigEndian(start.data() + i * kWord);
  }
  return key;
}

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

void SortRows(std::vector<ReminderRow>& rows) {
  std::vector<SortKey> keys;
  keys.reserve(rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) keys.push_back(KeyOf(rows[i], i));
  std::sort(keys.begin(), keys.end(), [&](const SortKey& a, const SortKey& b) {
    for (std::size_t i = 0; i < a.words.size(); ++i) {
      if (a.words[i] != b.words[i]) return a.words[i] < b.words[i];
    }
    const int order = CompareIgnoringCase(rows[a.row].text, rows[b.row].text);
    return order != 0 ? order < 0 : a.row < b.row;
  });

  // Puts the rows in order along the cycles of the permutation: each is moved once, in place.
  for (std::size_t start = 0; start < keys.size(); ++start) {
    const ReminderRow held = rows[start];
    std::size_t place = start;
    while (keys[place].row != start) {
      const std::size_t from = std::exchange(keys[place].row, place);
      rows[place] = rows[from];
      place = from;
    }
    keys[place].row = place;
    rows[place] = held;
  }
}

}  // namespace tidewarden
