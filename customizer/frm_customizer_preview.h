// The reminder list in small, as it would look.
#pragma once

#include <QFrame>

class QCheckBox;
class QLabel;
class QListView;
class QPlainTextEdit;
class QStringListModel;

namespace tidewarden {

struct ListPreview;

// A text that ends in dots where there is no room for the rest of it.
class TitleStrip : public QWidget {
  Q_OBJECT

 public:
  explicit TitleStrip(QWidget* parent);
  void SetText(const QString& text);
  [[nodiscard]] const QString& text() const { return text_; }
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString text_;
};

class PreviewPanel : public QWidget {
  Q_OBJECT

 public:
  explicit PreviewPanel(QWidget* parent);

  void Render(const ListPreview& preview, bool showsExamples);

 Q_SIGNALS:
  void ExamplesWanted(bool /*examples*/);

 private:
  QCheckBox* chkExamples;
  TitleStrip* lblPreviewTitle;
  QListView* lstPreview;
  QLabel* lblPreviewDate;
  QPlainTextEdit* txtPreviewQuote;
  QStringListModel* rows_;
};

}  // namespace tidewarden
