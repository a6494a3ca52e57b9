#include "league/schedule.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace rostermill {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t pointers = 0x329A7;
constexpr std::size_t counts = 0x329C9;
constexpr std::size_t games = 0x329DB;

/// An image of zeros whose weeks all point at the first game and have none.
Bytes EmptySeason() {
  Bytes bytes(OpenImage::WholeSize, 0);
  for (std::size_t week = 0; week < 17; ++week) {
    bytes[pointers + 2 * week] = 0xCB;
    bytes[pointers + 2 * week + 1] = 0x89;
  }
  bytes[0x329DA] = 0xFF;
  return bytes;
}

LeagueData Read(const Bytes& bytes) {
  OpenImage image(bytes);
  LeagueData league;
  ReadSchedule(image, league);
  return league;
}

Bytes Written(const LeagueData& league, const Bytes& onto) {
  OpenImage image(onto);
  WriteSchedule(image, league);
  return {image.Bytes().begin(), image.Bytes().end()};
}

GamePlace Game(int away, int home) {
  return {.HomeTeam = static_cast<std::int16_t>(home), .AwayTeam = static_cast<std::int16_t>(away)};
}

// Catches swapped hosts and visitors, pointers assumed to be packed or signed, and a week read from
// another week's place.
TEST(ReadSchedule, FollowsPointersWhereverTheyLead) {
  Bytes bytes = EmptySeason();
  bytes[counts] = 2;      // week 1 at its own place
  bytes[counts + 1] = 1;  // week 2 overlaps: the second game of week 1
  bytes[pointers + 2] = 0xCD;
  bytes[counts + 2] = 1;  // week 3 before the whole section
  bytes[pointers + 4] = 0x00;
  bytes[pointers + 5] = 0x00;
  bytes[counts + 16] = 1;  // week 17 at the highest address
  bytes[pointers + 32] = 0xFF;
  bytes[pointers + 33] = 0xFF;
  const Bytes four{3, 27, 14, 5};
  std::copy(four.begin(), four.end(), bytes.begin() + games);
  bytes[0x2A010] = 7;
  bytes[0x2A011] = 8;
  bytes[0x3A00F] = 9;
  bytes[0x3A010] = 10;

  const auto season = Read(bytes).ScheduleData;
  EXPECT_EQ(season[0].Games[0], Game(3, 27));
  EXPECT_EQ(season[0].Games[1], Game(14, 5));
  EXPECT_EQ(season[1].Games[0], Game(14, 5));
  EXPECT_EQ(season[2].Games[0], Game(7, 8));
  EXPECT_EQ(season[16].Games[0], Game(9, 10));
  EXPECT_EQ(season[3].GameCount, 0);
}

// Catches pointers that don't follow the counts, a missing byte after the counts, stale games that
// get into the image, and a byte written outside the section.
TEST(WriteSchedule, PacksTheWeeksFromTheFixedOffset) {
  LeagueData league;
  const Bytes sizes{12, 14, 13, 0, 1};
  for (int week = 0; week < 5; ++week) {
    league.ScheduleData[week].GameCount = sizes[static_cast<std::size_t>(week)];
    for (GamePlace& place : league.ScheduleData[week].Games) place = Game(10 + week, 20 + week);
  }
  league.ScheduleData[4].Games[0] = Game(28, 29);
  const Bytes blank(OpenImage::WholeSize, 0xEE);
  const Bytes bytes = Written(league, blank);

  const Bytes first_pointers{0xCB, 0x89, 0xE3, 0x89, 0xFF, 0x89, 0x19,
                             0x8A, 0x19, 0x8A, 0x1B, 0x8A, 0x1B, 0x8A};
  EXPECT_EQ(Bytes(bytes.begin() + pointers, bytes.begin() + pointers + 14), first_pointers);
  const Bytes counts_and_end{12, 14, 13, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xFF};
  EXPECT_EQ(Bytes(bytes.begin() + counts, bytes.begin() + games), counts_and_end);
  EXPECT_EQ(bytes[games], 10);
  EXPECT_EQ(bytes[games + 1], 20);
  EXPECT_EQ(bytes[games + 24], 11);  // right after the 12 games of week 1
  EXPECT_EQ(bytes[games + 78], 28);
  EXPECT_EQ(bytes[games + 79], 29);
  const auto untouched = [](std::uint8_t byte) { return byte == 0xEE; };
  EXPECT_TRUE(std::all_of(bytes.begin(), bytes.begin() + pointers, untouched));
  EXPECT_TRUE(std::all_of(bytes.begin() + games + 80, bytes.end(), untouched));
}

// Catches a full season that stops short of its 476 bytes or runs past them.
TEST(WriteSchedule, AFullSeasonEndsAtItsLimit) {
  LeagueData league;
  for (ScheduleWeek& week : league.ScheduleData) {
    week.GameCount = 14;
    for (GamePlace& place : week.Games) place = Game(1, 2);
  }
  const Bytes bytes = Written(league, Bytes(OpenImage::WholeSize, 0xEE));
  EXPECT_EQ(bytes[0x32BB6], 2);
  EXPECT_EQ(bytes[0x32BB7], 0xEE);
}

// Catches a save that loses the order of the weeks if the image had them out of order.
TEST(WriteSchedule, KeepsTheGamesOfAScatteredImage) {
  Bytes bytes = EmptySeason();
  for (std::size_t week = 0; week < 17; ++week) {
    const std::size_t address = 0x8C00 - 0x10 * week;
    bytes[pointers + 2 * week] = static_cast<std::uint8_t>(address & 0xFF);
    bytes[pointers + 2 * week + 1] = static_cast<std::uint8_t>(address >> 8);
    bytes[counts + week] = static_cast<std::uint8_t>(week % 8 + 1);
    bytes[address + 0x2A010] = static_cast<std::uint8_t>(week);
    bytes[address + 0x2A011] = static_cast<std::uint8_t>(27 - week);
  }
  const LeagueData league = Read(bytes);
  const Bytes saved = Written(league, bytes);
  EXPECT_EQ(saved[games], 0);
  EXPECT_EQ(saved[games + 1], 27);
  EXPECT_EQ(saved[games + 2], 1);  // week 2, right after the one game of week 1
  EXPECT_EQ(saved[games + 3], 26);
  EXPECT_EQ(Read(saved).ScheduleData, league.ScheduleData);
  EXPECT_EQ(Written(Read(saved), saved), saved);
}

}  // namespace
}  // namespace rostermill
