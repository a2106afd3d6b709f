#include "dates/text.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

#include "dates/case_mapping.h"

namespace tidewarden {
namespace {

constexpr char32_t kStrayByte = 0x110000;
constexpr double kNumberCap = 1e18;

constexpr bool IsContinuation(unsigned char byte) {
  return (byte & 0xC0U) == 0x80U;
}

// Length of the well-formed sequence at the start of `text`, 0 when there is none.
// Table 3-7 of the Unicode Standard.
std::size_t SequenceLength(std::string_view text) {
  const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char lead = byteAt(0);
  if (lead < 0x80) return 1;
  if (lead < 0xC2 || lead > 0xF4) return 0;
  const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  if (text.size() < length) return 0;
  unsigned char low = 0x80;
  unsigned char high = 0xBF;
  if (lead == 0xE0) low = 0xA0;
  if (lead == 0xED) high = 0x9F;
  if (lead == 0xF0) low = 0x90;
  if (lead == 0xF4) high = 0x8F;
  if (byteAt(1) < low || byteAt(1) > high) return 0;
  for (std::size_t i = 2; i < length; ++i) {
    if (!IsContinuation(byteAt(i))) return 0;
  }
  return length;
}

std::size_t CharacterLength(std::string_view text) {
  return std::max<std::size_t>(1, SequenceLength(text));
}

std::size_t OffsetOf(std::string_view text, std::size_t characters) {
  std::size_t offset = 0;
  while (characters > 0 && offset < text.size()) {
    offset += CharacterLength(text.substr(offset));
    --characters;
  }
  return offset;
}

// How many bytes at the start of both texts are the same.
std::size_t EqualBytes(const char* a, const char* b, std::size_t size) {
  constexpr std::size_t kWord = sizeof(std::uint64_t);
  std::size_t i = 0;
  for (; i + kWord <= size; i += kWord) {
    std::uint64_t x = 0;
    std::uint64_t y = 0;
    std::memcpy(&x, a + i, kWord);
    std::memcpy(&y, b + i, kWord);
    if (x == y) continue;
    if constexpr (std::endian::native == std::endian::little) {
      return i + static_cast<std::size_t>(std::countr_zero(x ^ y)) / 8;
    } else {
      return i + static_cast<std::size_t>(std::countl_zero(x ^ y)) / 8;
    }
  }
  while (i < size && a[i] == b[i]) ++i;
  return i;
}

char32_t Mapped(char32_t character, std::span<const CaseRange> ranges) {
  const auto after = std::upper_bound(ranges.begin(), ranges.end(), character,
                                      [](char32_t c, const CaseRange& r) { return c < r.first; });
  if (after == ranges.begin()) return character;
  const CaseRange& range = *(after - 1);
  if (character > range.last || (character - range.first) % range.step != 0) return character;
  return static_cast<char32_t>(static_cast<std::int32_t>(character) + range.delta);
}

// Maps a text character by character: `mapAscii` for a text of nothing but ASCII, else `map`.
template <typename MapAscii, typename Map>
std::string MapCharacters(std::string_view text, MapAscii mapAscii, Map map) {
  std::string out(text);
  unsigned char seen = 0;
  for (char& c : out) {
    seen |= static_cast<unsigned char>(c);
    c = mapAscii(c);
  }
  if (seen < 0x80) return out;
  out.clear();
  while (!text.empty()) {
    const char first = text.front();
    const char32_t character = TakeCharacter(text);
    if (character >= kStrayByte) {
      out.push_back(first);
    } else {
      AppendCharacter(out, map(character));
    }
  }
  return out;
}

}  // namespace

bool IsAscii(std::string_view text) {
  // Whole blocks are or-ed together in a loop that the compiler turns into vector code.
  constexpr std::size_t kBlock = 256;
  unsigned char seen = 0;
  while (text.size() >= kBlock && seen < 0x80) {
    for (std::size_t i = 0; i < kBlock; ++i) seen |= static_cast<unsigned char>(text[i]);
    text.remove_prefix(kBlock);
  }
  // Lines are shorter than a block.
  constexpr std::uint64_t kHighBits = 0x8080808080808080;
  std::uint64_t words = 0;
  while (text.size() >= sizeof(words)) {
    std::uint64_t word = 0;
    std::memcpy(&word, text.data(), sizeof(word));
    words |= word;
    text.remove_prefix(sizeof(word));
  }
  for (const char c : text) seen |= static_cast<unsigned char>(c);
  return seen < 0x80 && (words & kHighBits) == 0;
}

bool IsValidUtf8(std::string_view text) {
  // Runs of ASCII are passed over in blocks that the compiler turns into vector code.
  constexpr std::size_t kBlock = 64;
  while (!text.empty()) {
    if (text.size() >= kBlock) {
      unsigned char seen = 0;
      for (std::size_t i = 0; i < kBlock; ++i) seen |= static_cast<unsigned char>(text[i]);
      if (seen < 0x80) {
        text.remove_prefix(kBlock);
        continue;
      }
    }
    // One block's worth of characters the slow way, so that the block test stays rare.
    for (std::size_t passed = 0; passed < kBlock && !text.empty();) {
      const std::size_t length = SequenceLength(text);
      if (length == 0) return false;
      text.remove_prefix(length);
      passed += length;
    }
  }
  return true;
}

std::size_t CountCharacters(std::string_view text) {
  if (IsAscii(text)) return text.size();
  std::size_t count = 0;
  for (std::size_t i = 0; i < text.size(); i += CharacterLength(text.substr(i))) ++count;
  return count;
}

std::string_view FirstCharacters(std::string_view text, std::size_t count) {
  return text.substr(0, OffsetOf(text, count));
}

std::string_view LastCharacters(std::string_view text, std::size_t count) {
  const std::size_t have = CountCharacters(text);
  return have <= count ? text : text.substr(OffsetOf(text, have - count));
}

std::string_view WithoutFirstCharacters(std::string_view text, std::size_t count) {
  return text.substr(OffsetOf(text, count));
}

char32_t ToLower(char32_t character) {
  if (character < 0x80) {
    return character >= U'A' && character <= U'Z' ? character - U'A' + U'a' : character;
  }
  return Mapped(character, LowerCaseRanges());
}

char32_t ToUpper(char32_t character) {
  if (character < 0x80) {
    return character >= U'a' && character <= U'z' ? character - U'a' + U'A' : character;
  }
  return Mapped(character, UpperCaseRanges());
}

std::string ToLower(std::string_view text) {
  return MapCharacters(text, ToLowerAscii, [](char32_t c) { return ToLower(c); });
}

std::string ToUpper(std::string_view text) {
  return MapCharacters(
      text, [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; },
      [](char32_t c) { return ToUpper(c); });
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  return CompareIgnoringCase(a, b) == 0;
}

bool EqualIgnoringAsciiCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return ToLowerAscii(x) == ToLowerAscii(y); });
}

int CompareIgnoringCase(std::string_view a, std::string_view b) {
  // Bytes that are equal need no mapping, so only the places that differ are looked at; as
  // long as those are ASCII the answer lies in the byte itself.
  const std::size_t common = std::min(a.size(), b.size());
  std::size_t i = 0;
  while (true) {
    i += EqualBytes(a.data() + i, b.data() + i, common - i);
    if (i == common) {
      // A text may end inside a character that the other one completes.
      if (i > 0 && static_cast<unsigned char>(a[i - 1]) >= 0x80) {
        return ToLower(a).compare(ToLower(b));
      }
      break;
    }
    const auto left = static_cast<unsigned char>(a[i]);
    const auto right = static_cast<unsigned char>(b[i]);
    if (left >= 0x80 || right >= 0x80) {
      const int order = ToLower(a).compare(ToLower(b));
      return order;
    }
    const char x = ToLowerAscii(a[i]);
    const char y = ToLowerAscii(b[i]);
    if (x != y) return static_cast<unsigned char>(x) < static_cast<unsigned char>(y) ? -1 : 1;
    ++i;
  }
  if (a.size() == b.size()) return 0;
  return a.size() < b.size() ? -1 : 1;
}

bool IsDigits(std::string_view text) {
  for (const char c : text) {
    if (c < '0' || c > '9') return false;
  }
  return !text.empty();
}

double LeadingNumber(std::string_view text) {
  std::size_t i = 0;
  while (i < text.size() && (text[i] == ' ' || text[i] == '\t')) ++i;
  bool negative = false;
  if (i < text.size() && (text[i] == '+' || text[i] == '-')) negative = text[i++] == '-';
  const std::size_t begin = i;
  bool point = false;
  for (; i < text.size(); ++i) {
    if (text[i] == '.' && !point) {
      point = true;
    } else if (text[i] < '0' || text[i] > '9') {
      break;
    }
  }
  double value = 0;
  const char* const digits = text.data() + begin;
  const auto read = std::from_chars(digits, text.data() + i, value, std::chars_format::fixed);
  if (read.ec == std::errc::result_out_of_range) {
    // Too large, or so small that nothing is left of it.
    const std::string_view whole(digits, std::find(digits, text.data() + i, '.'));
    value = whole.find_first_not_of('0') == std::string_view::npos ? 0 : kNumberCap;
  }
  value = std::min(value, kNumberCap);
  return negative ? -value : value;
}

long long RoundHalfToEven(double value) {
  const double below = std::floor(value);
  const double rest = value - below;
  auto result = static_cast<long long>(below);
  if (rest > 0.5 || (rest == 0.5 && result % 2 != 0)) ++result;
  return result;
}

void AppendNumber(std::string& out, int value, int width) {
  // Twice the digits of an int leave room for any sign and sensible width.
  std::array<char, 24> digits{};
  char* const end = digits.data() + digits.size();
  char* first = end;
  unsigned rest = value < 0 ? 0U - static_cast<unsigned>(value) : static_cast<unsigned>(value);
  do {
    *--first = static_cast<char>('0' + rest % 10);
    rest /= 10;
  } while (rest != 0);
  while (end - first < width && first != digits.data() + 1) *--first = '0';
  if (value < 0) *--first = '-';
  out.append(first, static_cast<std::size_t>(end - first));
}

void AppendCharacter(std::string& out, char32_t character) {
  const auto push = [&](char32_t bits) { out.push_back(static_cast<char>(bits)); };
  if (character < 0x80) {
    push(character);
  } else if (character < 0x800) {
    push(0xC0U | (character >> 6U));
    push(0x80U | (character & 0x3FU));
  } else if (character < 0x10000) {
    push(0xE0U | (character >> 12U));
    push(0x80U | ((character >> 6U) & 0x3FU));
    push(0x80U | (character & 0x3FU));
  } else {
    push(0xF0U | (character >> 18U));
    push(0x80U | ((character >> 12U) & 0x3FU));
    push(0x80U | ((character >> 6U) & 0x3FU));
    push(0x80U | (character & 0x3FU));
  }
}

char32_t TakeCharacter(std::string_view& text) {
  const auto lead = static_cast<unsigned char>(text.front());
  const std::size_t length = SequenceLength(text);
  if (length == 0) {
    text.remove_prefix(1);
    return kStrayByte + lead;
  }
  char32_t character = lead;
  if (length == 2) character = lead & 0x1FU;
  if (length == 3) character = lead & 0x0FU;
  if (length == 4) character = lead & 0x07U;
  for (std::size_t i = 1; i < length; ++i) {
    character = (character << 6U) | (static_cast<unsigned char>(text[i]) & 0x3FU);
  }
  text.remove_prefix(length);
  return character;
}

}  // namespace tidewarden
