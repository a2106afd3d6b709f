// tidewarden: the desktop program.
#include <QApplication>

#include "app/arguments.h"
#include "app/desktop.h"
#include "app/system_adapters.h"
#include "platform/qt/box_outline.h"
#include "platform/qt/program_icon.h"
#include "tidewarden_version.h"

int main(int argc, char** argv) {
  using namespace tidewarden;
  if (!PrepareDesktop(argc, argv, WindowPlaces::kProgram)) {
    Complain(
        "there is no display to open a window on; tidewarden-cli list prints the reminders without "
        "one");
    return kNoDisplay;
  }
  QApplication app(argc, argv);
  SettleDesktop(app);
  OutlineCheckBoxes(app);
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
