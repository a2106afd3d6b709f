#include "editor/frm_edit_columns.h"

#include <QApplication>
#include <QHelpEvent>
#include <QListView>
#include <QPainter>
#include <QStyleOptionFrame>
#include <QToolTip>
#include <array>

#include "editor/event_rows.h"

namespace tidewarden {
namespace {

constexpr int kColumns = 61;
constexpr int kRowWidth = 545;  // the list without its frame and its scroll bar
constexpr int kLargestFont = 14;
constexpr int kSmallestFont = 8;
constexpr int kPadding = 4;  // left of the first column
constexpr int kRowSpacing = 3;
// Rows begin at the left for people who write from the right, too.
constexpr int kCellAlignment =
    Qt::AlignLeft | Qt::AlignAbsolute | Qt::AlignVCenter | Qt::TextSingleLine;
constexpr std::array<int, 4> kStarts{1, kTitleColumn, kAdvanceColumn, kOccursColumn};

double ColumnWidth(const QFont& font) {
  return QFontMetricsF(font).horizontalAdvance(QLatin1Char('0'));
}

// Where a column begins, counted from 1.
double ColumnLeft(int column, const QFont& font) {
  return kPadding + (column - 1) * ColumnWidth(font);
}

std::array<QString, 4> CellTexts(const QModelIndex& index) {
  const std::string row = index.data().toString().toStdString();
  const RowCells cells = CellsOf(row);
  std::array<QString, 4> texts;
  std::size_t i = 0;
  for (const std::string_view cell : {cells.date, cells.title, cells.advance, cells.occurs}) {
    texts.at(i++) = QString::fromUtf8(cell.data(), static_cast<qsizetype>(cell.size()));
  }
  return texts;
}

// Half way to the background: told from a list that can be used, and still read.
QColor Faded(const QPalette& palette) {
  const QColor text = palette.color(QPalette::Active, QPalette::Text);
  const QColor base = palette.color(QPalette::Disabled, QPalette::Base);
  return {(text.red() + base.red()) / 2, (text.green() + base.green()) / 2,
          (text.blue() + base.blue()) / 2};
}

bool IsMarked(const QStyleOptionViewItem& option) {
  return option.state.testFlag(QStyle::State_Enabled) &&
         option.state.testFlag(QStyle::State_Selected);
}

QPalette::ColorGroup GroupOf(const QStyleOptionViewItem& option) {
  return option.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
}

QColor TextColour(const QStyleOptionViewItem& option) {
  if (!option.state.testFlag(QStyle::State_Enabled)) return Faded(option.palette);
  return option.palette.color(GroupOf(option),
                              IsMarked(option) ? QPalette::HighlightedText : QPalette::Text);
}

}  // namespace

QFont EventListFont() {
  QFont font(QStringLiteral("Courier New"));
  font.setStyleHint(QFont::TypeWriter);
  font.setFixedPitch(true);
  int size = kLargestFont;
  do {
    font.setPixelSize(size);
  } while (kColumns * ColumnWidth(font) > kRowWidth && --size >= kSmallestFont);
  return font;
}

EventColumnsDelegate::EventColumnsDelegate(QObject* parent)
    : QStyledItemDelegate(parent), font_(EventListFont()) {}

void EventColumnsDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const {
  QStyleOptionViewItem background = option;
  initStyleOption(&background, index);
  background.text.clear();
  const QStyle* const style = option.widget ? option.widget->style() : QApplication::style();
  style->drawControl(QStyle::CE_ItemViewItem, &background, painter, option.widget);
  // Windows' style marks a row in a pale colour of its own, on which the text would vanish.
  if (IsMarked(option)) {
    painter->fillRect(option.rect, option.palette.brush(GroupOf(option), QPalette::Highlight));
  }

  painter->save();
  painter->setFont(font_);
  painter->setPen(TextColour(option));
  const std::array<QString, 4> texts = CellTexts(index);
  // What is wider than its column is cut at its edge.
  for (std::size_t i = 0; i < texts.size(); ++i) {
    QRectF cell(option.rect);
    cell.setLeft(option.rect.left() + ColumnLeft(kStarts.at(i), font_));
    if (i + 1 < texts.size()) {
      // The blank between two columns stays free.
      cell.setRight(option.rect.left() + ColumnLeft(kStarts.at(i + 1) - 1, font_));
    }
    painter->drawText(cell, kCellAlignment, texts.at(i));
  }
  painter->restore();
}

QSize EventColumnsDelegate::sizeHint(const QStyleOptionViewItem& /*option*/,
                                     const QModelIndex& /*index*/) const {
  return {static_cast<int>(ColumnLeft(kColumns + 1, font_)),
          QFontMetrics(font_).height() + kRowSpacing};
}

bool EventColumnsDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                     const QStyleOptionViewItem& option, const QModelIndex& index) {
  if (event->type() != QEvent::ToolTip || !index.isValid()) {
    return QStyledItemDelegate::helpEvent(event, view, option, index);
  }
  const QString title = CellTexts(index).at(1).trimmed();
  const double room = (kAdvanceColumn - 1 - kTitleColumn) * ColumnWidth(font_);
  if (QFontMetricsF(font_).horizontalAdvance(title) <= room) {
    QToolTip::hideText();
    return true;
  }
  // Marked up here, so that what the user typed cannot be.
  QToolTip::showText(event->globalPos(),
                     QStringLiteral("<p style='white-space:pre'>%1</p>").arg(title.toHtmlEscaped()),
                     view);
  return true;
}

ColumnHeadings::ColumnHeadings(const QListView* list, QWidget* parent)
    : QLineEdit(parent), list_(list) {
  setReadOnly(true);
  setFocusPolicy(Qt::NoFocus);
  setAttribute(Qt::WA_TransparentForMouseEvents);
}

void ColumnHeadings::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  QStyleOptionFrame panel;
  initStyleOption(&panel);
  style()->drawPrimitive(QStyle::PE_PanelLineEdit, &panel, &painter, this);

  painter.setPen(palette().color(QPalette::Text));
  const QPoint origin;
  const int left = list_->viewport()->mapTo(window(), origin).x() - mapTo(window(), origin).x();
  const QStringList words = text().split(QLatin1Char(' '), Qt::SkipEmptyParts);
  const QFont rows = EventListFont();
  for (int i = 0; i < words.size() && i < static_cast<int>(kStarts.size()); ++i) {
    QRectF place(rect());
    place.setLeft(left + ColumnLeft(kStarts.at(static_cast<std::size_t>(i)), rows));
    painter.drawText(place, kCellAlignment, words.at(i));
  }
}

}  // namespace tidewarden
