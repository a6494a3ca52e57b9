#pragma once

#include "league/league_data.h"
#include "league/oddities.h"
#include "league/open_image.h"

namespace rostermill {

/// The two all-star rosters: 60 entries of 2 bytes from 0x32853, conference 1 first. An entry is
/// the team's and the slot's number, both counted from 0. No value is checked on reading or
/// writing.
void ReadProbowl(OpenImage& image, LeagueData& league);
void WriteProbowl(OpenImage& image, const LeagueData& league);

/// True if the place's team and slot exist, so that it names a player.
bool NamesPlayer(const ProbowlRec& place);
/// Places that name nobody.
void FindProbowlOddities(const LeagueData& league, Oddities& found);

}  // namespace rostermill
