#include "platform/qt/program_icon.h"

// Out of a library the resource is linked only when it is asked for by name, and Qt's macro for
// that does not work inside a namespace.
static void LoadResource() {
  Q_INIT_RESOURCE(icons);
}

namespace tidewarden {

QIcon ProgramIcon() {
  LoadResource();
  QIcon icon;
  for (const int size : {16, 22, 24, 32, 48, 64, 128}) {
    icon.addFile(QStringLiteral(":/icons/tidewarden-%1.png").arg(size));
  }
  return icon;
}

}  // namespace tidewarden
