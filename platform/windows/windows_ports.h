// The keyboard, and windows above all others.
#pragma once

#include "platform/windows/windows_api.h"
#include "reminder/shift_key.h"

namespace tidewarden {

class WindowsShiftKey : public ShiftKey {
 public:
  [[nodiscard]] bool IsDown() override;
};

// Shows a window above all that are not topmost, for as long as it lives, at its place and in its
// size. It does not get the focus.
void PutOnTop(HWND window);

}  // namespace tidewarden
