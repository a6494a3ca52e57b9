#pragma once

#include <QColor>

namespace rostermill {

/// Whether the contrast of two colors is at least 4.5 to 1, as the accessibility guidelines (WCAG
/// 2) ask for texts.
bool StandsOut(const QColor& text, const QColor& ground);

/// The color closest to `color` that stands out against `other`, by darkening or lightening it.
QColor StandingOut(const QColor& color, const QColor& other);

}  // namespace rostermill
