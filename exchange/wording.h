#pragma once

#include <string>
#include <string_view>

#include "league/league_data.h"
#include "league/oddities.h"

namespace rostermill {

// How teams, players and games are called in messages and lists. All give UTF-8 fit for a terminal.

/// Latin-1 bytes of an image as UTF-8, control characters as "\x1B".
std::string Escaped(std::string_view latin1);
/// The same, a long text cut.
std::string Shown(std::string_view latin1);

/// The team's nickname; "team 3" where it has none.
std::string TeamName(const LeagueData& league, int team);

/// "SPARROWS QB 1 sam PLOVER"; the name is left out where it is empty.
std::string PlayerTitle(const LeagueData& league, int team, int slot);

/// The subject of a line about a team or a player; empty for team 0.
std::string SubjectTitle(const LeagueData& league, int team, int slot);

/// "returners: SPARROWS: no kick returner": section, subject and text.
std::string OddityText(const Oddity& oddity, const std::string& subject);

/// A team number of the schedule, counted from 0, as a name.
std::string ScheduleTeamName(const LeagueData& league, int number);

/// The league player who fills an all-star place, or "nobody".
std::string ProbowlPlayer(const LeagueData& league, const ProbowlRec& place);

}  // namespace rostermill
