#include <gtest/gtest.h>

#include <tuple>
#include <vector>

#include "rules/display_text.h"
#include "rules/position_layout.h"

namespace rostermill {
namespace {

TEST(PositionLayout, SlotsAtTheEdgesOfTheGroups) {
  using enum PositionGroup;
  const std::vector<std::tuple<int, PositionGroup, int, int>> edges{
      {1, QB, 1, 8},    {2, QB, 2, 8},    {3, Skill, 1, 6},    {12, Skill, 10, 6},
      {13, Line, 1, 4}, {17, Line, 5, 4}, {18, Defense, 1, 6}, {28, Defense, 11, 6},
      {29, Kick, 1, 6}, {30, Kick, 2, 6}};
  for (const auto& [slot, group, index, places] : edges) {
    EXPECT_EQ(GroupOfSlot(slot), group) << slot;
    EXPECT_EQ(TableIndexOfSlot(slot), index) << slot;
    EXPECT_EQ(PlacesInUse(group), places) << slot;
  }
  EXPECT_THROW(GroupOfSlot(0), std::out_of_range);
  EXPECT_THROW(GroupOfSlot(31), std::out_of_range);
}

TEST(PositionLayout, PlacesReachTheirFieldsAndNoOthers) {
  LeagueData league;
  league.QBData[4][2] = {1, 2, 3, 4, 200, 5, 6, 7, 8};
  for (int place = 0; place < 8; ++place) EXPECT_EQ(PlaceCode(league, 4, 2, place), place + 1);
  EXPECT_EQ(FaceOf(league, 4, 2), 200);
  league.SkillData[4][10] = {1, 2, 3, 4, 9, 5, 6, 0, 0};
  EXPECT_EQ(PlaceCode(league, 4, 12, 5), 6);
  league.DefenseData[28][11].Quickness = 12;
  EXPECT_EQ(PlaceCode(league, 28, 28, 5), 12);
  SetPlaceCode(league, 28, 30, 4, 15);
  EXPECT_EQ(league.KickData[28][2].KickingAbility, 15);
  EXPECT_THROW(PlaceCode(league, 4, 13, 4), std::out_of_range);
  EXPECT_THROW(PlaceCode(league, 4, 12, 6), std::out_of_range);
  EXPECT_THROW(SetPlaceCode(league, 4, 12, -1, 1), std::out_of_range);
  EXPECT_THROW(FaceOf(league, 4, 31), std::out_of_range);
  EXPECT_THROW(RatingAt(PositionGroup::Line, 4), std::out_of_range);
}

TEST(PositionLayout, FormationsRenameSixSlots) {
  EXPECT_EQ(PositionLabels(1)[0], (PositionLabel{3, "WR 3"}));
  EXPECT_EQ(PositionLabels(1)[5], (PositionLabel{11, "WR 6"}));
  EXPECT_EQ(PositionLabels(2)[3], (PositionLabel{8, "RB 4"}));
  EXPECT_EQ(PositionLabels(2)[4], (PositionLabel{10, "TE 1"}));
  EXPECT_EQ(PositionLabels(0)[3], (PositionLabel{8, "WR 3"}));
  EXPECT_EQ(PositionLabels(7), PositionLabels(0));
}

TEST(TextForms, NamesAndTeamsInTheirForms) {
  LeagueData league;
  league.NameData[1][1] = {"j.t.", "McKANE", "07"};
  league.TeamData[1].City = "BAYOU VERDE";
  league.TeamData[1].Nickname = "NEWTS";
  EXPECT_EQ(PlayerListText(league, 1, 1), "McKANE, j.t.");
  EXPECT_EQ(PlayerEditText(league, 1, 1), "J.t. Mckane");
  EXPECT_EQ(NumberCaption(league, 1, 1), "#07");
  EXPECT_EQ(TeamListText(league, 1), "BAYOU VERDE NEWTS");
  EXPECT_EQ(TeamTitleText(league, 1), "Bayou verde Newts");
  EXPECT_EQ(PlayerEditText(league, 2, 1), " ");
  EXPECT_EQ(TeamTitleText(league, 2), " ");
  league.NameData[2][1] = {"", "SMITHERS", ""};
  EXPECT_EQ(PlayerEditText(league, 2, 1), " Smithers");
  league.NameData[2][1] = {"sam", "", ""};
  EXPECT_EQ(PlayerEditText(league, 2, 1), "Sam ");
}

}  // namespace
}  // namespace rostermill
