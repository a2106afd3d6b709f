#include "twdocs/shipped_guide.h"

#include <QFile>

// Out of a library the resource is linked only when it is asked for by name, and Qt's macro for
// that does not work inside a namespace.
static void LoadResource() {
  Q_INIT_RESOURCE(guide);
}

namespace tidewarden {

Guide ShippedGuide() {
  LoadResource();
  return Guide([](const std::string& fileName) -> std::string {
    QFile file(QStringLiteral(":/guide/") + QString::fromStdString(fileName));
    if (!file.open(QIODevice::ReadOnly)) return {};
    return file.readAll().toStdString();
  });
}

}  // namespace tidewarden
