#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "league/league_data.h"

namespace rostermill {

// Finding teams and players by what people call them. Texts are Latin-1 and compared without regard
// to case.

/// What a text names, or why it names nothing.
struct Match {
  int Number = 0;       ///< from 1; 0 where it names nothing or more than one
  std::string Problem;  ///< "\"FOX\" names no team", UTF-8; empty for a match
};

/// A team by its number, 1 to 28, abbreviation, nickname, or city and nickname.
Match FindTeam(const LeagueData& league, std::string_view text);

/// A player's slot by its number, 1 to 30, or by its label under the team's formation, "WR 3".
Match FindSlot(const LeagueData& league, int team, std::string_view text);

struct PlayerPlace {
  int Team = 0;  ///< 1 to 28
  int Slot = 0;  ///< 1 to 30
  bool operator==(const PlayerPlace&) const = default;
};

/// Whether every word is somewhere in the player's name, team, position label or number ("#12").
/// In a position label blanks don't count: "qb1".
bool HasWords(const LeagueData& league, PlayerPlace player, const std::vector<std::string>& words);

/// All players who have the words, in order of teams and slots.
std::vector<PlayerPlace> FindPlayers(const LeagueData& league,
                                     const std::vector<std::string>& words);

}  // namespace rostermill
