// The options window, by the names of its controls.
#include <QAbstractButton>
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
#include <QScrollArea>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QStyleOptionButton>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <memory>

#include "customizer/frm_customizer.h"
#include "tests/customizer/options_desk.h"
#include "tests/support/source_folder.h"

namespace tidewarden {
namespace {

using test::OptionsDesk;

// A window over options in memory, on the screen.
struct Desk : OptionsDesk {
  std::unique_ptr<frmCustomizer> window;

  frmCustomizer& Open() {
    window = std::make_unique<frmCustomizer>(session());
    window->show();
    [this] { QVERIFY(QTest::qWaitForWindowExposed(window.get())); }();
    return *window;
  }

  template <typename Widget>
  Widget* The(const char* name) {
    auto* const found = window->findChild<Widget*>(QLatin1String(name));
    [&] { QVERIFY2(found != nullptr, name); }();
    return found;
  }
  void Click(const char* name) { QTest::mouseClick(The<QAbstractButton>(name), Qt::LeftButton); }
  void Enter(const char* name, const char* text) {
    auto* const box = The<QLineEdit>(name);
    box->setFocus();
    box->selectAll();
    QTest::keyClick(box, Qt::Key_Delete);
    QTest::keyClicks(box, QLatin1String(text));
  }
  [[nodiscard]] QString Label(const char* name) { return The<QLabel>(name)->text(); }
  [[nodiscard]] QStringList PreviewRows() {
    QStringList rows;
    const auto* const model = The<QListView>("lstPreview")->model();
    for (int i = 0; i < model->rowCount(); ++i) rows << model->index(i, 0).data().toString();
    return rows;
  }
  [[nodiscard]] QString Word() {
    return QString::fromStdString(settings.At("Customizer", "JustExited"));
  }
};

// Picks an item of a list as a user does.
void Pick(QComboBox* list, const QString& text) {
  list->setCurrentIndex(list->findText(text));
  QVERIFY(QMetaObject::invokeMethod(list, "activated", Q_ARG(int, list->currentIndex())));
}

double Luminance(const QColor& color) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
         0.0722 * linear(color.blueF());
}

double Contrast(const QColor& one, const QColor& other) {
  const double a = Luminance(one) + 0.05;
  const double b = Luminance(other) + 0.05;
  return std::max(a, b) / std::min(a, b);
}

std::string SkinOfTheProgram() {
  QFile file(QString::fromStdString((test::SourceFolder() / "skin/winaqua.skn").string()));
  return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

}  // namespace

class FrmCustomizerTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void showsEveryOptionByItsName();
  void everyHelpStandsOnOneLine_data();
  void everyHelpStandsOnOneLine();
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
  void helpOpensTheGuide();
  void escapeAsksBeforeChangesAreLost();
  void aLogoutAsksNothing();
  void mayGoWhileABoxHasTheFocus();
  void aFailedSaveKeepsTheWindow();
  void enterPressesTheButtonThatHasTheFocus();
  void enterElsewhereMeansOk();
  void keysReachEveryControlInTheOrderOfReading();
  void keysTurnThePages();
  void everyControlHasAName();
  void theWheelTurnsThePageNotTheLists();
  void textsAreShownAsTheyAre();
  void textsStandOutFromEveryDesktop_data();
  void textsStandOutFromEveryDesktop();
  void everythingOfAPageBeginsOnOneLine_data();
  void everythingOfAPageBeginsOnOneLine();
  void nothingIsCut_data();
  void nothingIsCut();
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

void FrmCustomizerTest::everyHelpStandsOnOneLine_data() {
  QTest::addColumn<bool>("skin");
  QTest::newRow("skin") << true;
  QTest::newRow("plain") << false;
}

// In the size in which the window comes up. Where a file is meant, the path of the default may be
// long.
void FrmCustomizerTest::everyHelpStandsOnOneLine() {
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

void FrmCustomizerTest::helpOpensTheGuide() {
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

void FrmCustomizerTest::escapeAsksBeforeChangesAreLost() {
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

void FrmCustomizerTest::enterPressesTheButtonThatHasTheFocus() {
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

void FrmCustomizerTest::enterElsewhereMeansOk() {
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

void FrmCustomizerTest::keysReachEveryControlInTheOrderOfReading() {
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

void FrmCustomizerTest::keysTurnThePages() {
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

void FrmCustomizerTest::everyControlHasAName() {
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

void FrmCustomizerTest::theWheelTurnsThePageNotTheLists() {
  Desk desk;
  desk.Open().ShowPage(OptionPage::kLooks);
  auto* const colours = desk.The<QComboBox>("cmbReminderListColors");
  desk.The<QListWidget>("lstPages")->setFocus();
  QWheelEvent event(QPointF(5, 5), colours->mapToGlobal(QPointF(5, 5)), {}, QPoint(0, -120), {}, {},
                    Qt::NoScrollPhase, false);
  QApplication::sendEvent(colours, &event);
  QCOMPARE(colours->currentText(), QStringLiteral("Pale green"));
}

void FrmCustomizerTest::textsAreShownAsTheyAre() {
  Desk desk;
  desk.Set("Options", "AlarmPath", "/home/<b>ann</b>/x.wav");
  desk.Open();
  for (auto* const label : desk.window->findChildren<QLabel*>()) {
    QCOMPARE(label->textFormat(), Qt::PlainText);
  }
}

void FrmCustomizerTest::textsStandOutFromEveryDesktop_data() {
  QTest::addColumn<QColor>("window");
  QTest::addColumn<QColor>("text");
  QTest::newRow("light") << QColor(0xEF, 0xEF, 0xEF) << QColor(Qt::black);
  QTest::newRow("dark") << QColor(0x2B, 0x2B, 0x2B) << QColor(0xEE, 0xEE, 0xEE);
  QTest::newRow("black") << QColor(Qt::black) << QColor(Qt::white);
}

// The Web Content Accessibility Guidelines (2.1) ask for 4.5 to 1.
void FrmCustomizerTest::textsStandOutFromEveryDesktop() {
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
    QVERIFY2(Contrast(color, window) >= 4.5, name);
  }
  QVERIFY(desk.The<QLabel>("lblLevelsOfBackupNote")->palette().color(QPalette::WindowText) != text);
}

void FrmCustomizerTest::everythingOfAPageBeginsOnOneLine_data() {
  QTest::addColumn<bool>("skin");
  QTest::newRow("skin") << true;
  QTest::newRow("plain") << false;
}

// Boxes, labels, fields and headings. Also after the skin has been turned on and off.
void FrmCustomizerTest::everythingOfAPageBeginsOnOneLine() {
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

void FrmCustomizerTest::nothingIsCut_data() {
  QTest::addColumn<bool>("skin");
  QTest::addColumn<bool>("smallest");
  QTest::newRow("skin") << true << false;
  QTest::newRow("plain") << false << false;
  QTest::newRow("skin, smallest") << true << true;
  QTest::newRow("plain, smallest") << false << true;
}

// On every page each control has the room that it asks for, and lies inside the page's width.
void FrmCustomizerTest::nothingIsCut() {
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

QTEST_MAIN(tidewarden::FrmCustomizerTest)
#include "frm_customizer_test.moc"
