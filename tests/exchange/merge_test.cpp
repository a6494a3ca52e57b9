#include "exchange/merge.h"

#include <gtest/gtest.h>

#include "exchange/league_json.h"
#include "tests/support/random_league.h"

namespace rostermill::test {
namespace {

/// Compared as text, which has every value of a league.
std::string Json(const LeagueData& league) {
  return WriteLeagueJson(league);
}

LeagueData Merged(const LeagueData& base, const LeagueData& ours, const LeagueData& theirs) {
  const Merge merge = FindMerge(base, ours, theirs);
  EXPECT_TRUE(merge.Conflicts.empty());
  LeagueData merged = ours;
  TakeUnits(UnitsOf(merge.Theirs), theirs, merged);
  return merged;
}

TEST(MergeTest, WhatOnlyOneSideChangedIsTakenUnitByUnit) {
  std::mt19937 random(7);
  for (int round = LeagueTotal(5); round > 0; --round) {
    const LeagueData base = RandomLeague(random);
    const LeagueData other = RandomLeague(random);
    EXPECT_EQ(Json(Merged(base, base, other)), Json(other));
    EXPECT_EQ(Json(Merged(base, other, base)), Json(other));
    EXPECT_EQ(Json(Merged(base, other, other)), Json(other));
    EXPECT_TRUE(UnitsOf(FindChanges(other, other)).empty());

    const std::set<Unit> units = UnitsOf(FindChanges(base, other));
    EXPECT_GT(units.size(), 5000u);
    std::set<Unit> our_units, their_units;
    for (const Unit& unit : units) (random() % 2 == 0 ? our_units : their_units).insert(unit);
    LeagueData ours = base;
    LeagueData theirs = base;
    TakeUnits(our_units, other, ours);
    TakeUnits(their_units, other, theirs);
    EXPECT_EQ(UnitsOf(FindChanges(base, ours)), our_units);
    EXPECT_EQ(Json(Merged(base, ours, theirs)), Json(other));
  }
}

}  // namespace
}  // namespace rostermill::test
