#include <gtest/gtest.h>

#include "league/save_image.h"
#include "tests/support/damage.h"
#include "tests/support/random_league.h"
#include "tests/support/round_trip.h"

namespace rostermill::test {
namespace {

using Bytes = std::vector<std::uint8_t>;

TEST(Properties, AnyLeagueSurvivesASaveOverAnyImage) {
  const int total = LeagueTotal(2000);
  for (int seed = 1; seed <= total; ++seed) {
    std::mt19937 random(static_cast<unsigned>(seed));
    Bytes image = SampleBytes();
    if (seed % 2 == 0) {
      for (auto& byte : image) byte = static_cast<std::uint8_t>(random());
    }
    const LeagueData league = RandomLeague(random);
    ASSERT_EQ(TextOverflow(league), std::nullopt) << "seed " << seed;
    ASSERT_EQ(SaveFault(image, league), std::nullopt) << "seed " << seed;
  }
}

TEST(Properties, WhateverADamagedImageHoldsSurvivesASave) {
  const int total = LeagueTotal(1000);
  int saved = 0;
  for (int seed = 1; seed <= total; ++seed) {
    std::mt19937 random(static_cast<unsigned>(seed));
    Bytes image = SampleBytes();
    for (int hit = 0; hit < 30; ++hit) {
      // Half of the hits go to the names, teams and season, not to the graphics around them.
      const unsigned end = hit % 2 == 0 ? 0x3CDC : OpenImage::WholeSize;
      image[random() % end] = static_cast<std::uint8_t>(random());
    }
    ASSERT_EQ(RoundTripFault(image), std::nullopt) << "seed " << seed;
    OpenImage open(image);
    if (!TextOverflow(ReadLeague(open))) ++saved;
  }
  EXPECT_GE(saved, total / 2);
}

}  // namespace
}  // namespace rostermill::test
