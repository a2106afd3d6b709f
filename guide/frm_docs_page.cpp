#include "guide/frm_docs_page.h"

#include <QFontMetricsF>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextFrame>
#include <QTextTable>
#include <algorithm>

namespace tidewarden {
namespace {

// The skin's teal, and a lighter one for dark surfaces; both have a contrast above 4.5 to 1.
constexpr QRgb kLinkOnLight = 0xFF0D6580;
constexpr QRgb kLinkOnDark = 0xFF7FD0E8;
constexpr int kDark = 128;
constexpr double kLineHeight = 120;  // percent
constexpr double kNarrowColumn = 9;  // in lines of text
constexpr double kSpare = 4;         // for what lies between measuring and drawing

struct Colours {
  QColor link;
  QColor line;
  QColor shade;  // behind code and the heads of tables
};

QColor Mix(const QColor& a, const QColor& b, double share) {
  const auto part = [share](int x, int y) { return static_cast<int>(x + (y - x) * share); };
  return {part(a.red(), b.red()), part(a.green(), b.green()), part(a.blue(), b.blue())};
}

Colours ColoursOn(const QPalette& palette) {
  const QColor base = palette.color(QPalette::Base);
  const QColor text = palette.color(QPalette::Text);
  const bool isDark = base.lightness() < kDark;
  return {QColor(isDark ? kLinkOnDark : kLinkOnLight), Mix(base, text, 0.25),
          Mix(base, text, 0.07)};
}

// How much room the text of a cell would take on one line, and its longest word.
struct CellWidths {
  double line = 0;
  double word = 0;
};

CellWidths WidthsOf(const QTextTableCell& cell, const QFont& font) {
  CellWidths widths;
  for (auto block = cell.begin(); !block.atEnd(); ++block) {
    double line = 0;
    for (auto it = block.currentBlock().begin(); !it.atEnd(); ++it) {
      QFont drawn = it.fragment().charFormat().font();
      drawn.setPointSizeF(font.pointSizeF());
      drawn.setBold(drawn.bold() || cell.row() == 0);
      const QFontMetricsF metrics(drawn);
      line += metrics.horizontalAdvance(it.fragment().text());
      for (const QString& word : it.fragment().text().split(QLatin1Char(' '))) {
        widths.word = std::max(widths.word, metrics.horizontalAdvance(word));
      }
    }
    widths.line = std::max(widths.line, line);
  }
  return widths;
}

// Left to itself Qt gives columns with little text as much room as those with much, and breaks the
// names of settings. Beside a column of long texts, short ones get what they need.
QList<QTextLength> ColumnWidths(const QTextTable& table, const QFont& font, double padding) {
  const double narrow = QFontMetricsF(font).height() * kNarrowColumn;
  QList<QTextLength> lengths;
  bool hasLongTexts = false;
  for (int column = 0; column < table.columns(); ++column) {
    CellWidths most;
    for (int row = 0; row < table.rows(); ++row) {
      const CellWidths widths = WidthsOf(table.cellAt(row, column), font);
      most = {std::max(most.line, widths.line), std::max(most.word, widths.word)};
    }
    hasLongTexts = hasLongTexts || most.line > narrow * 3;
    const double width = std::max(most.word, std::min(most.line, narrow));
    const bool isShort = most.line <= narrow * 2;
    lengths.append(isShort ? QTextLength(QTextLength::FixedLength, width + 2 * padding + kSpare)
                           : QTextLength());
  }
  return hasLongTexts ? lengths : QList<QTextLength>();
}

void StyleTable(QTextTable& table, const Colours& colours, const QFont& font) {
  const double unit = QFontMetricsF(font).height();
  QTextTableFormat format = table.format();
  format.setBorder(1);
  format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
  format.setBorderBrush(colours.line);
  format.setBorderCollapse(true);
  format.setCellPadding(unit * 0.35);
  format.setCellSpacing(0);
  format.setTopMargin(unit * 0.4);
  format.setBottomMargin(unit * 0.4);
  format.setColumnWidthConstraints(ColumnWidths(table, font, format.cellPadding()));
  table.setFormat(format);
  for (int column = 0; column < table.columns(); ++column) {
    QTextTableCell cell = table.cellAt(0, column);
    QTextCharFormat head = cell.format();
    head.setBackground(colours.shade);
    cell.setFormat(head);
  }
}

void StyleTables(QTextFrame& frame, const Colours& colours, const QFont& font) {
  for (QTextFrame* child : frame.childFrames()) {
    if (auto* table = qobject_cast<QTextTable*>(child)) StyleTable(*table, colours, font);
    StyleTables(*child, colours, font);
  }
}

bool IsCode(const QTextBlock& block) {
  return block.isValid() && block.blockFormat().hasProperty(QTextFormat::BlockCodeFence);
}

bool HoldsPicture(const QTextBlock& block) {
  return block.text().contains(QChar::ObjectReplacementCharacter);
}

QTextBlockFormat BlockLooks(const QTextBlock& block, const Colours& colours, double unit) {
  QTextBlockFormat format = block.blockFormat();
  const bool isInTable = QTextCursor(block).currentTable() != nullptr;
  if (IsCode(block)) {
    format.setBackground(colours.shade);
    format.setNonBreakableLines(false);
    format.setLeftMargin(unit);
    format.setTopMargin(IsCode(block.previous()) ? 0 : unit * 0.4);
    format.setBottomMargin(IsCode(block.next()) ? 0 : unit * 0.8);
  } else if (format.headingLevel() > 0) {
    format.setTopMargin(format.headingLevel() == 1 ? 0 : unit * 1.2);
    format.setBottomMargin(unit * 0.4);
  } else if (!isInTable) {
    // A picture would be given a fifth of its height in addition.
    if (!HoldsPicture(block)) {
      format.setLineHeight(kLineHeight, QTextBlockFormat::ProportionalHeight);
    }
    format.setTopMargin(0);
    format.setBottomMargin(block.textList() != nullptr ? unit * 0.2 : unit * 0.6);
  }
  return format;
}

// Links in a colour that can be read.
void StyleCharacters(const QTextBlock& block, QTextCursor& cursor, const Colours& colours) {
  for (auto it = block.begin(); !it.atEnd(); ++it) {
    const QTextFragment fragment = it.fragment();
    if (!fragment.charFormat().isAnchor()) continue;
    cursor.setPosition(fragment.position());
    cursor.setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
    QTextCharFormat format;
    format.setForeground(colours.link);
    cursor.mergeCharFormat(format);
  }
}

}  // namespace

void FillPage(QTextDocument& document, const std::string& markdown, const QPalette& palette) {
  document.setMarkdown(QString::fromStdString(markdown),
                       QTextDocument::MarkdownFeatures(QTextDocument::MarkdownNoHTML) |
                           QTextDocument::MarkdownDialectGitHub);
  const Colours colours = ColoursOn(palette);
  const double unit = QFontMetricsF(document.defaultFont()).height();
  document.setDocumentMargin(unit);
  document.setIndentWidth(unit * 1.5);
  QTextCursor cursor(&document);
  cursor.beginEditBlock();
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    cursor.setPosition(block.position());
    cursor.setBlockFormat(BlockLooks(block, colours, unit));
    StyleCharacters(block, cursor, colours);
  }
  StyleTables(*document.rootFrame(), colours, document.defaultFont());
  cursor.endEditBlock();
  document.clearUndoRedoStacks();
}

int PositionOfSection(const QTextDocument& document, std::size_t section) {
  std::size_t number = 0;
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    if (block.blockFormat().headingLevel() == 0) continue;
    if (number++ == section) return block.position();
  }
  return 0;
}

PageText::PageText(const QTextDocument& document) : utf8_(document.toPlainText().toStdString()) {}

int PageText::PositionOf(std::size_t byte) const {
  return static_cast<int>(QString::fromUtf8(utf8_.data(), static_cast<qsizetype>(byte)).size());
}

}  // namespace tidewarden
