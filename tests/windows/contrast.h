// Contrast as the Web Content Accessibility Guidelines (2.1) define it, and the desktops on which
// tests measure it.
#pragma once

#include <QColor>
#include <QImage>
#include <QPalette>
#include <algorithm>
#include <cmath>

namespace tidewarden {

inline constexpr double kTextContrast = 4.5;
inline constexpr double kLineContrast = 3.0;  // what is drawn

inline double Luminance(const QColor& color) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
         0.0722 * linear(color.blueF());
}

inline double Contrast(const QColor& one, const QColor& other) {
  const double a = Luminance(one) + 0.05;
  const double b = Luminance(other) + 0.05;
  return std::max(a, b) / std::min(a, b);
}

// Of the colour in a picture that stands out most.
inline double BestContrast(const QImage& picture, const QColor& background) {
  double best = 1;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      best = std::max(best, Contrast(picture.pixelColor(x, y), background));
    }
  }
  return best;
}

inline QPalette Desktop(const QColor& window, const QColor& base, const QColor& text) {
  QPalette palette(window);
  for (const auto role : {QPalette::Window, QPalette::Button}) palette.setColor(role, window);
  for (const auto role : {QPalette::Base, QPalette::AlternateBase}) palette.setColor(role, base);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(role, text);
  }
  return palette;
}

}  // namespace tidewarden
