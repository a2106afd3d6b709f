// The text of the help window. Pictures come from the guide alone; nothing is fetched from the
// disk or from a network, whatever a page names.
#pragma once

#include <QTextBrowser>

namespace tidewarden {

class DocsText : public QTextBrowser {
  Q_OBJECT

 public:
  explicit DocsText(QWidget* parent);

  QVariant loadResource(int type, const QUrl& name) override;

  // Makes pictures smaller that are wider than the text. To be called when the text is a new one.
  void FitPictures();

 Q_SIGNALS:
  // The colours of the desktop have changed.
  void PaletteChanged();

 protected:
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  [[nodiscard]] int PictureWidth() const;
  void FitPicture(int position, QTextImageFormat format);
};

}  // namespace tidewarden
