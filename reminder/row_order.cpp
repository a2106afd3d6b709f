#include "reminder/row_order.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "dates/text.h"
#include "dates/words.h"

namespace tidewarden {
namespace {

// Rows are sorted by words: at first by the day and the time, then among equals by the first eight
// bytes of the text, then by the next eight, and so on up to this many words of text.
constexpr std::size_t kTextWords = 2;

// A row with the word that is being looked at, so that sorting moves and touches little.
struct Item {
  std::uint64_t word;
  std::size_t row;

  bool operator<(const Item& other) const {
    return word != other.word ? word < other.word : row < other.row;
  }
};
using Items = std::vector<Item>;

// Eight bytes of ASCII with their letters in lower case, all at once.
constexpr std::uint64_t LowerAsciiWord(std::uint64_t word) {
  constexpr std::uint64_t kOnes = 0x0101010101010101;
  const std::uint64_t fromA = word + kOnes * (0x80 - 'A');
  const std::uint64_t behindZ = word + kOnes * (0x80 - 'Z' - 1);
  const std::uint64_t upper = fromA & ~behindZ & (kOnes * 0x80);
  return word | (upper >> 2U);
}
static_assert(LowerAsciiWord(0x40415A5B60617A7F) == 0x40617A5B60617A7F);

std::uint64_t DayAndTime(const ReminderRow& row) {
  constexpr std::int64_t kTimesOfDay = 10000;
  constexpr std::int64_t kBeforeAllYears = 1'000'000;  // days; makes the word positive
  const std::int64_t day = DayCount{row.date}.time_since_epoch().count() + kBeforeAllYears;
  // The today line lies before its day's first minute.
  const int minute = row.kind == RowKind::kTodayLine ? 0 : row.timeOfDay + 1;
  return static_cast<std::uint64_t>(day * kTimesOfDay + minute);
}

// The start of the lower-cased text in words that compare as it does. The date at the head of the
// text is the same for all rows of a day and left out.
std::array<std::uint64_t, kTextWords> TextWords(const ReminderRow& row) {
  constexpr std::size_t kBytes = kTextWords * kWord;
  constexpr std::uint64_t kNotAscii = 0x8080808080808080;
  const std::string_view text = row.text.substr(row.dateSize);
  std::array<char, kBytes> start{};
  text.copy(start.data(), kBytes);
  std::array<std::uint64_t, kTextWords> words{};
  const auto readWords = [&] {
    for (std::size_t i = 0; i < kTextWords; ++i) words[i] = BigEndianWord(&start[i * kWord]);
  };
  readWords();
  std::uint64_t all = 0;
  for (std::uint64_t& word : words) {
    all |= word;
    word = LowerAsciiWord(word);
  }
  if ((all & kNotAscii) != 0) {
    start.fill(0);
    ToLower(FirstCharacters(text, kBytes)).copy(start.data(), kBytes);
    readWords();
  }
  return words;
}

// A radix sort from the least significant byte on (Knuth, The Art of Computer Programming, volume
// 3, section 5.2.5), which keeps the order of equal items. Bytes that are the same in all items
// are passed over. `spare` has room for as many items.
void SortMany(Item* items, std::size_t size, Item* spare) {
  constexpr std::size_t kValues = 256;
  const auto digitOf = [](const Item& item, std::size_t digit) {
    return static_cast<std::size_t>(item.word >> (8 * digit) & 0xFFU);
  };
  std::array<std::array<std::uint32_t, kValues>, kWord> counts{};
  for (const Item* item = items; item != items + size; ++item) {
    for (std::size_t digit = 0; digit < kWord; ++digit) ++counts[digit][digitOf(*item, digit)];
  }
  Item* source = items;
  Item* target = spare;
  for (std::size_t digit = 0; digit < kWord; ++digit) {
    auto& places = counts[digit];
    if (places[digitOf(*source, digit)] == size) continue;
    std::uint32_t place = 0;
    for (std::uint32_t& count : places) place += std::exchange(count, place);
    for (const Item* item = source; item != source + size; ++item) {
      target[places[digitOf(*item, digit)]++] = *item;
    }
    std::swap(source, target);
  }
  if (source != items) std::copy_n(source, size, items);
}

class Sorter {
 public:
  explicit Sorter(const std::deque<ReminderRow>& rows) : rows_(rows) {
    items_.reserve(rows.size());
    textWords_.reserve(rows.size());
    for (const ReminderRow& row : rows) {
      items_.push_back({DayAndTime(row), items_.size()});
      textWords_.push_back(TextWords(row));
    }
  }

  // The rows in their order.
  Items Sorted() {
    SortByWord(items_.data(), items_.data() + items_.size(), 0);
    return std::move(items_);
  }

 private:
  // Sorts items by their words. Their texts are known to be equal up to text word `level`.
  void SortByWord(Item* first, Item* last, std::size_t level) {
    // Counting the values of a byte pays for many items only.
    constexpr std::size_t kMany = 256;
    const auto size = static_cast<std::size_t>(last - first);
    if (size < kMany) {
      std::sort(first, last);
    } else {
      spare_.resize(std::max(spare_.size(), size));
      SortMany(first, size, spare_.data());
    }
    while (first != last) {
      Item* const end =
          std::find_if(first + 1, last, [&](const Item& item) { return item.word != first->word; });
      if (end - first > 1) SortEquals(first, end, level);
      first = end;
    }
  }

  void SortEquals(Item* first, Item* last, std::size_t level) {
    if (level < kTextWords) {
      for (Item* item = first; item != last; ++item) item->word = textWords_[item->row][level];
      SortByWord(first, last, level + 1);
      return;
    }
    std::sort(first, last, [&](const Item& a, const Item& b) {
      const int order = CompareIgnoringCase(rows_[a.row].text, rows_[b.row].text);
      return order != 0 ? order < 0 : a.row < b.row;
    });
  }

  const std::deque<ReminderRow>& rows_;
  // Read row after row before the sorting begins, because later each look would be at a text that
  // is in no cache.
  std::vector<std::array<std::uint64_t, kTextWords>> textWords_;
  Items items_;
  Items spare_;  // grown when many items are first sorted
};

}  // namespace

void SortRows(std::deque<ReminderRow>& rows) {
  Items items = Sorter(rows).Sorted();
  // The rows go to their places along the cycles of the permutation, each moved once.
  for (std::size_t start = 0; start < items.size(); ++start) {
    const ReminderRow held = rows[start];
    std::size_t place = start;
    while (items[place].row != start) {
      const std::size_t from = std::exchange(items[place].row, place);
      rows[place] = rows[from];
      place = from;
    }
    items[place].row = place;
    rows[place] = held;
  }
}

}  // namespace tidewarden
