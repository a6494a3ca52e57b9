#pragma once

#include <QImage>
#include <QWidget>

#include <algorithm>
#include <cmath>
#include <map>

namespace rostermill::test {

inline double Luminance(QRgb color) {
  const auto linear = [](int channel) {
    const double part = channel / 255.0;
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(qRed(color)) + 0.7152 * linear(qGreen(color)) +
         0.0722 * linear(qBlue(color));
}

inline double Contrast(QRgb a, QRgb b) {
  const auto [dark, light] = std::minmax({Luminance(a), Luminance(b)});
  return (light + 0.05) / (dark + 0.05);
}

/// The highest contrast between a color in a part of a control and the part's most common color.
inline double InkContrast(QWidget& control, const QRect& part) {
  const QImage shown = control.grab().toImage().convertToFormat(QImage::Format_RGB32);
  const QRect inside = part & shown.rect();
  std::map<QRgb, int> counts;
  for (int y = inside.top(); y <= inside.bottom(); ++y) {
    for (int x = inside.left(); x <= inside.right(); ++x) ++counts[shown.pixel(x, y)];
  }
  const auto background = std::max_element(counts.begin(), counts.end(),
                                           [](auto& a, auto& b) { return a.second < b.second; });
  double best = 1;
  for (const auto& [color, count] : counts)
    best = std::max(best, Contrast(color, background->first));
  return best;
}

}  // namespace rostermill::test
