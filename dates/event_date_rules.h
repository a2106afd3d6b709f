// When an event falls next.
//
// Each function answers one question about one kind of event; EventDateByRule chooses among
// them, and NextOccurrence adds what happens to dates that have passed. All arithmetic is in
// whole civil days. "Nothing" always means that the event has no date; it is never an error.
// `today` is a real date of the years 1 to 9998.
#pragma once

#include <optional>

#include "dates/civil.h"
#include "dates/event_fields.h"

namespace tidewarden {

// The nth (ordinal 1 or more) or last (0) weekday (Sunday = 1 to Saturday = 7) of a month, or the
// month's last day (-1, the weekday is not looked at). Nothing when the month has no such day, and
// for a weekday outside 1 to 7 or a month outside 1 to 12.
[[nodiscard]] std::optional<CivilDate> NthWeekdayDate(int month, int year, int weekday,
                                                      int ordinal);

// Fixed month, day "xx": this year's date, or next year's when it lies before today.
[[nodiscard]] std::optional<CivilDate> NextNthWeekdayYearly(const DateField& field,
                                                            const Occurs& occurs, CivilDate today);

// Month and day "xx": this month's date, or next month's when it lies before today.
[[nodiscard]] std::optional<CivilDate> NextNthWeekdayMonthly(const Occurs& occurs, CivilDate today);

// Month "xx", fixed day: that day of the current month, of the next month when the day is
// below today's. A day that the month lacks becomes the month's last day. The year is `year`
// and does not advance: in December the result can be a past January, which NextOccurrence
// moves on.
[[nodiscard]] std::optional<CivilDate> NextMonthlyDate(const DateField& field, int year,
                                                       CivilDate today);

// Every three months from the field's month: the nearest of five candidates that is today or
// later and less than 365 days away, four in this year and one in the next. A candidate that
// the calendar lacks is passed over. When none is left the field's own month of this year is
// the result, if the calendar has it. An "xx" in place of the day takes the number of the month.
[[nodiscard]] std::optional<CivilDate> NextQuarterDate(const DateField& field, CivilDate today);

// Every N days from `start`, N = occurs.interval, 1 to 199: today when it is such a day, else
// the next one.
[[nodiscard]] CivilDate NextEveryNDays(CivilDate start, const Occurs& occurs, CivilDate today);

// The date that the rule of an event gives, which may lie in the past. The first that applies
// decides: quarter; "xx" for month and day; "xx" for the month; "xx" for the day; a feast (this
// year's, or next year's when it is past); every N days; the date as it stands, in the year of
// the occurs field or else the current one. So "xx.15" is monthly whatever the occurs field
// says. Counters ("dp-", "df-") take the date as it stands.
[[nodiscard]] std::optional<CivilDate> EventDateByRule(const DateField& field, const Occurs& occurs,
                                                       CivilDate today);

// A date that has passed, in the next year: a date of the current year keeps its month and day;
// any other year is left alone. Nothing when next year lacks that day (29 February).
[[nodiscard]] std::optional<CivilDate> MoveToNextYear(CivilDate date, CivilDate today);

// True for the events that MoveToNextYear is for: all but one-time and til-done events and
// counters.
[[nodiscard]] bool IsMovedOn(const Occurs& occurs);

// True for the events that have one date in all their life, gone or to come: counters, and
// one-time and til-done events with a month and a day. A feast falls each year, and a date with
// "xx" again and again, whatever year the occurs field names.
[[nodiscard]] bool HasOneDate(const DateField& field, const Occurs& occurs);

// The first occurrence on or after `today`: EventDateByRule, moved on when it has passed.
// One-time and til-done events and counters are never moved; their date may lie in the past.
[[nodiscard]] std::optional<CivilDate> NextOccurrence(const DateField& field, const Occurs& occurs,
                                                      CivilDate today);

}  // namespace tidewarden
