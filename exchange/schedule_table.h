#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "exchange/table.h"
#include "league/league_data.h"

namespace rostermill {

/// The season as a table with a row a game, UTF-8: week, visitor, host. A team is called by its
/// abbreviation, by its number from 1 where another has the same; 29 and 30 are the all-star sides.
/// A week without a game has a row without teams.
std::string ExportSchedule(const LeagueData& league);

/// Changes the league as the bytes of such a table say: the weeks that are in it get its games, in
/// its order, and no others. Gives every error in the order of the table; where there is one, the
/// league is of no use.
std::vector<TableError> ImportSchedule(std::string_view bytes, const TableOptions& options,
                                       LeagueData& league);

}  // namespace rostermill
