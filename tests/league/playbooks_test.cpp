#include "league/playbooks.h"

#include <gtest/gtest.h>

#include "tests/support/sample.h"

namespace rostermill::test {
namespace {

// Catches swapped nibbles, shifted rows, and changed bytes outside 0x1D310 to 0x1D37F.
TEST(Playbooks, TwoSlotsPerByteAndFourBytesPerTeam) {
  std::vector<std::uint8_t> bytes(OpenImage::WholeSize, 0x55);
  const std::vector<std::uint8_t> first{0x12, 0x34, 0x56, 0x70};
  const std::vector<std::uint8_t> last{0x01, 0x23, 0x45, 0x67};
  std::copy(first.begin(), first.end(), bytes.begin() + 0x1D310);
  std::copy(last.begin(), last.end(), bytes.begin() + 0x1D37C);
  OpenImage image(bytes);
  LeagueData league;
  ReadPlaybooks(image, league);
  using Slots = IndexedArray<std::int16_t, 1, 8>;
  EXPECT_EQ(league.TeamPlays[1], (Slots{{1, 2, 3, 4, 5, 6, 7, 0}}));
  EXPECT_EQ(league.TeamPlays[2], (Slots{{5, 5, 5, 5, 5, 5, 5, 5}}));
  EXPECT_EQ(league.TeamPlays[28], (Slots{{0, 1, 2, 3, 4, 5, 6, 7}}));
  WritePlaybooks(image, league);
  EXPECT_TRUE(std::equal(bytes.begin(), bytes.end(), image.Bytes().begin()));

  league.TeamPlays[28][8] = 2;
  WritePlaybooks(image, league);
  bytes[0x1D37F] = 0x62;
  EXPECT_TRUE(std::equal(bytes.begin(), bytes.end(), image.Bytes().begin()));
}

// Catches a damaged byte read as a choice above 9, and a nameless choice that gets lost.
TEST(Playbooks, NibblesAbove9AreReadAs0And8And9AreKept) {
  std::vector<std::uint8_t> bytes(OpenImage::WholeSize, 0);
  bytes[0x1D310] = 0xC3;
  bytes[0x1D311] = 0x3F;
  bytes[0x1D312] = 0x89;
  bytes[0x1D313] = 0x9A;
  OpenImage image(bytes);
  LeagueData league;
  ReadPlaybooks(image, league);
  EXPECT_EQ(league.TeamPlays[1], (IndexedArray<std::int16_t, 1, 8>{{0, 3, 3, 0, 8, 9, 9, 0}}));
  WritePlaybooks(image, league);
  EXPECT_EQ(image.Bytes()[0x1D310], 0x03);
  EXPECT_EQ(image.Bytes()[0x1D311], 0x30);
  EXPECT_EQ(image.Bytes()[0x1D312], 0x89);
  EXPECT_EQ(image.Bytes()[0x1D313], 0x90);
}

}  // namespace
}  // namespace rostermill::test
