// Where windows stand: the units, the screens, and the numbers that the settings hold.
//
// Settings and rules count in twips. One device-independent pixel is 15 twips on every screen.
#pragma once

#include <string_view>
#include <vector>

namespace tidewarden {

inline constexpr int kTwipsPerPixel = 15;

[[nodiscard]] constexpr int TwipsFromPixels(int pixels) {
  return pixels * kTwipsPerPixel;
}

// To the nearest pixel, halves up.
[[nodiscard]] constexpr int PixelsFromTwips(int twips) {
  const int doubled = 2 * twips + kTwipsPerPixel;
  const int pixels = doubled / (2 * kTwipsPerPixel);
  return doubled < 0 && doubled % (2 * kTwipsPerPixel) != 0 ? pixels - 1 : pixels;
}

// A rectangle on the desktop, in twips. A window's left and top are those of its frame, its width
// and height are its own without the frame.
struct WindowArea {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  bool operator==(const WindowArea&) const = default;
};

enum class WindowState { kNormal, kMinimized, kMaximized };

// What is known of the desktop.
struct Screens {
  WindowArea primary;           // the whole screen, with its panels
  std::vector<WindowArea> all;  // every screen
  bool canPlaceWindows = true;  // false where windows can neither know nor choose their place
};

// True when an area lies at least partly on a screen, or when no screen is known.
[[nodiscard]] bool MeetsAScreen(const WindowArea& area, const Screens& screens);

// A stored position or size as a whole number: optional sign, digits, optional "." and digits,
// with blanks around it; rounded to the nearest number, halves to even. Any other text is 0.
// False for a number beyond 16 bits (-32768 to 32767).
[[nodiscard]] bool ReadPlacementNumber(std::string_view text, int& out);

}  // namespace tidewarden
