// The font of the editor's glyph buttons, as it is built into the program.
#include <QCryptographicHash>
#include <QFile>
#include <QFontInfo>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QRawFont>
#include <QTest>

#include "editor/frm_symbol_font.h"
#include "tests/support/source_folder.h"

namespace tidewarden {
namespace {

QString Characters() {
  return QStringLiteral("0123456789:;<=POXSC");
}

QRawFont Font() {
  constexpr int kPixels = 100;
  return QRawFont::fromFont(SymbolFont(kPixels));
}

QPainterPath Outline(QChar character) {
  const QRawFont font = Font();
  const QList<quint32> glyphs = font.glyphIndexesForString(QString(character));
  return glyphs.size() == 1 && glyphs.first() != 0 ? font.pathForGlyph(glyphs.first())
                                                   : QPainterPath();
}

QImage Drawn(const QString& text) {
  constexpr int kSize = 40;
  constexpr int kPixels = 32;
  QImage image(kSize, kSize, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  painter.setFont(SymbolFont(kPixels));
  painter.drawText(image.rect(), Qt::AlignCenter, text);
  return image;
}

}  // namespace

class SymbolFontTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // The slots are called by name.
  void hasItsFamilyName();
  void drawsEveryCharacter();
  void drawsEveryCharacterDifferently();
  void keepsEveryPictureInsideTheLine();
  void isDrawnByWidgetsToo();
  void isMadeFromTheDrawingsThatLieBesideIt();
};

void SymbolFontTest::hasItsFamilyName() {
  QCOMPARE(Font().familyName(), QStringLiteral("Orrinvale Dingbats"));
  QCOMPARE(QFontInfo(SymbolFont(20)).family(), QStringLiteral("Orrinvale Dingbats"));
}

void SymbolFontTest::drawsEveryCharacter() {
  for (const QChar character : Characters()) {
    QVERIFY2(!Outline(character).isEmpty(), qPrintable(QString(character)));
  }
}

void SymbolFontTest::drawsEveryCharacterDifferently() {
  const QString characters = Characters();
  for (int i = 0; i < characters.size(); ++i) {
    for (int j = i + 1; j < characters.size(); ++j) {
      QVERIFY2(Outline(characters[i]) != Outline(characters[j]),
               qPrintable(characters.mid(i, 1) + characters.mid(j, 1)));
    }
  }
}

void SymbolFontTest::keepsEveryPictureInsideTheLine() {
  const QRawFont font = Font();
  const QRectF line(0, -font.ascent(), 100, font.ascent() + font.descent());
  for (const QChar character : Characters()) {
    const QRectF ink = Outline(character).boundingRect();
    QVERIFY2(line.contains(ink), qPrintable(QString(character)));
    QVERIFY2(ink.width() > 50 && ink.height() > 50, qPrintable(QString(character)));
  }
}

void SymbolFontTest::isDrawnByWidgetsToo() {
  const QImage empty = Drawn(QString());
  for (const QChar character : Characters()) {
    QVERIFY2(Drawn(QString(character)) != empty, qPrintable(QString(character)));
  }
}

void SymbolFontTest::isMadeFromTheDrawingsThatLieBesideIt() {
  QFile drawings(
      QString::fromStdString((test::SourceFolder() / "fonts/orrinvale_dingbats.svg").string()));
  QVERIFY(drawings.open(QIODevice::ReadOnly));
  const QByteArray hash =
      QCryptographicHash::hash(drawings.readAll(), QCryptographicHash::Sha256).toHex();
  QVERIFY2(Font().fontTable("name").contains(hash), "run scripts/make-symbol-font");
}

}  // namespace tidewarden

QTEST_MAIN(tidewarden::SymbolFontTest)
#include "symbol_font_test.moc"
