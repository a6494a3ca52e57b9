#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "tools/portraits/canvas.h"
#include "tools/portraits/recipe.h"

namespace rostermill {

using Rgb = std::uint32_t;  // 0xRRGGBB
using Palette = std::array<Rgb, RoleCount>;

// In the order of the table of hair colors.
enum HairColor : std::uint8_t {
  BlueBlack,
  SoftBlack,
  DarkBrown,
  Brown,
  Chestnut,
  Auburn,
  Ginger,
  DarkBlond,
  Blond,
  Sand,
  Gray,
  HairColorCount
};

std::size_t KitCount();
std::size_t BackdropCount();

Palette PaletteOf(const Recipe& recipe);

}  // namespace rostermill
