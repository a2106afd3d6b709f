// Random numbers that a test has chosen.
#pragma once

#include <cstdint>
#include <vector>

#include "core/random_numbers.h"

namespace tidewarden {

class MemoryRandomNumbers : public RandomNumbers {
 public:
  double next = 0;  // what every draw gives, at least 0 and less than 1
  std::vector<std::uint64_t> seeds;
  int draws = 0;

  void Seed(std::uint64_t seed) override { seeds.push_back(seed); }
  [[nodiscard]] double Draw() override {
    ++draws;
    return next;
  }
};

}  // namespace tidewarden
