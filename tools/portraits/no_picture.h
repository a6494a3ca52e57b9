#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "tools/portraits/canvas.h"

namespace rostermill {

inline constexpr int GrayCount = 8;

// Shown instead of a missing portrait: a gray helmet with a question mark, as indexes into Grays().
using GrayPicture = std::array<std::uint8_t, PictureSize * PictureSize>;
// Reads it from a folder. Throws ArtError.
GrayPicture ReadNoPicture(const std::string& folder);
std::array<std::uint32_t, GrayCount> Grays();

}  // namespace rostermill
