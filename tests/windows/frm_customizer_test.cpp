// The options window, by the names of its controls.
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QFontDatabase>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include "tests/windows/customizer_desk.h"

namespace tidewarden {

using Desk = test::CustomizerDesk;
using test::Pick;

class FrmCustomizerTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void showsEveryOptionByItsName();
  void cancelChangesNothing();
  void okSavesAndCloses();
  void applySavesAndStays();
  void aWrongNumberIsRefusedWhereItStands();
  void aDamagedValueIsToldAndKept();
  void thePreviewFollows();
  void examplesCanBeShown();
  void ownColoursAreChosenByButtons();
  void anUnknownChoiceIsShown();
  void theSoundIsPlayed();
  void theSoundsThatPlayHereAreOffered();
  void startsWithTheComputer();
  void theWayBackSavesAndStarts();
  void theWayBackSaysWhatItDoes();
  void fontsAreStoredAsTheyStandInTheBox();
  void aSoundThatCannotBePlayedIsTold();
  void aLogoutAsksNothing();
  void mayGoWhileABoxHasTheFocus();
  void aFailedSaveKeepsTheWindow();
};

void FrmCustomizerTest::showsEveryOptionByItsName() {
  Desk desk;
  desk.Open();
  for (const Option& option : AllOptions()) {
    const QString name =
        QString::fromUtf8(NameOf(option).data(), static_cast<qsizetype>(NameOf(option).size()));
    const char* prefix = "txt";
    if (option.kind == OptionKind::kSwitch) prefix = "chk";
    if (option.kind == OptionKind::kChoice || option.kind == OptionKind::kColours) prefix = "cmb";
    QVERIFY2(desk.window->findChild<QWidget*>(QLatin1String(prefix) + name) != nullptr,
             qPrintable(name));
    const auto* const help = desk.window->findChild<QLabel*>(QStringLiteral("lbl%1Help").arg(name));
    QVERIFY2(help != nullptr && help->text().contains(QStringLiteral("Default: ")),
             qPrintable(name));
  }
  QCOMPARE(desk.The<QListWidget>("lstPages")->count(), 7);
  QCOMPARE(desk.The<QLineEdit>("txtTitlebarText")->text(),
           QStringLiteral("Your Tidewarden Upcoming Events"));
  QVERIFY(desk.The<QCheckBox>("chkUseSkin")->isChecked());
  QVERIFY(!desk.The<QCheckBox>("chkShowLessThan")->isChecked());
}

void FrmCustomizerTest::cancelChangesNothing() {
  Desk desk;
  QSignalSpy ended(&desk.Open(), &frmCustomizer::Ended);
  desk.Click("chkShowLessThan");
  desk.Enter("txtTitlebarText", "Mine");
  desk.Click("cmdCancel");
  QVERIFY(desk.window->isHidden());
  QCOMPARE(ended.count(), 1);
  QCOMPARE(desk.settings.entries.size(), std::size_t{2});  // the path of the desk, and the word
  QCOMPARE(desk.Word(), QStringLiteral("false"));
  QVERIFY(desk.messages.shown.empty());
}

void FrmCustomizerTest::okSavesAndCloses() {
  Desk desk;
  QSignalSpy ended(&desk.Open(), &frmCustomizer::Ended);
  desk.Click("chkShowLessThan");
  desk.Enter("txtTitlebarText", "Mine & yours");
  desk.Click("cmdOk");
  QVERIFY(desk.window->isHidden());
  QCOMPARE(ended.count(), 1);
  QCOMPARE(desk.settings.At("Options", "ShowLessThan"), std::string("True"));
  QCOMPARE(desk.settings.At("Options", "TitlebarText"), std::string("Mine & yours"));
  QCOMPARE(desk.Word(), QStringLiteral("true"));
}

void FrmCustomizerTest::applySavesAndStays() {
  Desk desk;
  desk.reminder.anotherRuns = true;
  desk.Open();
  auto* const apply = desk.The<QPushButton>("cmdApply");
  QVERIFY(!apply->isEnabled());
  desk.Click("chkShowLessThan");
  QVERIFY(apply->isEnabled());
  desk.Click("cmdApply");
  QVERIFY(desk.window->isVisible());
  QVERIFY(!apply->isEnabled());
  QCOMPARE(desk.Label("lblStatus"), QStringLiteral("Saved."));
  QCOMPARE(desk.settings.At("Options", "ShowLessThan"), std::string("True"));
  QCOMPARE(desk.Word(), QStringLiteral("saved"));
  desk.Click("chkShowLessThan");
  QCOMPARE(desk.Label("lblStatus"), QString());
}

void FrmCustomizerTest::aWrongNumberIsRefusedWhereItStands() {
  Desk desk;
  desk.Open().ShowPage(OptionPage::kFiles);
  desk.Enter("txtLevelsOfBackup", "12");
  QVERIFY(!desk.The<QLabel>("lblLevelsOfBackupNote")->isVisible());
  desk.window->ShowPage(OptionPage::kList);
  desk.Click("chkShowLessThan");
  desk.Click("cmdOk");
  QVERIFY(desk.window->isVisible());
  QCOMPARE(desk.The<QListWidget>("lstPages")->currentRow(), static_cast<int>(OptionPage::kFiles));
  auto* const box = desk.The<QLineEdit>("txtLevelsOfBackup");
  QVERIFY(box->hasFocus());
  QCOMPARE(box->selectedText(), QStringLiteral("12"));
  QVERIFY(desk.The<QLabel>("lblLevelsOfBackupNote")->isVisible());
  QCOMPARE(desk.Label("lblLevelsOfBackupNote"), QStringLiteral("Type a number from 0 to 8."));
  QVERIFY(box->accessibleDescription().contains(QStringLiteral("Type a number from 0 to 8.")));
  QCOMPARE(desk.settings.At("Options", "ShowLessThan"), std::string("(missing)"));

  QTest::keyClicks(box, QStringLiteral("2"));
  QVERIFY(!desk.The<QLabel>("lblLevelsOfBackupNote")->isVisible());
  QTest::keyClick(box, Qt::Key_Return);
  QVERIFY(desk.window->isHidden());
  QCOMPARE(desk.settings.At("Options", "LevelsOfBackup"), std::string("2"));
  QCOMPARE(desk.settings.At("Options", "ShowLessThan"), std::string("True"));
}

void FrmCustomizerTest::aDamagedValueIsToldAndKept() {
  Desk desk;
  desk.Set("Options", "LevelsOfBackup", "many");
  desk.Open().ShowPage(OptionPage::kFiles);
  QCOMPARE(desk.The<QLineEdit>("txtLevelsOfBackup")->text(), QStringLiteral("many"));
  QCOMPARE(
      desk.Label("lblLevelsOfBackupNote"),
      QStringLiteral("Type a number from 0 to 8. The setting stays as it is until you change it."));
  desk.Click("cmdOk");
  QVERIFY(desk.window->isHidden());
  QCOMPARE(desk.settings.At("Options", "LevelsOfBackup"), std::string("many"));
}

void FrmCustomizerTest::thePreviewFollows() {
  Desk desk;
  desk.Open();
  const auto row = [&desk] { return desk.PreviewRows().value(1); };
  QCOMPARE(row(), QStringLiteral("12/22/2014 Today is DENTIST 3:30PM (1:05 to go)"));
  desk.Click("chkCapitalizeTodaysEvents");
  QCOMPARE(row(), QStringLiteral("12/22/2014 Today is Dentist 3:30pm (1:05 to go)"));
  Pick(desk.The<QComboBox>("cmbPrefaceTodaysEventsWithTODAYis"), QStringLiteral("two blanks"));
  QCOMPARE(row(), QStringLiteral("12/22/2014  Dentist 3:30pm (1:05 to go)"));
  QVERIFY(desk.The<QLabel>("lblPreviewDate")->isVisible());
  desk.Click("chkShowTodaysDateBeneathReminders");
  QVERIFY(!desk.The<QLabel>("lblPreviewDate")->isVisible());
  auto* const quote = desk.The<QPlainTextEdit>("txtPreviewQuote");
  QVERIFY(!quote->isVisible());
  desk.Click("chkShowDailyQuotes");
  QVERIFY(quote->isVisible());
  QCOMPARE(quote->toPlainText(), QStringLiteral("One"));

  desk.window->ShowPage(OptionPage::kLooks);
  Pick(desk.The<QComboBox>("cmbReminderListColors"), QStringLiteral("Blue"));
  desk.Enter("txtFontSize", "20");
  desk.Click("chkFontBold");
  auto* const list = desk.The<QListView>("lstPreview");
  QTest::qWait(0);
  const QImage picture = list->viewport()->grab().toImage();
  QCOMPARE(picture.pixelColor(picture.width() - 3, picture.height() - 3), QColor(0, 0, 0x99));
  QCOMPARE(list->font().pointSize(), 20);
  QVERIFY(list->font().bold());
  QCOMPARE(quote->font().pointSize(), 20);

  desk.window->ShowPage(OptionPage::kAlarms);
  QVERIFY(!list->isVisible());
  QVERIFY(desk.settings.writes == 0);
}

void FrmCustomizerTest::examplesCanBeShown() {
  Desk desk;
  desk.Open();
  QCOMPARE(desk.PreviewRows().size(), 3);
  desk.Click("chkExamples");
  QCOMPARE(desk.PreviewRows().size(), 7);
  desk.Click("chkExamples");
  QCOMPARE(desk.PreviewRows().size(), 3);
}

void FrmCustomizerTest::ownColoursAreChosenByButtons() {
  Desk desk;
  desk.Open().ShowPage(OptionPage::kLooks);
  auto* const colours = desk.The<QComboBox>("cmbReminderListColors");
  QCOMPARE(colours->currentText(), QStringLiteral("Pale green"));
  bool asked = false;
  QTimer::singleShot(0, desk.window.get(), [&] {
    auto* const dialog = desk.window->findChild<QColorDialog*>();
    if (dialog == nullptr) return;
    asked = dialog->currentColor() == QColor(0x99, 0xFF, 0x99);
    dialog->setCurrentColor(QColor(0x12, 0x34, 0x56));
    dialog->accept();
  });
  desk.Click("cmdBackColour");
  QVERIFY(asked);
  QCOMPARE(desk.Text("ReminderListColors"), std::string("000000,123456"));
  QCOMPARE(colours->currentText(), QStringLiteral("Your own colours"));
  Pick(colours, QStringLiteral("Violet"));
  QCOMPARE(desk.Text("ReminderListColors"), std::string("violet"));
  Pick(colours, QStringLiteral("Your own colours"));
  QCOMPARE(desk.Text("ReminderListColors"), std::string("FFFFFF,990099"));
  desk.Click("cmdOk");
  QCOMPARE(desk.settings.At("Options", "ReminderListColors"), std::string("FFFFFF,990099"));
}

void FrmCustomizerTest::anUnknownChoiceIsShown() {
  Desk desk;
  desk.Set("Options", "ReminderListColors", "mauve");
  desk.Set("Options", "ShowDayOfWeek", "often");
  desk.Open();
  QCOMPARE(desk.The<QComboBox>("cmbReminderListColors")->currentText(), QStringLiteral("mauve"));
  auto* const days = desk.The<QComboBox>("cmbShowDayOfWeek");
  QCOMPARE(days->currentText(), QStringLiteral("often"));
  QCOMPARE(days->count(), 4);
  Pick(days, QStringLiteral("nowhere"));
  desk.Click("cmdApply");
  QCOMPARE(days->count(), 3);
  QCOMPARE(days->currentText(), QStringLiteral("nowhere"));
  QCOMPARE(desk.settings.At("Options", "ReminderListColors"), std::string("mauve"));
}

void FrmCustomizerTest::theSoundIsPlayed() {
  Desk desk;
  desk.files.files["/home/ann/bell.ogg"] = "OggS";
  desk.Open().ShowPage(OptionPage::kAlarms);
  desk.Enter("txtAlarmPath", "/home/ann/bell.ogg");
  desk.Click("cmdPlay");
  desk.Click("cmdStop");
  QCOMPARE(desk.sound.calls, (std::vector<std::string>{"media /home/ann/bell.ogg", "stop"}));
  desk.Enter("txtAlarmPath", "/home/ann/none.ogg");
  desk.Click("cmdPlay");
  QCOMPARE(desk.Label("lblAlarmPathNote").remove(QChar(0x200B)),
           QStringLiteral("There is no file /home/ann/none.ogg."));
  QVERIFY(desk.The<QLabel>("lblAlarmPathNote")->isVisible());
}

void FrmCustomizerTest::theSoundsThatPlayHereAreOffered() {
  QCOMPARE(SoundFilter({"wav", "mp3", "wma", "mid"}),
           QStringLiteral("Sounds (*.wav *.mp3 *.wma *.mid);;All files (*)"));
}

void FrmCustomizerTest::startsWithTheComputer() {
  Desk desk;
  desk.Open();
  desk.autostart.on = true;  // by somebody else
  desk.window->ShowPage(OptionPage::kStart);
  auto* const check = desk.The<QCheckBox>("chkAutostart");
  QVERIFY(check->isChecked());
  QVERIFY(!desk.The<QPushButton>("cmdApply")->isEnabled());
  desk.Click("chkAutostart");
  QVERIFY(desk.autostart.on);
  desk.Click("cmdApply");
  QVERIFY(!desk.autostart.on);
  desk.window->ShowPage(OptionPage::kList);
  desk.autostart.on = true;
  desk.window->ShowPage(OptionPage::kStart);
  QVERIFY(check->isChecked());
}

void FrmCustomizerTest::theWayBackSavesAndStarts() {
  Desk desk;
  int starts = 0;
  QString word;
  desk.session().StartReminder = [&] {
    word = desk.Word();
    // The reminder program removes it as it starts.
    [&] { QVERIFY(desk.settings.Delete("Customizer", "JustExited").ok()); }();
    return ++starts > 0;
  };
  QSignalSpy ended(&desk.Open(), &frmCustomizer::Ended);
  desk.Enter("txtFontSize", "1000");
  desk.Click("cmdReminder");
  QCOMPARE(starts, 0);
  QVERIFY(desk.The<QLineEdit>("txtFontSize")->hasFocus());
  desk.Enter("txtFontSize", "14");
  desk.Click("cmdReminder");
  QCOMPARE(starts, 1);
  QCOMPARE(ended.count(), 1);
  QCOMPARE(desk.settings.At("Settings", "FontSize"), std::string("14"));
  QCOMPARE(word, QStringLiteral("true"));
  QCOMPARE(desk.Word(), QStringLiteral("(missing)"));
}

void FrmCustomizerTest::theWayBackSaysWhatItDoes() {
  for (const bool runs : {false, true}) {
    Desk desk;
    desk.reminder.anotherRuns = runs;
    desk.Open();
    const QString closed =
        runs ? QString() : QStringLiteral("Tidewarden is not running. OK and Cancel leave it so.");
    auto* const button = desk.The<QPushButton>("cmdReminder");
    QCOMPARE(button->text(), QStringLiteral("Show the &reminders"));
    QCOMPARE(desk.Label("lblStatus"), closed);
    desk.Click("chkShowLessThan");
    QCOMPARE(button->text(), QStringLiteral("Save and show the &reminders"));
    QCOMPARE(button->accessibleName(), QStringLiteral("Save and show the reminders"));
    desk.Click("chkShowLessThan");
    QCOMPARE(button->text(), QStringLiteral("Show the &reminders"));
    QCOMPARE(desk.Label("lblStatus"), closed);
  }
}

void FrmCustomizerTest::fontsAreStoredAsTheyStandInTheBox() {
  const QString family = QFontDatabase::families().value(0);
  QVERIFY(family.size() > 3);
  for (const char* const name : {"FontName", "MonthFontName", "EventFontName"}) {
    Desk desk;
    desk.Open().ShowPage(AllOptions()[IndexOfOption(name)].page);
    const QByteArray box = QByteArray("txt") + name;
    // The beginning of a font that is installed.
    desk.Enter(box, family.left(3).toLower().toLatin1());
    const QString shown = desk.The<QLineEdit>(box)->text();
    desk.Click("cmdApply");
    QCOMPARE(QString::fromStdString(desk.Text(name)), shown);
    QCOMPARE(shown, family.left(3).toLower());
  }
}

void FrmCustomizerTest::aSoundThatCannotBePlayedIsTold() {
  Desk desk;
  desk.files.files["/home/ann/notes.wav"] = "no sound";
  desk.Open().ShowPage(OptionPage::kAlarms);
  desk.Enter("txtAlarmPath", "/home/ann/notes.wav");
  desk.sound.problem = "/home/ann/notes.wav: cannot be played";
  desk.sound.complain = [&](const std::string& text) { desk.session().TellSoundProblem(text); };
  desk.Click("cmdPlay");
  QCOMPARE(desk.Label("lblAlarmPathNote").remove(QChar(0x200B)),
           QStringLiteral("You hear the beep of the system: /home/ann/notes.wav: cannot be "
                          "played."));
  QVERIFY(desk.The<QLabel>("lblAlarmPathNote")->isVisible());
  desk.sound.problem.clear();
  desk.Click("cmdPlay");
  QVERIFY(!desk.The<QLabel>("lblAlarmPathNote")->isVisible());
}

void FrmCustomizerTest::aLogoutAsksNothing() {
  Desk desk;
  QSignalSpy ended(&desk.Open(), &frmCustomizer::Ended);
  desk.Click("chkShowLessThan");
  // What the login session sends once it really ends; asked before that, others may still refuse.
  QEvent quit(QEvent::Quit);
  QCoreApplication::sendEvent(qApp, &quit);
  desk.window->close();
  QVERIFY(desk.messages.shown.empty());
  QVERIFY(desk.window->isHidden());
  QCOMPARE(ended.count(), 1);
  QCOMPARE(desk.Word(), QStringLiteral("false"));
}

void FrmCustomizerTest::mayGoWhileABoxHasTheFocus() {
  Desk desk;
  desk.Open();
  desk.Enter("txtTitlebarText", "Mine");
  QVERIFY(desk.The<QLineEdit>("txtTitlebarText")->hasFocus());
  desk.window.reset();
  QCOMPARE(desk.Text("TitlebarText"), std::string("Mine"));
}

void FrmCustomizerTest::aFailedSaveKeepsTheWindow() {
  Desk desk;
  desk.reminder.anotherRuns = true;
  desk.Open();
  desk.Click("chkShowLessThan");
  desk.settings.failure = StatusKind::kNoSpace;
  desk.Click("cmdOk");
  QVERIFY(desk.window->isVisible());
  QCOMPARE(desk.messages.shown,
           (std::vector<std::string>{"Nothing has been saved: the disk is full."}));
  QCOMPARE(desk.Label("lblStatus"), QString());
  QVERIFY(desk.The<QCheckBox>("chkShowLessThan")->isChecked());
}

}  // namespace tidewarden

QTEST_MAIN(tidewarden::FrmCustomizerTest)
#include "frm_customizer_test.moc"
