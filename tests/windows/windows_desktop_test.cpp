// The keyboard and the order of windows, as the desktop of Windows has them.
#include <QTest>

#include "platform/windows/windows_api.h"
#include "platform/windows/windows_ports.h"

namespace tidewarden {
namespace {

void Press(BYTE key) {
  ::keybd_event(key, 0, 0, 0);
}
void Release(BYTE key) {
  ::keybd_event(key, 0, KEYEVENTF_KEYUP, 0);
}

// A window of the system's own kind, hidden at first.
class PlainWindow {
 public:
  PlainWindow()
      : window_(::CreateWindowExW(0, L"STATIC", L"plain", WS_POPUP, 120, 90, 200, 100, nullptr,
                                  nullptr, nullptr, nullptr)) {}
  PlainWindow(const PlainWindow&) = delete;
  PlainWindow& operator=(const PlainWindow&) = delete;
  ~PlainWindow() { ::DestroyWindow(window_); }

  [[nodiscard]] HWND get() const { return window_; }
  [[nodiscard]] bool IsTopmost() const {
    return (::GetWindowLongW(window_, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
  }
  [[nodiscard]] QRect Place() const {
    RECT place{};
    ::GetWindowRect(window_, &place);
    return {QPoint(place.left, place.top), QPoint(place.right - 1, place.bottom - 1)};
  }

 private:
  HWND window_;
};

}  // namespace

class WindowsDesktopTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // The slots are called by name.
  void theShiftKeyIsDownWhileItIsHeld();
  void aWindowIsShownAboveTheOthersWhereItStands();
};

void WindowsDesktopTest::theShiftKeyIsDownWhileItIsHeld() {
  WindowsShiftKey key;
  QVERIFY(!key.IsDown());
  Press(VK_CONTROL);
  const bool isOther = key.IsDown();
  Release(VK_CONTROL);
  QVERIFY(!isOther);
  Press(VK_SHIFT);
  const bool isHeld = key.IsDown();
  Release(VK_SHIFT);
  QVERIFY(isHeld);
  // What was taken from the keyboard in the meantime counts too.
  QTRY_VERIFY(!key.IsDown());
}

void WindowsDesktopTest::aWindowIsShownAboveTheOthersWhereItStands() {
  const PlainWindow window;
  QVERIFY(window.get() != nullptr);
  QVERIFY(!window.IsTopmost());
  QVERIFY(!::IsWindowVisible(window.get()));
  PutOnTop(window.get());
  QVERIFY(window.IsTopmost());
  QVERIFY(::IsWindowVisible(window.get()));
  QCOMPARE(window.Place(), QRect(120, 90, 200, 100));
}

}  // namespace tidewarden

QTEST_MAIN(tidewarden::WindowsDesktopTest)
#include "windows_desktop_test.moc"
