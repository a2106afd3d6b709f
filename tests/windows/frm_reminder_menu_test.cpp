// The mouse and the keyboard on the reminder list, and its menu.
#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>

#include "tests/windows/reminder_world.h"

namespace tidewarden {
namespace {

constexpr char kEvents[] =
    "12.25,Christmas,14,yearly\r\n"
    "05.29,Since the move,0,dp-2001\r\n"
    "01.10,Until the trip,0,df-2015\r\n"
    "12.20,Call the roofer,7,tdo2014\r\n";

struct Desk {
  World world{kEvents};
  std::unique_ptr<StartedWindow> window;

  explicit Desk(const std::string& events = kEvents) {
    world.files.files[kPath] = events;
    world.Set("Settings", "Left", "0");
    world.Set("Settings", "Top", "0");
    world.Set("Settings", "Width", "9000");
    world.Set("Settings", "Height", "6000");
    [this] { QVERIFY(world.Load()); }();
    window = std::make_unique<StartedWindow>(world);
  }
  ~Desk() { menu()->close(); }

  [[nodiscard]] QMenu* menu() const { return Find<QMenu>(*window, "mnuPop"); }
  [[nodiscard]] QAction* item(const char* name) const { return Find<QAction>(*window, name); }
  [[nodiscard]] QWidget* viewport() const { return ListOf(*window)->viewport(); }

  // A press without a release, which belongs to the menu.
  void RightPress(QPoint place) const {
    menu()->close();
    QTest::mousePress(viewport(), Qt::RightButton, {}, place);
  }
  void RightPress(const char* text) const {
    const int row = RowWith(*window, text);
    QVERIFY2(row >= 0, text);
    RightPress(PlaceOf(*window, row));
  }
  void Click(QPoint place) const { QTest::mouseClick(viewport(), Qt::LeftButton, {}, place); }
  void DoubleClick(QPoint place) const {
    QTest::mouseDClick(viewport(), Qt::LeftButton, {}, place);
  }

  [[nodiscard]] QStringList Shown() const {
    QStringList names;
    for (const QAction* const action : menu()->actions()) {
      if (action->isVisible()) names << action->objectName();
    }
    return names;
  }
  [[nodiscard]] QString File() { return QString::fromStdString(world.files.files[kPath]); }
};

QStringList Names(const char* text) {
  return QString::fromLatin1(text).split(u' ');
}

constexpr char kSizesAndCancel[] =
    "mnuFontSize0 mnuFontSize1 mnuFontSize2 mnuFontSize3 mnuFontSize4 mnuLine2 mnuCancel";
constexpr char kAll[] =
    "mnuHideThis mnuLine0 mnuEditEvent mnuDeleteEvent mnuLine1 mnuFontSize0 mnuFontSize1"
    " mnuFontSize2 mnuFontSize3 mnuFontSize4 mnuLine2 mnuCancel";
constexpr char kWithoutHide[] =
    "mnuEditEvent mnuDeleteEvent mnuLine1 mnuFontSize0 mnuFontSize1 mnuFontSize2 mnuFontSize3"
    " mnuFontSize4 mnuLine2 mnuCancel";

}  // namespace

class FrmReminderMenuTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // The slots are called by name.
  void hasItsItemsInOrder();
  void offersWhatTheRowAllows_data();
  void offersWhatTheRowAllows();
  void offersNoEventBelowTheLastRow();
  void opensOnceAtThePointer();
  void opensByKeyForTheSelectedRow_data();
  void opensByKeyForTheSelectedRow();
  void opensByKeyWithoutARow();
  void hidesAnEvent();
  void deletesAnEvent();
  void deletesTheLastEvent();
  void editsAnEvent();
  void cancelDoesNothing();
  void setsTheTextSize_data();
  void setsTheTextSize();
  void actsOnTheRowThatTheMenuWasOpenedFor();
  void doubleClickOpensTheSelectedEvent();
  void doubleClickOnTodayAddsAnEvent();
  void doubleClickWithoutARowDoesNothing();
  void doubleClickBesideTheRowsTakesTheSelectedOne();
  void clickBesideTheRowsLeavesTheSelection();
  void otherKeysDoNothingToEvents();
  void altEOpensTheEditor();
  void goesAwayWhileTheEditorIsOpen();
};

void FrmReminderMenuTest::hasItsItemsInOrder() {
  const Desk desk;
  const QStringList texts{QStringLiteral("Hide Until Next Occurrence"),
                          QString(),
                          QStringLiteral("Edit this Event"),
                          QStringLiteral("Delete this Event"),
                          QString(),
                          QStringLiteral("Smallest Text"),
                          QStringLiteral("Small Text"),
                          QStringLiteral("Medium Text"),
                          QStringLiteral("Large Text"),
                          QStringLiteral("Largest Text"),
                          QString(),
                          QStringLiteral("Cancel (Return to Reminders)")};
  QStringList found;
  QStringList names;
  for (const QAction* const action : desk.menu()->actions()) {
    found << action->text();
    names << action->objectName();
    QCOMPARE(action->isSeparator(), action->text().isEmpty());
  }
  QCOMPARE(found, texts);
  QCOMPARE(names, Names(kAll));
  QCOMPARE(desk.menu()->accessibleName(), QStringLiteral("Popup Menu"));
}

void FrmReminderMenuTest::offersWhatTheRowAllows_data() {
  QTest::addColumn<QByteArray>("text");
  QTest::addColumn<QStringList>("items");
  QTest::newRow("event") << QByteArray("Christmas") << Names(kAll);
  QTest::newRow("overdue") << QByteArray("Call the roofer") << Names(kAll);
  QTest::newRow("days past") << QByteArray("Since the move") << Names(kWithoutHide);
  QTest::newRow("days future") << QByteArray("Until the trip") << Names(kWithoutHide);
  QTest::newRow("today") << QByteArray("<TODAY") << Names(kSizesAndCancel);
}

void FrmReminderMenuTest::offersWhatTheRowAllows() {
  QFETCH(QByteArray, text);
  QFETCH(QStringList, items);
  const Desk desk;
  desk.RightPress(text.constData());
  QVERIFY(desk.menu()->isVisible());
  QCOMPARE(desk.Shown(), items);
  QCOMPARE(desk.world.session.selectedRow(), RowWith(*desk.window, text.constData()));
  QCOMPARE(ListOf(*desk.window)->selectionModel()->selectedIndexes().size(), 1);
}

void FrmReminderMenuTest::offersNoEventBelowTheLastRow() {
  Desk desk;
  desk.Click(PlaceOf(*desk.window, RowWith(*desk.window, "Christmas")));
  desk.RightPress(BesideTheRows(*desk.window));
  QVERIFY(desk.menu()->isVisible());
  QCOMPARE(desk.Shown(), Names(kSizesAndCancel));
  QCOMPARE(desk.world.session.selectedRow(), ReminderSession::kNoRow);
  QVERIFY(ListOf(*desk.window)->selectionModel()->selectedIndexes().isEmpty());
  // The hidden items as well: nothing may happen to a row that is not there.
  for (QAction* const action : desk.menu()->actions()) action->trigger();
  QCOMPARE(desk.File(), QString::fromLatin1(kEvents));
  QVERIFY(desk.world.editor.requests.empty());
}

void FrmReminderMenuTest::opensOnceAtThePointer() {
  const Desk desk;
  QSignalSpy shown(desk.menu(), &QMenu::aboutToShow);
  const QPoint place = PlaceOf(*desk.window, RowWith(*desk.window, "Christmas"));
  desk.RightPress(place);
  QContextMenuEvent context(QContextMenuEvent::Mouse, place, desk.viewport()->mapToGlobal(place));
  QApplication::sendEvent(desk.viewport(), &context);
  QCOMPARE(shown.count(), 1);
  QCOMPARE(desk.menu()->pos(), desk.viewport()->mapToGlobal(place));
}

void FrmReminderMenuTest::opensByKeyForTheSelectedRow_data() {
  QTest::addColumn<int>("key");
  QTest::addColumn<int>("modifiers");
  QTest::newRow("menu key") << int{Qt::Key_Menu} << 0;
  QTest::newRow("Shift+F10") << int{Qt::Key_F10} << static_cast<int>(Qt::ShiftModifier);
}

void FrmReminderMenuTest::opensByKeyForTheSelectedRow() {
  QFETCH(int, key);
  QFETCH(int, modifiers);
  const Desk desk;
  const int row = RowWith(*desk.window, "Christmas");
  desk.Click(PlaceOf(*desk.window, row));
  QTest::keyClick(ListOf(*desk.window), static_cast<Qt::Key>(key),
                  Qt::KeyboardModifiers(QFlag(modifiers)));
  QVERIFY(desk.menu()->isVisible());
  QCOMPARE(desk.Shown(), Names(kAll));
  QCOMPARE(desk.world.session.selectedRow(), row);
}

void FrmReminderMenuTest::opensByKeyWithoutARow() {
  const Desk desk;
  QTest::keyClick(ListOf(*desk.window), Qt::Key_Menu);
  QVERIFY(desk.menu()->isVisible());
  QCOMPARE(desk.Shown(), Names(kSizesAndCancel));
}

void FrmReminderMenuTest::hidesAnEvent() {
  Desk desk;
  desk.RightPress("Christmas");
  desk.item("mnuHideThis")->trigger();
  QVERIFY(desk.File().startsWith(QStringLiteral("12.25,Christmas,14,yearly*\r\n05.29")));
  QCOMPARE(RowWith(*desk.window, "Christmas"), -1);
  QCOMPARE(desk.world.session.selectedRow(), ReminderSession::kNoRow);

  // An overdue task stays in the list; hiding it twice marks it once.
  for (int i = 0; i < 2; ++i) {
    desk.RightPress("Call the roofer");
    desk.item("mnuHideThis")->trigger();
  }
  QVERIFY(desk.File().endsWith(QStringLiteral("12.20,Call the roofer,7,tdo2014*\r\n")));
}

void FrmReminderMenuTest::deletesAnEvent() {
  Desk desk("\r\nhello\r\n12.25,Christmas,14,yearly\r\n12.26,Boxing Day,14,yearly");
  desk.RightPress("Christmas");
  desk.item("mnuDeleteEvent")->trigger();
  QCOMPARE(desk.File(), QStringLiteral("\r\nhello\r\n12.26,Boxing Day,14,yearly\r\n"));
  QCOMPARE(RowsOf(*desk.window).size(), 2);
  QVERIFY(desk.world.messages.shown.empty());
}

void FrmReminderMenuTest::deletesTheLastEvent() {
  Desk desk("12.25,Christmas,14,yearly\r\n");
  desk.RightPress("Christmas");
  desk.item("mnuDeleteEvent")->trigger();
  QCOMPARE(desk.File(), QString());
  QCOMPARE(RowsOf(*desk.window), QStringList{QStringLiteral("12/22/2014   <TODAY>")});
}

void FrmReminderMenuTest::editsAnEvent() {
  const Desk desk;
  desk.RightPress("Call the roofer");
  desk.item("mnuEditEvent")->trigger();
  QCOMPARE(desk.world.editor.requests.size(), std::size_t{1});
  QCOMPARE(desk.world.editor.requests[0].RequestedEditLine, 3);
  QVERIFY(!desk.world.editor.requests[0].RequestedAdd);
}

void FrmReminderMenuTest::cancelDoesNothing() {
  Desk desk;
  desk.RightPress("Christmas");
  const int builds = desk.world.session.builds();
  desk.item("mnuCancel")->trigger();
  QCOMPARE(desk.world.session.builds(), builds);
  QCOMPARE(desk.File(), QString::fromLatin1(kEvents));
}

void FrmReminderMenuTest::setsTheTextSize_data() {
  QTest::addColumn<QByteArray>("name");
  QTest::addColumn<int>("points");
  QTest::newRow("smallest") << QByteArray("mnuFontSize0") << 8;
  QTest::newRow("small") << QByteArray("mnuFontSize1") << 10;
  QTest::newRow("medium") << QByteArray("mnuFontSize2") << 12;
  QTest::newRow("large") << QByteArray("mnuFontSize3") << 14;
  QTest::newRow("largest") << QByteArray("mnuFontSize4") << 18;
}

void FrmReminderMenuTest::setsTheTextSize() {
  QFETCH(QByteArray, name);
  QFETCH(int, points);
  const Desk desk;
  desk.RightPress("Christmas");
  const int builds = desk.world.session.builds();
  const int row = desk.world.session.selectedRow();
  desk.item(name.constData())->trigger();
  QCOMPARE(desk.world.settings.At("Settings", "FontSize"), std::to_string(points));
  QCOMPARE(ListOf(*desk.window)->font().pointSize(), points);
  QCOMPARE(Find<QWidget>(*desk.window, "txtDailyQuote")->font().pointSize(), points);
  // Rows are as high as their text.
  QVERIFY(ListOf(*desk.window)->sizeHintForRow(0) >=
          QFontMetrics(ListOf(*desk.window)->font()).height());
  QCOMPARE(desk.world.session.builds(), builds);
  QCOMPARE(desk.world.session.selectedRow(), row);
}

void FrmReminderMenuTest::actsOnTheRowThatTheMenuWasOpenedFor() {
  Desk desk("12.25,Christmas,14,yearly\r\n12.26,Boxing Day,14,yearly\r\n");
  desk.RightPress("Boxing Day");
  desk.world.files.files[kPath] = "12.24,Eve,14,yearly\r\n" + desk.world.files.files[kPath];
  desk.world.TickOn(*desk.window, MakeDate(2014, 12, 23));
  QVERIFY(desk.menu()->isVisible());
  desk.item("mnuDeleteEvent")->trigger();
  QCOMPARE(desk.File(), QStringLiteral("12.24,Eve,14,yearly\r\n12.25,Christmas,14,yearly\r\n"));
}

void FrmReminderMenuTest::doubleClickOpensTheSelectedEvent() {
  const Desk desk;
  const QPoint place = PlaceOf(*desk.window, RowWith(*desk.window, "Until the trip"));
  desk.Click(place);
  desk.DoubleClick(place);
  QCOMPARE(desk.world.editor.requests.size(), std::size_t{1});
  QCOMPARE(desk.world.editor.requests[0].RequestedEditLine, 2);
  QVERIFY(!desk.world.editor.requests[0].RequestedAdd);
  QVERIFY(!desk.window->isVisible());
  QCOMPARE(desk.world.settings.At("Settings", "Maximized"), "False");
}

void FrmReminderMenuTest::doubleClickOnTodayAddsAnEvent() {
  const Desk desk;
  const QPoint place = PlaceOf(*desk.window, RowWith(*desk.window, "<TODAY"));
  desk.Click(place);
  desk.DoubleClick(place);
  QCOMPARE(desk.world.editor.requests.size(), std::size_t{1});
  QCOMPARE(desk.world.editor.requests[0].RequestedEditLine, -1);
  QVERIFY(desk.world.editor.requests[0].RequestedAdd);
}

void FrmReminderMenuTest::doubleClickWithoutARowDoesNothing() {
  const Desk desk;
  desk.Click(BesideTheRows(*desk.window));
  desk.DoubleClick(BesideTheRows(*desk.window));
  QVERIFY(desk.world.editor.requests.empty());
  QVERIFY(desk.window->isVisible());
}

void FrmReminderMenuTest::doubleClickBesideTheRowsTakesTheSelectedOne() {
  const Desk desk;
  desk.Click(PlaceOf(*desk.window, RowWith(*desk.window, "Christmas")));
  desk.DoubleClick(BesideTheRows(*desk.window));
  QCOMPARE(desk.world.editor.requests.size(), std::size_t{1});
  QCOMPARE(desk.world.editor.requests[0].RequestedEditLine, 0);
}

void FrmReminderMenuTest::clickBesideTheRowsLeavesTheSelection() {
  const Desk desk;
  const int row = RowWith(*desk.window, "Christmas");
  desk.Click(PlaceOf(*desk.window, row));
  desk.Click(BesideTheRows(*desk.window));
  QCOMPARE(desk.world.session.selectedRow(), row);
  QVERIFY(ListOf(*desk.window)->selectionModel()->isRowSelected(row, {}));
}

void FrmReminderMenuTest::otherKeysDoNothingToEvents() {
  Desk desk;
  desk.Click(PlaceOf(*desk.window, RowWith(*desk.window, "Christmas")));
  for (const auto key : {Qt::Key_Delete, Qt::Key_Return, Qt::Key_Enter, Qt::Key_F2}) {
    QTest::keyClick(ListOf(*desk.window), key);
  }
  QCOMPARE(desk.File(), QString::fromLatin1(kEvents));
  QVERIFY(desk.world.editor.requests.empty());
  QVERIFY(!desk.menu()->isVisible());
}

void FrmReminderMenuTest::altEOpensTheEditor() {
  const Desk desk;
  desk.window->activateWindow();
  QVERIFY(QTest::qWaitForWindowActive(desk.window.get()));
  QTest::keyClick(desk.window.get(), Qt::Key_E, Qt::AltModifier);
  QTRY_COMPARE(desk.world.editor.requests.size(), std::size_t{1});
  QCOMPARE(desk.world.editor.requests[0].RequestedEditLine, -1);
  QVERIFY(!desk.world.editor.requests[0].RequestedAdd);
}

void FrmReminderMenuTest::goesAwayWhileTheEditorIsOpen() {
  Desk desk;
  desk.window->setGeometry(30, 60, 500, 300);
  QCoreApplication::processEvents();
  Find<QPushButton>(*desk.window, "cmdGoToEdit")->click();
  QVERIFY(!desk.window->isVisible());
  QCOMPARE(desk.world.settings.At("Settings", "Width"), "7500");
  QVERIFY(desk.world.area.calls.empty());

  desk.world.files.files[kPath] = "12.26,Boxing Day,14,yearly\r\n";
  desk.world.editor.loaded = false;
  desk.window->Return();
  QVERIFY(desk.window->isVisible());
  QVERIFY(RowWith(*desk.window, "Boxing Day") >= 0);
  QCOMPARE(RowsOf(*desk.window).size(), 2);
}

}  // namespace tidewarden

QTEST_MAIN(tidewarden::FrmReminderMenuTest)
#include "frm_reminder_menu_test.moc"
