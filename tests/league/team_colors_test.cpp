#include "league/team_colors.h"

#include <gtest/gtest.h>

#include <map>

#include "tests/support/sample.h"

namespace rostermill::test {
namespace {

std::vector<std::uint8_t> Bytes(const OpenImage& image) {
  return {image.Bytes().begin(), image.Bytes().end()};
}

/// An image whose bytes depend on their offsets, so that no two neighboring rows are alike.
std::vector<std::uint8_t> Pattern() {
  std::vector<std::uint8_t> bytes(OpenImage::WholeSize);
  for (std::size_t i = 0; i < bytes.size(); ++i)
    bytes[i] = static_cast<std::uint8_t>(i * 7 + i / 256);
  return bytes;
}

// Catches a reader that takes team 11 from its regular place, shifts a neighbor, or reads the copy.
TEST(TeamColors, AreReadFromTheFirstTableWithTeam11Apart) {
  std::vector<std::uint8_t> bytes = Pattern();
  const auto put = [&](std::size_t offset, std::uint8_t start) {
    for (std::uint8_t i = 0; i < 6; ++i) bytes[offset + i] = static_cast<std::uint8_t>(start + i);
  };
  put(0x2C2E4, 0x01);
  put(0x2C33E, 0x11);
  put(0x2C348, 0xE0);  // the unused regular place of team 11
  put(0x2C410, 0x21);
  put(0x2C352, 0x31);
  put(0x2C3F2, 0xF8);
  OpenImage image(bytes);
  LeagueData league;
  ReadTeamColors(image, league);
  const auto expect_from = [&](int team, int start) {
    for (int i = 0; i < 6; ++i)
      EXPECT_EQ(league.TeamData[team].TeamColors[i + 1], start + i) << team;
  };
  expect_from(1, 0x01);
  expect_from(10, 0x11);
  expect_from(11, 0x21);
  expect_from(12, 0x31);
  expect_from(28, 0xF8);  // above 63, and above 127: kept, and not negative
}

// Catches champion rows of the wrong length or order.
TEST(TeamColors, FiveDivisionAndFourConferenceChampionColorsAreReadPerTeam) {
  std::vector<std::uint8_t> bytes = Pattern();
  for (std::uint8_t i = 0; i < 5; ++i) bytes[0x343E8 + i] = static_cast<std::uint8_t>(0x05 + i);
  for (std::uint8_t i = 0; i < 5; ++i) bytes[0x3446F + i] = static_cast<std::uint8_t>(0xF5 + i);
  for (std::uint8_t i = 0; i < 4; ++i) bytes[0x34494 + i] = static_cast<std::uint8_t>(0x15 + i);
  for (std::uint8_t i = 0; i < 4; ++i) bytes[0x34500 + i] = static_cast<std::uint8_t>(0xFC + i);
  OpenImage image(bytes);
  LeagueData league;
  ReadTeamColors(image, league);
  using Division = IndexedArray<std::uint8_t, 1, 5>;
  using Conference = IndexedArray<std::uint8_t, 1, 4>;
  EXPECT_EQ(league.TeamData[1].DivChampColors, (Division{{0x05, 0x06, 0x07, 0x08, 0x09}}));
  EXPECT_EQ(league.TeamData[28].DivChampColors, (Division{{0xF5, 0xF6, 0xF7, 0xF8, 0xF9}}));
  EXPECT_EQ(league.TeamData[1].ConfChampColors, (Conference{{0x15, 0x16, 0x17, 0x18}}));
  EXPECT_EQ(league.TeamData[28].ConfChampColors, (Conference{{0xFC, 0xFD, 0xFE, 0xFF}}));
}

// Catches a writer that changes bytes next to the colors, misplaces team 11 in either table, or
// puts a skin color into the second table.
TEST(TeamColors, AWriteChangesExactlyTheColorBytes) {
  OpenImage image(Pattern());
  LeagueData league;
  ReadTeamColors(image, league);
  std::map<std::size_t, std::uint8_t> expected;
  league.TeamData[11].TeamColors = {{0x41, 0x42, 0x43, 0x44, 0x45, 0x46}};
  for (std::uint8_t i = 0; i < 6; ++i) {
    expected[0x2C410u + i] = static_cast<std::uint8_t>(0x41 + i);
  }
  league.TeamData[28].DivChampColors[5] = 0x3F;
  expected[0x34473] = 0x3F;
  league.TeamData[28].ConfChampColors[4] = 0x3E;
  expected[0x34503] = 0x3E;
  // The second table is written from the first for every team; team 11 has its regular row.
  for (int team = 1; team <= 28; ++team) {
    const auto& colors = league.TeamData[team].TeamColors;
    const auto row = static_cast<std::size_t>(0x342D8 + 8 * (team - 1));
    expected[row] = static_cast<std::uint8_t>(colors[1]);
    expected[row + 1] = static_cast<std::uint8_t>(colors[3]);
    expected[row + 2] = static_cast<std::uint8_t>(colors[4]);
    expected[row + 3] = static_cast<std::uint8_t>(colors[6]);
  }
  WriteTeamColors(image, league);
  EXPECT_EQ(image.Bytes()[0x34328], 0x41);
  EXPECT_EQ(image.Bytes()[0x34329], 0x43);
  EXPECT_EQ(image.Bytes()[0x3432A], 0x44);
  EXPECT_EQ(image.Bytes()[0x3432B], 0x46);
  std::vector<std::uint8_t> wanted = Pattern();
  for (const auto& [offset, byte] : expected) wanted[offset] = byte;
  const std::vector<std::uint8_t> written = Bytes(image);
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    ASSERT_EQ(written[i], wanted[i]) << "offset " << std::hex << i;
  }
}

}  // namespace
}  // namespace rostermill::test
