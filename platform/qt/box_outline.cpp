#include "platform/qt/box_outline.h"

#include <QApplication>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOption>

namespace tidewarden {
namespace {

constexpr char kFusion[] = "fusion";

// Half way between the window and its text.
QColor OutlineColour(const QPalette& palette) {
  const QColor window = palette.color(QPalette::Window);
  const QColor text = palette.color(QPalette::WindowText);
  return {(window.red() + text.red()) / 2, (window.green() + text.green()) / 2,
          (window.blue() + text.blue()) / 2};
}

class OutlinedBoxes : public QProxyStyle {
 public:
  OutlinedBoxes() : QProxyStyle(QString::fromLatin1(kFusion)) {
    setObjectName(QString::fromLatin1(kFusion));
  }

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    // The keyboard's place is marked by an outline of its own.
    if (element != PE_IndicatorCheckBox ||
        option->state.testFlags(State_HasFocus | State_KeyboardFocusChange)) {
      return;
    }
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(OutlineColour(option->palette));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5));
    painter->restore();
  }
};

}  // namespace

void OutlineCheckBoxes(QApplication& /*application*/) {
  if (QApplication::style()->objectName().compare(QLatin1String(kFusion), Qt::CaseInsensitive) != 0)
    return;
  QApplication::setStyle(new OutlinedBoxes);
}

}  // namespace tidewarden
