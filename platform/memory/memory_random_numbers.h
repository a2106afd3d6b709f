// Random numbers that a test has chosen.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "core/random_numbers.h"

namespace tidewarden {

// Gives out `draws` in turn, from the start again when they are used up.
class MemoryRandomNumbers : public RandomNumbers {
 public:
  std::vector<double> draws{0.0};  // each at least 0 and less than 1
  std::vector<std::uint64_t> seeds;
  std::size_t drawn = 0;

  void Seed(std::uint64_t seed) override { seeds.push_back(seed); }
  [[nodiscard]] double Draw() override { return draws.at(drawn++ % draws.size()); }
};

}  // namespace tidewarden
