// Where the alarm window opens and what is kept of it.
#include "alarm/alarm_placement.h"

#include <gmock/gmock.h>

#include "core/settings_keys.h"
#include "platform/memory/memory_ports.h"

namespace tidewarden::test {
namespace {

// 1920 by 1080 pixels.
const Screens kScreens{{0, 0, 28'800, 16'200}, {{0, 0, 28'800, 16'200}}, true};
const AlarmPlacement kFirst{false, {11'992, 6'825, 4'455, 2'130}};

struct Stored {
  const char* left = "300";
  const char* top = "450";
  const char* width = "6000";
  const char* height = "3000";
};

MemorySettingsStore StoreOf(const Stored& stored) {
  MemorySettingsStore settings;
  settings.entries = {{"Alarm", "Left", stored.left},
                      {"Alarm", "Top", stored.top},
                      {"Alarm", "Width", stored.width},
                      {"Alarm", "Height", stored.height}};
  return settings;
}

std::string PlaceIn(const MemorySettingsStore& settings) {
  std::string text;
  for (const char* const name : {"Maximized", "Left", "Top", "Width", "Height"}) {
    text += settings.At("Alarm", name) + " ";
  }
  return text;
}

TEST(LoadAlarmPlacement, TheFirstTimeTheWindowIsSmallerThanThePlaceItIsCentredFor) {
  MemorySettingsStore settings;
  EXPECT_EQ(LoadAlarmPlacement(settings, kScreens), kFirst);
  EXPECT_EQ(PlaceIn(settings), "False 11992 6825 4815 2550 ");
}

TEST(LoadAlarmPlacement, AStoredPlacementIsUsedWithinItsLimits) {
  const struct {
    Stored stored;
    bool used;
    WindowArea area;
  } cases[] = {
      {{}, true, {300, 450, 6'000, 3'000}},
      {{"0", "0", "4815", "2550"}, true, {0, 0, 4'815, 2'550}},
      {{"-1", "450", "6000", "3000"}, false, {}},
      {{"300", "-1", "6000", "3000"}, false, {}},
      {{"-0.4", "-0", "6000", "3000"}, true, {0, 0, 6'000, 3'000}},
      {{"300", "450", "4814", "3000"}, false, {}},
      {{"300", "450", "4815", "3000"}, true, {300, 450, 4'815, 3'000}},
      {{"300", "450", "6000", "2549"}, false, {}},
      {{"300", "450", "6000", "2550"}, true, {300, 450, 6'000, 2'550}},
      {{"300", "450", "4814.6", "2549.6"}, true, {300, 450, 4'815, 2'550}},
      {{" 300 ", "+450", "6000", "3000"}, true, {300, 450, 6'000, 3'000}},
      {{"abc", "450", "6000", "3000"}, false, {}},
      {{"300", "4 5", "6000", "3000"}, false, {}},
      {{"1-5", "450", "6000", "3000"}, false, {}},
      {{"0x1", "450", "6000", "3000"}, false, {}},
      {{"300", "450", "wide", "3000"}, false, {}},
      {{"32768", "450", "6000", "3000"}, false, {}},
      {{"300", "450", "40000", "3000"}, false, {}},
      {{"300", "450", "6000", "-32769"}, false, {}},
      {{"300", "", "6000", "3000"}, false, {}},
  };
  for (const auto& [stored, used, area] : cases) {
    SCOPED_TRACE(std::string(stored.left) + " " + stored.top + " " + stored.width + " " +
                 stored.height);
    MemorySettingsStore settings = StoreOf(stored);
    const AlarmPlacement expected = used ? AlarmPlacement{false, area} : kFirst;
    EXPECT_EQ(LoadAlarmPlacement(settings, kScreens), expected);
  }
}

TEST(LoadAlarmPlacement, AMissingNumberMakesTheOthersUseless) {
  for (const char* const missing : {"Left", "Top", "Width", "Height"}) {
    MemorySettingsStore settings = StoreOf({});
    ASSERT_TRUE(settings.Delete("Alarm", missing).ok());
    EXPECT_EQ(LoadAlarmPlacement(settings, kScreens), kFirst) << missing;
    EXPECT_NE(settings.At("Alarm", missing), "(missing)");
    EXPECT_EQ(settings.entries.size(), 5);
  }
}

TEST(LoadAlarmPlacement, AMaximizedWindowKeepsTheFirstSizeForLater) {
  MemorySettingsStore settings = StoreOf({});
  ASSERT_TRUE(settings.Write("Alarm", "Maximized", "TRUE").ok());
  EXPECT_EQ(LoadAlarmPlacement(settings, kScreens), (AlarmPlacement{true, kFirst.area}));
  ASSERT_TRUE(settings.Write("Alarm", "Maximized", "1").ok());
  EXPECT_FALSE(LoadAlarmPlacement(settings, kScreens).maximized);
}

TEST(LoadAlarmPlacement, OddAndSmallScreensGiveWholeNumbers) {
  MemorySettingsStore settings;
  const Screens odd{{0, 0, 20'490, 11'520}, {}, true};  // 1366 by 768
  EXPECT_EQ(LoadAlarmPlacement(settings, odd).area, (WindowArea{7'837, 4'485, 4'455, 2'130}));
  EXPECT_EQ(settings.At("Alarm", "Left"), "7837");
  MemorySettingsStore other;
  const Screens small{{0, 0, 4'500, 2'000}, {}, true};
  EXPECT_EQ(LoadAlarmPlacement(other, small).area, (WindowArea{-157, -275, 4'455, 2'130}));
}

TEST(LoadAlarmPlacement, AWindowOnAScreenThatIsGoneComesToThePrimaryOne) {
  const Screens screens{{1'500, 150, 28'800, 16'200}, {{1'500, 150, 28'800, 16'200}}, true};
  MemorySettingsStore settings = StoreOf({"31000", "450", "6000", "3000"});
  EXPECT_EQ(LoadAlarmPlacement(settings, screens).area, (WindowArea{1'500, 150, 6'000, 3'000}));
  EXPECT_EQ(settings.At("Alarm", "Left"), "31000");
  settings = StoreOf({"30285", "450", "6000", "3000"});  // one pixel of it can be seen
  EXPECT_EQ(LoadAlarmPlacement(settings, screens).area, (WindowArea{30'285, 450, 6'000, 3'000}));
}

TEST(LoadAlarmPlacement, WhereWindowsHaveNoPlaceOnlyTheSizeCounts) {
  const Screens screens{kScreens.primary, kScreens.all, false};
  MemorySettingsStore settings;
  settings.entries = {{"Alarm", "Width", "6000"}, {"Alarm", "Height", "3000"}};
  const WindowArea area = LoadAlarmPlacement(settings, screens).area;
  EXPECT_EQ(area.width, 6'000);
  EXPECT_EQ(area.height, 3'000);
  EXPECT_EQ(settings.At("Alarm", "Left"), "(missing)");
  EXPECT_EQ(settings.At("Alarm", "Top"), "(missing)");
}

TEST(LoadAlarmPlacement, AStoreThatCannotBeReadIsNotWritten) {
  MemorySettingsStore settings;
  settings.failure = StatusKind::kInputOutput;
  EXPECT_EQ(LoadAlarmPlacement(settings, kScreens), kFirst);
  EXPECT_EQ(settings.writes, 0);
}

TEST(SaveAlarmPlacement, OnlyAVisibleNormalWindowHasAPlaceWorthKeeping) {
  const WindowArea area{150, 300, 6'000, 3'000};
  const struct {
    AlarmWindowState window;
    const char* stored;
  } cases[] = {
      {{WindowState::kNormal, true, area}, "False 150 300 6000 3000 "},
      {{WindowState::kNormal, false, area}, "False (missing) (missing) (missing) (missing) "},
      {{WindowState::kMinimized, true, area}, "False (missing) (missing) (missing) (missing) "},
      {{WindowState::kMaximized, true, area}, "True (missing) (missing) (missing) (missing) "},
  };
  for (const auto& [window, stored] : cases) {
    MemorySettingsStore settings;
    SaveAlarmPlacement(settings, window, kScreens);
    EXPECT_EQ(PlaceIn(settings), stored);
  }
}

TEST(SaveAlarmPlacement, LeavesAStoredPlaceAloneWhereWindowsHaveNone) {
  MemorySettingsStore settings = StoreOf({});
  SaveAlarmPlacement(settings, {WindowState::kNormal, true, {0, 0, 7'500, 4'500}},
                     {kScreens.primary, kScreens.all, false});
  EXPECT_EQ(PlaceIn(settings), "False 300 450 7500 4500 ");
}

TEST(SaveAlarmPlacement, WhatWasSavedIsLoadedAgain) {
  MemorySettingsStore settings;
  const WindowArea area{150, 300, 6'000, 3'000};
  SaveAlarmPlacement(settings, {WindowState::kNormal, true, area}, kScreens);
  EXPECT_EQ(LoadAlarmPlacement(settings, kScreens), (AlarmPlacement{false, area}));
  // The first size is below the least one, so it leads to itself.
  SaveAlarmPlacement(settings, {WindowState::kNormal, true, kFirst.area}, kScreens);
  EXPECT_EQ(LoadAlarmPlacement(settings, kScreens), kFirst);
}

TEST(SaveAlarmMaximized, WritesOnlyThat) {
  MemorySettingsStore settings;
  SaveAlarmMaximized(settings);
  EXPECT_EQ(PlaceIn(settings), "True (missing) (missing) (missing) (missing) ");
}

}  // namespace
}  // namespace tidewarden::test
