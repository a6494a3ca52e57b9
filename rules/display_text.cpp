#include "rules/display_text.h"

#include "league/league_tables.h"

namespace rostermill {

namespace {

/// The first character unchanged, the rest in lower case.
std::string Capitalized(std::string_view text) {
  return std::string(text.substr(0, 1)) +
         LowerText(text.substr(std::min<std::size_t>(1, text.size())));
}

}  // namespace

std::string TeamListText(const LeagueData& league, int team) {
  const TeamRec& rec = league.TeamData[team];
  return rec.City + " " + rec.Nickname;
}

std::string PlayerListText(const LeagueData& league, int team, int slot) {
  const NameRec& name = league.NameData[team][slot];
  return name.LastName + ", " + name.FirstName;
}

std::string PlayerFullText(const LeagueData& league, int team, int slot) {
  const NameRec& name = league.NameData[team][slot];
  return name.FirstName + " " + name.LastName;
}

std::string NumberCaption(const LeagueData& league, int team, int slot) {
  return "#" + league.NameData[team][slot].JerseyNumber;
}

std::string RatingText(int code) {
  return std::to_string(RatingValues[code]);
}

std::string TeamTitleText(const LeagueData& league, int team) {
  const TeamRec& rec = league.TeamData[team];
  return Capitalized(rec.City) + " " + Capitalized(rec.Nickname);
}

std::string PlayerEditText(const LeagueData& league, int team, int slot) {
  const NameRec& name = league.NameData[team][slot];
  return UpperText(name.FirstName.substr(0, 1)) +
         LowerText(name.FirstName.substr(std::min<std::size_t>(1, name.FirstName.size()))) + " " +
         Capitalized(name.LastName);
}

std::string FormationText(int formation) {
  const bool known = formation >= FormationNames.first && formation <= FormationNames.last;
  return " " + std::string(known ? FormationNames[formation] : "Not Available");
}

}  // namespace rostermill
