#include "editor/frm_symbol_font.h"

#include <QFontDatabase>

// The linker takes a resource out of a static library only when somebody names it, and the macro
// that does so works in no namespace.
static int LoadSymbolFont() {
  Q_INIT_RESOURCE(orrinvale_dingbats);
  return QFontDatabase::addApplicationFont(QStringLiteral(":/fonts/orrinvale_dingbats.ttf"));
}

namespace tidewarden {

QFont SymbolFont(int pixelSize) {
  static const int loaded = LoadSymbolFont();
  Q_ASSERT(loaded >= 0);
  QFont font(QString::fromLatin1(kSymbolFontFamily));
  font.setPixelSize(pixelSize);
  return font;
}

}  // namespace tidewarden
