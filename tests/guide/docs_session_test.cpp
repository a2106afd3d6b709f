#include "guide/docs_session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tidewarden {
namespace {

using ::testing::ElementsAre;

const Guide& SmallGuide() {
  static const Guide guide([](const std::string& name) -> std::string {
    if (name == "index.md") return "# Contents\n\n[1](one.md) [2](two.md)\n";
    if (name == "one.md") return "# One\n\nbell\n\n## Part\n\nring\n";
    return name == "two.md" ? "# Two\n\nring\n" : "";
  });
  return guide;
}

std::vector<std::string> Titles(const DocsSession& session) {
  std::vector<std::string> titles;
  for (const DocsRow& row : session.rows()) titles.push_back(row.title);
  return titles;
}

TEST(DocsSession, BeginsAtTheContentsWithAllTopicsInTheList) {
  const DocsSession session(SmallGuide());
  EXPECT_EQ(session.topic().name, "index");
  EXPECT_THAT(Titles(session), ElementsAre("Contents", "One", "Two"));
  EXPECT_EQ(session.CurrentRow(), 0U);
  EXPECT_FALSE(session.CanGoBack() || session.CanGoForward() || session.IsSearching());
  EXPECT_EQ(session.Summary(), "");
}

TEST(DocsSession, BeginsAtATopicWithNothingToGoBackTo) {
  DocsSession session(SmallGuide());
  EXPECT_TRUE(session.Begin("one#part"));
  EXPECT_EQ(session.place(), (GuidePlace{1, "part"}));
  EXPECT_FALSE(session.CanGoBack());
  EXPECT_FALSE(session.Begin("three"));
  EXPECT_EQ(session.place(), GuidePlace{});
}

TEST(DocsSession, GoesBackAndForward) {
  DocsSession session(SmallGuide());
  EXPECT_TRUE(session.Open("one"));
  EXPECT_EQ(session.Follow("#part"), LinkKind::kInside);
  EXPECT_EQ(session.Follow("../x/two.md"), LinkKind::kInside);
  session.Back();
  EXPECT_EQ(session.place(), (GuidePlace{1, "part"}));
  session.Back();
  session.Back();
  session.Back();  // no further
  EXPECT_EQ(session.place(), GuidePlace{});
  EXPECT_TRUE(session.CanGoForward());
  session.Forward();
  EXPECT_EQ(session.place(), (GuidePlace{1, ""}));
  // Another way ends the way forward.
  session.OpenRow(2);
  EXPECT_FALSE(session.CanGoForward());
  session.Forward();
  EXPECT_EQ(session.topic().name, "two");
}

TEST(DocsSession, DoesNotRememberAPlaceTwiceInARow) {
  DocsSession session(SmallGuide());
  EXPECT_TRUE(session.Open("one"));
  EXPECT_TRUE(session.Open("one"));
  session.OpenRow(1);
  session.Back();
  EXPECT_FALSE(session.CanGoBack());
}

TEST(DocsSession, LeavesOnlyWebPagesToTheDesktop) {
  DocsSession session(SmallGuide());
  EXPECT_EQ(session.Follow("https://example.org/"), LinkKind::kOutside);
  for (const char* const link : {"http://example.org/", "file:///etc/passwd", "javascript:x",
                                 "three.md", "", "one.md#nothing"}) {
    EXPECT_EQ(session.Follow(link), LinkKind::kNowhere) << link;
  }
  EXPECT_EQ(session.place(), GuidePlace{});
  EXPECT_FALSE(session.CanGoBack());
}

TEST(DocsSession, ListsWhatASearchHasFoundAndTheTopicsAgainAfterIt) {
  DocsSession session(SmallGuide());
  session.Search("ring");
  EXPECT_THAT(Titles(session), ElementsAre("One: Part", "Two"));
  EXPECT_EQ(session.rows()[0].detail, "ring ");
  EXPECT_EQ(session.Summary(), "2 places");
  EXPECT_EQ(session.CurrentRow(), std::nullopt);
  session.OpenRow(0);
  EXPECT_EQ(session.place(), (GuidePlace{1, "part"}));
  EXPECT_EQ(session.CurrentRow(), 0U);
  session.OpenRow(7);
  EXPECT_EQ(session.place(), (GuidePlace{1, "part"}));
  session.Search("bell");
  EXPECT_EQ(session.Summary(), "1 place");
  session.Search("xyzzy");
  EXPECT_EQ(session.Summary(), "Nothing found");
  session.Search("  ");
  EXPECT_EQ(Titles(session).size(), 3U);
  EXPECT_EQ(session.CurrentRow(), 1U);  // where the search has led to
}

TEST(DocsSession, TellsWhereTheWordsStandInAText) {
  DocsSession session(SmallGuide());
  EXPECT_TRUE(session.MatchesIn("ring").empty());
  session.Search("ring");
  EXPECT_THAT(session.MatchesIn("a Ring"), ElementsAre(TextRange{2, 6}));
}

TEST(DocsSession, ZoomsBetweenItsLimits) {
  DocsSession session(SmallGuide());
  EXPECT_EQ(session.zoom(), 100);
  for (int i = 0; i < 100; ++i) session.Enlarge();
  EXPECT_EQ(session.zoom(), DocsSession::kMostZoom);
  for (int i = 0; i < 100; ++i) session.Reduce();
  EXPECT_EQ(session.zoom(), DocsSession::kLeastZoom);
  session.Enlarge();
  EXPECT_EQ(session.zoom(), DocsSession::kLeastZoom + DocsSession::kZoomStep);
  session.ResetZoom();
  EXPECT_EQ(session.zoom(), 100);
}

}  // namespace
}  // namespace tidewarden
