#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "league/league_data.h"

namespace rostermill::test {

// What the writers save are states of the sample league that differ in a stamp only, "A0200017":
// the letter of the writer, how many-th process of that letter it is, and its serial. Every team
// has a player of that name, with a face that depends on it. So all of an image is known from its
// stamp, and one that is mixed of two states is none.

std::string Stamp(char writer, int start, int serial);

/// The state that nobody has saved: the first.
inline const std::string FirstStamp = "Z0000000";

LeagueData StampedLeague(const std::string& stamp);
/// The bytes of the image that a save of that league makes of any other.
std::vector<std::uint8_t> StampedImage(const std::string& stamp);

/// The stamp of the league; empty where any value isn't that of the stamped league.
std::optional<std::string> StampOf(const LeagueData& league);

/// The table for rsmtool that gives a league this stamp.
std::string StampTable(const std::string& stamp);

}  // namespace rostermill::test
