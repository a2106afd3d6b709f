#include "platform/qt/qt_screens.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTimer>

namespace tidewarden {
namespace {

constexpr int kSettleMilliseconds = 1000;

WindowArea AreaOf(const QScreen& screen) {
  const QRect pixels = screen.geometry();
  return {TwipsFromPixels(pixels.left()), TwipsFromPixels(pixels.top()),
          TwipsFromPixels(pixels.width()), TwipsFromPixels(pixels.height())};
}

}  // namespace

Screens DesktopScreens() {
  Screens screens;
  for (const QScreen* const screen : QGuiApplication::screens()) {
    screens.all.push_back(AreaOf(*screen));
  }
  if (const QScreen* const primary = QGuiApplication::primaryScreen()) {
    screens.primary = AreaOf(*primary);
  }
  screens.canPlaceWindows = !QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
  return screens;
}

QtScreenWatch::QtScreenWatch(QObject* parent) : QObject(parent), settled_(new QTimer(this)) {
  settled_->setSingleShot(true);
  settled_->setInterval(kSettleMilliseconds);
  const auto restart = [this] { settled_->start(); };
  connect(settled_, &QTimer::timeout, this, &QtScreenWatch::Changed);
  connect(qGuiApp, &QGuiApplication::screenAdded, this, &QtScreenWatch::Watch);
  connect(qGuiApp, &QGuiApplication::screenAdded, this, restart);
  connect(qGuiApp, &QGuiApplication::screenRemoved, this, restart);
  connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, restart);
  for (QScreen* const screen : QGuiApplication::screens()) Watch(screen);
}

void QtScreenWatch::Watch(QScreen* screen) {
  connect(screen, &QScreen::geometryChanged, this, [this] { settled_->start(); });
}

}  // namespace tidewarden
