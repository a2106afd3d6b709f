#include "editor/event_list.h"

#include "core/event_line.h"
#include "core/events_file.h"
#include "dates/text.h"

namespace tidewarden {
namespace {

class ListReader : public EventLineVisitor {
 public:
  ListReader(const RegionalDateFormat& format, int currentYear, const WantedLine& wanted,
             EventList& out)
      : format_(format), currentYear_(currentYear), wanted_(wanted), out_(out) {}

  void Start() override {
    out_ = EventList();
    same_ = 0;
    found_ = false;
  }

  void Visit(long number, std::string_view rawLine, std::string_view text) override {
    LookForWanted(number, rawLine);
    const auto event = ParseEventLine(text, format_, currentYear_);
    if (event) {
      out_.rows.push_back(MakeRow(*event, number, format_));
      out_.settled = out_.settled && IsSettled(*event);
    }
    if (Drops(event, text)) out_.rescue = RescueNeed::kDropsSomething;
  }

  void Finish() {
    if (!found_ && same_ != 1) out_.wantedLine = -1;
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

  static bool Drops(const std::optional<EventRecord>& event, std::string_view text) {
    if (!event) return text.find_first_not_of(" \t") != std::string_view::npos;
    return event->EventHidden ||
           !Trim(WithoutFirstCharacters(event->EventTitle, kTitleLength)).empty();
  }

  const RegionalDateFormat& format_;
  int currentYear_;
  const WantedLine& wanted_;
  EventList& out_;
  int same_ = 0;  // other lines with the wanted bytes
  bool found_ = false;
};

}  // namespace

Status ReadEventList(std::string_view content, const RegionalDateFormat& format, CivilDate today,
                     std::optional<TodayCase> todayRow, const WantedLine& wanted, EventList& out) {
  ListReader reader(format, YearOf(today), wanted, out);
  Status status = VisitEventLines(content, reader);
  reader.Finish();
  if (todayRow) out.rows.push_back(MakeTodayRow(today, *todayRow, format));
  SortEventRows(out.rows);
  return status;
}

}  // namespace tidewarden
