// The reminder window beside the alarm window: the timers that make alarms ring, and the end of the
// program while an alarm waits to be acknowledged.
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>

#include <algorithm>
#include <cstddef>

#include "alarm/frm_alarm.h"
#include "tests/windows/reminder_world.h"

namespace tidewarden {
namespace {

constexpr char kSound[] = "/opt/tidewarden/alarms/emergency.wav";
const std::string kEvents =
    "12.22,Tea 2:27pm,0,yearly\r\n"
    "12.22,Dentist 3:30pm,0,yearly\r\n";

LocalTime At(int hour, int minute, int second, int millisecond = 0) {
  return {MakeDate(2014, 12, 22), hour, minute, second, millisecond};
}

// The two windows and what joins them in the program.
struct Desk {
  World world;
  std::unique_ptr<frmReminder> window;
  std::unique_ptr<frmAlarm> alarm;

  explicit Desk(const std::string& events = kEvents) : world(events) {
    world.files.files[kSound] = "RIFF";
  }

  void Start(LocalTime now) {
    world.clock.now = now;
    QVERIFY(world.Load());
    window = std::make_unique<frmReminder>(world.session);
    alarm = std::make_unique<frmAlarm>(world.alarms);
    world.session.ShowAlarm = [this] { alarm->ShowMessages(); };
    QObject::connect(window.get(), &frmReminder::Ended, alarm.get(), &QWidget::close);
    window->Start();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    QTRY_VERIFY(world.session.isShown());
  }
  // The alarm at 14:27 has gone off.
  void StartAndRing() {
    Start(At(14, 25, 0));
    world.clock.now = At(14, 27, 0, 50);
    world.Tick(*window);
    QVERIFY(QTest::qWaitForWindowExposed(alarm.get()));
  }

  [[nodiscard]] QTimer* Timer(const char* name) const { return Find<QTimer>(*window, name); }
  [[nodiscard]] QString Message() const {
    return alarm->findChild<QLabel*>(QStringLiteral("lblAlarmMessage"))->text();
  }
  [[nodiscard]] std::ptrdiff_t Calls(const std::string& call) const {
    return std::count(world.sound.calls.begin(), world.sound.calls.end(), call);
  }
  [[nodiscard]] std::ptrdiff_t Sounds() const { return Calls("wave " + std::string(kSound)); }
};

}  // namespace

class FrmReminderAlarmsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void ticksAtTheStoredInterval_data();
  void ticksAtTheStoredInterval();
  void startsTheTimerAwayFromAChangeOfMinute_data();
  void startsTheTimerAwayFromAChangeOfMinute();
  void waitsForTheEdgeOfTheMinute();
  void waitsForTheNextEdgeAfterEachTick_data();
  void waitsForTheNextEdgeAfterEachTick();
  void theOtherTimerFindsTheEdgeAsWell_data();
  void theOtherTimerFindsTheEdgeAsWell();
  void anAlarmOfTheMinuteInWhichTheComputerWakesOnANewDayRings();
  void aLateTickRingsWhatItHasPassed();
  void anEarlyTickRingsNothing();
  void aTickThatEndsTheProgramIsTheLast();
  void countsDownInTheListAndRingsOnce();
  void endsWithTheAlarmWindowOpen_data();
  void endsWithTheAlarmWindowOpen();
  void aRefusedEndLeavesTheAlarmAsItIs();
};

void FrmReminderAlarmsTest::ticksAtTheStoredInterval_data() {
  QTest::addColumn<QString>("stored");
  QTest::addColumn<int>("milliseconds");
  QTest::newRow("default") << QString() << 60'000;
  QTest::newRow("least") << QStringLiteral("1000") << 1'000;
  QTest::newRow("below") << QStringLiteral("500") << 1'000;
  QTest::newRow("above") << QStringLiteral("120000") << 60'000;
  QTest::newRow("whole part") << QStringLiteral("45000.9") << 45'000;
  QTest::newRow("none") << QStringLiteral("abc") << 1'000;
}

void FrmReminderAlarmsTest::ticksAtTheStoredInterval() {
  QFETCH(QString, stored);
  QFETCH(int, milliseconds);
  Desk desk;
  if (!stored.isEmpty()) desk.world.Set("Settings", "TimerInterval", stored.toStdString());
  desk.Start(At(14, 25, 30));
  QTimer* const timer = desk.Timer("tmrAlarm");
  QTRY_VERIFY(timer->isActive());
  QCOMPARE(timer->interval(), milliseconds);
  QCOMPARE(timer->timerType(), Qt::CoarseTimer);
  QVERIFY(!timer->isSingleShot());
}

void FrmReminderAlarmsTest::startsTheTimerAwayFromAChangeOfMinute_data() {
  QTest::addColumn<int>("second");
  QTest::addColumn<int>("delay");
  QTest::newRow("58") << 58 << 0;
  QTest::newRow("59") << 59 << 2'000;
  QTest::newRow("0") << 0 << 2'000;
  QTest::newRow("1") << 1 << 0;
}

void FrmReminderAlarmsTest::startsTheTimerAwayFromAChangeOfMinute() {
  QFETCH(int, second);
  QFETCH(int, delay);
  Desk desk;
  desk.world.clock.now = At(14, 25, second);
  QVERIFY(desk.world.Load());
  frmReminder window(desk.world.session);
  window.Start();
  const auto* const timer = Find<QTimer>(window, "tmrDelay");
  QVERIFY(timer->isActive());
  QCOMPARE(timer->interval(), delay);
  QCOMPARE(timer->timerType(), Qt::CoarseTimer);
  QVERIFY(timer->isSingleShot());
  QVERIFY(!Find<QTimer>(window, "tmrAlarm")->isActive());
}

void FrmReminderAlarmsTest::waitsForTheEdgeOfTheMinute() {
  Desk desk;
  desk.Start(At(14, 25, 50, 400));
  const QTimer* const timer = desk.Timer("tmrMinute");
  QVERIFY(timer->isActive());
  QCOMPARE(timer->interval(), 9'650);
  QCOMPARE(timer->timerType(), Qt::PreciseTimer);
  QVERIFY(timer->isSingleShot());
}

void FrmReminderAlarmsTest::waitsForTheNextEdgeAfterEachTick_data() {
  QTest::addColumn<int>("minute");
  QTest::addColumn<int>("second");
  QTest::addColumn<int>("millisecond");
  QTest::addColumn<int>("wait");
  QTest::newRow("on time") << 26 << 0 << 50 << 15'000;
  QTest::newRow("early") << 25 << 59 << 990 << 60;
  QTest::newRow("late by a little") << 26 << 0 << 450 << 15'000;
  QTest::newRow("late by minutes") << 29 << 0 << 700 << 15'000;
  QTest::newRow("late, just before the next edge") << 29 << 59 << 999 << 51;
}

void FrmReminderAlarmsTest::waitsForTheNextEdgeAfterEachTick() {
  QFETCH(int, minute);
  QFETCH(int, second);
  QFETCH(int, millisecond);
  QFETCH(int, wait);
  Desk desk;
  desk.Start(At(14, 25, 59, 900));
  QTimer* const timer = desk.Timer("tmrMinute");
  desk.world.clock.now = At(14, minute, second, millisecond);
  QTRY_VERIFY(timer->interval() != 150);
  QVERIFY(timer->isActive());
  QCOMPARE(timer->interval(), wait);
  // Precise only where the wait ends at the edge.
  QCOMPARE(timer->timerType(), wait == 15'000 ? Qt::CoarseTimer : Qt::PreciseTimer);
}

void FrmReminderAlarmsTest::theOtherTimerFindsTheEdgeAsWell_data() {
  QTest::addColumn<int>("second");
  QTest::addColumn<int>("millisecond");
  QTest::addColumn<int>("wait");
  QTest::newRow("within the minute") << 50 << 0 << 10'050;
  QTest::newRow("just before the edge") << 59 << 999 << 51;
  QTest::newRow("at the edge, which it serves itself") << 60 << 20 << 15'000;
}

void FrmReminderAlarmsTest::theOtherTimerFindsTheEdgeAsWell() {
  QFETCH(int, second);
  QFETCH(int, millisecond);
  QFETCH(int, wait);
  Desk desk;
  desk.Start(At(14, 25, 10));
  const QTimer* const timer = desk.Timer("tmrMinute");
  QCOMPARE(timer->interval(), 15'000);
  // The computer has slept since, and the timers with it.
  desk.world.clock.now = At(14, 26 + second / 60, second % 60, millisecond);
  desk.world.Tick(*desk.window);
  QCOMPARE(timer->interval(), wait);
  QVERIFY(timer->isActive());
}

void FrmReminderAlarmsTest::anAlarmOfTheMinuteInWhichTheComputerWakesOnANewDayRings() {
  Desk desk("12.23,Tea 7:00am,0,yearly\r\n");
  desk.Start(At(22, 0, 0));
  desk.world.clock.now = {MakeDate(2014, 12, 23), 7, 0, 30};
  desk.world.Tick(*desk.window);
  QVERIFY(!desk.alarm->isVisible());
  QCOMPARE(desk.Timer("tmrMinute")->interval(), 50);
  QTRY_VERIFY(desk.alarm->isVisible());
  QCOMPARE(desk.Message(), QStringLiteral("\nTea 7:00am\n"));
  QCOMPARE(desk.Sounds(), 1);
}

void FrmReminderAlarmsTest::aLateTickRingsWhatItHasPassed() {
  Desk desk;
  desk.Start(At(14, 25, 59, 950));
  desk.world.clock.now = At(14, 28, 0, 700);
  QTRY_VERIFY(desk.alarm->isVisible());
  QCOMPARE(desk.Message(), QStringLiteral("\nTea 2:27pm\n"));
  QVERIFY(RowWith(*desk.window, "TEA 2:27PM (0:01 passed)") >= 0);
  QVERIFY(RowWith(*desk.window, "DENTIST 3:30PM (1:02 to go)") >= 0);
  QCOMPARE(desk.Sounds(), 1);
  // The other timer comes in the same minute and finds nothing to do.
  desk.world.clock.now = At(14, 28, 30);
  desk.world.Tick(*desk.window);
  QCOMPARE(desk.Message(), QStringLiteral("\nTea 2:27pm\n"));
  QCOMPARE(desk.Sounds(), 1);
}

void FrmReminderAlarmsTest::anEarlyTickRingsNothing() {
  Desk desk;
  desk.Start(At(14, 26, 58));
  desk.world.clock.now = At(14, 26, 59, 990);
  desk.world.Tick(*desk.window);
  QVERIFY(!desk.alarm->isVisible());
  QVERIFY(RowWith(*desk.window, "TEA 2:27PM (0:01 to go)") >= 0);
  desk.world.clock.now = At(14, 27, 0);
  desk.world.Tick(*desk.window);
  QVERIFY(desk.alarm->isVisible());
  QVERIFY(RowWith(*desk.window, "TEA 2:27PM (0:00)") >= 0);
}

void FrmReminderAlarmsTest::aTickThatEndsTheProgramIsTheLast() {
  Desk desk;
  desk.world.Set("Options", "ShowOnlyIfEventsInRange", "True");
  desk.Start(At(23, 59, 59, 950));
  QSignalSpy ended(desk.window.get(), &frmReminder::Ended);
  desk.world.clock.now = {MakeDate(2014, 12, 23), 0, 0, 0, 50};
  QTRY_COMPARE(ended.count(), 1);
  for (const char* const name : {"tmrAlarm", "tmrDelay", "tmrMinute"}) {
    QVERIFY2(!desk.Timer(name)->isActive(), name);
  }
}

void FrmReminderAlarmsTest::countsDownInTheListAndRingsOnce() {
  Desk desk;
  desk.Start(At(14, 22, 0));
  QVERIFY(RowWith(*desk.window, "12/22/2014 Today is TEA 2:27PM (0:05 to go)") >= 0);
  const QImage before = ListOf(*desk.window)->grab().toImage();
  desk.world.clock.now = At(14, 27, 0);
  desk.world.Tick(*desk.window);
  QVERIFY(RowWith(*desk.window, "12/22/2014 Today is TEA 2:27PM (0:00)") >= 0);
  QVERIFY(ListOf(*desk.window)->grab().toImage() != before);
  QCOMPARE(desk.Message(), QStringLiteral("\nTea 2:27pm\n"));
  desk.world.clock.now = At(14, 32, 0);
  desk.world.Tick(*desk.window);
  QVERIFY(RowWith(*desk.window, "12/22/2014 Today is TEA 2:27PM (0:05 passed)") >= 0);
  QCOMPARE(desk.Sounds(), 2);  // the first, and once more
}

void FrmReminderAlarmsTest::endsWithTheAlarmWindowOpen_data() {
  QTest::addColumn<QString>("way");
  QTest::addColumn<Qt::WindowState>("state");
  QTest::newRow("closed by the user") << QStringLiteral("user") << Qt::WindowNoState;
  QTest::newRow("logout") << QStringLiteral("logout") << Qt::WindowNoState;
  QTest::newRow("closed beside a minimized one") << QStringLiteral("user") << Qt::WindowMinimized;
  QTest::newRow("logout with a maximized one") << QStringLiteral("logout") << Qt::WindowMaximized;
}

void FrmReminderAlarmsTest::endsWithTheAlarmWindowOpen() {
  QFETCH(QString, way);
  QFETCH(Qt::WindowState, state);
  Desk desk;
  for (const auto& [name, value] : {std::pair{"Left", "1500"}, std::pair{"Top", "1200"},
                                    std::pair{"Width", "6000"}, std::pair{"Height", "4500"}}) {
    desk.world.Set("Alarm", name, value);
  }
  desk.StartAndRing();
  QCOMPARE(desk.Sounds(), 1);
  desk.alarm->setWindowState(state);
  if (state == Qt::WindowNoState) desk.alarm->resize(500, 250);
  QSignalSpy ended(desk.window.get(), &frmReminder::Ended);
  if (way == QStringLiteral("user")) {
    QVERIFY(desk.window->close());
  } else {
    QEvent quit(QEvent::Quit);
    QCoreApplication::sendEvent(qApp, &quit);
  }
  QCOMPARE(ended.count(), 1);
  for (const char* const name : {"tmrAlarm", "tmrDelay", "tmrMinute"}) {
    QVERIFY2(!desk.Timer(name)->isActive(), name);
  }
  QVERIFY(!desk.window->isVisible());
  QVERIFY(!desk.alarm->isVisible());
  QVERIFY(desk.world.alarms.AlarmText().empty());
  QCOMPARE(desk.Calls("stop"), 1);
  const bool maximized = state == Qt::WindowMaximized;
  QCOMPARE(desk.world.settings.At("Alarm", "Maximized"), maximized ? "True" : "False");
  const bool kept = state == Qt::WindowNoState;
  QCOMPARE(desk.world.settings.At("Alarm", "Width"), kept ? "7500" : "6000");
  QCOMPARE(desk.world.settings.At("Alarm", "Height"), kept ? "3750" : "4500");

  // What comes after that is only taking down.
  const int writes = desk.world.settings.writes;
  const auto calls = desk.world.sound.calls;
  QTest::qWait(20);
  desk.window.reset();
  desk.alarm.reset();
  QCOMPARE(desk.world.settings.writes, writes);
  QVERIFY(desk.world.sound.calls == calls);
}

void FrmReminderAlarmsTest::aRefusedEndLeavesTheAlarmAsItIs() {
  Desk desk;
  desk.StartAndRing();
  desk.world.messages.answer = MessageAnswer::kCancel;  // the dentist is still to come
  QVERIFY(!desk.window->close());
  QCOMPARE(desk.world.messages.shown.size(), std::size_t{1});
  QVERIFY(desk.alarm->isVisible());
  QCOMPARE(desk.Message(), QStringLiteral("\nTea 2:27pm\n"));
  QCOMPARE(desk.Calls("stop"), 0);
  desk.world.clock.now = At(14, 28, 0, 50);
  desk.world.Tick(*desk.window);
  QCOMPARE(desk.Sounds(), 2);
  // Nor is the program ended by closing the alarm window.
  QSignalSpy ended(desk.window.get(), &frmReminder::Ended);
  desk.alarm->findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
  QTest::qWait(20);
  QCOMPARE(ended.count(), 0);
  QVERIFY(desk.window->isVisible());
}

}  // namespace tidewarden

QTEST_MAIN(tidewarden::FrmReminderAlarmsTest)
#include "frm_reminder_alarms_test.moc"
