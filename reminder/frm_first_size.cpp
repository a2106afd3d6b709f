#include "reminder/frm_first_size.h"

#include <QScreen>
#include <QWidget>

namespace tidewarden {
namespace {

// Desktops tell how thick their frames are only when a window has come up.
constexpr QSize kFrame{12, 44};

}  // namespace

QSize FirstSize(const QWidget& window, QSize wanted) {
  return wanted.boundedTo(window.screen()->availableSize() - kFrame);
}

}  // namespace tidewarden
