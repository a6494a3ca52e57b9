#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "league/league_data.h"

namespace rostermill::test {

// Checks that hold for every image and every league. They need no test library, so that the fuzz
// targets can use them.

/// Saves the league to a copy of the image. Returns what is wrong if the saved image doesn't load
/// as the same league, if a second save changes a byte, or if a byte outside the sections has
/// changed. The league's texts have to fit.
std::optional<std::string> SaveFault(const std::vector<std::uint8_t>& image,
                                     const LeagueData& league);

/// The same for the league in the image itself, whatever its bytes are. Nothing is wrong if a save
/// would refuse the league because of its texts.
std::optional<std::string> RoundTripFault(const std::vector<std::uint8_t>& image);

}  // namespace rostermill::test
