#include "rules/working_copies.h"

#include "league/quantity_text.h"
#include "league/team_data.h"

namespace rostermill {

namespace {

constexpr int colors_per_uniform = 3;

/// Calls `visit` with each working copy of a color and the team color that it stands for.
template <typename Colors, typename Visit>
void ForEachColor(LeagueSession& session, Colors& colors, Visit visit) {
  for (int uniform = 1; uniform <= 2; ++uniform) {
    for (int color = 1; color <= colors_per_uniform; ++color) {
      visit(session.PreviewColors[uniform][color],
            colors[colors_per_uniform * (uniform - 1) + color]);
    }
  }
}

}  // namespace

int TeamTextBytesFree(const LeagueSession& session) {
  const TeamRec& team = session.League().TeamData[session.ViewTeam];
  const auto stored = static_cast<int>(team.City.size() + team.Nickname.size());
  const auto pending = static_cast<int>(session.PreviewCity.size() + session.PreviewName.size());
  return TeamTextCapacity - TeamTextBytesNeeded(session.League()) + stored - pending;
}

std::string TeamTextRoom(int bytes_free) {
  const bool fits = bytes_free >= 0;
  const auto count = static_cast<std::uint64_t>(fits ? bytes_free : -bytes_free);
  return "Team texts: " + QuantityText(count, "byte") + (fits ? " free" : " too many");
}

void FillWorkingCopies(LeagueSession& session) {
  const TeamRec& team = session.League().TeamData[session.ViewTeam];
  ForEachColor(session, team.TeamColors,
               [](std::int16_t& pending, std::int16_t stored) { pending = stored; });
  session.PreviewCity = team.City;
  session.PreviewName = team.Nickname;
  session.PreviewAbbreviation = team.Abbreviation;
  session.PreviewPlays = session.League().TeamPlays[session.ViewTeam];
}

void StoreWorkingCopies(LeagueSession& session, LeagueData& league) {
  TeamRec& team = league.TeamData[session.ViewTeam];
  team.City = UpperText(session.PreviewCity);
  team.Nickname = UpperText(session.PreviewName);
  team.Abbreviation = PaddedText(UpperText(session.PreviewAbbreviation), AbbreviationLength);
  ForEachColor(session, team.TeamColors,
               [](std::int16_t pending, std::int16_t& stored) { stored = pending; });
  league.TeamPlays[session.ViewTeam] = session.PreviewPlays;
}

std::int16_t& JerseyColor(LeagueSession& session, int color_slot) {
  return session.PreviewColors[color_slot / 2 + 1][color_slot % 2 == 0 ? 1 : 3];
}

}  // namespace rostermill
