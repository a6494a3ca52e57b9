#include <gtest/gtest.h>

#include "rules/display_text.h"
#include "rules/face_paths.h"
#include "rules/position_layout.h"

namespace rostermill {
namespace {

TEST(PositionLayout, SlotsAtTheEdgesOfTheGroups) {
  struct Edge {
    int slot;
    PositionGroup group;
    int index;
    int places;
  };
  for (const Edge& edge :
       {Edge{1, PositionGroup::QB, 1, 8}, Edge{2, PositionGroup::QB, 2, 8},
        Edge{3, PositionGroup::Skill, 1, 6}, Edge{12, PositionGroup::Skill, 10, 6},
        Edge{13, PositionGroup::Line, 1, 4}, Edge{17, PositionGroup::Line, 5, 4},
        Edge{18, PositionGroup::Defense, 1, 6}, Edge{28, PositionGroup::Defense, 11, 6},
        Edge{29, PositionGroup::Kick, 1, 6}, Edge{30, PositionGroup::Kick, 2, 6}}) {
    EXPECT_EQ(GroupOfSlot(edge.slot), edge.group) << edge.slot;
    EXPECT_EQ(TableIndexOfSlot(edge.slot), edge.index) << edge.slot;
    EXPECT_EQ(PlacesInUse(edge.group), edge.places) << edge.slot;
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

TEST(PositionLayout, EachPlaceHasItsCaption) {
  const auto captions = [](PositionGroup group) {
    std::string text;
    for (int place = -1; place <= 8; ++place) text += PlaceCaption(group, place);
    return text;
  };
  const std::string shared = "Rushing Power:Running Speed:Maximum Speed:Hitting Power:";
  EXPECT_EQ(captions(PositionGroup::QB),
            shared + "Passing Speed:Pass Control:Accuracy:Avoid Pass Block:");
  EXPECT_EQ(captions(PositionGroup::Skill), shared + "Ball Control:Receptions:");
  EXPECT_EQ(captions(PositionGroup::Line), shared);
  EXPECT_EQ(captions(PositionGroup::Defense), shared + "Pass Interception:Quickness:");
  EXPECT_EQ(captions(PositionGroup::Kick), shared + "Kicking Abiblity:Avoid Kick Block:");
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
  EXPECT_EQ(RatingText(15), "100");
}

TEST(TextForms, EmptyNamesKeepTheirOneBlank) {
  LeagueData league;
  EXPECT_EQ(PlayerEditText(league, 1, 1), " ");
  league.NameData[1][1].LastName = "SMITHERS";
  EXPECT_EQ(PlayerEditText(league, 1, 1), " Smithers");
  league.NameData[1][1] = {"sam", "", ""};
  EXPECT_EQ(PlayerEditText(league, 1, 1), "Sam ");
  EXPECT_EQ(TeamTitleText(league, 1), " ");
}

TEST(FacePaths, FileNamesAreTwoCapitalHexadecimalDigits) {
  EXPECT_EQ(FaceFileName(0), "00");
  EXPECT_EQ(FaceFileName(10), "0A");
  EXPECT_EQ(FaceFileName(128), "80");
  EXPECT_EQ(FacePath("/p/", 255), "/p/faces/FF.bmp");
  EXPECT_EQ(NoFacePath("/p/"), "/p/faces/na.bmp");
}

}  // namespace
}  // namespace rostermill
