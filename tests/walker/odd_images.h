#pragma once

#include <cstdint>
#include <random>
#include <vector>

namespace rostermill::test {

/// A file that a user might load: a valid image, one damaged in its sections, one that is random
/// after its header, one of a wrong length, or one with a bad header.
std::vector<std::uint8_t> OddImage(std::mt19937& random);

}  // namespace rostermill::test
