#include "guide/markdown.h"

#include <algorithm>

#include "dates/text.h"

namespace tidewarden {
namespace {

constexpr std::string_view kFence = "```";
constexpr std::string_view kComment = "<!--";
constexpr std::string_view kBullet = "- ";
constexpr std::size_t kDeepestHeading = 6;

std::vector<std::string_view> LinesOf(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    lines.push_back(line);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

// 0 for a line that is no heading.
std::size_t HeadingLevel(std::string_view line) {
  const std::size_t level = std::min(line.find_first_not_of('#'), line.size());
  const bool isHeading = level > 0 && level <= kDeepestHeading && line.substr(level, 1) == " ";
  return isHeading ? level : 0;
}

// The length of "12. " at the front; 0 where there is none.
std::size_t NumberLength(std::string_view line) {
  const std::size_t digits = std::min(line.find_first_not_of("0123456789"), line.size());
  return digits > 0 && digits < 4 && line.substr(digits, 2) == ". " ? digits + 2 : 0;
}

bool IsRule(std::string_view row) {
  return row.find_first_not_of("|-: ") == std::string_view::npos;
}

std::vector<std::string> CellsOf(std::string_view row) {
  std::vector<std::string> cells;
  std::string cell;
  row.remove_prefix(1);
  for (std::size_t i = 0; i < row.size(); ++i) {
    if (row[i] == '\\' && row.substr(i + 1, 1) == "|") {
      cell.push_back(row[++i]);
    } else if (row[i] == '|') {
      cells.emplace_back(Trim(cell));
      cell.clear();
    } else {
      cell.push_back(row[i]);
    }
  }
  if (!Trim(cell).empty()) cells.emplace_back(Trim(cell));
  return cells;
}

class BlockReader {
 public:
  std::vector<Block> Read(std::string_view text) {
    for (const std::string_view line : LinesOf(text)) Take(line);
    return std::move(blocks_);
  }

 private:
  void Take(std::string_view line) {
    if (line.starts_with(kFence)) {
      inCode_ = !inCode_;
      if (inCode_) Begin(BlockKind::kCode);
      continues_ = inCode_;
    } else if (inCode_) {
      blocks_.back().text.append(line).push_back('\n');
    } else if (Trim(line).empty() || line.starts_with(kComment)) {
      continues_ = false;
    } else if (line.starts_with('|')) {
      TakeRow(line);
    } else {
      TakeText(line);
    }
  }

  void TakeRow(std::string_view line) {
    if (!continues_ || blocks_.back().kind != BlockKind::kTable) Begin(BlockKind::kTable);
    if (!IsRule(line)) blocks_.back().rows.push_back(CellsOf(line));
  }

  void TakeText(std::string_view line) {
    if (const std::size_t level = HeadingLevel(line); level > 0) {
      Begin(BlockKind::kHeading, static_cast<int>(level));
      blocks_.back().text = Trim(line.substr(level));
      continues_ = false;
    } else if (line.starts_with(kBullet)) {
      Begin(BlockKind::kBullet);
      blocks_.back().text = Trim(line.substr(kBullet.size()));
    } else if (const std::size_t length = NumberLength(line); length > 0) {
      Begin(BlockKind::kNumbered, DigitsValue(line.substr(0, length - 2)));
      blocks_.back().text = Trim(line.substr(length));
    } else {
      if (!continues_ || blocks_.back().kind == BlockKind::kTable) Begin(BlockKind::kParagraph);
      std::string& text = blocks_.back().text;
      if (!text.empty()) text.push_back(' ');
      text += Trim(line);
    }
  }

  void Begin(BlockKind kind, int number = 0) {
    blocks_.push_back({kind, number, {}, {}});
    continues_ = true;
  }

  std::vector<Block> blocks_;
  bool inCode_ = false;
  bool continues_ = false;  // the next line may belong to the last block
};

class SpanReader {
 public:
  explicit SpanReader(std::string_view text) : rest_(text) {}

  std::vector<Span> Read() {
    while (!rest_.empty()) {
      if (rest_.front() == '\\' && rest_.size() > 1 && IsPunctuation(rest_[1])) {
        text_.push_back(rest_[1]);
        rest_.remove_prefix(2);
      } else if (!TakeMarked("`", SpanKind::kCode) && !TakeMarked("**", SpanKind::kStrong) &&
                 !TakeMarked("*", SpanKind::kStressed) && !TakeLink()) {
        text_.push_back(rest_.front());
        rest_.remove_prefix(1);
      }
    }
    EndText();
    return std::move(spans_);
  }

 private:
  static bool IsPunctuation(char c) {
    return std::string_view("!\"#$%&'()*+,-./:;<=>?@[\\]^_`{|}~").find(c) != std::string_view::npos;
  }

  void EndText() {
    if (!text_.empty()) spans_.push_back({SpanKind::kText, text_, {}});
    text_.clear();
  }

  bool TakeMarked(std::string_view mark, SpanKind kind) {
    if (!rest_.starts_with(mark)) return false;
    const std::size_t end = rest_.find(mark, mark.size());
    if (end == std::string_view::npos || end == mark.size()) return false;
    EndText();
    const std::string_view inside = rest_.substr(mark.size(), end - mark.size());
    spans_.push_back({kind, kind == SpanKind::kCode ? std::string(inside) : PlainText(inside), {}});
    rest_.remove_prefix(end + mark.size());
    return true;
  }

  bool TakeLink() {
    const bool isPicture = rest_.starts_with("![");
    if (!isPicture && !rest_.starts_with('[')) return false;
    const std::size_t start = isPicture ? 2 : 1;
    const std::size_t middle = rest_.find("](");
    const std::size_t end = rest_.find(')', std::min(middle, rest_.size()));
    if (middle == std::string_view::npos || end == std::string_view::npos) return false;
    EndText();
    spans_.push_back({isPicture ? SpanKind::kPicture : SpanKind::kLink,
                      PlainText(rest_.substr(start, middle - start)),
                      std::string(rest_.substr(middle + 2, end - middle - 2))});
    rest_.remove_prefix(end + 1);
    return true;
  }

  std::string_view rest_;
  std::string text_;
  std::vector<Span> spans_;
};

}  // namespace

std::vector<Block> ReadMarkdown(std::string_view text) {
  return BlockReader().Read(text);
}

std::vector<Span> ReadSpans(std::string_view text) {
  return SpanReader(text).Read();
}

std::string PlainText(std::string_view inlineText) {
  std::string plain;
  for (const Span& span : ReadSpans(inlineText)) plain += span.text;
  return plain;
}

std::string PlainText(const Block& block) {
  if (block.kind == BlockKind::kCode) return block.text;
  if (block.kind != BlockKind::kTable) return PlainText(block.text);
  std::string plain;
  for (const auto& row : block.rows) {
    for (const std::string& cell : row) plain.append(PlainText(cell)).push_back('\n');
  }
  return plain;
}

std::string AnchorOf(std::string_view plainHeading) {
  std::string anchor;
  for (const char c : ToLower(plainHeading)) {
    const bool isLetterOrDigit = (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
    const bool isAscii = static_cast<unsigned char>(c) < 0x80;
    if (isLetterOrDigit || c == '-' || c == '_' || !isAscii) anchor.push_back(c);
    if (c == ' ') anchor.push_back('-');
  }
  return anchor;
}

}  // namespace tidewarden
