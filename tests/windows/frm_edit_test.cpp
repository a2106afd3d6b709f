// The events editor's window: its controls, its list, its keys and its life. The entry row is
// tested in frm_edit_entry_test.cpp.
#include <QApplication>
#include <QImage>
#include <QMenu>
#include <QMessageBox>
#include <QScreen>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTimer>

#include "editor/frm_symbol_font.h"
#include "tests/windows/edit_window_desk.h"

namespace tidewarden {
namespace {

using test::DayFirst;
using test::EditWindowDesk;
using test::YearFirst;

constexpr char kEvents[] =
    "12.25,Christmas Day,7,yearly\r\n"
    "this is no event\r\n"
    "01.01,New Year's Day,1,yearly\r\n"
    "01.26,<1788> Australia Day,0,dp-1788\r\n"
    "12.30,Pay rent,365,monthly\r\n";

const QStringList kListed{
    QStringLiteral("01.01 New Year's Day                         1 day    yearly"),
    QStringLiteral("01.26 <1788> Australia Day                   (always) dp-1788"),
    QStringLiteral("12.22  <TODAY>"),
    QStringLiteral("12.25 Christmas Day                          7 days   yearly"),
    QStringLiteral("12.30 Pay rent                               365 days monthly"),
};
constexpr int kNewYear = 0;
constexpr int kToday = 2;
constexpr int kChristmas = 3;

const QString kPleaseSelect = QStringLiteral("Please select which event you would like to edit!");
const QString kTodayIsNone = QStringLiteral("Today is not an event which you can edit!");
const QString kDeleteChristmas =
    QStringLiteral("Are you sure you want to delete the event \"Christmas Day\"???");

int Pixels(double twips) {
  constexpr double kTwipsPerPixel = 15;
  return static_cast<int>(std::floor(twips / kTwipsPerPixel + 0.5));
}

QPoint RowCentre(QListView* list, int row) {
  return list->visualRect(list->model()->index(row, 0)).center();
}

// A place in the list where no row is.
QPoint BelowTheRows(QListView* list) {
  return {list->viewport()->width() / 2, list->viewport()->height() - 3};
}

QMenu* OpenMenu() {
  return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

void Trigger(QMenu* menu, const char* item) {
  for (QAction* const action : menu->actions()) {
    if (action->objectName() == QLatin1String(item)) {
      menu->close();
      action->trigger();
      return;
    }
  }
  qFatal("no menu item %s", item);
}

// A real message box that the user closes with Esc; the key comes up again over `window`.
class EscapedMessageBox : public MessageBox {
 public:
  int shown = 0;
  std::function<QWidget*()> window;

  MessageAnswer Show(const std::string& text, MessageButtons /*buttons*/,
                     MessageIcon /*icon*/) override {
    ++shown;
    QMessageBox box;
    box.setTextFormat(Qt::PlainText);
    box.setText(QString::fromStdString(text));
    QTimer::singleShot(50, &box, [&box] { QTest::keyPress(&box, Qt::Key_Escape); });
    box.exec();
    QTimer::singleShot(0, window(), [this] {
      QWidget* const focus = window()->focusWidget();
      QTest::keyRelease(focus ? focus : window(), Qt::Key_Escape);
    });
    return MessageAnswer::kOk;
  }
};

}  // namespace

class FrmEditTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // The slots are called by name.
  void hasEveryControlUnderItsName();
  void showsTheTextsOfItsControls();
  void namesEveryControlForScreenReaders();
  void showsPlainTextOnly();
  void drawsItsGlyphsInTheSymbolFont();
  void hidesDonatingWithoutAnOrderPage();

  void listsTheEventsOfTheFile();
  void listsTodayInSmallLettersOrNotAtAll();
  void showsTheDayFirstInEveryOtherOrder();
  void keepsColumnsInLineUnderWideTitles();
  void listsManyRowsWithoutDelay();

  void placesItsControlsByItsHeight_data();
  void placesItsControlsByItsHeight();
  void opensWhereItWasClosed();
  void opensInTheMiddleOfTheScreen_data();
  void opensInTheMiddleOfTheScreen();
  void keepsItsWidthAndItsLeastHeight();
  void wearsASkinWhenTheUserWantsOne();
  void keepsItsGlyphsUnderEverySkin();

  void opensTheEventThatIsAskedFor();
  void staysOpenWithAnEntryWhenAskedAgain();
  void followsANewRequestWhenNothingIsUnderWay();
  void readsTheFileAgain();

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

  void helpsWhenF1IsLetGo();
  void cancelsWhenEscapeIsLetGo();
  void keepsTheEntryWhenEscapeClosesAMessage();
  void keepsTheEntryWhenEscapeClosesADropDown();
  void pressesButtonsByTheirAltKeys();
  void pressesNoIdleButtonDuringAnEntry();
  void pressesTheFocusedButtonByReturn();

  void reachesEveryControlByTabInReadingOrder();
  void clipsNothingAndOverlapsNothing_data();
  void clipsNothingAndOverlapsNothing();

  void handsBackWhenMinimizedOrMaximized_data();
  void handsBackWhenMinimizedOrMaximized();
  void handsBackWhenClosed();
  void closesByItsButton();
  void givesUpAnEntryWhenClosed();
  void unloadsWithoutHandingBack();
  void opensAgainAfterClosing();
};

// --- Controls.

void FrmEditTest::hasEveryControlUnderItsName() {
  EditWindowDesk desk(kEvents);
  QCOMPARE(desk.Window().objectName(), QStringLiteral("frmEdit"));
  for (const char* const name :
       {"cmdAdd", "cmdEdit", "cmdDelete", "cmdClose", "cmdPrint", "cmdOptions", "cmdDonate",
        "cmdHelp", "cmdSave", "cmdCancel", "cmdHiddenPrint", "cmdHiddenOptions", "cmdHiddenDonate",
        "cmdHiddenSave"}) {
    QVERIFY2(desk.Window().findChild<QPushButton*>(QLatin1String(name)), name);
  }
  for (const char* const name :
       {"Text1", "txtDateInput", "txtEventInput", "txtAdvanceInput", "txtEveryInput"}) {
    QVERIFY2(desk.Window().findChild<QLineEdit*>(QLatin1String(name)), name);
  }
  for (const char* const name : {"lblEvent", "lblDate", "lblAdvance", "lblOccurs", "lblEvery",
                                 "lblDays", "lblDateExample", "lblPopularObservances"}) {
    QVERIFY2(desk.Window().findChild<QLabel*>(QLatin1String(name)), name);
  }
  QVERIFY(desk.Window().findChild<QListView*>(QStringLiteral("List1")));
  QVERIFY(desk.Window().findChild<QComboBox*>(QStringLiteral("cmbOccursInput")));
  QVERIFY(desk.Window().findChild<QComboBox*>(QStringLiteral("cmbPopular")));
  QVERIFY(desk.Window().findChild<QCheckBox*>(QStringLiteral("chkEveryMonth")));
  QVERIFY(desk.Window().findChild<QMenu*>(QStringLiteral("mnuPop")));
  for (const char* const name : {"mnuPopupEdit", "mnuPopupDelete", "mnuPopupCancel"}) {
    QVERIFY2(desk.Window().findChild<QAction*>(QLatin1String(name)), name);
  }
}

void FrmEditTest::showsTheTextsOfItsControls() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  QCOMPARE(desk.Window().windowTitle(), QStringLiteral("Events Editor - Tidewarden v1.2"));
  QCOMPARE(desk.Text("Text1"), QStringLiteral(" Date:   Event:") + QString(76, QLatin1Char(' ')) +
                                   QStringLiteral("Advance:   Occurs:"));
  QCOMPARE(desk.Text("Text1").size(), 109);
  QVERIFY(desk.Box("Text1")->isReadOnly());

  struct Case {
    const char* button;
    const char* caption;
    const char* tooltip;
  };
  for (const Case& c : {Case{"cmdAdd", "&ADD", "Add a New Event (Alt + A)"},
                        {"cmdEdit", "&EDIT", "Edit an Existing Event (Alt + E)"},
                        {"cmdClose", "&CLOSE", "Return to Reminders (Alt + C)"},
                        {"cmdHelp", "Help (F1)", ""},
                        {"cmdPrint", "P", "Send to Web Browser for Printing (Alt + P)"},
                        {"cmdOptions", "O", "Options (Alt + O)"},
                        {"cmdDelete", "X", "Delete this Event"},
                        {"cmdHiddenPrint", "hidden &print button", ""},
                        {"cmdHiddenOptions", "hidden &options button", ""},
                        {"cmdHiddenDonate", "hidden &donate button", ""},
                        {"cmdHiddenSave", "hidden &save button", ""}}) {
    QCOMPARE(desk.Button(c.button)->text(), QLatin1String(c.caption));
    QCOMPARE(desk.Button(c.button)->toolTip(), QLatin1String(c.tooltip));
  }
  QCOMPARE(desk.Button("cmdDonate")->toolTip(), QStringLiteral("Simple $10 Donation (Alt + D)"));
  QVERIFY(QStringLiteral("0123456789:;<=").contains(desk.Button("cmdDonate")->text()));
  QCOMPARE(desk.Button("cmdDonate")->text().size(), 1);
  QCOMPARE(desk.Find<QAction>("mnuPopupEdit")->text(), QStringLiteral("Edit"));
  QCOMPARE(desk.Find<QAction>("mnuPopupDelete")->text(), QStringLiteral("Delete"));
  QCOMPARE(desk.Find<QAction>("mnuPopupCancel")->text(), QStringLiteral("Cancel"));
}

void FrmEditTest::namesEveryControlForScreenReaders() {
  EditWindowDesk desk(kEvents);
  desk.OpenAdding();
  int named = 0;
  for (const QWidget* const widget : desk.Window().findChildren<QWidget*>()) {
    const QString name = widget->objectName();
    // What Qt puts into its own controls.
    if (name.isEmpty() || name.startsWith(QLatin1String("qt_"))) continue;
    QVERIFY2(!widget->accessibleName().isEmpty(), qPrintable(name));
    QVERIFY2(!widget->accessibleName().contains(QLatin1Char('&')), qPrintable(name));
    QVERIFY2(widget->accessibleName().size() > 2, qPrintable(name));
    ++named;
  }
  QCOMPARE(named, 32);
  QCOMPARE(desk.Button("cmdSave")->accessibleName(), QStringLiteral("Save New Event"));
  QCOMPARE(desk.Button("cmdPrint")->accessibleName(),
           QStringLiteral("Send to Web Browser for Printing"));
  QCOMPARE(desk.Button("cmdHelp")->accessibleName(), QStringLiteral("Help"));
  QCOMPARE(desk.List()->model()->index(kNewYear, 0).data(Qt::AccessibleTextRole).toString(),
           QStringLiteral("01.01, New Year's Day, 1 day, yearly"));
  QCOMPARE(desk.Box("txtDateInput")->accessibleName(), QStringLiteral("Date"));
  desk.PickKind(8);
  QCOMPARE(desk.Box("txtDateInput")->accessibleName(), QStringLiteral("Month"));
}

void FrmEditTest::showsPlainTextOnly() {
  EditWindowDesk desk("12.25,<b>x</b> & <img src=file:///x>,7,yearly\r\n");
  desk.Open();
  QVERIFY(desk.Rows().at(1).startsWith(QStringLiteral("12.25 <b>x</b> & <img src=file:///x>  ")));
  for (const QLabel* const label : desk.Window().findChildren<QLabel*>()) {
    QCOMPARE(label->textFormat(), Qt::PlainText);
  }
}

void FrmEditTest::drawsItsGlyphsInTheSymbolFont() {
  EditWindowDesk desk(kEvents);
  desk.OpenAdding();
  for (const char* const name :
       {"cmdPrint", "cmdOptions", "cmdDonate", "cmdDelete", "cmdSave", "cmdCancel"}) {
    QCOMPARE(desk.Button(name)->text().size(), 1);
    QCOMPARE(desk.Button(name)->font().family(), QLatin1String(kSymbolFontFamily));
  }
  QCOMPARE(desk.Button("cmdSave")->text(), QStringLiteral("S"));
  QCOMPARE(desk.Button("cmdCancel")->text(), QStringLiteral("C"));
}

void FrmEditTest::hidesDonatingWithoutAnOrderPage() {
  EditWindowDesk with(kEvents);
  with.Open();
  QVERIFY(with.Button("cmdDonate")->isVisible());
  with.Click("cmdDonate");
  QCOMPARE(with.asked.donate, 1);

  EditWindowDesk without(kEvents, test::MonthFirst(), false);
  without.Open();
  QVERIFY(!without.Button("cmdDonate")->isVisible());
  without.Key(Qt::Key_D, Qt::AltModifier);
  QTest::qWait(200);
  QCOMPARE(without.asked.donate, 0);
}

// --- The list.

void FrmEditTest::listsTheEventsOfTheFile() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  QCOMPARE(desk.Rows(), kListed);
  QCOMPARE(desk.Session().EditorLineMap(), (std::vector<long>{2, 3, kTodayRowLine, 0, 4}));
  QCOMPARE(desk.SelectedRow(), 0);
  QCOMPARE(desk.FocusName(), QStringLiteral("List1"));
}

void FrmEditTest::listsTodayInSmallLettersOrNotAtAll() {
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

void FrmEditTest::showsTheDayFirstInEveryOtherOrder() {
  for (const RegionalDateFormat& format : {DayFirst(), YearFirst()}) {
    EditWindowDesk desk("03.05,Spring,7,yearly\r\n_estr,Easter Sunday,7,yearly\r\n", format);
    desk.Open();
    QCOMPARE(desk.Rows().at(0).left(20), QStringLiteral("_estr Easter Sunday "));
    QCOMPARE(desk.Rows().at(1).left(13), QStringLiteral("05.03 Spring "));
    QCOMPARE(desk.Rows().at(2), QStringLiteral("22.12  <TODAY>"));
  }
}

// Two rows that differ in their titles only look alike from the advance column on.
void FrmEditTest::keepsColumnsInLineUnderWideTitles() {
  const std::vector<std::string> titles{
      "Plain",
      "Jürgen Müßiggang é",
      "Ёлка и Дед Мороз",
      "你好世界的生日快樂祝賀大家新年好萬事如意身體健康龍馬精神天天",
      "🎂🎉🎂🎉🎂🎉🎂🎉🎂🎉🎂🎉🎂🎉🎂🎉🎂🎉🎂🎉🎂🎉🎂🎉🎂🎉🎂🎉🎂🎉🎂🎉",
      "שלום לכולם"};
  std::string events;
  for (std::size_t i = 0; i < titles.size(); ++i) {
    events += "01.0" + std::to_string(i + 1) + "," + titles[i] + ",7,yearly\r\n";
  }
  EditWindowDesk desk(events);
  desk.Open();
  desk.Select(static_cast<int>(titles.size()));
  QListView* const list = desk.List();
  const QImage image = list->viewport()->grab().toImage();
  const auto partOf = [&](int row, int fromColumn, int toColumn) {
    const QRect place = list->visualRect(list->model()->index(row, 0));
    const double width = QFontMetricsF(list->font()).horizontalAdvance(QLatin1Char('0'));
    const int left = static_cast<int>(fromColumn * width);
    const int right = static_cast<int>(toColumn * width);
    return image.copy(left, place.top(), right - left, place.height());
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

void FrmEditTest::listsManyRowsWithoutDelay() {
  std::string events;
  constexpr int kMany = 100'000;
  for (int i = 0; i < kMany; ++i) {
    events += "12.25,Christmas " + std::to_string(kMany + i) + ",14,yearly\r\n";
  }
  EditWindowDesk desk(events);
  desk.Open();
  QCOMPARE(desk.Rows().size(), kMany + 1);
  desk.Key(Qt::Key_End);
  QCOMPARE(desk.SelectedRow(), kMany);
  QVERIFY(desk.List()->viewport()->rect().contains(RowCentre(desk.List(), kMany)));
  desk.Key(Qt::Key_Return);
  QCOMPARE(desk.Text("txtEventInput"), QStringLiteral("Christmas 199999"));
}

// --- Layout and placement.

void FrmEditTest::placesItsControlsByItsHeight_data() {
  QTest::addColumn<int>("height");
  QTest::addColumn<QString>("skin");
  for (const int height : {4845, 4860, 6000, 9000}) {
    for (const char* const skin : {"", "QLabel { color: black; }"}) {
      QTest::addRow("%d %s", height, *skin ? "skinned" : "plain")
          << height << QString::fromLatin1(skin);
    }
  }
}

void FrmEditTest::placesItsControlsByItsHeight() {
  QFETCH(int, height);
  QFETCH(QString, skin);
  EditWindowDesk desk(kEvents);
  desk.Window(skin);
  desk.OpenAdding();
  desk.Window().resize(desk.Window().width(), Pixels(height));
  QTRY_COMPARE(desk.Window().height(), Pixels(height));
  const int h = Pixels(height) * 15;
  const int s = skin.isEmpty() ? 0 : 45;

  struct Case {
    const char* control;
    int top;
  };
  const std::vector<Case> cases{
      {"cmdHelp", h - 1395 - s},
      {"cmdPrint", h - 1395 - s},
      {"cmdOptions", h - 1395 - s},
      {"cmdDonate", h - 1395 - s},
      {"cmdAdd", h - 1395 - s},
      {"cmdEdit", h - 1395 - s},
      {"cmdClose", h - 1395 - s + 240},
      {"cmdDelete", h - 1840 - s},
      {"txtEventInput", h - 1840},
      {"cmbPopular", h - 1840},
      {"lblPopularObservances", h - 1840},
      {"lblEvent", h - 1770},
      {"cmdSave", h - 1245 - s},
      {"cmdCancel", h - 1245 - s},
      {"txtDateInput", h - 1245},
      {"txtAdvanceInput", h - 1245},
      {"cmbOccursInput", h - 1245},
      {"chkEveryMonth", h - 1245},
      {"txtEveryInput", h - 1185},
      {"lblEvery", h - 1380},
      {"lblDate", h - 1155},
      {"lblOccurs", h - 1155},
      {"lblAdvance", h - 1155},
      {"lblDays", h - 1125},
      {"lblDateExample", h - 765},
  };
  for (const Case& c : cases) {
    const int top = desk.Find<QWidget>(c.control)->y();
    QVERIFY2(top == Pixels(c.top), qPrintable(QStringLiteral("%1: %2 and not %3")
                                                  .arg(QLatin1String(c.control))
                                                  .arg(top)
                                                  .arg(Pixels(c.top))));
  }
  QCOMPARE(desk.List()->height(), Pixels(h - 2520));
  QCOMPARE(desk.List()->y(), Pixels(360));
}

void FrmEditTest::opensWhereItWasClosed() {
  EditWindowDesk desk(kEvents);
  desk.Set("Edit", "Left", "750");
  desk.Set("Edit", "Top", "1500");
  desk.Set("Edit", "Height", "6000");
  desk.Open();
  QCOMPARE(desk.Window().pos(), QPoint(50, 100));
  QCOMPARE(desk.Window().size(), QSize(601, 400));
  desk.Window().close();
  QCOMPARE(desk.settings.At("Edit", "Left"), "750");
  QCOMPARE(desk.settings.At("Edit", "Top"), "1500");
  QCOMPARE(desk.settings.At("Edit", "Height"), "6000");
}

void FrmEditTest::opensInTheMiddleOfTheScreen_data() {
  QTest::addColumn<QString>("left");
  QTest::addColumn<QString>("top");
  QTest::addColumn<QString>("height");
  QTest::newRow("nothing stored") << QString() << QString() << QString();
  QTest::newRow("left of the screen")
      << QStringLiteral("-1") << QStringLiteral("150") << QStringLiteral("6000");
  QTest::newRow("above the screen")
      << QStringLiteral("150") << QStringLiteral("-1") << QStringLiteral("6000");
  QTest::newRow("too low") << QStringLiteral("150") << QStringLiteral("150")
                           << QStringLiteral("4844");
}

void FrmEditTest::opensInTheMiddleOfTheScreen() {
  QFETCH(QString, left);
  QFETCH(QString, top);
  QFETCH(QString, height);
  EditWindowDesk desk(kEvents);
  if (!left.isEmpty()) {
    desk.Set("Edit", "Left", left.toStdString());
    desk.Set("Edit", "Top", top.toStdString());
    desk.Set("Edit", "Height", height.toStdString());
  }
  desk.Open();
  const QSize screen = QGuiApplication::primaryScreen()->size();
  QCOMPARE(desk.Window().size(), QSize(601, 323));
  QCOMPARE(desk.Window().x(), Pixels((screen.width() * 15 - 7575) / 2));
  QCOMPARE(desk.Window().y(), Pixels((screen.height() * 15 - 4845) / 2));
}

void FrmEditTest::keepsItsWidthAndItsLeastHeight() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  desk.Window().resize(1000, 100);
  QTRY_COMPARE(desk.Window().size(), QSize(601, 323));
}

void FrmEditTest::wearsASkinWhenTheUserWantsOne() {
  const QString skin = QStringLiteral("QLabel { color: #102030; }");
  EditWindowDesk wanted(kEvents);
  wanted.Window(skin);
  wanted.Open();
  QCOMPARE(wanted.Window().styleSheet(), skin);

  EditWindowDesk unwanted(kEvents);
  unwanted.Window(skin);
  unwanted.Set("Options", "UseSkin", "False");
  unwanted.Open();
  QVERIFY(unwanted.Window().styleSheet().isEmpty());
  QCOMPARE(unwanted.Button("cmdAdd")->y(), Pixels(4845 - 1395));
}

void FrmEditTest::keepsItsGlyphsUnderEverySkin() {
  EditWindowDesk desk(kEvents);
  desk.Window(
      QStringLiteral("QPushButton, #cmdPrint { font: 9px \"DejaVu Serif\"; padding: 9px; }"
                     "QWidget { font-family: \"DejaVu Serif\"; }"));
  desk.OpenAdding();
  for (const char* const name : {"cmdPrint", "cmdOptions", "cmdDelete", "cmdSave", "cmdCancel"}) {
    QCOMPARE(QFontInfo(desk.Button(name)->font()).family(), QLatin1String(kSymbolFontFamily));
  }
}

// --- Opening for something.

void FrmEditTest::opensTheEventThatIsAskedFor() {
  EditWindowDesk desk(kEvents);
  desk.Open(0, "12.25,Christmas Day,7,yearly");
  QVERIFY(desk.Window().IsLoaded());
  QVERIFY(desk.Window().IsEntryUnderWay());
  QCOMPARE(desk.Text("txtEventInput"), QStringLiteral("Christmas Day"));
  QCOMPARE(desk.FocusName(), QStringLiteral("txtEventInput"));

  EditWindowDesk adding(kEvents);
  adding.OpenAdding();
  QCOMPARE(adding.Text("txtEventInput"), QString());
  QCOMPARE(adding.Text("txtDateInput"), QStringLiteral("12.22"));
  QCOMPARE(adding.FocusName(), QStringLiteral("txtEventInput"));
}

void FrmEditTest::staysOpenWithAnEntryWhenAskedAgain() {
  EditWindowDesk desk(kEvents);
  desk.OpenAdding();
  desk.Type("txtEventInput", QStringLiteral("Half typed"));
  desk.Open(0, "12.25,Christmas Day,7,yearly");
  QCOMPARE(desk.Text("txtEventInput"), QStringLiteral("Half typed"));
  desk.Click("cmdCancel");
  QVERIFY(!desk.Window().IsEntryUnderWay());
}

void FrmEditTest::followsANewRequestWhenNothingIsUnderWay() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  desk.Window().showMinimized();
  desk.Open(2, "01.01,New Year's Day,1,yearly");
  QVERIFY(!desk.Window().isMinimized());
  QCOMPARE(desk.Text("txtEventInput"), QStringLiteral("New Year's Day"));
}

void FrmEditTest::readsTheFileAgain() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  desk.files.files[test::kEventsPath] = "05.01,Only this,7,yearly\r\n";
  desk.Window().Reload();
  QCOMPARE(desk.Rows().size(), 2);
  QVERIFY(desk.Rows().at(0).startsWith(QStringLiteral("05.01 Only this ")));
}

// --- Input on the list.

void FrmEditTest::editsByReturn_data() {
  QTest::addColumn<int>("key");
  QTest::newRow("Return") << static_cast<int>(Qt::Key_Return);
  QTest::newRow("Enter") << static_cast<int>(Qt::Key_Enter);
}

void FrmEditTest::editsByReturn() {
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

void FrmEditTest::editsByDoubleClick() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  QListView* const list = desk.List();
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, RowCentre(list, kNewYear));
  QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, RowCentre(list, kNewYear));
  QCOMPARE(desk.Text("txtEventInput"), QStringLiteral("New Year's Day"));
}

void FrmEditTest::editsTheSelectedEventByADoubleClickBesideTheRows() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  desk.Select(kChristmas);
  QTest::mouseDClick(desk.List()->viewport(), Qt::LeftButton, {}, BelowTheRows(desk.List()));
  QCOMPARE(desk.Text("txtEventInput"), QStringLiteral("Christmas Day"));
}

void FrmEditTest::asksForASelection() {
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

void FrmEditTest::refusesToEditToday() {
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

void FrmEditTest::keepsTheSelectionWhenTheClickMisses() {
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

void FrmEditTest::deletesWhenTheKeyIsLetGo() {
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

void FrmEditTest::deletesNothingWhenTheKeyWentDownElsewhere() {
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

void FrmEditTest::selectsTheNewLastRowAfterTheLastIsDeleted() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  desk.messages.answer = MessageAnswer::kYes;
  const int last = static_cast<int>(kListed.size()) - 1;
  desk.Select(last);
  desk.Key(Qt::Key_Delete);
  QCOMPARE(desk.Rows(), kListed.first(last));
  QCOMPARE(desk.SelectedRow(), last - 1);
}

// --- The popup menu.

void FrmEditTest::opensItsMenuOverARow() {
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

void FrmEditTest::opensItsMenuBesideTheRows() {
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

void FrmEditTest::opensItsMenuByTheKeyboard() {
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

void FrmEditTest::deletesFromItsMenu() {
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

void FrmEditTest::leavesItsMenuToTheFirstRow() {
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

void FrmEditTest::opensNoMenuDuringAnEntry() {
  EditWindowDesk desk(kEvents);
  desk.OpenAdding();
  QVERIFY(!desk.List()->isEnabled());
  QCOMPARE(desk.SelectedRow(), -1);
  QTest::mousePress(desk.List()->viewport(), Qt::RightButton, {},
                    RowCentre(desk.List(), kChristmas));
  QVERIFY(!OpenMenu());
}

// --- Keys of the window.

void FrmEditTest::helpsWhenF1IsLetGo() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  QTest::keyPress(desk.List(), Qt::Key_F1);
  QCOMPARE(desk.asked.help, 0);
  QTest::keyRelease(desk.List(), Qt::Key_F1);
  QCOMPARE(desk.asked.help, 1);
  desk.Click("cmdHelp");
  QCOMPARE(desk.asked.help, 2);
  desk.Click("cmdAdd");
  QVERIFY(!desk.Button("cmdHelp")->isEnabled());
  QTest::keyClick(desk.Box("txtEventInput"), Qt::Key_F1);
  QCOMPARE(desk.asked.help, 3);
}

void FrmEditTest::cancelsWhenEscapeIsLetGo() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  QTest::keyClick(desk.List(), Qt::Key_Escape);
  QVERIFY(desk.Window().isVisible());
  desk.Select(kChristmas);
  desk.Click("cmdEdit");
  QTest::keyPress(desk.Box("txtEventInput"), Qt::Key_Escape);
  QVERIFY(desk.Window().IsEntryUnderWay());
  QTest::keyRelease(desk.Box("txtEventInput"), Qt::Key_Escape);
  QVERIFY(!desk.Window().IsEntryUnderWay());
  QCOMPARE(desk.FocusName(), QStringLiteral("List1"));
  QCOMPARE(desk.SelectedRow(), kChristmas);
  QCOMPARE(desk.File(), kEvents);
}

void FrmEditTest::keepsTheEntryWhenEscapeClosesAMessage() {
  EditWindowDesk desk(kEvents);
  EscapedMessageBox box;
  desk.OtherMessages = &box;
  box.window = [&desk] { return &desk.Window(); };
  desk.OpenAdding();
  desk.Click("cmdSave");
  QCOMPARE(box.shown, 1);
  QTest::qWait(100);
  QVERIFY(desk.Window().IsEntryUnderWay());
  QCOMPARE(desk.FocusName(), QStringLiteral("txtEventInput"));

  // Not even when the key went down in the window before the box came.
  QTest::keyPress(desk.Box("txtEventInput"), Qt::Key_Escape);
  desk.Click("cmdSave");
  QCOMPARE(box.shown, 2);
  QTest::qWait(100);
  QVERIFY(desk.Window().IsEntryUnderWay());
}

void FrmEditTest::keepsTheEntryWhenEscapeClosesADropDown() {
  EditWindowDesk desk(kEvents);
  desk.OpenAdding();
  QComboBox* const kinds = desk.DropDown("cmbOccursInput");
  kinds->setFocus();
  kinds->showPopup();
  QTRY_VERIFY(kinds->view()->isVisible());
  QTest::keyPress(kinds->view(), Qt::Key_Escape);
  QTRY_VERIFY(!kinds->view()->isVisible());
  QTest::keyRelease(kinds, Qt::Key_Escape);
  QVERIFY(desk.Window().IsEntryUnderWay());
}

void FrmEditTest::pressesButtonsByTheirAltKeys() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  desk.Key(Qt::Key_P, Qt::AltModifier);
  QTRY_COMPARE(desk.asked.print, 1);
  desk.Key(Qt::Key_O, Qt::AltModifier);
  QTRY_COMPARE(desk.asked.options, 1);
  desk.Key(Qt::Key_D, Qt::AltModifier);
  QTRY_COMPARE(desk.asked.donate, 1);
  desk.Select(kChristmas);
  desk.Key(Qt::Key_E, Qt::AltModifier);
  QTRY_COMPARE(desk.Text("txtEventInput"), QStringLiteral("Christmas Day"));
  desk.Type("txtEventInput", QStringLiteral("Christmas"));
  desk.Key(Qt::Key_S, Qt::AltModifier);
  QTRY_VERIFY(!desk.Window().IsEntryUnderWay());
  QVERIFY(desk.File().find("12.25,Christmas,7,yearly\r\n") != std::string::npos);
  desk.Key(Qt::Key_A, Qt::AltModifier);
  QTRY_VERIFY(desk.Window().IsEntryUnderWay());
  desk.Click("cmdCancel");
  desk.Key(Qt::Key_C, Qt::AltModifier);
  QTRY_VERIFY(!desk.Window().isVisible());
  QCOMPARE(desk.asked.showReminder, 1);
}

void FrmEditTest::pressesNoIdleButtonDuringAnEntry() {
  EditWindowDesk desk(kEvents);
  desk.OpenAdding();
  for (const Qt::Key key : {Qt::Key_P, Qt::Key_O, Qt::Key_D, Qt::Key_A, Qt::Key_E, Qt::Key_C}) {
    desk.Key(key, Qt::AltModifier);
  }
  QTest::qWait(300);
  QCOMPARE(desk.asked.print + desk.asked.options + desk.asked.donate, 0);
  QVERIFY(desk.Window().isVisible());
  QVERIFY(desk.Window().IsEntryUnderWay());
  QCOMPARE(desk.Text("txtEventInput"), QString());
  for (const char* const name :
       {"cmdHelp", "cmdPrint", "cmdOptions", "cmdClose", "cmdDonate", "cmdAdd", "cmdEdit"}) {
    QVERIFY2(!desk.Button(name)->isEnabled(), name);
  }
  desk.Click("cmdCancel");
  desk.Key(Qt::Key_S, Qt::AltModifier);
  QTest::qWait(300);
  QVERIFY(desk.Shown().isEmpty());
}

void FrmEditTest::pressesTheFocusedButtonByReturn() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  desk.Button("cmdPrint")->setFocus();
  desk.Key(Qt::Key_Return);
  QCOMPARE(desk.asked.print, 1);
  desk.Key(Qt::Key_Space);
  QCOMPARE(desk.asked.print, 2);
  for (const QPushButton* const button : desk.Window().findChildren<QPushButton*>()) {
    QVERIFY2(!button->isDefault(), qPrintable(button->objectName()));
  }
}

void FrmEditTest::reachesEveryControlByTabInReadingOrder() {
  const auto order = [](EditWindowDesk& desk, const char* first) {
    QStringList names;
    desk.Find<QWidget>(first)->setFocus();
    do {
      names << desk.FocusName();
      QTest::keyClick(desk.Window().focusWidget(), Qt::Key_Tab);
    } while (desk.FocusName() != QLatin1String(first) && names.size() < 30);
    return names.join(QLatin1Char(' '));
  };
  EditWindowDesk desk(kEvents);
  desk.Open();
  QCOMPARE(order(desk, "List1"),
           QStringLiteral("List1 cmdAdd cmdEdit cmdHelp cmdPrint cmdOptions cmdDonate cmdClose"));
  desk.Click("cmdAdd");
  QCOMPARE(order(desk, "txtEventInput"),
           QStringLiteral("txtEventInput cmbPopular txtDateInput txtAdvanceInput cmbOccursInput "
                          "cmdSave cmdCancel"));
  desk.PickKind(4);
  QCOMPARE(order(desk, "txtEventInput"),
           QStringLiteral("txtEventInput cmbPopular txtDateInput txtAdvanceInput cmbOccursInput "
                          "txtEveryInput cmdSave cmdCancel"));
  desk.Click("cmdCancel");
  desk.Select(kChristmas);
  desk.Click("cmdEdit");
  desk.PickKind(9);
  QCOMPARE(order(desk, "cmdDelete"),
           QStringLiteral("cmdDelete txtEventInput txtDateInput txtAdvanceInput cmbOccursInput "
                          "chkEveryMonth cmdSave cmdCancel"));
}

void FrmEditTest::clipsNothingAndOverlapsNothing_data() {
  QTest::addColumn<int>("kind");
  QTest::addColumn<bool>("editing");
  QTest::newRow("idle") << -1 << false;
  for (const int kind : {0, 2, 3, 4, 6, 7, 8, 43}) {
    QTest::addRow("adding kind %d", kind) << kind << false;
    QTest::addRow("editing kind %d", kind) << kind << true;
  }
}

void FrmEditTest::clipsNothingAndOverlapsNothing() {
  QFETCH(int, kind);
  QFETCH(bool, editing);
  EditWindowDesk desk(kEvents, DayFirst());
  desk.Open();
  desk.Select(kChristmas);
  if (kind >= 0) {
    desk.Click(editing ? "cmdEdit" : "cmdAdd");
    desk.PickKind(kind);
  }
  QWidgetList shown;
  for (QWidget* const widget : desk.Window().findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
    if (widget->isVisible() && !widget->isWindow() && !widget->size().isEmpty()) shown << widget;
  }
  QVERIFY(shown.size() >= 9);
  for (int i = 0; i < shown.size(); ++i) {
    const QWidget* const widget = shown.at(i);
    const QByteArray name = widget->objectName().toLatin1();
    QVERIFY2(desk.Window().rect().contains(widget->geometry()), name.constData());
    for (int j = i + 1; j < shown.size(); ++j) {
      QVERIFY2(!widget->geometry().intersects(shown.at(j)->geometry()),
               qPrintable(widget->objectName() + QStringLiteral(" ") + shown.at(j)->objectName()));
    }
    if (const auto* const label = qobject_cast<const QLabel*>(widget)) {
      const QFontMetrics metrics(label->font());
      const QRect text =
          metrics.boundingRect(QRect(0, 0, label->width(), 100),
                               label->wordWrap() ? Qt::TextWordWrap : 0, label->text());
      QVERIFY2(text.width() <= label->width() && text.height() <= label->height(),
               qPrintable(QStringLiteral("%1 %2x%3 in %4x%5")
                              .arg(label->objectName())
                              .arg(text.width())
                              .arg(text.height())
                              .arg(label->width())
                              .arg(label->height())));
    }
    if (const auto* const button = qobject_cast<const QAbstractButton*>(widget)) {
      const QFontMetrics metrics(button->font());
      const QSize text = metrics.size(Qt::TextShowMnemonic, button->text());
      QVERIFY2(text.width() < button->width() && text.height() <= button->height(),
               name.constData());
    }
    if (const auto* const box = qobject_cast<const QComboBox*>(widget)) {
      constexpr int kArrow = 18;
      const QFontMetrics metrics(box->font());
      int widest = metrics.horizontalAdvance(box->placeholderText());
      if (box->objectName() == QLatin1String("cmbOccursInput")) {
        for (int item = 0; item < box->count(); ++item) {
          widest = std::max(widest, metrics.horizontalAdvance(box->itemText(item)));
        }
      }
      QVERIFY2(widest + kArrow <= box->width(), name.constData());
    }
  }
  if (kind == 6 || kind == 7) {
    const QLineEdit* const date = desk.Box("txtDateInput");
    const QFontMetrics metrics(date->font());
    QVERIFY(metrics.horizontalAdvance(QStringLiteral("26.01.1788")) < date->width() - 6);
  }
}

// --- Leaving.

void FrmEditTest::handsBackWhenMinimizedOrMaximized_data() {
  QTest::addColumn<bool>("maximized");
  QTest::newRow("minimized") << false;
  QTest::newRow("maximized") << true;
}

void FrmEditTest::handsBackWhenMinimizedOrMaximized() {
  QFETCH(bool, maximized);
  EditWindowDesk desk(kEvents);
  desk.OpenAdding();
  desk.Type("txtEventInput", QStringLiteral("Half typed"));
  const int top = desk.Button("cmdSave")->y();
  if (maximized) {
    desk.Window().showMaximized();
  } else {
    desk.Window().showMinimized();
  }
  QTRY_COMPARE(desk.asked.showReminder, 1);
  QResizeEvent resized(desk.Window().size(), desk.Window().size());
  QApplication::sendEvent(&desk.Window(), &resized);
  QTest::qWait(50);
  QCOMPARE(desk.asked.showReminder, 1);
  QCOMPARE(desk.Button("cmdSave")->y(), top);
  QCOMPARE(desk.settings.At("Edit", "Top"), "-1");
  QVERIFY(desk.Window().IsEntryUnderWay());
  QCOMPARE(desk.Text("txtEventInput"), QStringLiteral("Half typed"));

  desk.Window().showNormal();
  QTRY_COMPARE(desk.Window().width(), 601);
  QTest::qWait(50);
  QCOMPARE(desk.asked.showReminder, 1);
  QCOMPARE(desk.Button("cmdSave")->y(), Pixels(desk.Window().height() * 15 - 1245));

  if (maximized) {
    desk.Window().showMaximized();
  } else {
    desk.Window().showMinimized();
  }
  QTRY_COMPARE(desk.asked.showReminder, 2);
  QVERIFY(!desk.Window().PlaceToSave());
  desk.Window().close();
  QCOMPARE(desk.settings.At("Edit", "Top"), "-1");
  QCOMPARE(desk.asked.showReminder, 3);
}

void FrmEditTest::handsBackWhenClosed() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  desk.Window().move(30, 40);
  desk.Window().resize(601, 500);
  QTRY_COMPARE(desk.Window().height(), 500);
  desk.Window().close();
  QVERIFY(!desk.Window().isVisible());
  QVERIFY(!desk.Window().IsLoaded());
  QCOMPARE(desk.asked.showReminder, 1);
  QCOMPARE(desk.settings.At("Edit", "Left"), "450");
  QCOMPARE(desk.settings.At("Edit", "Top"), "600");
  QCOMPARE(desk.settings.At("Edit", "Height"), "7500");
}

void FrmEditTest::closesByItsButton() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  desk.Click("cmdClose");
  QVERIFY(!desk.Window().isVisible());
  QCOMPARE(desk.asked.showReminder, 1);
}

void FrmEditTest::givesUpAnEntryWhenClosed() {
  EditWindowDesk desk(kEvents);
  desk.OpenAdding();
  desk.Type("txtEventInput", QStringLiteral("Half typed"));
  desk.Window().close();
  QVERIFY(desk.Shown().isEmpty());
  QVERIFY(!desk.Window().IsEntryUnderWay());
  QCOMPARE(desk.File(), kEvents);
  QVERIFY(desk.settings.At("Edit", "Height") != "(missing)");
}

void FrmEditTest::unloadsWithoutHandingBack() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  desk.Window().move(30, 40);
  desk.Window().Unload();
  QVERIFY(!desk.Window().isVisible());
  QVERIFY(!desk.Window().IsLoaded());
  QCOMPARE(desk.asked.showReminder, 0);
  QCOMPARE(desk.settings.At("Edit", "Left"), "450");
  desk.Window().Unload();
  desk.Window().close();
  QCOMPARE(desk.asked.showReminder, 0);
}

void FrmEditTest::opensAgainAfterClosing() {
  EditWindowDesk desk(kEvents);
  desk.OpenAdding();
  desk.Window().close();
  desk.files.files[test::kEventsPath] = "05.01,Only this,7,yearly\r\n";
  desk.Open();
  QVERIFY(!desk.Window().IsEntryUnderWay());
  QCOMPARE(desk.Rows().size(), 2);
  QVERIFY(!desk.Button("cmdSave")->isVisible());
  QVERIFY(desk.Button("cmdAdd")->isVisible());
  QCOMPARE(desk.FocusName(), QStringLiteral("List1"));
}

}  // namespace tidewarden

QTEST_MAIN(tidewarden::FrmEditTest)
#include "frm_edit_test.moc"
