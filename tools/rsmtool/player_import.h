#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "league/league_data.h"

namespace rostermill {

/// Something wrong in the players' file. Lines and columns are counted from 1; column 0 means the
/// whole line.
struct ImportError {
  int Line = 0;
  int Column = 0;
  std::string Heading;  ///< of the column; empty where it has none
  std::string Text;     ///< UTF-8
};

/// Changes the league as the text of a players' file, CSV in UTF-8, says. Gives every error in the
/// order of the file; where there is one, the league is of no use.
std::vector<ImportError> ImportPlayers(std::string_view csv, LeagueData& league);

}  // namespace rostermill
