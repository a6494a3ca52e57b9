#pragma once

#include <random>

#include "league/league_data.h"

namespace rostermill::test {

/// A league with any value in every field, as an image could hold it: its texts fit, now and then
/// to the last byte, and stand in the form that a load gives.
LeagueData RandomLeague(std::mt19937& random);

/// Leagues a test; ROSTERMILL_LEAGUES sets another number.
int LeagueTotal(int otherwise);

}  // namespace rostermill::test
