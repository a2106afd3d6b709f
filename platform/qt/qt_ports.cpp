#include "platform/qt/qt_ports.h"

#include <QApplication>
#include <QMessageBox>
#include <algorithm>

namespace tidewarden {
namespace {

QMessageBox::StandardButtons ButtonsOf(MessageButtons buttons) {
  switch (buttons) {
    case MessageButtons::kOkCancel:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case MessageButtons::kYesNo:
      return QMessageBox::Yes | QMessageBox::No;
    case MessageButtons::kOk:
      break;
  }
  return QMessageBox::Ok;
}

bool StaysOnTop(const QWidget* window) {
  return window->windowFlags().testFlag(Qt::WindowStaysOnTopHint);
}

QWidgetList ShownWindows() {
  QWidgetList windows = QApplication::topLevelWidgets();
  windows.removeIf([](const QWidget* widget) {
    return !widget->isVisible() || widget->windowType() != Qt::Window;
  });
  return windows;
}

// The window that the user is in; while that is another program's, one of those that are shown.
QWidget* ParentOfBox(const QWidgetList& shown) {
  if (QWidget* const active = QApplication::activeWindow()) return active;
  if (shown.isEmpty()) return nullptr;
  const auto onTop = std::find_if(shown.begin(), shown.end(), StaysOnTop);
  return onTop == shown.end() ? shown.first() : *onTop;
}

}  // namespace

MessageAnswer QtMessageBox::Show(const std::string& text, MessageButtons buttons,
                                 MessageIcon icon) {
  const QWidgetList shown = ShownWindows();
  QMessageBox box(ParentOfBox(shown));
  // A question under such a window could not be seen, let alone answered.
  if (std::any_of(shown.begin(), shown.end(), StaysOnTop)) {
    box.setWindowFlag(Qt::WindowStaysOnTopHint);
  }
  box.setTextFormat(Qt::PlainText);
  const auto title =
      QString::fromUtf8(kMessageTitle.data(), static_cast<qsizetype>(kMessageTitle.size()));
  box.setWindowTitle(title);
  box.setText(QString::fromStdString(text));
  box.setStandardButtons(ButtonsOf(buttons));
  box.setIcon(icon == MessageIcon::kExclamation ? QMessageBox::Warning : QMessageBox::NoIcon);
  // What cannot be undone is not one careless Return away.
  if (buttons == MessageButtons::kYesNo) box.setDefaultButton(QMessageBox::No);
  switch (box.exec()) {
    case QMessageBox::Ok:
      return MessageAnswer::kOk;
    case QMessageBox::Yes:
      return MessageAnswer::kYes;
    default:
      break;
  }
  // Closed, or ended with the program: the answer that changes nothing.
  if (buttons == MessageButtons::kYesNo) return MessageAnswer::kNo;
  return buttons == MessageButtons::kOkCancel ? MessageAnswer::kCancel : MessageAnswer::kOk;
}

bool QtShiftKey::IsDown() {
  return QGuiApplication::queryKeyboardModifiers().testFlag(Qt::ShiftModifier);
}

std::function<void()> SystemBeep() {
  if (QGuiApplication::platformName().startsWith(QStringLiteral("wayland"))) return {};
  return &QApplication::beep;
}

}  // namespace tidewarden
