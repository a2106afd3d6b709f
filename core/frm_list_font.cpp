#include "core/frm_list_font.h"

#include <QString>
#include <QStringList>

namespace tidewarden {

QFont FontOf(const ListFont& font, int designedPoints) {
  const QString name = QString::fromStdString(font.name);
  QFont made;
  // Qt itself asks for substitutes only where a face is missing.
  made.setFamilies(QFont::substitutes(name) << name);
  made.setStyleHint(QFont::SansSerif);
  made.setBold(font.bold);
  made.setItalic(font.italic);
  made.setPointSize(font.size > 0 ? font.size : designedPoints);
  return made;
}

}  // namespace tidewarden
