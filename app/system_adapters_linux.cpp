#include <QApplication>
#include <algorithm>
#include <string_view>
#include <utility>

#include "app/system_adapters.h"
#include "platform/qt/program_icon.h"
#include "platform/qt/qt_notification_area.h"
#include "platform/qt/qt_ports.h"
#include "platform/sdl/sdl_sound_player.h"

namespace tidewarden {

void PrepareDesktop(int argc, char** argv, WindowPlaces places) {
  if (qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) return;
  const bool onlyTells = std::any_of(argv + 1, argv + argc, [](std::string_view argument) {
    return argument == "--help" || argument == "-h" || argument == "--version" || argument == "-v";
  });
  if (onlyTells) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    return;
  }
  if (places == WindowPlaces::kDesktop) return;
  // Only X11 lets a window choose its place and stay above others; Wayland where there is no X11.
  const bool hasX11 = !qEnvironmentVariableIsEmpty("DISPLAY");
  qputenv("QT_QPA_PLATFORM", hasX11 ? "xcb;wayland" : "wayland;xcb");
}

void WatchWindows(QCoreApplication& /*application*/) {}

ProgramTray MakeProgramTray() {
  auto area = std::make_unique<QtNotificationArea>();
  const IconHandle icon = area->AddIcon(ProgramIcon());
  return {std::move(area), icon};
}

std::unique_ptr<SoundPlayer> MakeSystemSound(std::function<void(const std::string&)> complain) {
  return std::make_unique<SdlSoundPlayer>(&QApplication::beep, std::move(complain));
}

std::unique_ptr<ShiftKey> MakeSystemShiftKey() {
  return std::make_unique<QtShiftKey>();
}

}  // namespace tidewarden
