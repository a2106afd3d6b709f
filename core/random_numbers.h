// Port: random numbers for choices that are only for the eye.
#pragma once

#include <random>

namespace tidewarden {

class RandomNumbers {
 public:
  virtual ~RandomNumbers() = default;

  // Starts the sequence that belongs to `seed`.
  virtual void Seed(unsigned seed) = 0;

  // The next number, from 0 to below 1.
  [[nodiscard]] virtual double Draw() = 0;
};

// Numbers good enough for colours and quotes.
class PseudoRandomNumbers : public RandomNumbers {
 public:
  void Seed(unsigned seed) override { engine_.seed(seed); }
  [[nodiscard]] double Draw() override {
    constexpr double kRange = 4294967296.0;  // the engine gives 32 bits
    return static_cast<double>(engine_()) / kRange;
  }

 private:
  std::mt19937 engine_;
};

}  // namespace tidewarden
