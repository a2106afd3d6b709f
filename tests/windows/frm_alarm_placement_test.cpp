// The alarm window, offscreen: where it opens, how it is resized and what is kept of that.

#include "tests/windows/alarm_world.h"

namespace tidewarden {

using namespace test;

class FrmAlarmPlacementTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void opensInItsFirstSizeWhenNothingIsStored();
  void opensAtItsStoredPlace();
  void ignoresAStoredWidthBelowTheLeast();
  void laysOutItsControls_data();
  void laysOutItsControls();
  void growsToItsLeastSizeWhenTheUserResizesIt();
  void theProgramsOwnResizingIsNoneOfTheUser();
  void writesMaximizedAtOnceAndTheRestWhenClosing();
  void opensMaximized();
  void savesItsPlaceWhenTheMouseIsReleasedOnItsSurface();
  void doesNotSaveWhenTheMouseIsReleasedOnAControl();
  void keepsItsPlaceOverManyOpenings();
  void comesBackFromAScreenThatIsGone();
};

void FrmAlarmPlacementTest::comesBackFromAScreenThatIsGone() {
  AlarmWorld world;
  world.StorePlacement(300, 450, 6000, 3000);
  world.Ring({"Dentist"});
  world.window.ScreensChanged();
  QCOMPARE(world.window.pos(), QPoint(20, 30));
  world.window.move(-9000, 50);
  world.window.ScreensChanged();
  QVERIFY(world.window.isVisible());
  QCOMPARE(world.window.pos(), QPoint(20, 30));
  QCOMPARE(world.window.size(), QSize(400, 200));
  // A window that is not open opens at its place.
  world.window.close();
  world.window.ScreensChanged();
  QVERIFY(!world.window.isVisible());
}

void FrmAlarmPlacementTest::opensInItsFirstSizeWhenNothingIsStored() {
  AlarmWorld world;
  world.Ring({"Dentist"});
  const QSize screen = QGuiApplication::primaryScreen()->size() * kTwips;
  QCOMPARE(world.window.size(), InPixels(4455, 2130));
  const QPoint centred((screen.width() - 4815) / 2, (screen.height() - 2550) / 2);
  QVERIFY(std::abs(world.window.x() * kTwips - centred.x()) <= kTwips);
  QVERIFY(std::abs(world.window.y() * kTwips - centred.y()) <= kTwips);
  world.window.close();
  QCOMPARE(world.Stored("Width"), QStringLiteral("4455"));
  QCOMPARE(world.Stored("Height"), QStringLiteral("2130"));
  QCOMPARE(world.Stored("Maximized"), QStringLiteral("False"));
  // Until the user resizes it, it opens like this again.
  world.Ring({"Bus"});
  QCOMPARE(world.window.size(), InPixels(4455, 2130));
}

void FrmAlarmPlacementTest::opensAtItsStoredPlace() {
  AlarmWorld world;
  world.StorePlacement(300, 450, 6000, 3000);
  world.Ring({"Dentist"});
  QCOMPARE(world.window.pos(), QPoint(20, 30));
  QCOMPARE(world.window.size(), QSize(400, 200));
}

void FrmAlarmPlacementTest::ignoresAStoredWidthBelowTheLeast() {
  AlarmWorld world;
  world.StorePlacement(300, 450, 4814, 3000);
  world.Ring({"Dentist"});
  QCOMPARE(world.window.size(), InPixels(4455, 2130));
  QVERIFY(world.window.pos() != QPoint(20, 30));
}

void FrmAlarmPlacementTest::laysOutItsControls_data() {
  QTest::addColumn<QSize>("size");
  QTest::newRow("first") << InPixels(4455, 2130);
  QTest::newRow("least") << InPixels(4815, 2550);
  QTest::newRow("larger") << QSize(640, 480);
}

void FrmAlarmPlacementTest::laysOutItsControls() {
  QFETCH(QSize, size);
  AlarmWorld world;
  world.Ring({"Dentist"});
  world.window.resize(size);
  const int width = world.window.width() * kTwips;
  const int height = world.window.height() * kTwips;
  const QRect picture = PlaceOf(world.Find<QWidget>("Picture1"), &world.window);
  QCOMPARE(picture, QRect(120, 120, width - 240, height - 720));
  const QRect message =
      PlaceOf(world.Find<QWidget>("lblAlarmMessage"), world.Find<QWidget>("Picture1"));
  QCOMPARE(message, QRect(345, 480, picture.width() - 570, picture.height() - 720));
  const QRect ok = PlaceOf(world.Find<QWidget>("cmdOK"), &world.window);
  QCOMPARE(ok, QRect(width - 1335, height - 495, 1215, 375));
  const QRect heading = PlaceOf(world.Find<QWidget>("Label1"), world.Find<QWidget>("Picture1"));
  QCOMPARE(heading.topLeft(), QPoint(345, 60));
  QVERIFY(heading.bottom() < message.top());
  QVERIFY(heading.right() < picture.width());
}

void FrmAlarmPlacementTest::growsToItsLeastSizeWhenTheUserResizesIt() {
  const struct {
    QSize wanted, got;
  } cases[] = {
      {{300, 150}, {321, 170}}, {{296, 142}, {321, 170}}, {{320, 170}, {321, 170}},
      {{321, 169}, {321, 170}}, {{321, 170}, {321, 170}}, {{322, 171}, {322, 171}},
      {{600, 100}, {600, 170}}, {{100, 600}, {321, 600}},
  };
  for (const auto& [wanted, got] : cases) {
    AlarmWorld world;
    world.Ring({"Dentist"});
    world.window.resize(wanted);
    QTRY_COMPARE(world.window.size(), got);
    world.window.resize(wanted);  // and again
    QTRY_COMPARE(world.window.size(), got);
    world.window.close();
    QCOMPARE(world.Stored("Width"), Twips(got.width()));
    QCOMPARE(world.Stored("Height"), Twips(got.height()));
  }
}

void FrmAlarmPlacementTest::theProgramsOwnResizingIsNoneOfTheUser() {
  AlarmWorld world;
  world.Ring({"Dentist"});
  QTest::qWait(50);
  QCOMPARE(world.window.size(), InPixels(4455, 2130));
  world.window.hide();
  world.window.show();
  QVERIFY(QTest::qWaitForWindowExposed(&world.window));
  QCOMPARE(world.window.size(), InPixels(4455, 2130));
}

void FrmAlarmPlacementTest::writesMaximizedAtOnceAndTheRestWhenClosing() {
  AlarmWorld world;
  world.StorePlacement(300, 450, 6000, 3000);
  world.Ring({"Dentist"});
  QCOMPARE(world.Stored("Maximized"), QStringLiteral("False"));
  world.window.showMaximized();
  QTRY_COMPARE(world.Stored("Maximized"), QStringLiteral("True"));
  QCOMPARE(world.Stored("Width"), QStringLiteral("6000"));
  world.window.showNormal();
  QTRY_COMPARE(world.window.size(), QSize(400, 200));
  QCOMPARE(world.Stored("Maximized"), QStringLiteral("True"));
  world.window.resize(420, 210);
  world.window.close();
  QCOMPARE(world.Stored("Maximized"), QStringLiteral("False"));
  QCOMPARE(world.Stored("Left"), QStringLiteral("300"));
  QCOMPARE(world.Stored("Width"), Twips(420));
  QCOMPARE(world.Stored("Height"), Twips(210));
}

void FrmAlarmPlacementTest::opensMaximized() {
  AlarmWorld world;
  world.StorePlacement(300, 450, 6000, 3000);
  world.Store("Maximized", "True");
  world.Ring({"Dentist"});
  QVERIFY(world.window.isMaximized());
  const QSize maximized = world.window.size();
  QVERIFY(maximized.width() > 4815 / kTwips);
  QCOMPARE(PlaceOf(world.Find<QWidget>("cmdOK"), &world.window).left(),
           maximized.width() * kTwips - 1335);
  world.window.close();
  QCOMPARE(world.Stored("Maximized"), QStringLiteral("True"));
  QCOMPARE(world.Stored("Width"), QStringLiteral("6000"));
  world.Ring({"Bus"});
  QVERIFY(world.window.isMaximized());
  world.window.showNormal();
  QTRY_COMPARE(world.window.size(), InPixels(4455, 2130));
}

void FrmAlarmPlacementTest::savesItsPlaceWhenTheMouseIsReleasedOnItsSurface() {
  AlarmWorld world;
  world.StorePlacement(300, 450, 6000, 3000);
  world.Ring({"Dentist"});
  world.window.move(60, 90);
  world.window.resize(450, 240);
  QCOMPARE(world.Stored("Left"), QStringLiteral("300"));
  for (const auto button : {Qt::LeftButton, Qt::RightButton}) {
    QTest::mouseClick(&world.window, button, {}, QPoint(2, 2));
    QCOMPARE(world.Stored("Left"), Twips(60));
    QCOMPARE(world.Stored("Top"), Twips(90));
    QCOMPARE(world.Stored("Width"), Twips(450));
    QCOMPARE(world.Stored("Height"), Twips(240));
    world.Store("Left", "300");
  }
  QVERIFY(!world.session.AlarmText().empty());
}

void FrmAlarmPlacementTest::doesNotSaveWhenTheMouseIsReleasedOnAControl() {
  AlarmWorld world;
  world.StorePlacement(300, 450, 6000, 3000);
  world.Ring({"Dentist"});
  world.window.move(60, 90);
  for (const char* const name : {"Picture1", "Label1", "lblAlarmMessage", "scrAlarmMessage"}) {
    QTest::mouseClick(world.Find<QWidget>(name), Qt::LeftButton);
    QCOMPARE(world.Stored("Left"), QStringLiteral("300"));
  }
  QTest::mousePress(world.Find<QWidget>("cmdOK"), Qt::LeftButton);
  QTest::mouseRelease(world.Find<QWidget>("cmdOK"), Qt::LeftButton, {}, QPoint(-30, -30));
  QCOMPARE(world.Stored("Left"), QStringLiteral("300"));
  QVERIFY(world.window.isVisible());
}

void FrmAlarmPlacementTest::keepsItsPlaceOverManyOpenings() {
  AlarmWorld world;
  world.StorePlacement(300, 450, 6000, 3000);
  for (int i = 0; i < 10; ++i) {
    world.Ring({"Dentist"});
    world.window.close();
  }
  QCOMPARE(world.Stored("Left"), QStringLiteral("300"));
  QCOMPARE(world.Stored("Top"), QStringLiteral("450"));
  QCOMPARE(world.Stored("Width"), QStringLiteral("6000"));
  QCOMPARE(world.Stored("Height"), QStringLiteral("3000"));
}

}  // namespace tidewarden

QTEST_MAIN(tidewarden::FrmAlarmPlacementTest)
#include "frm_alarm_placement_test.moc"
