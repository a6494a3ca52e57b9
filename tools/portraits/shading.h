#pragma once

#include "tools/portraits/canvas.h"
#include "tools/portraits/parts.h"

namespace rostermill {

// The light comes from the upper left in all of these.
void ShadeSkull(Canvas& head);
void ShadeHair(Canvas& hair, Texture texture);
void ShadeCloth(Canvas& body);

// Darkens the rim of the figure. Clear and backdrop pixels are outside the figure.
void Outline(Canvas& figure);

}  // namespace rostermill
