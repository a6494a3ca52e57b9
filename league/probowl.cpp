#include "league/probowl.h"

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

}  // namespace rostermill
