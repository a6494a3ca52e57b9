#include "exchange/checks.h"

#include <gtest/gtest.h>

#include <map>

#include "tests/support/damage.h"

namespace rostermill::test {
namespace {

std::map<FindingKind, int> Counts(const LeagueData& league) {
  std::map<FindingKind, int> counts;
  for (const Finding& finding : CheckLeague(league)) ++counts[finding.Kind];
  return counts;
}

TEST(CheckLeague, EveryTeamPlayerWeekAndPlaceIsLookedAt) {
  LeagueData league = SampleLeague();
  for (int team = 1; team <= 28; ++team) {
    TeamRec& rec = league.TeamData[team];
    rec.City = rec.Nickname = rec.Abbreviation = "SAME";
    for (auto& color : rec.TeamColors) color = 64;
    for (auto& color : rec.DivChampColors) color = 64;
    for (auto& color : rec.ConfChampColors) color = 64;
    for (auto& play : league.TeamPlays[team]) play = 8;
    for (auto& name : league.NameData[team]) name = {"", "1", "22"};
    for (auto& player : league.SkillData[team]) player.KickReturner = player.PuntReturner = 0;
  }
  for (ScheduleWeek& week : league.ScheduleData) week.GameCount = 0;
  league.ScheduleData[0].GameCount = 1;
  league.ScheduleData[0].Games[0] = {.HomeTeam = 27, .AwayTeam = 0};
  for (auto& side : league.ProbowlData) {
    for (ProbowlRec& place : side) place = {29, 1};
  }
  using enum FindingKind;
  constexpr int team_pairs = 28 * 27 / 2, player_pairs = 28 * (30 * 29 / 2);
  EXPECT_EQ(Counts(league), (std::map<FindingKind, int>{{Teams, 2 * team_pairs},
                                                        {Names, 840},
                                                        {Players, 2 * player_pairs},
                                                        {Duties, 56},
                                                        {Colors, 28 * (6 + 5 + 4)},
                                                        {Plays, 28 * 8},
                                                        {Weeks, 17},
                                                        {Season, 2},
                                                        {AllStars, 60}}));
  for (auto& side : league.ProbowlData) {
    for (ProbowlRec& place : side) place = {28, 30};
  }
  EXPECT_EQ(Counts(league)[AllStars], 2 * (30 * 29 / 2)) << "each pair of places";
}

}  // namespace
}  // namespace rostermill::test
