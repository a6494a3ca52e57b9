#include <gtest/gtest.h>

#include "rules/working_copies.h"
#include "tests/support/sample.h"

namespace rostermill::test {
namespace {

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
  EXPECT_EQ(TeamTextRoom(1), "Team texts: 1 byte free");
  EXPECT_EQ(TeamTextRoom(0), "Team texts: 0 bytes free");
  EXPECT_EQ(TeamTextRoom(-27), "Team texts: 27 bytes too many");
}

TEST(TeamForms, WorkingCopiesGoToTheirPlacesAndBack) {
  LeagueSession session;
  session.ViewTeam = 28;
  TeamRec& team = LeagueOf(session).TeamData[28];
  team.TeamColors = {{11, 12, 13, 21, 22, 23}};
  FillWorkingCopies(session);
  EXPECT_EQ(session.PreviewColors[1], (IndexedArray<std::int16_t, 1, 3>{{11, 12, 13}}));
  EXPECT_EQ(session.PreviewColors[2], (IndexedArray<std::int16_t, 1, 3>{{21, 22, 23}}));
  for (const int place : {0, 1, 2, 3})
    JerseyColor(session, place) = static_cast<std::int16_t>(place + 1);
  session.PreviewCity = "Salt\xE9";
  session.PreviewAbbreviation = "ab";
  StoreWorkingCopies(session, LeagueOf(session));
  EXPECT_EQ(team.TeamColors, (IndexedArray<std::int16_t, 1, 6>{{1, 12, 2, 3, 22, 4}}));
  EXPECT_EQ(team.City, "SALT\xE9");
  EXPECT_EQ(team.Abbreviation, "AB  ");
}

}  // namespace
}  // namespace rostermill::test
