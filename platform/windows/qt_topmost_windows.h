// Windows that ask to stay above the others are put there by the system's own call.
#pragma once

#include <QObject>

namespace tidewarden {

// Watches every window of the program: one with the flag Qt::WindowStaysOnTopHint is put on top
// whenever it is shown. Lives as long as the application object, which is its parent.
class QtTopmostWindows : public QObject {
 public:
  explicit QtTopmostWindows(QObject& application);

  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace tidewarden
