// The font settings as each of the two windows reads them.
#include "core/list_font.h"

#include <gmock/gmock.h>

#include "platform/memory/memory_ports.h"

namespace tidewarden::test {
namespace {

constexpr FontSizeRule kBoth[] = {FontSizeRule::kWholePart, FontSizeRule::kRounded};

TEST(ListFont, TheDefaultsAreStoredAtTheFirstReading) {
  for (const FontSizeRule rule : kBoth) {
    MemorySettingsStore settings;
    const ListFont font = ReadListFont(settings, rule);
    EXPECT_EQ(font.name, "MS Sans Serif");
    EXPECT_FALSE(font.bold);
    EXPECT_FALSE(font.italic);
    EXPECT_EQ(font.size, 8);
    EXPECT_EQ(settings.At("Settings", "FontName"), "MS Sans Serif");
    EXPECT_EQ(settings.At("Settings", "FontBold"), "False");
    EXPECT_EQ(settings.At("Settings", "FontItalic"), "False");
    EXPECT_EQ(settings.At("Settings", "FontSize"), "8");
  }
}

TEST(ListFont, IsWhatIsStored) {
  for (const FontSizeRule rule : kBoth) {
    MemorySettingsStore settings;
    settings.entries = {{"Settings", "FontName", "DejaVu Serif"},
                        {"Settings", "FontBold", "TRUE"},
                        {"Settings", "FontItalic", "true"},
                        {"Settings", "FontSize", "14"}};
    const ListFont font = ReadListFont(settings, rule);
    EXPECT_EQ(font.name, "DejaVu Serif");
    EXPECT_TRUE(font.bold);
    EXPECT_TRUE(font.italic);
    EXPECT_EQ(font.size, 14);
    EXPECT_EQ(settings.writes, 0);
  }
}

TEST(ListFont, TheSizeFollowsTheRuleOfTheWindow) {
  const struct {
    const char* stored;
    int wholePart;
    int rounded;
  } cases[] = {
      {"9", 9, 9},         {"9.2", 9, 9},
      {"9.7", 9, 10},      {"8.5", 8, 8},
      {"9.5", 9, 10},      {"10.5", 10, 10},
      {"0.4", 0, 0},       {"0.5", 0, 0},
      {"0.6", 0, 1},       {"1.4", 1, 1},
      {"0", 0, 0},         {"-3", 0, 0},
      {"-0.6", 0, 0},      {"abc", 0, 0},
      {" ", 0, 0},         {"12 points", 12, 12},
      {"7,5", 7, 7},       {"998.6", 998, 999},
      {"999.4", 999, 999}, {"1000", 999, 999},
      {"1e2", 1, 1},       {"99999999999999999999", 999, 999},
  };
  for (const auto& [stored, wholePart, rounded] : cases) {
    MemorySettingsStore settings;
    ASSERT_TRUE(settings.Write("Settings", "FontSize", stored).ok());
    EXPECT_EQ(ReadListFont(settings, FontSizeRule::kWholePart).size, wholePart) << stored;
    EXPECT_EQ(ReadListFont(settings, FontSizeRule::kRounded).size, rounded) << stored;
    EXPECT_EQ(settings.At("Settings", "FontSize"), stored);
  }
}

}  // namespace
}  // namespace tidewarden::test
