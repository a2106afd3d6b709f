// The line parser against the slow model, in every layout. First byte: the layout; the rest: the
// line.
#include <cstdint>
#include <string>

#include "core/event_line.h"
#include "dates/text.h"
#include "fuzz/check.h"
#include "fuzz/event_line_model.h"
#include "reminder/line_ends.h"
#include "reminder/next_dates.h"

namespace tidewarden::fuzz {
namespace {

constexpr int kCurrentYear = 2014;

bool IsInside(std::string_view part, std::string_view whole) {
  return part.data() >= whole.data() && part.data() + part.size() <= whole.data() + whole.size();
}

void CheckAccepted(const EventRecord& event, std::string_view line,
                   const RegionalDateFormat& format) {
  FUZZ_CHECK(IsInside(event.EventDateAsStored, line));
  FUZZ_CHECK(IsInside(event.EventTitle, line));
  FUZZ_CHECK(CountCharacters(event.EventDate) == 5);
  FUZZ_CHECK(CountCharacters(event.EventDateAsStored) == 5);
  FUZZ_CHECK(event.EventTitle.find(',') == std::string_view::npos);
  FUZZ_CHECK(event.EventAdvance >= 0 && event.EventAdvance <= 365);
  FUZZ_CHECK(event.EventOccurs == ToLower(Trim(event.EventOccurs)));
  FUZZ_CHECK(event.EventHidden == line.ends_with('*'));

  // Written again as the editor would, it is the same event.
  std::string again(event.EventDateAsStored);
  again.append(",").append(event.EventTitle).append(",");
  AppendNumber(again, event.EventAdvance);
  again.append(",").append(event.EventOccurs).append(event.EventHidden ? "*" : "");
  const auto second = ParseEventLine(again, format, kCurrentYear);
  FUZZ_CHECK(second.has_value());
  FUZZ_CHECK(second->EventDate == event.EventDate);
  FUZZ_CHECK(second->EventDateAsStored == event.EventDateAsStored);
  FUZZ_CHECK(second->EventTitle == event.EventTitle);
  FUZZ_CHECK(second->EventAdvance == event.EventAdvance);
  FUZZ_CHECK(second->EventOccurs == event.EventOccurs);
  FUZZ_CHECK(second->EventHidden == event.EventHidden);

  // Nothing but a count-up from the future depends on the year.
  FUZZ_CHECK(ParseEventLine(line, format, 9999).has_value());
}

void CheckRejected(const Rejection& rejection, std::string_view line) {
  FUZZ_CHECK(rejection.column >= 1);
  FUZZ_CHECK(rejection.column <= CountCharacters(line) + 1);
  FUZZ_CHECK(!DescribeRejection(rejection.reason).empty());
  FUZZ_CHECK(!RejectionHint(rejection.reason).empty());
}

void CheckAgainstModel(const std::optional<EventRecord>& event, std::string_view line,
                       const RegionalDateFormat& format) {
  const auto expected = model::Parse(line, kCurrentYear, format.IsDayFirst());
  FUZZ_CHECK(event.has_value() == expected.has_value());
  if (!event) return;
  FUZZ_CHECK(model::CharactersOf(event->EventDate) == expected->date);
  FUZZ_CHECK(model::CharactersOf(event->EventDateAsStored) == expected->dateAsStored);
  FUZZ_CHECK(model::CharactersOf(event->EventTitle) == expected->title);
  FUZZ_CHECK(model::CharactersOf(event->EventOccurs) == expected->occurs);
  FUZZ_CHECK(event->EventAdvance == expected->advance);
  FUZZ_CHECK(event->EventHidden == expected->hidden);
}

// The quick look at the ends of a line finds what reading all of it finds.
void CheckEnds(const std::optional<EventRecord>& event, std::string_view line) {
  LineEnds ends;
  if (!ReadLineEnds(line, ends) || !event) return;
  FUZZ_CHECK(!event->EventHidden);
  FUZZ_CHECK(event->EventDateAsStored.size() == kPackedDate);
  FUZZ_CHECK(event->EventAdvance == (event->occurs.IsCounter() ? 0 : ends.advance));

  EventLineParts parts;
  FUZZ_CHECK(SplitEventLine(line, parts));
  const CivilDate today = MakeDate(kCurrentYear, 11, 20);
  NextDates ofEnds(today);
  NextDates ofParts(today);
  const NextDate& a = ofEnds.Find(ends.fields);
  const NextDate& b = ofParts.Find(parts);
  FUZZ_CHECK(a.date == b.date && a.days == b.days && a.noticeNeeded == b.noticeNeeded);
  FUZZ_CHECK(a.state == b.state && a.kind == b.kind);
}

}  // namespace
}  // namespace tidewarden::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tidewarden;
  std::string_view line = fuzz::TextOf(data, size);
  const RegionalDateFormat& format = fuzz::LayoutFor(fuzz::TakeByte(line));
  Rejection rejection;
  const auto event = ParseEventLine(line, format, fuzz::kCurrentYear, &rejection);
  FUZZ_CHECK(event.has_value() == ParseEventLine(line, format, fuzz::kCurrentYear).has_value());
  if (event) {
    fuzz::CheckAccepted(*event, line, format);
  } else {
    fuzz::CheckRejected(rejection, line);
  }
  fuzz::CheckAgainstModel(event, line, format);
  fuzz::CheckEnds(event, line);
  return 0;
}
