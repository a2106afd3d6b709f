// The reminder window and the events editor together, when the one comes and goes beside the other.
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>

#include "app/editor_of_program.h"
#include "tests/support/layouts.h"
#include "tests/windows/reminder_world.h"

namespace tidewarden {
namespace {

constexpr char kChristmas[] = "12.25,Christmas,14,yearly\r\n";

// A running program, on 22 December 2014.
class Program {
 public:
  MemorySettingsStore settings;
  MemoryFileSystem files;
  MemoryClock clock;
  MemoryMessageBox messages;

 private:
  MemoryShiftKey shiftKey_;
  PatternRegionalFormats formats_{"MM/dd/yyyy"};
  MemoryPreviousInstance instance_;
  MemoryNotificationArea area_;
  MemoryRandomNumbers random_;
  MemorySoundPlayer sound_;
  ProgramFolders folders_{"/opt/tidewarden", "/home/someone/data", PathStyle::kPosix};
  AlarmSession alarms_{{settings, files, sound_, messages}, folders_};
  EditorOfProgram editor_{{settings, files, clock, messages}};

 public:
  ReminderSession session{ReminderPorts{settings, files, clock, messages, shiftKey_, formats_,
                                        instance_, area_, random_, editor_, alarms_, folders_}};
  std::unique_ptr<frmReminder> window;

  explicit Program(const std::string& events) {
    files.files[kPath] = events;
    editor_.MakeParts = [this] {
      EditorOfProgram::Parts parts;
      parts.hooks.showReminder = [this] { window->Return(); };
      parts.hooks.hideReminder = [this] { window->EditorRestored(); };
      parts.format = test::LayoutOf("MM/dd/yyyy");
      parts.setup = {kPath, "/home/someone/data", 1, 0, 0};
      return parts;
    };
  }
  ~Program() { editor_.Unload(); }

  void Start() {
    QVERIFY(session.Load(kScreens, kPath) == WindowChange::kNone);
    window = std::make_unique<frmReminder>(session);
    window->Start();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    QTRY_VERIFY(session.isShown());
  }
  void OpenEditor() {
    QTest::mouseClick(Find<QPushButton>(*window, "cmdGoToEdit"), Qt::LeftButton);
    QVERIFY(editor_.IsLoaded());
    QVERIFY(QTest::qWaitForWindowActive(&Editor()));
    QVERIFY(!window->isVisible());
  }
  void TypeInEditor(const QString& title) {
    QTest::mouseClick(Editor().findChild<QPushButton*>(QStringLiteral("cmdAdd")), Qt::LeftButton);
    auto* const date = Editor().findChild<QLineEdit*>(QStringLiteral("txtDateInput"));
    date->setFocus();
    QTest::keyClicks(date, QStringLiteral("12/27"));
    Title()->setFocus();
    QTest::keyClicks(Title(), title);
    QVERIFY(editor_.IsEntryUnderWay());
  }
  void TickOn(CivilDate day) {
    clock.now.date = day;
    for (const char* const timer : {"tmrAlarm", "tmrMinute"}) {
      QVERIFY(QMetaObject::invokeMethod(Find<QTimer>(*window, timer), "timeout"));
    }
  }

  void ScreensChanged() { editor_.ScreensChanged(); }

  [[nodiscard]] bool IsEditorLoaded() const { return editor_.IsLoaded(); }
  [[nodiscard]] QWidget& Editor() {
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
      if (widget->objectName() == QLatin1String("frmEdit")) return *widget;
    }
    qFatal("no editor");
  }
  QLineEdit* Title() { return Editor().findChild<QLineEdit*>(QStringLiteral("txtEventInput")); }
};

// What the login session sends to the program.
void EndLoginSession() {
  QEvent quit(QEvent::Quit);
  QCoreApplication::sendEvent(qApp, &quit);
}

}  // namespace

class BothWindowsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // The slots are called by name.
  void aRestoredEditorTakesThePlaceOfTheReminderWindow();
  void aNewDayWithNothingInRangeLeavesWhatIsTyped();
  void theEditorComesBackFromAScreenThatIsGone();
  void theEndOfTheLoginSessionBringsNothingUp_data();
  void theEndOfTheLoginSessionBringsNothingUp();
  void anEndThatIsRefusedIsForgotten();
};

void BothWindowsTest::aRestoredEditorTakesThePlaceOfTheReminderWindow() {
  Program program(kChristmas);
  program.Start();
  program.OpenEditor();
  program.Editor().showMinimized();
  QTRY_VERIFY(program.window->isVisible());
  program.files.files[kPath] = "12.26,Boxing Day,14,yearly\r\n";
  program.Editor().showNormal();
  QTRY_VERIFY(!program.window->isVisible());
  QVERIFY(program.Editor().isVisible());
  const auto* const rows = program.Editor().findChild<QListView*>(QStringLiteral("List1"))->model();
  QCOMPARE(rows->match(rows->index(0, 0), Qt::DisplayRole, QStringLiteral("Boxing Day"), -1,
                       Qt::MatchContains)
               .size(),
           1);
  program.Editor().close();
  QTRY_VERIFY(program.window->isVisible());
  QVERIFY(RowWith(*program.window, "Boxing Day") >= 0);
}

void BothWindowsTest::aNewDayWithNothingInRangeLeavesWhatIsTyped() {
  Program program(kChristmas);
  QVERIFY(program.settings.Write("Options", "ShowOnlyIfEventsInRange", "True").ok());
  program.Start();
  QSignalSpy ended(program.window.get(), &frmReminder::Ended);
  program.OpenEditor();
  program.TypeInEditor(QStringLiteral("Half typed"));
  const int builds = program.session.builds();
  program.TickOn(MakeDate(2014, 12, 26));
  QCOMPARE(program.session.builds(), builds + 1);
  QCOMPARE(ended.count(), 0);
  QVERIFY(!program.window->isVisible());
  QVERIFY(program.Editor().isVisible());
  QCOMPARE(program.Title()->text(), QStringLiteral("Half typed"));
  QVERIFY(program.messages.shown.empty());
  QTest::keyClick(program.Title(), Qt::Key_S, Qt::AltModifier);
  QTRY_VERIFY(program.files.files[kPath].find("Half typed") != std::string::npos);
  QVERIFY(program.files.files[kPath].find("Christmas") != std::string::npos);
}

void BothWindowsTest::theEditorComesBackFromAScreenThatIsGone() {
  Program program(kChristmas);
  program.Start();
  program.ScreensChanged();
  QVERIFY(!program.IsEditorLoaded());
  program.OpenEditor();
  program.TypeInEditor(QStringLiteral("Half typed"));
  program.Editor().move(-9000, 50);
  program.ScreensChanged();
  QCOMPARE(program.Editor().pos(), QGuiApplication::primaryScreen()->geometry().topLeft());
  QCOMPARE(program.Title()->text(), QStringLiteral("Half typed"));
  // Once it is closed it stays away.
  program.Editor().close();
  program.ScreensChanged();
  QVERIFY(!program.Editor().isVisible());
}

void BothWindowsTest::theEndOfTheLoginSessionBringsNothingUp_data() {
  QTest::addColumn<bool>("editor");
  QTest::newRow("in the notification area") << false;
  QTest::newRow("behind the editor") << true;
}

void BothWindowsTest::theEndOfTheLoginSessionBringsNothingUp() {
  QFETCH(bool, editor);
  Program program(std::string(kChristmas) + "12.22,Dentist 3:30pm,0,yearly\r\n");
  program.Start();
  if (editor) {
    program.OpenEditor();
    program.TypeInEditor(QStringLiteral("Half typed"));
  } else {
    Find<QAbstractButton>(*program.window, "cmdTray")->click();
    QTRY_VERIFY(!program.window->isVisible());
  }
  const int builds = program.session.builds();
  const std::string events = program.files.files[kPath];
  EndLoginSession();
  QVERIFY(!program.window->isVisible());
  QVERIFY(!program.IsEditorLoaded());
  QCOMPARE(program.session.builds(), builds);
  QVERIFY(program.messages.shown.empty());
  QCOMPARE(program.files.files[kPath], events);
}

void BothWindowsTest::anEndThatIsRefusedIsForgotten() {
  Program program(kChristmas);
  program.Start();
  program.OpenEditor();
  // Hidden windows are not asked, and the editor is not asked here.
  program.Editor().hide();
  EndLoginSession();
  QTest::qWait(20);
  program.Editor().show();
  program.Editor().close();
  QTRY_VERIFY(program.window->isVisible());
}

}  // namespace tidewarden

QTEST_MAIN(tidewarden::BothWindowsTest)
#include "both_windows_test.moc"
