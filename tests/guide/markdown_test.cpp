#include "guide/markdown.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace tidewarden {
namespace {

using ::testing::ElementsAre;

std::vector<std::string> Kinds(std::string_view text) {
  static const std::vector<std::string> names = {"heading",  "paragraph", "bullet",
                                                 "numbered", "code",      "table"};
  std::vector<std::string> kinds;
  for (const Block& block : ReadMarkdown(text)) {
    kinds.push_back(names.at(static_cast<std::size_t>(block.kind)));
  }
  return kinds;
}

TEST(Markdown, IsCutIntoBlocks) {
  EXPECT_THAT(Kinds("# Title\n\nText.\n- one\n- two\n\n1. first\n2. second\n\n"
                    "```\n# no heading\n\n| no table |\n```\n\n| a | b |\n|---|---|\n| 1 | 2 |\n"),
              ElementsAre("heading", "paragraph", "bullet", "bullet", "numbered", "numbered",
                          "code", "table"));
}

TEST(Markdown, JoinsTheLinesOfAParagraphAndPartsParagraphsAtBlankLines) {
  const auto blocks = ReadMarkdown("one\r\ntwo\r\n\r\nthree");
  ASSERT_EQ(blocks.size(), 2U);
  EXPECT_EQ(blocks[0].text, "one two");
  EXPECT_EQ(blocks[1].text, "three");
}

TEST(Markdown, KeepsCodeAsItStands) {
  const auto blocks = ReadMarkdown("```\n  a *b*\n\n- c\n```\nafter");
  ASSERT_EQ(blocks.size(), 2U);
  EXPECT_EQ(blocks[0].text, "  a *b*\n\n- c\n");
  EXPECT_EQ(PlainText(blocks[0]), blocks[0].text);
  // One that is never closed.
  EXPECT_EQ(ReadMarkdown("```\na\n").back().text, "a\n");
}

TEST(Markdown, ReadsTablesWithEscapedBars) {
  const auto blocks = ReadMarkdown("| A | B |\n|:--|--:|\n| `x \\| y` | |\n");
  ASSERT_EQ(blocks.size(), 1U);
  ASSERT_EQ(blocks[0].rows.size(), 2U);
  EXPECT_THAT(blocks[0].rows[0], ElementsAre("A", "B"));
  EXPECT_THAT(blocks[0].rows[1], ElementsAre("`x | y`", ""));
  EXPECT_EQ(PlainText(blocks[0]), "A\nB\nx | y\n\n");
}

TEST(Markdown, KnowsHeadingsByTheirBlank) {
  EXPECT_EQ(ReadMarkdown("### Three").front().number, 3);
  EXPECT_EQ(ReadMarkdown("#none").front().kind, BlockKind::kParagraph);
  EXPECT_EQ(ReadMarkdown("####### seven").front().kind, BlockKind::kParagraph);
}

TEST(Markdown, LeavesCommentsOut) {
  EXPECT_TRUE(ReadMarkdown("<!-- hidden -->\n").empty());
}

TEST(Spans, AreReadByTheirMarks) {
  EXPECT_THAT(ReadSpans("a `b*` **c** *d* [e](f.md#g) ![h](i.png)"),
              ElementsAre(Span{SpanKind::kText, "a ", ""}, Span{SpanKind::kCode, "b*", ""},
                          Span{SpanKind::kText, " ", ""}, Span{SpanKind::kStrong, "c", ""},
                          Span{SpanKind::kText, " ", ""}, Span{SpanKind::kStressed, "d", ""},
                          Span{SpanKind::kText, " ", ""}, Span{SpanKind::kLink, "e", "f.md#g"},
                          Span{SpanKind::kText, " ", ""}, Span{SpanKind::kPicture, "h", "i.png"}));
}

TEST(Spans, LeaveMarksWithoutAPartnerAsText) {
  for (const char* const text : {"2 * 3", "a ` b", "[a] b", "**", "*", "[a](b", "![", "\\"}) {
    EXPECT_EQ(PlainText(std::string_view(text)), text);
  }
  EXPECT_EQ(PlainText(std::string_view("\\*a\\* \\n")), "*a* \\n");
}

// Whatever a page holds, reading it ends, and no text comes out that was not there.
TEST(Markdown, IsReadWhateverItHolds) {
  constexpr std::string_view kSigns = "*`[]()!\\#|-1. \n<ab\xC3\xAB\xFF";
  std::mt19937 random(20261121);  // NOLINT: the same every time
  for (int i = 0; i < 20'000; ++i) {
    std::string text;
    for (auto length = random() % 40; length > 0; --length) {
      text.push_back(kSigns[random() % kSigns.size()]);
    }
    std::size_t letters = 0;
    for (const Block& block : ReadMarkdown(text)) {
      const std::string plain = PlainText(block);
      letters += static_cast<std::size_t>(std::count(plain.begin(), plain.end(), 'a'));
    }
    EXPECT_LE(letters, static_cast<std::size_t>(std::count(text.begin(), text.end(), 'a'))) << text;
  }
}

TEST(Anchors, AreThoseOfLinksToHeadings) {
  EXPECT_EQ(AnchorOf("Which rule wins"), "which-rule-wins");
  EXPECT_EQ(AnchorOf("Why \"Las\" and not \"Last\"?"), "why-las-and-not-last");
  EXPECT_EQ(AnchorOf("The 29th, 30th"), "the-29th-30th");
  EXPECT_EQ(AnchorOf("Zoë_x-Y"), "zoë_x-y");
}

}  // namespace
}  // namespace tidewarden
