#include "league/probowl.h"

#include "league/league_tables.h"

namespace rostermill {

namespace {

constexpr int probowl_offset = 0x32853;

}  // namespace

void ReadProbowl(OpenImage& image, LeagueData& league) {
  int offset = probowl_offset;
  for (auto& conference : league.ProbowlData) {
    for (ProbowlRec& place : conference) {
      place.Team = static_cast<std::int16_t>(image.ReadByteAt(offset++) + 1);
      place.Slot = static_cast<std::int16_t>(image.ReadByteAt(offset++) + 1);
    }
  }
}

void WriteProbowl(OpenImage& image, const LeagueData& league) {
  int offset = probowl_offset;
  for (const auto& conference : league.ProbowlData) {
    for (const ProbowlRec& place : conference) {
      image.WriteByteAt(offset++, place.Team - 1);
      image.WriteByteAt(offset++, place.Slot - 1);
    }
  }
}

bool NamesPlayer(const ProbowlRec& place) {
  return place.Team >= 1 && place.Team <= TeamCount && place.Slot >= 1 && place.Slot <= SlotCount;
}

void FindProbowlOddities(const LeagueData& league, Oddities& found) {
  for (int conference = 1; conference <= 2; ++conference) {
    for (int slot = 1; slot <= SlotCount; ++slot) {
      const ProbowlRec& place = league.ProbowlData[conference][slot];
      if (NamesPlayer(place)) continue;
      found.push_back({"pro bowl", 0, 0,
                       std::string(conference == 1 ? "AFC " : "NFC ") +
                           std::string(SlotLabels[slot]) + " names nobody: team " +
                           std::to_string(place.Team) + ", slot " + std::to_string(place.Slot)});
    }
  }
}

}  // namespace rostermill
