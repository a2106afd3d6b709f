#include "editor/event_rows.h"

#include <algorithm>
#include <utility>

#include "dates/feasts.h"
#include "dates/text.h"

namespace tidewarden {
namespace {

constexpr std::size_t kTitleCells = kTitleLength + 1;
constexpr std::size_t kAdvanceCells = 9;
constexpr std::size_t kUsualRowLength = 61;
constexpr std::size_t kUsualCodeLength = 7;

void AppendPadded(std::string& out, std::string_view text, std::size_t cells) {
  out += text;
  const std::size_t length = CountCharacters(text);
  if (length < cells) out.append(cells - length, ' ');
}

// Where a character stands in the order of the rows.
char32_t Rank(char32_t character) {
  return character == U'_' ? 2 * U'0' - 1 : 2 * ToLower(character);
}

// Both texts from their first difference on, when letters beyond ASCII are involved.
int CompareCharacters(std::string_view a, std::string_view b) {
  while (!a.empty() && !b.empty()) {
    const char32_t x = Rank(TakeCharacter(a));
    const char32_t y = Rank(TakeCharacter(b));
    if (x != y) return x < y ? -1 : 1;
  }
  if (a.empty() && b.empty()) return 0;
  return a.empty() ? -1 : 1;
}

int CompareTexts(std::string_view a, std::string_view b) {
  const std::size_t common = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < common; ++i) {
    if (a[i] == b[i]) continue;
    const auto left = static_cast<unsigned char>(a[i]);
    const auto right = static_cast<unsigned char>(b[i]);
    if (left >= 0x80 || right >= 0x80) return CompareCharacters(a, b);
    const char32_t x = Rank(left);
    const char32_t y = Rank(right);
    if (x != y) return x < y ? -1 : 1;
  }
  if (a.size() == b.size()) return 0;
  return a.size() < b.size() ? -1 : 1;
}

bool ComesBefore(const EventRow& a, const EventRow& b) {
  const int keys = CompareTexts(a.key, b.key);
  return keys < 0 || (keys == 0 && CompareTexts(a.text, b.text) < 0);
}

void AppendHalf(std::string& out, int value) {
  if (value == DateField::kAny) {
    out += "xx";
  } else {
    AppendNumber(out, value, 2);
  }
}

std::string JoinedHalves(int first, int second) {
  std::string date;
  AppendHalf(date, first);
  date += '.';
  AppendHalf(date, second);
  return date;
}

// The days of notice at the start of their cells; "(always)" gives 0.
int AdvanceOf(std::string_view cells) {
  int value = 0;
  for (const char c : Trim(cells)) {
    if (c < '0' || c > '9') break;
    value = 10 * value + (c - '0');
  }
  return value;
}

}  // namespace

std::string_view Characters(std::string_view row, std::size_t from, std::size_t to) {
  if (IsAscii(row))
    return from > row.size() ? std::string_view() : row.substr(from - 1, to - from + 1);
  return FirstCharacters(WithoutFirstCharacters(row, from - 1), to - from + 1);
}

RowCells CellsOf(std::string_view row) {
  return {FirstCharacters(row, kDateLength), Characters(row, kTitleColumn, kAdvanceColumn - 1),
          Characters(row, kAdvanceColumn, kOccursColumn - 1),
          WithoutFirstCharacters(row, kOccursColumn - 1)};
}

RowFields FieldsOf(std::string_view row) {
  RowFields fields;
  const bool ascii = IsAscii(row);
  const std::size_t length = ascii ? row.size() : CountCharacters(row);
  if (ascii && length >= kOccursColumn) {
    // Characters are bytes, as in most rows.
    fields.date = row.substr(0, kDateLength);
    fields.title = Trim(row.substr(kTitleColumn - 2, kTitleCells));
    fields.advance = AdvanceOf(row.substr(kAdvanceColumn - 1, 3));
  } else {
    fields.date = FirstCharacters(row, kDateLength);
    fields.title = Trim(Characters(row, kTitleColumn - 1, kAdvanceColumn - 2));
    fields.advance = AdvanceOf(Characters(row, kAdvanceColumn, kAdvanceColumn + 2));
  }
  // A code longer than the usual ones is kept whole.
  if (length > kUsualRowLength) {
    fields.occurs = Trim(WithoutFirstCharacters(row, kOccursColumn - 1));
  } else {
    fields.occurs =
        Trim(ascii && length >= kUsualCodeLength ? row.substr(length - kUsualCodeLength)
                                                 : LastCharacters(row, kUsualCodeLength));
  }
  return fields;
}

bool IsRowFeast(std::string_view date) {
  return CountCharacters(date) == kDateLength && date.find(',') == std::string_view::npos &&
         IsFeastCode(date);
}

std::string_view EditorDatePatternOf(const RegionalDateFormat& format) {
  return format.IsMonthFirst() ? "mm.dd" : "dd.mm";
}

std::string StoredDate(int month, int day) {
  return JoinedHalves(month, day);
}

std::string ShownDate(int month, int day, const RegionalDateFormat& format) {
  const bool monthFirst = format.IsMonthFirst();
  return JoinedHalves(monthFirst ? month : day, monthFirst ? day : month);
}

std::string SwapForRow(std::string_view date, const RegionalDateFormat& format) {
  if (format.IsMonthFirst() || IsRowFeast(date)) return std::string(date);
  std::string swapped(LastCharacters(date, 2));
  swapped += '.';
  return swapped.append(FirstCharacters(date, 2));
}

std::string AdvanceText(int days, bool isCounter) {
  if (isCounter) return "(always)";
  std::string text;
  AppendNumber(text, days);
  return text += days == 1 ? " day" : " days";
}

std::string RowText(std::string_view date, std::string_view title, std::string_view advance,
                    std::string_view occurs) {
  std::string row;
  row.reserve(date.size() + title.size() + kUsualRowLength);
  row.append(date).append(" ");
  AppendPadded(row, FirstCharacters(title, kTitleLength), kTitleCells);
  AppendPadded(row, FirstCharacters(advance, kAdvanceCells), kAdvanceCells);
  return row.append(occurs);
}

EventRow MakeRow(const EventRecord& event, long line, const RegionalDateFormat& format) {
  EventRow row;
  row.key = event.EventDateAsStored;
  row.text = RowText(SwapForRow(event.EventDateAsStored, format), event.EventTitle,
                     AdvanceText(event.EventAdvance, event.occurs.IsCounter()), event.EventOccurs);
  row.line = line;
  row.isHidden = event.EventHidden;
  return row;
}

EventRow MakeTodayRow(CivilDate today, TodayCase letters, const RegionalDateFormat& format) {
  EventRow row;
  row.key = StoredDate(MonthOf(today), DayOf(today));
  row.text = ShownDate(MonthOf(today), DayOf(today), format) +
             (letters == TodayCase::kCapitals ? "  <TODAY>" : "  <Today>");
  row.isToday = true;
  return row;
}

std::size_t PlaceFor(const std::vector<EventRow>& rows, const EventRow& row) {
  return static_cast<std::size_t>(std::lower_bound(rows.begin(), rows.end(), row, ComesBefore) -
                                  rows.begin());
}

RowRange ReplaceRow(std::vector<EventRow>& rows, std::optional<std::size_t> removed,
                    std::optional<EventRow> added) {
  const auto at = [&](std::size_t i) { return rows.begin() + static_cast<std::ptrdiff_t>(i); };
  if (!added) {
    if (removed) rows.erase(at(*removed));
    return {removed.value_or(rows.size()), rows.size()};
  }
  const std::size_t place = PlaceFor(rows, *added);
  if (!removed) {
    rows.insert(at(place), std::move(*added));
    return {place, rows.size()};
  }
  rows[*removed] = std::move(*added);
  if (place > *removed) {
    std::rotate(at(*removed), at(*removed + 1), at(place));
    return {*removed, place};
  }
  std::rotate(at(place), at(*removed), at(*removed + 1));
  return {place, *removed + 1};
}

void SortEventRows(std::vector<EventRow>& rows) {
  // The editor writes the file in this order, so mostly nothing is to be done.
  if (!AreEventRowsSorted(rows)) std::stable_sort(rows.begin(), rows.end(), ComesBefore);
}

bool AreEventRowsSorted(const std::vector<EventRow>& rows) {
  return std::is_sorted(rows.begin(), rows.end(), ComesBefore);
}

void AppendEventLine(std::string& out, std::string_view row, const RegionalDateFormat& format) {
  const RowFields fields = FieldsOf(row);
  if (format.IsMonthFirst()) {
    out += fields.date;
  } else {
    out += SwapForRow(fields.date, format);
  }
  out.append(",").append(fields.title).append(",");
  AppendNumber(out, fields.advance);
  out.append(",").append(fields.occurs);
}

std::string EventLineOf(std::string_view row, const RegionalDateFormat& format) {
  std::string line;
  AppendEventLine(line, row, format);
  return line;
}

}  // namespace tidewarden
