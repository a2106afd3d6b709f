#include <QApplication>
#include <algorithm>
#include <cstdio>
#include <string_view>
#include <utility>

#include "app/system_adapters.h"
#include "app/words_to_caller.h"
#include "platform/qt/display.h"
#include "platform/qt/qt_notification_area.h"
#include "platform/qt/qt_ports.h"
#include "platform/qt/qt_shell.h"
#include "platform/sdl/sdl_sound_player.h"

namespace tidewarden {

namespace {

// True when the platform was chosen here.
bool isOwnChoice = false;

}  // namespace

void PrepareDesktop(int argc, char** argv, WindowPlaces places) {
  if (qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) return;
  const bool hasDesktop = HasDisplay();
  const bool needsNone = std::any_of(argv + 1, argv + argc, [=](std::string_view argument) {
    return argument == "--help" || argument == "-h" || argument == "--help-all" ||
           argument == "--version" || argument == "-v" ||
           (!hasDesktop && argument.starts_with("--grab"));
  });
  isOwnChoice = needsNone || places == WindowPlaces::kProgram;
  if (!isOwnChoice) return;
  // Only X11 lets a window choose its place and stay above others; Wayland where there is no X11.
  const bool hasX11 = !qEnvironmentVariableIsEmpty("DISPLAY");
  qputenv("QT_QPA_PLATFORM", needsNone ? "offscreen" : hasX11 ? "xcb;wayland" : "wayland;xcb");
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

ProgramTray MakeProgramTray() {
  auto area = std::make_unique<QtNotificationArea>();
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
