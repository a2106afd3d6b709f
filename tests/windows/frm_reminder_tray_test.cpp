// The reminder window's way into the notification area and back, its new days and its end.
#include <QCloseEvent>
#include <QSignalSpy>
#include <QToolButton>

#include "tests/windows/reminder_world.h"

namespace tidewarden {
namespace {

using Words = std::vector<std::string>;
constexpr char kEvents[] = "12.25,Christmas,14,yearly\r\n";

struct Desk {
  World world{kEvents};
  std::unique_ptr<StartedWindow> window;

  Desk() {
    world.Set("Settings", "Left", "1500");
    world.Set("Settings", "Top", "1500");
    world.Set("Settings", "Width", "6000");
    world.Set("Settings", "Height", "4500");
  }
  void Start() {
    QVERIFY(world.Load());
    window = std::make_unique<StartedWindow>(world);
  }
  // Gone when the click is over, whatever the desktop tells the window of its state.
  void SendToTray() const {
    Find<QToolButton>(*window, "cmdTray")->click();
    QVERIFY(!window->isVisible());
  }
};

}  // namespace

class FrmReminderTrayTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // The slots are called by name.
  void theOrangeButtonSendsItToTheTray();
  void minimizingSendsItToTheTray();
  void comesBackWithAFreshList();
  void comesBackMaximized();
  void staysInTheTaskListWithoutATray();
  void comesOutWhenTheTrayVanishes();
  void popsUpOnANewDay();
  void popsUpOnANewDayBeforeAnythingIsSaid();
  void endsOnANewDayWithNothingToShow();
  void popsUpInNormalSizeWhenItWasMaximized();
  void popsUpOnAScreenWhenItsOwnHasGone_data();
  void popsUpOnAScreenWhenItsOwnHasGone();
  void aVisibleWindowIsOnlyRebuiltOnANewDay();
  void waitsForTheHourOfTheNewDay();
  void staysBehindTheEditorOnANewDay();
  void closingEndsTheProgram();
  void aLogoutIsNotHeldUpByAnAlarm();
  void closingTakesTheEditorAlong();
  void aWaitingAlarmMayKeepItOpen();
};

void FrmReminderTrayTest::theOrangeButtonSendsItToTheTray() {
  Desk desk;
  desk.Start();
  QVERIFY(desk.world.area.calls.empty());
  const int writes = desk.world.settings.writes;
  desk.SendToTray();
  QVERIFY(desk.world.session.tIcon().Visible());
  QCOMPARE(desk.world.area.Messages(), Words{"add"});
  QTest::qWait(20);
  QVERIFY(!desk.window->isVisible());
  QCOMPARE(desk.world.area.Messages(), Words{"add"});
  QCOMPARE(desk.world.area.calls[0].tooltip,
           "For \"always on\" computers,\r\nTidewarden reminders pop up each day.");
  QCOMPARE(desk.world.settings.writes, writes);
}

void FrmReminderTrayTest::minimizingSendsItToTheTray() {
  Desk desk;
  desk.Start();
  desk.window->showMinimized();
  QTRY_VERIFY(!desk.window->isVisible());
  QCOMPARE(desk.world.area.Messages(), Words{"add"});
}

void FrmReminderTrayTest::comesBackWithAFreshList() {
  Desk desk;
  desk.Start();
  const QRect place = desk.window->geometry();
  for (int i = 0; i < 5; ++i) {
    desk.SendToTray();
    desk.world.files.files[kPath] = "12.26,Boxing Day,14,yearly\r\n";
    desk.window->RestoreFromTray();
    QVERIFY(desk.window->isVisible());
    QVERIFY(!desk.window->isMinimized());
    QVERIFY(RowWith(*desk.window, "Boxing Day") >= 0);
    QCOMPARE(desk.window->geometry(), place);
  }
  QCOMPARE(desk.world.area.Messages().back(), "delete");
}

void FrmReminderTrayTest::comesBackMaximized() {
  Desk desk;
  desk.Start();
  desk.window->showMaximized();
  QTRY_COMPARE(desk.world.settings.At("Settings", "Maximized"), "True");
  desk.SendToTray();
  QCOMPARE(desk.world.settings.At("Settings", "Maximized"), "True");
  desk.window->RestoreFromTray();
  QVERIFY(desk.window->isMaximized());
  QVERIFY(!desk.window->isMinimized());
  QCoreApplication::processEvents();
  QCOMPARE(desk.world.settings.At("Settings", "Maximized"), "True");
}

void FrmReminderTrayTest::staysInTheTaskListWithoutATray() {
  Desk desk;
  desk.world.area.available = false;
  desk.Start();
  Find<QToolButton>(*desk.window, "cmdTray")->click();
  QCoreApplication::processEvents();
  QVERIFY(desk.window->isVisible());
  QVERIFY(desk.window->isMinimized());
  QVERIFY(desk.world.area.calls.empty());
  desk.world.clock.now.minute += 1;
  desk.world.Tick(*desk.window);
  QVERIFY(desk.window->isMinimized());
  desk.window->showNormal();
  QCoreApplication::processEvents();
  QVERIFY(desk.window->isVisible());
  QVERIFY(!desk.window->isMinimized());
}

void FrmReminderTrayTest::comesOutWhenTheTrayVanishes() {
  Desk desk;
  desk.Start();
  desk.SendToTray();
  desk.world.area.available = false;
  desk.world.clock.now.minute += 1;
  desk.world.Tick(*desk.window);
  QVERIFY(desk.window->isVisible());
  QVERIFY(desk.window->isMinimized());
}

void FrmReminderTrayTest::popsUpOnANewDay() {
  Desk desk;
  desk.Start();
  const QRect place = desk.window->geometry();
  desk.SendToTray();
  desk.world.TickOn(*desk.window, MakeDate(2014, 12, 23));
  QVERIFY(desk.window->isVisible());
  QVERIFY(!desk.window->isMinimized());
  QVERIFY(desk.window->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
  QCOMPARE(desk.window->geometry(), place);
  QCOMPARE(desk.world.area.Messages().back(), "delete");
  QVERIFY(RowWith(*desk.window, "12/23/2014   <TODAY>") >= 0);

  // From now on it stays on top.
  desk.SendToTray();
  desk.window->RestoreFromTray();
  QVERIFY(desk.window->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
}

void FrmReminderTrayTest::popsUpOnANewDayBeforeAnythingIsSaid() {
  Desk desk;
  desk.Start();
  desk.SendToTray();
  desk.world.files.files.clear();
  bool wasThere = false;
  bool hadIcon = true;
  desk.world.messages.whileOpen = [&] {
    wasThere = desk.window->isVisible() && !desk.window->isMinimized() &&
               desk.window->windowFlags().testFlag(Qt::WindowStaysOnTopHint);
    hadIcon = desk.world.session.tIcon().Visible();
  };
  desk.world.TickOn(*desk.window, MakeDate(2014, 12, 23));
  QCOMPARE(desk.world.messages.shown.size(), std::size_t{1});
  QVERIFY(wasThere);
  QVERIFY(!hadIcon);
  QVERIFY(RowWith(*desk.window, "12/23/2014   <TODAY>") >= 0);
}

void FrmReminderTrayTest::endsOnANewDayWithNothingToShow() {
  Desk desk;
  desk.world.Set("Options", "ShowOnlyIfEventsInRange", "True");
  desk.Start();
  desk.SendToTray();
  int ended = 0;
  connect(desk.window.get(), &frmReminder::Ended, this, [&] { ++ended; });
  desk.world.TickOn(*desk.window, MakeDate(2015, 3, 1));
  QCOMPARE(ended, 1);
  QVERIFY(!desk.window->isVisible());
  QVERIFY(!Find<QTimer>(*desk.window, "tmrAlarm")->isActive());
  QVERIFY(!Find<QTimer>(*desk.window, "tmrMinute")->isActive());
}

void FrmReminderTrayTest::popsUpInNormalSizeWhenItWasMaximized() {
  Desk desk;
  desk.Start();
  desk.window->showMaximized();
  QTRY_COMPARE(desk.world.settings.At("Settings", "Maximized"), "True");
  desk.SendToTray();
  desk.world.TickOn(*desk.window, MakeDate(2014, 12, 23));
  QVERIFY(desk.window->isVisible());
  QVERIFY(!desk.window->isMaximized());
  QTRY_COMPARE(desk.world.settings.At("Settings", "Maximized"), "False");
  QCOMPARE(desk.window->size(), QSize(400, 300));
}

void FrmReminderTrayTest::popsUpOnAScreenWhenItsOwnHasGone_data() {
  QTest::addColumn<bool>("canPlaceWindows");
  QTest::newRow("windows can be placed") << true;
  QTest::newRow("windows cannot be placed") << false;
}

void FrmReminderTrayTest::popsUpOnAScreenWhenItsOwnHasGone() {
  QFETCH(bool, canPlaceWindows);
  Desk desk;
  Screens two = kScreens;
  two.all.push_back({28800, 0, 19200, 12000});
  desk.world.Set("Settings", "Left", "30000");
  QVERIFY(desk.world.Load(two));
  desk.window = std::make_unique<StartedWindow>(desk.world);
  const QRect there = desk.window->geometry();
  QCOMPARE(desk.window->pos(), QPoint(2000, 100));
  desk.window->showMaximized();
  QTRY_COMPARE(desk.world.settings.At("Settings", "Maximized"), "True");
  desk.SendToTray();
  Screens one = kScreens;
  one.canPlaceWindows = canPlaceWindows;
  desk.window->ScreensChanged(one);
  desk.world.TickOn(*desk.window, MakeDate(2014, 12, 23));
  QVERIFY(desk.window->isVisible());
  QTRY_COMPARE(desk.world.settings.At("Settings", "Maximized"), "False");
  QVERIFY(!desk.window->isMaximized());
  // In the middle of 1920 by 1080 pixels.
  QTRY_COMPARE(desk.window->geometry(), canPlaceWindows ? QRect(760, 390, 400, 300) : there);
  QCOMPARE(desk.world.settings.At("Settings", "Left"), "30000");
}

void FrmReminderTrayTest::aVisibleWindowIsOnlyRebuiltOnANewDay() {
  Desk desk;
  desk.Start();
  desk.world.TickOn(*desk.window, MakeDate(2014, 12, 23));
  QVERIFY(!desk.window->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
  QVERIFY(RowWith(*desk.window, "12/23/2014   <TODAY>") >= 0);
}

void FrmReminderTrayTest::waitsForTheHourOfTheNewDay() {
  Desk desk;
  desk.world.Set("Options", "NewDateOffset", "0600");
  desk.Start();
  desk.SendToTray();
  desk.world.clock.now = {MakeDate(2014, 12, 23), 5, 59, 0};
  desk.world.Tick(*desk.window);
  QVERIFY(!desk.window->isVisible());
  QCOMPARE(RowWith(*desk.window, "12/23/2014   <TODAY>"), -1);
  desk.world.clock.now = {MakeDate(2014, 12, 23), 6, 0, 0};
  desk.world.Tick(*desk.window);
  QVERIFY(desk.window->isVisible());
  QVERIFY(RowWith(*desk.window, "12/23/2014   <TODAY>") >= 0);
}

void FrmReminderTrayTest::staysBehindTheEditorOnANewDay() {
  Desk desk;
  desk.Start();
  QTest::keyClick(desk.window.get(), Qt::Key_E, Qt::AltModifier);
  QTRY_VERIFY(!desk.window->isVisible());
  desk.world.TickOn(*desk.window, MakeDate(2014, 12, 23));
  QVERIFY(!desk.window->isVisible());
  QVERIFY(RowWith(*desk.window, "12/23/2014   <TODAY>") >= 0);
  QVERIFY(desk.world.area.calls.empty());
}

void FrmReminderTrayTest::closingEndsTheProgram() {
  Desk desk;
  desk.Start();
  QVERIFY(desk.world.instance.claimed);
  QSignalSpy ended(desk.window.get(), &frmReminder::Ended);
  QVERIFY(desk.window->close());
  QCOMPARE(ended.count(), 1);
  QVERIFY(!desk.world.instance.claimed);
  QVERIFY(!Find<QTimer>(*desk.window, "tmrAlarm")->isActive());
  QVERIFY(!Find<QTimer>(*desk.window, "tmrMinute")->isActive());
  QVERIFY(desk.world.messages.shown.empty());
}

void FrmReminderTrayTest::closingTakesTheEditorAlong() {
  Desk desk;
  desk.Start();
  desk.world.editor.loaded = true;
  desk.world.editor.entryUnderWay = true;
  QSignalSpy ended(desk.window.get(), &frmReminder::Ended);
  QVERIFY(desk.window->close());
  QCOMPARE(ended.count(), 1);
  QCOMPARE(desk.world.editor.unloads, 1);
  QVERIFY(!desk.window->isVisible());
}

void FrmReminderTrayTest::aWaitingAlarmMayKeepItOpen() {
  Desk desk;
  desk.world.files.files[kPath] = "12.22,Dentist 3:30pm,0,yearly\r\n";
  desk.Start();
  QSignalSpy ended(desk.window.get(), &frmReminder::Ended);
  desk.world.messages.answer = MessageAnswer::kCancel;
  QVERIFY(!desk.window->close());
  QVERIFY(desk.window->isVisible());
  QCOMPARE(ended.count(), 0);
  QCOMPARE(desk.world.messages.shown.size(), std::size_t{1});
  desk.world.messages.answer = MessageAnswer::kOk;
  QVERIFY(desk.window->close());
  QCOMPARE(ended.count(), 1);
}

void FrmReminderTrayTest::aLogoutIsNotHeldUpByAnAlarm() {
  Desk desk;
  desk.world.files.files[kPath] = "12.22,Dentist 3:30pm,0,yearly\r\n";
  desk.Start();
  QSignalSpy ended(desk.window.get(), &frmReminder::Ended);
  desk.world.messages.answer = MessageAnswer::kCancel;
  // What the login session sends to the program.
  QEvent quit(QEvent::Quit);
  QCoreApplication::sendEvent(qApp, &quit);
  QCOMPARE(ended.count(), 1);
  QVERIFY(desk.world.messages.shown.empty());
}

}  // namespace tidewarden

QTEST_MAIN(tidewarden::FrmReminderTrayTest)
#include "frm_reminder_tray_test.moc"
