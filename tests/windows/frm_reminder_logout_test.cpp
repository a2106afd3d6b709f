// The end of the login session, in the messages with which Windows asks and tells every window of
// the program.
#include <QSignalSpy>
#include <QToolButton>
#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "alarm/frm_alarm.h"
#include "platform/windows/windows_api.h"
#include "tests/windows/reminder_world.h"

namespace tidewarden {
namespace {

// At 14:27 one goes off, and the other is to come still.
constexpr char kEvents[] =
    "12.22,Tea 2:27pm,0,yearly\r\n"
    "12.22,Dentist 3:30pm,0,yearly\r\n";
constexpr int kEnded = 0;
constexpr int kGoesOn = 77;

HWND HandleOf(const QWidget& window) {
  return reinterpret_cast<HWND>(window.internalWinId());
}

BOOL CALLBACK Collect(HWND window, LPARAM list) {
  reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
  return TRUE;
}

// Also those that cannot be seen, and those that Qt has for itself.
std::vector<HWND> WindowsOfTheProgram() {
  std::vector<HWND> windows;
  ::EnumThreadWindows(::GetCurrentThreadId(), Collect, reinterpret_cast<LPARAM>(&windows));
  return windows;
}

// Whether every window lets the session end.
bool MayEnd() {
  const std::vector<HWND> windows = WindowsOfTheProgram();
  return std::all_of(windows.begin(), windows.end(), [](HWND window) {
    return ::SendMessageW(window, WM_QUERYENDSESSION, 0, static_cast<LPARAM>(ENDSESSION_LOGOFF)) !=
           FALSE;
  });
}

void Tell(bool ends) {
  for (HWND window : WindowsOfTheProgram()) {
    ::SendMessageW(window, WM_ENDSESSION, ends ? TRUE : FALSE,
                   static_cast<LPARAM>(ENDSESSION_LOGOFF));
  }
}

// What the program's event loop returns after this has happened in it.
int Run(const std::function<void()>& happens) {
  QTimer::singleShot(0, qApp, happens);
  QTimer guard;
  QObject::connect(&guard, &QTimer::timeout, qApp, [] { QCoreApplication::exit(kGoesOn); });
  guard.start(1000);
  return QCoreApplication::exec();
}

// The two windows and what joins them in the program.
struct Desk {
  World world{kEvents};
  std::unique_ptr<frmReminder> window;
  std::unique_ptr<frmAlarm> alarm;

  void Start() {
    world.clock.now = {MakeDate(2014, 12, 22), 14, 25, 0, 0};
    world.messages.answer = MessageAnswer::kCancel;
    for (const auto& [name, value] : {std::pair{"Left", "1500"}, std::pair{"Top", "1200"},
                                      std::pair{"Width", "6000"}, std::pair{"Height", "4500"}}) {
      world.Set("Alarm", name, value);
    }
    QVERIFY(world.Load());
    window = std::make_unique<frmReminder>(world.session);
    alarm = std::make_unique<frmAlarm>(world.alarms);
    world.session.ShowAlarm = [this] { alarm->ShowMessages(); };
    QObject::connect(window.get(), &frmReminder::Ended, alarm.get(), [this] {
      alarm->close();
      QCoreApplication::exit(kEnded);
    });
    window->Start();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    QTRY_VERIFY(world.session.isShown());
  }
  void SendToTray() {
    Find<QToolButton>(*window, "cmdTray")->click();
    QVERIFY(!window->isVisible());
    QVERIFY(world.session.tIcon().Visible());
  }
  void Ring() {
    world.clock.now = {MakeDate(2014, 12, 22), 14, 27, 0, 50};
    world.Tick(*window);
    QVERIFY(QTest::qWaitForWindowExposed(alarm.get()));
    alarm->resize(500, 250);
  }
  [[nodiscard]] bool IsHeard() const {
    const std::vector<HWND> windows = WindowsOfTheProgram();
    return std::find(windows.begin(), windows.end(), HandleOf(*window)) != windows.end();
  }
};

}  // namespace

class FrmReminderLogoutTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // The slots are called by name.
  void initTestCase();
  void endsTheProgramWithoutAQuestion_data();
  void endsTheProgramWithoutAQuestion();
  void thatIsGivenUpLeavesEverythingAsItWas_data();
  void thatIsGivenUpLeavesEverythingAsItWas();
};

void FrmReminderLogoutTest::initTestCase() {
  QGuiApplication::setQuitOnLastWindowClosed(false);
}

void FrmReminderLogoutTest::endsTheProgramWithoutAQuestion_data() {
  QTest::addColumn<bool>("inTray");
  QTest::addColumn<bool>("rings");
  QTest::newRow("visible") << false << false;
  QTest::newRow("in the tray") << true << false;
  QTest::newRow("visible beside an alarm") << false << true;
  QTest::newRow("in the tray, with an alarm") << true << true;
}

void FrmReminderLogoutTest::endsTheProgramWithoutAQuestion() {
  QFETCH(bool, inTray);
  QFETCH(bool, rings);
  Desk desk;
  desk.Start();
  if (inTray) desk.SendToTray();
  if (rings) desk.Ring();
  QVERIFY(desk.IsHeard());
  QSignalSpy ended(desk.window.get(), &frmReminder::Ended);
  bool mayEnd = false;
  bool wasLeftAlone = false;
  const int code = Run([&] {
    mayEnd = MayEnd();
    wasLeftAlone = ended.isEmpty() && desk.window->isVisible() == !inTray &&
                   desk.alarm->isVisible() == rings && desk.world.instance.claimed;
    Tell(true);
    // The system ends the process as soon as all of them have heard it: what is to be kept is kept.
    QVERIFY(!desk.window->isVisible());
    QVERIFY(!desk.alarm->isVisible());
    QCOMPARE(desk.world.settings.At("Alarm", "Width"), rings ? "7500" : "6000");
  });
  QVERIFY(mayEnd);
  QVERIFY2(wasLeftAlone, "a question is not the end");
  QCOMPARE(code, kEnded);
  QVERIFY(desk.world.messages.shown.empty());
  // A window that is hidden is not closed: the end of the process is its end, and that of the icon.
  if (inTray) return;
  QCOMPARE(ended.count(), 1);
  QVERIFY(!desk.world.instance.claimed);
  for (const char* const name : {"tmrAlarm", "tmrDelay", "tmrMinute"}) {
    QVERIFY2(!Find<QTimer>(*desk.window, name)->isActive(), name);
  }
}

void FrmReminderLogoutTest::thatIsGivenUpLeavesEverythingAsItWas_data() {
  QTest::addColumn<bool>("inTray");
  QTest::newRow("visible") << false;
  QTest::newRow("in the tray") << true;
}

void FrmReminderLogoutTest::thatIsGivenUpLeavesEverythingAsItWas() {
  QFETCH(bool, inTray);
  Desk desk;
  desk.Start();
  if (inTray) desk.SendToTray();
  QVERIFY(desk.IsHeard());
  QSignalSpy ended(desk.window.get(), &frmReminder::Ended);
  bool mayEnd = false;
  const int code = Run([&] {
    mayEnd = MayEnd();
    Tell(false);
  });
  QVERIFY(mayEnd);
  QCOMPARE(code, kGoesOn);
  QVERIFY(ended.isEmpty());
  QVERIFY(desk.world.messages.shown.empty());
  QVERIFY(desk.world.instance.claimed);
  QCOMPARE(desk.window->isVisible(), !inTray);
  QCOMPARE(desk.world.session.tIcon().Visible(), inTray);
  if (inTray) desk.window->RestoreFromTray();
  QVERIFY(desk.window->isVisible());

  // The alarms go on.
  desk.Ring();
  QVERIFY(RowWith(*desk.window, "TEA 2:27PM (0:00)") >= 0);

  // A close by hand is no end of the session.
  QVERIFY(!desk.window->close());
  QCOMPARE(desk.world.messages.shown.size(), std::size_t{1});
  QVERIFY(desk.window->isVisible());
  QVERIFY(ended.isEmpty());

  // The next end is one.
  QCOMPARE(Run([] {
             if (MayEnd()) Tell(true);
           }),
           kEnded);
  QCOMPARE(ended.count(), 1);
  QCOMPARE(desk.world.messages.shown.size(), std::size_t{1});
}

}  // namespace tidewarden

QTEST_MAIN(tidewarden::FrmReminderLogoutTest)
#include "frm_reminder_logout_test.moc"
