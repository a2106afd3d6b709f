// The editor's buttons that leave the editor, from the key or click to what the desktop is asked:
// printing, help, options and the order page.
#include <QApplication>
#include <memory>

#include "dates/regional_text.h"
#include "editor/launchers.h"
#include "editor/page_printer.h"
#include "platform/memory/memory_shell.h"
#include "tests/windows/edit_window_desk.h"
#include "tests/windows/edit_window_events.h"

namespace tidewarden {
namespace {

using namespace test;

// The editor's window with what the program puts behind its buttons, and the desktop in memory.
class LaunchingDesk {
 public:
  explicit LaunchingDesk(const std::string& orderPage = "https://example.org/order") {
    files.files[kEventsPath] = kEvents;
    EditorHooks hooks;
    hooks.print = [this](const std::vector<EventRow>& rows) {
      PrintEvents({settings, files, names_, messages, shell}, rows, MonthFirst(),
                  {folders_.userData, folders_.userData, folders_.style});
    };
    hooks.help = [this] { StartHelp(shell, folders_); };
    hooks.options = [this] {
      ChangeToOptions({files, shell, end, [this] { ++released; }}, folders_);
    };
    if (IsOrderPage(orderPage)) {
      hooks.donate = [this, orderPage] { OpenOrderPage(shell, orderPage, folders_.style); };
    }
    hooks.showReminder = [this] { ++remindersShown; };
    session_ =
        std::make_unique<EditSession>(EditPorts{settings, files, clock, messages}, hooks,
                                      MonthFirst(), EditorSetup{kEventsPath, folders_.userData});
    window = std::make_unique<frmEdit>(*session_);
    window->Open(-1, {}, false);
    if (!QTest::qWaitForWindowActive(window.get())) qFatal("no active window");
  }

  MemorySettingsStore settings;
  MemoryFileSystem files;
  MemoryClock clock;
  MemoryMessageBox messages;
  MemoryShell shell;
  MemoryProgramEnd end;
  int released = 0;
  int remindersShown = 0;
  std::unique_ptr<frmEdit> window;

  QPushButton* Button(const char* name) {
    return window->findChild<QPushButton*>(QLatin1String(name));
  }
  void Click(const char* name) { QTest::mouseClick(Button(name), Qt::LeftButton); }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWidget* const focus = window->focusWidget();
    QTest::keyClick(focus ? focus : window.get(), key, modifiers);
  }
  // The targets asked for, one behind the other.
  [[nodiscard]] QStringList Targets() const {
    QStringList targets;
    for (const ShellRequest& request : shell.requests) {
      targets << QString::fromStdString(request.target);
    }
    return targets;
  }

 private:
  PatternRegionalFormats names_{"MM/dd/yyyy"};
  ProgramFolders folders_{"/opt/tidewarden", "/home/someone/data", PathStyle::kPosix};
  std::unique_ptr<EditSession> session_;
};

const QString kPage = QStringLiteral("/home/someone/data/print.htm");
const QString kHelp = QStringLiteral("/opt/tidewarden/twdocs");
const QString kOptions = QStringLiteral("/opt/tidewarden/customizer");

}  // namespace

class FrmEditLaunchingTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // The slots are called by name.
  void printsByButtonAndKey();
  void saysWhyItCannotPrint();
  void printsNothingDuringAnEntry();
  void helpsFromEveryControl();
  void helpsDuringAnEntryAndKeepsIt();
  void endsTheProgramWithOptions();
  void savesNoPlaceOfAMaximizedWindow();
  void keepsTheProgramDuringAnEntry();
  void opensTheOrderPage();
  void offersNoOrderPageWithoutAnAddress();
};

void FrmEditLaunchingTest::printsByButtonAndKey() {
  LaunchingDesk desk;
  desk.Click("cmdPrint");
  QCOMPARE(desk.Targets(), QStringList{kPage});
  const std::string page = desk.files.files.at(kPage.toStdString());
  QVERIFY(page.find("Christmas Day</td>") != std::string::npos);
  QVERIFY(page.find("TODAY") == std::string::npos);
  desk.Key(Qt::Key_P, Qt::AltModifier);
  QTRY_COMPARE(desk.Targets(), (QStringList{kPage, kPage}));
  QCOMPARE(desk.files.files.at(kEventsPath), kEvents);
  QVERIFY(desk.window->isVisible());
  QVERIFY(desk.messages.shown.empty());
}

void FrmEditLaunchingTest::saysWhyItCannotPrint() {
  LaunchingDesk desk;
  desk.files.failures[kPage.toStdString() + ".unfinished"] = StatusKind::kNoPermission;
  desk.Click("cmdPrint");
  QCOMPARE(desk.messages.shown.size(), std::size_t{1});
  QCOMPARE(desk.messages.shown.front(),
           "Tidewarden could not write the page:\n" + kPage.toStdString() + "\npermission denied");
  QVERIFY(desk.Targets().isEmpty());
  QVERIFY(desk.window->isVisible());
}

void FrmEditLaunchingTest::printsNothingDuringAnEntry() {
  LaunchingDesk desk;
  desk.Click("cmdAdd");
  desk.Key(Qt::Key_P, Qt::AltModifier);
  QTest::qWait(200);
  QVERIFY(desk.Targets().isEmpty());
  QCOMPARE(desk.files.files.size(), std::size_t{1});
}

void FrmEditLaunchingTest::helpsFromEveryControl() {
  LaunchingDesk desk;
  QStringList expected;
  for (const char* const name : {"List1", "cmdAdd", "cmdEdit", "cmdHelp", "cmdPrint", "cmdOptions",
                                 "cmdDonate", "cmdClose"}) {
    desk.window->findChild<QWidget*>(QLatin1String(name))->setFocus();
    desk.Key(Qt::Key_F1);
    expected << kHelp;
    QCOMPARE(desk.Targets(), expected);
  }
  desk.Click("cmdHelp");
  expected << kHelp;
  QCOMPARE(desk.Targets(), expected);
  QVERIFY(desk.window->isVisible());
  QVERIFY(!desk.end.exitCode);
}

void FrmEditLaunchingTest::helpsDuringAnEntryAndKeepsIt() {
  LaunchingDesk desk;
  desk.Click("cmdAdd");
  QStringList expected;
  for (const char* const name : {"txtEventInput", "txtDateInput", "txtAdvanceInput",
                                 "cmbOccursInput", "cmbPopular", "cmdSave", "cmdCancel"}) {
    desk.window->findChild<QWidget*>(QLatin1String(name))->setFocus();
    desk.Key(Qt::Key_F1);
    expected << kHelp;
    QCOMPARE(desk.Targets(), expected);
  }
  QVERIFY(desk.window->IsEntryUnderWay());
}

void FrmEditLaunchingTest::endsTheProgramWithOptions() {
  LaunchingDesk desk;
  desk.window->move(30, 40);
  desk.window->resize(601, 500);
  QTRY_COMPARE(desk.window->height(), 500);
  desk.end.ending = [&desk] {
    QCOMPARE(desk.settings.At("Edit", "Left"), "450");
    QCOMPARE(desk.settings.At("Edit", "Top"), "600");
    QCOMPARE(desk.settings.At("Edit", "Height"), "7500");
    QCOMPARE(desk.Targets(), QStringList{kOptions});
    QCOMPARE(desk.released, 1);
  };
  desk.Click("cmdOptions");
  QCOMPARE(desk.end.exitCode, 0);
  // No window has been closed on the way.
  QVERIFY(desk.window->isVisible());
  QCOMPARE(desk.remindersShown, 0);
  desk.end = {};
  desk.Key(Qt::Key_O, Qt::AltModifier);
  QTRY_COMPARE(desk.end.exitCode, 0);
  QCOMPARE(desk.Targets(), (QStringList{kOptions, kOptions}));
}

void FrmEditLaunchingTest::savesNoPlaceOfAMaximizedWindow() {
  LaunchingDesk desk;
  desk.window->showMaximized();
  QTRY_VERIFY(desk.window->isMaximized());
  desk.Click("cmdOptions");
  QCOMPARE(desk.settings.At("Edit", "Left"), "-1");
  QCOMPARE(desk.settings.At("Edit", "Top"), "-1");
  QCOMPARE(desk.settings.At("Edit", "Height"), "4845");
  QCOMPARE(desk.end.exitCode, 0);
}

void FrmEditLaunchingTest::keepsTheProgramDuringAnEntry() {
  LaunchingDesk desk;
  desk.Click("cmdAdd");
  QTest::keyClicks(desk.window->focusWidget(), QStringLiteral("Half"));
  QVERIFY(!desk.Button("cmdOptions")->isEnabled());
  desk.Key(Qt::Key_O, Qt::AltModifier);
  QTest::qWait(200);
  QVERIFY(!desk.end.exitCode);
  QVERIFY(desk.Targets().isEmpty());
  QCOMPARE(desk.window->findChild<QLineEdit*>(QStringLiteral("txtEventInput"))->text(),
           QStringLiteral("Half"));
}

void FrmEditLaunchingTest::opensTheOrderPage() {
  LaunchingDesk desk;
  QVERIFY(desk.Button("cmdDonate")->isVisible());
  QCOMPARE(desk.Button("cmdDonate")->toolTip(), QStringLiteral("Simple $10 Donation (Alt + D)"));
  const QString page = QStringLiteral("https://example.org/order");
  desk.Click("cmdDonate");
  QCOMPARE(desk.Targets(), QStringList{page});
  desk.Key(Qt::Key_D, Qt::AltModifier);
  QTRY_COMPARE(desk.Targets(), (QStringList{page, page}));
  QVERIFY(desk.shell.requests.front().kind == ShellTarget::kWebPage);
}

void FrmEditLaunchingTest::offersNoOrderPageWithoutAnAddress() {
  LaunchingDesk desk("");
  const auto check = [&desk] {
    QVERIFY(!desk.Button("cmdDonate")->isVisible());
    QVERIFY(!desk.Button("cmdDonate")->isEnabled());
    desk.Key(Qt::Key_D, Qt::AltModifier);
    QTest::qWait(200);
    QVERIFY(desk.Targets().isEmpty());
  };
  check();
  desk.Click("cmdAdd");
  check();
  desk.Click("cmdCancel");
  check();
}

}  // namespace tidewarden

QTEST_MAIN(tidewarden::FrmEditLaunchingTest)
#include "frm_edit_launching_test.moc"
