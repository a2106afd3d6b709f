// The one place where the editor's window turns twips into pixels and back.
#pragma once

namespace tidewarden {

inline constexpr int kTwipsPerPixel = 15;

[[nodiscard]] constexpr int TwipsFromPixels(int pixels) {
  return pixels * kTwipsPerPixel;
}

// To the nearest device-independent pixel, halves up.
[[nodiscard]] constexpr int PixelsFromTwips(int twips) {
  const int doubled = 2 * twips + kTwipsPerPixel;
  const int pixels = doubled / (2 * kTwipsPerPixel);
  return doubled < 0 && doubled % (2 * kTwipsPerPixel) != 0 ? pixels - 1 : pixels;
}

}  // namespace tidewarden
