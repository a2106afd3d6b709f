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
#include "editor/occurrence_codes.h"
#include "tests/support/layouts.h"
#include "tests/windows/reminder_world.h"

namespace tidewarden {
namespace {

using test::LayoutOf;
using test::On;

constexpr int kEveryWeekday = -1;  // the day of an event of a weekday kind
constexpr int kNoObservance = -1;

struct FamilyEvent {
  const char* title;  // as typed, or as the observance gives it
  const char* key;    // by which it is found in a list
  int kind = kYearlyKind;
  int month = 0;
  int day = 0;
  int year = 0;  // of counters
  const char* advance = "";
  const char* count = "";
  int observance = kNoObservance;
  std::vector<CivilDate> dates = {};  // in 2015; none for counters, which are always listed
  const char* line = "";              // in the file, its code in lower case
};

std::vector<CivilDate> Monthly(int day) {
  std::vector<CivilDate> dates;
  for (int month = 1; month <= 12; ++month) dates.push_back(On(2015, month, day));
  return dates;
}

std::vector<CivilDate> LastDays() {
  std::vector<CivilDate> dates;
  for (const auto& [month, day] : {std::pair(1, 31),
                                   {2, 28},
                                   {3, 31},
                                   {4, 30},
                                   {5, 31},
                                   {6, 30},
                                   {7, 31},
                                   {8, 31},
                                   {9, 30},
                                   {10, 31},
                                   {11, 30},
                                   {12, 31}}) {
    dates.push_back(On(2015, month, day));
  }
  return dates;
}

std::vector<CivilDate> EveryTwoWeeks() {
  std::vector<CivilDate> dates;
  for (DayCount day{On(2015, 1, 5)}; CivilDate{day}.year() < std::chrono::year{2016};
       day += std::chrono::days{14}) {
    dates.push_back(CivilDate{day});
  }
  return dates;
}

// In the order of the file.
const std::vector<FamilyEvent>& Family() {
  static const std::vector<FamilyEvent> events{
      {.title = "Easter Sunday",
       .key = "EASTER",
       .advance = "10",
       .observance = 40,
       .dates = {On(2015, 4, 5)},
       .line = "_estr,Easter Sunday,10,yearly"},
      {.title = "Bins",
       .key = "BINS",
       .kind = kEveryKind,
       .month = 1,
       .day = 5,
       .advance = "1",
       .count = "14",
       .dates = EveryTwoWeeks(),
       .line = "01.05,Bins,1,14-2015"},
      {.title = "Water bill",
       .key = "WATER",
       .kind = 1,
       .month = 2,
       .day = 10,
       .advance = "5",
       .dates = {On(2015, 2, 10), On(2015, 5, 10), On(2015, 8, 10), On(2015, 11, 10)},
       .line = "02.10,Water bill,5,quarter"},
      {.title = "Mum's birthday",
       .key = "MUM'S",
       .month = 3,
       .day = 14,
       .advance = "14",
       .dates = {On(2015, 3, 14)},
       .line = "03.14,Mum's birthday,14,yearly"},
      {.title = "Tax return",
       .key = "TAX",
       .kind = kTilDoneKind,
       .month = 4,
       .day = 10,
       .advance = "10",
       .dates = {On(2015, 4, 10)},
       .line = "04.10,Tax return,10,tdo2015"},
      {.title = "Dentist 3:30pm",
       .key = "DENTIST",
       .kind = kOneTimeKind,
       .month = 5,
       .day = 20,
       .advance = "2",
       .dates = {On(2015, 5, 20)},
       .line = "05.20,Dentist 3:30pm,2,one2015"},
      {.title = "Mother's Day",
       .key = "MOTHER",
       .advance = "7",
       .observance = 18,
       .dates = {On(2015, 5, 10)},
       .line = "05.xx,Mother's Day,7,2nd sun"},
      {.title = "Wedding day",
       .key = "WEDDING",
       .month = 7,
       .day = 2,
       .advance = "7",
       .dates = {On(2015, 7, 2)},
       .line = "07.02,Wedding day,7,yearly"},
      {.title = "Since we moved",
       .key = "MOVED",
       .kind = kDaysPastKind,
       .month = 8,
       .day = 1,
       .year = 2014,
       .line = "08.01,Since we moved,0,dp-2014"},
      {.title = "Labor Day",
       .key = "LABOR",
       .advance = "4",
       .observance = 27,
       .dates = {On(2015, 9, 7)},
       .line = "09.xx,Labor Day,4,1st mon"},
      {.title = "Until the trip",
       .key = "TRIP",
       .kind = kDaysFutureKind,
       .month = 12,
       .day = 24,
       .year = 2016,
       .line = "12.24,Until the trip,0,df-2016"},
      {.title = "Christmas Day",
       .key = "CHRISTMAS",
       .advance = "20",
       .observance = 36,
       .dates = {On(2015, 12, 25)},
       .line = "12.25,Christmas Day,20,yearly"},
      {.title = "Rent",
       .key = "RENT",
       .kind = kMonthlyKind,
       .day = 15,
       .advance = "3",
       .dates = Monthly(15),
       .line = "xx.15,Rent,3,monthly"},
      {.title = "Pay day",
       .key = "PAY DAY",
       .kind = kOccurrenceKinds - 1,
       .day = kEveryWeekday,
       .advance = "0",
       .dates = LastDays(),
       .line = "xx.xx,Pay day,0,las day"},
  };
  return events;
}

const FamilyEvent& EventOf(const char* title) {
  for (const FamilyEvent& event : Family()) {
    if (std::string_view(event.title) == title) return event;
  }
  qFatal("no event %s", title);
}

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
    QTRY_VERIFY(Editor().isActiveWindow());
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

// Due within its notice; counters always, and what is to be done until it is done.
bool IsDue(const FamilyEvent& event, CivilDate today) {
  if (event.dates.empty()) return true;
  if (event.kind == kTilDoneKind && DayCount{event.dates[0]} < DayCount{today}) return true;
  const int notice = QByteArray(event.advance).toInt();
  return std::any_of(event.dates.begin(), event.dates.end(), [&](CivilDate date) {
    const auto days = (DayCount{date} - DayCount{today}).count();
    return days >= 0 && days <= notice;
  });
}

QStringList LinesOfFamily() {
  QStringList lines;
  for (const FamilyEvent& event : Family()) lines << QString::fromUtf8(event.line).toLower();
  return lines;
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
  QStringList gone;
  QStringList lines = LinesOfFamily();
  const auto replace = [&](const char* title, const char* by) {
    lines.replaceInStrings(QString::fromUtf8(EventOf(title).line).toLower(), QString::fromUtf8(by));
  };
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
    LookAtTheList(run, today, gone);
    if (QTest::currentTestFailed()) return;

    if (today == On(2015, 3, 12)) {
      run.ChooseFromMenu("Rent", "mnuHideThis");
      QVERIFY(!run.Lists("RENT"));
    } else if (today == On(2015, 4, 23)) {
      run.OpenEditor();
      const auto* const list = run.Of<QListView>("List1");
      const QModelIndexList found =
          list->model()->match(list->model()->index(0, 0), Qt::DisplayRole,
                               QStringLiteral("Tax return"), 1, Qt::MatchContains);
      QCOMPARE(found.size(), 1);
      QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(found[0]).center());
      house.messages.answer = MessageAnswer::kYes;
      QTest::keyClick(run.Of<QListView>("List1"), Qt::Key_Delete);
      house.messages.answer = MessageAnswer::kOk;
      run.CloseEditor();
      gone << QStringLiteral("TAX");
      lines.removeAll(QString::fromUtf8(EventOf("Tax return").line).toLower());
    } else if (today == On(2015, 6, 25)) {
      run.DoubleClick("Wedding");
      run.Type("txtEventInput", QStringLiteral("Our wedding"));
      QTest::keyClick(run.Editor().focusWidget(), Qt::Key_S, Qt::AltModifier);
      QTRY_VERIFY(!run.IsEntryUnderWay());
      run.CloseEditor();
      replace("Wedding day", "07.02,our wedding,7,yearly");
    } else if (today == On(2015, 9, 3)) {
      run.DoubleClick("TODAY");
      run.Type("txtEventInput", QStringLiteral("School begins"));
      run.Press("cmdSave");
      run.CloseEditor();
      QVERIFY(run.Lists("SCHOOL BEGINS"));
      lines << QStringLiteral("09.03,school begins,0,yearly");
    }
    if (today > On(2015, 5, 20)) {
      lines.removeAll(QString::fromUtf8(EventOf("Dentist 3:30pm").line).toLower());
      gone << QStringLiteral("DENTIST");
    }
    // Nothing is lost: but for the mark of what is hidden the file holds what it is to hold.
    QStringList held = house.Lines();
    held.replaceInStrings(QStringLiteral("*"), QString());
    held.sort();
    lines.sort();
    QCOMPARE(held, lines);
    QVERIFY(house.Lines().filter(QStringLiteral("*")).size() <= 1);
  }
}

}  // namespace tidewarden

QTEST_MAIN(tidewarden::YearWithTheProgramTest)
#include "year_with_the_program_test.moc"
