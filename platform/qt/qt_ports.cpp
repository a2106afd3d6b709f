#include "platform/qt/qt_ports.h"

#include <QApplication>
#include <QMessageBox>

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

}  // namespace

MessageAnswer QtMessageBox::Show(const std::string& text, MessageButtons buttons,
                                 MessageIcon icon) {
  QMessageBox box(QApplication::activeWindow());
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
