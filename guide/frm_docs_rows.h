// How the rows of the help window's list look: a title, and below it in smaller print some text of
// what a search has found.
#pragma once

#include <QStyledItemDelegate>

class QListWidget;

namespace tidewarden {

class DocsRows : public QStyledItemDelegate {
  Q_OBJECT

 public:
  // An item's DisplayRole is the title; the text below it stands in this role.
  static constexpr int kDetailRole = Qt::UserRole;

  explicit DocsRows(QListWidget* list);

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& index) const override;

 private:
  QListWidget* list_;
};

}  // namespace tidewarden
