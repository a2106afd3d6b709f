#include "reminder/row_order.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <utility>
#include <vector>

#include "dates/text.h"

namespace tidewarden {
namespace {

constexpr std::size_t kWord = sizeof(std::uint64_t);
constexpr std::size_t kWords = 3;

// What a row is sorted by, beside the row so that sorting moves little: the words are compared
// one after the other. The first is the day and the time, the others are the start of the text,
// lower-cased and with its first byte as the most significant. The date at the head of the text
// is the same for all rows of a day and left out.
struct SortKey {
  std::array<std::uint64_t, kWords> words;
  std::size_t row;
};

// Eight bytes of ASCII with their letters in lower case, all at once.
constexpr std::uint64_t LowerAsciiWord(std::uint64_t word) {
  constexpr std::uint64_t kOnes = 0x0101010101010101;
  const std::uint64_t fromA = word + kOnes * (0x80 - 'A');
  const std::uint64_t behindZ = word + kOnes * (0x80 - 'Z' - 1);
  const std::uint64_t upper = fromA & ~behindZ & (kOnes * 0x80);
  return word | (upper >> 2U);
}
static_assert(LowerAsciiWord(0x40415A5B60617A7F) == 0x40617A5B60617A7F);

// Bytes in the order in which a text compares.
std::uint64_t BigEndian(const char* bytes) {
  std::uint64_t word = 0;
  for (std::size_t i = 0; i < kWord; ++i) {
    word = word << 8U | static_cast<unsigned char>(bytes[i]);
  }
  return word;
}

SortKey KeyOf(const ReminderRow& row, std::size_t index) {
  constexpr std::int64_t kTimesOfDay = 10000;
  constexpr std::int64_t kBeforeAllYears = 1'000'000;  // days; makes the first word positive
  constexpr std::uint64_t kNotAscii = 0x8080808080808080;
  constexpr std::size_t kTextBytes = (kWords - 1) * kWord;
  SortKey key{{}, index};
  const std::int64_t day = DayCount{row.date}.time_since_epoch().count() + kBeforeAllYears;
  // The today line lies before its day's first minute.
  const int minute = row.kind == RowKind::kTodayLine ? 0 : row.timeOfDay + 1;
  key.words[0] = static_cast<std::uint64_t>(day * kTimesOfDay + minute);

  const std::string_view text = row.text.substr(row.dateSize);
  std::array<char, kTextBytes> start{};
  std::memcpy(start.data(), text.data(), std::min(text.size(), kTextBytes));
  std::uint64_t all = 0;
  for (std::size_t i = 1; i < kWords; ++i) {
    const std::uint64_t word = BigEndian(start.data() + (i - 1) * kWord);
    all |= word;
    key.words[i] = LowerAsciiWord(word);
  }
  if ((all & kNotAscii) != 0) {
    start.fill(0);
    ToLower(FirstCharacters(text, kTextBytes)).copy(start.data(), kTextBytes);
    for (std::size_t i = 1; i < kWords; ++i) {
      key.words[i] = BigEndian(start.data() + (i - 1) * kWord);
    }
  }
  return key;
}

// Sorts keys by their words: a radix sort from the least significant byte on (Knuth, The Art of
// Computer Programming, volume 3, section 5.2.5), which keeps the order of equal keys. Bytes that
// are the same in all keys are passed over.
void SortByWords(std::vector<SortKey>& keys) {
  constexpr std::size_t kValues = 256;
  constexpr std::size_t kDigits = kWords * kWord;
  const auto digitOf = [](const SortKey& key, std::size_t digit) {
    const std::uint64_t word = key.words[kWords - 1 - digit / kWord];
    return static_cast<std::size_t>(word >> (8 * (digit % kWord)) & 0xFFU);
  };
  std::array<std::array<std::size_t, kValues>, kDigits> counts{};
  for (const SortKey& key : keys) {
    for (std::size_t digit = 0; digit < kDigits; ++digit) ++counts[digit][digitOf(key, digit)];
  }
  std::vector<SortKey> sorted(keys.size());
  for (std::size_t digit = 0; digit < kDigits; ++digit) {
    std::array<std::size_t, kValues>& places = counts[digit];
    if (places[digitOf(keys.front(), digit)] == keys.size()) continue;
    std::size_t place = 0;
    for (std::size_t& count : places) place += std::exchange(count, place);
    for (const SortKey& key : keys) sorted[places[digitOf(key, digit)]++] = key;
    keys.swap(sorted);
  }
}

}  // namespace

void SortRows(std::deque<ReminderRow>& rows) {
  if (rows.empty()) return;
  std::vector<SortKey> keys;
  keys.reserve(rows.size());
  for (const ReminderRow& row : rows) keys.push_back(KeyOf(row, keys.size()));

  // A family's list is over before the counting of many values has begun.
  constexpr std::size_t kFewRows = 500;
  if (rows.size() < kFewRows) {
    std::stable_sort(keys.begin(), keys.end(),
                     [](const SortKey& a, const SortKey& b) { return a.words < b.words; });
  } else {
    SortByWords(keys);
  }
  // Texts that begin alike are put in order by what follows.
  for (auto first = keys.begin(); first != keys.end();) {
    const auto last = std::find_if(first + 1, keys.end(),
                                   [&](const SortKey& key) { return key.words != first->words; });
    if (last - first > 1) {
      std::stable_sort(first, last, [&](const SortKey& a, const SortKey& b) {
        return CompareIgnoringCase(rows[a.row].text, rows[b.row].text) < 0;
      });
    }
    first = last;
  }
  // The rows go to their places along the cycles of the permutation, each moved once.
  for (std::size_t start = 0; start < keys.size(); ++start) {
    const ReminderRow held = rows[start];
    std::size_t place = start;
    while (keys[place].row != start) {
      const std::size_t from = std::exchange(keys[place].row, place);
      rows[place] = rows[from];
      place = from;
    }
    keys[place].row = place;
    rows[place] = held;
  }
}

}  // namespace tidewarden
