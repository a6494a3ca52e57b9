#pragma once

#include <QColor>

namespace rostermill {

/// Contrasts to 1 that the accessibility guidelines (WCAG 2) ask for.
inline constexpr double TextContrast = 4.5;
inline constexpr double FrameContrast = 3;

/// The color closest to `color` that has at least this contrast to `other`, by darkening or
/// lightening it.
QColor StandingOut(const QColor& color, const QColor& other, double contrast = TextContrast);

}  // namespace rostermill
