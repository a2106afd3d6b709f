#include "platform/qt/window_picture.h"

#include <QBuffer>
#include <QPixmap>
#include <QWidget>

namespace tidewarden {

Status SaveWindowPicture(QWidget& window, FileSystem& files, const std::string& path) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  if (!window.grab().save(&buffer, "PNG")) {
    return Status(StatusKind::kInputOutput, "the picture cannot be made");
  }
  return ReplaceFile(files, path, bytes.toStdString());
}

}  // namespace tidewarden
