#include "league/player_names.h"

#include <gtest/gtest.h>

#include "tests/league/image_bytes.h"

namespace rostermill::test {
namespace {

/// Player 1 from an entry at 0x7000, which is free space; player 2's entry after it is junk.
NameRec FirstNameOf(const std::string& entry) {
  return LeagueOfChanged([&](Bytes& bytes) {
           Put(bytes, 0x7000, entry);
           PutWord(bytes, 0x48, 0x7000 + 0x7FF0);
           PutWord(bytes, 0x4A, 0x7000 + 0x7FF0 + static_cast<int>(entry.size()));
         })
      .NameData[1][1];
}

TEST(PlayerNames, AnEntryIsANumberByteAndANameSplitAtItsFirstCapital) {
  EXPECT_EQ(FirstNameOf("\x12samPLOVER"), (NameRec{"sam", "PLOVER", "12"}));
  EXPECT_EQ(FirstNameOf("\x07OTTER"), (NameRec{"", "OTTER", "07"}));
  EXPECT_EQ(FirstNameOf("\xA9tobMcKANE"), (NameRec{"tob", "McKANE", "A9"}));
  EXPECT_EQ(FirstNameOf("\x33nocapital"), (NameRec{"", "", "33"}));
  EXPECT_EQ(FirstNameOf("\x44"), (NameRec{"", "", "44"}));
  EXPECT_EQ(FirstNameOf(""), (NameRec{"", "", ""}));
}

TEST(PlayerNames, PointersOutOfOrderOrOutsideTheImageGiveEmptyEntries) {
  const LeagueData league = LeagueOfChanged([](Bytes& bytes) {
    PutWord(bytes, 0x48, 0x0000);  // below the image
    PutWord(bytes, 0x4A, 0x86CA);
    PutWord(bytes, 0x6D8 - 2, 0xFFFF);  // the last entry ends before it starts
    PutWord(bytes, 0x6D8, 0x86CA);
  });
  EXPECT_EQ(league.NameData[1][1], NameRec{});
  EXPECT_FALSE(league.NameData[1][2].LastName.empty());
  EXPECT_EQ(league.NameData[28][30], NameRec{});
}

TEST(PlayerNames, ASavePacksTheEntriesFromTheFixedFirstPointer) {
  LeagueData league = SampleLeague();
  league.NameData[1][1] = {"sam", "PLOVER", "12"};
  league.NameData[1][2] = {"", "Mixed", "7"};
  league.NameData[1][3] = {"", "", ""};
  const Bytes saved = SavedBytes(league);
  EXPECT_EQ(BytesAt(saved, 0x48, 8), (Bytes{0xCA, 0x86, 0xD4, 0x86, 0xDA, 0x86, 0xDB, 0x86}));
  EXPECT_EQ(TextAt(saved, 0x6DA, 17), std::string("\x12samPLOVER\x07MIXED\x00", 17));
  const int end = WordAt(saved, 0x6D8);
  EXPECT_EQ(end, 0x86CA + NameBytesNeeded(league));
  EXPECT_EQ(saved[static_cast<std::size_t>(end - 0x7FF0)], 0xFF);
}

TEST(PlayerNames, NumberTextsBecomeTheirHexadecimalByte) {
  LeagueData league = SampleLeague();
  const std::vector<std::pair<std::string, int>> numbers{
      {"07", 0x07}, {"7", 0x07}, {"99", 0x99}, {"AB", 0xAB}, {"", 0}, {"123", 0x23}, {"-1", 0}};
  for (const auto& [text, byte] : numbers) {
    league.NameData[1][1].JerseyNumber = text;
    EXPECT_EQ(SavedBytes(league)[0x6DA], byte) << text;
  }
}

TEST(PlayerNames, FilledToTheLastByteIsSavedAndOneMoreIsRefused) {
  LeagueData league = SampleLeague();
  league.NameData[1][1].LastName.append(static_cast<std::size_t>(10'550 - NameBytesNeeded(league)),
                                        'X');
  EXPECT_FALSE(TextOverflow(league).has_value());
  const Bytes saved = SavedBytes(league);
  EXPECT_EQ(WordAt(saved, 0x6D8), 0x3010 + 0x7FF0);
  EXPECT_EQ(saved[0x3010], SampleBytes()[0x3010]) << "a filler overwrote the attributes";
  OpenImage full(saved);
  Oddities found;
  FindNameOddities(full, found);
  EXPECT_TRUE(found.empty());
  league.NameData[5][5].LastName += "XX";
  EXPECT_EQ(TextOverflow(league),
            "The players' names are too long for the image: they need 10,552 bytes, and it has "
            "room for 10,550 bytes. Shorten them by 2 letters.");
}

}  // namespace
}  // namespace rostermill::test
