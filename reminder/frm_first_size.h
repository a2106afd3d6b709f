// The size with which a window comes up that does not remember its own. Used by the windows of the
// programs beside the reminder.
#pragma once

#include <QSize>

class QWidget;

namespace tidewarden {

// The size that is wanted, less where the window and its frame would not fit on the screen beside
// the desktop's panels.
[[nodiscard]] QSize FirstSize(const QWidget& window, QSize wanted);

}  // namespace tidewarden
