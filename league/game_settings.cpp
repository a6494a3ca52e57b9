#include "league/game_settings.h"

#include <array>
#include <span>
#include <string_view>

namespace rostermill {

namespace {

constexpr int year_read_offset = 0x0C129;
constexpr int year_length = 4;
constexpr std::array year_offsets{0x0C129, 0x0C4E4, 0x1E128, 0x1E28A, 0x1E2BD, 0x1F89B};

constexpr int text_length = 3;
constexpr IndexedArray<int, 1, 3> text_read_offsets{{0x0E1FA, 0x0E1FF, 0x0E204}};
constexpr std::array text_1_offsets{0x0C3AF, 0x0E1FA, 0x1E12D, 0x1E2C2, 0x1E2EB, 0x1E309,
                                    0x1E377, 0x1E5F9, 0x1E62C, 0x1F2D7, 0x1F2FB, 0x1F8A1};
constexpr std::array text_2_offsets{0x0CDEA, 0x0E1FF, 0x0EFEB, 0x1E271, 0x1E557, 0x1E5FE, 0x1E631,
                                    0x1E714, 0x1E744, 0x1E8EA, 0x1E91C, 0x1EFE6, 0x1F2E0, 0x1F304};
constexpr std::array text_3_offsets{0x0D891, 0x0E204, 0x0EFF6, 0x1E27E, 0x1E57C, 0x1E603, 0x1E636,
                                    0x1E7EF, 0x1E815, 0x1E8F3, 0x1E936, 0x1EFEF, 0x1F2E9, 0x1F30D};

using Tiles = IndexedArray<std::uint8_t, 1, 4>;
constexpr IndexedArray<Tiles, 0, 9> year_digit_tiles{{{
    {{0x90, 0x91, 0x92, 0x93}},
    {{0xAE, 0xA8, 0xC6, 0xC7}},
    {{0x9C, 0xCD, 0x82, 0x83}},
    {{0x9C, 0xCD, 0x9E, 0xCF}},
    {{0xB0, 0xB1, 0xB2, 0xB3}},
    {{0xC0, 0xAC, 0x9F, 0xCF}},
    {{0xD0, 0x9D, 0xD2, 0xCF}},
    {{0xD4, 0xD5, 0xDA, 0xDB}},
    {{0xCC, 0xCD, 0xCE, 0xCF}},
    {{0xCC, 0xD1, 0x9E, 0xD3}},
}}};

void WriteText(OpenImage& image, std::span<const int> offsets, std::string_view text) {
  for (const int offset : offsets) image.WriteTextAt(offset, text);
}

const Tiles& TilesOf(char digit) {
  return year_digit_tiles[digit >= '0' && digit <= '9' ? digit - '0' : 0];
}

/// YearTileMap: the digits' tiles in the order of the screen's rows, the first digit's upper half
/// next to the second's, and so on.
void WriteYearTiles(OpenImage& image, std::string_view year) {
  const Tiles& d1 = TilesOf(year[0]);
  const Tiles& d2 = TilesOf(year[1]);
  const Tiles& d3 = TilesOf(year[2]);
  const Tiles& d4 = TilesOf(year[3]);
  image.WriteBytesAt(0x16DA6, std::array<std::uint8_t, 7>{d1[1], d1[2], d2[1], 0x00, d1[3],  //
                                                          d1[4], d2[3]});
  image.WriteBytesAt(0x16DB6, std::array<std::uint8_t, 8>{d2[2], d3[1], d3[2], d4[1], d2[4],  //
                                                          d3[3], d3[4], d4[3]});
  image.WriteByteAt(0x16DC7, d4[2]);
  image.WriteByteAt(0x16DCB, d4[4]);
}

}  // namespace

void ReadGameSettings(OpenImage& image, LeagueData& league) {
  league.RosterYear = image.ReadTextAt(year_read_offset, year_read_offset + year_length);
  for (int text = 1; text <= 3; ++text) {
    const int offset = text_read_offsets[text];
    league.LeagueText[text] = image.ReadTextAt(offset, offset + text_length);
  }
}

void WriteGameSettings(OpenImage& image, const LeagueData& league) {
  WriteText(image, year_offsets, league.RosterYear.str());
  WriteYearTiles(image, league.RosterYear.str());
  WriteText(image, text_1_offsets, league.LeagueText[1].str());
  WriteText(image, text_2_offsets, league.LeagueText[2].str());
  WriteText(image, text_3_offsets, league.LeagueText[3].str());
}

void FindYearOddities(const LeagueData& league, Oddities& found) {
  for (const char c : league.RosterYear.str()) {
    if (c >= '0' && c <= '9') continue;
    found.push_back({"game settings", 0, 0,
                     "the roster year \"" + league.RosterYear.str() +
                         "\" is not four digits; the others are drawn as 0"});
    return;
  }
}

}  // namespace rostermill
