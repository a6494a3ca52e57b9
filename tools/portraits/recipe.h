#pragma once

#include <cstdint>

#include "tools/portraits/parts.h"

namespace rostermill {

inline constexpr int PortraitCount = 256;
inline constexpr int PageSize = 128;  // light complexions, then dark ones

// One choice from each list of parts.
struct Recipe {
  std::uint8_t skin, jaw, build, relief, neck, shoulders;
  std::uint8_t hair, hair_color, whiskers;
  std::uint8_t brows, eyes, iris, nose, mouth;
  std::uint8_t extra, kit, collar, pattern, backdrop, turn;
};

Recipe RecipeOf(int portrait, const Parts& parts);

}  // namespace rostermill
