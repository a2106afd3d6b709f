// Eight bytes of a text as one number, for the few places that look at every byte of a long file.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace tidewarden {

inline constexpr std::size_t kWord = sizeof(std::uint64_t);

// Compilers make one instruction of it; the standard library has it from C++23 on.
[[nodiscard]] constexpr std::uint64_t ReverseBytes(std::uint64_t word) {
  word = (word & 0x00FF00FF00FF00FF) << 8U | (word >> 8U & 0x00FF00FF00FF00FF);
  word = (word & 0x0000FFFF0000FFFF) << 16U | (word >> 16U & 0x0000FFFF0000FFFF);
  return word << 32U | word >> 32U;
}
static_assert(ReverseBytes(0x0102030405060708) == 0x0807060504030201);

// The eight bytes at `bytes`, the first one as the least significant.
[[nodiscard]] inline std::uint64_t LittleEndianWord(const char* bytes) {
  std::uint64_t word = 0;
  std::memcpy(&word, bytes, kWord);
  return std::endian::native == std::endian::little ? word : ReverseBytes(word);
}

// The eight bytes at `bytes`, the first one as the most significant: numbers made so compare as
// the texts do.
[[nodiscard]] inline std::uint64_t BigEndianWord(const char* bytes) {
  return ReverseBytes(LittleEndianWord(bytes));
}

// The top bit of every byte that equals `byte`, and no other bit (Warren, "Hacker's Delight",
// section 6-1).
[[nodiscard]] constexpr std::uint64_t BytesEqualTo(std::uint64_t word, char byte) {
  constexpr std::uint64_t kOnes = 0x0101010101010101;
  constexpr std::uint64_t kLowBits = 0x7F * kOnes;
  word ^= kOnes * static_cast<unsigned char>(byte);
  return ~(((word & kLowBits) + kLowBits) | word | kLowBits);
}
static_assert(BytesEqualTo(0x2C002C2D2B2CAC2C, ',') == 0x8000800000800080);

}  // namespace tidewarden
