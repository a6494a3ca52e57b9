#include "league/playbooks.h"

namespace rostermill {

namespace {

constexpr int playbook_offset = 0x1D310;
constexpr int playbook_row = 4;

/// Choices are decimal digits.
std::int16_t Choice(int nibble) {
  return static_cast<std::int16_t>(nibble > 9 ? 0 : nibble);
}

}  // namespace

void ReadPlaybooks(OpenImage& image, LeagueData& league) {
  for (int team = 1; team <= TeamCount; ++team) {
    for (int pair = 0; pair < playbook_row; ++pair) {
      const int byte = image.ReadByteAt(playbook_offset + playbook_row * (team - 1) + pair);
      league.TeamPlays[team][2 * pair + 1] = Choice(HighNibble(byte));
      league.TeamPlays[team][2 * pair + 2] = Choice(LowNibble(byte));
    }
  }
}

void WritePlaybooks(OpenImage& image, const LeagueData& league) {
  for (int team = 1; team <= TeamCount; ++team) {
    const auto& plays = league.TeamPlays[team];
    for (int pair = 0; pair < playbook_row; ++pair) {
      image.WriteByteAt(playbook_offset + playbook_row * (team - 1) + pair,
                        PackNibbles(plays[2 * pair + 1], plays[2 * pair + 2]));
    }
  }
}

}  // namespace rostermill
