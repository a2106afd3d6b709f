// The entry row of the events editor's window: what it shows for each kind, how it takes what is
// typed, and where the focus goes after a message.
#include <QApplication>
#include <QInputMethodEvent>

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
constexpr int kMonthly = 2;
constexpr int kOneTime = 3;
constexpr int kEvery = 4;
constexpr int kDaysPast = 6;
constexpr int kDaysFuture = 7;
constexpr int kSecondTuesday = 17;
constexpr int kLastDay = 43;

void Commit(QWidget* box, const QString& text) {
  QInputMethodEvent event;
  event.setCommitString(text);
  QApplication::sendEvent(box, &event);
}

void Paste(QLineEdit* box, const QString& text) {
  box->setFocus();
  box->selectAll();
  box->insert(text);
  Q_EMIT box->textEdited(box->text());
}

}  // namespace

class FrmEditEntryTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // The slots are called by name.
  void showsTheEntryRowOnlyDuringAnEntry();
  void saysInItsTooltipsWhatIsDone();
  void showsWhatEachKindNeeds_data();
  void showsWhatEachKindNeeds();
  void putsTheLabelLeftOfTheCentreOfTheDate();
  void showsTheHintsThatAreWanted();
  void fillsTheRowFromTheSelectedEvent();
  void keepsTheDateWhenTheKindChanges();
  void takesThirtyEightCharactersOfATitle();
  void keepsTheCaretWhereABoxIsFull();
  void turnsPastedLinesIntoBlanks();
  void countsPicturesAsOneCharacter();
  void typesNothingForAnAltKey();
  void helpsWithTheNameOfAMonth_data();
  void helpsWithTheNameOfAMonth();
  void helpsWithAMonthThatIsComposed();
  void helpsWithADateThatIsLeft();
  void helpsWithADateThatIsSavedAtOnce();
  void ticksEveryMonth();
  void putsTheFocusWhereAMessagePointsTo_data();
  void putsTheFocusWhereAMessagePointsTo();
  void removesCommasWhenTheUserAgrees();
  void emptiesAnAdvanceOutOfRange();
  void asksOnceAboutAFarFirstOccurrence();
};

void FrmEditEntryTest::showsTheEntryRowOnlyDuringAnEntry() {
  const std::vector<const char*> always{
      "cmdDelete",       "lblEvent",  "txtEventInput",  "lblDate", "txtDateInput", "lblAdvance",
      "txtAdvanceInput", "lblOccurs", "cmbOccursInput", "cmdSave", "cmdCancel"};
  const std::vector<const char*> idle{"cmdAdd",     "cmdEdit",   "cmdHelp", "cmdPrint",
                                      "cmdOptions", "cmdDonate", "cmdClose"};
  EditWindowDesk desk(kEvents);
  desk.Open();
  const auto check = [&](bool entry) {
    for (const char* const name : always) {
      QVERIFY2(desk.Find<QWidget>(name)->isVisible() == entry, name);
    }
    for (const char* const name : idle) {
      QVERIFY2(desk.Find<QWidget>(name)->isEnabled() == !entry, name);
      QVERIFY2(desk.Find<QWidget>(name)->isVisible() == !entry, name);
    }
    QCOMPARE(desk.List()->isEnabled(), !entry);
  };
  check(false);
  desk.Click("cmdAdd");
  check(true);
  QVERIFY(!desk.Button("cmdDelete")->isEnabled());
  desk.Click("cmdCancel");
  check(false);
  desk.Select(kChristmas);
  desk.Click("cmdEdit");
  check(true);
  QVERIFY(desk.Button("cmdDelete")->isEnabled());
}

void FrmEditEntryTest::saysInItsTooltipsWhatIsDone() {
  EditWindowDesk desk(kEvents);
  desk.OpenAdding();
  QCOMPARE(desk.Button("cmdSave")->toolTip(), QStringLiteral("Save New Event (Alt + S)"));
  QCOMPARE(desk.Button("cmdCancel")->toolTip(), QStringLiteral("Cancel Adding a New Event (Esc)"));
  desk.Click("cmdCancel");
  desk.Select(kChristmas);
  desk.Click("cmdEdit");
  QCOMPARE(desk.Button("cmdSave")->toolTip(),
           QStringLiteral("Save Changes to this Event (Alt + S)"));
  QCOMPARE(desk.Button("cmdCancel")->toolTip(), QStringLiteral("Cancel Editing this Event (Esc)"));
  QCOMPARE(desk.Button("cmdSave")->accessibleName(), QStringLiteral("Save Changes to this Event"));
}

void FrmEditEntryTest::showsWhatEachKindNeeds_data() {
  QTest::addColumn<int>("kind");
  QTest::addColumn<QString>("label");
  QTest::addColumn<int>("length");
  QTest::addColumn<bool>("every");
  QTest::addColumn<bool>("month");
  QTest::addColumn<bool>("advance");
  QTest::addColumn<QString>("example");
  const QString date = QStringLiteral("Date:");
  const QString example = QStringLiteral("12/31 or dec31");
  for (const int kind : {0, 1, 3, 5}) {
    QTest::addRow("%d", kind) << kind << date << 5 << false << false << true << example;
  }
  QTest::newRow("monthly") << kMonthly << QStringLiteral("Day:") << 2 << false << false << true
                           << QString();
  QTest::newRow("every") << kEvery << date << 5 << true << false << true << example;
  QTest::newRow("days past") << kDaysPast << date << 10 << false << false << false << QString();
  QTest::newRow("days future") << kDaysFuture << date << 10 << false << false << false << QString();
  for (const int kind : {8, kSecondTuesday, kLastDay}) {
    QTest::addRow("%d", kind) << kind << QStringLiteral("Month:") << 2 << false << true << true
                              << QStringLiteral("12 or dec");
  }
}

void FrmEditEntryTest::showsWhatEachKindNeeds() {
  QFETCH(int, kind);
  QFETCH(QString, label);
  QFETCH(int, length);
  QFETCH(bool, every);
  QFETCH(bool, month);
  QFETCH(bool, advance);
  QFETCH(QString, example);
  for (const bool editing : {false, true}) {
    EditWindowDesk desk(kEvents);
    desk.Open();
    desk.Select(kChristmas);
    desk.Click(editing ? "cmdEdit" : "cmdAdd");
    desk.PickKind(kind);
    QCOMPARE(desk.DropDown("cmbOccursInput")->currentIndex(), kind);
    QCOMPARE(desk.Label("lblDate")->text(), label);
    for (const char* const name : {"txtEveryInput", "lblEvery", "lblDays"}) {
      QCOMPARE(desk.Find<QWidget>(name)->isVisible(), every);
      QCOMPARE(desk.Find<QWidget>(name)->isEnabled(), every);
    }
    QCOMPARE(desk.Tick()->isVisible(), month);
    QCOMPARE(desk.Tick()->isEnabled(), month);
    QCOMPARE(desk.Box("txtAdvanceInput")->isEnabled(), advance);
    QCOMPARE(desk.Label("lblAdvance")->isEnabled(), advance);
    QCOMPARE(desk.Label("lblDateExample")->text(), example);
    desk.Type("txtDateInput", QStringLiteral("123456789012345"));
    QCOMPARE(desk.Text("txtDateInput"), QStringLiteral("123456789012345").left(length));
  }
}

void FrmEditEntryTest::putsTheLabelLeftOfTheCentreOfTheDate() {
  EditWindowDesk desk(kEvents);
  desk.OpenAdding();
  for (const int kind : {kYearly, kMonthly, kDaysPast, kSecondTuesday}) {
    desk.PickKind(kind);
    const QRect box = desk.Box("txtDateInput")->geometry();
    const double centre = box.left() + box.width() / 2.0;
    // 900 twips, and half a pixel where the box has an odd width.
    QVERIFY(std::abs(centre - desk.Label("lblDate")->x() - 60) <= 1);
  }
}

void FrmEditEntryTest::showsTheHintsThatAreWanted() {
  for (const bool wanted : {true, false}) {
    EditWindowDesk desk(kEvents);
    desk.Set("Options", "ShowPopularObservancesArrow", wanted ? "True" : "False");
    desk.Set("Options", "ShowDateExample", wanted ? "True" : "False");
    desk.OpenAdding();
    QCOMPARE(desk.Label("lblPopularObservances")->isVisible(), wanted);
    QCOMPARE(desk.Label("lblDateExample")->isVisible(), wanted);
    QVERIFY(desk.DropDown("cmbPopular")->isVisible());
    desk.Click("cmdCancel");
    desk.Select(kChristmas);
    desk.Click("cmdEdit");
    QVERIFY(!desk.Label("lblPopularObservances")->isVisible());
    QCOMPARE(desk.Label("lblDateExample")->isVisible(), wanted);
  }
}

void FrmEditEntryTest::fillsTheRowFromTheSelectedEvent() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  desk.Select(kFerns);
  desk.Click("cmdEdit");
  QCOMPARE(desk.Text("txtEventInput"), QStringLiteral("Water the ferns"));
  QCOMPARE(desk.Text("txtDateInput"), QStringLiteral("06.01"));
  QCOMPARE(desk.Text("txtAdvanceInput"), QStringLiteral("3"));
  QCOMPARE(desk.Text("txtEveryInput"), QStringLiteral("120"));
  QCOMPARE(desk.DropDown("cmbOccursInput")->currentIndex(), kEvery);
  QCOMPARE(desk.FocusName(), QStringLiteral("txtEventInput"));
}

void FrmEditEntryTest::keepsTheDateWhenTheKindChanges() {
  EditWindowDesk desk(kEvents);
  desk.OpenAdding();
  desk.PickKind(kDaysPast);
  desk.Type("txtDateInput", QStringLiteral("12.25.1990"));
  for (const int kind : {kYearly, kMonthly, kSecondTuesday, kEvery, kLastDay, kDaysFuture}) {
    desk.PickKind(kind);
    QCOMPARE(desk.Text("txtDateInput"), QStringLiteral("12.25.1990"));
  }
  // It may be shortened, but not made longer.
  desk.PickKind(kYearly);
  desk.Box("txtDateInput")->setFocus();
  desk.Box("txtDateInput")->setCursorPosition(10);
  QTest::keyClicks(desk.Box("txtDateInput"), QStringLiteral("7"));
  QCOMPARE(desk.Text("txtDateInput"), QStringLiteral("12.25.1990"));
  QTest::keyClick(desk.Box("txtDateInput"), Qt::Key_Backspace);
  QCOMPARE(desk.Text("txtDateInput"), QStringLiteral("12.25.199"));
}

void FrmEditEntryTest::takesThirtyEightCharactersOfATitle() {
  EditWindowDesk desk(kEvents);
  desk.OpenAdding();
  const QString forty = QStringLiteral("0123456789012345678901234567890123456789");
  desk.Type("txtEventInput", forty);
  QCOMPARE(desk.Text("txtEventInput"), forty.left(38));
  desk.Type("txtAdvanceInput", QStringLiteral("12345"));
  QCOMPARE(desk.Text("txtAdvanceInput"), QStringLiteral("123"));
  desk.PickKind(kEvery);
  desk.Type("txtEveryInput", QStringLiteral("12345"));
  QCOMPARE(desk.Text("txtEveryInput"), QStringLiteral("123"));
}

void FrmEditEntryTest::keepsTheCaretWhereABoxIsFull() {
  EditWindowDesk desk(kEvents);
  desk.OpenAdding();
  QLineEdit* const title = desk.Box("txtEventInput");
  const QString full(38, QLatin1Char('a'));
  desk.Type("txtEventInput", full);
  title->setCursorPosition(5);
  QTest::keyClicks(title, QStringLiteral("b"));
  QCOMPARE(title->text(), full);
  QCOMPARE(title->cursorPosition(), 5);
  QTest::keyClick(title, Qt::Key_Backspace);
  QCOMPARE(title->cursorPosition(), 4);
  QTest::keyClicks(title, QStringLiteral("b"));
  QCOMPARE(title->text(), QStringLiteral("aaaab") + QString(33, QLatin1Char('a')));
  QCOMPARE(title->cursorPosition(), 5);
  // What is put in is cut, not what was there.
  title->setSelection(2, 3);
  title->insert(QStringLiteral("12345"));
  Q_EMIT title->textEdited(title->text());
  QCOMPARE(title->text(), QStringLiteral("aa123") + QString(33, QLatin1Char('a')));
  QCOMPARE(title->cursorPosition(), 5);
}

void FrmEditEntryTest::turnsPastedLinesIntoBlanks() {
  EditWindowDesk desk(kEvents);
  desk.OpenAdding();
  Paste(desk.Box("txtEventInput"), QStringLiteral("A\nB\tC\u2028D"));
  QCOMPARE(desk.Text("txtEventInput"), QStringLiteral("A B C D"));
}

void FrmEditEntryTest::countsPicturesAsOneCharacter() {
  EditWindowDesk desk(kEvents);
  desk.OpenAdding();
  const QString cake = QString::fromUtf8("🎂");
  Paste(desk.Box("txtEventInput"), cake.repeated(40));
  QCOMPARE(desk.Text("txtEventInput"), cake.repeated(38));
  desk.Type("txtEventInput", QString());
  Paste(desk.Box("txtEventInput"), QStringLiteral("a") + cake.repeated(40));
  QCOMPARE(desk.Text("txtEventInput"), QStringLiteral("a") + cake.repeated(37));
}

void FrmEditEntryTest::typesNothingForAnAltKey() {
  EditWindowDesk desk(kEvents);
  desk.OpenAdding();
  for (const Qt::Key key : {Qt::Key_A, Qt::Key_E, Qt::Key_Z}) {
    QTest::keyClick(desk.Box("txtEventInput"), key, Qt::AltModifier);
  }
  QCOMPARE(desk.Text("txtEventInput"), QString());
  // AltGr, as systems tell it.
  QTest::keyClick(desk.Box("txtEventInput"), Qt::Key_Q, Qt::AltModifier | Qt::ControlModifier);
  QCOMPARE(desk.Text("txtEventInput").size(), 1);
}

void FrmEditEntryTest::helpsWithTheNameOfAMonth_data() {
  QTest::addColumn<bool>("monthFirst");
  QTest::addColumn<int>("kind");
  QTest::addColumn<QString>("typed");
  QTest::addColumn<QString>("text");
  QTest::newRow("month") << true << kSecondTuesday << QStringLiteral("dec") << QStringLiteral("12");
  QTest::newRow("capitals") << true << kSecondTuesday << QStringLiteral("JAN")
                            << QStringLiteral("1");
  QTest::newRow("no month") << true << kSecondTuesday << QStringLiteral("abc")
                            << QStringLiteral("ab");
  QTest::newRow("a number is no name")
      << true << kSecondTuesday << QStringLiteral("123") << QStringLiteral("12");
  QTest::newRow("month and day") << true << kYearly << QStringLiteral("dec31")
                                 << QStringLiteral("12.31");
  QTest::newRow("day and month") << false << kYearly << QStringLiteral("31dec ")
                                 << QStringLiteral("31.12");
  QTest::newRow("one-time") << true << kOneTime << QStringLiteral("Feb3") << QStringLiteral("2.3");
  QTest::newRow("not yet") << true << kYearly << QStringLiteral("dec") << QStringLiteral("dec");
  QTest::newRow("not in a full date")
      << true << kDaysPast << QStringLiteral("dec.25.90") << QStringLiteral("dec.25.90");
}

void FrmEditEntryTest::helpsWithTheNameOfAMonth() {
  QFETCH(bool, monthFirst);
  QFETCH(int, kind);
  QFETCH(QString, typed);
  QFETCH(QString, text);
  EditWindowDesk desk(kEvents, monthFirst ? MonthFirst() : DayFirst());
  desk.OpenAdding();
  desk.PickKind(kind);
  desk.Type("txtDateInput", typed);
  QCOMPARE(desk.Text("txtDateInput"), text);
  QCOMPARE(desk.Box("txtDateInput")->cursorPosition(), text.size());
}

void FrmEditEntryTest::helpsWithAMonthThatIsComposed() {
  EditWindowDesk desk(kEvents);
  desk.OpenAdding();
  desk.PickKind(kSecondTuesday);
  desk.Type("txtDateInput", QStringLiteral("de"));
  Commit(desk.Box("txtDateInput"), QStringLiteral("c"));
  QCOMPARE(desk.Text("txtDateInput"), QStringLiteral("12"));
  desk.PickKind(kYearly);
  desk.Type("txtDateInput", QStringLiteral("dec"));
  Commit(desk.Box("txtDateInput"), QStringLiteral("3"));
  QCOMPARE(desk.Text("txtDateInput"), QStringLiteral("12.3"));
}

void FrmEditEntryTest::helpsWithADateThatIsLeft() {
  EditWindowDesk desk(kEvents, DayFirst());
  desk.OpenAdding();
  desk.Type("txtDateInput", QStringLiteral("31dec"));
  QCOMPARE(desk.Text("txtDateInput"), QStringLiteral("31dec"));
  desk.Box("txtAdvanceInput")->setFocus();
  QCOMPARE(desk.Text("txtDateInput"), QStringLiteral("31.12"));

  desk.Type("txtDateInput", QStringLiteral("1jan"));
  QTest::keyClick(desk.Box("txtDateInput"), Qt::Key_Tab);
  QCOMPARE(desk.Text("txtDateInput"), QStringLiteral("1.1"));
  QCOMPARE(desk.FocusName(), QStringLiteral("txtAdvanceInput"));
}

void FrmEditEntryTest::helpsWithADateThatIsSavedAtOnce() {
  EditWindowDesk byMouse("", DayFirst());
  byMouse.OpenAdding();
  byMouse.Type("txtEventInput", QStringLiteral("New Year's Eve"));
  byMouse.Type("txtDateInput", QStringLiteral("31dec"));
  byMouse.Click("cmdSave");
  QCOMPARE(byMouse.File(), "12.31,New Year's Eve,0,yearly\r\n");

  EditWindowDesk byKey("", DayFirst());
  byKey.OpenAdding();
  byKey.Type("txtEventInput", QStringLiteral("New Year's Eve"));
  byKey.Type("txtDateInput", QStringLiteral("31dec"));
  QTest::keyPress(byKey.Box("txtDateInput"), Qt::Key_Alt, Qt::AltModifier);
  QTest::keyClick(byKey.Box("txtDateInput"), Qt::Key_S, Qt::AltModifier);
  QTRY_COMPARE(byKey.File(), "12.31,New Year's Eve,0,yearly\r\n");
}

void FrmEditEntryTest::ticksEveryMonth() {
  EditWindowDesk desk(kEvents);
  desk.OpenAdding();
  desk.PickKind(kSecondTuesday);
  desk.Type("txtDateInput", QStringLiteral("12"));
  QTest::keyClick(desk.Tick(), Qt::Key_Space);
  QVERIFY(desk.Tick()->isChecked());
  QCOMPARE(desk.Text("txtDateInput"), QStringLiteral("xx"));
  QTest::keyClick(desk.Tick(), Qt::Key_Space);
  QVERIFY(!desk.Tick()->isChecked());
  QCOMPARE(desk.Text("txtDateInput"), QString());

  desk.PickKind(kYearly);
  desk.Type("txtDateInput", QStringLiteral("xx"));
  desk.PickKind(kLastDay);
  QVERIFY(desk.Tick()->isChecked());
}

void FrmEditEntryTest::putsTheFocusWhereAMessagePointsTo_data() {
  QTest::addColumn<int>("kind");
  QTest::addColumn<QString>("title");
  QTest::addColumn<QString>("date");
  QTest::addColumn<QString>("advance");
  QTest::addColumn<QString>("every");
  QTest::addColumn<QString>("messageBegins");
  QTest::addColumn<QString>("focus");
  const QString bob = QStringLiteral("Bob");
  const QString none;
  const QString stays = QStringLiteral("cmdSave");
  const QString title = QStringLiteral("txtEventInput");
  const QString date = QStringLiteral("txtDateInput");
  QTest::newRow("no title") << kYearly << QStringLiteral("   ") << QStringLiteral("1.5") << none
                            << none << QStringLiteral("You need to enter a title") << title;
  QTest::newRow("commas kept") << kYearly << QStringLiteral("a,b") << QStringLiteral("1.5") << none
                               << none << QStringLiteral("Tidewarden's file format uses commas")
                               << title;
  QTest::newRow("advance") << kYearly << bob << QStringLiteral("1.5") << QStringLiteral("366")
                           << none << QStringLiteral("Please pick an advance notice")
                           << QStringLiteral("txtAdvanceInput");
  QTest::newRow("day count") << kEvery << bob << QStringLiteral("1.5") << none
                             << QStringLiteral("200") << QStringLiteral("For an event that occurs")
                             << stays;
  QTest::newRow("month") << kSecondTuesday << bob << QStringLiteral("13") << none << none
                         << QStringLiteral("You need to enter a proper month") << stays;
  QTest::newRow("day") << kMonthly << bob << QStringLiteral("32") << none << none
                       << QStringLiteral("You need to enter a proper day") << stays;
  QTest::newRow("no separator") << kYearly << bob << QStringLiteral("1503") << none << none
                                << QStringLiteral("Please use a single separator") << date;
  QTest::newRow("one separator") << kDaysPast << bob << QStringLiteral("1.5") << none << none
                                 << QStringLiteral("Please use two separators") << date;
  QTest::newRow("month out of range") << kYearly << bob << QStringLiteral("13.5") << none << none
                                      << QStringLiteral("Invalid Month Entered.") << stays;
  QTest::newRow("day out of range") << kYearly << bob << QStringLiteral("2.30") << none << none
                                    << QStringLiteral("Invalid Day Entered.") << stays;
  QTest::newRow("leap day refused")
      << kYearly << bob << QStringLiteral("2.29") << none << none
      << QStringLiteral("This event will only occur on leap years.") << stays;
  QTest::newRow("year") << kDaysFuture << bob << QStringLiteral("1.5.2013") << none << none
                        << QStringLiteral("Invalid Year Entered.") << stays;
  QTest::newRow("far first occurrence refused")
      << kEvery << bob << QStringLiteral("12.1") << none << QStringLiteral("10")
      << QStringLiteral("Your event occurring every 10 day") << date;
}

void FrmEditEntryTest::putsTheFocusWhereAMessagePointsTo() {
  QFETCH(int, kind);
  QFETCH(QString, title);
  QFETCH(QString, date);
  QFETCH(QString, advance);
  QFETCH(QString, every);
  QFETCH(QString, messageBegins);
  QFETCH(QString, focus);
  EditWindowDesk desk(kEvents);
  desk.OpenAdding();
  desk.PickKind(kind);
  desk.Type("txtEventInput", title);
  desk.Type("txtDateInput", date);
  desk.Type("txtAdvanceInput", advance);
  if (!every.isEmpty()) desk.Type("txtEveryInput", every);
  desk.messages.answer = MessageAnswer::kCancel;
  desk.Click("cmdSave");
  QCOMPARE(desk.Shown().size(), 1);
  QVERIFY2(desk.Shown().first().startsWith(messageBegins), qPrintable(desk.Shown().first()));
  QCOMPARE(desk.FocusName(), focus);
  QVERIFY(desk.Window().IsEntryUnderWay());
  QCOMPARE(desk.Text("txtEventInput"), title);
  QCOMPARE(desk.Text("txtDateInput"), date);
  QCOMPARE(desk.File(), kEvents);
}

void FrmEditEntryTest::removesCommasWhenTheUserAgrees() {
  EditWindowDesk desk("");
  desk.OpenAdding();
  desk.Type("txtEventInput", QStringLiteral("Bob, Ann, Zoe"));
  desk.Type("txtDateInput", QStringLiteral("1.5"));
  desk.Click("cmdSave");
  QCOMPARE(desk.Shown().size(), 1);
  QCOMPARE(desk.File(), "01.05,Bob Ann Zoe,0,yearly\r\n");

  desk.Click("cmdAdd");
  desk.Type("txtEventInput", QStringLiteral(",,,"));
  desk.Click("cmdSave");
  QCOMPARE(desk.Shown().size(), 3);
  QCOMPARE(desk.FocusName(), QStringLiteral("txtEventInput"));
  QCOMPARE(desk.Text("txtEventInput"), QString());
}

void FrmEditEntryTest::emptiesAnAdvanceOutOfRange() {
  EditWindowDesk desk(kEvents);
  desk.OpenAdding();
  desk.Type("txtEventInput", QStringLiteral("Bob"));
  desk.Type("txtAdvanceInput", QStringLiteral("-1"));
  desk.Click("cmdSave");
  QCOMPARE(desk.Text("txtAdvanceInput"), QString());
  QCOMPARE(desk.FocusName(), QStringLiteral("txtAdvanceInput"));
}

void FrmEditEntryTest::asksOnceAboutAFarFirstOccurrence() {
  EditWindowDesk desk("");
  desk.OpenAdding();
  desk.PickKind(kEvery);
  desk.Type("txtEventInput", QStringLiteral("Bob"));
  desk.Type("txtDateInput", QStringLiteral("12.1"));
  desk.Type("txtEveryInput", QStringLiteral("150"));
  desk.messages.answer = MessageAnswer::kCancel;
  desk.Click("cmdSave");
  QCOMPARE(desk.Shown().size(), 1);
  QVERIFY(desk.Shown().first().startsWith(QStringLiteral("Your event occurring every 150 day ")));
  QCOMPARE(desk.Text("txtEveryInput"), QStringLiteral("50"));
  desk.Click("cmdSave");
  QCOMPARE(desk.Shown().size(), 1);
  QVERIFY(!desk.Window().IsEntryUnderWay());
}

}  // namespace tidewarden

QTEST_MAIN(tidewarden::FrmEditEntryTest)
#include "frm_edit_entry_test.moc"
