// Hears the login session ask the program to end; nothing in the program itself does that. Before,
// the session lets programs save: no window is closed then, so there is nothing to hear. Only the
// reminder window uses it.
#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QObject>

namespace tidewarden {

class QuitListener : public QObject {
 public:
  explicit QuitListener(QObject* parent) : QObject(parent) { qApp->installEventFilter(this); }

  // From the moment at which the windows are asked to close. When one of them refuses, the program
  // goes on, and this is false again.
  [[nodiscard]] bool Heard() const { return heard_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched == qApp && event->type() == QEvent::Quit) {
      heard_ = true;
      QMetaObject::invokeMethod(
          this, [this] { heard_ = false; }, Qt::QueuedConnection);
    }
    return false;
  }

 private:
  bool heard_ = false;
};

}  // namespace tidewarden
