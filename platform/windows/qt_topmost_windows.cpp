#include "platform/windows/qt_topmost_windows.h"

#include <QEvent>
#include <QWidget>

#include "platform/windows/windows_ports.h"

namespace tidewarden {

QtTopmostWindows::QtTopmostWindows(QObject& application) : QObject(&application) {
  application.installEventFilter(this);
}

bool QtTopmostWindows::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Show && watched->isWidgetType()) {
    const auto* const widget = static_cast<QWidget*>(watched);
    if (widget->isWindow() && widget->windowFlags().testFlag(Qt::WindowStaysOnTopHint)) {
      PutOnTop(reinterpret_cast<HWND>(widget->winId()));
    }
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace tidewarden
