// The program's icon as it is built in.
#include "platform/qt/program_icon.h"

#include <QImage>
#include <QTest>
#include <cmath>

namespace tidewarden {

class ProgramIconTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // The slots are called by name.
  void hasEverySize_data();
  void hasEverySize();
  void isDrawnForEachSize();
  void standsOutFromEveryPanel_data();
  void standsOutFromEveryPanel();
};

namespace {

const QList<int> kSizes{16, 22, 24, 32, 48, 64, 128};

QImage ImageOf(int size) {
  return ProgramIcon()
      .pixmap(QSize(size, size), 1.0)
      .toImage()
      .convertToFormat(QImage::Format_ARGB32);
}

// How far two colours are apart, 0 to 441.
double Distance(const QColor& a, const QColor& b) {
  const int red = a.red() - b.red();
  const int green = a.green() - b.green();
  const int blue = a.blue() - b.blue();
  return std::sqrt(red * red + green * green + blue * blue);
}

}  // namespace

void ProgramIconTest::hasEverySize_data() {
  QTest::addColumn<int>("size");
  for (const int size : kSizes) QTest::addRow("%d", size) << size;
}

void ProgramIconTest::hasEverySize() {
  QFETCH(int, size);
  QVERIFY(ProgramIcon().availableSizes().contains(QSize(size, size)));
  const QImage image = ImageOf(size);
  QCOMPARE(image.size(), QSize(size, size));
  QCOMPARE(image.pixelColor(0, 0).alpha(), 0);
  QCOMPARE(image.pixelColor(size / 2, size / 2).alpha(), 255);
}

void ProgramIconTest::isDrawnForEachSize() {
  const QImage large = ImageOf(128);
  const QImage shrunk = large.scaled(16, 16, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  QVERIFY(ImageOf(16) != shrunk);
}

void ProgramIconTest::standsOutFromEveryPanel_data() {
  QTest::addColumn<QColor>("panel");
  for (const char* const name : {"#ffffff", "#e0e0e0", "#404040", "#000000"}) {
    QTest::newRow(name) << QColor(QString::fromLatin1(name));
  }
}

void ProgramIconTest::standsOutFromEveryPanel() {
  QFETCH(QColor, panel);
  const QImage image = ImageOf(16);
  int distinct = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QColor color = image.pixelColor(x, y);
      if (color.alpha() > 200 && Distance(color, panel) > 100) ++distinct;
    }
  }
  QVERIFY2(distinct >= 16 * 16 / 2, qPrintable(QString::number(distinct)));
}

}  // namespace tidewarden

QTEST_MAIN(tidewarden::ProgramIconTest)
#include "program_icon_test.moc"
