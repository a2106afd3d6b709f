// The icon in the notification area: what the area is asked to show, and what comes of the mouse.
#include "alarm/tray_icon.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/memory/memory_notification_area.h"

namespace tidewarden {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr double kTwipsPerPixel = 15;

// A record as the system reads it: little-endian numbers, then the text.
std::vector<unsigned char> Bytes(const std::vector<std::uint32_t>& numbers,
                                 const std::string& tip) {
  std::vector<unsigned char> bytes;
  for (const std::uint32_t number : numbers) {
    for (int shift = 0; shift < 32; shift += 8) {
      bytes.push_back(static_cast<unsigned char>(number >> shift));
    }
  }
  bytes.insert(bytes.end(), tip.begin(), tip.end());
  return bytes;
}

std::vector<unsigned char> BytesOf(const MemoryNotificationArea::Call& call) {
  return {call.bytes.begin(), call.bytes.end()};
}

std::string TipAfter(std::string_view tooltip) {
  MemoryNotificationArea area;
  TrayIcon icon(area);
  icon.Tooltip(tooltip);
  icon.Visible(true);
  const auto& tip = area.calls.back().record.szTip;
  return {tip.data(), tip.size()};
}

// Writes down the events: "down 1", "up 2", "double".
struct Listener {
  MemoryNotificationArea area;
  TrayIcon icon{area};
  std::vector<std::string> heard;

  Listener() {
    icon.MouseDown = [this](TrayButton Button) {
      heard.push_back("down " + std::to_string(static_cast<int>(Button)));
    };
    icon.MouseUp = [this](TrayButton Button) {
      heard.push_back("up " + std::to_string(static_cast<int>(Button)));
    };
    icon.DblClick = [this] { heard.emplace_back("double"); };
  }
};

TEST(TrayIcon, StartsHiddenAndEmpty) {
  MemoryNotificationArea area;
  const TrayIcon icon(area);
  EXPECT_FALSE(icon.Visible());
  EXPECT_EQ(icon.Icon(), 0U);
  EXPECT_EQ(icon.Tooltip(), "") << "no character can be taken off a text that was never set";
  EXPECT_EQ(icon.OwnerForm, 0U);
  EXPECT_EQ(icon.lastMessage(), 0);
  EXPECT_THAT(area.calls, IsEmpty());
}

TEST(TrayIcon, GivesBackWhatItWasTold) {
  MemoryNotificationArea area;
  TrayIcon icon(area);
  icon.Tooltip("abc");
  EXPECT_EQ(icon.Tooltip(), "abc");
  icon.Tooltip("");
  EXPECT_EQ(icon.Tooltip(), "");
  icon.Icon(7);
  EXPECT_EQ(icon.Icon(), 7U);
  icon.Visible(true);
  EXPECT_TRUE(icon.Visible());
  icon.Visible(false);
  EXPECT_FALSE(icon.Visible());
}

TEST(TrayIcon, FillsTheRecordByteForByte) {
  MemoryNotificationArea area;
  TrayIcon icon(area);
  icon.OwnerForm = 0x00A1B2C3;
  icon.Icon(0x12345678);
  icon.Tooltip("abc");
  icon.Visible(true);
  ASSERT_EQ(area.calls.size(), 1U);
  const std::string tip = std::string("abc\0", 4) + std::string(60, ' ');
  const auto expected = Bytes({88, 0x00A1B2C3, 1, 7, 512, 0x12345678}, tip);
  EXPECT_EQ(expected.size(), 88U);
  EXPECT_EQ(BytesOf(area.calls[0]), expected);
  EXPECT_EQ(area.calls[0].tooltip, "abc");
}

TEST(TrayIcon, TalksToTheAreaOnlyWhileVisible) {
  MemoryNotificationArea area;
  TrayIcon icon(area);
  icon.Icon(1);
  icon.Tooltip("one");
  EXPECT_THAT(area.Messages(), IsEmpty());
  icon.Visible(true);
  EXPECT_THAT(area.Messages(), ElementsAre("add"));
  icon.Tooltip("two");
  EXPECT_THAT(area.Messages(), ElementsAre("add", "modify"));
  icon.Icon(2);
  EXPECT_THAT(area.Messages(), ElementsAre("add", "modify", "modify"));
  icon.Visible(true);
  EXPECT_THAT(area.Messages(), ElementsAre("add", "modify", "modify", "add"));
  icon.Visible(false);
  icon.Icon(3);
  icon.Tooltip("three");
  EXPECT_THAT(area.Messages(), ElementsAre("add", "modify", "modify", "add", "delete"));
}

TEST(TrayIcon, ChangesReachTheAreaWithTheNextAdd) {
  MemoryNotificationArea area;
  TrayIcon icon(area);
  icon.Icon(1);
  icon.Tooltip("one");
  icon.Visible(true);
  icon.Visible(false);
  icon.Icon(2);
  icon.Tooltip("two");
  icon.OwnerForm = 9;
  icon.Visible(true);
  ASSERT_EQ(area.calls.size(), 3U);
  EXPECT_EQ(area.calls[2].record.hIcon, 2U);
  EXPECT_EQ(area.calls[2].record.hWnd, 9U);
  EXPECT_EQ(area.calls[2].tooltip, "two");
}

TEST(TrayIcon, ModifiesWithWhatIsStoredNow) {
  MemoryNotificationArea area;
  TrayIcon icon(area);
  icon.Icon(5);
  icon.Modify();
  ASSERT_THAT(area.Messages(), ElementsAre("modify"));
  EXPECT_EQ(area.calls[0].record.cbSize, 88U);
  EXPECT_EQ(area.calls[0].record.hIcon, 5U);
}

TEST(TrayIcon, IsRemovedByTheRecordAsItWasLastFilled) {
  MemoryNotificationArea area;
  TrayIcon icon(area);
  icon.Icon(1);
  icon.Tooltip("shown");
  icon.Visible(true);
  icon.OwnerForm = 3;
  icon.Visible(false);
  ASSERT_EQ(area.calls.size(), 2U);
  EXPECT_EQ(BytesOf(area.calls[1]), BytesOf(area.calls[0]));

  TrayIcon never(area);
  never.Visible(false);
  EXPECT_EQ(BytesOf(area.calls[2]), std::vector<unsigned char>(88, 0));
}

TEST(TrayIcon, StaysVisibleOnADesktopWithoutAnArea) {
  MemoryNotificationArea area;
  area.available = false;
  TrayIcon icon(area);
  icon.Visible(true);
  EXPECT_TRUE(icon.Visible());
}

TEST(TrayIcon, CutsTheTooltipAtTheEndOfItsField) {
  const std::string nul(1, '\0');
  const std::string x62(62, 'x');
  EXPECT_EQ(TipAfter(""), nul + std::string(63, ' '));
  EXPECT_EQ(TipAfter(x62), x62 + nul + " ");
  EXPECT_EQ(TipAfter(x62 + "y"), x62 + "y" + nul);
  EXPECT_EQ(TipAfter(x62 + "yz"), x62 + "yz");
  EXPECT_EQ(TipAfter(x62 + "yz!"), x62 + "yz");
}

TEST(TrayIcon, ReadsBackTheWholeTooltipThatTheRecordCuts) {
  const std::string tooltip =
      "For \"always on\" computers,\r\nTidewarden reminders pop up each day.";
  ASSERT_EQ(tooltip.size(), 65U);
  MemoryNotificationArea area;
  TrayIcon icon(area);
  icon.Tooltip(tooltip);
  icon.Visible(true);
  EXPECT_EQ(icon.Tooltip(), tooltip);
  EXPECT_EQ(area.calls[0].tooltip, tooltip);
  const auto& tip = area.calls[0].record.szTip;
  EXPECT_EQ(std::string(tip.data(), tip.size()), tooltip.substr(0, 64));
}

TEST(TrayIcon, WritesTheTooltipInTheCodePage) {
  const std::string nul(1, '\0');
  EXPECT_EQ(TipAfter("Käse \u20AC").substr(0, 8), "K\xE4se \x80" + nul + " ");
  EXPECT_EQ(TipAfter("\u6F6E!").substr(0, 3), "?!" + nul);
  EXPECT_EQ(TipAfter("a\xFF").substr(0, 3), "a?" + nul) << "a byte that is no UTF-8";
  std::string umlauts;
  for (int i = 0; i < 65; ++i) umlauts += "ä";
  EXPECT_EQ(TipAfter(umlauts), std::string(64, '\xE4'));
}

TEST(TrayIcon, TurnsMouseMessagesIntoEvents) {
  const struct {
    int message;
    std::vector<std::string> events;
  } cases[] = {
      {0, {}},           {511, {}},         {512, {}},       {513, {"down 1"}}, {514, {"up 1"}},
      {515, {"double"}}, {516, {"down 2"}}, {517, {"up 2"}}, {518, {"double"}}, {519, {}},
      {520, {}},         {521, {}},         {-514, {}},      {100'514, {}},
  };
  for (const auto& [message, events] : cases) {
    for (const double twipsPerPixel : {15.0, 12.0, 7.5, 1.0}) {
      SCOPED_TRACE(std::to_string(message) + " at " + std::to_string(twipsPerPixel));
      Listener listener;
      listener.icon.HandleCallback(message * twipsPerPixel, twipsPerPixel);
      EXPECT_EQ(listener.heard, events);
      EXPECT_EQ(listener.icon.lastMessage(), message);
    }
  }
}

TEST(TrayIcon, RoundsToTheNearestMessage) {
  const struct {
    double x;
    int message;
  } cases[] = {
      {517 * 15 - 8, 516}, {517 * 15 - 7, 517}, {517 * 15 + 7, 517},
      {517 * 15 + 8, 518}, {513.5 * 15, 514},   {514.5 * 15, 514},  // halves to the even neighbour
  };
  for (const auto& [x, message] : cases) {
    Listener listener;
    listener.icon.HandleCallback(x, kTwipsPerPixel);
    EXPECT_EQ(listener.icon.lastMessage(), message) << x;
  }
}

TEST(TrayIcon, TakesNoNumberForNoMessage) {
  constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();
  constexpr double kInfinite = std::numeric_limits<double>::infinity();
  for (const double x : {kNoNumber, kInfinite, -kInfinite, 1e300, -1e300, 3e10}) {
    Listener listener;
    listener.icon.HandleCallback(x, 1);
    EXPECT_EQ(listener.icon.lastMessage(), 0) << x;
    EXPECT_THAT(listener.heard, IsEmpty()) << x;
  }
  Listener listener;
  listener.icon.HandleCallback(514, 0);
  EXPECT_THAT(listener.heard, IsEmpty());
}

TEST(TrayIcon, RaisesNothingWhileAHandlerRuns) {
  Listener listener;
  listener.icon.MouseUp = [&](TrayButton /*Button*/) {
    listener.heard.emplace_back("up begins");
    listener.icon.HandleCallback(513 * kTwipsPerPixel, kTwipsPerPixel);
    listener.icon.HandleCallback(514 * kTwipsPerPixel, kTwipsPerPixel);
    listener.heard.emplace_back("up ends");
  };
  listener.icon.HandleCallback(514 * kTwipsPerPixel, kTwipsPerPixel);
  EXPECT_THAT(listener.heard, ElementsAre("up begins", "up ends"));
  listener.icon.HandleCallback(513 * kTwipsPerPixel, kTwipsPerPixel);
  EXPECT_THAT(listener.heard, ElementsAre("up begins", "up ends", "down 1"));
}

TEST(TrayIcon, ListensAgainAfterAHandlerThatThrew) {
  Listener listener;
  listener.icon.DblClick = [] { throw std::runtime_error("a handler"); };
  EXPECT_THROW(listener.icon.HandleCallback(515, 1), std::runtime_error);
  listener.icon.HandleCallback(514, 1);
  EXPECT_THAT(listener.heard, ElementsAre("up 1"));
}

TEST(TrayIcon, AHandlerMayDestroyTheIcon) {
  MemoryNotificationArea area;
  auto icon = std::make_unique<TrayIcon>(area);
  std::vector<std::string> heard;
  // Longer than what a small function object holds in place, so that it dies with the icon.
  const std::string word = "a text that needs memory of its own";
  icon->MouseUp = [&icon, &heard, word](TrayButton /*Button*/) {
    icon->Visible(false);
    icon.reset();
    heard.push_back(word);
  };
  icon->HandleCallback(514, 1);
  EXPECT_EQ(icon, nullptr);
  EXPECT_THAT(heard, ElementsAre(word));
}

TEST(TrayIcon, DoesWithoutHandlers) {
  MemoryNotificationArea area;
  TrayIcon icon(area);
  for (int message = 512; message <= 519; ++message) icon.HandleCallback(message, 1);
  EXPECT_EQ(icon.lastMessage(), 519);
}

TEST(TrayIcon, HearsTheAreaItIsConnectedTo) {
  Listener listener;
  listener.area.Mouse = [&](IconMouseMessage message) {
    listener.icon.HandleCallback(static_cast<double>(message), 1);
  };
  listener.area.Mouse(IconMouseMessage::kRightUp);
  EXPECT_THAT(listener.heard, ElementsAre("up 2"));
}

}  // namespace
}  // namespace tidewarden
