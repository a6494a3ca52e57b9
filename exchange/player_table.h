#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "league/league_data.h"
#include "league/ratings.h"

namespace rostermill {

/// What a column of the players' spreadsheet holds.
enum class ColumnKind {
  Team,
  TeamName,  ///< to read and to find; never changed
  Slot,
  Position,
  FirstName,
  LastName,
  Number,
  Face,
  Rating,
  KickReturner,
  PuntReturner
};

struct Column {
  ColumnKind Kind;
  std::string_view Heading;
  int Place = 0;                       ///< of a rating
  std::optional<PositionGroup> Group;  ///< the one group that has the rating; empty: all have it
};

/// The columns in the order of an export.
extern const std::vector<Column> PlayerColumns;

/// Whether a player of this slot has anything in the column.
bool HasColumn(const Column& column, int slot);

/// What an export writes into a player's cell, UTF-8.
std::string PlayerCell(const LeagueData& league, int team, int slot, const Column& column);

/// Stores a cell's text, Latin-1, in a column from FirstName to Rating. An empty text changes
/// nothing but a name. With `round`, any number is taken for the nearest rating. Gives why it can't
/// be stored; then nothing is changed.
std::optional<std::string> SetPlayerCell(LeagueData& league, int team, int slot,
                                         const Column& column, std::string_view text,
                                         bool round = false);

/// The code of the rating nearest to the number, the higher of two.
int NearestRatingCode(int number);

/// Why the image couldn't give back the player's name as it stands; empty where it could.
std::optional<std::string> NameProblem(const NameRec& name);

/// A whole decimal number from 0 to `largest`, in digits only; empty for anything else.
std::optional<int> NumberIn(std::string_view text, int largest);

/// "yes" or "no" in the spellings that people use; empty for anything else.
std::optional<bool> YesOrNo(std::string_view text);

/// The returner flag of a column of that kind.
std::int16_t SkillRec::*ReturnerField(ColumnKind kind);

}  // namespace rostermill
