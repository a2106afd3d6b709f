#include "core/random_numbers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <vector>

#include "tests/support/layouts.h"

namespace tidewarden {
namespace {

using test::On;
using ::testing::ElementsAre;

TEST(SplitMixNumbers, FollowThePublishedSequence) {
  // The sequence of seed 1234567 by which implementations of SplitMix64 are commonly compared.
  SplitMixNumbers random;
  random.Seed(1'234'567);
  std::vector<std::uint64_t> numbers;
  for (int i = 0; i < 5; ++i) numbers.push_back(random.Next());
  EXPECT_THAT(numbers, ElementsAre(6'457'827'717'110'365'317U, 3'203'168'211'198'807'973U,
                                   9'817'491'932'198'370'423U, 4'593'380'528'125'082'431U,
                                   16'408'922'859'458'223'821U));
}

TEST(SplitMixNumbers, TheSameSeedGivesTheSameNumbers) {
  SplitMixNumbers one;
  SplitMixNumbers other;
  one.Seed(45'000);
  other.Seed(7);
  static_cast<void>(other.Draw());
  other.Seed(45'000);
  for (int i = 0; i < 100; ++i) EXPECT_EQ(one.Draw(), other.Draw());
}

TEST(SplitMixNumbers, EverySecondOfTheDayDrawsBetweenZeroAndOne) {
  SplitMixNumbers random;
  std::array<int, 10> tenths{};
  for (std::uint64_t seed = 0; seed < 86'400; ++seed) {
    random.Seed(seed);
    const double r = random.Draw();
    ASSERT_GE(r, 0.0);
    ASSERT_LT(r, 1.0);
    ++tenths[static_cast<std::size_t>(r * 10)];
  }
  // 8,640 expected in each tenth; ten standard deviations are about 880.
  const auto [fewest, most] = std::minmax_element(tenths.begin(), tenths.end());
  EXPECT_GT(*fewest, 8'640 - 880);
  EXPECT_LT(*most, 8'640 + 880);
}

TEST(SeedFromTimeOfDay, CountsTheSecondsSinceMidnight) {
  EXPECT_EQ(SeedFromTimeOfDay({On(2014, 12, 22), 0, 0, 0}), 0U);
  EXPECT_EQ(SeedFromTimeOfDay({On(2014, 12, 22), 14, 25, 7}), 51'907U);
  EXPECT_EQ(SeedFromTimeOfDay({On(2015, 1, 1), 14, 25, 7}), 51'907U);
  EXPECT_EQ(SeedFromTimeOfDay({On(2014, 12, 22), 23, 59, 59}), 86'399U);
}

}  // namespace
}  // namespace tidewarden
