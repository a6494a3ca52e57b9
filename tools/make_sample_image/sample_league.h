#pragma once

#include "league/league_data.h"
#include "tools/make_sample_image/number_stream.h"

namespace rostermill {

/// An invented league, whole and valid, the same at every call. The palette stays empty.
LeagueData BuildSampleLeague();

// Its pieces.
void FillTeams(LeagueData& league, NumberStream& numbers);
/// Names, numbers, photos, ratings and returners of all 840 players.
void FillPlayers(LeagueData& league, NumberStream& numbers);
/// 17 weeks: every team plays 16 games, 8 or so at home, and has one week off.
void FillSeason(LeagueData& league);
/// The best player of each slot on each side.
void FillProbowl(LeagueData& league);

}  // namespace rostermill
