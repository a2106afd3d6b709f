// The reminder window, offscreen, with everything around it in memory.
#include <QLabel>
#include <QListView>
#include <QTest>

#include "platform/memory/memory_ports.h"
#include "reminder/frm_reminder.h"
#include "reminder/reminder_session.h"
#include "tests/support/layouts.h"

namespace tidewarden {
namespace {

constexpr char kPath[] = "/home/someone/dates.txt";

struct World {
  MemorySettingsStore settings;
  MemoryFileSystem files;
  MemoryClock clock;
  MemoryMessageBox messages;
  MemoryShiftKey shiftKey;
  ReminderSession session{
      {settings, files, clock, messages, shiftKey}, test::MonthFirst(), kPath, FileAccess::kUpdate};

  explicit World(const std::string& events) {
    files.files[kPath] = events;
    session.ReadTodayPreface();
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
  frmReminder window(world.session);
  QVERIFY(window.Rebuild());
  const QStringList expected{
      QStringLiteral("12/22/2014   <TODAY>"),
      QStringLiteral("12/22/2014 Today is DENTIST 3:30PM (1:05 to go)"),
      QStringLiteral("12/25/2014 Christmas (Thursday, 3 days)"),
  };
  QCOMPARE(RowsOf(window), expected);
}

void FrmReminderTest::showsTodaysDateUnderTheList() {
  World world("");
  frmReminder window(world.session);
  QVERIFY(window.Rebuild());
  QCOMPARE(Find<QLabel>(window, "sknDate")->text(), QStringLiteral("12/22/2014"));
}

void FrmReminderTest::takesItsCaptionFromTheSettings() {
  World world("");
  frmReminder window(world.session);
  QVERIFY(window.Rebuild());
  QCOMPARE(window.windowTitle(), QStringLiteral("Your Tidewarden Upcoming Events"));

  QVERIFY(world.settings.Write("Options", "TitlebarText", "Ours [*] & <b>more</b>").ok());
  QVERIFY(window.Rebuild());
  QVERIFY(!window.isWindowModified());
  QCOMPARE(window.windowTitle(), QStringLiteral("Ours [*][*] & <b>more</b>"));
}

void FrmReminderTest::showsMarkupAsItWasTyped() {
  World world("12.25,<b>x</b>,14,yearly\r\n");
  frmReminder window(world.session);
  QVERIFY(window.Rebuild());
  QVERIFY(RowsOf(window).contains(QStringLiteral("12/25/2014 <b>x</b> (Thursday, 3 days)")));
  QCOMPARE(Find<QLabel>(window, "sknDate")->textFormat(), Qt::PlainText);
}

void FrmReminderTest::listsManyRowsWithoutDelay() {
  std::string events;
  for (int i = 0; i < 100'000; ++i)
    events += "12.25,Christmas " + std::to_string(i) + ",14,yearly\r\n";
  World world(events);
  frmReminder window(world.session);
  QVERIFY(window.Rebuild());
  window.show();
  QVERIFY(QTest::qWaitForWindowExposed(&window));
  auto* const list = Find<QListView>(window, "List1");
  QCOMPARE(list->model()->rowCount(), 100'001);
  const QModelIndex last = list->model()->index(100'000, 0);
  QTRY_VERIFY_WITH_TIMEOUT((list->scrollTo(last), list->visualRect(last).isValid()), 20'000);
  QVERIFY(list->viewport()->rect().intersects(list->visualRect(last)));
}

void FrmReminderTest::tellsWhenTheProgramIsToEnd() {
  World world("06.01,Far away,7,yearly\r\n");
  QVERIFY(world.settings.Write("Options", "ShowOnlyIfEventsInRange", "True").ok());
  frmReminder window(world.session);
  QVERIFY(!window.Rebuild());
  world.shiftKey.down = true;
  QVERIFY(window.Rebuild());
  QCOMPARE(RowsOf(window), QStringList{QStringLiteral("12/22/2014   <TODAY>")});
}

void FrmReminderTest::namesEveryControlForScreenReaders() {
  World world("");
  frmReminder window(world.session);
  for (const char* const name : {"List1", "sknDate"}) {
    QVERIFY2(!Find<QWidget>(window, name)->accessibleName().isEmpty(), name);
  }
}

void FrmReminderTest::showsTheNewListAfterARebuild() {
  World world("12.25,Christmas,14,yearly\r\n");
  frmReminder window(world.session);
  QVERIFY(window.Rebuild());
  QCOMPARE(RowsOf(window).size(), 2);
  world.clock.now.date = MakeDate(2015, 1, 1);
  QVERIFY(window.Rebuild());
  QCOMPARE(RowsOf(window), QStringList{QStringLiteral("01/01/2015   <TODAY>")});
  QCOMPARE(Find<QLabel>(window, "sknDate")->text(), QStringLiteral("01/01/2015"));
}

}  // namespace tidewarden

QTEST_MAIN(tidewarden::FrmReminderTest)
#include "frm_reminder_test.moc"
