#include "exchange/merge.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "exchange/league_json.h"
#include "tests/support/random_league.h"
#include "tests/support/sample.h"

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

TEST(MergeTest, AUnitChangedInTwoWaysIsAConflict) {
  const LeagueData base = SampleSession()->League();
  LeagueData ours = base;
  LeagueData theirs = base;
  ours.QBData[1][1].Accuracy = 15;
  theirs.QBData[1][1].Accuracy = 0;
  ours.NameData[2][30].FirstName = "ours";
  theirs.NameData[2][30].LastName = "THEIRS";
  ours.NameData[2][29].JerseyNumber = theirs.NameData[2][29].JerseyNumber = "77";
  ours.ScheduleData[16].Games[0] = {1, 2};
  theirs.ScheduleData[16].Games[1] = {3, 4};
  theirs.ScheduleData[16].Games[2] = {5, 6};
  const auto give_duty = [](LeagueData& league, int index) {
    for (SkillRec& player : league.SkillData[3]) player.PuntReturner = 0;
    league.SkillData[3][index].PuntReturner = 1;
  };
  give_duty(ours, 9);
  give_duty(theirs, 10);
  theirs.TeamPlays[28][8] = 9;
  const Merge merge = FindMerge(base, ours, theirs);
  std::string found;
  for (const Conflict& conflict : merge.Conflicts) {
    for (const Change& change : conflict.Ours) found += "ours " + ChangeLine(change);
    for (const Change& change : conflict.Theirs) found += "theirs " + ChangeLine(change);
  }
  for (const char* line : {"ours SPARROWS QB 1 sam PLOVER: Accuracy ", ": Accuracy 69 -> 100\n",
                           "ours Week 17: Game 1 ", "theirs Week 17: Game 3 "}) {
    EXPECT_NE(found.find(line), std::string::npos) << line << "\n" << found;
  }
  const std::vector<UnitKind> kinds{UnitKind::Rating, UnitKind::Name, UnitKind::PuntReturner,
                                    UnitKind::Week};
  ASSERT_EQ(merge.Conflicts.size(), kinds.size()) << found;
  for (const Conflict& conflict : merge.Conflicts) {
    EXPECT_NE(std::ranges::find(kinds, conflict.Where.Kind), kinds.end());
  }
  ASSERT_EQ(merge.Theirs.size(), 1u);
  EXPECT_EQ(merge.Theirs[0].Where, (Unit{UnitKind::Play, 28, 0, 8}));

  LeagueData merged = ours;
  for (const Conflict& conflict : merge.Conflicts) CopyUnit(theirs, merged, conflict.Where);
  EXPECT_EQ(merged.NameData[2][30].FirstName, base.NameData[2][30].FirstName) << "a name is whole";
  EXPECT_EQ(merged.SkillData[3][9].PuntReturner, 0);
  EXPECT_EQ(merged.SkillData[3][10].PuntReturner, 1);
  EXPECT_EQ(merged.ScheduleData[16].Games[0], base.ScheduleData[16].Games[0]);
}

}  // namespace
}  // namespace rostermill::test
