// Dates events by their fields, and remembers the answers for one day.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "core/event_line.h"
#include "dates/civil.h"
#include "dates/event_fields.h"

namespace tidewarden {

// When an event falls, seen from one day.
struct NextDate {
  enum class State : std::uint8_t {
    kNone,     // the fields are rejected, or have no date
    kComing,   // today or later
    kMovedOn,  // next year, because this year's date has passed
    kPassed,   // before today: a one-time event that is over, an overdue task, a count-up
  };
  CivilDate date{};
  int days = 0;  // from today to `date`
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

 private:
  // A pair of fields packed into two words, with its answer. The first word of an empty entry is
  // 0; that of a pair holds the length of the occurs field, which is not.
  struct Entry {
    std::uint64_t date = 0;
    std::uint64_t occurs = 0;
    NextDate answer;
  };

  [[nodiscard]] NextDate Ask(const EventLineParts& parts) const;
  [[nodiscard]] Entry& Place(std::uint64_t date, std::uint64_t occurs);
  void Grow();

  CivilDate today_;
  NextDate other_;              // of fields that do not fit into an entry
  std::vector<Entry> entries_;  // a power of two of them, at most half of them in use
  std::size_t used_ = 0;
};

}  // namespace tidewarden
