// How the alarm window looks, plain and with the program's skin, on light and dark desktops: that
// everything in it can be read. With TIDEWARDEN_TEST_PICTURES set to a folder it leaves a picture
// of each case there.
#include <QDir>
#include <QFile>
#include <QFrame>
#include <algorithm>

#include "tests/support/source_folder.h"
#include "tests/windows/alarm_world.h"
#include "tests/windows/contrast.h"

namespace tidewarden {

using namespace test;

namespace {

// The contrast between the commonest colour of a picture and the one that differs most from it.
double ContrastIn(const QImage& picture) {
  QHash<QRgb, int> counts;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) ++counts[picture.pixel(x, y)];
  }
  QRgb ground = 0;
  for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
    if (it.value() > counts.value(ground)) ground = it.key();
  }
  double best = 1;
  for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
    best = std::max(best, Contrast(QColor(ground), QColor(it.key())));
  }
  return best;
}

std::vector<std::string> Title(const std::string& text) {
  return {text};
}

}  // namespace

class FrmAlarmLooksTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void canBeRead_data();
  void canBeRead();
  void holdsItsHeadingAndItsButton_data();
  void holdsItsHeadingAndItsButton();
};

namespace {

void AddLooks() {
  QTest::addColumn<bool>("skinned");
  QTest::addColumn<QPalette>("desktop");
  for (const bool skinned : {false, true}) {
    const QByteArray look = skinned ? "skin" : "plain";
    QTest::newRow(look + "-light")
        << skinned << Desktop(QColor(0xEF, 0xEF, 0xEF), Qt::white, Qt::black);
    QTest::newRow(look + "-dark") << skinned
                                  << Desktop(QColor(0x2D, 0x2F, 0x31), QColor(0x1D, 0x1F, 0x20),
                                             QColor(0xF0, 0xF0, 0xF0));
    QTest::newRow(look + "-black") << skinned << Desktop(Qt::black, Qt::black, Qt::white);
  }
}

void Dress(frmAlarm& window, bool skinned, const QPalette& desktop) {
  // Windows' own style draws buttons in the colours of the system, not in those of a palette.
  if (desktop.color(QPalette::Window).lightness() < 128) {
    QApplication::setStyle(QStringLiteral("Fusion"));
  }
  QApplication::setPalette(desktop);
  if (!skinned) return;
  QFile file(QString::fromStdString((SourceFolder() / "skin/winaqua.skn").string()));
  QVERIFY(file.open(QIODevice::ReadOnly));
  window.ApplySkin(QString::fromUtf8(file.readAll()));
}

void KeepPicture(frmAlarm& window, const QString& name) {
  const QString folder = qEnvironmentVariable("TIDEWARDEN_TEST_PICTURES");
  if (folder.isEmpty()) return;
  const QString file = QStringLiteral("alarm-%1-%2-at-%3.png")
                           .arg(QString::fromLatin1(QTest::currentDataTag()), name)
                           .arg(window.devicePixelRatioF());
  QVERIFY(window.grab().save(QDir(folder).filePath(file)));
}

}  // namespace

void FrmAlarmLooksTest::canBeRead_data() {
  AddLooks();
}

void FrmAlarmLooksTest::canBeRead() {
  QFETCH(bool, skinned);
  QFETCH(QPalette, desktop);
  const std::pair<const char*, std::vector<std::string>> cases[] = {
      {"one", Title("Dentist")},
      {"twenty", Many(20)},
      {"long", Title("Take the car to the garage in the old harbour, ask about the noise from the "
                     "left front wheel, the winter tyres, the cracked mirror, the smell of petrol, "
                     "and whether it is worth having it repaired at all")},
      {"scripts",
       {"歯医者に行く時間です、保険証を忘れずに", "🎂🎉 birthday party", "Зубной врач",
        "טיפול שיניים", "موعد طبيب الأسنان"}},
  };
  for (const auto& [name, titles] : cases) {
    AlarmWorld world;
    Dress(world.window, skinned, desktop);
    world.Ring(titles);
    auto* const panel = world.Find<QWidget>("Picture1");
    auto* const label = world.Find<QLabel>("lblAlarmMessage");
    auto* const area = world.Find<QScrollArea>("scrAlarmMessage");
    const QImage picture = panel->grab().toImage();
    const auto part = [&](const QRect& rect) {
      const double scale = picture.devicePixelRatio();
      return picture.copy(QRectF(rect.topLeft() * scale, rect.size() * scale).toRect());
    };
    QVERIFY2(ContrastIn(part(world.Find<QLabel>("Label1")->geometry())) >= kTextContrast, name);
    QVERIFY2(ContrastIn(part(area->geometry())) >= kTextContrast, name);
    QVERIFY2(ContrastIn(part(QRect(4, 9, 17, 17))) >= kLineContrast, name);
    QVERIFY2(ContrastIn(world.Find<QWidget>("cmdOK")->grab().toImage()) >= kTextContrast, name);
    // All of the text can be scrolled to, and nothing is lost beside it.
    QCOMPARE(label->width(), panel->width() - 570 / kTwips);
    QVERIFY2(label->heightForWidth(label->width()) <= label->height(), name);
    QVERIFY2(world.Bar()->isVisible() == (label->height() > area->height()), name);
    // The surfaces are the desktop's.
    const QImage all = world.window.grab().toImage();
    QCOMPARE(all.pixelColor(all.width() / 4, all.height() - 3).rgb(),
             desktop.color(QPalette::Window).rgb());
    QCOMPARE(picture.pixelColor(picture.width() / 2, picture.height() - 8).rgb(),
             desktop.color(QPalette::Base).rgb());
    KeepPicture(world.window, QString::fromLatin1(name));
    world.window.resize(InPixels(9000, 6000));
    KeepPicture(world.window, QString::fromLatin1(name) + QStringLiteral("-larger"));
  }
}

void FrmAlarmLooksTest::holdsItsHeadingAndItsButton_data() {
  AddLooks();
}

void FrmAlarmLooksTest::holdsItsHeadingAndItsButton() {
  QFETCH(bool, skinned);
  QFETCH(QPalette, desktop);
  AlarmWorld world;
  Dress(world.window, skinned, desktop);
  world.Ring({"Dentist"});
  const auto* const heading = world.Find<QLabel>("Label1");
  QVERIFY(heading->width() >= heading->fontMetrics().horizontalAdvance(heading->text()));
  QVERIFY(heading->height() >= heading->fontMetrics().height());
  auto* const ok = world.Find<QPushButton>("cmdOK");
  QVERIFY(ok->width() >= ok->fontMetrics().horizontalAdvance(ok->text()) + 12);
  QVERIFY(ok->height() >= ok->fontMetrics().height() + 4);
  // The keyboard's place is seen.
  const QImage before = ok->grab().toImage();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  QVERIFY(ok->hasFocus());
  QVERIFY(ok->grab().toImage() != before);
}

}  // namespace tidewarden

QTEST_MAIN(tidewarden::FrmAlarmLooksTest)
#include "frm_alarm_looks_test.moc"
