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
  switch (box.exec()) {
    case QMessageBox::Yes:
      return MessageAnswer::kYes;
    case QMessageBox::No:
      return MessageAnswer::kNo;
    case QMessageBox::Cancel:
      return MessageAnswer::kCancel;
    default:
      break;
  }
  return buttons == MessageButtons::kYesNo ? MessageAnswer::kNo : MessageAnswer::kOk;
}

bool QtShiftKey::IsDown() {
  return QGuiApplication::queryKeyboardModifiers().testFlag(Qt::ShiftModifier);
}

}  // namespace tidewarden
