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

 Q_SIGNALS:
  // The colours of the desktop have changed.
  void PaletteChanged();

 protected:
  void changeEvent(QEvent* event) override;
};

}  // namespace tidewarden
