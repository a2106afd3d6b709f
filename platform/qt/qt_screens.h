// The screens of the desktop as Qt knows them.
#pragma once

#include <QObject>

#include "core/window_placement.h"

class QScreen;
class QTimer;

namespace tidewarden {

// At this moment. On Wayland windows neither know nor choose their place.
[[nodiscard]] Screens DesktopScreens();

// Tells when screens have been plugged in, taken away, moved or resized. Needs the application
// object.
class QtScreenWatch : public QObject {
  Q_OBJECT

 public:
  explicit QtScreenWatch(QObject* parent = nullptr);

 Q_SIGNALS:
  // Once for all that happens within a second: a desktop changes its screens one by one, and then
  // moves windows by itself as far as it cares for them.
  void Changed();

 private:
  void Watch(QScreen* screen);

  QTimer* settled_;
};

}  // namespace tidewarden
