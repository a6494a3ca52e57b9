#include "exchange/player_cells.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "league/league_tables.h"
#include "league/ratings.h"
#include "tests/support/damage.h"

namespace rostermill::test {
namespace {

TEST(StoreCells, OnlyWhatSaysWhoAPlayerIsCantBeChanged) {
  for (const Column& column : PlayerColumns) {
    LeagueData league = SampleLeague();
    const auto problems = StoreCells({{{1, 3}, &column, "x"}}, false, league);
    const bool fixed = column.Kind == ColumnKind::Team || column.Kind == ColumnKind::TeamName ||
                       column.Kind == ColumnKind::Slot || column.Kind == ColumnKind::Position;
    const std::string refused = "SPARROWS RB 1 jon ASHLAR, " + std::string(column.Heading) +
                                ": this column can't be changed";
    EXPECT_EQ(std::ranges::count(problems, refused), fixed ? 1 : 0) << refused;
  }
}

TEST(ShiftRatings, APercentageLeadsToTheNearestRating) {
  const auto power = std::ranges::find(PlayerColumns, "Hitting Power", &Column::Heading);
  for (const auto& [rating, percent, after] : {std::tuple(19, -50, 13),
                                               {69, -50, 38},
                                               {38, 25, 50},
                                               {19, 50, 31},
                                               {25, -10, 25},
                                               {94, 10, 100},
                                               {100, 10, 100},
                                               {13, -30, 6},
                                               {6, -100, 6}}) {
    LeagueData league = SampleLeague();
    std::int16_t& code = league.QBData[1][1].HittingPower;
    code = static_cast<std::int16_t>(NearestRatingCode(rating));
    ShiftRatings({{1, 1}}, {&*power}, {RatingShift::Way::ByPercent, percent}, league);
    EXPECT_EQ(RatingValues[code], after) << rating << " by " << percent;
  }
}

TEST(ShiftRatings, WhoHasNoSuchRatingIsLeftOutAndNotCounted) {
  const auto accuracy = std::ranges::find(PlayerColumns, "Accuracy", &Column::Heading);
  LeagueData league = SampleLeague();
  LeagueData expected = league;
  league.QBData[1][2].Accuracy = 15;
  expected.QBData[1][2].Accuracy = 14;
  const ShiftCount count = ShiftRatings({{1, 2}, {1, 3}, {1, 13}, {1, 30}}, {&*accuracy},
                                        {RatingShift::Way::BySteps, -1}, league);
  EXPECT_EQ(count.Players, 1);
  EXPECT_EQ(count.Changed, 1);
  EXPECT_EQ(league, expected);
}

}  // namespace
}  // namespace rostermill::test
