#pragma once

#include <string>
#include <vector>

#include "exchange/lookup.h"
#include "exchange/player_table.h"

namespace rostermill {

/// A cell of the players' table with another text, UTF-8.
struct CellEdit {
  PlayerPlace Player;
  const Column* Of = nullptr;
  std::string Text;
};

/// Stores the cells by the rules of an import: names, numbers, ratings (with `round` the nearest
/// one), photos, and duties, of which a yes takes the duty from the team mate who has it. An
/// untouched cell of a column that can't be changed is passed over. Returns why cells can't be
/// stored, each with its place, UTF-8; where there is any, the league is of no use.
std::vector<std::string> StoreCells(const std::vector<CellEdit>& cells, bool round,
                                    LeagueData& league);

/// Which way all of some players' ratings go.
struct RatingShift {
  enum class Way { ToValue, BySteps, ByPercent };
  Way How = Way::ToValue;
  int Amount = 0;  ///< a displayed value; steps up or down; percent more or less
};

struct ShiftCount {
  int Players = 0;  ///< who have one of the ratings
  int Changed = 0;  ///< ratings
  int AtEnd = 0;    ///< ratings that can go no further
};

/// Shifts the ratings of these columns; the values stay within the 16 that there are.
ShiftCount ShiftRatings(const std::vector<PlayerPlace>& players,
                        const std::vector<const Column*>& columns, const RatingShift& shift,
                        LeagueData& league);

}  // namespace rostermill
