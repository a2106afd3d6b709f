#include "core/random_numbers.h"

namespace tidewarden {

std::uint64_t SplitMixNumbers::Next() {
  state_ += 0x9E3779B97F4A7C15U;
  std::uint64_t bits = state_;
  bits = (bits ^ (bits >> 30U)) * 0xBF58476D1CE4E5B9U;
  bits = (bits ^ (bits >> 27U)) * 0x94D049BB133111EBU;
  return bits ^ (bits >> 31U);
}

double SplitMixNumbers::Draw() {
  // As many bits as a double holds exactly, so that rounding never gives 1.
  return static_cast<double>(Next() >> 11U) * 0x1.0p-53;
}

}  // namespace tidewarden
