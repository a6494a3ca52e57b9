#pragma once

#include <cstdint>
#include <random>
#include <vector>

namespace rostermill::test {

/// An image as it may come from anywhere: good, damaged in its sections, free behind its header,
/// of a wrong length, or none at all.
std::vector<std::uint8_t> OddImage(std::mt19937& random);

}  // namespace rostermill::test
