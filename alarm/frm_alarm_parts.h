// The two parts of the alarm window that Qt does not have: the panel with the bell, and the label
// of the messages.
#pragma once

#include <QFrame>
#include <QLabel>
#include <QTextDocument>

namespace tidewarden {

// A panel with a bell drawn at its upper left, sharp at every scale, light or dark.
class AlarmPanel : public QFrame {
 public:
  explicit AlarmPanel(QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

// Plain text from its top on, broken between words and, where a word is wider than the label,
// inside words, so that nothing is lost at the right edge.
class AlarmMessageLabel : public QLabel {
 public:
  explicit AlarmMessageLabel(QWidget* parent);

  // Without the empty line that a line break at the end makes.
  [[nodiscard]] int heightForWidth(int width) const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  // Lays out the text again only when something about it has changed.
  QTextDocument& LaidOut(int width) const;

  mutable QTextDocument document_;
  mutable QString laidOutText_;
  mutable QFont laidOutFont_;
};

}  // namespace tidewarden
