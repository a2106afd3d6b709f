#include "guide/frm_docs_text.h"

#include <QEvent>
#include <QImage>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>
#include <QtMath>
#include <algorithm>
#include <utility>

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

// With room for the scroll bar, which comes and goes with the height of the text.
int DocsText::PictureWidth() const {
  const QScrollBar* const bar = verticalScrollBar();
  const int kept = bar->isVisibleTo(this) ? 0 : bar->sizeHint().width();
  return viewport()->width() - kept - qCeil(2 * document()->documentMargin());
}

void DocsText::FitPictures() {
  QList<std::pair<int, QTextImageFormat>> pictures;
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
    for (auto it = block.begin(); !it.atEnd(); ++it) {
      const QTextCharFormat format = it.fragment().charFormat();
      if (!format.isImageFormat()) continue;
      pictures.append({it.fragment().position(), format.toImageFormat()});
    }
  }
  for (const auto& [position, format] : pictures) FitPicture(position, format);
}

// The text draws a picture as smoothly as it is given; it is scaled to the pixels of the screen.
void DocsText::FitPicture(int position, QTextImageFormat format) {
  const QUrl name(format.name());
  const auto picture = loadResource(QTextDocument::ImageResource, name).value<QImage>();
  if (picture.isNull()) return;
  const int width = std::clamp(PictureWidth(), 1, picture.width());
  if (qRound(format.width()) == width) return;
  const int pixels = std::min(qRound(width * devicePixelRatioF()), picture.width());
  document()->addResource(QTextDocument::ImageResource, name,
                          picture.scaledToWidth(pixels, Qt::SmoothTransformation));
  format.setWidth(width);
  format.setHeight(static_cast<double>(width) * picture.height() / picture.width());
  QTextCursor cursor(document());
  cursor.setPosition(position);
  cursor.setPosition(position + 1, QTextCursor::KeepAnchor);
  cursor.setCharFormat(format);
}

void DocsText::resizeEvent(QResizeEvent* event) {
  FitPictures();
  QTextBrowser::resizeEvent(event);
}

void DocsText::changeEvent(QEvent* event) {
  QTextBrowser::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) Q_EMIT PaletteChanged();
}

}  // namespace tidewarden
