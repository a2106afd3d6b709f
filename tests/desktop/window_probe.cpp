// A plugin of Qt that the desktop program loads when a test names it in the environment. It tells
// the test what the program's windows show: ten times a second it writes to the file
// WINDOW_PROBE_FILE, for each window that is open,
//
//   window NAME "CAPTION"
//   NAME: TEXT         for a visible label, and for each row of a visible list
//   NAME is on the screen
//
// The last line is there when the pixels of the screen, where the window lies, are those that the
// window paints by itself: nothing lies above it, and what it shows has arrived. Line feeds in a
// text are written as "\n".
#include <QAbstractItemView>
#include <QApplication>
#include <QGenericPlugin>
#include <QImage>
#include <QLabel>
#include <QPixmap>
#include <QSaveFile>
#include <QScreen>
#include <QTimer>
#include <QWidget>

namespace {

constexpr int kMilliseconds = 100;

bool IsOnTheScreen(QWidget& window) {
  const QRect area(window.mapToGlobal(QPoint(0, 0)), window.size());
  const QImage onScreen = window.screen()
                              ->grabWindow(0, area.x(), area.y(), area.width(), area.height())
                              .toImage()
                              .convertToFormat(QImage::Format_RGB32);
  return onScreen == window.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

QByteArray Line(const QWidget& widget, QString text) {
  text.replace(QLatin1Char('\n'), QStringLiteral("\\n"));
  return (widget.objectName() + QStringLiteral(": ") + text + QLatin1Char('\n')).toUtf8();
}

QByteArray Described(QWidget& window) {
  const QString name = window.objectName();
  QByteArray lines = QStringLiteral("window %1 \"%2\"\n").arg(name, window.windowTitle()).toUtf8();
  for (const QWidget* const widget : window.findChildren<QWidget*>()) {
    if (!widget->isVisible()) continue;
    if (const auto* const label = qobject_cast<const QLabel*>(widget)) {
      lines += Line(*label, label->text());
    } else if (const auto* const view = qobject_cast<const QAbstractItemView*>(widget)) {
      for (int row = 0; row < view->model()->rowCount(); ++row) {
        lines += Line(*view, view->model()->index(row, 0).data().toString());
      }
    }
  }
  if (IsOnTheScreen(window)) lines += QStringLiteral("%1 is on the screen\n").arg(name).toUtf8();
  return lines;
}

class WindowProbe : public QObject {
 public:
  explicit WindowProbe(const QString& path) : path_(path), timer_(this) {
    connect(&timer_, &QTimer::timeout, this, [this] { Write(); });
    timer_.start(kMilliseconds);
  }

 private:
  void Write() {
    QByteArray lines;
    for (QWidget* const window : QApplication::topLevelWidgets()) {
      if (window->isVisible()) lines += Described(*window);
    }
    QSaveFile file(path_);
    if (file.open(QIODevice::WriteOnly) && file.write(lines) == lines.size()) file.commit();
  }

  QString path_;
  QTimer timer_;
};

}  // namespace

class WindowProbePlugin : public QGenericPlugin {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "window_probe.json")

 public:
  QObject* create(const QString& /*key*/, const QString& /*arguments*/) override {
    return new WindowProbe(qEnvironmentVariable("WINDOW_PROBE_FILE"));
  }
};

#include "window_probe.moc"
