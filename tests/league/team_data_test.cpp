#include "league/team_data.h"

#include <gtest/gtest.h>

#include "tests/league/image_bytes.h"

namespace rostermill::test {
namespace {

TEST(TeamData, TextsAreFoundThroughTheirPointers) {
  const LeagueData league = LeagueOfChanged([](Bytes& bytes) {
    // Team 3's city: five bytes at 0x1F000 (address 0xAFF0); team 4's pointer ends it.
    Put(bytes, 0x1F000, std::string("Delta"));
    PutWord(bytes, 0x1FC54, 0xAFF0);
    PutWord(bytes, 0x1FC56, 0xAFF5);
    bytes[0x1FD00] = '<';
  });
  EXPECT_EQ(league.TeamData[3].City, "Delta");
  EXPECT_EQ(league.TeamData[2].City, "") << "its end is before its start now";
  EXPECT_EQ(league.TeamData[1].City, "HARBORTON");
  EXPECT_EQ(league.TeamData[28].City, "PEACHFORD");
  EXPECT_EQ(league.TeamData[28].Nickname, "BEES");
  EXPECT_EQ(league.TeamData[1].Abbreviation, "<ARB");
  EXPECT_EQ(TextAt(SavedBytes(league), 0x1FD7C + 9, 5), "DELTA");
}

TEST(TeamData, ASaveRepacksTheTextBlock) {
  LeagueData league = SampleLeague();
  for (TeamRec& team : league.TeamData) {
    team.City = "Ab";
    team.Nickname = "C";
  }
  league.TeamData[28].City = "";
  league.LeagueText[1] = "AAA";
  league.LeagueText[2] = "BB";
  league.LeagueText[3] = "CCC";
  const Bytes saved = SavedBytes(league);
  // Among them team 28's city, 1ST after two texts and two empty ones, DEFENSE, SKP and the end.
  const std::vector<std::pair<int, int>> pointers{
      {0x1FC50, 0},   {0x1FC86, 54},  {0x1FC88, 54}, {0x1FC8A, 55}, {0x1FC8C, 56},
      {0x1FC8E, 56},  {0x1FC90, 56},  {0x1FCC8, 84}, {0x1FCD0, 90}, {0x1FCE2, 121},
      {0x1FCF6, 161}, {0x1FCF8, 164}, {0x1FCFE, 164}};
  for (const auto& [offset, length] : pointers) {
    EXPECT_EQ(WordAt(saved, offset), 0xBD6C + length) << std::hex << offset;
  }
  EXPECT_EQ(TextAt(saved, 0x1FD7C, 8), "ABABABAB");
  EXPECT_EQ(TextAt(saved, 0x1FD7C + 54, 2 + 28), "  " + std::string(28, 'C'));
  EXPECT_EQ(TextAt(saved, 0x1FD7C + 84, 80),
            "BB CCC1ST2ND3RD4TH\xD6\xD7\xB8\xD4\xD5\xD7\xD8\xD9\xDA\xDB\xDC\xDD"
            "OFFENSEDEFENSEEASTCENTRALWESTAAABB CCCMANCOACOMSKP");
}

TEST(TeamData, AbbreviationsOfAnyLengthKeepTheirSlots) {
  LeagueData league = SampleLeague();
  league.TeamData[1].Abbreviation = "AB";
  league.TeamData[2].Abbreviation = "LONGER";
  league.TeamData[28].Abbreviation = "";
  league.LeagueText[2] = "OAK";
  league.LeagueText[3] = "ELM";
  const Bytes saved = SavedBytes(league);
  EXPECT_EQ(TextAt(saved, 0x1FD00, 12), "AB  LONGCOPP");
  EXPECT_EQ(TextAt(saved, 0x1FD6C, 12), "    OAK ELM ");
  EXPECT_EQ(TextAt(saved, 0x1FD78, 4), TextAt(SampleBytes(), 0x1FD78, 4));
}

TEST(TeamData, AStockImageHasItsOwnFormationsAndAnUnknownOneNone) {
  const LeagueData stock = SampleLeague();
  const std::vector<std::pair<int, int>> known{{13, 2}, {15, 2}, {18, 2}, {8, 1},
                                               {21, 1}, {28, 1}, {1, 0},  {14, 0}};
  for (const auto& [team, formation] : known) {
    EXPECT_EQ(stock.TeamData[team].Formation, formation) << team;
  }
  const LeagueData unknown = LeagueOfChanged([](Bytes& bytes) { bytes[0x21642] = 0x55; });
  EXPECT_EQ(unknown.TeamData[13].Formation, 0);
}

TEST(TeamData, ASaveTurnsAStockImageIntoAPatchedOne) {
  const Bytes saved = SavedBytes(SampleLeague());
  EXPECT_EQ(BytesAt(saved, 0x21642, 10),
            (Bytes{0x8A, 0xA6, 0x6E, 0xBC, 0xD0, 0x9F, 0xAA, 0x4C, 0x50, 0x96}));
  EXPECT_EQ(BytesAt(saved, 0x30FF8, 18),
            (Bytes{0x8A, 0xA6, 0x6E, 0xBC, 0x70, 0x9E, 0xAA, 0xC0, 0x01, 0xF0, 0x11, 0xC0, 0x02,
                   0xF0, 0x13, 0x4C, 0xFE, 0x8F}));
}

TEST(TeamData, TheTextBlockMayBeFilledToTheEndOfItsBankAndNoFurther) {
  LeagueData league = SampleLeague();
  league.TeamData[1].City.append(static_cast<std::size_t>(660 - TeamTextBytesNeeded(league)), 'X');
  EXPECT_FALSE(TextOverflow(league).has_value());
  const Bytes saved = SavedBytes(league);
  EXPECT_EQ(TextAt(saved, 0x20010 - 3, 3), "SKP");
  EXPECT_EQ(saved[0x20010], SampleBytes()[0x20010]);
  OpenImage full(saved);
  Oddities found;
  FindTeamDataOddities(full, found);
  EXPECT_TRUE(found.empty());
  league.TeamData[28].Nickname += "X";
  EXPECT_EQ(TextOverflow(league),
            "The teams' cities and names are too long for the image: they need 661 bytes, and it "
            "has room for 660 bytes. Shorten them by 1 letter.");
}

}  // namespace
}  // namespace rostermill::test
