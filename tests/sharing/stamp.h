#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "league/league_data.h"

namespace rostermill::test {

// What the writers save are states of the sample league that differ in a stamp only, "A0200017":
// the name of the writer's process and a serial. Every team has a player of that name, with a face
// that depends on it. So all of an image is known from its stamp, and one that is mixed of two
// states is none.

/// The state that nobody has saved: the first.
inline const std::string FirstStamp = "Z0000000";

std::string Stamp(const std::string& name, int serial);

LeagueData StampedLeague(const std::string& stamp);

/// The bytes of the image that a save of the league with that stamp makes of any other.
std::vector<std::uint8_t> StampedImage(const std::string& stamp);

/// The stamp of the league; empty where any value isn't that of the stamped league.
std::optional<std::string> StampOf(const LeagueData& league);

/// The table for rsmtool that gives a league this stamp.
std::string StampTable(const std::string& stamp);

}  // namespace rostermill::test
