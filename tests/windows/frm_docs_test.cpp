// The help window, offscreen, with the guide that is built into the program.
#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextTable>
#include <algorithm>
#include <cmath>

#include "guide/frm_docs.h"
#include "guide/frm_docs_page.h"
#include "guide/markdown.h"
#include "tests/support/source_folder.h"
#include "tests/windows/contrast.h"
#include "twdocs/shipped_guide.h"

namespace tidewarden {
namespace {

const Guide& TheGuide() {
  static const Guide guide = ShippedGuide();
  return guide;
}

QString TextWithoutPictures(const Block& block) {
  if (block.kind == BlockKind::kCode || block.kind == BlockKind::kTable) {
    return QString::fromStdString(PlainText(block));
  }
  QString text;
  for (const Span& span : ReadSpans(block.text)) {
    if (span.kind != SpanKind::kPicture) text += QString::fromStdString(span.text);
  }
  return text;
}

QString SkinOfTheProgram() {
  QFile file(QString::fromStdString((test::SourceFolder() / "skin/winaqua.skn").string()));
  return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// The screen of the tests is smaller than those of people.
constexpr QSize kSizeOnALargeScreen{1000, 700};

// The window on the shipped guide.
struct HelpDesk {
  explicit HelpDesk(const char* topic = "index", const QString& skin = {})
      : session(TheGuide()), began(session.Begin(topic)), window(session) {
    window.ApplySkin(skin);
    window.OpenOutside = [this](const QString& address) { opened.append(address); };
    window.resize(kSizeOnALargeScreen);
    window.show();
    QVERIFY2(QTest::qWaitForWindowActive(&window), "the window does not come up");
    QTest::qWait(20);  // until it has scrolled
  }

  template <typename Control>
  Control* Find(const char* name) const {
    auto* control = window.findChild<Control*>(QString::fromLatin1(name));
    if (control == nullptr) qFatal("no control %s", name);
    return control;
  }
  QString Text() const { return Find<QTextBrowser>("txtText")->toPlainText(); }
  QString Title() const { return window.windowTitle(); }
  QStringList Rows() const {
    QStringList rows;
    const auto* list = Find<QListWidget>("lstTopics");
    for (int i = 0; i < list->count(); ++i) rows.append(list->item(i)->text());
    return rows;
  }
  void Click(const char* button) const {
    QTest::mouseClick(Find<QPushButton>(button), Qt::LeftButton);
  }
  void ClickRow(int row) const {
    auto* list = Find<QListWidget>("lstTopics");
    list->scrollToItem(list->item(row));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(row)).center());
  }
  void Search(const char* words) const {
    auto* box = Find<QLineEdit>("txtSearch");
    box->setFocus();
    box->clear();
    QTest::keyClicks(box, QString::fromLatin1(words));
  }
  // Where the text is scrolled to: the heading that stands nearest to its top.
  QString TopHeading() const {
    const auto* text = Find<QTextBrowser>("txtText");
    QTextBlock block = text->cursorForPosition({20, 20}).block();
    while (block.isValid() && block.blockFormat().headingLevel() == 0) block = block.previous();
    return block.text();
  }

  DocsSession session;
  bool began;
  QStringList opened;
  frmDocs window;
};

}  // namespace

class FrmDocsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void beginsAtTheContents();
  void beginsAtATopicAndItsHeading();
  void showsEveryTopicAsItIsWritten();
  void showsEveryPicture();
  void noPageScrollsSideways();
  void picturesAreAsWideAsThereIsRoom();
  void opensATopicFromTheList();
  void followsLinksInsideTheGuide();
  void leavesWebPagesToTheDesktopAndNothingElse();
  void fetchesNothing();
  void goesBackAndForwardByButtonAndKey();
  void pressesTheFocusedButtonByReturn();
  void searchesWhileTyping();
  void showsTheBestHitsFirstAfterEachLetter();
  void opensTheBestHitByEnter();
  void goesFromMatchToMatch();
  void listsTheTopicsAgainAfterASearch();
  void zoomsByKeyAndButton();
  void goesToTheSearchBoxAndCloses();
  void escapeEmptiesTheSearchBoxFirst();
  void placeholderCanBeReadOnEveryDesktop();
  void canBeReadOnADarkDesktop();
  void takesTheSkin();
  void theSkinLeavesTheTextToTheDesktop();
  void leavesNamesOfSettingsWhole();
  void namesEveryControlForScreenReaders();
  void theTopicThatIsShownIsMarkedInTheDesktopsColours();
};

void FrmDocsTest::beginsAtTheContents() {
  const HelpDesk desk;
  QCOMPARE(desk.Title(), QStringLiteral("Tidewarden - Tidewarden Help"));
  QCOMPARE(desk.Rows().size(), static_cast<qsizetype>(TheGuide().topics().size()));
  QVERIFY(desk.Rows().size() >= 16);
  QCOMPARE(desk.Find<QListWidget>("lstTopics")->currentRow(), 0);
  QVERIFY(!desk.Find<QPushButton>("cmdBack")->isEnabled());
  QVERIFY(!desk.Find<QPushButton>("cmdForward")->isEnabled());
  QVERIFY(!desk.Find<QLabel>("lblFound")->isVisible());
}

void FrmDocsTest::beginsAtATopicAndItsHeading() {
  const HelpDesk desk("events#til-done");
  QVERIFY(desk.began);
  QCOMPARE(desk.Title(), QStringLiteral("Kinds of events - Tidewarden Help"));
  QCOMPARE(desk.TopHeading(), QStringLiteral("Til done"));
  QVERIFY(!desk.Find<QPushButton>("cmdBack")->isEnabled());
  const HelpDesk lost("nonsense");
  QVERIFY(!lost.began);
  QCOMPARE(lost.Title(), QStringLiteral("Tidewarden - Tidewarden Help"));
}

// Two readers of Markdown, the engine's and Qt's, have to agree on every page.
void FrmDocsTest::showsEveryTopicAsItIsWritten() {
  for (const GuideTopic& topic : TheGuide().topics()) {
    const HelpDesk desk(topic.name.c_str());
    QString expected;
    for (const Block& block : ReadMarkdown(topic.markdown)) expected += TextWithoutPictures(block);
    QString shown = desk.Text();
    shown.remove(QChar::ObjectReplacementCharacter);
    static const QRegularExpression blanks(QStringLiteral("\\s+"));
    shown.remove(blanks);
    expected.remove(blanks);
    qsizetype same = 0;
    while (same < shown.size() && same < expected.size() && shown[same] == expected[same]) ++same;
    // The whole texts would be cut in the message.
    QCOMPARE(shown.mid(same), expected.mid(same));
  }
}

void FrmDocsTest::showsEveryPicture() {
  int pictures = 0;
  for (const GuideTopic& topic : TheGuide().topics()) {
    const HelpDesk desk(topic.name.c_str());
    auto* const text = desk.Find<QTextBrowser>("txtText");
    for (QTextBlock block = text->document()->begin(); block.isValid(); block = block.next()) {
      for (auto it = block.begin(); !it.atEnd(); ++it) {
        if (!it.fragment().charFormat().isImageFormat()) continue;
        const QString name = it.fragment().charFormat().toImageFormat().name();
        const auto picture =
            text->loadResource(QTextDocument::ImageResource, QUrl(name)).value<QImage>();
        QVERIFY2(picture.width() > 100, qPrintable(name));
        ++pictures;
      }
    }
  }
  QVERIFY(pictures >= 5);
}

void FrmDocsTest::noPageScrollsSideways() {
  for (const QString& skin : {QString(), SkinOfTheProgram()}) {
    for (const GuideTopic& topic : TheGuide().topics()) {
      const HelpDesk desk(topic.name.c_str(), skin);
      const auto* const text = desk.Find<QTextBrowser>("txtText");
      QVERIFY2(text->horizontalScrollBar()->maximum() == 0, topic.name.c_str());
    }
  }
}

// The picture of the options is the widest one: 760 pixels and the frame of the window.
void FrmDocsTest::picturesAreAsWideAsThereIsRoom() {
  HelpDesk desk("options");
  auto* const text = desk.Find<QTextBrowser>("txtText");
  const auto picture = [text] {
    for (QTextBlock block = text->document()->begin(); block.isValid(); block = block.next()) {
      for (auto it = block.begin(); !it.atEnd(); ++it) {
        if (it.fragment().charFormat().isImageFormat()) {
          return it.fragment().charFormat().toImageFormat();
        }
      }
    }
    return QTextImageFormat();
  };
  const QSizeF natural = QImage(QStringLiteral(":/guide/options.png")).size();
  QVERIFY(natural.width() > 750);
  const auto looksRight = [&] {
    const QTextImageFormat shown = picture();
    return std::abs(shown.height() / shown.width() - natural.height() / natural.width()) < 0.01;
  };
  for (const int width : {1000, 640, 1000}) {
    desk.window.resize(width, 700);
    QTest::qWait(20);
    const double room = text->viewport()->width() - 2 * text->document()->documentMargin();
    QVERIFY(picture().width() <= room);
    QVERIFY(picture().width() > room - 40);
    QVERIFY(looksRight());
  }
  // More room makes it no larger than it is.
  desk.window.resize(1600, 700);
  QTest::qWait(20);
  QCOMPARE(picture().width(), natural.width());
  QVERIFY(looksRight());
  // What it is scaled to is drawn as it is: lines and letters keep their edges.
  desk.window.resize(1000, 700);
  QTest::qWait(20);
  const QVariant scaled =
      text->document()->resource(QTextDocument::ImageResource, QUrl(picture().name()));
  QCOMPARE(scaled.value<QImage>().width(),
           std::min(natural.toSize().width(),
                    qRound(picture().width() * desk.window.devicePixelRatioF())));
}

void FrmDocsTest::opensATopicFromTheList() {
  const HelpDesk desk;
  desk.ClickRow(6);
  QCOMPARE(desk.Title(), QStringLiteral("Alarms - Tidewarden Help"));
  QVERIFY(desk.Text().startsWith(QStringLiteral("Alarms\n")));
  // By the keyboard.
  auto* const list = desk.Find<QListWidget>("lstTopics");
  list->setFocus();
  QTest::keyClick(list, Qt::Key_Down);
  QTest::keyClick(list, Qt::Key_Return);
  QCOMPARE(desk.Title(), QStringLiteral("Hiding an event - Tidewarden Help"));
}

void FrmDocsTest::followsLinksInsideTheGuide() {
  const HelpDesk desk;
  Q_EMIT desk.Find<QTextBrowser>("txtText")->anchorClicked(
      QUrl(QStringLiteral("../guide/options.md#printing")));
  QCOMPARE(desk.Title(), QStringLiteral("Options - Tidewarden Help"));
  QCOMPARE(desk.TopHeading(), QStringLiteral("Printing"));
  Q_EMIT desk.Find<QTextBrowser>("txtText")->anchorClicked(QUrl(QStringLiteral("#alarms")));
  QCOMPARE(desk.TopHeading(), QStringLiteral("Alarms"));
  QVERIFY(desk.opened.isEmpty());
}

void FrmDocsTest::leavesWebPagesToTheDesktopAndNothingElse() {
  const HelpDesk desk;
  for (const char* const link : {"https://example.org/a?b", "http://example.org/",
                                 "file:///etc/passwd", "mailto:a@example.org", "gone.md"}) {
    Q_EMIT desk.Find<QTextBrowser>("txtText")->anchorClicked(QUrl(QString::fromLatin1(link)));
  }
  QCOMPARE(desk.opened, QStringList{QStringLiteral("https://example.org/a?b")});
  QCOMPARE(desk.Title(), QStringLiteral("Tidewarden - Tidewarden Help"));
}

void FrmDocsTest::fetchesNothing() {
  const HelpDesk desk;
  auto* const text = desk.Find<QTextBrowser>("txtText");
  for (const char* const name :
       {"https://example.org/x.png", "file:///etc/hostname", "/etc/hostname", "nothing.png"}) {
    const QUrl url(QString::fromLatin1(name));
    QVERIFY(!text->loadResource(QTextDocument::ImageResource, url).isValid());
    QVERIFY(!text->loadResource(QTextDocument::HtmlResource, url).isValid());
    QVERIFY(!text->loadResource(QTextDocument::StyleSheetResource, url).isValid());
  }
}

void FrmDocsTest::goesBackAndForwardByButtonAndKey() {
  HelpDesk desk;
  desk.ClickRow(5);
  desk.ClickRow(6);
  desk.Click("cmdBack");
  QCOMPARE(desk.Title(), QStringLiteral("Feasts - Tidewarden Help"));
  desk.Click("cmdForward");
  QCOMPARE(desk.Title(), QStringLiteral("Alarms - Tidewarden Help"));
  QTest::keyClick(&desk.window, Qt::Key_Left, Qt::AltModifier);
  QTest::keyClick(&desk.window, Qt::Key_Left, Qt::AltModifier);
  QTest::keyClick(&desk.window, Qt::Key_Left, Qt::AltModifier);
  QCOMPARE(desk.Title(), QStringLiteral("Tidewarden - Tidewarden Help"));
  QTest::keyClick(&desk.window, Qt::Key_Right, Qt::AltModifier);
  QCOMPARE(desk.Title(), QStringLiteral("Feasts - Tidewarden Help"));
  QTest::keyClick(&desk.window, Qt::Key_Home, Qt::AltModifier);
  QCOMPARE(desk.Title(), QStringLiteral("Tidewarden - Tidewarden Help"));
}

void FrmDocsTest::pressesTheFocusedButtonByReturn() {
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
    const HelpDesk desk("alarms");
    const int zoom = desk.session.zoom();
    auto* const larger = desk.Find<QPushButton>("cmdLarger");
    larger->setFocus(Qt::TabFocusReason);
    QTest::keyClick(larger, key);
    QVERIFY(desk.session.zoom() > zoom);
    auto* const contents = desk.Find<QPushButton>("cmdContents");
    contents->setFocus(Qt::TabFocusReason);
    QTest::keyClick(contents, key);
    QCOMPARE(desk.Title(), QStringLiteral("Tidewarden - Tidewarden Help"));
    auto* const back = desk.Find<QPushButton>("cmdBack");
    back->setFocus(Qt::TabFocusReason);
    QTest::keyClick(back, key);
    QCOMPARE(desk.Title(), QStringLiteral("Alarms - Tidewarden Help"));
  }
}

void FrmDocsTest::searchesWhileTyping() {
  const HelpDesk desk;
  desk.Search("ShowLessThan");
  QVERIFY(desk.Find<QLabel>("lblFound")->isVisible());
  QVERIFY(desk.Find<QLabel>("lblFound")->text().contains(QStringLiteral("place")));
  QCOMPARE(desk.Rows().constFirst(), QStringLiteral("Options: The list"));
  desk.Search("xyzzy");
  QCOMPARE(desk.Find<QLabel>("lblFound")->text(), QStringLiteral("Nothing found"));
  QVERIFY(desk.Rows().isEmpty());
  // What is shown stays.
  QCOMPARE(desk.Title(), QStringLiteral("Tidewarden - Tidewarden Help"));
}

void FrmDocsTest::showsTheBestHitsFirstAfterEachLetter() {
  for (const char* const words : {"backup", "options", "alarm", "sound file"}) {
    const HelpDesk desk("questions");
    auto* const list = desk.Find<QListWidget>("lstTopics");
    auto* const box = desk.Find<QLineEdit>("txtSearch");
    list->verticalScrollBar()->setValue(list->verticalScrollBar()->maximum());
    box->setFocus();
    for (const char letter : QByteArray(words)) {
      QTest::keyClick(box, letter);
      QTest::qWait(1);
      QVERIFY2(list->count() > 0, words);
      // A row that is shown beside the list has to be seen; else the first one.
      const int row = std::max(list->currentRow(), 0);
      QVERIFY2(list->viewport()->rect().intersects(list->visualItemRect(list->item(row))), words);
      if (list->currentRow() < 0) QCOMPARE(list->verticalScrollBar()->value(), 0);
    }
  }
}

void FrmDocsTest::opensTheBestHitByEnter() {
  const HelpDesk desk;
  desk.Search("bell sounds");
  QTest::keyClick(desk.Find<QLineEdit>("txtSearch"), Qt::Key_Return);
  QCOMPARE(desk.Title(), QStringLiteral("Alarms - Tidewarden Help"));
  QVERIFY(!desk.Find<QTextBrowser>("txtText")->textCursor().selectedText().isEmpty());
  // With nothing found nothing happens.
  desk.Search("xyzzy");
  QTest::keyClick(desk.Find<QLineEdit>("txtSearch"), Qt::Key_Return);
  QCOMPARE(desk.Title(), QStringLiteral("Alarms - Tidewarden Help"));
}

void FrmDocsTest::goesFromMatchToMatch() {
  HelpDesk desk("alarms");
  desk.Search("alarm");
  auto* const text = desk.Find<QTextBrowser>("txtText");
  const auto matches = text->extraSelections();
  QVERIFY(matches.size() > 5);
  const auto position = [text] { return text->textCursor().selectionStart(); };
  QList<int> visited;
  for (qsizetype i = 0; i < matches.size(); ++i) {
    QTest::keyClick(&desk.window, Qt::Key_F3);
    QCOMPARE(text->textCursor().selectedText().toLower(), QStringLiteral("alarm"));
    visited.append(position());
  }
  QVERIFY(std::is_sorted(visited.begin(), visited.end()));
  QCOMPARE(visited.constLast(), matches.constLast().cursor.selectionStart());
  // Round the end, and back again.
  QTest::keyClick(&desk.window, Qt::Key_F3);
  QCOMPARE(position(), visited.constFirst());
  QTest::keyClick(&desk.window, Qt::Key_F3, Qt::ShiftModifier);
  QCOMPARE(position(), visited.constLast());
  QTest::keyClick(&desk.window, Qt::Key_F3, Qt::ShiftModifier);
  QCOMPARE(position(), visited.at(visited.size() - 2));
}

void FrmDocsTest::listsTheTopicsAgainAfterASearch() {
  const HelpDesk desk;
  const QStringList topics = desk.Rows();
  desk.Search("easter");
  QVERIFY(desk.Rows() != topics);
  desk.ClickRow(0);
  desk.Find<QLineEdit>("txtSearch")->clear();
  QCOMPARE(desk.Rows(), topics);
  QCOMPARE(desk.Find<QListWidget>("lstTopics")->currentItem()->text(), QStringLiteral("Feasts"));
  QVERIFY(desk.Find<QTextBrowser>("txtText")->extraSelections().isEmpty());
}

void FrmDocsTest::zoomsByKeyAndButton() {
  HelpDesk desk;
  const auto size = [&desk] {
    return desk.Find<QTextBrowser>("txtText")->document()->defaultFont().pointSizeF();
  };
  const double usual = size();
  desk.Click("cmdLarger");
  QVERIFY(qFuzzyCompare(size(), usual * 1.1));
  QTest::keyClick(&desk.window, Qt::Key_Plus, Qt::ControlModifier);
  QTest::keyClick(&desk.window, Qt::Key_Equal, Qt::ControlModifier);
  QVERIFY(qFuzzyCompare(size(), usual * 1.3));
  QTest::keyClick(&desk.window, Qt::Key_0, Qt::ControlModifier);
  QVERIFY(qFuzzyCompare(size(), usual));
  QTest::keyClick(&desk.window, Qt::Key_Minus, Qt::ControlModifier);
  QVERIFY(qFuzzyCompare(size(), usual * 0.9));
  for (int i = 0; i < 20; ++i) desk.Click("cmdSmaller");
  QVERIFY(!desk.Find<QPushButton>("cmdSmaller")->isEnabled());
}

void FrmDocsTest::goesToTheSearchBoxAndCloses() {
  HelpDesk desk;
  QTest::keyClick(&desk.window, Qt::Key_F, Qt::ControlModifier);
  QVERIFY(desk.Find<QLineEdit>("txtSearch")->hasFocus());
  QTest::keyClick(&desk.window, Qt::Key_Escape);
  QVERIFY(!desk.window.isVisible());
}

void FrmDocsTest::escapeEmptiesTheSearchBoxFirst() {
  HelpDesk desk;
  desk.Search("bell");
  QTest::keyClick(desk.Find<QLineEdit>("txtSearch"), Qt::Key_Escape);
  QVERIFY(desk.window.isVisible());
  QCOMPARE(desk.Find<QLineEdit>("txtSearch")->text(), QString());
  QCOMPARE(desk.Rows().size(), static_cast<qsizetype>(TheGuide().topics().size()));
  QTest::keyClick(desk.Find<QLineEdit>("txtSearch"), Qt::Key_Escape);
  QVERIFY(!desk.window.isVisible());
}

void FrmDocsTest::placeholderCanBeReadOnEveryDesktop() {
  for (const QPalette& desktop :
       {Desktop(QColor(0xEF, 0xEF, 0xEF), Qt::white, Qt::black),
        Desktop(QColor(0x2D, 0x2F, 0x31), QColor(0x1D, 0x1F, 0x20), QColor(0xF0, 0xF0, 0xF0))}) {
    QApplication::setPalette(desktop);
    for (const QString& skin : {QString(), SkinOfTheProgram()}) {
      const HelpDesk desk("index", skin);
      const QPalette palette = desk.Find<QLineEdit>("txtSearch")->palette();
      const QColor text = palette.color(QPalette::PlaceholderText);
      const QColor base = palette.color(QPalette::Base);
      const float share = text.alphaF();
      const QColor seen = QColor::fromRgbF(text.redF() * share + base.redF() * (1 - share),
                                           text.greenF() * share + base.greenF() * (1 - share),
                                           text.blueF() * share + base.blueF() * (1 - share));
      QVERIFY(Contrast(seen, base) >= kTextContrast);
      QVERIFY(seen != palette.color(QPalette::Text));
    }
  }
  QApplication::setPalette(QPalette());
}

void FrmDocsTest::takesTheSkin() {
  const HelpDesk plain("alarms");
  const HelpDesk skinned("alarms", SkinOfTheProgram());
  const QColor teal(0x0D, 0x65, 0x80);
  const auto ground = [](const HelpDesk& desk) {
    const QImage picture = desk.Find<QPushButton>("cmdContents")->grab().toImage();
    return picture.pixelColor(picture.width() / 2,
                              static_cast<int>(5 * picture.devicePixelRatio()));
  };
  QVERIFY(ground(plain) != teal);
  QCOMPARE(ground(skinned), teal);
  // The topic that is shown.
  auto* const list = skinned.Find<QListWidget>("lstTopics");
  const QRect row = list->visualItemRect(list->currentItem());
  const QImage picture = list->viewport()->grab(row).toImage();
  QCOMPARE(picture.pixelColor(picture.width() - 4, picture.height() / 2), teal);
  QVERIFY(BestContrast(picture, teal) >= kTextContrast);
}

void FrmDocsTest::theSkinLeavesTheTextToTheDesktop() {
  for (const QPalette& desktop :
       {Desktop(QColor(0xEF, 0xEF, 0xEF), Qt::white, Qt::black),
        Desktop(QColor(0x2D, 0x2F, 0x31), QColor(0x1D, 0x1F, 0x20), QColor(0xF0, 0xF0, 0xF0))}) {
    QApplication::setPalette(desktop);
    const HelpDesk plain("feasts");
    const HelpDesk skinned("feasts", SkinOfTheProgram());
    for (const char* const name : {"txtText", "lstTopics"}) {
      const auto* const one = plain.Find<QAbstractScrollArea>(name);
      const auto* const other = skinned.Find<QAbstractScrollArea>(name);
      for (const auto role : {QPalette::Base, QPalette::Text}) {
        QCOMPARE(other->palette().color(role), one->palette().color(role));
      }
    }
    const QImage page = skinned.Find<QTextBrowser>("txtText")->viewport()->grab().toImage();
    QCOMPARE(page.pixelColor(2, page.height() - 3), desktop.color(QPalette::Base));
    // Links, headings and lines are coloured for the ground that they stand on.
    QCOMPARE(skinned.Find<QTextBrowser>("txtText")->toHtml(),
             plain.Find<QTextBrowser>("txtText")->toHtml());
  }
  QApplication::setPalette(QPalette());
}

void FrmDocsTest::canBeReadOnADarkDesktop() {
  HelpDesk desk("feasts");
  auto* const text = desk.Find<QTextBrowser>("txtText");
  QPalette dark = text->palette();
  dark.setColor(QPalette::Base, QColor(0x1D, 0x1F, 0x20));
  dark.setColor(QPalette::Text, QColor(0xF0, 0xF0, 0xF0));
  for (const QPalette& palette : {text->palette(), dark}) {
    text->setPalette(palette);
    const int base = palette.color(QPalette::Base).lightness();
    int links = 0;
    for (QTextBlock block = text->document()->begin(); block.isValid(); block = block.next()) {
      for (auto it = block.begin(); !it.atEnd(); ++it) {
        const QTextCharFormat format = it.fragment().charFormat();
        if (!format.isAnchor()) continue;
        QVERIFY(std::abs(format.foreground().color().lightness() - base) > 90);
        ++links;
      }
      const QTextTable* table = QTextCursor(block).currentTable();
      if (table == nullptr) continue;
      const QColor head = table->cellAt(0, 0).format().background().color();
      QVERIFY(std::abs(head.lightness() - base) < 40);
    }
    if (links == 0) {
      Q_EMIT text->anchorClicked(QUrl(QStringLiteral("index.md")));
    }
  }
}

void FrmDocsTest::leavesNamesOfSettingsWhole() {
  const HelpDesk desk("options");
  const auto* const text = desk.Find<QTextBrowser>("txtText");
  int names = 0;
  for (QTextBlock block = text->document()->begin(); block.isValid(); block = block.next()) {
    const QTextTable* table = QTextCursor(block).currentTable();
    if (table == nullptr || table->cellAt(QTextCursor(block)).column() != 0) continue;
    QVERIFY2(block.layout()->lineCount() == 1, qPrintable(block.text()));
    ++names;
  }
  QVERIFY(names > 45);
}

void FrmDocsTest::namesEveryControlForScreenReaders() {
  const HelpDesk desk;
  desk.Search("bell");
  for (const char* const name : {"cmdBack", "cmdForward", "cmdContents", "cmdSmaller", "cmdLarger",
                                 "txtSearch", "lblFound", "lstTopics", "txtText"}) {
    QVERIFY2(!desk.Find<QWidget>(name)->accessibleName().isEmpty(), name);
  }
  QCOMPARE(desk.Find<QListWidget>("lstTopics")->accessibleName(), QStringLiteral("Places found"));
  QCOMPARE(desk.Find<QLabel>("lblFound")->textFormat(), Qt::PlainText);
}

void FrmDocsTest::theTopicThatIsShownIsMarkedInTheDesktopsColours() {
  const HelpDesk desk("alarms");
  const auto* const list = desk.Find<QListWidget>("lstTopics");
  QVERIFY(list->currentItem() != nullptr);
  const QRect row = list->visualItemRect(list->currentItem());
  const QImage picture = list->viewport()->grab(row).toImage();
  // At the row's end there is no text.
  const QColor ground = picture.pixelColor(picture.width() - 6, picture.height() / 2);
  QCOMPARE(ground.name(), list->palette().color(QPalette::Highlight).name());
  QVERIFY(BestContrast(picture, ground) >= kLineContrast);
}

}  // namespace tidewarden

QTEST_MAIN(tidewarden::FrmDocsTest)
#include "frm_docs_test.moc"
