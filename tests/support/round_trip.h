#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "league/league_data.h"

namespace rostermill::test {

/// What every image and every league must stand, free of any test library so that the fuzz
/// targets can use it.

/// Lays the league over a copy of the image. Tells what is wrong when the saved image doesn't load
/// to the same league, when a second save changes a byte, or when a byte outside the sections
/// has changed. The league's texts must fit.
std::optional<std::string> SaveFault(const std::vector<std::uint8_t>& image,
                                     const LeagueData& league);

/// The same for the league that the image itself holds, whatever its bytes are; nothing is wrong
/// with one whose texts a save would refuse.
std::optional<std::string> RoundTripFault(const std::vector<std::uint8_t>& image);

}  // namespace rostermill::test
