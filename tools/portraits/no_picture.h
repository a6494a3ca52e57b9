#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "tools/portraits/canvas.h"

namespace rostermill {

inline constexpr int GrayCount = 8;

// Shown where there is no portrait: a grey helmet with a question mark, as indexes into Greys().
using GreyPicture = std::array<std::uint8_t, PictureSize * PictureSize>;
// Reads it from a folder. Throws ArtError.
GreyPicture ReadNoPicture(const std::string& folder);
std::array<std::uint32_t, GrayCount> Greys();

}  // namespace rostermill
