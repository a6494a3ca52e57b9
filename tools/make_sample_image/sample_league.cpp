#include "tools/make_sample_image/sample_league.h"

#include <array>
#include <string_view>

#include "league/ratings.h"

namespace rostermill {

namespace {

struct TeamRow {
  std::string_view city;
  std::string_view nickname;
  std::string_view abbreviation;
  std::int16_t primary;  // palette indices
  std::int16_t secondary;
};

constexpr IndexedArray<TeamRow, 1, TeamCount> team_rows{{{
    {"HARBORTON", "SPARROWS", "HARB", 0x02, 0x27},  {"WINDMERE", "OTTERS", "WIND", 0x11, 0x30},
    {"COPPERFIELD", "FOXES", "COPP", 0x17, 0x38},   {"LAKEWICK", "HERONS", "LAKE", 0x1C, 0x20},
    {"NORTHGATE", "LANTERNS", "NGAT", 0x0F, 0x28},  {"MILLBRIDGE", "MASONS", "MILL", 0x07, 0x10},
    {"STONEHOLLOW", "BADGERS", "STON", 0x0F, 0x20}, {"RIVERMOOR", "PILOTS", "RIVE", 0x01, 0x16},
    {"GREYCLIFF", "ANVILS", "GREY", 0x2D, 0x26},    {"SUNDOWN", "LIZARDS", "SUND", 0x27, 0x1A},
    {"REDMESA", "SCOUTS", "REDM", 0x16, 0x37},      {"CEDAR PASS", "LYNXES", "CEDR", 0x1A, 0x38},
    {"SALTWATER", "GULLS", "SALT", 0x21, 0x30},     {"FERNWICK", "FERRETS", "FERN", 0x19, 0x10},
    {"OLDCASTLE", "ROOKS", "OLDC", 0x04, 0x20},     {"MAPLEBURY", "MOLES", "MAPL", 0x06, 0x27},
    {"BRIARTON", "HEDGEHOGS", "BRIA", 0x0A, 0x27},  {"DUSTHAVEN", "DRIFTERS", "DUST", 0x18, 0x0F},
    {"LONGMEADOW", "HARES", "LONG", 0x2A, 0x30},    {"IRONWOOD", "SMITHS", "IRON", 0x2D, 0x16},
    {"PINERIDGE", "OWLS", "PINE", 0x0B, 0x28},      {"FROSTVALE", "YETIS", "FROS", 0x31, 0x12},
    {"CLEARBROOK", "TROUT", "CLEA", 0x2C, 0x15},    {"PALMSHORE", "CRABS", "PALM", 0x25, 0x1C},
    {"GOLDBAY", "TERNS", "GOLD", 0x28, 0x02},       {"VISTAMAR", "KITES", "VIST", 0x14, 0x20},
    {"BAYOU VERDE", "NEWTS", "BAYO", 0x29, 0x0F},   {"PEACHFORD", "BEES", "PEAC", 0x36, 0x0F},
}}};

/// The palette indices that the editor calls light, medium and dark skin.
constexpr std::array<std::int16_t, 3> skins{22, 6, 15};

int StrengthOf(const LeagueData& league, int team, int slot) {
  int strength = 0;
  for (int place = 0; place < PlacesInUse(GroupOfSlot(slot)); ++place) {
    strength += PlaceCode(league, team, slot, place);
  }
  return strength;
}

}  // namespace

void FillTeams(LeagueData& league, NumberStream& numbers) {
  for (int team = 1; team <= TeamCount; ++team) {
    const TeamRow& row = team_rows[team];
    TeamRec& rec = league.TeamData[team];
    rec.City = row.city;
    rec.Nickname = row.nickname;
    rec.Abbreviation = row.abbreviation;
    const auto skin = [&] { return skins[static_cast<std::size_t>(numbers.Between(0, 2))]; };
    rec.TeamColors.items_ = {row.primary,   skin(), row.secondary,
                             row.secondary, skin(), row.primary};
    const auto primary = static_cast<std::uint8_t>(row.primary);
    const auto secondary = static_cast<std::uint8_t>(row.secondary);
    rec.DivChampColors.items_ = {primary, secondary, 0x30, primary, secondary};
    rec.ConfChampColors.items_ = {primary, secondary, primary, 0x30};
    for (auto& choice : league.TeamPlays[team]) {
      choice = static_cast<std::int16_t>(numbers.Between(0, 7));
    }
  }
}

void FillProbowl(LeagueData& league) {
  constexpr int teams_a_side = TeamCount / 2;
  for (int side = 1; side <= 2; ++side) {
    const int first_team = 1 + teams_a_side * (side - 1);
    for (int slot = 1; slot <= SlotCount; ++slot) {
      int best = first_team;
      for (int team = first_team; team < first_team + teams_a_side; ++team) {
        if (StrengthOf(league, team, slot) > StrengthOf(league, best, slot)) best = team;
      }
      league.ProbowlData[side][slot] = {static_cast<std::int16_t>(best),
                                        static_cast<std::int16_t>(slot)};
    }
  }
}

LeagueData BuildSampleLeague() {
  LeagueData league;
  NumberStream numbers(1991);
  FillTeams(league, numbers);
  FillPlayers(league, numbers);
  FillSeason(league);
  FillProbowl(league);
  league.RosterYear = "2026";
  league.LeagueText[1] = "RML";
  league.LeagueText[2] = "OAK";
  league.LeagueText[3] = "ELM";
  return league;
}

}  // namespace rostermill
