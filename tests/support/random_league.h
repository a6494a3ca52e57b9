#pragma once

#include <random>

#include "league/league_data.h"

namespace rostermill::test {

/// A league with a random value in every field, as an image could hold it. Its texts fit, sometimes
/// to the last byte, and look as they do after a load.
LeagueData RandomLeague(std::mt19937& random);

/// The number of leagues per test: ROSTERMILL_LEAGUES, or `usual` if it isn't set. A number below 1
/// fails the test.
int LeagueTotal(int usual);

}  // namespace rostermill::test
