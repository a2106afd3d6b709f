// Where the reminder window stands and how large it is, and what of that is kept.
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QToolButton>

#include "tests/windows/reminder_world.h"

namespace tidewarden {
namespace {

using Texts = std::vector<std::string>;

// As the user does it at the window's edge.
void Drag(frmReminder& window, QSize size) {
  window.resize(size);
  QCoreApplication::processEvents();
}

void ReleaseAt(frmReminder& window, QPoint place) {
  QTest::mouseRelease(&window, Qt::LeftButton, {}, place);
}

}  // namespace

class FrmReminderPlacementTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // The slots are called by name.
  void startsSmallWithoutSettings();
  void hasALeastSizeOnceTheUserResizesIt();
  void theQuoteNeedsItsOwnHeight();
  void standsWhereItWasLeft();
  void tenStartsChangeNothing();
  void readsTwipsToTheNearestPixel();
  void resetsADamagedPlacement();
  void keepsItsPlaceOnlyAfterAReleaseOnBareSurface_data();
  void keepsItsPlaceOnlyAfterAReleaseOnBareSurface();
  void hasBareSurfaceOnEverySide();
  void keepsNoPlaceWhereWindowsDoNotKnowIt();
  void startsMaximizedAndComesBackToTheStoredPlace();
  void maximizingIsKeptAndThePlaceIsNot();
  void comesOntoAScreenWhenItsOwnGoes_data();
  void comesOntoAScreenWhenItsOwnGoes();
  void laysItsControlsOutWithoutOverlap_data();
  void laysItsControlsOutWithoutOverlap();
};

void FrmReminderPlacementTest::startsSmallWithoutSettings() {
  World world("");
  QVERIFY(world.Load());
  StartedWindow window(world);
  QCOMPARE(window.size(), QSize(295, 135));
  // (28800 - 4455) / 2 and (16200 - 2130) / 2 twips.
  QCOMPARE(window.pos(), QPoint(811, 469));
  QCOMPARE(world.settings.At("Settings", "Width"), "4425");
  QCOMPARE(world.settings.At("Settings", "Height"), "2025");
}

void FrmReminderPlacementTest::hasALeastSizeOnceTheUserResizesIt() {
  World world("");
  QVERIFY(world.Load());
  StartedWindow window(world);
  const int writes = world.settings.writes;
  Drag(window, {296, 135});
  QCOMPARE(window.width(), 297);
  QCOMPARE(window.height(), 142);
  Drag(window, {300, 100});
  QCOMPARE(window.size(), QSize(300, 142));
  Drag(window, {500, 400});
  QCOMPARE(window.size(), QSize(500, 400));
  QCOMPARE(world.settings.writes, writes);
}

void FrmReminderPlacementTest::theQuoteNeedsItsOwnHeight() {
  World world("");
  world.files.files[kQuotesPath] = "One\r\n";
  world.Set("Options", "ShowDailyQuotes", "True");
  QVERIFY(world.Load());
  StartedWindow window(world);
  QCOMPARE(window.size(), QSize(295, 135));
  Drag(window, {300, 140});
  QCOMPARE(window.size(), QSize(300, 142 + 101));

  // The next resize after the quote has gone takes the reserve back.
  world.Set("Options", "ShowDailyQuotes", "False");
  window.RestoreFromTray();
  QCOMPARE(window.size(), QSize(300, 142 + 101));
  Drag(window, {300, 250});
  Drag(window, {300, 150});
  QCOMPARE(window.size(), QSize(300, 150));
}

void FrmReminderPlacementTest::standsWhereItWasLeft() {
  World world("");
  world.Set("Settings", "Left", "-60");
  world.Set("Settings", "Top", "-4");
  QVERIFY(world.Load());
  // -60 is damaged, -4 alone is not.
  QCOMPARE(world.settings.At("Settings", "Left"), "2025");

  World good("");
  good.Set("Settings", "Left", "-4");
  good.Set("Settings", "Top", "1500");
  good.Set("Settings", "Width", "7500");
  good.Set("Settings", "Height", "4500");
  QVERIFY(good.Load());
  StartedWindow window(good);
  QCOMPARE(window.pos(), QPoint(0, 100));
  QCOMPARE(window.size(), QSize(500, 300));
}

void FrmReminderPlacementTest::tenStartsChangeNothing() {
  Texts first;
  std::vector<MemorySettingsStore::Entry> kept;
  for (int start = 0; start < 10; ++start) {
    World world("");
    world.settings.entries = kept;
    QVERIFY(world.Load());
    StartedWindow window(world);
    if (start == 0) window.setGeometry(301, 207, 411, 333);
    QCoreApplication::processEvents();
    ReleaseAt(window, {1, 1});
    if (start == 0) first = world.Placement();
    QCOMPARE(world.Placement(), first);
    kept = world.settings.entries;
  }
  QCOMPARE(first[2], std::to_string(411 * 15));
  QCOMPARE(first[3], std::to_string(333 * 15));
}

void FrmReminderPlacementTest::readsTwipsToTheNearestPixel() {
  World world("");
  world.Set("Settings", "Left", "1507");
  world.Set("Settings", "Top", "1508");
  world.Set("Settings", "Width", "7507");
  world.Set("Settings", "Height", "4508");
  QVERIFY(world.Load());
  StartedWindow window(world);
  QCOMPARE(window.pos(), QPoint(100, 101));
  QCOMPARE(window.size(), QSize(500, 301));
  ReleaseAt(window, {1, 1});
  const Texts expected{"1500", "1515", "7500", "4515"};
  QCOMPARE(world.Placement(), expected);
}

void FrmReminderPlacementTest::resetsADamagedPlacement() {
  World world("");
  world.Set("Settings", "Left", "1500");
  world.Set("Settings", "Top", "1500");
  world.Set("Settings", "Width", "4424");
  world.Set("Settings", "Height", "4500");
  QVERIFY(world.Load());
  StartedWindow window(world);
  QCOMPARE(window.size(), QSize(295, 135));
  // (28800 - 4425) / 2 = 12187 and (16200 - 2025) / 2 = 7087 twips.
  QCOMPARE(window.pos(), QPoint(812, 472));
  const Texts expected{"2025", "1500", "4424", "4500"};
  QCOMPARE(world.Placement(), expected);
}

void FrmReminderPlacementTest::keepsItsPlaceOnlyAfterAReleaseOnBareSurface_data() {
  QTest::addColumn<QString>("control");
  for (const char* const name : {"", "List1", "sknDate", "cmdGoToEdit", "cmdTray"}) {
    QTest::newRow(*name == '\0' ? "bare surface" : name) << QString::fromLatin1(name);
  }
}

void FrmReminderPlacementTest::keepsItsPlaceOnlyAfterAReleaseOnBareSurface() {
  QFETCH(QString, control);
  World world("");
  QVERIFY(world.Load());
  StartedWindow window(world);
  window.setGeometry(90, 60, 400, 300);
  QCoreApplication::processEvents();
  const Texts before = world.Placement();
  auto* target = control.isEmpty() ? &window : window.findChild<QWidget*>(control);
  if (control == QStringLiteral("List1")) target = ListOf(window)->viewport();
  QVERIFY(target != nullptr);
  QTest::mouseRelease(target, Qt::LeftButton, {},
                      control.isEmpty() ? QPoint(399, 150) : target->rect().center());
  const Texts after{std::to_string(window.x() * 15), std::to_string(window.y() * 15), "6000",
                    "4500"};
  QCOMPARE(world.Placement(), control.isEmpty() ? after : before);
  QVERIFY(before != after);
}

void FrmReminderPlacementTest::hasBareSurfaceOnEverySide() {
  World world("");
  QVERIFY(world.Load());
  StartedWindow window(world);
  // 60 twips are 4 pixels.
  const QRect inside = window.rect().adjusted(4, 4, -4, -4);
  for (const QWidget* const control :
       window.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
    if (control->isWindow() || control->isHidden()) continue;
    QVERIFY2(inside.contains(control->geometry()), qPrintable(control->objectName()));
  }
}

void FrmReminderPlacementTest::keepsNoPlaceWhereWindowsDoNotKnowIt() {
  World world("");
  world.Set("Settings", "Left", "3000");
  world.Set("Settings", "Top", "4500");
  Screens screens = kScreens;
  screens.canPlaceWindows = false;
  QVERIFY(world.Load(screens));
  StartedWindow window(world);
  Drag(window, {500, 300});
  ReleaseAt(window, {1, 1});
  const Texts expected{"3000", "4500", "7500", "4500"};
  QCOMPARE(world.Placement(), expected);
}

void FrmReminderPlacementTest::startsMaximizedAndComesBackToTheStoredPlace() {
  World world("");
  world.Set("Settings", "Maximized", "True");
  world.Set("Settings", "Left", "1500");
  world.Set("Settings", "Top", "1500");
  world.Set("Settings", "Width", "6000");
  world.Set("Settings", "Height", "4500");
  QVERIFY(world.Load());
  StartedWindow window(world);
  QVERIFY(window.isMaximized());
  QCOMPARE(world.settings.At("Settings", "Maximized"), "True");
  window.setWindowState(Qt::WindowNoState);
  QTRY_COMPARE(world.settings.At("Settings", "Maximized"), "False");
  QTRY_COMPARE(window.size(), QSize(400, 300));
  QCOMPARE(window.pos(), QPoint(100, 100));
}

void FrmReminderPlacementTest::maximizingIsKeptAndThePlaceIsNot() {
  World world("");
  QVERIFY(world.Load());
  StartedWindow window(world);
  const Texts before = world.Placement();
  window.setWindowState(Qt::WindowMaximized);
  QTRY_COMPARE(world.settings.At("Settings", "Maximized"), "True");
  ReleaseAt(window, {1, 1});
  QCOMPARE(world.Placement(), before);
  window.setWindowState(Qt::WindowNoState);
  QTRY_COMPARE(world.settings.At("Settings", "Maximized"), "False");
}

void FrmReminderPlacementTest::comesOntoAScreenWhenItsOwnGoes_data() {
  QTest::addColumn<bool>("inTray");
  QTest::newRow("visible") << false;
  QTest::newRow("in the tray") << true;
}

void FrmReminderPlacementTest::comesOntoAScreenWhenItsOwnGoes() {
  QFETCH(bool, inTray);
  World world("");
  world.Set("Settings", "Left", "30000");
  world.Set("Settings", "Top", "1500");
  world.Set("Settings", "Width", "6000");
  world.Set("Settings", "Height", "4500");
  Screens two = kScreens;
  two.all.push_back({28800, 0, 19200, 12000});
  QVERIFY(world.Load(two));
  StartedWindow window(world);
  const auto place = [&window] { return QRect(window.pos(), window.size()); };
  QCOMPARE(place(), QRect(2000, 100, 400, 300));
  if (inTray) Find<QToolButton>(window, "cmdTray")->click();
  window.ScreensChanged(two);
  QCOMPARE(place(), QRect(2000, 100, 400, 300));
  window.ScreensChanged(kScreens);
  QCOMPARE(window.isVisible(), !inTray);
  if (inTray) window.RestoreFromTray();
  // In the middle of 1920 by 1080 pixels.
  QTRY_COMPARE(place(), QRect(760, 390, 400, 300));
  QVERIFY(window.isVisible());
  QCOMPARE(world.settings.At("Settings", "Left"), "30000");
}

void FrmReminderPlacementTest::laysItsControlsOutWithoutOverlap_data() {
  QTest::addColumn<QSize>("size");
  QTest::addColumn<bool>("skinned");
  QTest::addColumn<bool>("quote");
  QTest::addColumn<bool>("date");
  for (const QSize size : {QSize(295, 135), QSize(297, 142), QSize(600, 400), QSize(1900, 1000)}) {
    for (int kind = 0; kind < 8; ++kind) {
      QTest::addRow("%dx%d kind %d", size.width(), size.height(), kind)
          << size << ((kind & 1) != 0) << ((kind & 2) != 0) << ((kind & 4) != 0);
    }
  }
}

void FrmReminderPlacementTest::laysItsControlsOutWithoutOverlap() {
  QFETCH(QSize, size);
  QFETCH(bool, skinned);
  QFETCH(bool, quote);
  QFETCH(bool, date);
  World world("12.25,Christmas,14,yearly\r\n");
  if (skinned) world.files.files[kSkinPath] = SkinOfTheProgram();
  world.files.files[kQuotesPath] = "One\r\n";
  world.Set("Options", "ShowDailyQuotes", quote ? "True" : "False");
  world.Set("Options", "ShowTodaysDateBeneathReminders", date ? "True" : "False");
  world.Set("Settings", "Left", "0");
  world.Set("Settings", "Top", "0");
  world.Set("Settings", "Width", std::to_string(size.width() * 15));
  world.Set("Settings", "Height", std::to_string(size.height() * 15));
  QVERIFY(world.Load());
  StartedWindow window(world);
  QCOMPARE(window.size(), size);
  QList<QWidget*> shown;
  for (QWidget* const control :
       window.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
    if (!control->isWindow() && control->isVisible()) shown << control;
  }
  QCOMPARE(shown.size(), 3 + (quote ? 1 : 0) + (date ? 1 : 0));
  for (const QWidget* const one : shown) {
    QVERIFY2(one->width() > 10 && one->height() > 10, qPrintable(one->objectName()));
    QVERIFY2(window.rect().contains(one->geometry()), qPrintable(one->objectName()));
    for (const QWidget* const other : shown) {
      QVERIFY2(one == other || !one->geometry().intersects(other->geometry()),
               qPrintable(one->objectName() + u' ' + other->objectName()));
    }
  }
  // One row of the list can always be read.
  QVERIFY(ListOf(window)->viewport()->height() >= ListOf(window)->sizeHintForRow(0));
}

}  // namespace tidewarden

QTEST_MAIN(tidewarden::FrmReminderPlacementTest)
#include "frm_reminder_placement_test.moc"
