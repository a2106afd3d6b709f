// The options window at the keyboard, and what it tells a screen reader.
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QListWidget>
#include <QPushButton>
#include <QScrollArea>
#include <QSet>
#include <QStackedWidget>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <algorithm>

#include "tests/windows/customizer_desk.h"

namespace tidewarden {

using Desk = test::CustomizerDesk;

class FrmCustomizerKeysTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void helpOpensTheGuide();
  void escapeAsksBeforeChangesAreLost();
  void enterPressesTheButtonThatHasTheFocus();
  void enterElsewhereMeansOk();
  void keysReachEveryControlInTheOrderOfReading();
  void keysTurnThePages();
  void everyControlHasAName();
  void theWheelTurnsThePageNotTheLists();
};

void FrmCustomizerKeysTest::helpOpensTheGuide() {
  Desk desk;
  int starts = 0;
  desk.session().StartHelp = [&] { return ++starts == 1; };
  desk.Open();
  QTest::keyClick(desk.window.get(), Qt::Key_F1);
  QCOMPARE(starts, 1);
  QVERIFY(desk.messages.shown.empty());
  QTest::keyClick(desk.window.get(), Qt::Key_F1);
  QCOMPARE(desk.messages.shown,
           (std::vector<std::string>{"The help program could not be started."}));
  QVERIFY(desk.window->isVisible());
}

void FrmCustomizerKeysTest::escapeAsksBeforeChangesAreLost() {
  Desk desk;
  desk.Open();
  desk.Click("chkShowLessThan");
  desk.messages.answer = MessageAnswer::kNo;
  QTest::keyClick(desk.window.get(), Qt::Key_Escape);
  QVERIFY(desk.window->isVisible());
  desk.window->close();
  QVERIFY(desk.window->isVisible());
  QCOMPARE(desk.messages.shown.size(), std::size_t{2});
  desk.messages.answer = MessageAnswer::kYes;
  QTest::keyClick(desk.window.get(), Qt::Key_Escape);
  QVERIFY(desk.window->isHidden());
  QCOMPARE(desk.Word(), QStringLiteral("false"));
  QCOMPARE(desk.settings.At("Options", "ShowLessThan"), std::string("(missing)"));
}

void FrmCustomizerKeysTest::enterPressesTheButtonThatHasTheFocus() {
  int tried = 0;
  for (const PageName& page : AllPages()) {
    Desk names;
    names.Open().ShowPage(page.page);
    QStringList buttons;
    for (const auto* const button : names.window->findChildren<QPushButton*>()) {
      if (button->isVisible()) buttons << button->objectName();
    }
    for (const QString& name : buttons) {
      for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        Desk desk;
        desk.session().StartReminder = [] { return true; };
        desk.session().SetOn(IndexOfOption("ShowLessThan"), true);
        desk.Open().ShowPage(page.page);
        desk.window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(desk.window.get()));
        QStringList pressed;
        for (const auto* const button : desk.window->findChildren<QPushButton*>()) {
          connect(button, &QPushButton::clicked, this,
                  [&pressed, button] { pressed << button->objectName(); });
        }
        // A dialog of colours or files is sent away again.
        QTimer::singleShot(0, desk.window.get(), [] {
          if (auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
            dialog->reject();
          }
        });
        auto* const button = desk.The<QPushButton>(name.toLatin1());
        button->setFocus(Qt::TabFocusReason);
        QVERIFY2(button->hasFocus(), qPrintable(name));
        QTest::keyClick(button, key);
        QCOMPARE(pressed, QStringList{name});
        const bool saves = name == u"cmdOk" || name == u"cmdApply" || name == u"cmdReminder";
        QVERIFY2((desk.settings.At("Options", "ShowLessThan") == "True") == saves,
                 qPrintable(name));
        ++tried;
      }
    }
  }
  // Four at the foot of each of seven pages; two for colours, three for a sound, two for files.
  QCOMPARE(tried, 2 * (7 * 4 + 2 + 3 + 2));
}

void FrmCustomizerKeysTest::enterElsewhereMeansOk() {
  for (const char* const name : {"chkShowLessThan", "txtTitlebarText", "cmbShowDayOfWeek"}) {
    Desk desk;
    desk.Open();
    desk.window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(desk.window.get()));
    // From a button the mark of the Return key goes back to OK.
    desk.The<QPushButton>("cmdCancel")->setFocus(Qt::TabFocusReason);
    QVERIFY(!desk.The<QPushButton>("cmdOk")->isDefault());
    auto* const control = desk.The<QWidget>(name);
    control->setFocus(Qt::TabFocusReason);
    QVERIFY2(desk.The<QPushButton>("cmdOk")->isDefault(), name);
    QTest::keyClick(control, Qt::Key_Return);
    QVERIFY2(desk.window->isHidden(), name);
    QCOMPARE(desk.Word(), QStringLiteral("false"));
  }
}

void FrmCustomizerKeysTest::keysReachEveryControlInTheOrderOfReading() {
  Desk desk;
  desk.Open();
  for (const PageName& page : AllPages()) {
    desk.window->ShowPage(page.page);
    QTest::qWait(0);
    auto* const pages = desk.The<QListWidget>("lstPages");
    pages->setFocus();
    auto* const scroll =
        qobject_cast<QScrollArea*>(desk.The<QStackedWidget>("stkPages")->currentWidget());
    QPoint last(-1, -1);
    QSet<QWidget*> reached;
    for (int step = 0; step < 60; ++step) {
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
      QWidget* const now = QApplication::focusWidget();
      if (now == pages) break;
      reached << now;
      if (!scroll->widget()->isAncestorOf(now)) continue;
      const QPoint place = now->mapTo(scroll->widget(), QPoint(0, 0));
      QVERIFY2(place.y() > last.y() || (place.y() > last.y() - 8 && place.x() > last.x()),
               qPrintable(now->objectName()));
      last = place;
      // What has the focus can be seen.
      const QRect seen(now->mapTo(scroll->viewport(), QPoint(0, 0)), now->size());
      QVERIFY2(scroll->viewport()->rect().contains(seen), qPrintable(now->objectName()));
    }
    for (const Option& option : AllOptions()) {
      if (option.page != page.page) continue;
      const QString name =
          QString::fromUtf8(NameOf(option).data(), static_cast<qsizetype>(NameOf(option).size()));
      const bool found = std::any_of(reached.begin(), reached.end(), [&name](const QWidget* w) {
        return w->objectName().mid(3) == name;
      });
      QVERIFY2(found, qPrintable(name));
    }
    for (const char* const button : {"cmdReminder", "cmdOk", "cmdCancel"}) {
      QVERIFY2(reached.contains(desk.The<QPushButton>(button)), button);
    }
  }
}

void FrmCustomizerKeysTest::keysTurnThePages() {
  Desk desk;
  desk.Open();
  auto* const pages = desk.The<QListWidget>("lstPages");
  QTest::keyClick(desk.window.get(), Qt::Key_PageDown, Qt::ControlModifier);
  QCOMPARE(pages->currentRow(), 1);
  QTest::keyClick(desk.window.get(), Qt::Key_PageUp, Qt::ControlModifier);
  QTest::keyClick(desk.window.get(), Qt::Key_PageUp, Qt::ControlModifier);
  QCOMPARE(pages->currentRow(), 6);
  QTest::keyClick(desk.window.get(), Qt::Key_Tab, Qt::ControlModifier);
  QCOMPARE(pages->currentRow(), 0);
}

void FrmCustomizerKeysTest::everyControlHasAName() {
  Desk desk;
  desk.Open();
  for (auto* const widget : desk.window->findChildren<QWidget*>()) {
    if (widget->focusPolicy() == Qt::NoFocus || widget->objectName().startsWith(u"qt_")) continue;
    const auto* const button = qobject_cast<QAbstractButton*>(widget);
    const bool named =
        !widget->accessibleName().isEmpty() || (button != nullptr && !button->text().isEmpty());
    QVERIFY2(named, qPrintable(QLatin1String(widget->metaObject()->className()) + QLatin1Char(' ') +
                               widget->objectName()));
  }
}

void FrmCustomizerKeysTest::theWheelTurnsThePageNotTheLists() {
  Desk desk;
  desk.Open().ShowPage(OptionPage::kLooks);
  auto* const colours = desk.The<QComboBox>("cmbReminderListColors");
  desk.The<QListWidget>("lstPages")->setFocus();
  QWheelEvent event(QPointF(5, 5), colours->mapToGlobal(QPointF(5, 5)), {}, QPoint(0, -120), {}, {},
                    Qt::NoScrollPhase, false);
  QApplication::sendEvent(colours, &event);
  QCOMPARE(colours->currentText(), QStringLiteral("Pale green"));
}

}  // namespace tidewarden

QTEST_MAIN(tidewarden::FrmCustomizerKeysTest)
#include "frm_customizer_keys_test.moc"
