// Reads the small part of Markdown in which the guide is written: headings with "#", paragraphs,
// lists with "- " or "1. ", tables, fenced code, and inside a text `code`, **strong**, *stressed*,
// [links](target) and ![pictures](file). Anything else is text as it stands.
//
// The help window leaves the drawing to Qt, which reads the same texts; this reader serves what is
// made without Qt: the list of sections, the search and the manual pages.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tidewarden {

enum class SpanKind { kText, kCode, kStrong, kStressed, kLink, kPicture };

// A run of characters of one kind. A link's text is read no further.
struct Span {
  SpanKind kind = SpanKind::kText;
  std::string text;    // for a picture, what it shows
  std::string target;  // of a link or a picture

  bool operator==(const Span&) const = default;
};

enum class BlockKind { kHeading, kParagraph, kBullet, kNumbered, kCode, kTable };

struct Block {
  BlockKind kind = BlockKind::kParagraph;
  int number = 0;    // a heading's level, 1 to 6; a numbered item's number
  std::string text;  // inline text, see ReadSpans; the lines of a code block as they stand
  std::vector<std::vector<std::string>> rows;  // of a table: cells of inline text, the head first
};

// The blocks of a text, whose lines end with LF or CR LF. HTML comments are left out. A fence that
// is never closed runs to the end.
[[nodiscard]] std::vector<Block> ReadMarkdown(std::string_view text);

// The spans of an inline text. A mark without its partner is text; a backslash takes the meaning
// from a punctuation character behind it.
[[nodiscard]] std::vector<Span> ReadSpans(std::string_view text);

// An inline text without its marks. A picture gives what it shows.
[[nodiscard]] std::string PlainText(std::string_view inlineText);

// All texts of a block in reading order, the cells of a table one a line.
[[nodiscard]] std::string PlainText(const Block& block);

// The name by which a link finds a heading: lower-case letters, digits, "-" and "_"; blanks become
// "-"; other ASCII characters are left out.
[[nodiscard]] std::string AnchorOf(std::string_view plainHeading);

}  // namespace tidewarden
