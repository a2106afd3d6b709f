// A year with the program: from no file at all, a family enters its events in the editor's window,
// hides, edits, deletes and adds some from the reminder window, and starts the program once a week.
// Every start must list exactly what is due by a calendar that was made by hand.
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>

#include "app/editor_of_program.h"
#include "dates/text.h"
#include "tests/support/layouts.h"
#include "tests/windows/family_events.h"
#include "tests/windows/reminder_world.h"

namespace tidewarden {
namespace {

using namespace test;

// The computer of the family: what stays when the program has ended.
struct House {
  std::string pattern;
  MemorySettingsStore settings;
  MemoryFileSystem files;
  MemoryClock clock;
  MemoryMessageBox messages;

  [[nodiscard]] QStringList Lines() const {
    const std::string file = ToLower(files.files.at(kPath));
    return QString::fromStdString(file).split(QStringLiteral("\r\n"), Qt::SkipEmptyParts);
  }
};

// The program from its start to its end.
class Run {
 public:
  explicit Run(House& house) : house_(house) {
    editor_.MakeParts = [this] {
      EditorOfProgram::Parts parts;
      parts.hooks.showReminder = [this] { window_->Return(); };
      parts.format = LayoutOf(house_.pattern);
      parts.setup = {kPath, "/home/someone/data", 1, 0, 0};
      return parts;
    };
    const bool loaded = session_.Load(kScreens, kPath) == WindowChange::kNone;
    [loaded] { QVERIFY(loaded); }();
    window_ = std::make_unique<frmReminder>(session_);
    window_->Start();
    [this] { QVERIFY(QTest::qWaitForWindowExposed(window_.get())); }();
    [this] { QTRY_VERIFY(session_.isShown()); }();
  }
  ~Run() {
    editor_.Unload();
    window_->close();
  }

  [[nodiscard]] frmReminder& Window() { return *window_; }
  [[nodiscard]] QWidget& Editor() {
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
      if (widget->objectName() == QLatin1String("frmEdit")) return *widget;
    }
    qFatal("no editor");
  }

  template <typename Widget>
  Widget* Of(const char* name) {
    auto* const control = Editor().findChild<Widget*>(QLatin1String(name));
    if (control == nullptr) qFatal("no control %s", name);
    return control;
  }
  void Press(const char* button) { QTest::mouseClick(Of<QPushButton>(button), Qt::LeftButton); }
  void Type(const char* box, const QString& text) {
    Of<QLineEdit>(box)->setFocus();
    Of<QLineEdit>(box)->selectAll();
    QTest::keyClick(Of<QLineEdit>(box), Qt::Key_Backspace);
    QTest::keyClicks(Of<QLineEdit>(box), text);
  }
  void Choose(const char* name, int item) {
    auto* const box = Of<QComboBox>(name);
    box->showPopup();
    box->view()->setCurrentIndex(box->model()->index(item, 0));
    QTest::keyClick(box->view(), Qt::Key_Return);
    QTRY_VERIFY(!box->view()->isVisible());
    GiveKeyboard();
    QCOMPARE(box->currentIndex(), item);
  }

  [[nodiscard]] bool IsEntryUnderWay() const { return editor_.IsEntryUnderWay(); }
  // Without a window manager nobody hands the keyboard on.
  void GiveKeyboard() {
    Editor().activateWindow();
    QTRY_VERIFY(Editor().isActiveWindow() &&
                QGuiApplication::focusWindow() == Editor().windowHandle());
  }
  void OpenEditor() {
    QTest::mouseClick(Find<QPushButton>(*window_, "cmdGoToEdit"), Qt::LeftButton);
    QVERIFY(editor_.IsLoaded());
    QVERIFY(QTest::qWaitForWindowActive(&Editor()));
    QVERIFY(!window_->isVisible());
  }
  void CloseEditor() {
    Press("cmdClose");
    QTRY_VERIFY(window_->isVisible());
    QVERIFY(!editor_.IsLoaded());
  }
  void DoubleClick(const char* text) {
    const int row = RowWith(*window_, text);
    QVERIFY2(row >= 0, text);
    ListOf(*window_)->scrollTo(ListOf(*window_)->model()->index(row, 0));
    const QPoint place = PlaceOf(*window_, row);
    QTest::mouseClick(ListOf(*window_)->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(ListOf(*window_)->viewport(), Qt::LeftButton, {}, place);
    QTRY_VERIFY(editor_.IsEntryUnderWay());
    GiveKeyboard();
  }
  void ChooseFromMenu(const char* text, const char* item) {
    const int row = RowWith(*window_, text);
    QVERIFY2(row >= 0, text);
    QTest::mousePress(ListOf(*window_)->viewport(), Qt::RightButton, {}, PlaceOf(*window_, row));
    Find<QMenu>(*window_, "mnuPop")->close();
    Find<QAction>(*window_, item)->trigger();
  }

  void Enter(const FamilyEvent& event);

  // Whether a list names an event: today's is in capitals.
  [[nodiscard]] bool Lists(const char* key) {
    return !RowsOf(*window_).filter(QLatin1String(key), Qt::CaseInsensitive).isEmpty();
  }

 private:
  [[nodiscard]] QString DateOf(const FamilyEvent& event) const;

  House& house_;
  MemoryShiftKey shiftKey_;
  PatternRegionalFormats formats_{house_.pattern};
  MemoryPreviousInstance instance_;
  MemoryNotificationArea area_;
  MemoryRandomNumbers random_;
  MemorySoundPlayer sound_;
  ProgramFolders folders_{"/opt/tidewarden", "/home/someone/data", PathStyle::kPosix};
  AlarmSession alarms_{{house_.settings, house_.files, sound_, house_.messages}, folders_};
  EditorOfProgram editor_{{house_.settings, house_.files, house_.clock, house_.messages}};
  ReminderSession session_{ReminderPorts{house_.settings, house_.files, house_.clock,
                                         house_.messages, shiftKey_, formats_, instance_, area_,
                                         random_, editor_, alarms_, folders_}};
  std::unique_ptr<frmReminder> window_;
};

// As somebody in that region types it.
QString Run::DateOf(const FamilyEvent& event) const {
  if (event.month == 0) return event.day > 0 ? QString::number(event.day) : QString();
  const RegionalDateFormat format = LayoutOf(house_.pattern);
  const QString month = QString::number(event.month);
  const QString day = QString::number(event.day);
  QStringList parts = format.IsMonthFirst() ? QStringList{month, day} : QStringList{day, month};
  if (event.year != 0 && format.IsYearFirst()) parts = {QString::number(event.year), month, day};
  if (event.year != 0 && !format.IsYearFirst()) parts << QString::number(event.year);
  return parts.join(format.IsMonthFirst() ? QLatin1Char('/') : QLatin1Char('-'));
}

void Run::Enter(const FamilyEvent& event) {
  Press("cmdAdd");
  if (event.observance != kNoObservance) {
    Choose("cmbPopular", event.observance);
    QCOMPARE(Of<QLineEdit>("txtEventInput")->text(), QString::fromUtf8(event.title));
  } else {
    Choose("cmbOccursInput", event.kind);
    Type("txtEventInput", QString::fromUtf8(event.title));
    if (event.day == kEveryWeekday) {
      Of<QAbstractButton>("chkEveryMonth")->click();
    } else {
      Type("txtDateInput", DateOf(event));
    }
  }
  if (*event.advance != '\0') Type("txtAdvanceInput", QString::fromUtf8(event.advance));
  if (*event.count != '\0') Type("txtEveryInput", QString::fromUtf8(event.count));
  // Every other one by the keyboard.
  if (house_.Lines().size() % 2 == 0) {
    Press("cmdSave");
  } else {
    QTest::keyClick(Editor().focusWidget(), Qt::Key_S, Qt::AltModifier);
  }
  // An Alt key holds its button down for a moment.
  QTRY_VERIFY2(!editor_.IsEntryUnderWay(), event.title);
  for (const std::string& text : house_.messages.shown) QFAIL(text.c_str());
}

}  // namespace

class YearWithTheProgramTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // The slots are called by name.
  void listsEveryEventWhenItIsDue_data();
  void listsEveryEventWhenItIsDue();

 private:
  static void EnterAll(Run& run, House& house);
  static void LiveTheDay(Run& run, House& house, CivilDate today, Known& known);
  static void DeleteInTheEditor(Run& run, House& house, const QString& title);
  static void LookAtTheList(Run& run, CivilDate today, const QStringList& gone);
};

void YearWithTheProgramTest::EnterAll(Run& run, House& house) {
  run.OpenEditor();
  for (const FamilyEvent& event : Family()) {
    run.Enter(event);
    if (QTest::currentTestFailed()) return;
  }
  QCOMPARE(house.Lines(), LinesOfFamily());
  run.CloseEditor();
}

void YearWithTheProgramTest::LookAtTheList(Run& run, CivilDate today, const QStringList& gone) {
  for (const FamilyEvent& event : Family()) {
    const bool due = !gone.contains(QLatin1String(event.key)) && IsDue(event, today);
    const std::string where = IsoDate(today) + " " + event.title;
    QVERIFY2(run.Lists(event.key) == due, where.c_str());
  }
}

void YearWithTheProgramTest::DeleteInTheEditor(Run& run, House& house, const QString& title) {
  run.OpenEditor();
  auto* const list = run.Of<QListView>("List1");
  const QModelIndexList found = list->model()->match(list->model()->index(0, 0), Qt::DisplayRole,
                                                     title, 1, Qt::MatchContains);
  QCOMPARE(found.size(), 1);
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(found[0]).center());
  house.messages.answer = MessageAnswer::kYes;
  QTest::keyClick(list, Qt::Key_Delete);
  house.messages.answer = MessageAnswer::kOk;
  run.CloseEditor();
}

// What the family does on some days besides looking.
void YearWithTheProgramTest::LiveTheDay(Run& run, House& house, CivilDate today, Known& known) {
  if (today == On(2015, 3, 12)) {
    run.ChooseFromMenu("Rent", "mnuHideThis");
    QVERIFY(!run.Lists("RENT"));
    QCOMPARE(house.Lines().filter(QStringLiteral("*")).size(), 1);
  } else if (today == On(2015, 4, 23)) {
    DeleteInTheEditor(run, house, QStringLiteral("Tax return"));
    known.Forget(EventOf("Tax return"));
  } else if (today == On(2015, 6, 25)) {
    run.DoubleClick("Wedding");
    run.Type("txtEventInput", QStringLiteral("Our wedding"));
    run.GiveKeyboard();
    QTest::keyClick(run.Editor().focusWidget(), Qt::Key_S, Qt::AltModifier);
    QTRY_VERIFY(!run.IsEntryUnderWay());
    run.CloseEditor();
    known.lines.replaceInStrings(LineOf(EventOf("Wedding day")),
                                 QStringLiteral("07.02,our wedding,7,yearly"));
  } else if (today == On(2015, 9, 3)) {
    run.DoubleClick("TODAY");
    run.Type("txtEventInput", QStringLiteral("School begins"));
    run.Press("cmdSave");
    run.CloseEditor();
    QVERIFY(run.Lists("SCHOOL BEGINS"));
    known.lines << QStringLiteral("09.03,school begins,0,yearly");
  }
}

void YearWithTheProgramTest::listsEveryEventWhenItIsDue_data() {
  QTest::addColumn<QString>("pattern");
  for (const char* const pattern : {"MM/dd/yyyy", "dd.MM.yyyy", "yyyy-MM-dd"}) {
    QTest::newRow(pattern) << QString::fromLatin1(pattern);
  }
}

void YearWithTheProgramTest::listsEveryEventWhenItIsDue() {
  QFETCH(const QString, pattern);
  House house;
  house.pattern = pattern.toStdString();
  Known known;
  for (DayCount day{On(2015, 1, 1)}; day <= DayCount{On(2016, 1, 1)}; day += std::chrono::days{7}) {
    const CivilDate today{day};
    house.clock.now.date = today;
    house.messages.shown.clear();
    Run run(house);
    if (today == On(2015, 1, 1)) {
      QCOMPARE(house.messages.shown.size(), std::size_t{1});
      QVERIFY(house.messages.shown[0].find("does not exist.") != std::string::npos);
      house.messages.shown.clear();
      EnterAll(run, house);
    }
    if (QTest::currentTestFailed()) return;
    LookAtTheList(run, today, known.gone);
    if (QTest::currentTestFailed()) return;

    LiveTheDay(run, house, today, known);
    if (today > On(2015, 5, 20)) known.Forget(EventOf("Dentist 3:30pm"));
    // Nothing is lost: but for the mark of what is hidden the file holds what it is to hold.
    QStringList held = house.Lines();
    held.replaceInStrings(QStringLiteral("*"), QString());
    held.sort();
    known.lines.sort();
    QCOMPARE(held, known.lines);
    QVERIFY(house.Lines().filter(QStringLiteral("*")).size() <= 1);
  }
}

}  // namespace tidewarden

QTEST_MAIN(tidewarden::YearWithTheProgramTest)
#include "year_with_the_program_test.moc"
