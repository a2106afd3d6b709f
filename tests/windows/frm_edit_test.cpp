// The events editor's window: its controls, its place, and how it is opened and left.
#include <QAction>
#include <QMenu>
#include <QScreen>

#include "editor/frm_symbol_font.h"
#include "tests/windows/edit_window_desk.h"
#include "tests/windows/edit_window_events.h"

namespace tidewarden {
namespace {

using namespace test;

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
  void placesItsControlsByItsHeight_data();
  void placesItsControlsByItsHeight();
  void opensWhereItWasClosed();
  void comesBackFromAScreenThatIsGone_data();
  void comesBackFromAScreenThatIsGone();
  void leavesItsPlaceAloneWhenItIsNotNormal();
  void opensInTheMiddleOfTheScreen_data();
  void opensInTheMiddleOfTheScreen();
  void keepsItsWidthAndItsLeastHeight();
  void wearsASkinWhenTheUserWantsOne();
  void keepsItsGlyphsUnderEverySkin();
  void clipsNothingAndOverlapsNothing_data();
  void clipsNothingAndOverlapsNothing();
  void opensTheEventThatIsAskedFor();
  void staysOpenWithAnEntryWhenAskedAgain();
  void followsANewRequestWhenNothingIsUnderWay();
  void readsTheFileAgain();
  void handsBackWhenMinimizedOrMaximized_data();
  void handsBackWhenMinimizedOrMaximized();
  void takesOverAgainWhenRestored_data();
  void takesOverAgainWhenRestored();
  void handsBackWhenClosed();
  void closesByItsButton();
  void givesUpAnEntryWhenClosed();
  void unloadsWithoutHandingBack();
  void opensAgainAfterClosing();
};

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

void FrmEditTest::comesBackFromAScreenThatIsGone_data() {
  QTest::addColumn<bool>("entry");
  QTest::newRow("idle") << false;
  QTest::newRow("with an entry under way") << true;
}

void FrmEditTest::comesBackFromAScreenThatIsGone() {
  QFETCH(bool, entry);
  EditWindowDesk desk(kEvents);
  desk.Set("Edit", "Left", "300");
  desk.Set("Edit", "Top", "450");
  desk.Set("Edit", "Height", "6000");
  desk.Window().ScreensChanged();
  QVERIFY(!desk.Window().isVisible());
  desk.Open();
  if (entry) {
    desk.Click("cmdAdd");
    desk.Type("txtEventInput", QStringLiteral("Half typed"));
  }
  desk.Window().ScreensChanged();
  QCOMPARE(desk.Window().pos(), QPoint(20, 30));
  desk.Window().move(-9000, 50);
  desk.Window().ScreensChanged();
  QCOMPARE(desk.Window().pos(), QGuiApplication::primaryScreen()->geometry().topLeft());
  QCOMPARE(desk.Window().size(), QSize(601, 400));
  QVERIFY(desk.Window().isVisible());
  QCOMPARE(desk.Window().IsEntryUnderWay(), entry);
  QCOMPARE(desk.Text("txtEventInput"), entry ? QStringLiteral("Half typed") : QString());
  if (entry) QCOMPARE(desk.FocusName(), QStringLiteral("txtEventInput"));
  // Nothing is written before it closes.
  QCOMPARE(desk.settings.At("Edit", "Left"), "300");
}

void FrmEditTest::leavesItsPlaceAloneWhenItIsNotNormal() {
  EditWindowDesk desk(kEvents);
  desk.Open();
  desk.Window().move(-9000, 50);
  desk.Window().setWindowState(Qt::WindowMinimized);
  QTRY_COMPARE(desk.asked.showReminder, 1);
  const QPoint place = desk.Window().pos();
  desk.Window().ScreensChanged();
  QCOMPARE(desk.Window().pos(), place);
  QVERIFY(desk.Window().isMinimized());
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

  EditWindowDesk unreadable(kEvents);
  unreadable.Window(QStringLiteral("QLabel { color: #102030; } QLabel {"));
  unreadable.Open();
  QVERIFY(unreadable.Window().styleSheet().isEmpty());
  QCOMPARE(unreadable.Button("cmdAdd")->y(), Pixels(4845 - 1395));
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

void FrmEditTest::takesOverAgainWhenRestored_data() {
  QTest::addColumn<bool>("maximized");
  QTest::addColumn<bool>("underWay");
  QTest::newRow("normal") << false << false;
  QTest::newRow("maximized") << true << false;
  QTest::newRow("normal, with an entry") << false << true;
}

void FrmEditTest::takesOverAgainWhenRestored() {
  QFETCH(bool, maximized);
  QFETCH(bool, underWay);
  EditWindowDesk desk(kEvents);
  desk.Open();
  if (underWay) {
    desk.Click("cmdAdd");
    desk.Type("txtEventInput", QStringLiteral("Half typed"));
  }
  const QStringList rows = desk.Rows();
  desk.Window().showMinimized();
  QTRY_COMPARE(desk.asked.showReminder, 1);
  QCOMPARE(desk.asked.hideReminder, 0);
  desk.files.files[test::kEventsPath] = "05.01,Only this,7,yearly\r\n";
  if (maximized) {
    desk.Window().showMaximized();
  } else {
    desk.Window().showNormal();
  }
  QTRY_COMPARE(desk.asked.hideReminder, 1);
  QTest::qWait(50);
  QCOMPARE(desk.asked.hideReminder, 1);
  QCOMPARE(desk.asked.showReminder, 1);
  if (underWay) {
    QCOMPARE(desk.Rows(), rows);
    QCOMPARE(desk.Text("txtEventInput"), QStringLiteral("Half typed"));
  } else {
    QCOMPARE(desk.Rows().size(), 2);
    QVERIFY(desk.Rows().at(0).startsWith(QStringLiteral("05.01 Only this ")));
  }
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
