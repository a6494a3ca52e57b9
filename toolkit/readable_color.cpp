#include "toolkit/readable_color.h"

#include <algorithm>
#include <cmath>

namespace rostermill {

namespace {

/// Relative luminance of an sRGB color, 0 to 1, as defined by the accessibility guidelines (WCAG
/// 2).
double Luminance(const QColor& color) {
  const auto linear = [](double part) {
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
         0.0722 * linear(color.blueF());
}

bool StandsOut(const QColor& one, const QColor& other, double contrast) {
  const auto [dark, light] = std::minmax({Luminance(one), Luminance(other)});
  return light + 0.05 >= contrast * (dark + 0.05);
}

}  // namespace

QColor StandingOut(const QColor& color, const QColor& other, double contrast) {
  constexpr double middle = 0.18;  // black and white have the same contrast to it
  const bool other_is_light = Luminance(other) > middle;
  constexpr int steps = 50;
  for (int step = 0; step <= steps; ++step) {
    const double part = static_cast<double>(step) / steps;
    const double end = other_is_light ? 0 : 1;
    const auto towards = [&](double from) {
      return static_cast<float>(from + (end - from) * part);
    };
    const QColor changed =
        QColor::fromRgbF(towards(color.redF()), towards(color.greenF()), towards(color.blueF()));
    if (StandsOut(other, changed, contrast)) return changed;
  }
  return color;
}

}  // namespace rostermill
