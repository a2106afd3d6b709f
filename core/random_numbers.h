// Port: random numbers, for picking a quote or a colour. Not for secrets.
#pragma once

#include <cstdint>

#include "dates/civil.h"

namespace tidewarden {

class RandomNumbers {
 public:
  virtual ~RandomNumbers() = default;

  // Starts a new sequence; the same seed gives the same one.
  virtual void Seed(std::uint64_t seed) = 0;

  // The next number of the sequence, at least 0 and less than 1.
  [[nodiscard]] virtual double Draw() = 0;
};

// The time of day as a seed: the seconds since midnight, 0 to 86,399.
[[nodiscard]] constexpr std::uint64_t SeedFromTimeOfDay(LocalTime now) {
  const int seconds = (now.hour * 60 + now.minute) * 60 + now.second;
  return static_cast<std::uint64_t>(seconds);
}

// A generator of the program's own, equal on all systems: SplitMix64 (Steele, Lea, Flood: Fast
// splittable pseudorandom number generators, 2014), whose first number already differs widely
// between neighbouring seeds.
class SplitMixNumbers : public RandomNumbers {
 public:
  void Seed(std::uint64_t seed) override { state_ = seed; }
  [[nodiscard]] double Draw() override;

  // The next 64 bits of the sequence.
  [[nodiscard]] std::uint64_t Next();

 private:
  std::uint64_t state_ = 0;
};

}  // namespace tidewarden
