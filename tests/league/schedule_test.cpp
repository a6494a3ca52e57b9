#include "league/schedule.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/league/image_bytes.h"

namespace rostermill::test {
namespace {

constexpr int pointers = 0x329A7;
constexpr int counts = 0x329C9;
constexpr int games = 0x329DB;

/// An image of zeros whose weeks all point at the first game and have none.
Bytes EmptySeason() {
  Bytes bytes(OpenImage::WholeSize, 0);
  for (int week = 0; week < 17; ++week) PutWord(bytes, pointers + 2 * week, 0x89CB);
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
  return BytesOf(image);
}

GamePlace Game(int away, int home) {
  return {.HomeTeam = static_cast<std::int16_t>(home), .AwayTeam = static_cast<std::int16_t>(away)};
}

TEST(ReadSchedule, FollowsPointersWhereverTheyLead) {
  Bytes bytes = EmptySeason();
  Put(bytes, counts, Bytes{2, 1, 1});
  bytes[counts + 16] = 1;
  PutWord(bytes, pointers + 2, 0x89CD);   // week 2 overlaps: the second game of week 1
  PutWord(bytes, pointers + 4, 0x0000);   // week 3 before the whole section
  PutWord(bytes, pointers + 32, 0xFFFF);  // week 17 at the highest address
  Put(bytes, games, Bytes{3, 27, 14, 5});
  Put(bytes, 0x2A010, Bytes{7, 8});
  Put(bytes, 0x3A00F, Bytes{9, 10});

  const auto season = Read(bytes).ScheduleData;
  EXPECT_EQ(season[0].Games[0], Game(3, 27));
  EXPECT_EQ(season[0].Games[1], Game(14, 5));
  EXPECT_EQ(season[1].Games[0], Game(14, 5));
  EXPECT_EQ(season[2].Games[0], Game(7, 8));
  EXPECT_EQ(season[16].Games[0], Game(9, 10));
  EXPECT_EQ(season[3].GameCount, 0);
}

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

  EXPECT_EQ(BytesAt(bytes, pointers, 14), (Bytes{0xCB, 0x89, 0xE3, 0x89, 0xFF, 0x89, 0x19, 0x8A,
                                                 0x19, 0x8A, 0x1B, 0x8A, 0x1B, 0x8A}));
  EXPECT_EQ(BytesAt(bytes, counts, 18),
            (Bytes{12, 14, 13, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xFF}));
  EXPECT_EQ(BytesAt(bytes, games, 2), (Bytes{10, 20}));
  EXPECT_EQ(bytes[games + 24], 11) << "right after the 12 games of week 1";
  EXPECT_EQ(BytesAt(bytes, games + 78, 2), (Bytes{28, 29}));
  const auto untouched = [](std::uint8_t byte) { return byte == 0xEE; };
  EXPECT_TRUE(std::all_of(bytes.begin(), bytes.begin() + pointers, untouched));
  EXPECT_TRUE(std::all_of(bytes.begin() + games + 80, bytes.end(), untouched));
}

TEST(WriteSchedule, AFullSeasonEndsAtItsLimit) {
  LeagueData league;
  for (ScheduleWeek& week : league.ScheduleData) {
    week.GameCount = 14;
    for (GamePlace& place : week.Games) place = Game(1, 2);
  }
  const Bytes bytes = Written(league, Bytes(OpenImage::WholeSize, 0xEE));
  EXPECT_EQ(BytesAt(bytes, 0x32BB5, 3), (Bytes{1, 2, 0xEE}));
}

TEST(WriteSchedule, KeepsTheGamesOfAScatteredImage) {
  Bytes bytes = EmptySeason();
  for (int week = 0; week < 17; ++week) {
    const int address = 0x8C00 - 0x10 * week;
    PutWord(bytes, pointers + 2 * week, address);
    Put(bytes, counts + week, Bytes{static_cast<std::uint8_t>(week % 8 + 1)});
    PutWord(bytes, address + 0x2A010, week | (27 - week) << 8);
  }
  const LeagueData league = Read(bytes);
  const Bytes saved = Written(league, bytes);
  EXPECT_EQ(BytesAt(saved, games, 4), (Bytes{0, 27, 1, 26})) << "weeks 1 and 2";
  EXPECT_EQ(Read(saved).ScheduleData, league.ScheduleData);
  EXPECT_EQ(Written(Read(saved), saved), saved);
}

}  // namespace
}  // namespace rostermill::test
