#pragma once

#include <array>
#include <cstdint>

#include "tools/portraits/canvas.h"
#include "tools/portraits/recipe.h"

namespace rostermill {

using Rgb = std::uint32_t;  // 0xRRGGBB
using Palette = std::array<Rgb, kRoleCount>;

Palette PaletteOf(const Recipe& recipe);

}  // namespace rostermill
