#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "exchange/table.h"
#include "league/league_data.h"

namespace rostermill {

/// The 28 teams as a table, UTF-8: number, texts, formation, colors and plays. A color or a play
/// has two columns, its number and its name.
std::string ExportTeams(const LeagueData& league);

/// Changes the league as the bytes of such a table say. Rows and columns may be missing and in any
/// order; an empty cell changes nothing but a text. Of a color or a play the number or the name may
/// be edited; where both are, they have to agree. A name counts only where `league` has a palette.
/// Gives every error in the order of the table; where there is one, the league is of no use.
std::vector<TableError> ImportTeams(std::string_view bytes, const TableOptions& options,
                                    LeagueData& league);

}  // namespace rostermill
