#include "platform/qt/qt_shell.h"

#include <QDesktopServices>
#include <QProcess>
#include <QUrl>
#include <cstdlib>

namespace tidewarden {

void QtShell::Execute(const ShellRequest& request) {
  const QString target = QString::fromStdString(request.target);
  switch (request.kind) {
    case ShellTarget::kDocument:
      QDesktopServices::openUrl(QUrl::fromLocalFile(target));
      break;
    case ShellTarget::kProgram:
      QProcess::startDetached(target, {}, QString::fromStdString(request.folder));
      break;
    case ShellTarget::kWebPage:
      QDesktopServices::openUrl(QUrl(target, QUrl::StrictMode));
      break;
  }
}

void ProcessEnd::EndAtOnce(int exitCode) {
  std::_Exit(exitCode);
}

}  // namespace tidewarden
