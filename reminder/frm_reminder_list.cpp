#include "reminder/frm_reminder_list.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QToolTip>
#include <algorithm>

#include "reminder/frm_reminder_look.h"

namespace tidewarden {
namespace {

// A selected row has the list's colours the other way round under every style; that of Windows has
// a pale colour of its own for it.
class ListRows : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    if (!option->state.testFlag(QStyle::State_Selected)) return;
    option->state &= ~(QStyle::State_Selected | QStyle::State_MouseOver);
    option->backgroundBrush = option->palette.brush(QPalette::Highlight);
    option->palette.setBrush(QPalette::Text, option->palette.brush(QPalette::HighlightedText));
  }
};

}  // namespace

ReminderListView::ReminderListView(QWidget* parent) : QListView(parent) {
  setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setLayoutMode(QListView::Batched);
  setContextMenuPolicy(Qt::NoContextMenu);
  setItemDelegate(new ListRows(this));
}

int ReminderListView::SelectedRow() const {
  const QModelIndexList selected = selectedIndexes();
  return selected.isEmpty() ? kNoRow : selected.first().row();
}

void ReminderListView::Select(int row) {
  if (row == kNoRow) {
    clearSelection();
  } else {
    setCurrentIndex(model()->index(row, 0));
  }
}

// The rows are laid out in portions, at once only what can be seen. As long as the rows above that
// are missing, the bar does not reach so far and the list jumps.
void ReminderListView::doItemsLayout() {
  constexpr int kPortion = 500;
  const int top = verticalScrollBar()->value();
  const int shown = viewport()->height() / std::max(1, fontMetrics().height()) + 1;
  setBatchSize(top + 2 * shown);
  QListView::doItemsLayout();
  setBatchSize(kPortion);
  const bool isCut = verticalScrollBar()->value() < top && top + shown < model()->rowCount();
  if (!isCut) return;
  // An earlier layout was still under way and would only now begin anew.
  setLayoutMode(QListView::SinglePass);
  QListView::doItemsLayout();
  setLayoutMode(QListView::Batched);
  verticalScrollBar()->setValue(top);
}

void ReminderListView::selectionChanged(const QItemSelection& selected,
                                        const QItemSelection& deselected) {
  QListView::selectionChanged(selected, deselected);
  Q_EMIT RowSelected(SelectedRow());
}

void ReminderListView::mousePressEvent(QMouseEvent* event) {
  const QModelIndex index = indexAt(event->position().toPoint());
  if (event->button() == Qt::RightButton) {
    Q_EMIT MenuWanted(index.isValid() ? index.row() : kNoRow, event->globalPosition().toPoint());
  } else if (index.isValid()) {
    QListView::mousePressEvent(event);
  }
  // A click beside the rows leaves the selection as it is.
}

void ReminderListView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) {
    Q_EMIT OpenWanted();
  } else {
    mousePressEvent(event);
  }
}

void ReminderListView::keyPressEvent(QKeyEvent* event) {
  const bool menuKey = event->key() == Qt::Key_Menu ||
                       (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier);
  if (!menuKey) {
    const QModelIndex before = currentIndex();
    QListView::keyPressEvent(event);
    // The mouse has only to rest on a row; the keyboard has no other way to the end of a long one.
    const QModelIndex now = currentIndex();
    if (now != before) ShowWholeRow(now, viewport()->mapToGlobal(visualRect(now).bottomLeft()));
    return;
  }
  const int row = SelectedRow();
  const QModelIndex index = model()->index(row, 0);
  if (index.isValid()) scrollTo(index);
  const QRect place = visualRect(index).intersected(viewport()->rect());
  Q_EMIT MenuWanted(row, viewport()->mapToGlobal(place.bottomLeft()));
}

// The base class marks the first row, as if somebody had chosen it.
void ReminderListView::focusInEvent(QFocusEvent* event) {
  const bool hadCurrent = currentIndex().isValid();
  QListView::focusInEvent(event);
  if (!hadCurrent) selectionModel()->clearCurrentIndex();
}

void ReminderListView::resizeEvent(QResizeEvent* event) {
  // In a low list the bar would take the place of the few rows that it serves; dots then tell
  // that a row goes on.
  constexpr int kRowsBesideBar = 12;
  const bool hasRoom = height() >= kRowsBesideBar * fontMetrics().height();
  const auto policy = hasRoom ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff;
  if (horizontalScrollBarPolicy() != policy) {
    setHorizontalScrollBarPolicy(policy);
    setTextElideMode(hasRoom ? Qt::ElideNone : Qt::ElideRight);
    // Without the bar nobody asks how wide the rows are, and only the shown ones are measured.
    setUniformItemSizes(!hasRoom);
    scheduleDelayedItemsLayout();
  }
  QListView::resizeEvent(event);
}

bool ReminderListView::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QListView::viewportEvent(event);
  const auto* const help = static_cast<const QHelpEvent*>(event);
  ShowWholeRow(indexAt(help->pos()), help->globalPos());
  return true;
}

// A row that is wider than the window can be read without widening it.
void ReminderListView::ShowWholeRow(const QModelIndex& index, const QPoint& place) {
  const QRect row = visualRect(index);
  const bool isCut =
      row.left() < 0 || row.left() + sizeHintForIndex(index).width() > viewport()->width();
  QToolTip::showText(place, isCut ? PlainToolTip(index.data().toString()) : QString(), viewport(),
                     row);
}

}  // namespace tidewarden
