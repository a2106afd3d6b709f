// The columns of the events editor's list. Every field starts where its column starts, however
// wide the characters before it are drawn: a font has no fixed width for Chinese or an emoji.
#pragma once

#include <QFont>
#include <QLineEdit>
#include <QStyledItemDelegate>

class QListView;

namespace tidewarden {

// Courier New, or what the system has in its place, small enough for a whole row in the list.
[[nodiscard]] QFont EventListFont();

class EventColumnsDelegate : public QStyledItemDelegate {
 public:
  explicit EventColumnsDelegate(QObject* parent = nullptr);

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& index) const override;

  // Shows the whole title of a row whose title does not fit into its column.
  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;

 private:
  QFont font_;
};

// The line of headings over a list: each word stands over its column, whatever the blanks between
// them measure.
class ColumnHeadings : public QLineEdit {
 public:
  // `list` is shown under the headings, in the same window.
  ColumnHeadings(const QListView* list, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const QListView* list_;
};

}  // namespace tidewarden
