#include "platform/windows/windows_ports.h"

namespace tidewarden {

bool WindowsShiftKey::IsDown() {
  // The first knows the key as of the messages that were taken; a program that has just started
  // has taken none, and the second asks the keyboard.
  return ::GetKeyState(VK_SHIFT) < 0 || ::GetAsyncKeyState(VK_SHIFT) < 0;
}

void PutOnTop(HWND window) {
  ::SetWindowPos(window, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_SHOWWINDOW);
}

}  // namespace tidewarden
