#include "alarm/frm_alarm_parts.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QPainterPath>
#include <QTextOption>
#include <cmath>

namespace tidewarden {
namespace {

// The bell, drawn on a square of this many units.
constexpr double kUnits = 20;
constexpr QRectF kBellPlace{4, 10, 15, 15};

void DrawBell(QPainter& painter, bool onDark) {
  const QColor outline = onDark ? QColor(0xFF, 0xD5, 0x7A) : QColor(0x7A, 0x4A, 0x00);
  const QColor body = onDark ? QColor(0xC8, 0x86, 0x0A) : QColor(0xF2, 0xA9, 0x1E);
  QPainterPath bell;
  bell.moveTo(3, 15);
  bell.cubicTo(5, 13, 5, 12, 5, 8.5);
  bell.cubicTo(5, 1, 15, 1, 15, 8.5);
  bell.cubicTo(15, 12, 15, 13, 17, 15);
  bell.closeSubpath();
  painter.setPen(QPen(outline, 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(outline);
  painter.drawEllipse(QPointF(10, 2.2), 1.2, 1.2);   // the knob
  painter.drawEllipse(QPointF(10, 16.4), 1.8, 1.8);  // the clapper
  painter.setBrush(body);
  painter.drawPath(bell);
  // It rings.
  painter.setBrush(Qt::NoBrush);
  painter.drawArc(QRectF(0.9, 3, 6, 8), 130 * 16, 60 * 16);
  painter.drawArc(QRectF(13.1, 3, 6, 8), -10 * 16, 60 * 16);
}

}  // namespace

AlarmPanel::AlarmPanel(QWidget* parent) : QFrame(parent) {
  setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  setBackgroundRole(QPalette::Base);
  setForegroundRole(QPalette::Text);
  setAutoFillBackground(true);
}

void AlarmPanel::paintEvent(QPaintEvent* event) {
  QFrame::paintEvent(event);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(kBellPlace.topLeft());
  painter.scale(kBellPlace.width() / kUnits, kBellPlace.height() / kUnits);
  constexpr int kMiddleGrey = 128;
  DrawBell(painter, palette().color(backgroundRole()).lightness() < kMiddleGrey);
}

AlarmMessageLabel::AlarmMessageLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setAlignment(Qt::AlignTop | Qt::AlignLeading);
  setWordWrap(true);
  setForegroundRole(QPalette::Text);
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  document_.setDefaultTextOption(option);
  document_.setDocumentMargin(0);
  document_.setUndoRedoEnabled(false);
}

QTextDocument& AlarmMessageLabel::LaidOut(int width) const {
  QString shown = text();
  if (shown.endsWith(QLatin1Char('\n'))) shown.chop(1);
  if (shown != laidOutText_ || font() != laidOutFont_) {
    laidOutText_ = shown;
    laidOutFont_ = font();
    document_.setDefaultFont(laidOutFont_);
    document_.setPlainText(laidOutText_);
  }
  document_.setTextWidth(width);
  return document_;
}

int AlarmMessageLabel::heightForWidth(int width) const {
  return static_cast<int>(std::ceil(LaidOut(width).size().height()));
}

void AlarmMessageLabel::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  drawFrame(&painter);
  QAbstractTextDocumentLayout::PaintContext context;
  context.palette = palette();
  context.palette.setColor(QPalette::Text, palette().color(foregroundRole()));
  context.clip = event->rect();
  painter.setClipRect(event->rect());
  LaidOut(width()).documentLayout()->draw(&painter, context);
}

}  // namespace tidewarden
