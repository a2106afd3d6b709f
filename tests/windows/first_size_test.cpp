// Windows that come up for the first time on a small screen: everything in them can be reached.
// The screen is the one that the platform of the test is set up with.
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTest>
#include <QTextBrowser>

#include "customizer/frm_customizer.h"
#include "guide/frm_docs.h"
#include "tests/customizer/options_desk.h"
#include "tests/support/source_folder.h"
#include "twdocs/shipped_guide.h"

namespace tidewarden {
namespace {

// What common desktops put around a window: a title bar and thin edges.
constexpr QSize kFrame{8, 36};

std::string SkinOfTheProgram() {
  QFile file(QString::fromStdString((test::SourceFolder() / "skin/winaqua.skn").string()));
  return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

QSize Room() {
  return QGuiApplication::primaryScreen()->availableSize() - kFrame;
}

bool FitsInto(const QSize& size, const QSize& room) {
  return size.width() <= room.width() && size.height() <= room.height();
}

QString Told(const QSize& size) {
  return QStringLiteral("%1 by %2").arg(size.width()).arg(size.height());
}

}  // namespace

class FirstSizeTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase();
  void theOptionsFitOnTheScreen_data();
  void theOptionsFitOnTheScreen();
  void theGuideFitsOnTheScreen();
};

void FirstSizeTest::initTestCase() {
  const QSize screen = QGuiApplication::primaryScreen()->size();
  QVERIFY2(screen == QSize(1024, 600) || screen == QSize(960, 540), qPrintable(Told(screen)));
}

void FirstSizeTest::theOptionsFitOnTheScreen_data() {
  QTest::addColumn<bool>("skin");
  QTest::newRow("skin") << true;
  QTest::newRow("plain") << false;
}

void FirstSizeTest::theOptionsFitOnTheScreen() {
  QFETCH(bool, skin);
  for (const PageName& first : AllPages()) {
    test::OptionsDesk desk;
    desk.files.files[test::kSkinPath] = SkinOfTheProgram();
    desk.Set("Options", "UseSkin", skin ? "True" : "False");
    desk.Set("Options", "ShowDailyQuotes", "True");
    desk.Set("Settings", "FontSize", "20");
    frmCustomizer window(desk.session());
    window.ShowPage(first.page);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    // Every page, whichever it began with.
    for (const PageName& page : AllPages()) {
      window.ShowPage(page.page);
      QTest::qWait(0);
      QVERIFY2(FitsInto(window.size(), Room()), qPrintable(Told(window.size())));
      const auto* const pages = window.findChild<QStackedWidget*>(QStringLiteral("stkPages"));
      QVERIFY2(pages->height() >= 200, qPrintable(Told(pages->size())));
      for (const char* const name : {"cmdReminder", "cmdOk", "cmdCancel", "cmdApply"}) {
        const auto* const button = window.findChild<QPushButton*>(QLatin1String(name));
        QVERIFY2(window.rect().contains(button->geometry()), name);
      }
    }
  }
}

void FirstSizeTest::theGuideFitsOnTheScreen() {
  const Guide guide = ShippedGuide();
  DocsSession session(guide);
  frmDocs window(session);
  window.show();
  QVERIFY(QTest::qWaitForWindowExposed(&window));
  QVERIFY2(FitsInto(window.size(), Room()), qPrintable(Told(window.size())));
  const auto* const text = window.findChild<QTextBrowser*>(QStringLiteral("txtText"));
  for (const GuideTopic& topic : guide.topics()) {
    session.Open(topic.name);
    window.Render();
    QTest::qWait(0);
    QVERIFY2(text->horizontalScrollBar()->maximum() == 0, topic.name.c_str());
  }
}

}  // namespace tidewarden

QTEST_MAIN(tidewarden::FirstSizeTest)
#include "first_size_test.moc"
