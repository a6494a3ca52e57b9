#pragma once

#include <string_view>

#include "league/league_session.h"

namespace rostermill {

/// The ten position groups of the leaders table, counted from 0: "Quarterback" to "Punter". Every
/// function below throws std::out_of_range for another group.
inline constexpr int LeaderGroupCount = 10;
/// Attribute columns, counted from 1; column 0 is the name.
inline constexpr int LeaderColumnLimit = 8;

using LeaderTable = IndexedArray<LeaderRow, 1, LeaderRowLimit>;
/// Which headings are on, by column.
using SortFlagTable = IndexedArray<bool, 0, LeaderColumnLimit>;

/// The group's name in the list of groups.
std::string_view LeaderGroupTitle(int group);
/// The file that the group is exported to, without a folder.
std::string_view LeaderFileName(int group);
/// The group's attribute columns: 4, 6 or 8.
int LeaderColumnCount(int group);

struct LeaderHeading {
  std::string_view Caption;   ///< "RS"
  std::string_view FullName;  ///< "Running Speed"
};
/// The heading of a column, 0 to 8; both texts are empty for a column that the group does not have.
LeaderHeading HeadingOf(int group, int column);

/// Writes the group's players into the rows from 1 on, by team and within a team by slot, and
/// returns how many there are: 0 to LeaderRowLimit. The rows after them, and the attributes
/// after the group's columns, are left unchanged.
int FillLeaderRows(const LeagueData& league, int group, LeaderTable& rows);

/// Switches a heading, 0 to 8, on or off. The name and the attributes switch each other off;
/// several attributes may be on together.
void ToggleHeading(SortFlagTable& flags, int column);

/// Sorts rows 1 to `row_count` by name, or by the total of the codes in the columns that are on,
/// highest first, equal totals by name. The order of rows that are equal in both is fixed as well.
void SortLeaderRows(LeaderTable& rows, int row_count, const SortFlagTable& flags);

}  // namespace rostermill
