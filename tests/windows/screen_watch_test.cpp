// The screens of the desktop: what is known of them, and who is told when they change.
#include <QGuiApplication>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>

#include "platform/qt/qt_screens.h"

namespace tidewarden {

class ScreenWatchTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // The slots are called by name.
  void knowsTheScreens();
  void tellsOnceOfEachKindOfChange_data();
  void tellsOnceOfEachKindOfChange();
  void isSilentWhileNothingChanges();
};

void ScreenWatchTest::knowsTheScreens() {
  const Screens screens = DesktopScreens();
  const QRect primary = QGuiApplication::primaryScreen()->geometry();
  QCOMPARE(screens.all.size(), static_cast<std::size_t>(QGuiApplication::screens().size()));
  QCOMPARE(screens.primary.width, primary.width() * 15);
  QCOMPARE(screens.primary.height, primary.height() * 15);
  QVERIFY(screens.canPlaceWindows);
}

void ScreenWatchTest::tellsOnceOfEachKindOfChange_data() {
  QTest::addColumn<int>("kind");
  QTest::newRow("added") << 0;
  QTest::newRow("removed") << 1;
  QTest::newRow("another is the first") << 2;
  QTest::newRow("another size") << 3;
}

void ScreenWatchTest::tellsOnceOfEachKindOfChange() {
  QFETCH(int, kind);
  QtScreenWatch watch;
  QSignalSpy changed(&watch, &QtScreenWatch::Changed);
  QScreen* const screen = QGuiApplication::primaryScreen();
  for (int i = 0; i < 3; ++i) {
    if (kind == 0) Q_EMIT qGuiApp->screenAdded(screen);
    if (kind == 1) Q_EMIT qGuiApp->screenRemoved(screen);
    if (kind == 2) Q_EMIT qGuiApp->primaryScreenChanged(screen);
    if (kind == 3) Q_EMIT screen->geometryChanged(screen->geometry());
    QTest::qWait(20);
  }
  QCOMPARE(changed.count(), 0);
  QTRY_COMPARE(changed.count(), 1);
  QTest::qWait(1200);
  QCOMPARE(changed.count(), 1);
}

void ScreenWatchTest::isSilentWhileNothingChanges() {
  const QtScreenWatch watch;
  QSignalSpy changed(&watch, &QtScreenWatch::Changed);
  QTest::qWait(1200);
  QCOMPARE(changed.count(), 0);
}

}  // namespace tidewarden

QTEST_MAIN(tidewarden::ScreenWatchTest)
#include "screen_watch_test.moc"
