#include "guide/guide_search.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/guide/repository_guide.h"

namespace tidewarden {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

std::vector<std::string> Found(std::string_view text, std::string_view query) {
  std::vector<std::string> found;
  for (const TextRange& range : FindWords(text, SearchWords(query))) {
    found.emplace_back(text.substr(range.begin, range.end - range.begin));
  }
  return found;
}

Guide GuideOf(const std::string& first, const std::string& second) {
  return Guide([=](const std::string& name) -> std::string {
    if (name == "index.md") return "# Contents\n\n[1](one.md) [2](two.md)\n";
    return name == "one.md" ? first : name == "two.md" ? second : "";
  });
}

std::vector<std::string> Titles(const Guide& guide, std::string_view query) {
  std::vector<std::string> titles;
  for (const GuideHit& hit : SearchGuide(guide, query)) titles.push_back(hit.title);
  return titles;
}

TEST(SearchWords, ArePartedAtWhiteSpaceLowerCasedAndTakenOnce) {
  EXPECT_THAT(SearchWords("  Bell\tring  BELL\n"), ElementsAre("bell", "ring"));
  EXPECT_THAT(SearchWords(" \t "), IsEmpty());
}

TEST(FindWords, DisregardsLetterCaseInEveryScript) {
  EXPECT_THAT(Found("Zoë, ZOË and zoë", "zOë"), ElementsAre("Zoë", "ZOË", "zoë"));
  EXPECT_THAT(Found("ПРАЗДНИК", "праздник"), ElementsAre("ПРАЗДНИК"));
  // The Kelvin sign has three bytes, the letter that it becomes has one.
  EXPECT_THAT(Found("30 \u212Aelvin", "kelvin"), ElementsAre("\u212Aelvin"));
}

TEST(FindWords, FindsInsideWordsAndPrefersTheLonger) {
  EXPECT_THAT(Found("reminder", "mind"), ElementsAre("mind"));
  EXPECT_THAT(Found("every everyday", "every everyday"), ElementsAre("every", "everyday"));
  EXPECT_THAT(Found("aaa", "aa"), ElementsAre("aa"));
  EXPECT_THAT(Found("abc", ""), IsEmpty());
  EXPECT_THAT(Found("", "a"), IsEmpty());
  EXPECT_THAT(Found("x\xFFy", "y"), ElementsAre("y"));
}

TEST(SearchGuide, WantsEveryWordInOneSection) {
  const Guide guide =
      GuideOf("# One\n\nbell and ring\n\n## More\n\nonly bell\n", "# Two\n\nring\n");
  EXPECT_THAT(Titles(guide, "ring bell"), ElementsAre("One"));
  EXPECT_THAT(Titles(guide, "bell"), ElementsAre("One", "One: More"));
  EXPECT_THAT(Titles(guide, "bell xyzzy"), IsEmpty());
  EXPECT_THAT(Titles(guide, ""), IsEmpty());
}

TEST(SearchGuide, PutsTitlesBeforeHeadingsAndHeadingsBeforeText) {
  const Guide guide = GuideOf("# One\n\nalarm alarm alarm alarm alarm alarm\n\n## The alarm\n\nx\n",
                              "# Alarm\n\ny\n");
  EXPECT_THAT(Titles(guide, "ALARM"), ElementsAre("Alarm", "One: The alarm", "One"));
}

TEST(SearchGuide, PrefersWholeWordsToPartsOfWords) {
  EXPECT_THAT(Titles(GuideOf("# One\n\nholidays\n", "# Two\n\nday\n"), "day"),
              ElementsAre("Two", "One"));
  EXPECT_THAT(Titles(GuideOf("# One\n\nholidays\n", "# Two\n\ndaylight\n"), "day"),
              ElementsAre("Two", "One"));
  // Equally good ones keep the guide's order.
  EXPECT_THAT(Titles(GuideOf("# One\n\nday\n", "# Two\n\nday\n"), "day"),
              ElementsAre("One", "Two"));
}

TEST(SearchGuide, ShowsTheTextAroundTheFirstWordOnOneLine) {
  std::string before;
  for (int i = 0; i < 30; ++i) before += "word ";
  const std::string after(300, 'c');
  const Guide guide = GuideOf("# One\n\n" + before + "`bell`\n- x " + after + "\n", "# Two\n");
  const auto hits = SearchGuide(guide, "bell");
  ASSERT_EQ(hits.size(), 1U);
  EXPECT_THAT(hits[0].excerpt, HasSubstr(" word bell x ccc"));
  EXPECT_EQ(hits[0].excerpt.find('\n'), std::string::npos);
  EXPECT_TRUE(hits[0].excerpt.starts_with("… word word")) << hits[0].excerpt;
  EXPECT_TRUE(hits[0].excerpt.ends_with(" …"));
  EXPECT_LT(hits[0].excerpt.size(), 150U);
  EXPECT_EQ(SearchGuide(guide, "two")[0].excerpt, "");
  // From the beginning of a line nothing is missing.
  EXPECT_EQ(SearchGuide(GuideOf("# One\n\na\n\nthe bell\n", "# Two\n"), "bell")[0].excerpt,
            "the bell ");
}

TEST(SearchGuide, FindsWhatPeopleLookForInTheRealGuide) {
  struct Case {
    const char* query;
    const char* expected;  // the first hit
  };
  for (const Case& search : std::initializer_list<Case>{
           {"alarm", "Alarms"},
           {"backup", "Backups and where your files are"},
           {"comma", "Questions people ask: Can a title hold a comma?"},
           {"easter", "Feasts: Feasts that move with Easter"},
           {"showlessthan", "Options: The list"},
           {"keyboard", "Keyboard"},
           {"exit codes", "At the terminal: Exit codes"},
           {"restore backup", "Backups and where your files are: Backups"},
           {"uninstall", "Questions people ask: How do I uninstall Tidewarden?"},
           {"snooze", "Questions people ask: Can I snooze an alarm?"},
           {"holidays", "Feasts"},
           {"color", "Questions people ask: How do I change the colours or the size of the text?"},
           {"text size",
            "Questions people ask: How do I change the colours or the size of the text?"},
           {"smartscreen", "Getting started: On Windows"},
           {"overdue task", "Questions people ask: How do I get rid of an overdue task?"}}) {
    const auto titles = Titles(test::RepositoryGuide(), search.query);
    ASSERT_FALSE(titles.empty()) << search.query;
    EXPECT_EQ(titles.front(), search.expected) << search.query;
  }
}

}  // namespace
}  // namespace tidewarden
