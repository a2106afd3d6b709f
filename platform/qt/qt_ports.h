// The ports that Qt answers on every system: message boxes and the Shift key.
#pragma once

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

}  // namespace tidewarden
