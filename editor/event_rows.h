// The rows of the events editor's list: one event in fixed columns, counted in characters.
//
//   1-5 date, 6 blank, 7-44 title, 45 blank, 46-54 advance notice, from 55 on the occurs field
//
// A row shows the month first in month-first layouts and the day first in all others, year-first
// ones included. The TODAY row marks today's place among the events; it is no event.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/event_line.h"
#include "dates/civil.h"
#include "dates/date_text.h"

namespace tidewarden {

inline constexpr std::size_t kDateLength = 5;
inline constexpr std::size_t kTitleLength = 38;

// In EditorLineMap, the entry of the TODAY row.
inline constexpr long kTodayRowLine = 99999;

// First characters of the columns, from 1, for whoever draws them one by one.
inline constexpr int kTitleColumn = 7;
inline constexpr int kAdvanceColumn = 46;
inline constexpr int kOccursColumn = 55;

// What becomes of the "*" of hidden events when the editor writes the file: none is written, so
// that a save shows them again, or those stay whose events are not edited.
enum class HiddenMarks { kDropped, kKept };
inline constexpr HiddenMarks kHiddenMarks = HiddenMarks::kDropped;

// One row of the list.
struct EventRow {
  std::string key;   // the date as stored, month first: the rows' first order
  std::string text;  // as listed
  long line = kTodayRowLine;
  bool isToday = false;
  bool isHidden = false;  // the event's line ended with "*"
};

// The cells of a row as they are drawn, padding included. Views into the row.
struct RowCells {
  std::string_view date;
  std::string_view title;
  std::string_view advance;
  std::string_view occurs;
};
[[nodiscard]] RowCells CellsOf(std::string_view row);

// What a row says of its event. Views into the row.
struct RowFields {
  std::string_view date;    // five characters, in the user's order
  std::string_view title;   // trimmed
  int advance = 0;          // "(always)" gives 0
  std::string_view occurs;  // trimmed
};
[[nodiscard]] RowFields FieldsOf(std::string_view row);

// Characters `from` to `to` of a row, both from 1 and inclusive; fewer where the row ends.
[[nodiscard]] std::string_view Characters(std::string_view row, std::size_t from, std::size_t to);

// True for a feast code of exactly five characters without a comma, which can stand in a row and
// in the file as it is.
[[nodiscard]] bool IsRowFeast(std::string_view date);

// "mm.dd" or "dd.mm": how today's date and date messages are written.
[[nodiscard]] std::string_view EditorDatePatternOf(const RegionalDateFormat& format);

// Two halves of a date, 0 for any ("xx"), month first and in the user's order.
[[nodiscard]] std::string StoredDate(int month, int day);
[[nodiscard]] std::string ShownDate(int month, int day, const RegionalDateFormat& format);

// A date field as stored and as a row shows it, either way: the halves are swapped with a "."
// between unless the month comes first or the field is a feast code.
[[nodiscard]] std::string SwapForRow(std::string_view date, const RegionalDateFormat& format);

// "(always)" for counters, else "1 day", "7 days".
[[nodiscard]] std::string AdvanceText(int days, bool isCounter);

// A row's text. `title` is cut after 38 characters, `advance` after 9.
[[nodiscard]] std::string RowText(std::string_view date, std::string_view title,
                                  std::string_view advance, std::string_view occurs);

// The row of a parsed event of file line `line`.
[[nodiscard]] EventRow MakeRow(const EventRecord& event, long line,
                               const RegionalDateFormat& format);

// The row that marks today, "12.22  <TODAY>" or "12.22  <Today>".
enum class TodayCase { kCapitals, kSmall };
[[nodiscard]] EventRow MakeTodayRow(CivilDate today, TodayCase letters,
                                    const RegionalDateFormat& format);

// Where a row belongs among sorted rows: before the first one that does not come before it.
[[nodiscard]] std::size_t PlaceFor(const std::vector<EventRow>& rows, const EventRow& row);

// Rows from `begin` on, up to `end` exclusive.
struct RowRange {
  std::size_t begin = 0;
  std::size_t end = 0;
};

// Takes the row at `removed` out of sorted rows and puts `added` where it belongs. The answer holds
// all rows that are not where they were.
RowRange ReplaceRow(std::vector<EventRow>& rows, std::optional<std::size_t> removed,
                    std::optional<EventRow> added);

// Sorts rows by key and text, letter case ignored, by code points, "_" before the digits. Equal
// rows keep their order.
void SortEventRows(std::vector<EventRow>& rows);

[[nodiscard]] bool AreEventRowsSorted(const std::vector<EventRow>& rows);

// The line of a row in the events file, without its end. Fields of an event that the parser
// accepts give a line that it accepts.
[[nodiscard]] std::string EventLineOf(std::string_view row, const RegionalDateFormat& format);
void AppendEventLine(std::string& out, std::string_view row, const RegionalDateFormat& format);

}  // namespace tidewarden
