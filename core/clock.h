// Port: the wall clock. Only the sessions read it, once for each operation; everything below
// them takes the date and time as a parameter.
#pragma once

#include "dates/civil.h"

namespace tidewarden {

class Clock {
 public:
  virtual ~Clock() = default;

  // The local date and time.
  [[nodiscard]] virtual LocalTime Now() const = 0;
};

}  // namespace tidewarden
