// The keyboard, and windows above all others.
#pragma once

#include "platform/windows/windows_api.h"
#include "reminder/shift_key.h"

namespace tidewarden {

class WindowsShiftKey : public ShiftKey {
 public:
  [[nodiscard]] bool IsDown() override;
};

// Shows a window above all that are not topmost, at its place and in its size; it stays above them
// until it is told otherwise. It becomes the active one, and has the focus when the system lets
// this program come to the front: while the user works in another program, mostly not.
void PutOnTop(HWND window);

}  // namespace tidewarden
