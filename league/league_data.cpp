#include "league/league_data.h"

namespace rostermill {

void EmptyLeagueTexts(LeagueData& league) {
  for (TeamRec& team : league.TeamData) {
    team.City.clear();
    team.Nickname.clear();
    team.Abbreviation.clear();
  }
  for (auto& team : league.NameData) {
    for (NameRec& name : team) name = NameRec{};
  }
}

}  // namespace rostermill
