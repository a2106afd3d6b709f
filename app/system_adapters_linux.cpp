#include <QApplication>
#include <cstdio>
#include <utility>

#include "app/system_adapters.h"
#include "app/words_to_caller.h"
#include "platform/qt/display.h"
#include "platform/qt/qt_notification_area.h"
#include "platform/qt/qt_ports.h"
#include "platform/qt/qt_shell.h"
#include "platform/qt/tray_probe.h"
#include "platform/sdl/sdl_sound_player.h"

namespace tidewarden {

namespace {

// True when the platform was chosen here.
bool isOwnChoice = false;

}  // namespace

bool PrepareDesktop(int argc, char** argv, WindowPlaces places) {
  if (!qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) return true;
  const bool needsNone = WorksOffscreen(argc, argv);
  if (!needsNone && !HasDisplay()) return false;
  isOwnChoice = needsNone || places == WindowPlaces::kProgram;
  if (!isOwnChoice) return true;
  // Only X11 lets a window choose its place and stay above others; Wayland where there is no X11.
  const bool hasX11 = !qEnvironmentVariableIsEmpty("DISPLAY");
  qputenv("QT_QPA_PLATFORM", needsNone ? "offscreen" : hasX11 ? "xcb;wayland" : "wayland;xcb");
  return true;
}

void SettleDesktop(QCoreApplication& /*application*/) {
  if (isOwnChoice) qunsetenv("QT_QPA_PLATFORM");
}

bool Tell(const std::string& text) {
  return std::fwrite(text.data(), 1, text.size(), stdout) == text.size() &&
         std::fflush(stdout) == 0;
}

void TellRefusal(const std::string& line) {
  const std::string whole = line + "\n";
  // Nobody is left to hear that standard error is closed.
  static_cast<void>(std::fwrite(whole.data(), 1, whole.size(), stderr));
}

void LeaveCaller() {}

ProgramTray MakeProgramTray() {
  auto area = std::make_unique<QtNotificationArea>(QtHasTray);
  const IconHandle icon = area->AddIcon(QApplication::windowIcon());
  return {std::move(area), icon};
}

std::unique_ptr<SoundPlayer> MakeSystemSound(std::function<void(const std::string&)> complain) {
  return std::make_unique<SdlSoundPlayer>(SystemBeep(), std::move(complain));
}

std::unique_ptr<ShiftKey> MakeSystemShiftKey() {
  return std::make_unique<QtShiftKey>();
}

std::unique_ptr<Shell> MakeSystemShell() {
  return std::make_unique<QtShell>();
}

std::unique_ptr<ProgramEnd> MakeProgramEnd() {
  return std::make_unique<ProcessEnd>();
}

}  // namespace tidewarden
