#include "guide/man_page.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tidewarden {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

constexpr std::string_view kHead =
    ".TH TWDOCS 1 2026-11-21 \"Tidewarden 0.1.0\" \"Tidewarden Manual\"\n.nh\n.ad l\n";

std::string Body(std::string_view markdown) {
  const std::string page = WriteManPage({"twdocs", "1", "2026-11-21", "0.1.0"}, markdown);
  EXPECT_TRUE(page.starts_with(kHead)) << page;
  return page.substr(std::min(kHead.size(), page.size()));
}

TEST(ManPage, IsWrittenBlockByBlock) {
  struct Case {
    const char* markdown;
    const char* expected;
  };
  for (const Case& block :
       std::initializer_list<Case>{{"# twdocs: the guide", ".SH NAME\ntwdocs \\- the guide\n"},
                                   {"## See also", ".SH SEE ALSO\n"},
                                   {"### Low level", ".SS Low level\n"},
                                   {"one\n\ntwo", ".PP\none\n.PP\ntwo\n"},
                                   {"## A\n\none\n\ntwo", ".SH A\none\n.PP\ntwo\n"},
                                   {"- a\n- b", ".IP \\(bu 3\na\n.IP \\(bu 3\nb\n"},
                                   {"1. a\n2. b", ".IP 1. 4\na\n.IP 2. 4\nb\n"},
                                   {"```\n.TH x\n'y - z\n\n\\n\n```",
                                    ".PP\n.RS 4\n.nf\n\\&.TH x\n\\(aqy \\- z\n\n\\en\n.fi\n.RE\n"},
                                   {"| A | B |\n|---|---|\n| `-x` | y |", ".TP\n\\fB\\-x\\fR\ny\n"},
                                   {"| A | B | C |\n|---|---|---|\n| x | y | z |",
                                    ".TP\nx\n\\fIB\\fR: y\n.br\n\\fIC\\fR: z\n"},
                                   {"| A | B | What it does |\n|---|---|---|\n| x | y | z |",
                                    ".TP\nx\n\\fIB\\fR: y\n.br\nz\n"},
                                   {"![only a picture](x.png)", ""}}) {
    EXPECT_EQ(Body(block.markdown), block.expected) << block.markdown;
  }
}

TEST(ManPage, WritesEverySignAsItIsMeant) {
  EXPECT_EQ(Body("a - b 'c' \"d\" \\\\e ~/f^g"), ".PP\na - b 'c' \\(dqd\\(dq \\ee \\(ti/f\\(hag\n");
  EXPECT_EQ(Body("Zoë … 😀"), ".PP\nZo\\[u00EB] \\[u2026] \\[u1F600]\n");
  EXPECT_EQ(Body("`.a` **b** *c*"), ".PP\n\\fB.a\\fR \\fBb\\fR \\fIc\\fR\n");
}

TEST(ManPage, LeavesOfALinkItsTextAndOnlyOfAWebPageTheAddress) {
  EXPECT_EQ(Body("[a](b.md) [c](https://example.org/)"), ".PP\na c (https://example.org/)\n");
}

// Two pages: one of a whole text, and one of a section of it and of another text.
ManPlaces TwoPlaces() {
  ManPlaces places;
  places.Add("first(1)", "# first: x\n\n<!-- include ../guide/a.md#two -->\nc.md\n");
  places.Add("twdocs(1)", "<!-- include below ../guide/b.md -->\n<!-- include a.md#three -->\n");
  return places;
}

TEST(ManPlaces, AreThoseOfTheIncludes) {
  struct Case {
    const char* target;
    const char* from;
    const char* expected;
  };
  for (const Case& link : std::initializer_list<Case>{
           {"a.md#two", "twdocs(1)", "first(1)"},
           {"guide/a.md#three", "first(1)", "twdocs(1)"},
           {"../x/b.md#any", "first(1)", "twdocs(1)"},
           {"b.md", "twdocs(1)", "twdocs(1)"},
           {"a.md", "first(1)", "first(1)"},    // a part of it
           {"a.md", "twdocs(1)", "twdocs(1)"},  // its own part, though another page comes first
           {"a.md", "other(5)", "first(1)"},
           {"#two", "other(5)", "other(5)"},
           {"a.md#four", "first(1)", ""},
           {"c.md", "first(1)", ""},
           {"https://example.org/b.md", "first(1)", ""}}) {
    EXPECT_EQ(TwoPlaces().PageOf(link.target, link.from), link.expected) << link.target;
  }
}

TEST(ManPage, TellsOnWhichOtherPageALinkLeads) {
  const auto body = [](std::string_view markdown) {
    return WriteManPage({"twdocs", "1", "2026-11-21", "0.1.0"}, markdown, TwoPlaces())
        .substr(kHead.size());
  };
  EXPECT_EQ(body("See [Two](a.md#two)."), ".PP\nSee Two in \\fBfirst(1)\\fR.\n");
  EXPECT_EQ(body("It is [two](a.md#two)."), ".PP\nIt is two (see \\fBfirst(1)\\fR).\n");
  EXPECT_EQ(body("See [B](b.md#x), [Three](a.md#three), [Here](#here) and [No](c.md)."),
            ".PP\nSee B, Three, Here and No.\n");
}

TEST(ManPage, KeepsTheBlanksOfCode) {
  EXPECT_EQ(Body("`a   b c`  d"), ".PP\n\\fBa\\~\\~\\~b c\\fR d\n");
}

TEST(ManPage, BreaksLinesWithoutMakingCommands) {
  std::string words;
  for (int i = 0; i < 60; ++i) words += i % 2 == 0 ? "words " : ".x ";
  const std::string body = Body(words);
  std::size_t start = 0;
  for (std::size_t end = body.find('\n'); end != std::string::npos; end = body.find('\n', start)) {
    const std::string line = body.substr(start, end - start);
    EXPECT_LE(line.size(), 80U) << line;
    EXPECT_THAT(line, Not(::testing::StartsWith(".x")));
    start = end + 1;
  }
}

std::string Read(std::string_view name) {
  return name == "a.md" ? "# A\n\nlead\n\n## Two\n\ntwo\n\n### Low\n\nlow\n\n```\n# code\n```\n"
                          "\n## Three\n\nthree\n"
                        : std::string();
}

TEST(Includes, AreTheWholeTextOrASection) {
  EXPECT_EQ(PutIncludesIn("x\n<!-- include a.md#three -->\ny\n", Read),
            "x\n## Three\n\nthree\n\ny\n");
  const std::string section = PutIncludesIn("<!-- include a.md#two -->\n", Read);
  EXPECT_THAT(section, HasSubstr("## Two\n\ntwo\n\n### Low\n\nlow\n"));
  EXPECT_THAT(section, HasSubstr("# code"));
  EXPECT_THAT(section, Not(HasSubstr("three")));
  const std::string whole = PutIncludesIn("<!-- include a.md -->\n", Read);
  EXPECT_THAT(whole, Not(HasSubstr("# A")));
  EXPECT_THAT(whole, HasSubstr("lead"));
  EXPECT_THAT(whole, HasSubstr("three"));
}

TEST(Includes, MayGoOneLevelDownWithoutTheirCode) {
  const std::string below = PutIncludesIn("<!-- include below a.md -->\n", Read);
  EXPECT_THAT(below, HasSubstr("\n### Two\n"));
  EXPECT_THAT(below, HasSubstr("\n#### Low\n"));
  EXPECT_THAT(below, HasSubstr("\n# code\n"));
}

TEST(Includes, SayWhatIsMissing) {
  for (const char* const name : {"b.md", "a.md#four", "b.md#two"}) {
    EXPECT_THAT(PutIncludesIn(std::string("<!-- include ") + name + " -->\n", Read),
                HasSubstr(std::string(kMissingInclude) + " " + name));
  }
}

}  // namespace
}  // namespace tidewarden
