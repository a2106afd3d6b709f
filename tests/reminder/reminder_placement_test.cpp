// Where the reminder window stands, as the settings tell it and keep it.
#include "reminder/reminder_placement.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/memory/memory_ports.h"

namespace tidewarden {
namespace {

const std::string kMissing = "(missing)";

Screens OneScreen(int width = 28800, int height = 16200) {
  const WindowArea screen{0, 0, width, height};
  return {screen, {screen}, true};
}

class Store : public MemorySettingsStore {
 public:
  std::vector<std::string> leftWrites;

  Status Write(std::string_view section, std::string_view name, std::string_view value) override {
    if (name == "Left") leftWrites.emplace_back(value);
    return MemorySettingsStore::Write(section, name, value);
  }

  void Set(const std::string& left, const std::string& top, const std::string& width,
           const std::string& height) {
    for (const auto& [name, value] : std::vector<std::pair<std::string, std::string>>{
             {"Left", left}, {"Top", top}, {"Width", width}, {"Height", height}}) {
      if (!value.empty()) static_cast<void>(Write("Settings", name, value).ok());
    }
    leftWrites.clear();
    writes = 0;
  }

  // "left top width height".
  [[nodiscard]] std::string Stored() const {
    return At("Settings", "Left") + " " + At("Settings", "Top") + " " + At("Settings", "Width") +
           " " + At("Settings", "Height");
  }
};

TEST(LoadPlacement, ANewWindowStandsInTheMiddleOfThePrimaryScreen) {
  struct Case {
    int screenWidth;
    int screenHeight;
    std::string stored;
    WindowArea area;
  };
  // The defaults are half of the screen less 4455 and less 2130, the whole part.
  const std::vector<Case> cases{
      {28800, 16200, "12172 7035 4425 2025", {12172, 7035, 4425, 2025}},
      {20490, 11520, "8017 4695 4425 2025", {8017, 4695, 4425, 2025}},
      {57600, 32400, "26572 15135 4425 2025", {26572, 15135, 4425, 2025}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.screenWidth);
    Store store;
    const StoredPlacement placement =
        LoadWindowPlacement(store, OneScreen(c.screenWidth, c.screenHeight));
    EXPECT_FALSE(placement.maximized);
    EXPECT_EQ(placement.area, c.area);
    EXPECT_EQ(store.Stored(), c.stored);
    EXPECT_EQ(store.At("Settings", "Maximized"), "False");
  }
}

// The desktop begins left of the primary screen, or above it.
TEST(LoadPlacement, ThePrimaryScreenNeedNotBeginAtTheDesktopsOrigin) {
  struct Case {
    std::string name;
    WindowArea primary;
    WindowArea other;
    std::string stored;
    WindowArea first;
    WindowArea later;
    WindowArea middle;
  };
  const std::vector<Case> cases{
      // 28800 + 12172 is more than a stored number can be, and counts as damaged: the marks of that
      // are the next start's place.
      {"right of another",
       {28800, 0, 28800, 16200},
       {0, 0, 28800, 16200},
       "2025 7035 4425 2025",
       {40987, 7087, 4425, 2025},
       {2025, 7035, 4425, 2025},
       {40987, 7087, 4425, 2025}},
      {"below a gap",
       {0, 16200, 28800, 16200},
       {28800, 0, 28800, 16200},
       "12172 23235 4425 2025",
       {12172, 23235, 4425, 2025},
       {12172, 23235, 4425, 2025},
       {12187, 23287, 4425, 2025}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const Screens screens{c.primary, {c.primary, c.other}, true};
    Store store;
    for (int start = 1; start <= 3; ++start) {
      EXPECT_EQ(LoadWindowPlacement(store, screens).area, start == 1 ? c.first : c.later);
      EXPECT_EQ(store.Stored(), c.stored);
    }
    Store maximized;
    static_cast<void>(maximized.Write("Settings", "Maximized", "True").ok());
    EXPECT_EQ(LoadWindowPlacement(maximized, screens).area, c.middle);
    Store damaged;
    damaged.Set("1500", "3000", "abc", "4500");
    EXPECT_EQ(LoadWindowPlacement(damaged, screens).area, c.middle);
    EXPECT_EQ(damaged.leftWrites,
              (std::vector<std::string>{std::to_string(c.middle.left), std::to_string(c.middle.top),
                                        "4425", "2025"}));
    EXPECT_EQ(damaged.Stored(), "2025 3000 abc 4500");
  }
}

TEST(LoadPlacement, APlaceInAGapBetweenScreensIsLeftForThePrimaryOne) {
  const WindowArea below{0, 16200, 28800, 16200};
  Store store;
  store.Set("1500", "3000", "6000", "4500");
  EXPECT_EQ(LoadWindowPlacement(store, {below, {below, {28800, 0, 28800, 16200}}, true}).area,
            (WindowArea{12187, 23287, 6000, 4500}));
  EXPECT_EQ(store.Stored(), "1500 3000 6000 4500");
}

TEST(LoadPlacement, AMaximizedWindowReadsNothingElse) {
  for (const std::string stored : {"True", "true", "TRUE"}) {
    Store store;
    static_cast<void>(store.Write("Settings", "Maximized", stored).ok());
    EXPECT_TRUE(LoadWindowPlacement(store, OneScreen()).maximized);
    EXPECT_EQ(store.Stored(), "(missing) (missing) (missing) (missing)");
  }
  for (const std::string stored : {"1", "yes", " true"}) {
    Store store;
    static_cast<void>(store.Write("Settings", "Maximized", stored).ok());
    EXPECT_FALSE(LoadWindowPlacement(store, OneScreen()).maximized);
  }
}

struct StoredCase {
  std::string left;
  std::string top;
  std::string width;
  std::string height;
  WindowArea area;
};

TEST(LoadPlacement, TakesWhatIsStored) {
  const std::vector<StoredCase> cases{
      {"1500", "3000", "6000", "4500", {1500, 3000, 6000, 4500}},
      {"-4", "-4", "4425", "2025", {-4, -4, 4425, 2025}},
      {"0", "0", "4425", "2025", {0, 0, 4425, 2025}},
      {"abc", "", "4425", "2025", {0, 7035, 4425, 2025}},
      {"5.", ".5", "4425", "2025", {0, 0, 4425, 2025}},
      {"1.5", "2.5", "4424.6", "2024.5001", {2, 2, 4425, 2025}},
      {" 150 ", "+300", "4425", "2025", {150, 300, 4425, 2025}},
      {"-4.4", "-4.5", "4425", "2025", {-4, -4, 4425, 2025}},
  };
  for (const StoredCase& c : cases) {
    SCOPED_TRACE(c.left + " " + c.top + " " + c.width + " " + c.height);
    Store store;
    store.Set(c.left, c.top, c.width, c.height);
    const StoredPlacement placement = LoadWindowPlacement(store, OneScreen());
    EXPECT_FALSE(placement.maximized);
    EXPECT_EQ(placement.area, c.area);
    EXPECT_TRUE(store.leftWrites.empty());
  }
}

TEST(LoadPlacement, ADamagedOneIsReplacedAndLeavesItsMarksUnderOneKey) {
  const std::vector<StoredCase> cases{
      {"1500", "3000", "4424", "4500", {}},   {"1500", "3000", "6000", "2024", {}},
      {"-5", "3000", "6000", "4500", {}},     {"1500", "-5", "6000", "4500", {}},
      {"40000", "3000", "6000", "4500", {}},  {"1500", "32768", "6000", "4500", {}},
      {"1500", "3000", "32768", "4500", {}},  {"1500", "3000", "6000", "99999999999", {}},
      {"1500", "3000", "abc", "4500", {}},    {"1500", "3000", "6000", "1e4", {}},
      {"-40000", "3000", "6000", "4500", {}}, {"1500", "3000", "4424.5", "4500", {}},
      {"1500", "3000", "6000.", "4500", {}},
  };
  for (const StoredCase& c : cases) {
    SCOPED_TRACE(c.left + " " + c.top + " " + c.width + " " + c.height);
    Store store;
    store.Set(c.left, c.top, c.width, c.height);
    const StoredPlacement placement = LoadWindowPlacement(store, OneScreen());
    // The middle is that of a new window: (28800 - 4425) / 2 and (16200 - 2025) / 2.
    EXPECT_FALSE(placement.maximized);
    EXPECT_EQ(placement.area, (WindowArea{12187, 7087, 4425, 2025}));
    EXPECT_EQ(store.leftWrites, (std::vector<std::string>{"12187", "7087", "4425", "2025"}));
    EXPECT_EQ(store.Stored(), "2025 " + c.top + " " + c.width + " " + c.height);
  }
}

TEST(LoadPlacement, ADamagedSizeIsDamagedAgainAtTheNextStart) {
  Store store;
  store.Set("1500", "3000", "4424", "4500");
  for (int start = 0; start < 3; ++start) {
    store.leftWrites.clear();
    EXPECT_EQ(LoadWindowPlacement(store, OneScreen()).area, (WindowArea{12187, 7087, 4425, 2025}));
    EXPECT_EQ(store.leftWrites.size(), 4U);
    EXPECT_EQ(store.Stored(), "2025 3000 4424 4500");
  }
}

TEST(LoadPlacement, AMissingNumberGetsItsDefaultEvenBesideADamagedOne) {
  Store store;
  store.Set("-5", "", "", "");
  static_cast<void>(LoadWindowPlacement(store, OneScreen()));
  EXPECT_EQ(store.Stored(), "2025 7035 4425 2025");
}

TEST(LoadPlacement, AWindowOnNoScreenKeepsItsSizeAndNothingIsWritten) {
  struct Case {
    std::string left;
    std::string top;
    bool isSeen;
  };
  const std::vector<Case> cases{
      {"30000", "3000", false}, {"28800", "3000", false}, {"28799", "3000", true},
      {"1500", "16200", false}, {"1500", "16199", true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.left + " " + c.top);
    Store store;
    store.Set(c.left, c.top, "6000", "4500");
    const WindowArea area = LoadWindowPlacement(store, OneScreen()).area;
    const WindowArea stored{std::stoi(c.left), std::stoi(c.top), 6000, 4500};
    EXPECT_EQ(area, c.isSeen ? stored : (WindowArea{12187, 7087, 6000, 4500}));
    EXPECT_EQ(store.Stored(), c.left + " " + c.top + " 6000 4500");
  }
  Store store;
  store.Set("30000", "3000", "6000", "4500");
  Screens two = OneScreen();
  two.all.push_back({28800, 0, 28800, 16200});
  EXPECT_EQ(LoadWindowPlacement(store, two).area, (WindowArea{30000, 3000, 6000, 4500}));
}

TEST(LoadPlacement, WherePlacesAreUnknownOnlyTheSizeCounts) {
  Screens screens = OneScreen();
  screens.canPlaceWindows = false;
  struct Case {
    std::string left;
    std::string width;
    int expectedWidth;
  };
  for (const Case& c : {Case{"", "6000", 6000}, Case{"-5", "6000", 6000},
                        Case{"40000", "6000", 6000}, Case{"1500", "4424", 4425}}) {
    SCOPED_TRACE(c.left + " " + c.width);
    Store store;
    store.Set(c.left, "", c.width, "2025");
    const StoredPlacement placement = LoadWindowPlacement(store, screens);
    EXPECT_EQ(placement.area.width, c.expectedWidth);
    EXPECT_EQ(placement.area.height, 2025);
    EXPECT_EQ(store.Stored(),
              (c.left.empty() ? kMissing : c.left) + " (missing) " + c.width + " 2025");
  }
}

TEST(SavePlacement, WritesThePlaceInTheNormalStateOnly) {
  struct Case {
    WindowState state;
    std::string maximized;
    std::string stored;
  };
  const std::string none = "(missing) (missing) (missing) (missing)";
  for (const Case& c : {Case{WindowState::kNormal, "False", "-15 0 6000 4500"},
                        Case{WindowState::kMaximized, "True", none},
                        Case{WindowState::kMinimized, "False", none}}) {
    SCOPED_TRACE(c.maximized + " " + c.stored);
    Store store;
    SaveWindowPlacement(store, {c.state, {-15, 0, 6000, 4500}}, OneScreen());
    EXPECT_EQ(store.At("Settings", "Maximized"), c.maximized);
    EXPECT_EQ(store.Stored(), c.stored);
  }
}

TEST(SavePlacement, WherePlacesAreUnknownTheStoredOnesStay) {
  Screens screens = OneScreen();
  screens.canPlaceWindows = false;
  Store store;
  store.Set("1500", "3000", "4425", "2025");
  SaveWindowPlacement(store, {WindowState::kNormal, {0, 0, 6000, 4500}}, screens);
  EXPECT_EQ(store.Stored(), "1500 3000 6000 4500");
}

TEST(SavePlacement, TenStartsChangeNothing) {
  Store store;
  store.Set("1500", "3000", "6000", "4500");
  for (int start = 0; start < 10; ++start) {
    // Through the window's own unit and back.
    const WindowArea twips = LoadWindowPlacement(store, OneScreen()).area;
    const WindowArea window{TwipsFromPixels(PixelsFromTwips(twips.left)),
                            TwipsFromPixels(PixelsFromTwips(twips.top)),
                            TwipsFromPixels(PixelsFromTwips(twips.width)),
                            TwipsFromPixels(PixelsFromTwips(twips.height))};
    SaveWindowPlacement(store, {WindowState::kNormal, window}, OneScreen());
    EXPECT_EQ(store.Stored(), "1500 3000 6000 4500");
  }
}

}  // namespace
}  // namespace tidewarden
