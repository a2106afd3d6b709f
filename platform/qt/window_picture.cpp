#include "platform/qt/window_picture.h"

#include <QBuffer>
#include <QFileInfo>
#include <QPixmap>
#include <QWidget>

namespace tidewarden {

Status SaveWindowPicture(QWidget& window, FileSystem& files, const std::string& path) {
  const QPixmap picture = window.grab();
  const QByteArray ending = QFileInfo(QString::fromStdString(path)).suffix().toLatin1();
  QByteArray bytes;
  QBuffer buffer(&bytes);
  const bool asNamed = !ending.isEmpty() && picture.save(&buffer, ending.constData());
  if (!asNamed && !picture.save(&buffer, "PNG")) {
    return Status(StatusKind::kInputOutput, "the picture cannot be made");
  }
  return ReplaceFile(files, path, bytes.toStdString());
}

}  // namespace tidewarden
