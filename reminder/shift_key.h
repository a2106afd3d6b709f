// Port: the Shift key, asked for at the moment when the program would end because nothing is in
// range.
#pragma once

namespace tidewarden {

class ShiftKey {
 public:
  virtual ~ShiftKey() = default;

  // True while the key is down. False where the system cannot tell.
  [[nodiscard]] virtual bool IsDown() = 0;
};

}  // namespace tidewarden
