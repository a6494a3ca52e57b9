#pragma once

#include <string>

#include "league/league_data.h"

namespace rostermill {

/// How the screens spell teams, players, numbers, ratings and formations. All texts are Latin-1.

/// The longest texts that the editors allow, in characters.
inline constexpr int LongestCity = 15;  // and nickname
inline constexpr int LongestTeamText = LongestCity + 1 + LongestCity;
inline constexpr int LongestPlayerText = 16;
inline constexpr int LongestPlayerListText = LongestPlayerText + 1;  // for the comma

/// "HARBORTON SPARROWS"
std::string TeamListText(const LeagueData& league, int team);
/// "PLOVER, sam", each part in its stored case
std::string PlayerListText(const LeagueData& league, int team, int slot);
/// "sam PLOVER", each part in its stored case
std::string PlayerFullText(const LeagueData& league, int team, int slot);
/// "#07": the number as it is stored
std::string NumberCaption(const LeagueData& league, int team, int slot);
/// "56" for code 8
std::string RatingText(int code);
/// "Harborton Sparrows": one capital in each of city and nickname
std::string TeamTitleText(const LeagueData& league, int team);
/// "Sam Plover". Always contains a blank, so that an empty part shows as " Plover" or "Sam ",
/// and splitting at the first blank gives the parts back.
std::string PlayerEditText(const LeagueData& league, int team, int slot);

/// " 2RB 2WR 1TE" for 0, with a leading blank; " Not Available" for a value above 2.
std::string FormationText(int formation);

}  // namespace rostermill
