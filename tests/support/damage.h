#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "league/load_image.h"
#include "tests/support/sample.h"

namespace rostermill::test {

/// The offsets at which two images of one length differ.
std::vector<int> DifferingOffsets(const std::vector<std::uint8_t>& a,
                                  const std::vector<std::uint8_t>& b);

/// The league that a sample image gives after `change` has worked on its bytes.
LeagueData LeagueOfChanged(const std::function<void(std::vector<std::uint8_t>&)>& change);

/// The bytes that a save of the league over the sample image gives.
std::vector<std::uint8_t> SavedBytes(const LeagueData& league);

/// The sample league as loaded.
LeagueData SampleLeague();

}  // namespace rostermill::test
