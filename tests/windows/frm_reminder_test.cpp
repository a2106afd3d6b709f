// The reminder window, offscreen, with everything around it in memory.
#include <QAbstractButton>
#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QToolButton>

#include "tests/windows/reminder_world.h"

namespace tidewarden {

class FrmReminderTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // The slots are called by name.
  void showsTheListOfTheSession();
  void showsTodaysDateUnderTheList();
  void takesItsCaptionFromTheSettings();
  void prefersASubstituteOfTheFont();
  void showsMarkupAsItWasTyped();
  void listsManyRowsWithoutDelay();
  void staysWhereItWasScrolledTo_data();
  void staysWhereItWasScrolledTo();
  void theTrayIconKnowsTheWindowBeforeItIsShown();
  void tellsWhenTheProgramIsToEnd();
  void namesEveryControlForScreenReaders();
  void goesThroughTheControlsInTheirOrderOnTheScreen();
  void marksNoRowBeforeOneIsChosen();
  void carriesItsTextsAndTooltips();
  void hidesTheDateWhenTheUserDoesNotWantIt();
  void startsItsTimersOnlyWhenItIsStarted();
  void showsTheNewListAfterARebuild();
  void countsDownAtEachTick();
};

void FrmReminderTest::showsTheListOfTheSession() {
  World world("12.25,Christmas,14,yearly\r\n12.22,Dentist 3:30pm,0,yearly\r\n");
  QVERIFY(world.Load());
  frmReminder window(world.session);
  const QStringList expected{
      QStringLiteral("12/22/2014   <TODAY>"),
      QStringLiteral("12/22/2014 Today is DENTIST 3:30PM (1:05 to go)"),
      QStringLiteral("12/25/2014 Christmas (Thursday, 3 days)"),
  };
  QCOMPARE(RowsOf(window), expected);
}

void FrmReminderTest::countsDownAtEachTick() {
  World world("12.22,Dentist 3:30pm,0,yearly\r\n");
  QVERIFY(world.Load());
  frmReminder window(world.session);
  QSignalSpy changed(ListOf(window)->model(), &QAbstractItemModel::dataChanged);
  world.clock.now.minute = 26;
  world.Tick(window);
  QVERIFY(changed.count() > 0);
  QVERIFY(RowsOf(window).at(1).endsWith(QStringLiteral(" (1:04 to go)")));
}

void FrmReminderTest::showsTodaysDateUnderTheList() {
  World world("");
  QVERIFY(world.Load());
  frmReminder window(world.session);
  QCOMPARE(Find<QLabel>(window, "sknDate")->text(), QStringLiteral("12/22/2014"));
}

void FrmReminderTest::takesItsCaptionFromTheSettings() {
  World world("");
  QVERIFY(world.Load());
  frmReminder window(world.session);
  QCOMPARE(window.windowTitle(), QStringLiteral("Your Tidewarden Upcoming Events"));

  world.Set("Options", "TitlebarText", "Ours [*] & <b>more</b>");
  window.RestoreFromTray();
  QVERIFY(!window.isWindowModified());
  QCOMPARE(window.windowTitle(), QStringLiteral("Ours [*][*] & <b>more</b>"));
}

// Both are installed, so that Qt alone would take the face itself.
void FrmReminderTest::prefersASubstituteOfTheFont() {
  const QString face = QStringLiteral("DejaVu Sans Mono");
  const QString substitute = QStringLiteral("DejaVu Sans");
  QVERIFY(QFontInfo(QFont(face)).family() == face && QFontInfo(QFont(substitute)).exactMatch());
  QFont::insertSubstitution(face, substitute);
  const auto restore = qScopeGuard([&] { QFont::removeSubstitutions(face); });
  World world("12.25,Christmas,14,yearly\r\n");
  world.Set("Settings", "FontName", face.toStdString());
  QVERIFY(world.Load());
  StartedWindow window(world);
  QCOMPARE(QFontInfo(ListOf(window)->font()).family(), substitute);
  QCOMPARE(world.settings.At("Settings", "FontName"), face.toStdString());
}

void FrmReminderTest::showsMarkupAsItWasTyped() {
  World world("12.25,<b>x</b>,14,yearly\r\n");
  QVERIFY(world.Load());
  frmReminder window(world.session);
  QVERIFY(RowsOf(window).contains(QStringLiteral("12/25/2014 <b>x</b> (Thursday, 3 days)")));
  QCOMPARE(Find<QLabel>(window, "sknDate")->textFormat(), Qt::PlainText);
}

void FrmReminderTest::listsManyRowsWithoutDelay() {
  std::string events;
  for (int i = 0; i < 100'000; ++i)
    events += "12.25,Christmas " + std::to_string(i) + ",14,yearly\r\n";
  World world(events);
  QVERIFY(world.Load());
  frmReminder window(world.session);
  window.show();
  QVERIFY(QTest::qWaitForWindowExposed(&window));
  auto* const list = ListOf(window);
  QCOMPARE(list->model()->rowCount(), 100'001);
  const QModelIndex last = list->model()->index(100'000, 0);
  QTRY_VERIFY_WITH_TIMEOUT((list->scrollTo(last), list->visualRect(last).isValid()), 20'000);
  QVERIFY(list->viewport()->rect().intersects(list->visualRect(last)));
}

void FrmReminderTest::staysWhereItWasScrolledTo_data() {
  QTest::addColumn<int>("rows");
  QTest::addColumn<int>("top");
  QTest::addColumn<int>("width");  // with a bar below the rows in the larger window
  for (const int width : {295, 800}) {
    QTest::addRow("few, %d wide", width) << 60 << 20 << width;
    QTest::addRow("thousand, %d wide", width) << 1000 << 700 << width;
    QTest::addRow("many, %d wide", width) << 20'000 << 15'000 << width;
  }
}

void FrmReminderTest::staysWhereItWasScrolledTo() {
  QFETCH(int, rows);
  QFETCH(int, top);
  QFETCH(int, width);
  std::string events;
  for (int i = 0; i < rows; ++i) {
    events += "12.25,Christmas " + std::to_string(100'000 + i) + ",14,yearly\r\n";
  }
  World world(events);
  QVERIFY(world.Load());
  StartedWindow window(world);
  window.resize(width, width / 2);
  QScrollBar* const bar = ListOf(window)->verticalScrollBar();
  QTRY_VERIFY_WITH_TIMEOUT(bar->maximum() > top, 20'000);
  bar->setValue(top);
  const auto topRow = [&] { return ListOf(window)->indexAt(QPoint(20, 3)).row(); };
  QTRY_COMPARE(topRow(), top);

  std::vector<int> values;
  connect(bar, &QScrollBar::valueChanged, this, [&](int value) { values.push_back(value); });
  // The last event goes, by a click in the menu, and at a new day.
  world.session.OpenMenu(rows);
  Find<QAction>(window, "mnuDeleteEvent")->trigger();
  QTest::qWait(50);
  QCOMPARE(ListOf(window)->model()->rowCount(), rows);
  QTRY_COMPARE(topRow(), top);
  world.TickOn(window, MakeDate(2014, 12, 23));
  QTest::qWait(50);
  QTRY_COMPARE(topRow(), top);
  // Another text size lays out the rows anew as well, here twice in a row.
  world.session.OpenMenu(top);
  Find<QAction>(window, "mnuFontSize2")->trigger();
  Find<QAction>(window, "mnuFontSize1")->trigger();
  QTest::qWait(50);
  QTRY_COMPARE(topRow(), top);
  for (const int value : values) QCOMPARE(value, top);

  // Of a list that has become shorter the end is shown.
  world.files.files[kPath] = events.substr(0, events.find("\r\n") + 2);
  window.RestoreFromTray();
  QTRY_COMPARE(ListOf(window)->indexAt(QPoint(20, 3)).row(), 0);
}

void FrmReminderTest::theTrayIconKnowsTheWindowBeforeItIsShown() {
  struct Watch : QObject {
    World& world;
    QList<WindowHandle> owners;
    explicit Watch(World& watched) : world(watched) {}
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
      if (event->type() == QEvent::Show) owners << world.session.tIcon().OwnerForm;
      return false;
    }
  };
  World world("");
  QVERIFY(world.Load());
  Watch watch(world);
  frmReminder window(world.session);
  window.installEventFilter(&watch);
  window.Start();
  QVERIFY(window.winId() != 0);
  QCOMPARE(watch.owners, QList<WindowHandle>{static_cast<WindowHandle>(window.winId())});

  Find<QToolButton>(window, "cmdTray")->click();
  QCOMPARE(world.area.calls.size(), std::size_t{1});
  QCOMPARE(world.area.calls[0].record.hWnd, static_cast<WindowHandle>(window.winId()));

  // Another window flag may give the window another number.
  world.TickOn(window, MakeDate(2014, 12, 23));
  QCOMPARE(world.session.tIcon().OwnerForm, static_cast<WindowHandle>(window.winId()));
}

void FrmReminderTest::tellsWhenTheProgramIsToEnd() {
  World world("12.25,Christmas,14,yearly\r\n");
  world.Set("Options", "ShowOnlyIfEventsInRange", "True");
  QVERIFY(world.Load());
  frmReminder window(world.session);
  QSignalSpy ended(&window, &frmReminder::Ended);
  window.Start();
  world.shiftKey.down = true;
  world.TickOn(window, MakeDate(2015, 1, 1));
  QCOMPARE(ended.count(), 0);
  QCOMPARE(RowsOf(window), QStringList{QStringLiteral("01/01/2015   <TODAY>")});
  world.shiftKey.down = false;
  world.TickOn(window, MakeDate(2015, 1, 2));
  QCOMPARE(ended.count(), 1);
  QVERIFY(!window.isVisible());
}

// Whatever can be read or has the keyboard, also what comes later; Qt's own parts have names that
// begin with "qt_".
void FrmReminderTest::namesEveryControlForScreenReaders() {
  World world("");
  QVERIFY(world.Load());
  frmReminder window(world.session);
  QStringList named;
  for (const QWidget* const control : window.findChildren<QWidget*>()) {
    const bool counts = control->focusPolicy() != Qt::NoFocus ||
                        qobject_cast<const QLabel*>(control) != nullptr ||
                        qobject_cast<const QAbstractButton*>(control) != nullptr ||
                        qobject_cast<const QMenu*>(control) != nullptr;
    if (!counts || control->objectName().startsWith(QStringLiteral("qt_"))) continue;
    QVERIFY2(!control->objectName().isEmpty(), control->metaObject()->className());
    QVERIFY2(!control->accessibleName().isEmpty(), qPrintable(control->objectName()));
    QVERIFY2(!control->accessibleName().contains(u'&'), qPrintable(control->objectName()));
    named << control->objectName();
  }
  for (const char* const name :
       {"List1", "sknDate", "cmdGoToEdit", "cmdTray", "txtDailyQuote", "mnuPop"}) {
    QVERIFY2(named.contains(QString::fromLatin1(name)), name);
  }
  for (const QAction* const action : Find<QMenu>(window, "mnuPop")->actions()) {
    QVERIFY2(action->isSeparator() || !action->text().isEmpty(), qPrintable(action->objectName()));
  }
}

void FrmReminderTest::goesThroughTheControlsInTheirOrderOnTheScreen() {
  World world("");
  world.files.files[kQuotesPath] = "One\r\n";
  world.Set("Options", "ShowDailyQuotes", "True");
  QVERIFY(world.Load());
  StartedWindow window(world);
  ListOf(window)->setFocus();
  QStringList order;
  for (int i = 0; i < 4; ++i) {
    order << QApplication::focusWidget()->objectName();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  const QStringList expected{QStringLiteral("List1"), QStringLiteral("cmdTray"),
                             QStringLiteral("cmdGoToEdit"), QStringLiteral("txtDailyQuote")};
  QCOMPARE(order, expected);
  QCOMPARE(QApplication::focusWidget()->objectName(), QStringLiteral("List1"));
}

void FrmReminderTest::marksNoRowBeforeOneIsChosen() {
  World world("12.25,Christmas,14,yearly\r\n");
  QVERIFY(world.Load());
  StartedWindow window(world);
  ListOf(window)->setFocus();
  QTRY_VERIFY(ListOf(window)->hasFocus());
  QVERIFY(!ListOf(window)->currentIndex().isValid());
  QTest::keyClick(ListOf(window), Qt::Key_Down);
  QCOMPARE(world.session.selectedRow(), 0);
  QTest::keyClick(ListOf(window), Qt::Key_Down);
  QCOMPARE(world.session.selectedRow(), 1);
  window.RestoreFromTray();
  QCOMPARE(world.session.selectedRow(), ReminderSession::kNoRow);
  QVERIFY(ListOf(window)->selectionModel()->selectedIndexes().isEmpty());
}

void FrmReminderTest::carriesItsTextsAndTooltips() {
  World world("");
  QVERIFY(world.Load());
  const frmReminder window(world.session);
  QCOMPARE(Find<QPushButton>(window, "cmdGoToEdit")->text(), QStringLiteral("&EDIT"));
  QCOMPARE(Find<QPushButton>(window, "cmdGoToEdit")->toolTip(),
           QStringLiteral("Open the Events Editor (Alt + E)"));
  QCOMPARE(Find<QToolButton>(window, "cmdTray")->toolTip(), QStringLiteral("Send to the tray"));
  QVERIFY(!Find<QToolButton>(window, "cmdTray")->icon().isNull());
}

void FrmReminderTest::hidesTheDateWhenTheUserDoesNotWantIt() {
  World world("");
  world.Set("Options", "ShowTodaysDateBeneathReminders", "False");
  QVERIFY(world.Load());
  StartedWindow window(world);
  QVERIFY(!Find<QLabel>(window, "sknDate")->isVisible());
  QVERIFY(Find<QPushButton>(window, "cmdGoToEdit")->isVisible());
}

void FrmReminderTest::startsItsTimersOnlyWhenItIsStarted() {
  World world("");
  world.Set("Settings", "TimerInterval", "500");
  QVERIFY(world.Load());
  frmReminder window(world.session);
  auto* const timer = Find<QTimer>(window, "tmrAlarm");
  QVERIFY(!timer->isActive());
  window.Start();
  QTRY_VERIFY(timer->isActive());
  QCOMPARE(timer->interval(), 1000);
  QCOMPARE(timer->timerType(), Qt::CoarseTimer);
  QVERIFY(Find<QTimer>(window, "tmrMinute")->isActive());
}

void FrmReminderTest::showsTheNewListAfterARebuild() {
  World world("12.25,Christmas,14,yearly\r\n");
  QVERIFY(world.Load());
  frmReminder window(world.session);
  QCOMPARE(RowsOf(window).size(), 2);
  world.TickOn(window, MakeDate(2015, 1, 1));
  QCOMPARE(RowsOf(window), QStringList{QStringLiteral("01/01/2015   <TODAY>")});
  QCOMPARE(Find<QLabel>(window, "sknDate")->text(), QStringLiteral("01/01/2015"));
}

}  // namespace tidewarden

QTEST_MAIN(tidewarden::FrmReminderTest)
#include "frm_reminder_test.moc"
