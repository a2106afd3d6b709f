#include "guide/frm_docs_text.h"

#include <QEvent>
#include <QImage>

namespace tidewarden {

DocsText::DocsText(QWidget* parent) : QTextBrowser(parent) {
  setOpenLinks(false);
  setUndoRedoEnabled(false);
}

QVariant DocsText::loadResource(int type, const QUrl& name) {
  if (type != QTextDocument::ImageResource) return {};
  const QImage picture(QStringLiteral(":/guide/") + name.fileName());
  return picture.isNull() ? QVariant() : QVariant(picture);
}

void DocsText::changeEvent(QEvent* event) {
  QTextBrowser::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) Q_EMIT PaletteChanged();
}

}  // namespace tidewarden
