#include "platform/qt/qt_screens.h"

#include <QGuiApplication>
#include <QScreen>

namespace tidewarden {
namespace {

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

}  // namespace tidewarden
