#include "platform/windows/qt_shell_notification_area.h"

#include <windows.h>
// Needs the types of windows.h.
#include <commctrl.h>

#include <QImage>
#include <QPixmap>

namespace tidewarden {
namespace {

constexpr UINT_PTR kListener = 1;

}  // namespace

QtShellNotificationArea::~QtShellNotificationArea() {
  ListenTo(nullptr);
}

void QtShellNotificationArea::NotifyIcon(NotifyIconMessage message, const NotifyIconRecord& record,
                                         std::string_view tooltip) {
  if (message == NotifyIconMessage::kAdd) ListenTo(WindowOf(record.hWnd));
  ShellNotificationArea::NotifyIcon(message, record, tooltip);
}

IconHandle QtShellNotificationArea::AddIcon(const QIcon& icon) {
  // In the system's own pixels.
  const QSize size(::GetSystemMetrics(SM_CXSMICON), ::GetSystemMetrics(SM_CYSMICON));
  pictures_.emplace_back(icon.pixmap(size, 1.0).toImage().toHICON());
  return NumberOf(pictures_.back().get());
}

void QtShellNotificationArea::ListenTo(HWND window) {
  if (window == owner_) return;
  if (owner_ != nullptr) ::RemoveWindowSubclass(owner_, Hear, kListener);
  owner_ = window;
  if (window != nullptr) {
    ::SetWindowSubclass(window, Hear, kListener, reinterpret_cast<DWORD_PTR>(this));
  }
}

LRESULT CALLBACK QtShellNotificationArea::Hear(HWND window, UINT message, WPARAM wParam,
                                               LPARAM lParam, UINT_PTR /*id*/, DWORD_PTR area) {
  auto* const self = reinterpret_cast<QtShellNotificationArea*>(area);
  if (message == WM_NCDESTROY) self->ListenTo(nullptr);
  if (self->HandleMessage(window, message, wParam, lParam)) return 0;
  return ::DefSubclassProc(window, message, wParam, lParam);
}

}  // namespace tidewarden
