#include <gtest/gtest.h>

#include "rules/play_names.h"
#include "rules/working_copies.h"
#include "tests/support/sample.h"

namespace rostermill::test {
namespace {

// Catches run and pass slots mixed up, and slots numbered from 0.
TEST(PlayNames, FilesAndNamesFollowSlotAndChoice) {
  EXPECT_EQ(PlayPath("/there/", 1, 0), "/there/r1-0.bmp");
  EXPECT_EQ(PlayFileName(4, 7), "r4-7.bmp");
  EXPECT_EQ(PlayFileName(5, 0), "p1-0.bmp");
  EXPECT_EQ(PlayFileName(8, 7), "p4-7.bmp");
  EXPECT_EQ(PlayName(7, 3), "Rund and Shoot 3-Wing");
  EXPECT_EQ(PlayName(1, 8), "Unknown play 8");
  EXPECT_EQ(PlayName(8, 9), "Unknown play 9");
}

// Catches the room counted without the two blanks and the fixed 80 bytes, or without pending texts.
TEST(TeamForms, TheRoomForTextsCountsWhatIsPending) {
  LeagueSession session;
  EXPECT_EQ(TeamTextBytesFree(session), 660 - 82);
  LeagueOf(session).TeamData[3].City = "ABC";
  session.ViewTeam = 3;
  session.PreviewCity = "ABCDE";
  session.PreviewName = "XY";
  EXPECT_EQ(TeamTextBytesFree(session), 660 - 82 - 7);
  session.PreviewName.assign(600, 'X');
  EXPECT_EQ(TeamTextBytesFree(session), -27);
  EXPECT_EQ(TeamTextRoom(37), "Team texts: 37 bytes free");
  EXPECT_EQ(TeamTextRoom(1), "Team texts: 1 byte free");
  EXPECT_EQ(TeamTextRoom(0), "Team texts: 0 bytes free");
  EXPECT_EQ(TeamTextRoom(-27), "Team texts: 27 bytes too many");
}

// Catches colors of the second uniform stored over the first, and a shift by a short abbreviation.
TEST(TeamForms, WorkingCopiesGoToTheirPlacesAndBack) {
  LeagueSession session;
  session.ViewTeam = 28;
  TeamRec& team = LeagueOf(session).TeamData[28];
  team.TeamColors = {{11, 12, 13, 21, 22, 23}};
  FillWorkingCopies(session);
  EXPECT_EQ(session.PreviewColors[1], (IndexedArray<std::int16_t, 1, 3>{{11, 12, 13}}));
  EXPECT_EQ(session.PreviewColors[2], (IndexedArray<std::int16_t, 1, 3>{{21, 22, 23}}));
  JerseyColor(session, 0) = 1;
  JerseyColor(session, 1) = 3;
  JerseyColor(session, 2) = 4;
  JerseyColor(session, 3) = 6;
  session.PreviewCity = "Salt\xE9";
  session.PreviewAbbreviation = "ab";
  StoreWorkingCopies(session, LeagueOf(session));
  EXPECT_EQ(team.TeamColors, (IndexedArray<std::int16_t, 1, 6>{{1, 12, 3, 4, 22, 6}}));
  EXPECT_EQ(team.City, "SALT\xE9");
  EXPECT_EQ(team.Abbreviation, "AB  ");
}

}  // namespace
}  // namespace rostermill::test
