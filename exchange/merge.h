#pragma once

#include <set>
#include <vector>

#include "exchange/changes.h"

namespace rostermill {

/// A unit that both sides changed, to different values.
struct Conflict {
  Unit Where;
  std::vector<Change> Ours;  ///< from the base; more than one for the games of a week
  std::vector<Change> Theirs;
};

/// What the third side of a merge brings to the second.
struct Merge {
  std::vector<Change> Theirs;  ///< changes of the base that only they made, in table order
  std::vector<Conflict> Conflicts;
};

/// Compares two leagues with the one that both were made from, unit by unit. What only we changed,
/// or both in the same way, isn't listed: our league has it.
Merge FindMerge(const LeagueData& base, const LeagueData& ours, const LeagueData& theirs);

/// The units of these changes, each once.
std::set<Unit> UnitsOf(const std::vector<Change>& changes);

/// Gives the units of one league to the other. Whether its texts fit an image is up to
/// TextOverflow.
void TakeUnits(const std::set<Unit>& units, const LeagueData& from, LeagueData& to);

}  // namespace rostermill
