#include "editor/event_list.h"

#include <string>

#include "core/event_line.h"
#include "core/events_file.h"
#include "core/text_encoding.h"
#include "dates/text.h"

namespace tidewarden {
namespace {

constexpr std::size_t kLineEndSize = 2;

class ListReader : public EventLineVisitor {
 public:
  ListReader(const RegionalDateFormat& format, int currentYear, const WantedLine& wanted,
             HiddenMarks marks, EventList& out)
      : format_(format), currentYear_(currentYear), wanted_(wanted), marks_(marks), out_(out) {}

  void Start() override {
    out_ = EventList();
    same_ = 0;
    found_ = false;
    bytes_ = 0;
    asWritten_ = true;
  }

  void Visit(long number, std::string_view rawLine, std::string_view text) override {
    LookForWanted(number, rawLine);
    const auto event = ParseEventLine(text, format_, currentYear_);
    if (event) {
      out_.rows.push_back(MakeRow(*event, number, format_));
      out_.settled = out_.settled && IsSettled(*event);
    }
    if (Drops(event, text)) out_.rescue = RescueNeed::kDropsSomething;
    bytes_ += rawLine.size() + kLineEndSize;
    const bool isUtf8 = rawLine.data() == text.data();
    asWritten_ = asWritten_ && isUtf8 && event && IsAsWritten(*event, text);
  }

  void Finish(std::string_view content) {
    if (!found_ && same_ != 1) out_.wantedLine = -1;
    const std::size_t mark = content.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
    out_.asWritten = asWritten_ && mark + bytes_ == content.size();
  }

 private:
  void LookForWanted(long number, std::string_view rawLine) {
    if (wanted_.line < 0 || found_) return;
    const bool sameText = wanted_.rawLine.empty() || rawLine == wanted_.rawLine;
    found_ = number == wanted_.line && sameText;
    if (found_) {
      out_.wantedLine = number;
    } else if (!wanted_.rawLine.empty() && sameText) {
      out_.wantedLine = number;
      ++same_;
    }
  }

  [[nodiscard]] bool IsSettled(const EventRecord& event) const {
    if (event.EventTitle.starts_with(' ')) return false;
    return format_.IsMonthFirst() || event.dateField.isFeast || event.EventDateAsStored[2] == '.';
  }

  // Whether this is what AppendEventLine makes of the event's row.
  [[nodiscard]] bool IsAsWritten(const EventRecord& event, std::string_view text) {
    if (!IsSettled(event) || DropsMark(event) || event.EventTitle.ends_with(' ')) return false;
    if (CountCharacters(event.EventTitle) > kTitleLength) return false;
    rest_ = ",";
    AppendNumber(rest_, event.EventAdvance);
    rest_.append(",").append(event.EventOccurs);
    if (event.EventHidden) rest_ += '*';
    const std::size_t begin = kDateLength + 1 + event.EventTitle.size();
    return text.size() == begin + rest_.size() && text.ends_with(rest_);
  }

  [[nodiscard]] bool DropsMark(const EventRecord& event) const {
    return event.EventHidden && marks_ == HiddenMarks::kDropped;
  }

  [[nodiscard]] bool Drops(const std::optional<EventRecord>& event, std::string_view text) const {
    if (!event) return text.find_first_not_of(" \t") != std::string_view::npos;
    return DropsMark(*event) ||
           !Trim(WithoutFirstCharacters(event->EventTitle, kTitleLength)).empty();
  }

  const RegionalDateFormat& format_;
  int currentYear_;
  const WantedLine& wanted_;
  HiddenMarks marks_;
  EventList& out_;
  int same_ = 0;  // other lines with the wanted bytes
  bool found_ = false;
  std::size_t bytes_ = 0;  // of the lines with their ends
  bool asWritten_ = true;  // but for the order of the lines
  std::string rest_;
};

}  // namespace

Status ReadEventList(std::string_view content, const RegionalDateFormat& format, CivilDate today,
                     std::optional<TodayCase> todayRow, const WantedLine& wanted, EventList& out,
                     HiddenMarks marks) {
  ListReader reader(format, YearOf(today), wanted, marks, out);
  Status status = VisitEventLines(content, reader);
  reader.Finish(content);
  out.asWritten = out.asWritten && AreEventRowsSorted(out.rows);
  if (todayRow) out.rows.push_back(MakeTodayRow(today, *todayRow, format));
  SortEventRows(out.rows);
  return status;
}

}  // namespace tidewarden
