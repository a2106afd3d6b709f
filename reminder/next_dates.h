// Dates events by their fields, and remembers the answers for one day.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "core/event_line.h"
#include "dates/civil.h"
#include "dates/event_fields.h"
#include "reminder/line_ends.h"

namespace tidewarden {

// When an event falls, seen from one day.
struct NextDate {
  enum class State : std::uint8_t {
    kNone,     // the fields are rejected, or have no date
    kComing,   // today or later
    kMovedOn,  // next year, because this year's date has passed
    kPassed,   // before today: a one-time event that is over, an overdue task, a count-up
  };
  // More notice than any line can ask for.
  static constexpr int kNever = std::numeric_limits<int>::max();

  CivilDate date{};
  int days = 0;               // from today to `date`
  int noticeNeeded = kNever;  // the least days of notice with which the event is listed
  State state = State::kNone;
  OccursKind kind = OccursKind::kYearly;

  [[nodiscard]] bool IsCounter() const {
    return kind == OccursKind::kDaysPast || kind == OccursKind::kDaysFuture;
  }
};

// There are few different pairs of a date and an occurs field, and files have many lines: each
// pair is read and dated once.
class NextDates {
 public:
  // `today` is a real date of the years 1 to 9998.
  explicit NextDates(CivilDate today);

  // The answer for the two fields of a line that has been cut; good until the next question.
  [[nodiscard]] const NextDate& Find(const EventLineParts& parts);

  // The same for packed fields.
  [[nodiscard]] const NextDate& Find(PackedFields fields) {
    const Entry& entry = entries_[index_[PlaceOf(fields)]];
    return entry.fields == fields ? entry.answer : FindElsewhere(fields);
  }

 private:
  struct Entry {
    PackedFields fields;
    NextDate answer;
  };

  // Where the search for fields begins: Fibonacci hashing (Knuth, The Art of Computer
  // Programming, volume 3, section 6.4).
  [[nodiscard]] std::size_t PlaceOf(PackedFields fields) const {
    constexpr std::uint64_t kGoldenRatio = 0x9E3779B97F4A7C15;
    const std::uint64_t mixed = (fields.date * kGoldenRatio ^ fields.occurs) * kGoldenRatio;
    return static_cast<std::size_t>(mixed >> 40U) & mask_;
  }

  [[nodiscard]] const NextDate& FindElsewhere(PackedFields fields);
  [[nodiscard]] NextDate Ask(const EventLineParts& parts) const;
  [[nodiscard]] std::uint16_t& Search(PackedFields fields);
  void Grow();
  void Forget();

  CivilDate today_;
  NextDate other_;  // of fields that do not fit into an entry
  // The answers stand close together, because more of them then stay in the processor's first
  // cache; what is spread out are their numbers. Number 0 is no entry: its fields are no fields.
  std::vector<Entry> entries_;
  std::vector<std::uint16_t> index_;  // a power of two of them
  std::size_t mask_;                  // one less than that
};

}  // namespace tidewarden
