#include "reminder/next_dates.h"

#include <cstring>
#include <utility>

#include "dates/event_date_rules.h"

namespace tidewarden {
namespace {

constexpr std::size_t kFirstEntries = 64;
constexpr std::size_t kHalf = sizeof(std::uint32_t);

std::uint64_t FourBytes(const char* bytes) {
  std::uint32_t word = 0;
  std::memcpy(&word, bytes, kHalf);
  return word;
}

}  // namespace

NextDates::NextDates(CivilDate today) : today_(today), entries_(kFirstEntries) {}

const NextDate& NextDates::Find(const EventLineParts& parts) {
  const std::size_t size = parts.occurs.size();
  if (parts.date.size() != 5 || size < kHalf || size > 2 * kHalf) {
    other_ = Ask(parts);
    return other_;
  }
  // The date's five bytes and the length of the occurs field; then the first and the last four
  // bytes of that field, which overlap when it is shorter than eight.
  const std::uint64_t date =
      FourBytes(parts.date.data()) << 32U |
      static_cast<std::uint64_t>(static_cast<unsigned char>(parts.date[4])) << 8U | size;
  const std::uint64_t occurs =
      FourBytes(parts.occurs.data()) << 32U | FourBytes(parts.occurs.data() + size - kHalf);
  Entry* entry = &Place(date, occurs);
  if (entry->date == 0) {
    if (2 * ++used_ > entries_.size()) {
      Grow();
      entry = &Place(date, occurs);
    }
    *entry = {date, occurs, Ask(parts)};
  }
  return entry->answer;
}

NextDates::Entry& NextDates::Place(std::uint64_t date, std::uint64_t occurs) {
  // Fibonacci hashing (Knuth, The Art of Computer Programming, volume 3, section 6.4), and on to
  // the next free place.
  constexpr std::uint64_t kGoldenRatio = 0x9E3779B97F4A7C15;
  const std::size_t mask = entries_.size() - 1;
  const std::uint64_t mixed = (date * kGoldenRatio ^ occurs) * kGoldenRatio;
  std::size_t place = static_cast<std::size_t>(mixed >> 40U) & mask;
  while (entries_[place].date != 0 &&
         (entries_[place].date != date || entries_[place].occurs != occurs)) {
    place = (place + 1) & mask;
  }
  return entries_[place];
}

void NextDates::Grow() {
  std::vector<Entry> former(4 * entries_.size());
  former.swap(entries_);
  for (const Entry& entry : former) {
    if (entry.date != 0) Place(entry.date, entry.occurs) = entry;
  }
}

NextDate NextDates::Ask(const EventLineParts& parts) const {
  NextDate answer;
  DateField field;
  Occurs occurs;
  const FieldFaults faults = ReadFields(parts, YearOf(today_), field, occurs);
  if (faults.date != DateFieldFault::kNone || faults.occurs != OccursFault::kNone) return answer;
  auto date = EventDateByRule(field, occurs, today_);
  if (!date) return answer;
  answer.kind = occurs.kind;
  answer.state = *date < today_ ? NextDate::State::kPassed : NextDate::State::kComing;
  if (answer.state == NextDate::State::kPassed && IsMovedOn(occurs)) {
    date = MoveToNextYear(*date, today_);
    const bool comes = date && *date >= today_;
    answer.state = comes ? NextDate::State::kMovedOn : NextDate::State::kNone;
    if (!comes) return answer;
  }
  answer.date = *date;
  answer.days = DaysBetween(today_, *date);
  return answer;
}

}  // namespace tidewarden
