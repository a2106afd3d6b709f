// The reminder window, offscreen, with everything around it in memory.
#include <QLabel>
#include <QListView>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include "dates/regional_text.h"
#include "platform/memory/memory_notification_area.h"
#include "platform/memory/memory_ports.h"
#include "platform/memory/memory_reminder.h"
#include "platform/memory/memory_sound.h"
#include "reminder/frm_reminder.h"
#include "reminder/reminder_session.h"

namespace tidewarden {
namespace {

constexpr char kPath[] = "/home/someone/dates.txt";
const Screens kScreens{{0, 0, 28800, 16200}, {{0, 0, 28800, 16200}}, true};

struct World {
  MemorySettingsStore settings;
  MemoryFileSystem files;
  MemoryClock clock;
  MemoryMessageBox messages;
  MemoryShiftKey shiftKey;
  PatternRegionalFormats formats{"MM/dd/yyyy"};
  MemoryPreviousInstance instance;
  MemoryNotificationArea area;
  MemoryRandomNumbers random;
  MemoryEditorWindow editor;
  MemorySoundPlayer sound;
  ProgramFolders folders{"/opt/tidewarden", "/home/someone/data", PathStyle::kPosix};
  AlarmSession alarms{{settings, files, sound, messages}, folders};
  ReminderSession session{ReminderPorts{settings, files, clock, messages, shiftKey, formats,
                                        instance, area, random, editor, alarms, folders}};

  explicit World(const std::string& events) { files.files[kPath] = events; }

  bool Load() { return session.Load(kScreens, kPath) == WindowChange::kNone; }

  // A tick on another day.
  void TickOn(frmReminder& window, CivilDate day) {
    clock.now.date = day;
    QVERIFY(QMetaObject::invokeMethod(window.findChild<QTimer*>(QStringLiteral("tmrAlarm")),
                                      "timeout"));
  }
};

template <typename Widget>
Widget* Find(const frmReminder& window, const char* name) {
  return window.findChild<Widget*>(QString::fromLatin1(name));
}

QStringList RowsOf(const frmReminder& window) {
  QStringList rows;
  const auto* const list = Find<QListView>(window, "List1");
  for (int row = 0; row < list->model()->rowCount(); ++row) {
    rows << list->model()->index(row, 0).data().toString();
  }
  return rows;
}

}  // namespace

class FrmReminderTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // The slots are called by name.
  void showsTheListOfTheSession();
  void showsTodaysDateUnderTheList();
  void takesItsCaptionFromTheSettings();
  void showsMarkupAsItWasTyped();
  void listsManyRowsWithoutDelay();
  void tellsWhenTheProgramIsToEnd();
  void namesEveryControlForScreenReaders();
  void showsTheNewListAfterARebuild();
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

  QVERIFY(world.settings.Write("Options", "TitlebarText", "Ours [*] & <b>more</b>").ok());
  window.RestoreFromTray();
  QVERIFY(!window.isWindowModified());
  QCOMPARE(window.windowTitle(), QStringLiteral("Ours [*][*] & <b>more</b>"));
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
  auto* const list = Find<QListView>(window, "List1");
  QCOMPARE(list->model()->rowCount(), 100'001);
  const QModelIndex last = list->model()->index(100'000, 0);
  QTRY_VERIFY_WITH_TIMEOUT((list->scrollTo(last), list->visualRect(last).isValid()), 20'000);
  QVERIFY(list->viewport()->rect().intersects(list->visualRect(last)));
}

void FrmReminderTest::tellsWhenTheProgramIsToEnd() {
  World world("12.25,Christmas,14,yearly\r\n");
  QVERIFY(world.settings.Write("Options", "ShowOnlyIfEventsInRange", "True").ok());
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

void FrmReminderTest::namesEveryControlForScreenReaders() {
  World world("");
  QVERIFY(world.Load());
  frmReminder window(world.session);
  for (const char* const name : {"List1", "sknDate"}) {
    QVERIFY2(!Find<QWidget>(window, name)->accessibleName().isEmpty(), name);
  }
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
