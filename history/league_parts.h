#pragma once

#include <type_traits>

#include "league/league_data.h"

namespace rostermill {

// The league as a row of small parts: a player's record, his name, a team's texts and colors, one
// of its plays, a place of an all-star roster, a week, a text of the game. The palette is left
// out; it belongs to the program, not to the league.

template <typename T>
inline constexpr bool IsTable = false;
template <typename T, int First, int Last>
inline constexpr bool IsTable<IndexedArray<T, First, Last>> = true;

template <typename Visit, typename Table, typename... Same>
void VisitParts(const Visit& visit, int& place, Table& table, Same&... same) {
  if constexpr (IsTable<std::remove_const_t<Table>>) {
    for (int i = Table::first; i <= Table::last; ++i)
      VisitParts(visit, place, table[i], same[i]...);
  } else {
    visit(place++, table, same...);
  }
}

/// Calls visit(place, part, ...) for each part, with the part of that place of every league given.
/// All parts of one type are in one table; `place` counts from 0 in it.
template <typename Visit, typename... League>
void ForEachPart(const Visit& visit, League&... leagues) {
  const auto table = [&visit](auto&... tables) {
    int place = 0;
    VisitParts(visit, place, tables...);
  };
  table(leagues.QBData...);
  table(leagues.SkillData...);
  table(leagues.LineData...);
  table(leagues.DefenseData...);
  table(leagues.KickData...);
  table(leagues.NameData...);
  table(leagues.TeamData...);
  table(leagues.TeamPlays...);
  table(leagues.ProbowlData...);
  table(leagues.ScheduleData...);
  table(leagues.RosterYear...);
  table(leagues.LeagueText...);
}

}  // namespace rostermill
