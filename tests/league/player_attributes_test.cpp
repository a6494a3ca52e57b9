#include "league/player_attributes.h"

#include <gtest/gtest.h>

#include "tests/support/damage.h"

namespace rostermill::test {
namespace {

TEST(PlayerAttributes, EveryGroupIsReadFromItsPlaceInTheBlock) {
  const LeagueData league = LeagueOfChanged([](auto& bytes) {
    bytes[0x3015] = 0x5A;  // second quarterback of team 1
    bytes[0x3019] = 0xC7;
    bytes[0x301A] = 0x12;  // first back
    bytes[0x301D] = 0x34;
    bytes[0x3042] = 0x9F;  // center
    bytes[0x3051] = 0x81;  // right end
    bytes[0x3054] = 0x6E;
    bytes[0x307D] = 0x2B;  // kicker
    bytes[0x307F] = 0xFE;
    bytes[0x3084] = 0xD3;  // last byte of the block: the punter's own
    bytes[0x3085] = 0x47;  // team 2 begins at an odd offset
    bytes[0x3C67] = 0x70;  // team 28
  });
  EXPECT_EQ(league.QBData[1][2].RushingPower, 5);
  EXPECT_EQ(league.QBData[1][2].RunningSpeed, 10);
  EXPECT_EQ(league.QBData[1][2].Accuracy, 12);
  EXPECT_EQ(league.QBData[1][2].AvoidPassBlock, 7);
  EXPECT_EQ(league.SkillData[1][1].RunningSpeed, 2);
  EXPECT_EQ(league.SkillData[1][1].BallControl, 3);
  EXPECT_EQ(league.SkillData[1][1].Receptions, 4);
  EXPECT_EQ(league.LineData[1][1].RushingPower, 9);
  EXPECT_EQ(league.DefenseData[1][1].RushingPower, 8);
  EXPECT_EQ(league.DefenseData[1][1].PassInterception, 6);
  EXPECT_EQ(league.DefenseData[1][1].Quickness, 14);
  EXPECT_EQ(league.KickData[1][1].RunningSpeed, 11);
  EXPECT_EQ(league.KickData[1][1].Face, 0xFE);
  EXPECT_EQ(league.KickData[1][2].KickingAbility, 13);
  EXPECT_EQ(league.KickData[1][2].AvoidKickBlock, 3);
  EXPECT_EQ(league.QBData[2][1].RushingPower, 4);
  EXPECT_EQ(league.QBData[28][1].RushingPower, 7);
}

TEST(PlayerAttributes, ASaveWritesTheSameBytesAndTheFillerAfterThem) {
  LeagueData league = SampleLeague();
  const auto before = SampleBytes();
  auto after = SavedBytes(league);
  EXPECT_TRUE(std::equal(before.begin() + 0x3010, before.begin() + 0x3CDC, after.begin() + 0x3010));
  EXPECT_EQ(after[0x3CDC], 0xFF);

  league.DefenseData[28][11].Quickness = 9;
  league.DefenseData[28][11].PassInterception = 4;
  EXPECT_EQ(SavedBytes(league)[0x3CD3], 0x49);
}

TEST(PlayerAttributes, ReturnersAreReadFromTheFirstCopyAndWrittenToBoth) {
  const LeagueData league = LeagueOfChanged([](auto& bytes) {
    bytes[0x239D3] = 0xB2;  // "TE 2" returns kicks, "RB 1" returns punts
    bytes[0x328D3] = 0x33;
    bytes[0x239EE] = 0x47;
  });
  EXPECT_EQ(league.SkillData[1][10].KickReturner, 1);
  EXPECT_EQ(league.SkillData[1][1].PuntReturner, 1);
  EXPECT_EQ(league.SkillData[1][1].KickReturner, 0);
  EXPECT_EQ(league.SkillData[28][3].KickReturner, 1);
  EXPECT_EQ(league.SkillData[28][6].PuntReturner, 1);
  const auto saved = SavedBytes(league);
  EXPECT_EQ(saved[0x239D3], 0xB2);
  EXPECT_EQ(saved[0x328D3], 0xB2);
  EXPECT_EQ(saved[0x328EE], 0x47);
}

TEST(PlayerAttributes, ReturnerNibblesOutOfRangeFlagNobody) {
  for (const int byte : {0x00, 0x11, 0xCC, 0xFF, 0x1F}) {
    const LeagueData league =
        LeagueOfChanged([byte](auto& bytes) { bytes[0x239D3] = static_cast<std::uint8_t>(byte); });
    for (const SkillRec& rec : league.SkillData[1]) {
      EXPECT_EQ(rec.KickReturner, 0) << byte;
      EXPECT_EQ(rec.PuntReturner, 0) << byte;
    }
    EXPECT_EQ(SavedBytes(league)[0x239D3], 0x22) << "the first back is the default";
  }
}

}  // namespace
}  // namespace rostermill::test
