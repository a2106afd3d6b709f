// The list of the events editor's window: its rows, its keys, its clicks and its menu.
#include <QImage>
#include <QKeyEvent>
#include <QScrollBar>
#include <QSet>
#include <algorithm>

#include "editor/frm_edit_columns.h"
#include "tests/windows/edit_window_desk.h"
#include "tests/windows/edit_window_events.h"

namespace tidewarden {
namespace {

using namespace test;

std::string ManyEvents(int many) {
  std::string events;
  for (int i = 0; i < many; ++i) {
    events += "12.25,Christmas " + std::to_string(100'000 + i) + ",14,yearly\r\n";
  }
  return events;
}

// Keeps count of what the list asks for.
class CountingDelegate : public EventColumnsDelegate {
 public:
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    painted << index.row();
    EventColumnsDelegate::paint(painter, option, index);
  }
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& index) const override {
    ++measured;
    return EventColumnsDelegate::sizeHint(option, index);
  }

  mutable QList<int> painted;
  mutable int measured = 0;
};

}  // namespace

class FrmEditListTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // The slots are called by name.
  void listsTheEventsOfTheFile();
  void listsTodayInSmallLettersOrNotAtAll();
  void showsTheDayFirstInEveryOtherOrder();
  void keepsColumnsInLineUnderWideTitles();
  void listsManyRowsWithoutDelay();
  void drawsOnlyTheRowsThatAreSeen();
  void makesNothingForEachRow();
  void editsByReturn_data();
  void editsByReturn();
  void editsByDoubleClick();
  void editsTheSelectedEventByADoubleClickBesideTheRows();
  void asksForASelection();
  void refusesToEditToday();
  void keepsTheSelectionWhenTheClickMisses();
  void deletesWhenTheKeyIsLetGo();
  void deletesNothingWhenTheKeyWentDownElsewhere();
  void selectsTheNewLastRowAfterTheLastIsDeleted();
  void opensItsMenuOverARow();
  void opensItsMenuBesideTheRows();
  void opensItsMenuByTheKeyboard();
  void deletesFromItsMenu();
  void leavesItsMenuToTheFirstRow();
  void opensNoMenuDuringAnEntry();
};

void FrmEditListTest::listsTheEventsOfTheFile() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  QCOMPARE(desk.Rows(), kListed);
  QCOMPARE(desk.Session().EditorLineMap(), (std::vector<long>{2, 3, kTodayRowLine, 0, 4}));
  QCOMPARE(desk.SelectedRow(), 0);
  QCOMPARE(desk.FocusName(), QStringLiteral("List1"));
}

void FrmEditListTest::listsTodayInSmallLettersOrNotAtAll() {
  EditWindowDesk small(kEvents);
  small.Set("Options", "CapitalizeTodaysEvents", "False");
  small.Open();
  QCOMPARE(small.Rows().at(kToday), QStringLiteral("12.22  <Today>"));

  EditWindowDesk none(kEvents);
  none.Set("Options", "ListTodayWithEvents", "False");
  none.Open();
  QStringList expected = kListed;
  expected.removeAt(kToday);
  QCOMPARE(none.Rows(), expected);
}

void FrmEditListTest::showsTheDayFirstInEveryOtherOrder() {
  for (const RegionalDateFormat& format : {DayFirst(), YearFirst()}) {
    EditWindowDesk desk("03.05,Spring,7,yearly\r\n_estr,Easter Sunday,7,yearly\r\n", format);
    desk.Open();
    QCOMPARE(desk.Rows().at(0).left(20), QStringLiteral("_estr Easter Sunday "));
    QCOMPARE(desk.Rows().at(1).left(13), QStringLiteral("05.03 Spring "));
    QCOMPARE(desk.Rows().at(2), QStringLiteral("22.12  <TODAY>"));
  }
}

// Two rows that differ in their titles only look alike from the advance column on.
void FrmEditListTest::keepsColumnsInLineUnderWideTitles() {
  // The last two are wide on every machine, whatever fonts it has.
  const QString widest = QString::fromUtf8("⨌").repeated(30);
  const std::vector<std::string> titles{
      "Plain",
      "Jürgen Müßiggang é",
      "Ёлка и Дед Мороз",
      "你好世界的生日快樂祝賀大家新年好萬事如意身體健康龍馬精神天天",
      "🎂🎉🎂🎉🎂🎉🎂🎉🎂🎉🎂🎉🎂🎉🎂🎉🎂🎉🎂🎉🎂🎉🎂🎉🎂🎉🎂🎉🎂🎉",
      "שלום לכולם",
      QString::fromUtf8("Ǆ").repeated(30).toStdString(),
      widest.toStdString()};
  std::string events;
  for (std::size_t i = 0; i < titles.size(); ++i) {
    events += "01.0" + std::to_string(i + 1) + "," + titles[i] + ",7,yearly\r\n";
  }
  EditWindowDesk desk(events);
  desk.Open();
  desk.Window().resize(601, 500);
  desk.Select(static_cast<int>(titles.size()));
  QListView* const list = desk.List();
  const QFontMetricsF metrics(list->font());
  QVERIFY(metrics.horizontalAdvance(widest) > 38 * metrics.horizontalAdvance(QLatin1Char('0')));
  const QImage image = list->viewport()->grab().toImage();
  const auto partOf = [&](int row, int fromColumn, int toColumn) {
    const QRect place = list->visualRect(list->model()->index(row, 0));
    const double scale = image.devicePixelRatio();
    const double width = metrics.horizontalAdvance(QLatin1Char('0'));
    const QRectF part(fromColumn * width, place.top(), (toColumn - fromColumn) * width,
                      place.height());
    return image.copy(QRectF(part.topLeft() * scale, part.size() * scale).toRect());
  };
  constexpr int kAdvanceFrom = 45;
  constexpr int kEnd = 61;
  constexpr int kTitleFrom = 7;
  for (int row = 1; row < static_cast<int>(titles.size()); ++row) {
    QVERIFY2(partOf(row, kAdvanceFrom, kEnd) == partOf(0, kAdvanceFrom, kEnd),
             qPrintable(desk.Rows().at(row)));
    QVERIFY2(partOf(row, kTitleFrom, kAdvanceFrom) != partOf(0, kTitleFrom, kAdvanceFrom),
             qPrintable(desk.Rows().at(row)));
  }
}

void FrmEditListTest::listsManyRowsWithoutDelay() {
  constexpr int kMany = 100'000;
  EditWindowDesk desk(ManyEvents(kMany));
  desk.Open();
  QCOMPARE(desk.Rows().size(), kMany + 1);
  desk.Key(Qt::Key_End);
  QCOMPARE(desk.SelectedRow(), kMany);
  QVERIFY(desk.List()->viewport()->rect().contains(RowCentre(desk.List(), kMany)));
  desk.Key(Qt::Key_Return);
  QCOMPARE(desk.Text("txtEventInput"), QStringLiteral("Christmas 199999"));
}

// However long the list is, only what is seen of it costs anything when it is opened, scrolled,
// walked through or changed.
void FrmEditListTest::drawsOnlyTheRowsThatAreSeen() {
  std::vector<int> rowsSeen;
  for (const int many : {1'000, 100'000}) {
    EditWindowDesk desk(ManyEvents(many));
    QListView* const list = desk.List();
    CountingDelegate delegate;
    list->setItemDelegate(&delegate);
    const int rowHeight = delegate.sizeHint({}, {}).height();
    const int seen = list->height() / rowHeight + 1;
    rowsSeen.push_back(seen);
    const auto costs = [&](const char* what, auto deed) {
      delegate.painted.clear();
      delegate.measured = 0;
      deed();
      QApplication::processEvents();
      list->viewport()->repaint();
      const int first = list->indexAt({5, 1}).row();
      for (const int row : std::as_const(delegate.painted)) {
        // Rows that were seen before may be drawn once more on the way.
        QVERIFY2(row >= 0 && row <= many, what);
      }
      QVERIFY2(delegate.painted.contains(first), what);
      QVERIFY2(delegate.painted.size() <= 4 * seen, what);
      QVERIFY2(delegate.measured <= 8 * seen, what);
      const QSet<int> rows(delegate.painted.begin(), delegate.painted.end());
      QVERIFY2(rows.size() <= 2 * seen, what);
    };
    costs("opened", [&] { desk.Open(); });
    costs("scrolled", [&] { list->verticalScrollBar()->setValue(many / 2); });
    costs("at the end", [&] { desk.Key(Qt::Key_End); });
    costs("a page up", [&] { desk.Key(Qt::Key_PageUp); });
    costs("a row down", [&] { desk.Key(Qt::Key_Down); });
    costs("edited", [&] {
      desk.Click("cmdEdit");
      desk.Type("txtEventInput", QStringLiteral("Changed"));
      desk.Click("cmdSave");
    });
    QVERIFY(desk.File().find("Changed") != std::string::npos);
    list->setItemDelegate(nullptr);
  }
  QCOMPARE(rowsSeen.front(), rowsSeen.back());
}

void FrmEditListTest::makesNothingForEachRow() {
  std::vector<qsizetype> objects;
  for (const int many : {10, 100'000}) {
    EditWindowDesk desk(ManyEvents(many));
    desk.Open();
    desk.Key(Qt::Key_End);
    desk.Key(Qt::Key_Home);
    QCOMPARE(desk.List()->model()->rowCount(), many + 1);
    objects.push_back(desk.Window().findChildren<QObject*>().size());
  }
  // A scroll bar that is needed may have a few helpers of its own.
  constexpr qsizetype kFew = 5;
  QVERIFY2(objects.back() - objects.front() < kFew, "something is made for each row");
}

void FrmEditListTest::editsByReturn_data() {
  QTest::addColumn<int>("key");
  QTest::newRow("Return") << static_cast<int>(Qt::Key_Return);
  QTest::newRow("Enter") << static_cast<int>(Qt::Key_Enter);
}

void FrmEditListTest::editsByReturn() {
  QFETCH(int, key);
  EditWindowDesk desk(kEvents);
  desk.Open();
  desk.Select(kChristmas);
  QKeyEvent repeated(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
  QApplication::sendEvent(desk.List(), &repeated);
  QVERIFY(!desk.Window().IsEntryUnderWay());
  QTest::keyPress(desk.List(), static_cast<Qt::Key>(key));
  QCOMPARE(desk.Text("txtEventInput"), QStringLiteral("Christmas Day"));
  QCOMPARE(desk.FocusName(), QStringLiteral("txtEventInput"));
}

void FrmEditListTest::editsByDoubleClick() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  QListView* const list = desk.List();
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, RowCentre(list, kNewYear));
  QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, RowCentre(list, kNewYear));
  QCOMPARE(desk.Text("txtEventInput"), QStringLiteral("New Year's Day"));
}

void FrmEditListTest::editsTheSelectedEventByADoubleClickBesideTheRows() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  desk.Select(kChristmas);
  QTest::mouseDClick(desk.List()->viewport(), Qt::LeftButton, {}, BelowTheRows(desk.List()));
  QCOMPARE(desk.Text("txtEventInput"), QStringLiteral("Christmas Day"));
}

void FrmEditListTest::asksForASelection() {
  EditWindowDesk desk("");
  desk.Set("Options", "ListTodayWithEvents", "False");
  desk.Open();
  QCOMPARE(desk.Rows().size(), 0);
  desk.Key(Qt::Key_Return);
  desk.Key(Qt::Key_Delete);
  QVERIFY(desk.Shown().isEmpty());
  desk.Button("cmdEdit")->setFocus();
  desk.Click("cmdEdit");
  QCOMPARE(desk.Shown(), QStringList{kPleaseSelect});
  QCOMPARE(desk.FocusName(), QStringLiteral("List1"));
  QTest::mouseDClick(desk.List()->viewport(), Qt::LeftButton, {}, BelowTheRows(desk.List()));
  QCOMPARE(desk.Shown().size(), 2);
  QVERIFY(!desk.Window().IsEntryUnderWay());
}

void FrmEditListTest::refusesToEditToday() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  desk.Select(kToday);
  desk.Button("cmdEdit")->setFocus();
  desk.Click("cmdEdit");
  QCOMPARE(desk.Shown(), QStringList{kTodayIsNone});
  QCOMPARE(desk.FocusName(), QStringLiteral("List1"));
  desk.Key(Qt::Key_Delete);
  QCOMPARE(desk.Shown(), (QStringList{kTodayIsNone, kTodayIsNone}));
  QCOMPARE(desk.File(), kEvents);

  EditWindowDesk small(kEvents);
  small.Set("Options", "CapitalizeTodaysEvents", "False");
  small.Open();
  small.Select(kToday);
  small.Key(Qt::Key_Return);
  QVERIFY(small.Shown().isEmpty());
  QCOMPARE(small.Text("txtEventInput"), QStringLiteral("<Today>"));
}

void FrmEditListTest::keepsTheSelectionWhenTheClickMisses() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  desk.Select(kChristmas);
  desk.Button("cmdAdd")->setFocus();
  QTest::mouseClick(desk.List()->viewport(), Qt::LeftButton, {}, BelowTheRows(desk.List()));
  QCOMPARE(desk.SelectedRow(), kChristmas);
  QCOMPARE(desk.FocusName(), QStringLiteral("List1"));
  // Qt takes this for the wish to select nothing.
  QTest::mouseClick(desk.List()->viewport(), Qt::LeftButton, Qt::ControlModifier,
                    RowCentre(desk.List(), kChristmas));
  QCOMPARE(desk.SelectedRow(), kChristmas);
}

void FrmEditListTest::deletesWhenTheKeyIsLetGo() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  desk.Select(kChristmas);
  desk.messages.answer = MessageAnswer::kNo;
  QTest::keyPress(desk.List(), Qt::Key_Delete);
  QVERIFY(desk.Shown().isEmpty());
  QTest::keyRelease(desk.List(), Qt::Key_Delete);
  QCOMPARE(desk.Shown(), QStringList{kDeleteChristmas});
  QCOMPARE(desk.File(), kEvents);
  QVERIFY(!desk.Window().IsEntryUnderWay());

  desk.Select(kChristmas);
  desk.messages.answer = MessageAnswer::kYes;
  desk.Key(Qt::Key_Delete);
  QCOMPARE(desk.Shown().size(), 2);
  QVERIFY(desk.File().find("Christmas") == std::string::npos);
  QVERIFY(desk.File().find("Pay rent") != std::string::npos);
  QCOMPARE(desk.FocusName(), QStringLiteral("List1"));
}

void FrmEditListTest::deletesNothingWhenTheKeyWentDownElsewhere() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  desk.Select(kChristmas);
  desk.messages.answer = MessageAnswer::kYes;
  QTest::keyRelease(desk.List(), Qt::Key_Delete);
  QTest::keyPress(desk.Button("cmdAdd"), Qt::Key_Delete);
  QTest::keyRelease(desk.List(), Qt::Key_Delete);
  QVERIFY(desk.Shown().isEmpty());
  QCOMPARE(desk.File(), kEvents);
}

void FrmEditListTest::selectsTheNewLastRowAfterTheLastIsDeleted() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  desk.messages.answer = MessageAnswer::kYes;
  const int last = static_cast<int>(kListed.size()) - 1;
  desk.Select(last);
  desk.Key(Qt::Key_Delete);
  QCOMPARE(desk.Rows(), kListed.first(last));
  QCOMPARE(desk.SelectedRow(), last - 1);
}

void FrmEditListTest::opensItsMenuOverARow() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  QTest::mousePress(desk.List()->viewport(), Qt::RightButton, {},
                    RowCentre(desk.List(), kChristmas));
  QVERIFY(OpenMenu());
  QCOMPARE(OpenMenu()->objectName(), QStringLiteral("mnuPop"));
  QCOMPARE(desk.SelectedRow(), kChristmas);
  Trigger(OpenMenu(), "mnuPopupEdit");
  QCOMPARE(desk.Text("txtEventInput"), QStringLiteral("Christmas Day"));
}

void FrmEditListTest::opensItsMenuBesideTheRows() {
  for (const char* const item : {"mnuPopupEdit", "mnuPopupDelete"}) {
    EditWindowDesk desk(kEvents);
    desk.Open();
    QTest::mousePress(desk.List()->viewport(), Qt::RightButton, {}, BelowTheRows(desk.List()));
    QVERIFY(OpenMenu());
    QCOMPARE(desk.SelectedRow(), -1);
    Trigger(OpenMenu(), item);
    QCOMPARE(desk.Shown(), QStringList{kPleaseSelect});
    QVERIFY(!desk.Window().IsEntryUnderWay());
  }
}

void FrmEditListTest::opensItsMenuByTheKeyboard() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  desk.Select(kChristmas);
  QTest::keyClick(desk.List(), Qt::Key_Menu);
  QVERIFY(OpenMenu());
  OpenMenu()->close();
  QTest::keyClick(desk.List(), Qt::Key_F10, Qt::ShiftModifier);
  QVERIFY(OpenMenu());
  Trigger(OpenMenu(), "mnuPopupEdit");
  QCOMPARE(desk.Text("txtEventInput"), QStringLiteral("Christmas Day"));
}

void FrmEditListTest::deletesFromItsMenu() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  desk.messages.answer = MessageAnswer::kYes;
  QTest::mousePress(desk.List()->viewport(), Qt::RightButton, {},
                    RowCentre(desk.List(), kChristmas));
  QVERIFY(OpenMenu());
  Trigger(OpenMenu(), "mnuPopupDelete");
  QCOMPARE(desk.Shown(), QStringList{kDeleteChristmas});
  QStringList expected = kListed;
  expected.removeAt(kChristmas);
  QCOMPARE(desk.Rows(), expected);
}

void FrmEditListTest::leavesItsMenuToTheFirstRow() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  QTest::mousePress(desk.List()->viewport(), Qt::RightButton, {},
                    RowCentre(desk.List(), kChristmas));
  QVERIFY(OpenMenu());
  desk.Button("cmdAdd")->setFocus();
  Trigger(OpenMenu(), "mnuPopupCancel");
  QCOMPARE(desk.SelectedRow(), 0);
  QCOMPARE(desk.FocusName(), QStringLiteral("List1"));
}

void FrmEditListTest::opensNoMenuDuringAnEntry() {
  EditWindowDesk desk(kEvents);
  desk.OpenAdding();
  QVERIFY(!desk.List()->isEnabled());
  QCOMPARE(desk.SelectedRow(), -1);
  QTest::mousePress(desk.List()->viewport(), Qt::RightButton, {},
                    RowCentre(desk.List(), kChristmas));
  QVERIFY(!OpenMenu());
}

}  // namespace tidewarden

QTEST_MAIN(tidewarden::FrmEditListTest)
#include "frm_edit_list_test.moc"
