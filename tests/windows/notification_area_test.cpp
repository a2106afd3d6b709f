// The notification area through Qt, offscreen, where there is no tray: what the Qt icon is told,
// and what comes of its signals.
#include "platform/qt/qt_notification_area.h"

#include <QPixmap>
#include <QSystemTrayIcon>
#include <QTest>
#include <QTimer>

#include "alarm/tray_icon.h"

namespace tidewarden {
namespace {

QIcon Picture(const QColor& color) {
  QPixmap pixmap(16, 16);
  pixmap.fill(color);
  return QIcon(pixmap);
}

QRgb ColorOf(const QIcon& icon) {
  return icon.pixmap(16, 16).toImage().pixel(8, 8);
}

QSystemTrayIcon* QtIcon(const QtNotificationArea& area) {
  return area.findChild<QSystemTrayIcon*>();
}

QTimer* Search(const QtNotificationArea& area) {
  return area.findChild<QTimer*>();
}

// An icon in an area whose tray comes and goes as the test says.
struct World {
  bool hasTray = true;
  QtNotificationArea area{[this] { return hasTray; }};
  TrayIcon icon{area};
  QList<int> messages;

  World() {
    icon.Icon(area.AddIcon(Picture(Qt::red)));
    area.Mouse = [this](IconMouseMessage message) { messages << static_cast<int>(message); };
  }
};

}  // namespace

class QtNotificationAreaTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // The slots are called by name.
  void asksTheDesktopForNothingBeforeItIsNeeded();
  void showsAndHidesTheIcon();
  void showsThePictureOfTheRecord();
  void showsTheWholeTooltipAsPlainText();
  void passesClicksOnAsMouseMessages_data();
  void passesClicksOnAsMouseMessages();
  void raisesTheEventsOfTheIcon();
  void aListenerMayTakeItselfAway();
  void knowsWhetherThereIsATray();
  void tellsWhenATrayAppearsLater();
  void stopsWaitingWhenTheIconIsTakenAway();
};

void QtNotificationAreaTest::asksTheDesktopForNothingBeforeItIsNeeded() {
  const World world;
  QVERIFY(QtIcon(world.area) == nullptr);
  QVERIFY(!Search(world.area)->isActive());
}

void QtNotificationAreaTest::showsAndHidesTheIcon() {
  World world;
  world.icon.Visible(true);
  QVERIFY(QtIcon(world.area)->isVisible());
  world.icon.Visible(false);
  QVERIFY(!QtIcon(world.area)->isVisible());
  world.icon.Visible(true);
  world.icon.Visible(true);
  QVERIFY(QtIcon(world.area)->isVisible());
  QCOMPARE(world.area.findChildren<QSystemTrayIcon*>().size(), 1);

  World never;
  never.icon.Visible(false);
  QVERIFY(QtIcon(never.area) == nullptr);
}

void QtNotificationAreaTest::showsThePictureOfTheRecord() {
  World world;
  const IconHandle blue = world.area.AddIcon(Picture(Qt::blue));
  world.icon.Visible(true);
  QCOMPARE(ColorOf(QtIcon(world.area)->icon()), QColor(Qt::red).rgb());
  world.icon.Icon(blue);
  QCOMPARE(ColorOf(QtIcon(world.area)->icon()), QColor(Qt::blue).rgb());
  world.icon.Icon(blue + 1);
  QVERIFY(QtIcon(world.area)->icon().isNull());
  world.icon.Icon(0);
  QVERIFY(QtIcon(world.area)->icon().isNull());
}

void QtNotificationAreaTest::showsTheWholeTooltipAsPlainText() {
  World world;
  world.icon.Tooltip("For \"always on\" computers,\r\nTidewarden reminders pop up each day.");
  world.icon.Visible(true);
  QCOMPARE(QtIcon(world.area)->toolTip(),
           QStringLiteral("For \"always on\" computers,\nTidewarden reminders pop up each day."));
  world.icon.Tooltip("<b>Käse</b>");
  const QString shown = QtIcon(world.area)->toolTip();
  QVERIFY2(shown.contains(QStringLiteral("&lt;b&gt;Käse")), qPrintable(shown));
  QVERIFY2(!shown.contains(QStringLiteral("<b>")), qPrintable(shown));
}

void QtNotificationAreaTest::passesClicksOnAsMouseMessages_data() {
  QTest::addColumn<QSystemTrayIcon::ActivationReason>("reason");
  QTest::addColumn<QList<int>>("messages");
  QTest::newRow("click") << QSystemTrayIcon::Trigger << QList<int>{513, 514};
  QTest::newRow("double click") << QSystemTrayIcon::DoubleClick << QList<int>{515};
  QTest::newRow("context") << QSystemTrayIcon::Context << QList<int>{516, 517};
  QTest::newRow("middle") << QSystemTrayIcon::MiddleClick << QList<int>{};
  QTest::newRow("unknown") << QSystemTrayIcon::Unknown << QList<int>{};
}

void QtNotificationAreaTest::passesClicksOnAsMouseMessages() {
  QFETCH(QSystemTrayIcon::ActivationReason, reason);
  QFETCH(QList<int>, messages);
  World world;
  world.icon.Visible(true);
  Q_EMIT QtIcon(world.area)->activated(reason);
  QCOMPARE(world.messages, messages);
  world.area.Mouse = nullptr;
  Q_EMIT QtIcon(world.area)->activated(reason);
  QCOMPARE(world.messages, messages);
}

void QtNotificationAreaTest::raisesTheEventsOfTheIcon() {
  World world;
  QStringList heard;
  world.icon.MouseDown = [&](TrayButton button) {
    heard << QStringLiteral("down %1").arg(static_cast<int>(button));
  };
  world.icon.MouseUp = [&](TrayButton button) {
    heard << QStringLiteral("up %1").arg(static_cast<int>(button));
  };
  world.icon.DblClick = [&] { heard << QStringLiteral("double"); };
  world.area.Mouse = [&](IconMouseMessage message) {
    world.icon.HandleCallback(static_cast<double>(message), 1);
  };
  world.icon.Visible(true);
  for (const auto reason : {QSystemTrayIcon::Trigger, QSystemTrayIcon::DoubleClick,
                            QSystemTrayIcon::Context, QSystemTrayIcon::MiddleClick}) {
    Q_EMIT QtIcon(world.area)->activated(reason);
  }
  const QStringList expected{QStringLiteral("down 1"), QStringLiteral("up 1"),
                             QStringLiteral("double"), QStringLiteral("down 2"),
                             QStringLiteral("up 2")};
  QCOMPARE(heard, expected);
}

void QtNotificationAreaTest::aListenerMayTakeItselfAway() {
  World world;
  world.icon.Visible(true);
  const QString word = QStringLiteral("a text that needs memory of its own");
  QStringList heard;
  world.area.Mouse = [&world, &heard, word](IconMouseMessage /*message*/) {
    world.area.Mouse = nullptr;
    heard << word;
  };
  Q_EMIT QtIcon(world.area)->activated(QSystemTrayIcon::Trigger);
  QCOMPARE(heard, QStringList{word});
}

void QtNotificationAreaTest::knowsWhetherThereIsATray() {
  World world;
  QVERIFY(world.area.IsAvailable());
  world.hasTray = false;
  QVERIFY(!world.area.IsAvailable());

  QtNotificationArea asQtKnows;
  QCOMPARE(asQtKnows.IsAvailable(), QSystemTrayIcon::isSystemTrayAvailable());
}

void QtNotificationAreaTest::tellsWhenATrayAppearsLater() {
  World world;
  world.hasTray = false;
  int appeared = 0;
  world.area.Appeared = [&] { ++appeared; };
  Search(world.area)->setInterval(1);
  world.icon.Visible(true);
  QVERIFY(Search(world.area)->isActive());
  world.icon.Tooltip("later");
  QTest::qWait(20);
  QCOMPARE(appeared, 0);
  QVERIFY2(QtIcon(world.area) == nullptr, "Qt was asked for a tray before there was one");
  world.hasTray = true;
  QTRY_COMPARE(appeared, 1);
  QVERIFY(QtIcon(world.area)->isVisible());
  QCOMPARE(QtIcon(world.area)->toolTip(), QStringLiteral("later"));
  QCOMPARE(ColorOf(QtIcon(world.area)->icon()), QColor(Qt::red).rgb());
  QVERIFY(!Search(world.area)->isActive());
  QTest::qWait(20);
  QCOMPARE(appeared, 1);
}

void QtNotificationAreaTest::stopsWaitingWhenTheIconIsTakenAway() {
  World world;
  world.hasTray = false;
  int appeared = 0;
  world.area.Appeared = [&] { ++appeared; };
  Search(world.area)->setInterval(1);
  world.icon.Visible(true);
  world.icon.Visible(false);
  QVERIFY(!Search(world.area)->isActive());
  world.hasTray = true;
  QTest::qWait(20);
  QCOMPARE(appeared, 0);
}

}  // namespace tidewarden

QTEST_MAIN(tidewarden::QtNotificationAreaTest)
#include "notification_area_test.moc"
