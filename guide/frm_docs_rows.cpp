#include "guide/frm_docs_rows.h"

#include <QListWidget>
#include <QPainter>

namespace tidewarden {
namespace {

constexpr int kMargin = 4;
constexpr int kMostHeight = 10'000;
constexpr double kSmallPrint = 0.9;

// The two texts of a row with their fonts and places.
struct RowLayout {
  QFont titleFont;
  QFont detailFont;
  QString title;
  QString detail;
  QRect titleArea;
  QRect detailArea;
};

RowLayout LayOut(const QFont& font, const QModelIndex& index, QPoint corner, int width) {
  RowLayout row;
  row.title = index.data(Qt::DisplayRole).toString();
  row.detail = index.data(DocsRows::kDetailRole).toString();
  row.titleFont = font;
  row.titleFont.setBold(!row.detail.isEmpty());
  row.detailFont = font;
  row.detailFont.setPointSizeF(QFontInfo(font).pointSizeF() * kSmallPrint);
  const QRect room(corner + QPoint(kMargin, kMargin), QSize(width - 2 * kMargin, kMostHeight));
  row.titleArea = QFontMetrics(row.titleFont).boundingRect(room, Qt::TextWordWrap, row.title);
  const QRect rest(room.left(), row.titleArea.bottom() + 1, room.width(), kMostHeight);
  if (!row.detail.isEmpty()) {
    row.detailArea = QFontMetrics(row.detailFont).boundingRect(rest, Qt::TextWordWrap, row.detail);
  }
  return row;
}

}  // namespace

DocsRows::DocsRows(QListWidget* list) : QStyledItemDelegate(list), list_(list) {}

void DocsRows::paint(QPainter* painter, const QStyleOptionViewItem& option,
                     const QModelIndex& index) const {
  // The style draws the focus in its own way. A selected row has the desktop's colours for it:
  // Windows' style has a pale colour of its own, on which the text would vanish.
  const bool isSelected = option.state.testFlag(QStyle::State_Selected);
  QStyleOptionViewItem background = option;
  initStyleOption(&background, index);
  background.text.clear();
  if (isSelected) {
    background.state &= ~(QStyle::State_Selected | QStyle::State_MouseOver);
    background.backgroundBrush = option.palette.brush(QPalette::Highlight);
  }
  const QStyle* style = list_->style();
  style->drawControl(QStyle::CE_ItemViewItem, &background, painter, list_);

  const RowLayout row = LayOut(option.font, index, option.rect.topLeft(), option.rect.width());
  painter->save();
  painter->setPen(option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text));
  painter->setFont(row.titleFont);
  painter->drawText(row.titleArea, Qt::TextWordWrap, row.title);
  painter->setFont(row.detailFont);
  painter->drawText(row.detailArea, Qt::TextWordWrap, row.detail);
  painter->restore();
}

QSize DocsRows::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const int width = list_->viewport()->width() - 2 * list_->spacing();
  const RowLayout row = LayOut(option.font, index, {}, width);
  const int bottom = row.detail.isEmpty() ? row.titleArea.bottom() : row.detailArea.bottom();
  return {width, bottom + 1 + kMargin};
}

}  // namespace tidewarden
