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

void FindPlaybookOddities(OpenImage& image, Oddities& found) {
  constexpr int last_choice = 7;
  for (int team = 1; team <= TeamCount; ++team) {
    for (int slot = 1; slot <= 2 * playbook_row; ++slot) {
      const int byte =
          image.ReadByteAt(playbook_offset + playbook_row * (team - 1) + (slot - 1) / 2);
      const int nibble = slot % 2 == 1 ? HighNibble(byte) : LowNibble(byte);
      if (nibble <= last_choice) continue;
      std::string text = "playbook slot " + std::to_string(slot) + " holds " +
                         std::to_string(nibble) + ", which is not a play";
      if (Choice(nibble) != nibble) text += "; it is read as 0";
      found.push_back({"playbooks", team, 0, std::move(text)});
    }
  }
}

}  // namespace rostermill
