#pragma once

#include <string>
#include <vector>

#include "league/league_data.h"

namespace rostermill {

/// A side is a team number of a game, counted from 0; 28 and 29 are the two all-star sides.
/// All texts are Latin-1.

constexpr bool IsAllStarSide(int side) {
  return side == TeamCount || side == TeamCount + 1;
}

/// "HAR." for a team, the league's text for an all-star side, nothing for any other number.
std::string SideAbbreviation(const LeagueData& league, int side);
/// "HARBORTON SPARROWS" for a team, the league's text for an all-star side, nothing otherwise.
std::string SideName(const LeagueData& league, int side);

/// What is odd about a week. Each list is in order of the numbers.
struct WeekFacts {
  std::vector<int> Twice;          ///< sides in more than one game
  std::vector<int> AgainstItself;  ///< sides that are both host and visitor of a game
  std::vector<int> WithoutGame;    ///< of the 28 teams
  bool operator==(const WeekFacts&) const = default;
};

/// Looks at the places in use only. A number outside 0 to 29 belongs to no side.
WeekFacts FactsOfWeek(const ScheduleWeek& week);

using Season = decltype(LeagueData::ScheduleData);

/// The games of all weeks together.
int GamesOfSeason(const Season& season);

/// "HAR., POR." or "none".
std::string SideList(const LeagueData& league, const std::vector<int>& sides);

/// "  1  2 ... 17  all", the heading of GamesByWeek in a fixed-pitch font.
std::string WeekColumns();
/// The games of each week and of the season, in the columns of WeekColumns.
std::string GamesByWeek(const Season& season);

}  // namespace rostermill
