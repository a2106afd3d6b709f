// The colours and the font of the reminder list.
#include "reminder/list_appearance.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "platform/memory/memory_ports.h"
#include "platform/memory/memory_random_numbers.h"

namespace tidewarden {
namespace {

constexpr Colour kBlack{0, 0, 0};
constexpr Colour kWhite{255, 255, 255};

struct Named {
  std::string name;
  Colour background;
  Colour text;
};

// The table in red, green, blue, in the order in which names are drawn.
const std::vector<Named>& Names() {
  static const std::vector<Named> names{
      {"pale red", {0xFF, 0xCC, 0xCC}, kBlack},
      {"red", {0xCC, 0x00, 0x00}, kWhite},
      {"pale orange", {0xFF, 0xCC, 0x66}, kBlack},
      {"orange", {0xFF, 0x99, 0x00}, kBlack},
      {"pale yellow", {0xFF, 0xFF, 0xCC}, kBlack},
      {"yellow", {0xFF, 0xFF, 0x00}, kBlack},
      {"pale green", {0x99, 0xFF, 0x99}, kBlack},
      {"green", {0x00, 0x99, 0x00}, kWhite},
      {"pale blue", {0xCC, 0xCC, 0xFF}, kBlack},
      {"blue", {0x00, 0x00, 0x99}, kWhite},
      {"pale violet", {0xFF, 0x99, 0xFF}, kBlack},
      {"violet", {0x99, 0x00, 0x99}, kWhite},
      {"white", kWhite, kBlack},
      {"black", kBlack, kWhite},
  };
  return names;
}

class Colours : public ::testing::Test {
 protected:
  MemorySettingsStore store;
  MemoryRandomNumbers random;

  void Set(const std::string& name, const std::string& value) {
    static_cast<void>(store.Write("Options", name, value).ok());
  }
  ListColours Apply() {
    return ApplyListColors(store, random, {MakeDate(2014, 12, 22), 14, 25, 0});
  }
};

TEST_F(Colours, EveryNameHasItsPair) {
  for (const Named& named : Names()) {
    SCOPED_TRACE(named.name);
    const ListColours expected{named.text, named.background};
    EXPECT_EQ(ColoursOf(named.name), expected);
    Set("ReminderListColors", named.name);
    EXPECT_EQ(Apply(), expected);
  }
}

TEST_F(Colours, AnyOtherTextIsTheSystems) {
  for (const std::string text :
       {"system", " green", "green ", "GREEN", "grün", "pale  green", "", "#ff0000", "ff0000"}) {
    EXPECT_EQ(ColoursOf(text), ListColours{}) << text;
  }
}

TEST_F(Colours, LetterCaseOfTheSettingDoesNotCount) {
  Set("ReminderListColors", "GREEN");
  EXPECT_EQ(Apply(), ColoursOf("green"));
  Set("ReminderListColors", "VIOLET");
  EXPECT_EQ(Apply(), ColoursOf("violet"));
}

TEST_F(Colours, WithoutASettingTheListIsPaleGreen) {
  EXPECT_EQ(Apply(), ColoursOf("pale green"));
  EXPECT_EQ(store.At("Options", "ReminderListColors"), "pale green");
  EXPECT_EQ(store.At("Options", "ReminderListBackColor"), "(missing)");
}

TEST_F(Colours, ACustomPairIsTextAndThenBackground) {
  const ListColours redOnWhite{Colour{0xFF, 0, 0}, kWhite};
  for (const std::string pair :
       {"ff0000,ffffff", "ff0000 ffffff", "ff0000xffffff", "ff0000fffffff", "ff0000\u00ACffffff"}) {
    EXPECT_EQ(ColoursOf(pair), redOnWhite) << pair;
  }
  EXPECT_EQ(ColoursOf("123456,789abc"),
            (ListColours{Colour{0x12, 0x34, 0x56}, Colour{0x78, 0x9A, 0xBC}}));
  Set("ReminderListColors", "FF0000,FFFFFF");
  EXPECT_EQ(Apply(), redOnWhite);
  Set("ReminderListColors", "Ff0000/0000fF");
  EXPECT_EQ(Apply(), (ListColours{Colour{0xFF, 0, 0}, Colour{0, 0, 0xFF}}));
}

TEST_F(Colours, ATextThatIsNoPairIsLookedUpAsAName) {
  for (const std::string text :
       {"ff0000ffffff", "ff0000,ffffff ", "ff0000,fffff", "gg0000,ffffff", "ff0000,fffffg",
        "-f0000,ffffff", "+f0000,ffffff", " f0000,ffffff", "0xff00,ffffff", "ff0000,,ffffff",
        "FF0000,FFFFFF", "pale greenish"}) {
    EXPECT_EQ(ColoursOf(text), ListColours{}) << text;
  }
}

TEST_F(Colours, RandomDrawsOneOfFifteenNames) {
  Set("ReminderListColors", "Random");
  for (std::size_t i = 0; i < 15; ++i) {
    const double first = static_cast<double>(i) / 15 + 1e-9;
    const double last = static_cast<double>(i + 1) / 15 - 1e-9;
    const ListColours expected = i < Names().size() ? ColoursOf(Names()[i].name) : ListColours{};
    random.draws = {first, last};
    random.drawn = 0;
    EXPECT_EQ(Apply(), expected) << i;
    EXPECT_EQ(Apply(), expected) << i;
  }
  random.draws = {0.0, 0.999, 0.9999999999999999};
  random.drawn = 0;
  EXPECT_EQ(Apply(), ColoursOf("pale red"));
  EXPECT_EQ(Apply(), ListColours{});
  EXPECT_EQ(Apply(), ListColours{});
  EXPECT_EQ(store.At("Options", "ReminderListColors"), "Random");
}

TEST_F(Colours, AFixedChoiceDrawsNothing) {
  Set("ReminderListColors", "blue");
  static_cast<void>(Apply());
  EXPECT_EQ(random.drawn, 0U);
}

struct Migration {
  std::string old;
  std::string present;  // empty for none
  std::string after;
};

TEST_F(Colours, TheOlderSettingTakesThePlaceOfTheNewerOnce) {
  const std::vector<Migration> cases{
      {"green", "", "pale green"},      {"Green", "", "pale green"},
      {"green", "blue", "pale green"},  {"Blue", "red", "blue"},
      {"pale green", "", "pale green"}, {"FF0000,FFFFFF", "", "ff0000,ffffff"},
      {"nonsense", "red", "nonsense"},
  };
  for (const Migration& c : cases) {
    SCOPED_TRACE(c.old + " over " + c.present);
    store = {};
    Set("ReminderListBackColor", c.old);
    if (!c.present.empty()) Set("ReminderListColors", c.present);
    EXPECT_EQ(Apply(), ColoursOf(c.after));
    EXPECT_EQ(store.At("Options", "ReminderListColors"), c.after);
    EXPECT_EQ(store.At("Options", "ReminderListBackColor"), "(missing)");
    Set("ReminderListColors", "red");
    EXPECT_EQ(Apply(), ColoursOf("red"));
  }
}

TEST_F(Colours, AnOlderRandomIsDrawnAtOnce) {
  Set("ReminderListBackColor", "Random");
  random.draws = {0.5};  // the eighth name
  EXPECT_EQ(Apply(), ColoursOf("green"));
  EXPECT_EQ(store.At("Options", "ReminderListColors"), "random");
}

// ---- The font.

TEST(ListFonts, TheDefaultsAreStoredAtTheFirstReading) {
  MemorySettingsStore store;
  const ListFont font = ApplyListFont(store);
  EXPECT_EQ(font.name, "MS Sans Serif");
  EXPECT_FALSE(font.bold);
  EXPECT_FALSE(font.italic);
  EXPECT_EQ(font.size, 8);
  EXPECT_EQ(store.At("Settings", "FontName"), "MS Sans Serif");
  EXPECT_EQ(store.At("Settings", "FontBold"), "False");
  EXPECT_EQ(store.At("Settings", "FontItalic"), "False");
  EXPECT_EQ(store.At("Settings", "FontSize"), "8");
}

TEST(ListFonts, TheFaceKeepsItsLetterCase) {
  MemorySettingsStore store;
  static_cast<void>(store.Write("Settings", "FontName", "DejaVu SANS").ok());
  EXPECT_EQ(ApplyListFont(store).name, "DejaVu SANS");
}

TEST(ListFonts, BoldAndItalicOnlyWhenTheySayTrue) {
  for (const auto& [stored, isOn] : std::vector<std::pair<std::string, bool>>{
           {"True", true}, {"TRUE", true}, {"1", false}, {"yes", false}, {"False", false}}) {
    MemorySettingsStore bold;
    static_cast<void>(bold.Write("Settings", "FontBold", stored).ok());
    EXPECT_EQ(ApplyListFont(bold).bold, isOn) << stored;
    EXPECT_FALSE(ApplyListFont(bold).italic);
    MemorySettingsStore italic;
    static_cast<void>(italic.Write("Settings", "FontItalic", stored).ok());
    EXPECT_EQ(ApplyListFont(italic).italic, isOn) << stored;
    EXPECT_FALSE(ApplyListFont(italic).bold);
  }
}

TEST(ListFonts, TheSizeIsTheWholePartWithinReason) {
  for (const auto& [stored, size] : std::vector<std::pair<std::string, int>>{{"8", 8},
                                                                             {"9.7", 9},
                                                                             {"18 pt", 18},
                                                                             {"1", 1},
                                                                             {"0.9", 0},
                                                                             {"0", 0},
                                                                             {"-3", 0},
                                                                             {"abc", 0},
                                                                             {"999", 999},
                                                                             {"1000", 999},
                                                                             {"1e3", 1},
                                                                             {"99999999999", 999},
                                                                             {" 12", 12}}) {
    MemorySettingsStore store;
    static_cast<void>(store.Write("Settings", "FontSize", stored).ok());
    EXPECT_EQ(ApplyListFont(store).size, size) << stored;
    EXPECT_EQ(store.At("Settings", "FontSize"), stored);
  }
}

}  // namespace
}  // namespace tidewarden
