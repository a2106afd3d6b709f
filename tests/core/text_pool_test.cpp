#include "core/text_pool.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tidewarden {
namespace {

TEST(TextPool, KeepsEveryTextAtItsPlace) {
  TextPool pool;
  std::vector<std::string> originals;
  std::vector<std::string_view> kept;
  for (std::size_t i = 0; i < 3000; ++i) {
    originals.emplace_back(i % 97, static_cast<char>('a' + i % 26));
    kept.push_back(pool.Keep(originals.back()));
  }
  originals.emplace_back(100'000, 'x');  // larger than any block
  kept.push_back(pool.Keep(originals.back()));
  originals.emplace_back("after it");
  kept.push_back(pool.Keep(originals.back()));
  for (std::size_t i = 0; i < originals.size(); ++i) {
    ASSERT_EQ(kept[i], originals[i]);
    if (!kept[i].empty()) {
      ASSERT_NE(kept[i].data(), originals[i].data());
    }
  }
}

TEST(TextPool, KeepsTheEmptyText) {
  TextPool pool;
  EXPECT_EQ(pool.Keep(""), "");
  EXPECT_EQ(pool.Keep({}), "");
  EXPECT_EQ(pool.Keep("a"), "a");
  EXPECT_EQ(pool.Keep(""), "");
}

TEST(TextPool, JoinsTextsIntoOne) {
  TextPool pool;
  const std::string longest(100'000, 'x');
  const std::array<std::string_view, 4> texts{"12.25", "", " Christmas", longest};
  const std::string_view before = pool.Keep("before");
  const std::string_view joined = pool.Join(texts);
  const std::string_view nothing = pool.Join({});
  const std::string_view after = pool.Join(std::array<std::string_view, 1>{"after"});
  EXPECT_EQ(before, "before");
  EXPECT_EQ(joined, "12.25 Christmas" + longest);
  EXPECT_EQ(nothing, "");
  EXPECT_EQ(after, "after");
}

TEST(TextPool, MovingKeepsTheViews) {
  TextPool pool;
  const std::string_view view = pool.Keep("12.25,Christmas,14,yearly");
  TextPool other = std::move(pool);
  EXPECT_EQ(view, "12.25,Christmas,14,yearly");
  EXPECT_EQ(other.Keep("more"), "more");
  TextPool third;
  third = std::move(other);
  EXPECT_EQ(view, "12.25,Christmas,14,yearly");
}

TEST(TextPool, APoolThatWasMovedFromStartsAnew) {
  auto pool = std::make_unique<TextPool>();
  static_cast<void>(pool->Keep("first"));
  auto other = std::make_unique<TextPool>(std::move(*pool));
  const std::string_view mine = pool->Keep("mine");
  const std::string_view theirs = other->Keep("THEIRS");
  EXPECT_EQ(mine, "mine");
  EXPECT_EQ(theirs, "THEIRS");
  other.reset();
  EXPECT_EQ(mine, "mine");
}

}  // namespace
}  // namespace tidewarden
