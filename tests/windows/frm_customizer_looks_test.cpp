// How the options window looks, plain and with the program's skin, on light and dark desktops.
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QStackedWidget>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTest>

#include "tests/windows/contrast.h"
#include "tests/windows/customizer_desk.h"

namespace tidewarden {

using Desk = test::CustomizerDesk;
using test::SkinOfTheProgram;

class FrmCustomizerLooksTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void everyHelpStandsOnOneLine_data();
  void everyHelpStandsOnOneLine();
  void textsAreShownAsTheyAre();
  void textsStandOutFromEveryDesktop_data();
  void textsStandOutFromEveryDesktop();
  void everythingOfAPageBeginsOnOneLine_data();
  void everythingOfAPageBeginsOnOneLine();
  void nothingIsCut_data();
  void nothingIsCut();
};

void FrmCustomizerLooksTest::everyHelpStandsOnOneLine_data() {
  QTest::addColumn<bool>("skin");
  QTest::newRow("skin") << true;
  QTest::newRow("plain") << false;
}

// In the size in which the window comes up. Where a file is meant, the path of the default may be
// long.
void FrmCustomizerLooksTest::everyHelpStandsOnOneLine() {
  QFETCH(bool, skin);
  Desk desk;
  desk.files.files[test::kSkinPath] = SkinOfTheProgram();
  desk.Set("Options", "UseSkin", skin ? "True" : "False");
  desk.Open();
  for (const Option& option : AllOptions()) {
    if (option.kind == OptionKind::kSoundFile || option.kind == OptionKind::kEventsFile ||
        option.kind == OptionKind::kQuotesFile) {
      continue;
    }
    const QString name =
        QString::fromUtf8(NameOf(option).data(), static_cast<qsizetype>(NameOf(option).size()));
    desk.window->ShowPage(option.page);
    QTest::qWait(0);
    const auto* const help = desk.window->findChild<QLabel*>(QStringLiteral("lbl%1Help").arg(name));
    const int lines = help->heightForWidth(help->width()) / help->fontMetrics().lineSpacing();
    QVERIFY2(lines == 1, qPrintable(help->text()));
  }
}

void FrmCustomizerLooksTest::textsAreShownAsTheyAre() {
  Desk desk;
  desk.Set("Options", "AlarmPath", "/home/<b>ann</b>/x.wav");
  desk.Open();
  for (auto* const label : desk.window->findChildren<QLabel*>()) {
    QCOMPARE(label->textFormat(), Qt::PlainText);
  }
}

void FrmCustomizerLooksTest::textsStandOutFromEveryDesktop_data() {
  QTest::addColumn<QColor>("window");
  QTest::addColumn<QColor>("text");
  QTest::newRow("light") << QColor(0xEF, 0xEF, 0xEF) << QColor(Qt::black);
  QTest::newRow("dark") << QColor(0x2B, 0x2B, 0x2B) << QColor(0xEE, 0xEE, 0xEE);
  QTest::newRow("black") << QColor(Qt::black) << QColor(Qt::white);
}

// The Web Content Accessibility Guidelines (2.1) ask for 4.5 to 1.
void FrmCustomizerLooksTest::textsStandOutFromEveryDesktop() {
  QFETCH(QColor, window);
  QFETCH(QColor, text);
  Desk desk;
  desk.Set("Options", "UseSkin", "False");
  desk.Open().ShowPage(OptionPage::kFiles);
  QPalette palette = desk.window->palette();
  palette.setColor(QPalette::Window, window);
  palette.setColor(QPalette::WindowText, text);
  desk.window->setPalette(palette);
  desk.Enter("txtLevelsOfBackup", "12");
  desk.Click("cmdApply");
  for (const char* const name : {"lblLevelsOfBackupHelp", "lblLevelsOfBackupNote"}) {
    const QColor color = desk.The<QLabel>(name)->palette().color(QPalette::WindowText);
    QVERIFY2(Contrast(color, window) >= kTextContrast, name);
  }
  QVERIFY(desk.The<QLabel>("lblLevelsOfBackupNote")->palette().color(QPalette::WindowText) != text);
}

void FrmCustomizerLooksTest::everythingOfAPageBeginsOnOneLine_data() {
  QTest::addColumn<bool>("skin");
  QTest::newRow("skin") << true;
  QTest::newRow("plain") << false;
}

// Boxes, labels, fields and headings. Also after the skin has been turned on and off.
void FrmCustomizerLooksTest::everythingOfAPageBeginsOnOneLine() {
  QFETCH(bool, skin);
  Desk desk;
  desk.files.files[test::kSkinPath] = SkinOfTheProgram();
  desk.Set("Options", "UseSkin", skin ? "False" : "True");
  desk.Open().ShowPage(OptionPage::kLooks);
  desk.Click("chkUseSkin");
  int looked = 0;
  for (const PageName& page : AllPages()) {
    desk.window->ShowPage(page.page);
    QTest::qWait(0);
    const auto* const scroll =
        qobject_cast<QScrollArea*>(desk.The<QStackedWidget>("stkPages")->currentWidget());
    for (auto* const widget : scroll->widget()->findChildren<QWidget*>()) {
      int left = widget->contentsMargins().left();
      if (const auto* const check = qobject_cast<QCheckBox*>(widget)) {
        QStyleOptionButton option;
        option.initFrom(check);
        left = check->style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, check).left();
      } else if (qobject_cast<QLabel*>(widget) != nullptr) {
        // What tells about a box stands below the words of the box.
        const QString option = widget->objectName().mid(3).remove(QStringLiteral("Help"));
        const bool isHelp = widget->objectName().endsWith(u"Help");
        if (isHelp && desk.window->findChild<QCheckBox*>(QStringLiteral("chk") + option)) continue;
      } else if (qobject_cast<QLineEdit*>(widget) != nullptr) {
        if (qobject_cast<QComboBox*>(widget->parentWidget()) != nullptr) continue;
        left = 0;
      } else if (qobject_cast<QComboBox*>(widget) != nullptr) {
        left = 0;
      } else {
        continue;
      }
      if (!widget->isVisible()) continue;
      const int x = widget->mapTo(scroll->widget(), QPoint(left, 0)).x();
      QVERIFY2(x == 12, qPrintable(QStringLiteral("%1 %2").arg(widget->objectName()).arg(x)));
      ++looked;
    }
  }
  QVERIFY(looked > 80);
}

void FrmCustomizerLooksTest::nothingIsCut_data() {
  QTest::addColumn<bool>("skin");
  QTest::addColumn<bool>("smallest");
  QTest::newRow("skin") << true << false;
  QTest::newRow("plain") << false << false;
  QTest::newRow("skin, smallest") << true << true;
  QTest::newRow("plain, smallest") << false << true;
}

// On every page each control has the room that it asks for, and lies inside the page's width.
void FrmCustomizerLooksTest::nothingIsCut() {
  QFETCH(bool, skin);
  QFETCH(bool, smallest);
  Desk desk;
  desk.files.files[test::kSkinPath] = SkinOfTheProgram();
  desk.Set("Options", "UseSkin", skin ? "True" : "False");
  desk.Set("Options", "AlarmPath", "/home/somebody/with/a/folder/that/has/a/long/name/bell.wav");
  desk.Open();
  if (smallest) desk.window->resize(desk.window->minimumSizeHint());
  for (const PageName& page : AllPages()) {
    desk.window->ShowPage(page.page);
    QTest::qWait(0);
    auto* const scroll =
        qobject_cast<QScrollArea*>(desk.The<QStackedWidget>("stkPages")->currentWidget());
    QVERIFY(scroll->widget()->width() <= scroll->viewport()->width());
    for (auto* const widget : desk.window->findChildren<QWidget*>()) {
      if (!widget->isVisible()) continue;
      const auto* const label = qobject_cast<QLabel*>(widget);
      const bool isButton = qobject_cast<QAbstractButton*>(widget) != nullptr;
      if (label == nullptr && !isButton) continue;
      if (widget->objectName().startsWith(u"qt_")) continue;
      const QSize wanted =
          label != nullptr && label->wordWrap()
              ? QSize(label->minimumSizeHint().width(), label->heightForWidth(label->width()))
              : widget->sizeHint();
      const QByteArray told =
          (widget->objectName() + QLatin1Char(' ') + (label != nullptr ? label->text() : QString()))
              .toUtf8();
      QVERIFY2(widget->width() >= wanted.width() && widget->height() >= wanted.height(), told);
      const QWidget* const parent = widget->parentWidget();
      QVERIFY2(parent->rect().contains(widget->geometry()), told);
    }
  }
  // A small screen of today.
  QVERIFY2(desk.window->minimumSizeHint().width() <= 800, "too wide");
  QVERIFY2(desk.window->minimumSizeHint().height() <= 560, "too high");
}

}  // namespace tidewarden

QTEST_MAIN(tidewarden::FrmCustomizerLooksTest)
#include "frm_customizer_looks_test.moc"
