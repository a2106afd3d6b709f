// The message boxes of Qt: what they show, and what each way of ending them answers.
#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>

#include "platform/qt/qt_ports.h"

namespace tidewarden {
namespace {

// Shows a box and hands it to `act` while it waits.
MessageAnswer Answered(MessageButtons buttons, const std::function<void(QMessageBox&)>& act,
                       MessageIcon icon = MessageIcon::kNone) {
  QTimer::singleShot(0, qApp, [&act] {
    auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    QVERIFY(box != nullptr);
    act(*box);
    if (box->isVisible()) box->done(0);
  });
  return QtMessageBox().Show("Delete <b>x</b>?", buttons, icon);
}

void Press(QMessageBox& box, QMessageBox::StandardButton button) {
  box.button(button)->click();
}

}  // namespace

class MessageBoxTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void showsPlainTextUnderTheProgramsName();
  void answersWhatIsPressed();
  void answersWhatChangesNothingWhenItIsClosed();
  void hasNoForItsDefaultWhereAnythingIsLost();
  void belongsToAShownWindowWhenAnotherProgramHasTheKeyboard();
  void isNotHiddenByAWindowThatStaysOnTop();
};

void MessageBoxTest::showsPlainTextUnderTheProgramsName() {
  Answered(MessageButtons::kOk, [](QMessageBox& box) {
    QCOMPARE(box.textFormat(), Qt::PlainText);
    QCOMPARE(box.text(), QStringLiteral("Delete <b>x</b>?"));
    QCOMPARE(box.windowTitle(), QStringLiteral("Tidewarden"));
    QCOMPARE(box.icon(), QMessageBox::NoIcon);
  });
  Answered(
      MessageButtons::kOk, [](QMessageBox& box) { QCOMPARE(box.icon(), QMessageBox::Warning); },
      MessageIcon::kExclamation);
}

void MessageBoxTest::answersWhatIsPressed() {
  const auto pressed = [](MessageButtons buttons, QMessageBox::StandardButton button) {
    return Answered(buttons, [button](QMessageBox& box) { Press(box, button); });
  };
  QCOMPARE(pressed(MessageButtons::kOk, QMessageBox::Ok), MessageAnswer::kOk);
  QCOMPARE(pressed(MessageButtons::kOkCancel, QMessageBox::Ok), MessageAnswer::kOk);
  QCOMPARE(pressed(MessageButtons::kOkCancel, QMessageBox::Cancel), MessageAnswer::kCancel);
  QCOMPARE(pressed(MessageButtons::kYesNo, QMessageBox::Yes), MessageAnswer::kYes);
  QCOMPARE(pressed(MessageButtons::kYesNo, QMessageBox::No), MessageAnswer::kNo);
}

void MessageBoxTest::answersWhatChangesNothingWhenItIsClosed() {
  const auto escape = [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); };
  const auto end = [](QMessageBox& box) { box.done(0); };
  for (const std::function<void(QMessageBox&)>& way :
       {std::function<void(QMessageBox&)>(escape), std::function<void(QMessageBox&)>(end)}) {
    QCOMPARE(Answered(MessageButtons::kOk, way), MessageAnswer::kOk);
    QCOMPARE(Answered(MessageButtons::kOkCancel, way), MessageAnswer::kCancel);
    QCOMPARE(Answered(MessageButtons::kYesNo, way), MessageAnswer::kNo);
  }
}

void MessageBoxTest::hasNoForItsDefaultWhereAnythingIsLost() {
  const auto answer = Answered(MessageButtons::kYesNo, [](QMessageBox& box) {
    QVERIFY(box.defaultButton() == box.button(QMessageBox::No));
    QTest::keyClick(&box, Qt::Key_Return);
  });
  QCOMPARE(answer, MessageAnswer::kNo);
}

void MessageBoxTest::belongsToAShownWindowWhenAnotherProgramHasTheKeyboard() {
  QWidget hidden;
  QWidget tip(nullptr, Qt::ToolTip | Qt::WindowStaysOnTopHint);
  tip.show();
  QWidget window;
  window.setAttribute(Qt::WA_ShowWithoutActivating);
  window.show();
  QVERIFY(QTest::qWaitForWindowExposed(&window));
  QApplication::setActiveWindow(nullptr);
  QVERIFY(QApplication::activeWindow() == nullptr);
  Answered(MessageButtons::kOk, [&window](QMessageBox& box) {
    QCOMPARE(box.parentWidget(), &window);
    QVERIFY(!box.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
  });
}

void MessageBoxTest::isNotHiddenByAWindowThatStaysOnTop() {
  QWidget other;
  other.show();
  QWidget onTop(nullptr, Qt::Window | Qt::WindowStaysOnTopHint);
  onTop.show();
  QVERIFY(QTest::qWaitForWindowExposed(&onTop));
  QApplication::setActiveWindow(nullptr);
  Answered(MessageButtons::kOk, [&onTop](QMessageBox& box) {
    QCOMPARE(box.parentWidget(), &onTop);
    QVERIFY(box.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    QCOMPARE(box.windowType(), Qt::Dialog);
  });
  QApplication::setActiveWindow(&other);
  QCOMPARE(QApplication::activeWindow(), &other);
  Answered(MessageButtons::kOk, [&other](QMessageBox& box) {
    QCOMPARE(box.parentWidget(), &other);
    QVERIFY(box.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
  });
}

}  // namespace tidewarden

QTEST_MAIN(tidewarden::MessageBoxTest)
#include "message_box_test.moc"
