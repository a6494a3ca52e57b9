#pragma once

#include "tools/portraits/canvas.h"
#include "tools/portraits/parts.h"
#include "tools/portraits/recipe.h"

namespace rostermill {

Canvas Paint(const Recipe& recipe, const Parts& parts);

}  // namespace rostermill
