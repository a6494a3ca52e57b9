#pragma once

#include <cstdint>
#include <functional>
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

}  // namespace rostermill::test
