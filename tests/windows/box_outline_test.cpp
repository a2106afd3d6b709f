// Check boxes on desktops of several colours, in Qt's own style.
#include <QApplication>
#include <QCheckBox>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTest>

#include "platform/qt/box_outline.h"
#include "tests/windows/contrast.h"

namespace tidewarden {

class BoxOutlineTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase();
  void canBeSeenOnEveryDesktop_data();
  void canBeSeenOnEveryDesktop();
  void aTickCanBeToldFromNone();
  void aSkinDrawsItsOwn();
  void otherStylesStayAsTheyAre();
};

namespace {

QRect BoxOf(const QCheckBox& check) {
  QStyleOptionButton option;
  option.initFrom(&check);
  return check.style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, &check);
}

// The colour that stands out least from the window and the inside of the box, along its edges.
double LeastContrast(QCheckBox& check, const QPalette& desktop) {
  const QImage picture = check.grab().toImage();
  const double scale = picture.devicePixelRatio();
  const QRectF box(QRectF(BoxOf(check)).topLeft() * scale, QSizeF(BoxOf(check).size()) * scale);
  double least = 21;
  // At the middle of each edge, one line inside the box, where the outline is.
  const double half = scale / 2;
  for (const QPointF& at :
       {QPointF(box.left() + half, box.center().y()), QPointF(box.right() - half, box.center().y()),
        QPointF(box.center().x(), box.top() + half),
        QPointF(box.center().x(), box.bottom() - half)}) {
    const QColor line = picture.pixelColor(static_cast<int>(at.x()), static_cast<int>(at.y()));
    least = std::min({least, Contrast(line, desktop.color(QPalette::Window)),
                      Contrast(line, desktop.color(QPalette::Base))});
  }
  return least;
}

}  // namespace

void BoxOutlineTest::initTestCase() {
  QApplication::setStyle(QStringLiteral("fusion"));
  OutlineCheckBoxes(*qApp);
}

void BoxOutlineTest::canBeSeenOnEveryDesktop_data() {
  QTest::addColumn<QPalette>("desktop");
  const auto row = [](const char* name, QRgb window, QRgb base, QRgb text) {
    QTest::newRow(name) << Desktop(QColor(window), QColor(base), QColor(text));
  };
  row("light", 0xEFEFEF, 0xFFFFFF, 0x000000);
  row("dark", 0x2B2B2B, 0x1E1E1E, 0xEEEEEE);
  row("darker", 0x202326, 0x141618, 0xFCFCFC);
  row("black", 0x000000, 0x000000, 0xFFFFFF);
}

void BoxOutlineTest::canBeSeenOnEveryDesktop() {
  QFETCH(QPalette, desktop);
  QCheckBox check(QStringLiteral("Every month"));
  check.setPalette(desktop);
  check.show();
  QVERIFY(QTest::qWaitForWindowExposed(&check));
  for (const bool on : {false, true}) {
    check.setChecked(on);
    const double least = LeastContrast(check, desktop);
    QVERIFY2(least >= kLineContrast, qPrintable(QString::number(least)));
  }
}

void BoxOutlineTest::aTickCanBeToldFromNone() {
  QCheckBox check(QStringLiteral("Every month"));
  const QImage off = check.grab().toImage();
  check.setChecked(true);
  QVERIFY(check.grab().toImage() != off);
}

void BoxOutlineTest::aSkinDrawsItsOwn() {
  QCheckBox check(QStringLiteral("Every month"));
  check.setStyleSheet(
      QStringLiteral("QCheckBox::indicator { border: 2px solid #ff0000; background: #ff0000;"
                     " width: 12px; height: 12px; }"));
  const QImage picture = check.grab().toImage();
  const QRect box = BoxOf(check);
  const double scale = picture.devicePixelRatio();
  for (int x = box.left(); x <= box.right(); ++x) {
    QCOMPARE(
        picture.pixelColor(static_cast<int>(x * scale), static_cast<int>(box.center().y() * scale)),
        QColor(Qt::red));
  }
}

void BoxOutlineTest::otherStylesStayAsTheyAre() {
  QApplication::setStyle(QStringLiteral("windows"));
  const QStyle* const before = QApplication::style();
  OutlineCheckBoxes(*qApp);
  QCOMPARE(QApplication::style(), before);
}

}  // namespace tidewarden

QTEST_MAIN(tidewarden::BoxOutlineTest)
#include "box_outline_test.moc"
