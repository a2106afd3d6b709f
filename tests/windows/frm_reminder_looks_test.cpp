// The colours, fonts, skin and quote of the reminder window.
#include <QHelpEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextDocument>
#include <QToolButton>
#include <QToolTip>
#include <cstdlib>

#include "tests/windows/contrast.h"
#include "tests/windows/reminder_world.h"

namespace tidewarden {
namespace {

struct Desk {
  World world{"12.25,Christmas,14,yearly\r\n"};
  std::unique_ptr<StartedWindow> window;

  Desk() {
    world.Set("Settings", "Left", "0");
    world.Set("Settings", "Top", "0");
    world.Set("Settings", "Width", "6000");
    world.Set("Settings", "Height", "6000");
  }
  void Start() {
    QVERIFY(world.Load());
    window = std::make_unique<StartedWindow>(world);
  }
  void ShowQuotes(const char* quotes) {
    world.files.files[kQuotesPath] = quotes;
    world.Set("Options", "ShowDailyQuotes", "True");
  }
  [[nodiscard]] QPlainTextEdit* quote() const {
    return Find<QPlainTextEdit>(*window, "txtDailyQuote");
  }

  // What is drawn in a part of the list.
  [[nodiscard]] QImage Picture(const QRect& part) const {
    const QPoint origin = ListOf(*window)->viewport()->mapTo(window.get(), QPoint());
    return window->grab(part.translated(origin)).toImage();
  }
  [[nodiscard]] QColor EmptyArea() const {
    return Picture({BesideTheRows(*window), QSize(1, 1)}).pixelColor(0, 0);
  }
  [[nodiscard]] QImage Row(int row) const {
    return Picture(ListOf(*window)->visualRect(ListOf(*window)->model()->index(row, 0)));
  }
};

// In a place that counts pixels of an ordinary screen.
QColor ColourAt(const QImage& picture, QPoint place) {
  const QPointF middle = (QPointF(place) + QPointF(0.5, 0.5)) * picture.devicePixelRatio();
  return picture.pixelColor(static_cast<int>(middle.x()), static_cast<int>(middle.y()));
}

bool Contains(const QImage& picture, const QColor& colour) {
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      if (picture.pixelColor(x, y) == colour) return true;
    }
  }
  return false;
}

bool ContainsNearly(const QImage& picture, const QColor& colour) {
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      const QColor found = picture.pixelColor(x, y);
      const int difference = std::abs(found.red() - colour.red()) +
                             std::abs(found.green() - colour.green()) +
                             std::abs(found.blue() - colour.blue());
      if (difference < 0x40) return true;
    }
  }
  return false;
}

QPalette DarkDesktop() {
  return Desktop(QColor(0x2a, 0x2e, 0x32), QColor(0x1b, 0x1e, 0x20), QColor(0xfc, 0xfc, 0xfc));
}
QPalette LightDesktop() {
  return Desktop(QColor(0xef, 0xf0, 0xf1), QColor(0xff, 0xff, 0xff), QColor(0x23, 0x26, 0x29));
}

// The colours of the desktop while it lives.
class DesktopColours {
 public:
  explicit DesktopColours(const QPalette& palette) { QApplication::setPalette(palette); }
  DesktopColours(const DesktopColours&) = delete;
  DesktopColours& operator=(const DesktopColours&) = delete;
  ~DesktopColours() { QApplication::setPalette(former_); }

 private:
  QPalette former_ = QApplication::palette();
};

}  // namespace

class FrmReminderLooksTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // The slots are called by name.
  void drawsTheListInItsColours_data();
  void drawsTheListInItsColours();
  void aSelectedRowHasTheColoursTheOtherWayRound();
  void drawsNewRandomColoursWhenItComesBack();
  void followsTheDesktopsColours();
  void canBeReadOnADarkDesktop();
  void usesTheFontOfTheSettings();
  void keepsTheDesignedSizeForSizesBelowOne();
  void showsTheSkinOfTheProgram();
  void showsNoSkinWithoutTheFileOrTheWish_data();
  void showsNoSkinWithoutTheFileOrTheWish();
  void theOrangeButtonIsRoundAndOrange_data();
  void theOrangeButtonIsRoundAndOrange();
  void aSkinThatNamesTheOrangeButtonDressesIt();
  void theOrangeButtonShowsTheKeyboard();
  void fewRowsAreNotHiddenByABar();
  void tellsTheWholeOfARowThatIsCut();
  void tellsTheWholeOfARowThatTheKeyboardChooses();
  void showsTheQuoteOnItsLines();
  void showsMarkupInAQuoteAsItWasTyped();
  void anotherQuoteComesWithEveryClick();
  void hasNoBoxWithoutAQuote_data();
  void hasNoBoxWithoutAQuote();
  void theQuoteComesAndGoesWithABuild();
};

void FrmReminderLooksTest::drawsTheListInItsColours_data() {
  QTest::addColumn<QByteArray>("name");
  QTest::addColumn<QColor>("background");
  QTest::addColumn<QColor>("text");
  const struct {
    const char* name;
    const char* background;
    const char* text;
  } colours[] = {
      {"pale red", "#FFCCCC", "#000000"},      {"red", "#CC0000", "#FFFFFF"},
      {"pale orange", "#FFCC66", "#000000"},   {"orange", "#FF9900", "#000000"},
      {"pale yellow", "#FFFFCC", "#000000"},   {"yellow", "#FFFF00", "#000000"},
      {"pale green", "#99FF99", "#000000"},    {"green", "#009900", "#FFFFFF"},
      {"pale blue", "#CCCCFF", "#000000"},     {"blue", "#000099", "#FFFFFF"},
      {"pale violet", "#FF99FF", "#000000"},   {"violet", "#990099", "#FFFFFF"},
      {"white", "#FFFFFF", "#000000"},         {"black", "#000000", "#FFFFFF"},
      {"GREEN", "#009900", "#FFFFFF"},         {"FF0000,FFFFFF", "#FFFFFF", "#FF0000"},
      {"00ff7f 102030", "#102030", "#00FF7F"},
  };
  for (const auto& colour : colours) {
    QTest::newRow(colour.name) << QByteArray(colour.name)
                               << QColor(QLatin1String(colour.background))
                               << QColor(QLatin1String(colour.text));
  }
  const QPalette system = QApplication::palette();
  for (const char* const name : {"system", " green", "no such colour", "+F0000,FFFFFF"}) {
    QTest::newRow(name) << QByteArray(name) << system.color(QPalette::Base)
                        << system.color(QPalette::Text);
  }
}

void FrmReminderLooksTest::drawsTheListInItsColours() {
  QFETCH(QByteArray, name);
  QFETCH(QColor, background);
  QFETCH(QColor, text);
  for (const bool skinned : {false, true}) {
    Desk desk;
    if (skinned) desk.world.files.files[kSkinPath] = SkinOfTheProgram();
    desk.world.Set("Options", "ReminderListColors", name.toStdString());
    desk.world.Set("Settings", "FontSize", "18");
    desk.world.Set("Settings", "FontBold", "True");
    desk.Start();
    QCOMPARE(desk.EmptyArea().name(), background.name());
    const QImage row = desk.Row(0);
    QVERIFY(Contains(row, background));
    QVERIFY(Contains(row, text));
  }
}

void FrmReminderLooksTest::aSelectedRowHasTheColoursTheOtherWayRound() {
  for (const bool skinned : {false, true}) {
    Desk desk;
    if (skinned) desk.world.files.files[kSkinPath] = SkinOfTheProgram();
    desk.world.Set("Options", "ReminderListColors", "blue");
    desk.world.Set("Settings", "Width", "12000");
    desk.world.Set("Settings", "FontSize", "18");
    desk.world.Set("Settings", "FontBold", "True");
    desk.Start();
    ListOf(*desk.window)->setCurrentIndex(ListOf(*desk.window)->model()->index(1, 0));
    // At the row's end there is no text; some styles shade a chosen row a little.
    const QImage row = desk.Row(1);
    const QColor background = row.pixelColor(row.width() - 4, row.height() / 2);
    QVERIFY2(background.lightness() > 0xE0, qPrintable(background.name()));
    QVERIFY(ContainsNearly(row, QColor(0, 0, 0x99)));
  }
}

void FrmReminderLooksTest::drawsNewRandomColoursWhenItComesBack() {
  Desk desk;
  desk.world.Set("Options", "ReminderListColors", "random");
  desk.world.random.draws = {0.0, 0.999};
  desk.Start();
  QCOMPARE(desk.EmptyArea().name(), QStringLiteral("#ffcccc"));
  desk.window->RestoreFromTray();
  QCOMPARE(desk.EmptyArea(), QApplication::palette().color(QPalette::Base));
  QCOMPARE(desk.world.settings.At("Options", "ReminderListColors"), "random");
}

void FrmReminderLooksTest::followsTheDesktopsColours() {
  Desk desk;
  desk.world.Set("Options", "ReminderListColors", "system");
  desk.world.Set("Settings", "FontSize", "18");
  desk.world.Set("Settings", "FontBold", "True");
  desk.Start();
  for (const QPalette& desktop : {DarkDesktop(), LightDesktop(), DarkDesktop()}) {
    const DesktopColours colours(desktop);
    const QColor base = desktop.color(QPalette::Base);
    const QColor text = desktop.color(QPalette::Text);
    QTRY_COMPARE(desk.EmptyArea().name(), base.name());
    QVERIFY(Contains(desk.Row(1), base));
    QVERIFY(Contains(desk.Row(1), text));
  }
}

void FrmReminderLooksTest::canBeReadOnADarkDesktop() {
  const QPalette desktop = DarkDesktop();
  const DesktopColours colours(desktop);
  Desk desk;
  desk.world.Set("Options", "ReminderListColors", "system");
  desk.world.Set("Settings", "Width", "12000");
  desk.world.Set("Settings", "FontSize", "18");
  desk.world.Set("Settings", "FontBold", "True");
  desk.Start();
  const QColor window = desk.window->grab(QRect(0, 0, 1, 1)).toImage().pixelColor(0, 0);
  QCOMPARE(window.name(), desktop.color(QPalette::Window).name());

  const auto* const date = Find<QLabel>(*desk.window, "sknDate");
  const QImage datePicture = desk.window->grab(date->geometry()).toImage();
  QVERIFY(BestContrast(datePicture, window) >= kTextContrast);

  ListOf(*desk.window)->setCurrentIndex(ListOf(*desk.window)->model()->index(1, 0));
  const QImage row = desk.Row(1);
  const QColor chosen = row.pixelColor(row.width() - 4, row.height() / 2);
  QVERIFY(Contrast(chosen, desk.EmptyArea()) >= kLineContrast);
  QVERIFY(BestContrast(row, chosen) >= kTextContrast);

  const auto* const button = Find<QToolButton>(*desk.window, "cmdTray");
  const QImage picture = desk.window->grab(button->geometry()).toImage();
  const QColor orange = ColourAt(picture, {4, 10});
  QVERIFY(Contrast(orange, window) >= kLineContrast);
  QVERIFY(BestContrast(picture.copy(QRect(QPoint(4, 4) * picture.devicePixelRatio(),
                                          QSize(12, 12) * picture.devicePixelRatio())),
                       orange) >= kTextContrast);
}

void FrmReminderLooksTest::usesTheFontOfTheSettings() {
  Desk desk;
  desk.world.Set("Settings", "FontName", "DejaVu Sans Mono");
  desk.world.Set("Settings", "FontBold", "True");
  desk.world.Set("Settings", "FontItalic", "True");
  desk.world.Set("Settings", "FontSize", "14.9");
  desk.world.files.files[kSkinPath] = SkinOfTheProgram();
  desk.Start();
  for (const char* const name : {"List1", "txtDailyQuote"}) {
    const QFont font = Find<QWidget>(*desk.window, name)->font();
    QCOMPARE(font.family(), QStringLiteral("DejaVu Sans Mono"));
    QVERIFY(font.bold());
    QVERIFY(font.italic());
    QCOMPARE(font.pointSize(), 14);
  }
  QVERIFY(Find<QLabel>(*desk.window, "sknDate")->font().family() !=
          QStringLiteral("DejaVu Sans Mono"));
}

void FrmReminderLooksTest::keepsTheDesignedSizeForSizesBelowOne() {
  for (const char* const size : {"0", "-3", "0.9", "big"}) {
    Desk desk;
    desk.world.Set("Settings", "FontSize", size);
    desk.Start();
    QCOMPARE(ListOf(*desk.window)->font().pointSize(), 8);
    QCOMPARE(desk.world.settings.At("Settings", "FontSize"), size);
  }
}

void FrmReminderLooksTest::showsTheSkinOfTheProgram() {
  const std::string skin = SkinOfTheProgram();
  QVERIFY(!skin.empty());
  Desk desk;
  desk.world.files.files[kSkinPath] = skin;
  desk.Start();
  QCOMPARE(desk.window->styleSheet(), QString::fromStdString(skin));
  // The skin's teal on the button; nothing like it without the skin.
  const QColor teal(0x0d, 0x65, 0x80);
  auto* const button = Find<QWidget>(*desk.window, "cmdGoToEdit");
  QVERIFY(Contains(button->grab().toImage(), teal));
  Desk plain;
  plain.Start();
  QVERIFY(!Contains(Find<QWidget>(*plain.window, "cmdGoToEdit")->grab().toImage(), teal));
}

void FrmReminderLooksTest::showsNoSkinWithoutTheFileOrTheWish_data() {
  QTest::addColumn<QByteArray>("useSkin");
  QTest::addColumn<QByteArray>("file");
  QTest::newRow("no file") << QByteArray("True") << QByteArray();
  QTest::newRow("no wish") << QByteArray("FALSE") << QByteArray("QWidget { color: red; }");
  QTest::newRow("no text") << QByteArray("True") << QByteArray("QWidget { color: red; }\0", 24);
  QTest::newRow("no sheet") << QByteArray("True") << QByteArray("Dear diary, today");
  QTest::newRow("half a sheet") << QByteArray("True")
                                << QByteArray("QWidget { color: red; } #List1 { color");
}

void FrmReminderLooksTest::showsNoSkinWithoutTheFileOrTheWish() {
  QFETCH(QByteArray, useSkin);
  QFETCH(QByteArray, file);
  Desk desk;
  if (!file.isEmpty()) desk.world.files.files[kSkinPath] = file.toStdString();
  desk.world.Set("Options", "UseSkin", useSkin.toStdString());
  desk.Start();
  QCOMPARE(desk.window->styleSheet(), QString());
  QVERIFY(desk.world.messages.shown.empty());
  const auto* const button = Find<QToolButton>(*desk.window, "cmdTray");
  const QImage picture = desk.window->grab(button->geometry()).toImage();
  QCOMPARE(ColourAt(picture, {4, 10}), QColor(0xf3, 0x9a, 0x35));
}

void FrmReminderLooksTest::theOrangeButtonIsRoundAndOrange_data() {
  QTest::addColumn<QByteArray>("skin");
  QTest::newRow("plain") << QByteArray();
  QTest::newRow("skinned") << QByteArray::fromStdString(SkinOfTheProgram());
  QTest::newRow("another skin") << QByteArray("QPushButton { color: #102030; }");
  QTest::newRow("a skin with other buttons") << QByteArray(
      "QToolButton, QToolButton:hover { background: #00ff00; border: none;"
      " border-radius: 0; margin: 3px; padding: 9px; min-width: 90px;"
      " max-height: 9px; }");
}

void FrmReminderLooksTest::theOrangeButtonIsRoundAndOrange() {
  QFETCH(QByteArray, skin);
  Desk desk;
  if (!skin.isEmpty()) desk.world.files.files[kSkinPath] = skin.toStdString();
  desk.Start();
  QCOMPARE(desk.window->styleSheet(), QString::fromUtf8(skin));
  const auto* const button = Find<QToolButton>(*desk.window, "cmdTray");
  QCOMPARE(button->size(), QSize(20, 20));
  const QImage picture = desk.window->grab(button->geometry()).toImage();
  const QColor window = desk.window->grab(QRect(0, 0, 1, 1)).toImage().pixelColor(0, 0);
  QCOMPARE(ColourAt(picture, {0, 0}), window);
  QCOMPARE(ColourAt(picture, {19, 19}), window);
  // Left of the arrow, inside the rim.
  QCOMPARE(ColourAt(picture, {4, 10}), QColor(0xf3, 0x9a, 0x35));
  QVERIFY(Contains(picture, QColor(0x2b, 0x15, 0x00)));
}

void FrmReminderLooksTest::aSkinThatNamesTheOrangeButtonDressesIt() {
  Desk desk;
  desk.world.files.files[kSkinPath] = "#cmdTray { background: #00ff00; border: none; }";
  desk.Start();
  const auto* const button = Find<QToolButton>(*desk.window, "cmdTray");
  const QImage picture = desk.window->grab(button->geometry()).toImage();
  QCOMPARE(ColourAt(picture, {4, 10}), QColor(0x00, 0xff, 0x00));
  QCOMPARE(ColourAt(picture, {0, 0}), QColor(0x00, 0xff, 0x00));
}

void FrmReminderLooksTest::theOrangeButtonShowsTheKeyboard() {
  for (const bool skinned : {false, true}) {
    Desk desk;
    if (skinned) desk.world.files.files[kSkinPath] = SkinOfTheProgram();
    desk.Start();
    desk.window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(desk.window.get()));
    auto* const button = Find<QToolButton>(*desk.window, "cmdTray");
    ListOf(*desk.window)->setFocus();
    const QImage without = button->grab().toImage();
    button->setFocus(Qt::TabFocusReason);
    QTRY_VERIFY(button->hasFocus());
    const QImage with = button->grab().toImage();
    const QColor ring = desk.window->palette().color(QPalette::WindowText);
    QVERIFY(without != with);
    QCOMPARE(ColourAt(with, {10, 0}), ring);
    QVERIFY(ColourAt(without, {10, 0}) != ring);
  }
}

void FrmReminderLooksTest::fewRowsAreNotHiddenByABar() {
  World world("12.25," + std::string(120, 'W') + ",14,yearly\r\n");
  QVERIFY(world.Load());
  StartedWindow window(world);
  QVERIFY(!ListOf(window)->horizontalScrollBar()->isVisible());
  window.resize(400, 500);
  QTRY_VERIFY(ListOf(window)->horizontalScrollBar()->isVisible());
}

void FrmReminderLooksTest::tellsTheWholeOfARowThatIsCut() {
  const std::string title = "<b>" + std::string(100, 'W') + "</b>";
  World world("12.25," + title + ",14,yearly\r\n");
  QVERIFY(world.Load());
  StartedWindow window(world);
  const auto ask = [&window](QPoint place) {
    auto* const viewport = ListOf(window)->viewport();
    QHelpEvent help(QEvent::ToolTip, place, viewport->mapToGlobal(place));
    QApplication::sendEvent(viewport, &help);
    return QToolTip::isVisible() ? QToolTip::text() : QString();
  };
  QTextDocument shown;
  shown.setHtml(ask(PlaceOf(window, 1)));
  QVERIFY2(shown.toPlainText().contains(QString::fromStdString(title)),
           qPrintable(shown.toPlainText()));
  QToolTip::hideText();
  QTRY_VERIFY(!QToolTip::isVisible());
  QCOMPARE(ask(PlaceOf(window, 0)), QString());
  QCOMPARE(ask(BesideTheRows(window)), QString());
}

void FrmReminderLooksTest::tellsTheWholeOfARowThatTheKeyboardChooses() {
  const std::string title = "<b>" + std::string(100, 'W') + "</b>";
  World world("12.25," + title + ",14,yearly\r\n12.26,Short,14,yearly\r\n");
  QVERIFY(world.Load());
  StartedWindow window(world);
  auto* const list = ListOf(window);
  list->setFocus();
  list->setCurrentIndex(list->model()->index(0, 0));
  QVERIFY(!QToolTip::isVisible());
  QTest::keyClick(list, Qt::Key_Down);
  QCOMPARE(list->currentIndex().row(), 1);
  QTRY_VERIFY(QToolTip::isVisible());
  QTextDocument shown;
  shown.setHtml(QToolTip::text());
  QVERIFY2(shown.toPlainText().contains(QString::fromStdString(title)),
           qPrintable(shown.toPlainText()));
  QTest::keyClick(list, Qt::Key_Down);
  QCOMPARE(list->currentIndex().row(), 2);
  QTRY_VERIFY(!QToolTip::isVisible());
}

void FrmReminderLooksTest::showsTheQuoteOnItsLines() {
  Desk desk;
  desk.ShowQuotes("// header\r\nFirst\xC2\xACline two\r\nSecond\r\n");
  desk.world.random.draws = {0.999};
  desk.Start();
  QVERIFY(desk.quote()->isVisible());
  QVERIFY(desk.quote()->isReadOnly());
  QCOMPARE(desk.quote()->toPlainText(), QStringLiteral("First\nline two"));
  QCOMPARE(desk.quote()->blockCount(), 2);
  QCOMPARE(desk.window->size(), QSize(400, 400));
  QCOMPARE(desk.window->rect().bottom() - desk.quote()->geometry().bottom(), 5);
}

void FrmReminderLooksTest::showsMarkupInAQuoteAsItWasTyped() {
  Desk desk;
  desk.ShowQuotes("<b>bold</b> &amp; <a href='x'>more</a>\r\n");
  desk.Start();
  QCOMPARE(desk.quote()->toPlainText(), QStringLiteral("<b>bold</b> &amp; <a href='x'>more</a>"));
}

void FrmReminderLooksTest::anotherQuoteComesWithEveryClick() {
  Desk desk;
  desk.ShowQuotes("One\r\nTwo\r\nThree\r\nFour\r\n");
  desk.world.Set("Options", "ReminderListColors", "white");
  desk.world.random.draws = {0.0, 0.4, 0.8, 0.5, 0.1};
  desk.Start();
  const std::size_t seeds = desk.world.random.seeds.size();
  QCOMPARE(desk.quote()->toPlainText(), QStringLiteral("One"));
  auto* const box = desk.quote()->viewport();
  QTest::mousePress(box, Qt::LeftButton, {}, QPoint(20, 20));
  QCOMPARE(desk.quote()->toPlainText(), QStringLiteral("One"));
  QTest::mouseRelease(box, Qt::LeftButton, {}, QPoint(20, 20));
  QCOMPARE(desk.quote()->toPlainText(), QStringLiteral("Two"));  // Int(0.4 * 3) = 1
  QTest::mouseClick(box, Qt::RightButton, {}, QPoint(20, 20));
  QCOMPARE(desk.quote()->toPlainText(), QStringLiteral("Three"));  // Int(0.8 * 3) = 2
  // Released elsewhere it was no click on the quote.
  QTest::mousePress(box, Qt::LeftButton, {}, QPoint(20, 20));
  QTest::mouseRelease(box, Qt::LeftButton, {}, QPoint(20, -40));
  QCOMPARE(desk.quote()->toPlainText(), QStringLiteral("Three"));
  QTest::keyClick(desk.quote(), Qt::Key_Space);
  QCOMPARE(desk.quote()->toPlainText(), QStringLiteral("Two"));  // Int(0.5 * 3) = 1
  QCOMPARE(desk.world.random.seeds.size(), seeds);
}

void FrmReminderLooksTest::hasNoBoxWithoutAQuote_data() {
  QTest::addColumn<QByteArray>("show");
  QTest::addColumn<QByteArray>("quotes");
  QTest::newRow("off") << QByteArray("False") << QByteArray("One\r\n");
  QTest::newRow("no file") << QByteArray("True") << QByteArray();
  QTest::newRow("no quote") << QByteArray("True") << QByteArray("// nothing\r\n\r\n");
}

void FrmReminderLooksTest::hasNoBoxWithoutAQuote() {
  QFETCH(QByteArray, show);
  QFETCH(QByteArray, quotes);
  Desk desk;
  if (!quotes.isEmpty()) desk.world.files.files[kQuotesPath] = quotes.toStdString();
  desk.world.Set("Options", "ShowDailyQuotes", show.toStdString());
  desk.Start();
  QVERIFY(!desk.quote()->isVisible());
  const auto* const edit = Find<QWidget>(*desk.window, "cmdGoToEdit");
  QCOMPARE(desk.window->rect().bottom() - edit->geometry().bottom(), 5);
}

void FrmReminderLooksTest::theQuoteComesAndGoesWithABuild() {
  Desk desk;
  desk.Start();
  QVERIFY(!desk.quote()->isVisible());
  desk.ShowQuotes("One\r\n");
  desk.window->RestoreFromTray();
  QVERIFY(desk.quote()->isVisible());
  QCOMPARE(desk.window->size(), QSize(400, 400));
  QVERIFY(!ListOf(*desk.window)->geometry().intersects(desk.quote()->geometry()));
  desk.world.Set("Options", "ShowDailyQuotes", "False");
  desk.world.TickOn(*desk.window, MakeDate(2014, 12, 23));
  QVERIFY(!desk.quote()->isVisible());
}

}  // namespace tidewarden

QTEST_MAIN(tidewarden::FrmReminderLooksTest)
#include "frm_reminder_looks_test.moc"
