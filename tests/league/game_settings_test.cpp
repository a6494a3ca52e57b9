#include "league/game_settings.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace rostermill {
namespace {

using Bytes = std::vector<std::uint8_t>;

struct Place {
  std::size_t Offset;
  char Text;  ///< 'Y' for the year, '1' to '3' for a league text
};

constexpr Place places[] = {
    {0x0C129, 'Y'}, {0x0C3AF, '1'}, {0x0C4E4, 'Y'}, {0x0CDEA, '2'}, {0x0D891, '3'}, {0x0E1FA, '1'},
    {0x0E1FF, '2'}, {0x0E204, '3'}, {0x0EFEB, '2'}, {0x0EFF6, '3'}, {0x1E128, 'Y'}, {0x1E12D, '1'},
    {0x1E271, '2'}, {0x1E27E, '3'}, {0x1E28A, 'Y'}, {0x1E2BD, 'Y'}, {0x1E2C2, '1'}, {0x1E2EB, '1'},
    {0x1E309, '1'}, {0x1E377, '1'}, {0x1E557, '2'}, {0x1E57C, '3'}, {0x1E5F9, '1'}, {0x1E5FE, '2'},
    {0x1E603, '3'}, {0x1E62C, '1'}, {0x1E631, '2'}, {0x1E636, '3'}, {0x1E714, '2'}, {0x1E744, '2'},
    {0x1E7EF, '3'}, {0x1E815, '3'}, {0x1E8EA, '2'}, {0x1E8F3, '3'}, {0x1E91C, '2'}, {0x1E936, '3'},
    {0x1EFE6, '2'}, {0x1EFEF, '3'}, {0x1F2D7, '1'}, {0x1F2E0, '2'}, {0x1F2E9, '3'}, {0x1F2FB, '1'},
    {0x1F304, '2'}, {0x1F30D, '3'}, {0x1F89B, 'Y'}, {0x1F8A1, '1'}};

/// The four tiles of each digit, 0 first.
constexpr std::uint8_t digit_tiles[10][4] = {{0x90, 0x91, 0x92, 0x93}, {0xAE, 0xA8, 0xC6, 0xC7},
                                             {0x9C, 0xCD, 0x82, 0x83}, {0x9C, 0xCD, 0x9E, 0xCF},
                                             {0xB0, 0xB1, 0xB2, 0xB3}, {0xC0, 0xAC, 0x9F, 0xCF},
                                             {0xD0, 0x9D, 0xD2, 0xCF}, {0xD4, 0xD5, 0xDA, 0xDB},
                                             {0xCC, 0xCD, 0xCE, 0xCF}, {0xCC, 0xD1, 0x9E, 0xD3}};
/// The offsets of tiles 1 to 4 of the year's first, second, third and fourth digit.
constexpr std::size_t tile_offsets[4][4] = {{0x16DA6, 0x16DA7, 0x16DAA, 0x16DAB},
                                            {0x16DA8, 0x16DB6, 0x16DAC, 0x16DBA},
                                            {0x16DB7, 0x16DB8, 0x16DBB, 0x16DBC},
                                            {0x16DB9, 0x16DC7, 0x16DBD, 0x16DCB}};

Bytes BlankImage() {
  return Bytes(OpenImage::WholeSize, 0xEE);
}

LeagueData League(std::string_view year, std::string_view a, std::string_view b,
                  std::string_view c) {
  LeagueData league;
  league.RosterYear = year;
  league.LeagueText[1] = a;
  league.LeagueText[2] = b;
  league.LeagueText[3] = c;
  return league;
}

Bytes Written(const LeagueData& league) {
  OpenImage image(BlankImage());
  WriteGameSettings(image, league);
  return {image.Bytes().begin(), image.Bytes().end()};
}

void Put(Bytes& bytes, std::size_t offset, std::string_view text) {
  std::copy(text.begin(), text.end(), bytes.begin() + static_cast<std::ptrdiff_t>(offset));
}

TEST(GameSettings, AllTextsAreWrittenToAllTheirPlacesAndNowhereElse) {
  Bytes expected = BlankImage();
  for (const Place& place : places) {
    const std::string_view text = place.Text == 'Y'   ? "1991"
                                  : place.Text == '1' ? "XFG"
                                  : place.Text == '2' ? "N  "
                                                      : "ZB\xE9";
    Put(expected, place.Offset, text);
  }
  Put(expected, 0x16DA6, std::string_view("\xAE\xA8\xCC\x00\xC6\xC7\x9E", 7));
  Put(expected, 0x16DB6, "\xD1\xCC\xD1\xAE\xD3\x9E\xD3\xC6");
  Put(expected, 0x16DC7, "\xA8");
  Put(expected, 0x16DCB, "\xC7");
  EXPECT_TRUE(Written(League("1991", "XFGH", "N", "ZB\xE9")) == expected);
}

TEST(GameSettings, EveryCharacterIsDrawnInEveryPlaceOfTheYear) {
  for (const char c : std::string_view("0123456789A /:\x00\xFF", 16)) {
    const int digit = c >= '0' && c <= '9' ? c - '0' : 0;
    for (int place = 0; place < 4; ++place) {
      std::string year = "8888";
      year[static_cast<std::size_t>(place)] = c;
      const Bytes bytes = Written(League(year, "", "", ""));
      for (int at = 0; at < 4; ++at) {
        for (int tile = 0; tile < 4; ++tile) {
          EXPECT_EQ(bytes[tile_offsets[at][tile]], digit_tiles[at == place ? digit : 8][tile])
              << year << ", digit " << at + 1 << ", tile " << tile + 1;
        }
      }
      EXPECT_EQ(std::string(bytes.begin() + 0x0C129, bytes.begin() + 0x0C12D), year);
    }
  }
}

TEST(GameSettings, ALoadReadsOnePlaceOfEachText) {
  Bytes bytes = BlankImage();
  for (const Place& place : places) Put(bytes, place.Offset, place.Text == 'Y' ? "0000" : "???");
  Put(bytes, 0x0C129, "20 7");
  Put(bytes, 0x0E1FA, "qRs");
  Put(bytes, 0x0E1FF, std::string_view("\x00\x7F\xFF", 3));
  Put(bytes, 0x0E204, "C  ");
  OpenImage image(bytes);
  LeagueData league;
  ReadGameSettings(image, league);
  EXPECT_EQ(league.RosterYear.str(), "20 7");
  EXPECT_EQ(league.LeagueText[1].str(), "qRs");
  EXPECT_EQ(league.LeagueText[2].str(), std::string("\x00\x7F\xFF", 3));
  EXPECT_EQ(league.LeagueText[3].str(), "C  ");
}

}  // namespace
}  // namespace rostermill
