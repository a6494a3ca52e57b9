#include <gtest/gtest.h>

#include <map>
#include <set>

#include "tests/support/damage.h"

namespace rostermill::test {
namespace {

// That nothing in it is odd, the tests of `rsmtool check` say.
TEST(SampleImage, PlayersHaveTwoNamesAndANumberOfTheirOwn) {
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
  }
  EXPECT_EQ(names.size(), 840u);
}

TEST(SampleImage, TheSeasonIsLegal) {
  const LeagueData league = SampleLeague();
  std::map<int, int> games;
  std::map<int, int> home;
  for (const ScheduleWeek& week : league.ScheduleData) {
    for (int game = 0; game < week.GameCount; ++game) {
      for (const int team : {week.Games[game].HomeTeam, week.Games[game].AwayTeam}) {
        ++games[team];
      }
      ++home[week.Games[game].HomeTeam];
    }
  }
  ASSERT_EQ(games.size(), 28u);
  EXPECT_EQ(league.RosterYear.str(), "2026");
  for (int slot = 1; slot <= SlotCount; ++slot) {
    EXPECT_LE(league.ProbowlData[1][slot].Team, 14);
    EXPECT_GE(league.ProbowlData[2][slot].Team, 15);
  }
  for (const auto& [team, count] : games) {
    EXPECT_EQ(count, 16) << team;
    EXPECT_GE(home[team], 6) << team;
    EXPECT_LE(home[team], 10) << team;
  }
}

}  // namespace
}  // namespace rostermill::test
