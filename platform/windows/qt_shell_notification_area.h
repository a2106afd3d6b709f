// The shell's notification area in a program of Qt. Qt hands messages of the mouse on only from its
// own queue, but the shell sends them to the window directly: so the window itself is listened to.
#pragma once

#include <QIcon>
#include <memory>
#include <vector>

#include "platform/windows/shell_notification_area.h"

namespace tidewarden {

// Needs a running QGuiApplication.
class QtShellNotificationArea : public ShellNotificationArea {
 public:
  QtShellNotificationArea() = default;
  ~QtShellNotificationArea() override;
  QtShellNotificationArea(const QtShellNotificationArea&) = delete;
  QtShellNotificationArea& operator=(const QtShellNotificationArea&) = delete;

  void NotifyIcon(NotifyIconMessage message, const NotifyIconRecord& record,
                  std::string_view tooltip) override;

  // The handle of the picture in the size that the area shows. It lasts as long as this object.
  [[nodiscard]] IconHandle AddIcon(const QIcon& icon);

 private:
  void ListenTo(HWND window);
  static LRESULT CALLBACK Hear(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                               DWORD_PTR area);

  struct DestroyPicture {
    void operator()(HICON picture) const { ::DestroyIcon(picture); }
  };
  HWND owner_ = nullptr;
  std::vector<std::unique_ptr<std::remove_pointer_t<HICON>, DestroyPicture>> pictures_;
};

}  // namespace tidewarden
