// The start with the computer, without a computer that starts.
#pragma once

#include "core/autostart.h"

namespace tidewarden {

class MemoryAutostart : public Autostart {
 public:
  bool on = false;
  StatusKind failure = StatusKind::kOk;  // of Set
  int readings = 0;
  int changes = 0;

  [[nodiscard]] bool IsOn() override {
    ++readings;
    return on;
  }
  Status Set(bool wanted) override {
    if (failure != StatusKind::kOk) return Status(failure);
    if (wanted != on) ++changes;
    on = wanted;
    return {};
  }
};

}  // namespace tidewarden
