#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace rostermill {

/// How many bytes differ between two images where a save of a league never writes, what comes after
/// the image included; a byte that only one of them has counts too. Both are at least
/// OpenImage::WholeSize long.
std::size_t CountOtherBytes(const std::vector<std::uint8_t>& a, const std::vector<std::uint8_t>& b);

}  // namespace rostermill
