// A page of the guide as a text that Qt can draw.
#pragma once

#include <QPalette>
#include <QTextDocument>

#include "guide/guide_search.h"

namespace tidewarden {

// Fills a document with Markdown and gives it the looks of the guide in the colours of `palette`,
// so that it can be read on a light and on a dark desktop. Sizes follow the document's default
// font.
void FillPage(QTextDocument& document, const std::string& markdown, const QPalette& palette);

// Where the section with this number begins (GuideTopic::sections); 0 for one that is not there.
[[nodiscard]] int PositionOfSection(const QTextDocument& document, std::size_t section);

// The document's text as the engine sees it, and a place in it as Qt counts.
class PageText {
 public:
  explicit PageText(const QTextDocument& document);

  [[nodiscard]] const std::string& utf8() const { return utf8_; }
  [[nodiscard]] int PositionOf(std::size_t byte) const;

 private:
  std::string utf8_;
};

}  // namespace tidewarden
