#include <gtest/gtest.h>

#include <map>
#include <set>

#include "tests/support/damage.h"

namespace rostermill::test {
namespace {

// That nothing in it is odd, the tests of `rsmtool check` say.
TEST(SampleImage, NamesNumbersAndSeasonAreALeagues) {
  const LeagueData league = SampleLeague();
  EXPECT_EQ(league.RosterYear.str(), "2026");
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

  std::map<int, int> home, away;
  for (const ScheduleWeek& week : league.ScheduleData) {
    for (int game = 0; game < week.GameCount; ++game) {
      ++home[week.Games[game].HomeTeam];
      ++away[week.Games[game].AwayTeam];
    }
  }
  EXPECT_EQ(home.size(), 28u);
  for (int slot = 1; slot <= SlotCount; ++slot) {
    EXPECT_LE(league.ProbowlData[1][slot].Team, 14);
    EXPECT_GE(league.ProbowlData[2][slot].Team, 15);
  }
  for (const auto& [team, count] : home) {
    EXPECT_EQ(count + away[team], 16) << team;
    EXPECT_GE(count, 6) << team;
    EXPECT_LE(count, 10) << team;
  }
}

}  // namespace
}  // namespace rostermill::test
