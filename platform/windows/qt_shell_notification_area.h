// The shell's notification area in a program of Qt, whose message loop hands messages on.
#pragma once

#include <QAbstractNativeEventFilter>
#include <QIcon>
#include <memory>
#include <vector>

#include "platform/windows/shell_notification_area.h"

namespace tidewarden {

// Needs a running QGuiApplication.
class QtShellNotificationArea : public ShellNotificationArea, private QAbstractNativeEventFilter {
 public:
  QtShellNotificationArea();
  ~QtShellNotificationArea() override;
  QtShellNotificationArea(const QtShellNotificationArea&) = delete;
  QtShellNotificationArea& operator=(const QtShellNotificationArea&) = delete;

  // The handle of the picture in the size that the area shows. It lasts as long as this object.
  [[nodiscard]] IconHandle AddIcon(const QIcon& icon);

 private:
  bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

  struct DestroyPicture {
    void operator()(HICON picture) const { ::DestroyIcon(picture); }
  };
  std::vector<std::unique_ptr<std::remove_pointer_t<HICON>, DestroyPicture>> pictures_;
};

}  // namespace tidewarden
