#include "exchange/player_cells.h"

#include <algorithm>
#include <set>

#include "exchange/utf8.h"
#include "exchange/wording.h"
#include "league/league_tables.h"
#include "league/text.h"

namespace rostermill {

namespace {

using Problem = std::optional<std::string>;

bool IsDuty(const Column& column) {
  return column.Kind == ColumnKind::KickReturner || column.Kind == ColumnKind::PuntReturner;
}

bool CanChange(const Column& column) {
  using enum ColumnKind;
  return column.Kind != Team && column.Kind != TeamName && column.Kind != Slot &&
         column.Kind != Position;
}

Problem StoreDuty(const CellEdit& cell, const std::string& text, LeagueData& league) {
  const auto [team, slot] = cell.Player;
  const auto yes = YesOrNo(text);
  if (!yes) return "\"" + Shown(text) + "\" is neither yes nor no";
  if (!HasColumn(*cell.Of, slot)) {
    return *yes ? Problem("only slots 3 to 12 can be returners") : std::nullopt;
  }
  const auto flag = ReturnerField(cell.Of->Kind);
  SkillRec& rec = league.SkillData[team][TableIndexOfSlot(slot)];
  if (!*yes) {
    if (rec.*flag == 0) return std::nullopt;
    return "this leaves the team without one; say yes for another of its players";
  }
  for (SkillRec& other : league.SkillData[team]) other.*flag = 0;
  rec.*flag = 1;
  return std::nullopt;
}

Problem StoreCell(const CellEdit& cell, bool round, LeagueData& league) {
  const auto [team, slot] = cell.Player;
  if (cell.Text == PlayerCell(league, team, slot, *cell.Of)) return std::nullopt;
  if (!CanChange(*cell.Of)) return "this column can't be changed";
  const auto text = Latin1Of(TrimmedText(cell.Text));
  if (!text) return "it holds a character outside Latin-1";
  if (IsDuty(*cell.Of)) return StoreDuty(cell, *text, league);
  // Where a position has no such rating, a blank is all there is.
  if (text->empty() && !HasColumn(*cell.Of, slot)) return std::nullopt;
  return SetPlayerCell(league, team, slot, *cell.Of, *text, round);
}

bool IsYes(const CellEdit& cell) {
  return YesOrNo(Latin1Of(cell.Text).value_or("")).value_or(false);
}

int ShiftedCode(int code, const RatingShift& shift) {
  switch (shift.How) {
    case RatingShift::Way::ToValue:
      return NearestRatingCode(shift.Amount);
    case RatingShift::Way::BySteps:
      return std::clamp(code + shift.Amount, RatingValues.first, RatingValues.last);
    case RatingShift::Way::ByPercent:
      break;
  }
  constexpr int whole = 100;
  return NearestRatingCode((RatingValues[code] * (whole + shift.Amount) + whole / 2) / whole);
}

}  // namespace

std::vector<std::string> StoreCells(const std::vector<CellEdit>& cells, bool round,
                                    LeagueData& league) {
  std::vector<std::string> problems;
  std::set<std::pair<int, int>> renamed;
  const auto fail = [&](const PlayerPlace& player, const std::string& what,
                        const std::string& why) {
    problems.push_back(PlayerTitle(league, player.Team, player.Slot) + ", " + what + ": " + why);
  };
  const auto store = [&](const CellEdit& cell) {
    if (const auto problem = StoreCell(cell, round, league)) {
      fail(cell.Player, std::string(cell.Of->Heading), *problem);
    }
    if (cell.Of->Kind == ColumnKind::FirstName || cell.Of->Kind == ColumnKind::LastName) {
      renamed.insert({cell.Player.Team, cell.Player.Slot});
    }
  };
  std::set<std::pair<int, const Column*>> given;
  // A duty that moves within the cells: who gets it comes before who gives it.
  for (const CellEdit& cell : cells) {
    const bool gets = IsDuty(*cell.Of) && IsYes(cell);
    if (gets && !given.insert({cell.Player.Team, cell.Of}).second) {
      fail(cell.Player, std::string(cell.Of->Heading), "another of the team is to have it as well");
    } else if (gets || !IsDuty(*cell.Of)) {
      store(cell);
    }
  }
  for (const CellEdit& cell : cells) {
    if (IsDuty(*cell.Of) && !IsYes(cell)) store(cell);
  }
  for (const auto& [team, slot] : renamed) {
    if (const auto problem = NameProblem(league.NameData[team][slot])) {
      fail({team, slot}, "Name", *problem);
    }
  }
  return problems;
}

ShiftCount ShiftRatings(const std::vector<PlayerPlace>& players,
                        const std::vector<const Column*>& columns, const RatingShift& shift,
                        LeagueData& league) {
  ShiftCount count;
  for (const auto [team, slot] : players) {
    bool any = false;
    for (const Column* column : columns) {
      if (!HasColumn(*column, slot)) continue;
      any = true;
      const int code = PlaceCode(league, team, slot, column->Place);
      const int shifted = ShiftedCode(code, shift);
      if (shifted != code) {
        SetPlaceCode(league, team, slot, column->Place, shifted);
        ++count.Changed;
      } else if (shift.How != RatingShift::Way::ToValue && shift.Amount != 0 &&
                 (code == RatingValues.first || code == RatingValues.last)) {
        ++count.AtEnd;
      }
    }
    count.Players += any ? 1 : 0;
  }
  return count;
}

}  // namespace rostermill
