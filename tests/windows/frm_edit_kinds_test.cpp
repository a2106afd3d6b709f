// Every kind of occurrence and every observance through the window, in every regional order:
// typed or picked, saved by its button, read back from the file and dated.
#include <QAbstractItemView>

#include "dates/text.h"
#include "tests/editor/expected_dates.h"
#include "tests/windows/edit_window_desk.h"

namespace tidewarden {
namespace {

using test::AllLayouts;
using test::EditWindowDesk;

constexpr int kAllObservances = 58;

QString ToQString(const std::string& text) {
  return QString::fromStdString(text);
}

// Chooses an item of a drop-down list that has been opened.
void Pick(QComboBox* box, int item) {
  box->setFocus();
  box->showPopup();
  QTRY_VERIFY(box->view()->isVisible());
  box->view()->setCurrentIndex(box->model()->index(item, 0));
  QTest::keyClick(box->view(), Qt::Key_Return);
  QTRY_VERIFY(!box->view()->isVisible());
  QCOMPARE(box->currentIndex(), item);
}

QStringList LinesOf(const std::string& file) {
  return ToQString(file).split(QStringLiteral("\r\n"), Qt::SkipEmptyParts);
}

// The one line that a save has added. Each save writes the codes of the others in lower case;
// otherwise they must be as they were, equal ones included.
std::string AddedLine(const std::string& before, const std::string& after) {
  QStringList others = LinesOf(ToLower(before));
  QStringList added;
  for (const QString& line : LinesOf(after)) {
    if (!others.removeOne(ToQString(ToLower(line.toStdString())))) added << line;
  }
  if (!others.isEmpty()) return "(another event was changed)";
  return added.size() == 1 ? added.first().toStdString() : "(not one line more)";
}

// The row that shows a title.
int RowWith(EditWindowDesk& desk, const QString& title) {
  const QStringList rows = desk.Rows();
  for (int row = 0; row < rows.size(); ++row) {
    if (rows.at(row).mid(6).startsWith(title + QLatin1Char(' '))) return row;
  }
  return -1;
}

void AddLayouts() {
  QTest::addColumn<int>("layout");
  for (std::size_t i = 0; i < AllLayouts().size(); ++i) {
    QTest::newRow(AllLayouts()[i].name.c_str()) << static_cast<int>(i);
  }
}

}  // namespace

class FrmEditKindsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // The slots are called by name.
  void entersEveryKind_data() { AddLayouts(); }
  void entersEveryKind();
  void ticksEveryMonthForEveryWeekdayKind_data() { AddLayouts(); }
  void ticksEveryMonthForEveryWeekdayKind();
  void picksEveryObservance_data() { AddLayouts(); }
  void picksEveryObservance();
};

void FrmEditKindsTest::entersEveryKind() {
  QFETCH(const int, layout);
  const RegionalDateFormat format = AllLayouts()[static_cast<std::size_t>(layout)].format;
  EditWindowDesk desk("", format);
  desk.Open();
  for (int kind = 0; kind < kOccurrenceKinds; ++kind) {
    const QString title = QStringLiteral("Event %1").arg(kind);
    const auto [typed, date] = test::Typed(kind, format);
    desk.Click("cmdAdd");
    Pick(desk.DropDown("cmbOccursInput"), kind);
    desk.Type("txtEventInput", title);
    desk.Type("txtDateInput", ToQString(typed));
    if (!IsCounterKind(kind)) desk.Type("txtAdvanceInput", QStringLiteral("14"));
    if (kind == kEveryKind) desk.Type("txtEveryInput", QStringLiteral("110"));
    desk.Click("cmdSave");
    QVERIFY2(desk.Shown().isEmpty(), qPrintable(title));
    QVERIFY2(!desk.Box("txtEventInput")->isVisible(), qPrintable(title));
    QCOMPARE(desk.FocusName(), QStringLiteral("List1"));
  }

  // Read back by a window that knows nothing of it, every event is what was typed, falls on its
  // date, and stays when it is saved unchanged.
  EditWindowDesk later(desk.File(), format);
  later.Open();
  QCOMPARE(later.Rows().size(), kOccurrenceKinds + 1);
  for (int kind = 0; kind < kOccurrenceKinds; ++kind) {
    const QString title = QStringLiteral("Event %1").arg(kind);
    const std::string before = later.File();
    const int row = RowWith(later, title);
    QVERIFY2(row >= 0, qPrintable(title));
    later.Select(row);
    later.Click("cmdEdit");
    QCOMPARE(later.DropDown("cmbOccursInput")->currentIndex(), kind);
    QCOMPARE(later.Text("txtEventInput"), title);
    QCOMPARE(later.Text("txtAdvanceInput"),
             IsCounterKind(kind) ? QStringLiteral("0") : QStringLiteral("14"));
    QCOMPARE(later.Text("txtEveryInput"), kind == kEveryKind ? QStringLiteral("110") : QString());
    later.Click("cmdSave");
    QVERIFY2(later.Shown().isEmpty(), qPrintable(title));
    QCOMPARE(ToLower(later.File()), ToLower(before));

    const QStringList found =
        LinesOf(later.File()).filter(QLatin1Char(',') + title + QLatin1Char(','));
    QCOMPARE(found.size(), 1);
    QCOMPARE(test::DateOf(found.first().toStdString() + "\r\n", format),
             test::Typed(kind, format).second);
  }
}

void FrmEditKindsTest::ticksEveryMonthForEveryWeekdayKind() {
  QFETCH(const int, layout);
  const RegionalDateFormat format = AllLayouts()[static_cast<std::size_t>(layout)].format;
  EditWindowDesk desk("", format);
  desk.Open();
  for (int kind = kFirstWeekdayKind; kind < kOccurrenceKinds; ++kind) {
    const std::string before = desk.File();
    desk.Click("cmdAdd");
    Pick(desk.DropDown("cmbOccursInput"), kind);
    desk.Type("txtEventInput", QStringLiteral("Event %1").arg(kind));
    desk.Tick()->click();
    QCOMPARE(desk.Text("txtDateInput"), QStringLiteral("xx"));
    desk.Click("cmdSave");
    QVERIFY(desk.Shown().isEmpty());
    const std::string added = AddedLine(before, desk.File());
    QVERIFY2(added.starts_with("xx.xx,Event "), added.c_str());
    const auto place = static_cast<unsigned>(kind - kFirstWeekdayKind);
    CivilDate expected = test::On(2014, 12, 31);
    if (kind < kOccurrenceKinds - 1) {
      expected = test::OnWeekday(2014, 12, place % 7, place / 7 + 1);
      const bool isOver = expected < test::On(2014, 12, 22);
      if (isOver) expected = test::OnWeekday(2015, 1, place % 7, place / 7 + 1);
    }
    QCOMPARE(test::DateOf(added + "\r\n", format), IsoDate(expected));
  }
}

void FrmEditKindsTest::picksEveryObservance() {
  QFETCH(const int, layout);
  const RegionalDateFormat format = AllLayouts()[static_cast<std::size_t>(layout)].format;
  const std::vector<std::string> dates = test::DatesOfObservances();
  QCOMPARE(dates.size(), static_cast<std::size_t>(kAllObservances));
  EditWindowDesk desk("", format);
  desk.Open();
  QCOMPARE(desk.DropDown("cmbPopular")->count(), kAllObservances);
  for (int i = 0; i < kAllObservances; ++i) {
    const std::string before = desk.File();
    desk.Click("cmdAdd");
    Pick(desk.DropDown("cmbPopular"), i);
    QCOMPARE(desk.FocusName(), QStringLiteral("txtAdvanceInput"));
    const std::string title = desk.Text("txtEventInput").toStdString();
    const std::string entry = desk.DropDown("cmbPopular")->itemText(i).toStdString();
    QVERIFY2(entry.find("," + title) == 5, entry.c_str());
    QTest::keyClicks(desk.Box("txtAdvanceInput"), QStringLiteral("14"));
    desk.Click("cmdSave");
    QVERIFY2(desk.Shown().isEmpty(), entry.c_str());
    const std::string added = AddedLine(before, desk.File());
    QVERIFY2(added.find("," + title + ",14,") == 5, added.c_str());
    QCOMPARE(test::DateOf(added + "\r\n", format), dates[static_cast<std::size_t>(i)]);
  }
  QCOMPARE(desk.Rows().size(), kAllObservances + 1);
}

}  // namespace tidewarden

QTEST_MAIN(tidewarden::FrmEditKindsTest)
#include "frm_edit_kinds_test.moc"
