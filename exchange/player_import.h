#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "exchange/table.h"
#include "league/league_data.h"

namespace rostermill {

/// All 840 players as a table with PlayerColumns, UTF-8.
std::string ExportPlayers(const LeagueData& league);

/// Changes the league as the bytes of such a table say. Rows and columns may be missing and in any
/// order; a player is found by Team, or Team Name where that is empty, and by Slot or Position.
/// Gives every error in the order of the table; where there is one, the league is of no use.
std::vector<TableError> ImportPlayers(std::string_view bytes, const TableOptions& options,
                                      LeagueData& league);

}  // namespace rostermill
