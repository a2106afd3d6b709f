// twdocs: the help program.
#include <QApplication>
#include <QBuffer>
#include <QDesktopServices>
#include <QPixmap>
#include <QUrl>

#include "app/system_adapters.h"
#include "core/file_system.h"
#include "guide/frm_docs.h"
#include "platform/qt/display.h"
#include "platform/qt/program_icon.h"
#include "platform/system.h"
#include "tidewarden_version.h"
#include "twdocs/arguments.h"
#include "twdocs/shipped_guide.h"

namespace tidewarden {
namespace {

ExitCode Grab(QWidget& window, const QString& path, FileSystem& files) {
  window.show();
  QApplication::processEvents();
  QByteArray bytes;
  QBuffer buffer(&bytes);
  if (window.grab().save(&buffer, "PNG") &&
      ReplaceFile(files, path.toStdString(), bytes.toStdString()).ok()) {
    return kDone;
  }
  Complain(QStringLiteral("%1: the picture cannot be written").arg(path));
  return kCannotWrite;
}

int Run(const Arguments& arguments, const Guide& guide) {
  DocsSession session(guide);
  if (!arguments.topic.isEmpty() && !session.Begin(arguments.topic.toStdString())) {
    Complain(QStringLiteral("there is no topic \"%1\", so here are the contents; --list-topics "
                            "prints what there is")
                 .arg(arguments.topic));
  }
  frmDocs window(session);
  window.OpenOutside = [](const QString& address) {
    QDesktopServices::openUrl(QUrl(address, QUrl::StrictMode));
  };
  const auto files = MakeSystemFiles();
  if (!arguments.grab.isEmpty()) return Grab(window, arguments.grab, *files);
  window.show();
  return QApplication::exec();
}

}  // namespace
}  // namespace tidewarden

int main(int argc, char** argv) {
  using namespace tidewarden;
  PrepareDesktop(argc, argv, WindowPlaces::kDesktop);
  const bool onlyTells = OnlyTells(argc, argv);
  if (!onlyTells && !HasDisplay()) {
    Complain(QStringLiteral(
        "there is no display to open a window on; the manual pages tell the same: man tidewarden, "
        "man tidewarden-cli, man tidewarden-dates, man tidewarden-settings"));
    return kNoDisplay;
  }
  if (onlyTells && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
  }
  QApplication app(argc, argv);
  SettleDesktop(app);
  QCoreApplication::setApplicationName(QStringLiteral("twdocs"));
  QCoreApplication::setApplicationVersion(QStringLiteral(TIDEWARDEN_VERSION));
  // It belongs to the entry of the reminder in the desktop's menu.
  QGuiApplication::setDesktopFileName(QStringLiteral("tidewarden"));
  QApplication::setWindowIcon(ProgramIcon());
  const Guide guide = ShippedGuide();
  Arguments arguments;
  if (const auto code = ReadArguments(guide, arguments)) return *code;
  return Run(arguments, guide);
}
