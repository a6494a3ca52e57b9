#include "exchange/wording.h"

#include "exchange/utf8.h"
#include "league/probowl.h"
#include "rules/position_layout.h"
#include "rules/season_facts.h"

namespace rostermill {

std::string Escaped(std::string_view latin1) {
  std::string text;
  for (const char c : latin1) {
    if (IsControl(c)) {
      text += "\\x" + HexByteText(c);
    } else {
      text += c;
    }
  }
  return Utf8Of(text);
}

std::string Shown(std::string_view latin1) {
  constexpr std::size_t longest = 60;
  return Escaped(latin1.substr(0, longest)) + (latin1.size() > longest ? "..." : "");
}

std::string TeamName(const LeagueData& league, int team) {
  const std::string& nickname = league.TeamData[team].Nickname;
  return nickname.empty() ? "team " + std::to_string(team) : Shown(nickname);
}

std::string PlayerTitle(const LeagueData& league, int team, int slot) {
  const NameRec& name = league.NameData[team][slot];
  std::string title =
      TeamName(league, team) + " " + std::string(SlotLabel(league.TeamData[team].Formation, slot));
  for (const std::string* part : {&name.FirstName, &name.LastName}) {
    if (!part->empty()) title += " " + Shown(*part);
  }
  return title;
}

std::string SubjectTitle(const LeagueData& league, int team, int slot) {
  if (team == 0) return {};
  return slot == 0 ? TeamName(league, team) : PlayerTitle(league, team, slot);
}

std::string OddityText(const Oddity& oddity, const std::string& subject) {
  return std::string(oddity.Section) + ": " + subject + (subject.empty() ? "" : ": ") +
         Escaped(oddity.Text);
}

std::string ScheduleTeamName(const LeagueData& league, int number) {
  if (number >= 0 && number < TeamCount) return TeamName(league, number + 1);
  if (IsAllStarSide(number)) return Shown(SideName(league, number)) + " all-stars";
  return "team number " + std::to_string(number);
}

std::string ProbowlPlayer(const LeagueData& league, const ProbowlRec& place) {
  if (NamesPlayer(place)) return PlayerTitle(league, place.Team, place.Slot);
  return "nobody (team " + std::to_string(place.Team) + ", slot " + std::to_string(place.Slot) +
         ")";
}

}  // namespace rostermill
