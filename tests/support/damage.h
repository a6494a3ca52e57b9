#pragma once

#include <cstdint>
#include <functional>
#include <random>
#include <vector>

#include "league/load_image.h"
#include "tests/support/sample.h"

namespace rostermill::test {

/// The offsets at which two images differ.
std::vector<int> DifferingOffsets(const std::vector<std::uint8_t>& a,
                                  const std::vector<std::uint8_t>& b);

/// The league in the sample image after `change` has modified its bytes.
LeagueData LeagueOfChanged(const std::function<void(std::vector<std::uint8_t>&)>& change);

/// The bytes of the sample image after the league is saved to it.
std::vector<std::uint8_t> SavedBytes(const LeagueData& league);

/// The sample league as loaded.
LeagueData SampleLeague();

/// A valid image with up to this many bytes of the league replaced.
std::vector<std::uint8_t> DamagedImage(std::mt19937& random, unsigned most);

/// A file that a user might load: a valid image, one damaged in its sections, one that is random
/// after its header, one of a wrong length, or one with a bad header.
std::vector<std::uint8_t> OddImage(std::mt19937& random);

}  // namespace rostermill::test
