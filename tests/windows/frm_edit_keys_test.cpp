// The keys of the events editor's window, wherever the focus is.
#include <QKeyEvent>
#include <QMessageBox>
#include <QTimer>
#include <functional>

#include "tests/windows/edit_window_desk.h"
#include "tests/windows/edit_window_events.h"

namespace tidewarden {
namespace {

using namespace test;

enum class Held { kNot, kLong };

// A key event as X11 delivers it: with the keyboard's clock, and without a mark when it repeats.
void SendKey(QWidget* widget, QEvent::Type type, Qt::Key key, quint64 time) {
  QKeyEvent event(type, key, Qt::NoModifier);
  event.setTimestamp(time);
  QCoreApplication::sendEvent(widget, &event);
}

void PressAndRelease(QWidget* widget, Qt::Key key, quint64 time) {
  SendKey(widget, QEvent::KeyPress, key, time);
  SendKey(widget, QEvent::KeyRelease, key, time + 80);
}

// The rest of a key that went down earlier: it repeats for a while and is then let go.
void HoldOn(QWidget* widget, Qt::Key key, quint64 from) {
  constexpr quint64 kHeldFor = 600;
  constexpr quint64 kInterval = 40;
  for (quint64 time = from; time < from + kHeldFor; time += kInterval) {
    SendKey(widget, QEvent::KeyRelease, key, time);
    SendKey(widget, QEvent::KeyPress, key, time);
  }
  SendKey(widget, QEvent::KeyRelease, key, from + kHeldFor);
}

// A real message box that the user closes with Esc; the key comes up again over `window`, after
// some repeats when it is held.
class EscapedMessageBox : public MessageBox {
 public:
  int shown = 0;
  Held held = Held::kNot;
  std::function<QWidget*()> window;

  MessageAnswer Show(const std::string& text, MessageButtons /*buttons*/,
                     MessageIcon /*icon*/) override {
    ++shown;
    QMessageBox box;
    box.setTextFormat(Qt::PlainText);
    box.setText(QString::fromStdString(text));
    QTimer::singleShot(50, &box, [&box] { QTest::keyPress(&box, Qt::Key_Escape); });
    box.exec();
    QTimer::singleShot(0, window(), [this] {
      QWidget* const focus = window()->focusWidget();
      QWidget* const target = focus ? focus : window();
      if (held == Held::kNot) QTest::keyRelease(target, Qt::Key_Escape);
      if (held == Held::kLong) HoldOn(target, Qt::Key_Escape, 5000);
    });
    return MessageAnswer::kOk;
  }
};

}  // namespace

class FrmEditKeysTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // The slots are called by name.
  void helpsWhenF1IsLetGo();
  void helpsOnceHoweverLongF1IsHeld();
  void cancelsWhenEscapeIsLetGo();
  void keepsTheEntryWhenEscapeClosesAMessage();
  void keepsTheEntryWhenEscapeClosesADropDown();
  void pressesButtonsByTheirAltKeys();
  void pressesNoIdleButtonDuringAnEntry();
  void pressesTheFocusedButtonByReturn();
  void pressesTheFocusedButtonOnceHoweverLongReturnIsHeld();
  void opensNoEventByWhatIsLeftOfAHeldReturn();
  void asksForNoDeletionByWhatIsLeftOfAHeldDelete();
  void reachesEveryControlByTabInReadingOrder();
};

void FrmEditKeysTest::helpsWhenF1IsLetGo() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  QTest::keyPress(desk.List(), Qt::Key_F1);
  QCOMPARE(desk.asked.help, 0);
  QTest::keyRelease(desk.List(), Qt::Key_F1);
  QCOMPARE(desk.asked.help, 1);
  desk.Click("cmdHelp");
  QCOMPARE(desk.asked.help, 2);
  desk.Click("cmdAdd");
  QVERIFY(!desk.Button("cmdHelp")->isEnabled());
  QTest::keyClick(desk.Box("txtEventInput"), Qt::Key_F1);
  QCOMPARE(desk.asked.help, 3);
}

void FrmEditKeysTest::helpsOnceHoweverLongF1IsHeld() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  SendKey(desk.List(), QEvent::KeyPress, Qt::Key_F1, 1000);
  HoldOn(desk.List(), Qt::Key_F1, 1500);
  QCOMPARE(desk.asked.help, 1);
  PressAndRelease(desk.List(), Qt::Key_F1, 3000);
  QCOMPARE(desk.asked.help, 2);
  // What is left of a key that closed a box of the help.
  HoldOn(desk.List(), Qt::Key_F1, 4000);
  QCOMPARE(desk.asked.help, 2);
}

void FrmEditKeysTest::cancelsWhenEscapeIsLetGo() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  QTest::keyClick(desk.List(), Qt::Key_Escape);
  QVERIFY(desk.Window().isVisible());
  desk.Select(kChristmas);
  desk.Click("cmdEdit");
  QTest::keyPress(desk.Box("txtEventInput"), Qt::Key_Escape);
  QVERIFY(desk.Window().IsEntryUnderWay());
  QTest::keyRelease(desk.Box("txtEventInput"), Qt::Key_Escape);
  QVERIFY(!desk.Window().IsEntryUnderWay());
  QCOMPARE(desk.FocusName(), QStringLiteral("List1"));
  QCOMPARE(desk.SelectedRow(), kChristmas);
  QCOMPARE(desk.File(), kEvents);
}

void FrmEditKeysTest::keepsTheEntryWhenEscapeClosesAMessage() {
  EditWindowDesk desk(kEvents);
  EscapedMessageBox box;
  desk.OtherMessages = &box;
  box.window = [&desk] { return &desk.Window(); };
  desk.OpenAdding();
  desk.Click("cmdSave");
  QCOMPARE(box.shown, 1);
  QTest::qWait(100);
  QVERIFY(desk.Window().IsEntryUnderWay());
  QCOMPARE(desk.FocusName(), QStringLiteral("txtEventInput"));

  // Not even when the key went down in the window before the box came.
  QTest::keyPress(desk.Box("txtEventInput"), Qt::Key_Escape);
  desk.Click("cmdSave");
  QCOMPARE(box.shown, 2);
  QTest::qWait(100);
  QVERIFY(desk.Window().IsEntryUnderWay());

  box.held = Held::kLong;
  desk.Click("cmdSave");
  QCOMPARE(box.shown, 3);
  QTest::qWait(100);
  QVERIFY(desk.Window().IsEntryUnderWay());
  PressAndRelease(desk.Box("txtEventInput"), Qt::Key_Escape, 9000);
  QVERIFY(!desk.Window().IsEntryUnderWay());
}

void FrmEditKeysTest::keepsTheEntryWhenEscapeClosesADropDown() {
  EditWindowDesk desk(kEvents);
  desk.OpenAdding();
  QComboBox* const kinds = desk.DropDown("cmbOccursInput");
  kinds->setFocus();
  kinds->showPopup();
  QTRY_VERIFY(kinds->view()->isVisible());
  QTest::keyPress(kinds->view(), Qt::Key_Escape);
  QTRY_VERIFY(!kinds->view()->isVisible());
  QTest::keyRelease(kinds, Qt::Key_Escape);
  QVERIFY(desk.Window().IsEntryUnderWay());

  kinds->showPopup();
  QTRY_VERIFY(kinds->view()->isVisible());
  QTest::keyPress(kinds->view(), Qt::Key_Escape);
  QTRY_VERIFY(!kinds->view()->isVisible());
  HoldOn(kinds, Qt::Key_Escape, 5000);
  QVERIFY(desk.Window().IsEntryUnderWay());
}

void FrmEditKeysTest::pressesButtonsByTheirAltKeys() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  desk.Key(Qt::Key_P, Qt::AltModifier);
  QTRY_COMPARE(desk.asked.print, 1);
  desk.Key(Qt::Key_O, Qt::AltModifier);
  QTRY_COMPARE(desk.asked.options, 1);
  desk.Key(Qt::Key_D, Qt::AltModifier);
  QTRY_COMPARE(desk.asked.donate, 1);
  desk.Select(kChristmas);
  desk.Key(Qt::Key_E, Qt::AltModifier);
  QTRY_COMPARE(desk.Text("txtEventInput"), QStringLiteral("Christmas Day"));
  desk.Type("txtEventInput", QStringLiteral("Christmas"));
  desk.Key(Qt::Key_S, Qt::AltModifier);
  QTRY_VERIFY(!desk.Window().IsEntryUnderWay());
  QVERIFY(desk.File().find("12.25,Christmas,7,yearly\r\n") != std::string::npos);
  desk.Key(Qt::Key_A, Qt::AltModifier);
  QTRY_VERIFY(desk.Window().IsEntryUnderWay());
  desk.Click("cmdCancel");
  desk.Key(Qt::Key_C, Qt::AltModifier);
  QTRY_VERIFY(!desk.Window().isVisible());
  QCOMPARE(desk.asked.showReminder, 1);
}

void FrmEditKeysTest::pressesNoIdleButtonDuringAnEntry() {
  EditWindowDesk desk(kEvents);
  desk.OpenAdding();
  for (const Qt::Key key : {Qt::Key_P, Qt::Key_O, Qt::Key_D, Qt::Key_A, Qt::Key_E, Qt::Key_C}) {
    desk.Key(key, Qt::AltModifier);
  }
  QTest::qWait(300);
  QCOMPARE(desk.asked.print + desk.asked.options + desk.asked.donate, 0);
  QVERIFY(desk.Window().isVisible());
  QVERIFY(desk.Window().IsEntryUnderWay());
  QCOMPARE(desk.Text("txtEventInput"), QString());
  for (const char* const name :
       {"cmdHelp", "cmdPrint", "cmdOptions", "cmdClose", "cmdDonate", "cmdAdd", "cmdEdit"}) {
    QVERIFY2(!desk.Button(name)->isEnabled(), name);
  }
  desk.Click("cmdCancel");
  desk.Key(Qt::Key_S, Qt::AltModifier);
  QTest::qWait(300);
  QVERIFY(desk.Shown().isEmpty());
}

void FrmEditKeysTest::pressesTheFocusedButtonByReturn() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  desk.Button("cmdPrint")->setFocus();
  desk.Key(Qt::Key_Return);
  QCOMPARE(desk.asked.print, 1);
  desk.Key(Qt::Key_Space);
  QCOMPARE(desk.asked.print, 2);
  for (const QPushButton* const button : desk.Window().findChildren<QPushButton*>()) {
    QVERIFY2(!button->isDefault(), qPrintable(button->objectName()));
  }
}

void FrmEditKeysTest::pressesTheFocusedButtonOnceHoweverLongReturnIsHeld() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  QPushButton* const print = desk.Button("cmdPrint");
  SendKey(print, QEvent::KeyPress, Qt::Key_Return, 1000);
  QCOMPARE(desk.asked.print, 1);
  HoldOn(print, Qt::Key_Return, 1500);
  QCOMPARE(desk.asked.print, 1);
  HoldOn(print, Qt::Key_Enter, 4000);
  QCOMPARE(desk.asked.print, 1);
  PressAndRelease(print, Qt::Key_Enter, 6000);
  QCOMPARE(desk.asked.print, 2);
}

void FrmEditKeysTest::opensNoEventByWhatIsLeftOfAHeldReturn() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  desk.Select(kChristmas);
  HoldOn(desk.List(), Qt::Key_Return, 1000);
  QVERIFY(!desk.Window().IsEntryUnderWay());
  PressAndRelease(desk.List(), Qt::Key_Return, 3000);
  QVERIFY(desk.Window().IsEntryUnderWay());
}

void FrmEditKeysTest::asksForNoDeletionByWhatIsLeftOfAHeldDelete() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  desk.Select(kChristmas);
  HoldOn(desk.List(), Qt::Key_Delete, 1000);
  QCOMPARE(desk.Shown(), QStringList());
  QVERIFY(!desk.Window().IsEntryUnderWay());
  PressAndRelease(desk.List(), Qt::Key_Delete, 3000);
  QCOMPARE(desk.Shown(), QStringList{kDeleteChristmas});
}

void FrmEditKeysTest::reachesEveryControlByTabInReadingOrder() {
  const auto order = [](EditWindowDesk& desk, const char* first) {
    QStringList names;
    desk.Find<QWidget>(first)->setFocus();
    do {
      names << desk.FocusName();
      QTest::keyClick(desk.Window().focusWidget(), Qt::Key_Tab);
    } while (desk.FocusName() != QLatin1String(first) && names.size() < 30);
    return names.join(QLatin1Char(' '));
  };
  EditWindowDesk desk(kEvents);
  desk.Open();
  QCOMPARE(order(desk, "List1"),
           QStringLiteral("List1 cmdAdd cmdEdit cmdHelp cmdPrint cmdOptions cmdDonate cmdClose"));
  desk.Click("cmdAdd");
  QCOMPARE(order(desk, "txtEventInput"),
           QStringLiteral("txtEventInput cmbPopular txtDateInput txtAdvanceInput cmbOccursInput "
                          "cmdSave cmdCancel"));
  desk.PickKind(4);
  QCOMPARE(order(desk, "txtEventInput"),
           QStringLiteral("txtEventInput cmbPopular txtDateInput txtAdvanceInput cmbOccursInput "
                          "txtEveryInput cmdSave cmdCancel"));
  desk.Click("cmdCancel");
  desk.Select(kChristmas);
  desk.Click("cmdEdit");
  desk.PickKind(9);
  QCOMPARE(order(desk, "cmdDelete"),
           QStringLiteral("cmdDelete txtEventInput txtDateInput txtAdvanceInput cmbOccursInput "
                          "chkEveryMonth cmdSave cmdCancel"));
}

}  // namespace tidewarden

QTEST_MAIN(tidewarden::FrmEditKeysTest)
#include "frm_edit_keys_test.moc"
