#pragma once

#include <string>
#include <vector>

#include "exchange/units.h"

namespace rostermill {

/// One difference between two leagues, in the game's words, UTF-8.
struct Change {
  Unit Where;           ///< a week has as many changes as it has games that differ
  int Team = 0;         ///< 1 to 28; 0 where it isn't about one team
  int Slot = 0;         ///< 1 to 30; 0 where it isn't about one player
  std::string Subject;  ///< as the first league calls it: "SPARROWS QB 1 sam PLOVER", "Week 3"
  std::string What;     ///< "Passing Speed"
  std::string From;
  std::string To;
};

/// All differences in table order: league, teams with their players, season, all-stars.
std::vector<Change> FindChanges(const LeagueData& from, const LeagueData& to);

/// "SPARROWS QB 1 sam PLOVER: Passing Speed 50 -> 63" and a line end.
std::string ChangeLine(const Change& change);

}  // namespace rostermill
