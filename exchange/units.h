#pragma once

#include <tuple>

#include "league/league_data.h"

namespace rostermill {

enum class UnitKind {
  RosterYear,
  LeagueText,  ///< Part 1 to 3
  City,
  Nickname,
  Abbreviation,
  Formation,
  UniformColor,     ///< Part 1 to 6
  DivisionColor,    ///< Part 1 to 5, of the division champion
  ConferenceColor,  ///< Part 1 to 4, of the conference champion
  Play,             ///< Part 1 to 8
  KickReturner,     ///< of a whole team, since only one player has the duty
  PuntReturner,
  Name,    ///< first and last
  Number,  ///< of the jersey
  Face,
  Rating,  ///< Part 0 to 7, the place
  Week,    ///< Part 1 to 17; all its games
  AllStar  ///< Part 1 AFC, 2 NFC
};

/// The smallest part of a league that is compared, taken over from another league, or merged.
struct Unit {
  UnitKind Kind = UnitKind::RosterYear;
  int Team = 0;  ///< 1 to 28; 0 where it isn't about a team
  int Slot = 0;  ///< 1 to 30; 0 where it isn't about a player
  int Part = 0;  ///< see UnitKind; otherwise 0
  bool operator==(const Unit&) const = default;
  bool operator<(const Unit& other) const {
    return std::tie(Kind, Team, Slot, Part) <
           std::tie(other.Kind, other.Team, other.Slot, other.Part);
  }
};

/// Whether two leagues have the same value in a unit, byte by byte; in a week the games in use
/// count. Throws std::out_of_range for a unit that no league has, as CopyUnit does.
bool SameUnit(const LeagueData& a, const LeagueData& b, const Unit& unit);

/// Gives the unit of one league to the other.
void CopyUnit(const LeagueData& from, LeagueData& to, const Unit& unit);

}  // namespace rostermill
