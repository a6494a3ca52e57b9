#pragma once

#include "league/league_data.h"
#include "tools/make_sample_image/number_stream.h"

namespace rostermill {

/// An invented league, complete and valid, the same on every call. The palette stays empty.
LeagueData BuildSampleLeague();

// The parts of BuildSampleLeague.
void FillTeams(LeagueData& league, NumberStream& numbers);
/// Names, numbers, photos, ratings and returners of all 840 players.
void FillPlayers(LeagueData& league, NumberStream& numbers);
/// 17 weeks: every team plays 16 games, about 8 of them at home, and has one week off.
void FillSeason(LeagueData& league);
/// The best player at each slot for each of the two all-star rosters.
void FillProbowl(LeagueData& league);

}  // namespace rostermill
