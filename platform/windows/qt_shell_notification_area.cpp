#include "platform/windows/qt_shell_notification_area.h"

#include <QCoreApplication>
#include <QImage>
#include <QPixmap>

namespace tidewarden {

QtShellNotificationArea::QtShellNotificationArea() {
  QCoreApplication::instance()->installNativeEventFilter(this);
}

QtShellNotificationArea::~QtShellNotificationArea() {
  if (QCoreApplication* const application = QCoreApplication::instance()) {
    application->removeNativeEventFilter(this);
  }
}

IconHandle QtShellNotificationArea::AddIcon(const QIcon& icon) {
  // In the system's own pixels.
  const QSize size(::GetSystemMetrics(SM_CXSMICON), ::GetSystemMetrics(SM_CYSMICON));
  pictures_.emplace_back(icon.pixmap(size, 1.0).toImage().toHICON());
  return NumberOf(pictures_.back().get());
}

bool QtShellNotificationArea::nativeEventFilter(const QByteArray& /*eventType*/, void* message,
                                                qintptr* result) {
  const MSG& received = *static_cast<const MSG*>(message);
  if (!HandleMessage(received.hwnd, received.message, received.wParam, received.lParam)) {
    return false;
  }
  *result = 0;
  return true;
}

}  // namespace tidewarden
