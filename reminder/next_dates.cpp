#include "reminder/next_dates.h"

#include <array>
#include <string_view>

#include "dates/event_date_rules.h"
#include "dates/text.h"

namespace tidewarden {
namespace {

constexpr std::size_t kFirstPlaces = 1024;
// So few places are taken that the first look nearly always finds what it is for.
constexpr std::size_t kPlacesForEach = 8;
// Far more than a file of real events has; whatever a file holds, the memory stays within bounds.
constexpr std::size_t kMostEntries = 30'000;

std::uint64_t Packed(std::string_view bytes) {
  std::array<char, kWord> word{};
  bytes.copy(word.data(), word.size());
  return LittleEndianWord(word.data());
}

std::array<char, kWord> Unpacked(std::uint64_t word) {
  std::array<char, kWord> bytes{};
  for (char& byte : bytes) {
    byte = static_cast<char>(word & 0xFFU);
    word >>= 8U;
  }
  return bytes;
}

}  // namespace

NextDates::NextDates(CivilDate today)
    : today_(today), entries_(1), index_(kFirstPlaces), mask_(kFirstPlaces - 1) {}

const NextDate& NextDates::Find(const EventLineParts& parts) {
  if (parts.date.size() != kPackedDate || parts.occurs.size() > kMostPackedOccurs) {
    other_ = Ask(parts);
    return other_;
  }
  return Find(
      PackedFields{Packed(parts.date) | PackedLength(parts.occurs.size()), Packed(parts.occurs)});
}

const NextDate& NextDates::FindElsewhere(PackedFields fields) {
  std::uint16_t number = Search(fields);
  if (number == 0) {
    if (entries_.size() > kMostEntries) Forget();
    if (kPlacesForEach * entries_.size() > index_.size()) Grow();
    const std::array<char, kWord> date = Unpacked(fields.date);
    const std::array<char, kWord> occurs = Unpacked(fields.occurs);
    EventLineParts parts;
    parts.date = {date.data(), kPackedDate};
    parts.occurs = Trim({occurs.data(), LengthOfOccurs(fields)});
    number = static_cast<std::uint16_t>(entries_.size());
    Search(fields) = number;
    entries_.push_back({fields, Ask(parts)});
  }
  return entries_[number].answer;
}

std::uint16_t& NextDates::Search(PackedFields fields) {
  std::size_t place = PlaceOf(fields);
  while (index_[place] != 0 && entries_[index_[place]].fields != fields) {
    place = (place + 1) & mask_;
  }
  return index_[place];
}

void NextDates::Grow() {
  index_.assign(2 * index_.size(), 0);
  mask_ = index_.size() - 1;
  for (std::size_t i = 1; i < entries_.size(); ++i) {
    Search(entries_[i].fields) = static_cast<std::uint16_t>(i);
  }
}

void NextDates::Forget() {
  entries_.resize(1);
  index_.assign(index_.size(), 0);
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
  answer.noticeNeeded = answer.IsCounter() ? 0 : answer.days;
  return answer;
}

}  // namespace tidewarden
