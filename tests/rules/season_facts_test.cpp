#include "rules/season_facts.h"

#include <gtest/gtest.h>

namespace rostermill {
namespace {

ScheduleWeek Week(std::initializer_list<std::pair<int, int>> games) {
  ScheduleWeek week;
  for (const auto& [away, home] : games) {
    GamePlace& place = week.Games[week.GameCount++];
    place.AwayTeam = static_cast<std::int16_t>(away);
    place.HomeTeam = static_cast<std::int16_t>(home);
  }
  return week;
}

TEST(FactsOfWeek, FindsWhatAUserWouldFix) {
  ScheduleWeek week = Week({{0, 1}, {2, 0}, {3, 3}, {28, 29}, {29, 4}, {-5, 300}, {6, 7}, {7, 7}});
  week.GameCount = 7;
  WeekFacts facts = FactsOfWeek(week);
  EXPECT_EQ(facts.Twice, (std::vector{0, 29}));
  EXPECT_EQ(facts.AgainstItself, (std::vector{3}));
  EXPECT_EQ(facts.WithoutGame.size(), 28u - 7u);
  EXPECT_EQ(facts.WithoutGame.front(), 5);
  EXPECT_EQ(facts.WithoutGame.back(), 27);
  week.GameCount = 8;
  facts = FactsOfWeek(week);
  EXPECT_EQ(facts.Twice, (std::vector{0, 7, 29}));
  EXPECT_EQ(facts.AgainstItself, (std::vector{3, 7}));
}

TEST(FactsOfWeek, AWholeWeekAndAnEmptyOne) {
  ScheduleWeek whole;
  for (int game = 0; game < 14; ++game) {
    whole.Games[game] = {.HomeTeam = static_cast<std::int16_t>(game),
                         .AwayTeam = static_cast<std::int16_t>(27 - game)};
  }
  EXPECT_EQ(FactsOfWeek(whole).WithoutGame.size(), 28u);
  whole.GameCount = 14;
  EXPECT_EQ(FactsOfWeek(whole), WeekFacts{});
}

TEST(SideTexts, NameTeamsAndAllStarSides) {
  LeagueData league;
  league.TeamData[1].City = "HARBORTON";
  league.TeamData[1].Nickname = "SPARROWS";
  league.TeamData[1].Abbreviation = "HAR.";
  league.TeamData[28].Abbreviation = "WES ";
  league.LeagueText[1] = "ONE";
  league.LeagueText[2] = "TWO";
  league.LeagueText[3] = "TRI";
  EXPECT_EQ(SideName(league, 0), "HARBORTON SPARROWS");
  EXPECT_EQ(SideName(league, 29), "TRI");
  EXPECT_EQ(SideList(league, {0, 27, 28, 29}), "HAR., WES , TWO, TRI");
  EXPECT_EQ(SideList(league, {}), "none");
  EXPECT_EQ(SideAbbreviation(league, 30) + SideName(league, -1), "");
}

TEST(GamesByWeek, CountsAreUnderTheirWeeks) {
  LeagueData league;
  league.ScheduleData[0].GameCount = 14;
  league.ScheduleData[8].GameCount = 9;
  league.ScheduleData[16].GameCount = 12;
  EXPECT_EQ(GamesByWeek(league.ScheduleData),
            " 14  0  0  0  0  0  0  0  9  0  0  0  0  0  0  0 12   35");
  EXPECT_EQ(WeekColumns(), "  1  2  3  4  5  6  7  8  9 10 11 12 13 14 15 16 17  all");
}

}  // namespace
}  // namespace rostermill
