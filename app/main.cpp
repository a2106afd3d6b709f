// tidewarden: the desktop program.
#include <QApplication>
#include <algorithm>
#include <string_view>

#include "app/arguments.h"
#include "app/desktop.h"
#include "platform/qt/program_icon.h"
#include "tidewarden_version.h"

int main(int argc, char** argv) {
  using namespace tidewarden;
  // Only X11 lets a window choose its place and stay above others; Wayland where there is no X11.
  const bool isOwnChoice = !qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
  if (isOwnChoice) {
    const bool hasX11 = !qEnvironmentVariableIsEmpty("DISPLAY");
    const bool hasDisplay = hasX11 || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
    const bool needsNone = std::any_of(argv + 1, argv + argc, [=](std::string_view argument) {
      return argument == "--help" || argument == "-h" || argument == "--version" ||
             argument == "-v" || (!hasDisplay && argument.starts_with("--grab"));
    });
    qputenv("QT_QPA_PLATFORM", needsNone ? "offscreen" : hasX11 ? "xcb;wayland" : "wayland;xcb");
  }
  const QApplication app(argc, argv);
  // Programs that are started from here choose for themselves.
  if (isOwnChoice) qunsetenv("QT_QPA_PLATFORM");
  QCoreApplication::setApplicationName(QStringLiteral("tidewarden"));
  QCoreApplication::setApplicationVersion(QStringLiteral(TIDEWARDEN_VERSION));
  QGuiApplication::setDesktopFileName(QStringLiteral("tidewarden"));
  // The reminder window may be in the notification area while another one closes.
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setWindowIcon(ProgramIcon());
  Arguments arguments;
  if (const auto code = ReadArguments(arguments)) return *code;
  return Desktop(arguments).Run();
}
