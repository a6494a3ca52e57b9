#include "league/probowl.h"

#include <gtest/gtest.h>

namespace rostermill {
namespace {

constexpr std::size_t first_byte = 0x32853;
constexpr std::size_t last_byte = 0x328CA;

std::vector<std::uint8_t> BlankImage() {
  return std::vector<std::uint8_t>(OpenImage::WholeSize, 0xEE);
}

std::vector<std::uint8_t> Written(const LeagueData& league, std::vector<std::uint8_t> bytes) {
  OpenImage image(std::move(bytes));
  WriteProbowl(image, league);
  return {image.Bytes().begin(), image.Bytes().end()};
}

LeagueData Read(std::vector<std::uint8_t> bytes) {
  OpenImage image(std::move(bytes));
  LeagueData league;
  ReadProbowl(image, league);
  return league;
}

// Catches numbers counted from 1 in the image, swapped sides or bytes, and a step other than 2.
TEST(Probowl, EntriesAreReadInSlotOrderFirstSideFirst) {
  auto bytes = BlankImage();
  bytes[0x32853] = 0x00, bytes[0x32854] = 0x00;
  bytes[0x32855] = 0x05, bytes[0x32856] = 0x11;
  bytes[0x3288D] = 0x1B, bytes[0x3288E] = 0x1D;
  bytes[0x3288F] = 0x0E, bytes[0x32890] = 0x01;
  bytes[0x328C9] = 0x1A, bytes[0x328CA] = 0x1C;

  const LeagueData league = Read(bytes);
  EXPECT_EQ(league.ProbowlData[1][1], (ProbowlRec{1, 1}));
  EXPECT_EQ(league.ProbowlData[1][2], (ProbowlRec{6, 18}));
  EXPECT_EQ(league.ProbowlData[1][30], (ProbowlRec{28, 30}));
  EXPECT_EQ(league.ProbowlData[2][1], (ProbowlRec{15, 2}));
  EXPECT_EQ(league.ProbowlData[2][30], (ProbowlRec{27, 29}));
}

// Catches a place written to another's entry, and a byte written outside the 120.
TEST(Probowl, APlaceIsWrittenToItsOwnTwoBytesOnly) {
  struct Case {
    int Conference, Place;
    std::size_t Offset;
  };
  for (const Case& c : {Case{1, 1, 0x32853}, Case{1, 13, 0x3286B}, Case{1, 30, 0x3288D},
                        Case{2, 1, 0x3288F}, Case{2, 29, 0x328C7}, Case{2, 30, 0x328C9}}) {
    LeagueData league = Read(BlankImage());
    league.ProbowlData[c.Conference][c.Place] = {19, 25};
    auto expected = BlankImage();
    expected[c.Offset] = 0x12;
    expected[c.Offset + 1] = 0x18;
    EXPECT_TRUE(Written(league, BlankImage()) == expected) << c.Conference << ", " << c.Place;
  }
}

// Catches a value that is checked, clamped or cut to 7 bits on its way through memory.
TEST(Probowl, AnyBytesSurviveALoadAndASave) {
  auto bytes = BlankImage();
  for (std::size_t at = first_byte; at <= last_byte; ++at) {
    bytes[at] = static_cast<std::uint8_t>(0xFF - 3 * (at - first_byte));
  }
  EXPECT_EQ(Read(bytes).ProbowlData[1][1], (ProbowlRec{256, 253}));
  EXPECT_TRUE(Written(Read(bytes), BlankImage()) == bytes);
}

}  // namespace
}  // namespace rostermill
