// How entries end in the events editor's window: saved, deleted or given up; and the popular
// observances that begin one.
#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QScrollBar>
#include <QSet>
#include <QTimer>
#include <QWheelEvent>

#include "platform/qt/qt_ports.h"
#include "tests/windows/edit_window_desk.h"

namespace tidewarden {
namespace {

using test::DayFirst;
using test::EditWindowDesk;
using test::MonthFirst;

constexpr char kEvents[] =
    "12.25,Christmas Day,7,yearly\r\n"
    "01.01,New Year's Day,1,yearly\r\n"
    "06.01,Water the ferns,3,20~2014\r\n";
constexpr int kFerns = 1;
constexpr int kChristmas = 3;

// By their places in the list of kinds.
constexpr int kYearly = 0;
constexpr int kOneTime = 3;

// By their places among the observances.
constexpr int kMemorialDay = 17;
constexpr int kSummerBankHoliday = 25;
constexpr int kThanksgivingInCanada = 30;
constexpr int kEasterSunday = 40;

}  // namespace

class FrmEditSavingTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // The slots are called by name.
  void savesANewEvent();
  void savesAChangedEvent();
  void keepsTheEntryWhenTheFileCannotBeWritten();
  void deletesTheEventThatIsEdited();
  void asksBeforeADeletionWithTheTitleAsTyped();
  void remembersNothingUnlessTold();
  void goesBackToTheListAfterAnEntry();
  void showsAnotherGlyphAfterAnEntry();
  void offersTheObservancesWhileAdding();
  void fillsTheRowFromAnObservance_data();
  void fillsTheRowFromAnObservance();
  void showsObservancesDayFirst();
  void opensTheObservancesInPlaceOfPickingUnseen();
  void savesAnObservance();
};

void FrmEditSavingTest::savesANewEvent() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  desk.Click("cmdAdd");
  QCOMPARE(desk.Text("txtDateInput"), QString());
  desk.Type("txtEventInput", QStringLiteral("Zahnarzt 3:30pm"));
  desk.Type("txtDateInput", QStringLiteral("3/5"));
  desk.Type("txtAdvanceInput", QStringLiteral("14"));
  desk.Click("cmdSave");
  QVERIFY(desk.Shown().isEmpty());
  QVERIFY(desk.File().find("03.05,Zahnarzt 3:30pm,14,yearly\r\n") != std::string::npos);
  QCOMPARE(desk.Rows().at(1), QStringLiteral("03.05 Zahnarzt 3:30pm                        "
                                             "14 days  yearly"));
  QCOMPARE(desk.SelectedRow(), 1);
  QCOMPARE(desk.FocusName(), QStringLiteral("List1"));
}

void FrmEditSavingTest::savesAChangedEvent() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  desk.Select(kFerns);
  desk.Click("cmdEdit");
  desk.Type("txtEventInput", QStringLiteral("Water the cacti"));
  desk.Click("cmdSave");
  QVERIFY(desk.File().find("ferns") == std::string::npos);
  QVERIFY(desk.File().find("06.01,Water the cacti,3,20~2015\r\n") != std::string::npos);
  QCOMPARE(desk.Rows().size(), 4);
}

void FrmEditSavingTest::keepsTheEntryWhenTheFileCannotBeWritten() {
  EditWindowDesk desk(kEvents);
  desk.OpenAdding();
  desk.Type("txtEventInput", QStringLiteral("Bob"));
  desk.files.writeFailures[test::kEventsPath] = StatusKind::kNoSpace;
  desk.Click("cmdSave");
  QCOMPARE(desk.Shown().size(), 1);
  QVERIFY(desk.Window().IsEntryUnderWay());
  QCOMPARE(desk.Text("txtEventInput"), QStringLiteral("Bob"));
  QCOMPARE(desk.Rows().size(), 4);
  desk.files.writeFailures.clear();
  desk.Click("cmdSave");
  QVERIFY(!desk.Window().IsEntryUnderWay());
  QCOMPARE(desk.Rows().size(), 5);
}

void FrmEditSavingTest::deletesTheEventThatIsEdited() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  desk.Select(kChristmas);
  desk.Click("cmdEdit");
  desk.Type("txtEventInput", QStringLiteral("Something else"));
  desk.messages.answer = MessageAnswer::kNo;
  desk.Click("cmdDelete");
  QCOMPARE(desk.Shown(), QStringList{QStringLiteral(
                             "Are you sure you want to delete the event \"Christmas Day\"???")});
  QVERIFY(!desk.Window().IsEntryUnderWay());
  QCOMPARE(desk.File(), kEvents);

  desk.Select(kChristmas);
  desk.Click("cmdEdit");
  desk.messages.answer = MessageAnswer::kYes;
  desk.Click("cmdDelete");
  QVERIFY(desk.File().find("Christmas") == std::string::npos);
  QCOMPARE(desk.Rows().size(), 3);
}

void FrmEditSavingTest::asksBeforeADeletionWithTheTitleAsTyped() {
  EditWindowDesk desk("12.25,<b>x</b>,7,yearly\r\n");
  QtMessageBox boxes;
  desk.OtherMessages = &boxes;
  desk.Open();
  desk.Select(1);
  desk.Click("cmdEdit");
  QCOMPARE(desk.Text("txtEventInput"), QStringLiteral("<b>x</b>"));
  bool asked = false;
  QTimer::singleShot(0, qApp, [&asked] {
    auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    QVERIFY(box != nullptr);
    asked = true;
    const auto question =
        QStringLiteral("Are you sure you want to delete the event \"<b>x</b>\"???");
    QCOMPARE(box->text(), question);
    // What is painted is a label of the box.
    const auto* const label = box->findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    QVERIFY(label != nullptr);
    QCOMPARE(label->text(), question);
    QCOMPARE(label->textFormat(), Qt::PlainText);
    box->button(QMessageBox::Yes)->click();
  });
  desk.Click("cmdDelete");
  QVERIFY(asked);
  QCOMPARE(desk.File(), std::string());
}

void FrmEditSavingTest::remembersNothingUnlessTold() {
  for (const bool remembers : {false, true}) {
    EditWindowDesk desk(kEvents);
    if (remembers) {
      desk.Set("Options", "RememberLastAdvanceNotice", "True");
      desk.Set("Options", "RememberLastOccurs", "True");
    }
    desk.OpenAdding();
    desk.Type("txtEventInput", QStringLiteral("Bob"));
    desk.Type("txtAdvanceInput", QStringLiteral("21"));
    desk.PickKind(kOneTime);
    desk.Click("cmdSave");
    desk.Click("cmdAdd");
    QCOMPARE(desk.Text("txtEventInput"), QString());
    QCOMPARE(desk.Text("txtAdvanceInput"), remembers ? QStringLiteral("21") : QString());
    QCOMPARE(desk.DropDown("cmbOccursInput")->currentIndex(), remembers ? kOneTime : kYearly);
  }
}

void FrmEditSavingTest::goesBackToTheListAfterAnEntry() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  desk.Select(kChristmas);
  desk.Click("cmdAdd");
  QCOMPARE(desk.SelectedRow(), -1);
  desk.Click("cmdCancel");
  QCOMPARE(desk.SelectedRow(), 0);
  QCOMPARE(desk.FocusName(), QStringLiteral("List1"));
  desk.Select(kChristmas);
  desk.Click("cmdEdit");
  desk.Click("cmdCancel");
  QCOMPARE(desk.SelectedRow(), kChristmas);
}

void FrmEditSavingTest::showsAnotherGlyphAfterAnEntry() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  QSet<QString> glyphs;
  for (int i = 0; i < 200; ++i) {
    desk.Click("cmdAdd");
    desk.Click("cmdCancel");
    glyphs.insert(desk.Button("cmdDonate")->text());
  }
  // All of them, as good as certainly.
  QCOMPARE(glyphs.size(), 14);
  for (const QString& glyph : glyphs) {
    QVERIFY(QStringLiteral("0123456789:;<=").contains(glyph));
  }
}

void FrmEditSavingTest::offersTheObservancesWhileAdding() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  QComboBox* const popular = desk.DropDown("cmbPopular");
  QVERIFY(!popular->isVisible());
  desk.Click("cmdAdd");
  QVERIFY(popular->isVisible());
  QVERIFY(popular->isEnabled());
  QCOMPARE(popular->count(), 58);
  QCOMPARE(popular->currentIndex(), -1);
  QCOMPARE(popular->placeholderText(), QStringLiteral("Popular Observances"));
  QCOMPARE(popular->itemText(0), QStringLiteral("01.01,New Year's Day,yearly"));
  QCOMPARE(popular->itemText(57), QStringLiteral("_vict,Victoria Day,yearly"));
  QCOMPARE(popular->font().family(), QStringLiteral("Courier New"));
  // No entry of the list is cut by its edge.
  const int room =
      popular->view()->minimumWidth() - popular->view()->verticalScrollBar()->sizeHint().width();
  for (int i = 0; i < popular->count(); ++i) {
    QVERIFY(QFontMetrics(popular->view()->font()).horizontalAdvance(popular->itemText(i)) < room);
  }
  desk.PickObservance(kMemorialDay);
  desk.Click("cmdCancel");
  QVERIFY(!popular->isVisible());
  desk.Click("cmdAdd");
  QCOMPARE(popular->currentIndex(), -1);
  desk.Click("cmdCancel");
  desk.Select(kChristmas);
  desk.Click("cmdEdit");
  QVERIFY(!popular->isVisible());
  QVERIFY(!popular->isEnabled());
}

void FrmEditSavingTest::fillsTheRowFromAnObservance_data() {
  QTest::addColumn<bool>("monthFirst");
  QTest::addColumn<int>("observance");
  QTest::addColumn<QString>("title");
  QTest::addColumn<QString>("date");
  QTest::addColumn<QString>("kind");
  const auto row = [](const char* name, bool monthFirst, int observance, const char* title,
                      const char* date, const char* kind) {
    QTest::newRow(name) << monthFirst << observance << QString::fromLatin1(title)
                        << QString::fromLatin1(date) << QString::fromLatin1(kind);
  };
  row("Memorial Day", true, kMemorialDay, "Memorial Day", "05", "Las Mon");
  row("Memorial Day, day first", false, kMemorialDay, "Memorial Day", "05", "Las Mon");
  row("Easter", true, kEasterSunday, "Easter Sunday", "_estr", "yearly");
  row("Easter, day first", false, kEasterSunday, "Easter Sunday", "_estr", "yearly");
  row("two of one name", true, kSummerBankHoliday, "Summer Bank Holiday", "08", "1st Mon");
  row("the other", true, kSummerBankHoliday + 1, "Summer Bank Holiday", "08", "Las Mon");
  row("Canada", true, kThanksgivingInCanada, "Thanksgiving Day", "10", "2nd Mon");
  row("year marker", true, 2, "<1788> Australia Day", "01.26", "yearly");
  row("year marker, day first", false, 2, "<1788> Australia Day", "26.01", "yearly");
}

void FrmEditSavingTest::fillsTheRowFromAnObservance() {
  QFETCH(bool, monthFirst);
  QFETCH(int, observance);
  QFETCH(QString, title);
  QFETCH(QString, date);
  QFETCH(QString, kind);
  EditWindowDesk desk(kEvents, monthFirst ? MonthFirst() : DayFirst());
  desk.OpenAdding();
  desk.PickObservance(observance);
  QCOMPARE(desk.Text("txtEventInput"), title);
  QCOMPARE(desk.Text("txtDateInput"), date);
  QCOMPARE(desk.DropDown("cmbOccursInput")->currentText(), kind);
  QCOMPARE(desk.DropDown("cmbPopular")->currentIndex(), observance);
  QVERIFY(!desk.Tick()->isChecked());
  QVERIFY(!desk.Label("lblDateExample")->isVisible());
  QCOMPARE(desk.FocusName(), QStringLiteral("txtAdvanceInput"));
}

void FrmEditSavingTest::showsObservancesDayFirst() {
  EditWindowDesk desk(kEvents, DayFirst());
  desk.OpenAdding();
  const QComboBox* const popular = desk.DropDown("cmbPopular");
  QCOMPARE(popular->itemText(0), QStringLiteral("01.01,New Year's Day,yearly"));
  QCOMPARE(popular->itemText(1), QStringLiteral("25.01,Robbie Burns' Night,yearly"));
  QCOMPARE(popular->itemText(3), QStringLiteral("xx.01,Martin Luther King Day,3rd Mon"));
  QCOMPARE(popular->itemText(kEasterSunday), QStringLiteral("_estr,Easter Sunday,yearly"));
}

void FrmEditSavingTest::opensTheObservancesInPlaceOfPickingUnseen() {
  EditWindowDesk desk(kEvents);
  desk.OpenAdding();
  QComboBox* const popular = desk.DropDown("cmbPopular");
  for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_End, Qt::Key_1, Qt::Key_Return}) {
    popular->setFocus();
    QTest::keyClick(popular, key);
    QTRY_VERIFY(popular->view()->isVisible());
    QCOMPARE(popular->currentIndex(), -1);
    popular->hidePopup();
    QTRY_VERIFY(!popular->view()->isVisible());
  }
  QWheelEvent wheel(popular->rect().center(), popular->mapToGlobal(popular->rect().center()), {},
                    {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(popular, &wheel);
  QCOMPARE(popular->currentIndex(), -1);
  QCOMPARE(desk.Text("txtEventInput"), QString());

  // The way to pick by the keyboard.
  popular->setFocus();
  QTest::keyClick(popular, Qt::Key_Down);
  QTRY_VERIFY(popular->view()->isVisible());
  popular->view()->setCurrentIndex(popular->model()->index(1, 0));
  QTest::keyClick(popular->view(), Qt::Key_Return);
  QCOMPARE(desk.Text("txtEventInput"), QStringLiteral("Robbie Burns' Night"));
  QCOMPARE(desk.FocusName(), QStringLiteral("txtAdvanceInput"));
}

void FrmEditSavingTest::savesAnObservance() {
  EditWindowDesk desk("");
  desk.OpenAdding();
  desk.PickObservance(kMemorialDay);
  QTest::keyClicks(desk.Box("txtAdvanceInput"), QStringLiteral("7"));
  desk.Click("cmdSave");
  QVERIFY(desk.Shown().isEmpty());
  QCOMPARE(desk.File(), "05.xx,Memorial Day,7,Las Mon\r\n");
}

}  // namespace tidewarden

QTEST_MAIN(tidewarden::FrmEditSavingTest)
#include "frm_edit_saving_test.moc"
