// Twips and pixels, stored numbers, and areas on screens.
#include "core/window_placement.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace tidewarden {
namespace {

TEST(Twips, FifteenAreAPixelAndHalvesGoUp) {
  const std::vector<std::pair<int, int>> cases{
      {0, 0},      {7, 0},      {8, 1},      {14, 1},       {15, 1},        {22, 1},
      {23, 2},     {-7, 0},     {-8, -1},    {-15, -1},     {-22, -1},      {-23, -2},
      {4425, 295}, {2025, 135}, {4455, 297}, {2130, 142},   {1515, 101},    {9015, 601},
      {4845, 323}, {4815, 321}, {2550, 170}, {32767, 2184}, {-32768, -2185}};
  for (const auto& [twips, pixels] : cases) {
    EXPECT_EQ(PixelsFromTwips(twips), pixels) << twips;
  }
}

TEST(Twips, PixelsComeBackAsTheyWere) {
  for (int pixels = -5000; pixels <= 5000; ++pixels) {
    EXPECT_EQ(TwipsFromPixels(pixels), 15 * pixels);
    EXPECT_EQ(PixelsFromTwips(TwipsFromPixels(pixels)), pixels);
  }
}

TEST(PlacementNumbers, AreReadWholeOrAsNothing) {
  const std::vector<std::pair<std::string, int>> cases{{"0", 0},
                                                       {"4425", 4425},
                                                       {"-4", -4},
                                                       {"+5", 5},
                                                       {" 7 ", 7},
                                                       {"007", 7},
                                                       {"4424.6", 4425},
                                                       {"4424.4", 4424},
                                                       {"0.5", 0},
                                                       {"1.5", 2},
                                                       {"2.5", 2},
                                                       {"-0.5", 0},
                                                       {"-1.5", -2},
                                                       {"12172.5", 12172},
                                                       {"32767", 32767},
                                                       {"-32768", -32768},
                                                       {"32767.4", 32767},
                                                       {"-32768.5", -32768},
                                                       // No numbers.
                                                       {"", 0},
                                                       {" ", 0},
                                                       {"abc", 0},
                                                       {"12a", 0},
                                                       {"a12", 0},
                                                       {"5.", 0},
                                                       {".5", 0},
                                                       {".", 0},
                                                       {"-", 0},
                                                       {"+", 0},
                                                       {"-.", 0},
                                                       {"-.5", 0},
                                                       {"5.-", 0},
                                                       {"1.2.3", 0},
                                                       {"1e3", 0},
                                                       {"0x10", 0},
                                                       {"1,5", 0},
                                                       {"--5", 0},
                                                       {"+-5", 0},
                                                       {"5 5", 0},
                                                       {"- 5", 0},
                                                       {"\t5", 0},
                                                       {"5\n", 0},
                                                       {"\xD9\xA5", 0},
                                                       {"99999.", 0},
                                                       {"inf", 0},
                                                       {"nan", 0}};
  for (const auto& [text, number] : cases) {
    int out = -1;
    EXPECT_TRUE(ReadPlacementNumber(text, out)) << text;
    EXPECT_EQ(out, number) << text;
  }
}

TEST(PlacementNumbers, BeyondSixteenBitsAreRefused) {
  for (const std::string text :
       {"32768", "-32769", "32767.5", "32767.6", "-32768.6", "40000", "65536", "4294967296",
        "99999999999999999999999999", "-99999999999999999999999999", " 40000 ", "+40000.0"}) {
    int out = -1;
    EXPECT_FALSE(ReadPlacementNumber(text, out)) << text;
  }
}

TEST(Screens, AnAreaMeetsAScreenThatItSharesATwipWith) {
  const WindowArea left{0, 0, 28800, 16200};
  const WindowArea right{28800, -3000, 19200, 10800};
  const Screens two{left, {left, right}, true};
  const std::vector<std::pair<WindowArea, bool>> cases{
      {{0, 0, 4425, 2025}, true},          {{-4424, 0, 4425, 2025}, true},
      {{-4425, 0, 4425, 2025}, false},     {{0, -2024, 4425, 2025}, true},
      {{0, -2025, 4425, 2025}, false},     {{0, 16199, 4425, 2025}, true},
      {{0, 16200, 4425, 2025}, false},     {{47999, 0, 4425, 2025}, true},
      {{48000, 0, 4425, 2025}, false},     {{28800, 8000, 4425, 2025}, false},
      {{28800, 7799, 4425, 2025}, true},   {{28799, 8000, 4425, 2025}, true},
      {{30000, -5000, 4425, 2025}, true},  {{30000, -5025, 4425, 2025}, false},
      {{-9999, -9999, 99999, 99999}, true}};
  for (const auto& [area, meets] : cases) {
    EXPECT_EQ(MeetsAScreen(area, two), meets) << area.left << "," << area.top;
  }
}

TEST(Screens, WithoutAnyKnownScreenEveryAreaWillDo) {
  EXPECT_TRUE(MeetsAScreen({99999, 99999, 1, 1}, Screens{}));
}

}  // namespace
}  // namespace tidewarden
