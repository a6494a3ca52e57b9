#include "exchange/lookup.h"

#include <algorithm>

#include "exchange/player_table.h"
#include "exchange/wording.h"
#include "rules/display_text.h"
#include "rules/position_layout.h"

namespace rostermill {

namespace {

std::string WithoutBlanks(std::string_view text) {
  std::string plain = LowerText(text);
  std::erase(plain, ' ');
  return plain;
}

std::string InQuotes(std::string_view text) {
  return "\"" + Shown(text) + "\"";
}

}  // namespace

Match FindTeam(const LeagueData& league, std::string_view text) {
  if (const auto number = NumberIn(text, TeamCount); number && *number >= 1) return {*number, {}};
  const std::string wanted = LowerText(TrimmedText(text));
  const auto named = [&](int team) {
    const TeamRec& rec = league.TeamData[team];
    const std::string full = rec.City + " " + rec.Nickname;
    return std::ranges::any_of(
        std::initializer_list<std::string_view>{rec.Abbreviation, rec.Nickname, full},
        [&](std::string_view name) { return LowerText(TrimmedText(name)) == wanted; });
  };
  Match match;
  for (int team = 1; team <= TeamCount && !wanted.empty(); ++team) {
    if (!named(team)) continue;
    if (match.Number != 0) return {0, InQuotes(text) + " names more than one team"};
    match.Number = team;
  }
  if (match.Number == 0) match.Problem = InQuotes(text) + " names no team";
  return match;
}

Match FindSlot(const LeagueData& league, int team, std::string_view text) {
  if (const auto number = NumberIn(text, SlotCount); number && *number >= 1) return {*number, {}};
  const int formation = league.TeamData[team].Formation;
  for (int slot = 1; slot <= SlotCount; ++slot) {
    if (WithoutBlanks(SlotLabel(formation, slot)) == WithoutBlanks(text)) return {slot, {}};
  }
  return {0, InQuotes(text) + " is neither a slot from 1 to 30 nor a position of the team"};
}

bool HasWords(const LeagueData& league, PlayerPlace player, const std::vector<std::string>& words) {
  const auto [team, slot] = player;
  const TeamRec& rec = league.TeamData[team];
  const std::string text = LowerText(PlayerFullText(league, team, slot) + "\n" +
                                     TeamListText(league, team) + "\n" + rec.Abbreviation);
  const std::string label = WithoutBlanks(SlotLabel(rec.Formation, slot));
  const std::string number = NumberCaption(league, team, slot);
  return std::ranges::all_of(words, [&](const std::string& word) {
    const std::string wanted = LowerText(word);
    return text.find(wanted) != std::string::npos || label.find(wanted) != std::string::npos ||
           number == wanted || number.substr(1) == wanted;
  });
}

std::vector<PlayerPlace> FindPlayers(const LeagueData& league,
                                     const std::vector<std::string>& words) {
  std::vector<PlayerPlace> players;
  for (int team = 1; team <= TeamCount; ++team) {
    for (int slot = 1; slot <= SlotCount; ++slot) {
      if (HasWords(league, {team, slot}, words)) players.push_back({team, slot});
    }
  }
  return players;
}

}  // namespace rostermill
