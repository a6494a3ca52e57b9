#include "league/team_colors.h"

namespace rostermill {

namespace {

constexpr int jersey_offset = 0x2C2E4;
constexpr int jersey_row = 10;
/// The cartridge keeps this team's row after the table.
constexpr int displaced_team = 11;
constexpr int displaced_offset = 0x2C410;
constexpr int jersey_copy_offset = 0x342D8;
constexpr int jersey_copy_row = 8;
constexpr int div_champ_offset = 0x343E8;
constexpr int conf_champ_offset = 0x34494;

int JerseyRowOffset(int team) {
  return team == displaced_team ? displaced_offset : jersey_offset + jersey_row * (team - 1);
}

template <typename Colors>
void ReadRow(OpenImage& image, Colors& colors, int offset) {
  for (auto& color : colors) color = image.ReadByteAt(offset++);
}

template <typename Colors>
void WriteRow(OpenImage& image, const Colors& colors, int offset) {
  for (const auto color : colors) image.WriteByteAt(offset++, color);
}

template <typename Colors>
void FindInRow(std::string_view what, const Colors& colors, int team, Oddities& found) {
  for (int at = colors.first; at <= colors.last; ++at) {
    if (colors[at] < PaletteSize) continue;
    found.push_back({"colors", team, 0,
                     std::string(what) + " color " + std::to_string(at) + " is " +
                         std::to_string(colors[at]) + "; the palette ends at " +
                         std::to_string(PaletteSize - 1)});
  }
}

}  // namespace

void ReadTeamColors(OpenImage& image, LeagueData& league) {
  for (int team = 1; team <= TeamCount; ++team) {
    TeamRec& rec = league.TeamData[team];
    ReadRow(image, rec.TeamColors, JerseyRowOffset(team));
    ReadRow(image, rec.DivChampColors, div_champ_offset + rec.DivChampColors.count * (team - 1));
    ReadRow(image, rec.ConfChampColors, conf_champ_offset + rec.ConfChampColors.count * (team - 1));
  }
}

void WriteTeamColors(OpenImage& image, const LeagueData& league) {
  for (int team = 1; team <= TeamCount; ++team) {
    const TeamRec& rec = league.TeamData[team];
    const auto& colors = rec.TeamColors;
    WriteRow(image, colors, JerseyRowOffset(team));
    WriteRow(image, std::array{colors[1], colors[3], colors[4], colors[6]},
             jersey_copy_offset + jersey_copy_row * (team - 1));
    WriteRow(image, rec.DivChampColors, div_champ_offset + rec.DivChampColors.count * (team - 1));
    WriteRow(image, rec.ConfChampColors,
             conf_champ_offset + rec.ConfChampColors.count * (team - 1));
  }
}

void FindColorOddities(const LeagueData& league, Oddities& found) {
  for (int team = 1; team <= TeamCount; ++team) {
    const TeamRec& rec = league.TeamData[team];
    FindInRow("uniform", rec.TeamColors, team, found);
    FindInRow("division champion", rec.DivChampColors, team, found);
    FindInRow("conference champion", rec.ConfChampColors, team, found);
  }
}

}  // namespace rostermill
