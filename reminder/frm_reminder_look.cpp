#include "reminder/frm_reminder_look.h"

#include <QApplication>
#include <QIcon>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QTextDocument>
#include <QToolButton>

#include "core/frm_list_font.h"

namespace tidewarden {
namespace {

// Dark brown on orange has a contrast of 8 to 1; the rim and the orange stand out from light and
// from dark windows.
constexpr QRgb kGlyphColour = 0xFF2B1500;
constexpr char kTrayButtonSheet[] =
    "QToolButton { background: #f39a35; border: 2px solid #b4560a; border-radius: 10px;"
    " margin: 0; padding: 0; min-width: 16px; max-width: 16px; min-height: 16px;"
    " max-height: 16px; }"
    "QToolButton:hover { background: #ffb25c; }"
    "QToolButton:pressed { background: #e07f14; }"
    "QToolButton:focus { border-color: palette(window-text); }";

constexpr int kGlyphSize = 12;

QString ColourText(const std::optional<Colour>& colour, const QColor& system) {
  return colour ? QColor(colour->red, colour->green, colour->blue).name() : system.name();
}

// An arrow that comes down onto a line, in units of the glyph's size.
QPixmap Glyph(int scale) {
  QPixmap pixmap(kGlyphSize * scale, kGlyphSize * scale);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(scale, scale);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor::fromRgb(kGlyphColour));
  painter.drawPolygon(QPolygonF{{5, 1.5}, {7, 1.5}, {7, 4}, {9.5, 4}, {6, 8}, {2.5, 4}, {5, 4}});
  painter.drawRect(QRectF(2.5, 9, 7, 1.5));
  painter.end();
  pixmap.setDevicePixelRatio(scale);
  return pixmap;
}

}  // namespace

QString ListSheet(const ListColours& colours) {
  const QPalette system = QApplication::palette();
  return QStringLiteral(
             "QListView { color: %1; background-color: %2; selection-color: %2;"
             " selection-background-color: %1; }")
      .arg(ColourText(colours.text, system.color(QPalette::Text)),
           ColourText(colours.background, system.color(QPalette::Base)));
}

QFont FontOf(const ListFont& font) {
  constexpr int kDesignedPoints = 8;
  return FontOf(font, kDesignedPoints);
}

QString PlainToolTip(const QString& text) {
  return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

void DressTrayButton(QToolButton& button, const QString& skin) {
  QIcon icon;
  for (const int scale : {1, 2, 3, 4}) icon.addPixmap(Glyph(scale));
  button.setIcon(icon);
  button.setIconSize({kGlyphSize, kGlyphSize});
  const bool isDressed = skin.contains(QStringLiteral("#cmdTray"));
  if (!isDressed) button.setStyleSheet(QLatin1String(kTrayButtonSheet));
}

}  // namespace tidewarden
