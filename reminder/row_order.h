// The order of the reminder list.
#pragma once

#include <deque>

#include "reminder/reminder_list.h"

namespace tidewarden {

// Sorts rows by date, time of day and display text without regard to case, code point by code
// point. The today line comes before all other rows of its day; rows that are equal in everything
// keep their order, which is that of their lines. The time that it takes grows with the number of
// rows, not faster.
void SortRows(std::deque<ReminderRow>& rows);

}  // namespace tidewarden
