// The ports that Qt answers on every system: message boxes and the Shift key.
#pragma once

#include <functional>

#include "core/message_box.h"
#include "reminder/shift_key.h"

namespace tidewarden {

class QtMessageBox : public MessageBox {
 public:
  MessageAnswer Show(const std::string& text, MessageButtons buttons, MessageIcon icon) override;
};

class QtShiftKey : public ShiftKey {
 public:
  [[nodiscard]] bool IsDown() override;
};

// The system's exclamation, which does not wait for its end; empty where Qt has none, as on
// Wayland. For after the application object has been made.
[[nodiscard]] std::function<void()> SystemBeep();

}  // namespace tidewarden
