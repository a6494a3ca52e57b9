#include <gtest/gtest.h>

#include <map>
#include <set>

#include "tests/support/damage.h"

namespace rostermill::test {
namespace {

TEST(SampleImage, IsAStockImageOfTheWholeSize) {
  const auto bytes = SampleBytes();
  EXPECT_EQ(bytes.size(), 393'232u);
  EXPECT_EQ(bytes[0x21642], 0xA0);
  EXPECT_EQ(bytes[0x21643], 0x02);
}

TEST(SampleImage, PlayersHaveTwoNamesANumberOfTheirOwnAndOneReturnerOfEachKind) {
  const LeagueData league = SampleLeague();
  std::set<std::string> names;
  for (int team = 1; team <= TeamCount; ++team) {
    std::set<std::string> numbers;
    for (const NameRec& name : league.NameData[team]) {
      EXPECT_FALSE(name.FirstName.empty());
      EXPECT_LE(name.FirstName.size() + name.LastName.size(), 15u) << name.LastName;
      names.insert(name.FirstName + name.LastName);
      EXPECT_TRUE(numbers.insert(name.JerseyNumber).second) << team << ": " << name.JerseyNumber;
    }
    int kick = 0;
    int punt = 0;
    for (const SkillRec& rec : league.SkillData[team]) {
      kick += rec.KickReturner;
      punt += rec.PuntReturner;
    }
    EXPECT_EQ(kick, 1) << team;
    EXPECT_EQ(punt, 1) << team;
  }
  EXPECT_EQ(names.size(), 840u);
}

TEST(SampleImage, TheSeasonIsLegal) {
  const LeagueData league = SampleLeague();
  std::map<int, int> games;
  std::map<int, int> home;
  for (const ScheduleWeek& week : league.ScheduleData) {
    std::set<int> playing;
    for (int game = 0; game < week.GameCount; ++game) {
      for (const int team : {week.Games[game].HomeTeam, week.Games[game].AwayTeam}) {
        EXPECT_TRUE(playing.insert(team).second) << "twice in a week";
        ++games[team];
      }
      ++home[week.Games[game].HomeTeam];
    }
  }
  ASSERT_EQ(games.size(), 28u);
  for (const auto& [team, count] : games) {
    EXPECT_EQ(count, 16) << team;
    EXPECT_GE(home[team], 6) << team;
    EXPECT_LE(home[team], 10) << team;
  }
}

TEST(SampleImage, EveryOtherValueIsValidToo) {
  const LeagueData league = SampleLeague();
  for (int team = 1; team <= TeamCount; ++team) {
    for (const auto color : league.TeamData[team].TeamColors) EXPECT_LT(color, 64);
    for (const auto choice : league.TeamPlays[team]) EXPECT_LT(choice, 8);
  }
  for (int side = 1; side <= 2; ++side) {
    for (const ProbowlRec& place : league.ProbowlData[side]) {
      EXPECT_GE(place.Team, side == 1 ? 1 : 15);
      EXPECT_LE(place.Team, side == 1 ? 14 : 28);
    }
  }
  EXPECT_EQ(league.RosterYear.str(), "2026");
}

}  // namespace
}  // namespace rostermill::test
