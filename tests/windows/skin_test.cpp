// The skin that comes with the program: that Qt understands it, that its texts can be read, and
// that it leaves the desktop's and the user's own colours alone.
#include <QCheckBox>
#include <QComboBox>
#include <QCursor>
#include <QFile>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QStringConverter>
#include <QStringListModel>
#include <QTest>
#include <QToolButton>
#include <algorithm>

#include "platform/qt/program_icon.h"
#include "tests/support/source_folder.h"
#include "tests/windows/contrast.h"

namespace tidewarden {
namespace {

QString SkinPath() {
  return QString::fromStdString((test::SourceFolder() / "skin/winaqua.skn").string());
}

QByteArray ReadAll(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString Skin() {
  return QString::fromUtf8(ReadAll(SkinPath()));
}

// --- The desktops on which the skin has to hold.

QList<QPalette> Desktops() {
  return {Desktop(QColor(0xEF, 0xEF, 0xEF), Qt::white, Qt::black),
          Desktop(QColor(0x2D, 0x2F, 0x31), QColor(0x1D, 0x1F, 0x20), QColor(0xF0, 0xF0, 0xF0)),
          Desktop(Qt::black, Qt::black, Qt::white)};
}

// --- The skin as rules.

struct Rule {
  QString selector;
  QMap<QString, QString> values;
};

QList<Rule> RulesOf(QString sheet) {
  static const QRegularExpression comment(QStringLiteral("/\\*.*?\\*/"),
                                          QRegularExpression::DotMatchesEverythingOption);
  static const QRegularExpression rule(QStringLiteral("([^{}]+)\\{([^{}]*)\\}"));
  sheet.remove(comment);
  QList<Rule> rules;
  for (auto it = rule.globalMatch(sheet); it.hasNext();) {
    const auto match = it.next();
    Rule read{match.captured(1).simplified(), {}};
    for (const QString& line : match.captured(2).split(u';', Qt::SkipEmptyParts)) {
      const QString name = line.section(u':', 0, 0).trimmed();
      if (!name.isEmpty()) read.values[name] = line.section(u':', 1).trimmed();
    }
    rules << read;
  }
  return rules;
}

// A colour of the skin on a desktop; not valid for what is no colour.
QColor ColorOf(const QString& value, const QPalette& desktop) {
  static const QMap<QString, QPalette::ColorRole> roles{
      {QStringLiteral("palette(window)"), QPalette::Window},
      {QStringLiteral("palette(window-text)"), QPalette::WindowText},
      {QStringLiteral("palette(base)"), QPalette::Base},
      {QStringLiteral("palette(text)"), QPalette::Text}};
  if (roles.contains(value)) return desktop.color(roles[value]);
  static const QRegularExpression hex(QStringLiteral("#[0-9a-f]{6}"));
  const QString found = hex.match(value).captured();
  return found.isEmpty() ? QColor() : QColor(found);
}

// --- A window with every kind of control.

struct Sample : QWidget {
  QListView* List1 = new QListView;
  QLabel* sknDate = new QLabel(QStringLiteral("11/20/2026"));
  QPushButton* cmdGoToEdit = new QPushButton(QStringLiteral("&EDIT"));
  QToolButton* cmdTray = new QToolButton;
  QLineEdit* line = new QLineEdit(QStringLiteral("12.25"));
  QComboBox* combo = new QComboBox;
  QCheckBox* check = new QCheckBox(QStringLiteral("Every month"));
  QPlainTextEdit* text = new QPlainTextEdit(QStringLiteral("One\nTwo\nThree\nFour\nFive\nSix"));
  QToolButton* tool = new QToolButton;

  explicit Sample(const QString& sheet) {
    setObjectName(QStringLiteral("frmReminder"));
    List1->setObjectName(QStringLiteral("List1"));
    sknDate->setObjectName(QStringLiteral("sknDate"));
    cmdTray->setObjectName(QStringLiteral("cmdTray"));
    cmdGoToEdit->setObjectName(QStringLiteral("cmdGoToEdit"));
    tool->setObjectName(QStringLiteral("tool"));
    List1->setModel(new QStringListModel({QStringLiteral("A"), QStringLiteral("B")}, List1));
    combo->addItems({QStringLiteral("yearly"), QStringLiteral("one-time")});
    tool->setText(QStringLiteral("P"));
    // Small enough for the screen at twice the fineness, where the mouse can reach everything.
    text->setFixedHeight(40);
    List1->setFixedHeight(50);
    auto* const grid = new QGridLayout(this);
    int row = 0;
    for (QWidget* const control :
         QList<QWidget*>{List1, sknDate, cmdGoToEdit, cmdTray, line, combo, check, text, tool}) {
      grid->addWidget(control, row++, 0);
    }
    setStyleSheet(sheet);
  }

  [[nodiscard]] QList<QWidget*> Focusable() const {
    return {List1, cmdGoToEdit, cmdTray, line, combo, check, text, tool};
  }
};

QImage Grabbed(QWidget* control) {
  return control->grab().toImage();
}

QColor PixelOf(QWidget* control, QPoint at) {
  const QImage image = Grabbed(control);
  return image.pixelColor(at * image.devicePixelRatio());
}

// True when two pictures of a control differ within a few pixels of the middle of all its edges.
bool EveryEdgeDiffers(const QImage& one, const QImage& other) {
  constexpr int kDepth = 3;
  const QPoint middle = one.rect().center();
  const auto differs = [&](QPoint from, QPoint step) {
    for (int depth = 0; depth < kDepth; ++depth, from += step) {
      if (one.pixel(from) != other.pixel(from)) return true;
    }
    return false;
  };
  return differs({0, middle.y()}, {1, 0}) && differs({middle.x(), 0}, {0, 1}) &&
         differs({one.width() - 1, middle.y()}, {-1, 0}) &&
         differs({middle.x(), one.height() - 1}, {0, -1});
}

// By way of the window, because the cursor of the platform without a screen knows no scale.
void MoveMouseTo(QWidget* control) {
  QWidget* const window = control->window();
  // A platform with a pointer of its own takes the window's word for nothing.
  if (QGuiApplication::platformName() != QStringLiteral("offscreen")) {
    QCursor::setPos(control->mapToGlobal(control->rect().center()));
  }
  QTest::mouseMove(window->windowHandle(), control->mapTo(window, control->rect().center()));
}

// --- What Qt complains about.

QStringList complaints;

void Collect(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& message) {
  // What the platform without a screen says of itself, and what Wine lacks of a Windows.
  static const QRegularExpression ofThePlatform(
      QStringLiteral("XDG_RUNTIME_DIR|This plugin does not support|EnableNonClientDpiScaling"));
  if (!ofThePlatform.match(message).hasMatch()) complaints << message;
}

void ShowEverything(const QString& sheet) {
  Sample sample(sheet);
  sample.show();
  QVERIFY(QTest::qWaitForWindowExposed(&sample));
  Grabbed(&sample);
  QMenu menu(&sample);
  menu.addAction(QStringLiteral("Edit this Event"));
  menu.addSeparator();
  menu.popup(QPoint(0, 0));
  Grabbed(&menu);
  sample.combo->showPopup();
  QCoreApplication::processEvents();
  sample.combo->hidePopup();
}

}  // namespace

class SkinTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // The slots are called by name.
  void initTestCase();
  void cleanup();
  void isASmallPlainText();
  void standsBesideTheProgram();
  void isUnderstoodByQt();
  void aFaultInASkinIsNoticed();
  void everyTextStandsOnItsOwnGround();
  void everyTextCanBeRead();
  void everyLineCanBeSeen();
  void everyPictureIsBuiltIn();
  void leavesFontsAlone();
  void leavesTheColoursAndTheFontOfTheListAlone();
  void theListShowsTheColoursOfItsUser();
  void surfacesStayThoseOfTheDesktop();
  void focusCanBeSeen();
  void everyStateLooksDifferent();
  void theTrayButtonIsSmallRoundAndOrange();
  void theButtonOfTheReturnKeyIsMarked();
  void aButtonThatCannotBeUsedHasAThinFrameAndKeepsItsSize();
};

void SkinTest::initTestCase() {
  // Loads the pictures that are built in.
  QVERIFY(!ProgramIcon().isNull());
}

void SkinTest::cleanup() {
  QApplication::setPalette(QPalette());
}

void SkinTest::isASmallPlainText() {
  const QByteArray bytes = ReadAll(SkinPath());
  QVERIFY(!bytes.isEmpty());
  QVERIFY(bytes.size() <= 1024 * 1024);
  QVERIFY(!bytes.contains('\0'));
  QStringDecoder decoder(QStringDecoder::Utf8);
  const QString text = decoder(bytes);
  QVERIFY(!decoder.hasError());
  QVERIFY(!text.isEmpty());
}

void SkinTest::standsBesideTheProgram() {
  QCOMPARE(ReadAll(QCoreApplication::applicationDirPath() + QStringLiteral("/winaqua.skn")),
           ReadAll(SkinPath()));
}

void SkinTest::isUnderstoodByQt() {
  complaints.clear();
  const auto before = qInstallMessageHandler(Collect);
  ShowEverything(Skin());
  qInstallMessageHandler(before);
  QCOMPARE(complaints, QStringList());
}

void SkinTest::aFaultInASkinIsNoticed() {
  for (const char* const fault : {"QLabel { color: #ffffff", "QLabel { colour: #ffffff; }"}) {
    complaints.clear();
    const auto before = qInstallMessageHandler(Collect);
    ShowEverything(Skin() + QString::fromLatin1(fault));
    qInstallMessageHandler(before);
    QVERIFY2(!complaints.isEmpty(), fault);
  }
}

void SkinTest::everyTextStandsOnItsOwnGround() {
  static const QRegularExpression withoutText(
      QStringLiteral("QScrollBar|::separator|::indicator|::corner"));
  for (const Rule& rule : RulesOf(Skin())) {
    if (withoutText.match(rule.selector).hasMatch()) {
      QVERIFY2(!rule.values.contains(QStringLiteral("color")), qPrintable(rule.selector));
      continue;
    }
    QCOMPARE(rule.values.contains(QStringLiteral("color")),
             rule.values.contains(QStringLiteral("background-color")));
    QCOMPARE(rule.values.contains(QStringLiteral("selection-color")),
             rule.values.contains(QStringLiteral("selection-background-color")));
    QVERIFY2(!rule.values.contains(QStringLiteral("background")), qPrintable(rule.selector));
  }
}

void SkinTest::everyTextCanBeRead() {
  int pairs = 0;
  for (const QPalette& desktop : Desktops()) {
    for (const Rule& rule : RulesOf(Skin())) {
      for (const QString& prefix : {QString(), QStringLiteral("selection-")}) {
        const QString text = rule.values.value(prefix + QStringLiteral("color"));
        if (text.isEmpty()) continue;
        const QString ground = rule.values.value(prefix + QStringLiteral("background-color"));
        const QColor textColor = ColorOf(text, desktop);
        const QColor groundColor = ColorOf(ground, desktop);
        QVERIFY2(textColor.isValid(), qPrintable(text));
        QVERIFY2(groundColor.isValid(), qPrintable(ground));
        const double contrast = Contrast(textColor, groundColor);
        QVERIFY2(contrast >= kTextContrast,
                 qPrintable(rule.selector + QStringLiteral(": ") + text + QStringLiteral(" on ") +
                            ground + QStringLiteral(" has only ") + QString::number(contrast)));
        ++pairs;
      }
    }
  }
  QVERIFY2(pairs >= 3 * 10, qPrintable(QString::number(pairs)));
}

void SkinTest::everyLineCanBeSeen() {
  int lines = 0;
  for (const QPalette& desktop : Desktops()) {
    for (const Rule& rule : RulesOf(Skin())) {
      // What cannot be used just now steps back; the tray button is seen by its own orange too.
      if (rule.selector.contains(QStringLiteral(":disabled"))) continue;
      if (rule.selector == QStringLiteral("#cmdTray")) continue;
      // The edge of a filled shape is part of it.
      const QString ground = rule.values.value(QStringLiteral("background-color"));
      for (const char* const name : {"border", "border-color", "border-bottom"}) {
        const QString value = rule.values.value(QString::fromLatin1(name));
        const QColor color = ColorOf(value, desktop);
        if (!color.isValid() || color == ColorOf(ground, desktop)) continue;
        QVERIFY2(Contrast(color, desktop.color(QPalette::Window)) >= kLineContrast,
                 qPrintable(rule.selector));
        QVERIFY2(Contrast(color, desktop.color(QPalette::Base)) >= kLineContrast,
                 qPrintable(rule.selector));
        ++lines;
      }
    }
  }
  QVERIFY2(lines >= 3 * 8, qPrintable(QString::number(lines)));
}

void SkinTest::everyPictureIsBuiltIn() {
  static const QRegularExpression url(QStringLiteral("url\\((.*)\\)"));
  int pictures = 0;
  for (const Rule& rule : RulesOf(Skin())) {
    const auto match = url.match(rule.values.value(QStringLiteral("image")));
    if (!match.hasMatch()) continue;
    ++pictures;
    const QString path = match.captured(1);
    QCOMPARE(QImage(path).size(), QSize(12, 12));
    const QString fine = QString(path).replace(QStringLiteral(".png"), QStringLiteral("@2x.png"));
    QCOMPARE(QImage(fine).size(), QSize(24, 24));
  }
  QCOMPARE(pictures, 2);
}

void SkinTest::leavesFontsAlone() {
  for (const Rule& rule : RulesOf(Skin())) {
    for (const QString& name : rule.values.keys()) {
      QVERIFY2(!name.startsWith(QStringLiteral("font")), qPrintable(rule.selector));
    }
  }
}

void SkinTest::leavesTheColoursAndTheFontOfTheListAlone() {
  QFont font(QStringLiteral("DejaVu Serif"), 13);
  font.setItalic(true);
  for (const QPalette& desktop : Desktops()) {
    QApplication::setPalette(desktop);
    Sample plain{QString()};
    Sample skinned(Skin());
    for (Sample* const sample : {&plain, &skinned}) {
      sample->List1->setFont(font);
      sample->show();
      QVERIFY(QTest::qWaitForWindowExposed(sample));
    }
    QCOMPARE(skinned.List1->font(), plain.List1->font());
    for (const auto role :
         {QPalette::Base, QPalette::Text, QPalette::Highlight, QPalette::HighlightedText}) {
      for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        QCOMPARE(skinned.List1->palette().color(group, role),
                 plain.List1->palette().color(group, role));
      }
    }
  }
}

void SkinTest::theListShowsTheColoursOfItsUser() {
  Sample sample(Skin());
  sample.List1->setStyleSheet(
      QStringLiteral("#List1 { background-color: #99ff99; color: #000000; }"));
  sample.show();
  QVERIFY(QTest::qWaitForWindowExposed(&sample));
  QWidget* const viewport = sample.List1->viewport();
  QCOMPARE(PixelOf(viewport, viewport->rect().center()).rgb(), QColor(0x99, 0xFF, 0x99).rgb());
}

void SkinTest::surfacesStayThoseOfTheDesktop() {
  for (const QPalette& desktop : Desktops()) {
    QApplication::setPalette(desktop);
    Sample sample(Skin());
    sample.show();
    QVERIFY(QTest::qWaitForWindowExposed(&sample));
    QCOMPARE(PixelOf(&sample, QPoint(2, 2)).rgb(), desktop.color(QPalette::Window).rgb());
    const QPoint inside(sample.line->width() - 8, sample.line->height() / 2);
    QCOMPARE(PixelOf(sample.line, inside).rgb(), desktop.color(QPalette::Base).rgb());
    QWidget* const page = sample.text->viewport();
    QCOMPARE(PixelOf(page, QPoint(page->width() - 8, 2)).rgb(),
             desktop.color(QPalette::Base).rgb());
    QCOMPARE(sample.sknDate->palette().color(QPalette::WindowText),
             desktop.color(QPalette::WindowText));
  }
}

void SkinTest::focusCanBeSeen() {
  Sample sample(Skin());
  sample.show();
  sample.activateWindow();
  QVERIFY(QTest::qWaitForWindowActive(&sample));
  for (QWidget* const control : sample.Focusable()) {
    control->setFocusPolicy(Qt::StrongFocus);
    QWidget* const other = control == sample.line ? static_cast<QWidget*>(sample.text)
                                                  : static_cast<QWidget*>(sample.line);
    other->setFocus();
    QCoreApplication::processEvents();
    const QImage without = Grabbed(control);
    control->setFocus();
    QCoreApplication::processEvents();
    QVERIFY(control->hasFocus());
    const QImage with = Grabbed(control);
    QCOMPARE(with.size(), without.size());
    QVERIFY2(EveryEdgeDiffers(with, without), control->metaObject()->className());
  }
}

void SkinTest::everyStateLooksDifferent() {
  Sample sample(Skin());
  sample.cmdTray->setText(QStringLiteral("T"));
  sample.show();
  QVERIFY(QTest::qWaitForWindowExposed(&sample));
  for (QAbstractButton* const button :
       QList<QAbstractButton*>{sample.cmdGoToEdit, sample.tool, sample.cmdTray}) {
    QList<QImage> looks;
    button->clearFocus();
    MoveMouseTo(sample.List1);
    QTRY_VERIFY(!button->underMouse());
    looks << Grabbed(button);
    MoveMouseTo(button);
    QTRY_VERIFY(button->underMouse());
    looks << Grabbed(button);
    button->setDown(true);
    looks << Grabbed(button);
    button->setDown(false);
    MoveMouseTo(sample.List1);
    QTRY_VERIFY(!button->underMouse());
    button->setEnabled(false);
    looks << Grabbed(button);
    for (int one = 0; one < looks.size(); ++one) {
      for (int other = 0; other < one; ++other) {
        QVERIFY2(looks[one] != looks[other],
                 qPrintable(button->objectName() + QStringLiteral(" %1 %2").arg(one).arg(other)));
      }
    }
  }
  for (QWidget* const field :
       QList<QWidget*>{sample.line, sample.combo, sample.text, sample.check}) {
    const QImage enabled = Grabbed(field);
    field->setEnabled(false);
    QVERIFY2(Grabbed(field) != enabled, field->metaObject()->className());
  }
}

void SkinTest::theTrayButtonIsSmallRoundAndOrange() {
  Sample sample(Skin());
  sample.show();
  QVERIFY(QTest::qWaitForWindowExposed(&sample));
  MoveMouseTo(sample.List1);
  QTRY_VERIFY(!sample.cmdTray->underMouse());
  QCOMPARE(sample.cmdTray->size(), QSize(20, 20));
  QCOMPARE(PixelOf(sample.cmdTray, QPoint(10, 10)).rgb(), QColor(0xF3, 0x9A, 0x35).rgb());
  for (const QPoint corner : {QPoint(0, 0), QPoint(19, 0), QPoint(0, 19), QPoint(19, 19)}) {
    const QPoint at = sample.cmdTray->pos() + corner;
    QCOMPARE(PixelOf(&sample, at).rgb(), sample.palette().color(QPalette::Window).rgb());
  }
}

void SkinTest::theButtonOfTheReturnKeyIsMarked() {
  Sample sample(Skin());
  sample.show();
  QVERIFY(QTest::qWaitForWindowExposed(&sample));
  sample.line->setFocus();
  const QImage plain = Grabbed(sample.cmdGoToEdit);
  sample.cmdGoToEdit->setDefault(true);
  QVERIFY(EveryEdgeDiffers(Grabbed(sample.cmdGoToEdit), plain));
}

void SkinTest::aButtonThatCannotBeUsedHasAThinFrameAndKeepsItsSize() {
  Sample sample(Skin());
  sample.show();
  QVERIFY(QTest::qWaitForWindowExposed(&sample));
  const QSize usable = sample.cmdGoToEdit->sizeHint();
  sample.cmdGoToEdit->setEnabled(false);
  QCOMPARE(sample.cmdGoToEdit->sizeHint(), usable);
  const int middle = sample.cmdGoToEdit->height() / 2;
  QVERIFY(PixelOf(sample.cmdGoToEdit, QPoint(0, middle)) !=
          sample.palette().color(QPalette::Window));
  QCOMPARE(PixelOf(sample.cmdGoToEdit, QPoint(1, middle)).rgb(),
           sample.palette().color(QPalette::Window).rgb());
}

}  // namespace tidewarden

QTEST_MAIN(tidewarden::SkinTest)
#include "skin_test.moc"
