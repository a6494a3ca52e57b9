#include "exchange/merge.h"

#include <map>

namespace rostermill {

namespace {

std::map<Unit, std::vector<Change>> ByUnit(std::vector<Change> changes) {
  std::map<Unit, std::vector<Change>> by_unit;
  for (Change& change : changes) by_unit[change.Where].push_back(std::move(change));
  return by_unit;
}

}  // namespace

Merge FindMerge(const LeagueData& base, const LeagueData& ours, const LeagueData& theirs) {
  const auto our_changes = ByUnit(FindChanges(base, ours));
  const std::vector<Change> their_changes = FindChanges(base, theirs);
  Merge merge;
  std::map<Unit, std::size_t> conflict_of;
  for (const Change& change : their_changes) {
    const auto our_change = our_changes.find(change.Where);
    if (our_change == our_changes.end()) {
      merge.Theirs.push_back(change);
    } else if (!SameUnit(ours, theirs, change.Where)) {
      const auto [at, is_new] = conflict_of.emplace(change.Where, merge.Conflicts.size());
      if (is_new) merge.Conflicts.push_back({change.Where, our_change->second, {}});
      merge.Conflicts[at->second].Theirs.push_back(change);
    }
  }
  return merge;
}

std::set<Unit> UnitsOf(const std::vector<Change>& changes) {
  std::set<Unit> units;
  for (const Change& change : changes) units.insert(change.Where);
  return units;
}

void TakeUnits(const std::set<Unit>& units, const LeagueData& from, LeagueData& to) {
  for (const Unit& unit : units) CopyUnit(from, to, unit);
}

}  // namespace rostermill
