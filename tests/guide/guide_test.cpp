#include "guide/guide.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

namespace tidewarden {
namespace {

Guide::Reader From(const std::map<std::string, std::string>& files) {
  return [files](const std::string& name) {
    const auto found = files.find(name);
    return found == files.end() ? std::string() : found->second;
  };
}

Guide SmallGuide() {
  return Guide(From({{"index.md",
                      "# Start\n\n- [B](b.md)\n- [A](../x/a.md)\n- [E](e.txt)\n"
                      "- [No](missing.md), [out](https://example.org/c.md), [B again](b.md#two)\n"},
                     {"a.md", "# Alpha\n\n## One\n\ntext\n"},
                     {"b.md", "# Beta `b`\n\nlead\n\n## Two\n\ntwo\n\n## Two\n\nmore\n"},
                     {"e.txt", "# not a heading\n"},
                     {"unlinked.md", "# Unlinked\n"}}));
}

TEST(Guide, ListsItsTopicsInTheOrderOfTheContents) {
  const Guide guide = SmallGuide();
  std::vector<std::string> names;
  for (const GuideTopic& topic : guide.topics()) names.push_back(topic.name + ": " + topic.title);
  EXPECT_THAT(names, ::testing::ElementsAre("index: Start", "b: Beta b", "a: Alpha", "e: E"));
}

TEST(Guide, CutsTopicsIntoSectionsWithAnchorsOfTheirOwn) {
  const Guide guide = SmallGuide();
  const auto& sections = guide.topics()[1].sections;
  ASSERT_EQ(sections.size(), 3U);
  EXPECT_EQ(sections[0].text, "lead\n");
  EXPECT_EQ(sections[1].anchor, "two");
  EXPECT_EQ(sections[2].anchor, "two-1");
  EXPECT_EQ(sections[2].text, "more\n");
}

TEST(Guide, ShowsAPlainTextLineByLine) {
  const Guide guide = SmallGuide();
  const GuideTopic& topic = guide.topics()[3];
  ASSERT_EQ(topic.sections.size(), 1U);
  EXPECT_EQ(topic.sections[0].text, "# not a heading\n\n");
}

TEST(Guide, FindsTheWayOfALink) {
  const Guide guide = SmallGuide();
  const auto at = [](std::size_t topic, const char* anchor) {
    return std::optional(GuidePlace{topic, anchor});
  };
  EXPECT_EQ(guide.Locate("a"), at(2, ""));
  EXPECT_EQ(guide.Locate("A.md"), at(2, ""));
  EXPECT_EQ(guide.Locate("../docs/a.md#ONE"), at(2, "one"));
  EXPECT_EQ(guide.Locate("#one", 2), at(2, "one"));
  EXPECT_EQ(guide.Locate("b#two-1"), at(1, "two-1"));
  EXPECT_EQ(guide.Locate("b#beta-b"), at(1, ""));  // its own beginning
  for (const char* const nowhere :
       {"", "c", "a#two", "#two", "https://example.org/a.md", "a:b", "unlinked", "#", "a#"}) {
    EXPECT_EQ(guide.Locate(nowhere), std::nullopt) << nowhere;
  }
}

TEST(Guide, IsNeverEmpty) {
  const Guide guide(From({}));
  ASSERT_EQ(guide.topics().size(), 1U);
  EXPECT_EQ(guide.topics()[0].title, "index");
  EXPECT_EQ(guide.SectionOf({0, "nothing"}), 0U);
}

}  // namespace
}  // namespace tidewarden
