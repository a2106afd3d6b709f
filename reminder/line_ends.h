// The two ends of an event line. They tell when the event falls and with how much notice, so that
// most lines of a long file are done with before anybody looks for the ends of their title.
#pragma once

#include <bit>
#include <cstdint>
#include <string_view>

#include "dates/words.h"

namespace tidewarden {

// A date field of five bytes and an occurs field of at most eight, packed into two numbers that
// are equal only when the fields are. The first byte of a field is the least significant one.
struct PackedFields {
  std::uint64_t date = 0;  // the top byte is the length of the occurs field and a bit always set
  std::uint64_t occurs = 0;

  bool operator==(const PackedFields&) const = default;
};

inline constexpr std::size_t kPackedDate = 5;
inline constexpr std::size_t kMostPackedOccurs = kWord;

// What the date's number holds beside the date.
[[nodiscard]] constexpr std::uint64_t PackedLength(std::size_t occursLength) {
  return (0x80U | static_cast<std::uint64_t>(occursLength)) << 56U;
}

[[nodiscard]] constexpr std::size_t LengthOfOccurs(PackedFields fields) {
  return fields.date >> 56U & 0x7FU;
}

struct LineEnds {
  PackedFields fields;  // the occurs field as read, not trimmed
  int advance = 0;      // 0 to 999
};

// Reads the ends of a line that has the common form: five bytes and a comma; anything; a comma,
// one to three digits, a comma; at most seven bytes, no "*" at the end. What stands between, and
// so the number of commas, is not looked at: the fields are those of SplitEventLine only if that
// accepts the line with a date field of five bytes. Where it does not, the line is no event. False
// for any other line.
[[nodiscard]] inline bool ReadLineEnds(std::string_view line, LineEnds& out) {
  constexpr std::size_t kShortest = 12;  // room for the notice before the last eight bytes
  constexpr std::uint64_t kDateBytes = 0xFFFFFFFFFF;
  if (line.size() < kShortest || line[kPackedDate] != ',') return false;
  const char* const lastWord = line.data() + line.size() - kWord;
  const std::uint64_t tail = LittleEndianWord(lastWord);
  const std::uint64_t commas = BytesEqualTo(tail, ',');
  if (commas == 0 || tail >> 56U == '*') return false;
  const auto comma = kWord - 1 - static_cast<std::size_t>(std::countl_zero(commas)) / 8;
  out.fields.date = (LittleEndianWord(line.data()) & kDateBytes) | PackedLength(kWord - 1 - comma);
  out.fields.occurs = tail >> 8 * comma >> 8U;  // in two steps: all eight bytes may have to go

  const char* digit = lastWord + comma;
  out.advance = 0;
  for (const int value : {1, 10, 100}) {
    const auto number = static_cast<unsigned>(*--digit - '0');
    if (number > 9) return false;
    out.advance += static_cast<int>(number) * value;
    if (digit[-1] == ',') return true;
  }
  return false;
}

}  // namespace tidewarden
