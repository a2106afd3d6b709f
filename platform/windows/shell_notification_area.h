// The notification area through Shell_NotifyIconA.
//
// The record's window receives what the mouse does over the icon as its callback message, a
// mouse-move message with the icon's number and the mouse message as its parameters. Whoever runs
// the message loop hands every message of the program's windows to HandleMessage.
#pragma once

#include <functional>
#include <optional>
#include <string_view>

#include "alarm/notification_area.h"
#include "platform/windows/windows_api.h"

// Needs the types of windows.h.
#include <shellapi.h>

namespace tidewarden {

// A window or a picture by the 32 bits of its handle that count.
[[nodiscard]] HWND WindowOf(WindowHandle number);
[[nodiscard]] WindowHandle NumberOf(HWND window);
[[nodiscard]] HICON PictureOf(IconHandle number);
[[nodiscard]] IconHandle NumberOf(HICON picture);

// The record in the layout of this system: the same 88 bytes where handles have 32 bits, and as
// many more as longer handles take where they have 64. The tooltip ends in a NUL, and is in the
// code page that the process has, which its manifest may have set to UTF-8.
[[nodiscard]] NOTIFYICONDATAA NativeRecord(const NotifyIconRecord& record,
                                           unsigned codePage = ::GetACP());

// The calls of the system; a test puts its own in their places.
struct ShellAreaCalls {
  std::function<bool(DWORD message, NOTIFYICONDATAA& data)> notifyIcon;  // Shell_NotifyIconA
  std::function<bool()> wasBusy;            // why it has failed: the shell did not answer in time
  std::function<bool(HWND window)> isSeen;  // shown, and not only as a button of the taskbar
  std::function<bool()> hasArea;            // the shell's taskbar is there
  // Lets a message in from programs that have fewer rights than this one.
  std::function<void(HWND window, UINT message)> letIn;
};

[[nodiscard]] ShellAreaCalls SystemShellAreaCalls();

class ShellNotificationArea : public NotificationArea {
 public:
  explicit ShellNotificationArea(ShellAreaCalls calls = SystemShellAreaCalls());

  // Tooltips are as short as the record's.
  void NotifyIcon(NotifyIconMessage message, const NotifyIconRecord& record,
                  std::string_view tooltip) override;

  // Also false while the shell, too busy to answer, has not taken an icon that it was asked to
  // show; each call asks it once more. An icon that the shell has lost is added again; one that it
  // is too busy to tell of is not taken for lost.
  [[nodiscard]] bool IsAvailable() override;

  // Takes a message that a window of the program has received. True when it came from the shell
  // for the icon and is dealt with. Mouse moves over a window that can be seen are never taken
  // for the icon's. When the shell has started anew, the icon is added once more.
  bool HandleMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

 private:
  void Show(DWORD message);
  void LookForIcon();
  [[nodiscard]] bool IsFromIcon(HWND window, UINT message, WPARAM wParam, LPARAM lParam) const;

  ShellAreaCalls calls_;
  UINT shellStarted_;
  std::optional<NotifyIconRecord> shown_;  // or to be shown
  bool isMissing_ = false;                 // the shell has not taken it
};

}  // namespace tidewarden
