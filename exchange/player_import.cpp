#include "exchange/player_import.h"

#include <algorithm>
#include <map>
#include <optional>

#include "exchange/lookup.h"
#include "exchange/player_table.h"
#include "exchange/wording.h"
#include "rules/position_layout.h"

namespace rostermill {

namespace {

constexpr int first_returner_slot = 3;  // who has a duty that nobody has, after a save

std::vector<std::string> Headings() {
  std::vector<std::string> headings;
  headings.reserve(PlayerColumns.size());
  for (const Column& column : PlayerColumns) headings.emplace_back(column.Heading);
  return headings;
}

std::size_t IndexOf(ColumnKind kind) {
  const auto found = std::ranges::find(PlayerColumns, kind, &Column::Kind);
  return static_cast<std::size_t>(found - PlayerColumns.begin());
}

bool IsReturner(ColumnKind kind) {
  return kind == ColumnKind::KickReturner || kind == ColumnKind::PuntReturner;
}

/// True for what the slot is called under any of the formations.
bool IsPosition(int slot, std::string_view text) {
  const auto plain = [](std::string_view label) {
    std::string letters = LowerText(label);
    std::erase_if(letters, [](char c) { return c == ' ' || c == '_' || c == '\t'; });
    return letters;
  };
  constexpr std::array formations{0, 1, 2};
  return std::ranges::any_of(
      formations, [&](int formation) { return plain(SlotLabel(formation, slot)) == plain(text); });
}

/// A returner's cell that says yes or no.
struct Mark {
  int Slot = 0;
  bool Yes = false;
  const TableRow* Row = nullptr;
};

class PlayerImport {
 public:
  PlayerImport(std::string_view bytes, const TableOptions& options, LeagueData& league)
      : table_(bytes, Headings(), options), options_(options), league_(league), before_(league) {}

  std::vector<TableError> Run() {
    table_.Require({team_, team_name_});
    table_.Require({slot_, position_});
    for (const TableRow& row : table_.Rows()) ReadRow(row);
    for (const auto& [duty, marks] : marks_) AssignReturner(duty.first, duty.second, marks);
    return table_.TakeErrors();
  }

 private:
  /// What the row's column names; 0, and an error, where it names nothing.
  template <typename Find>
  int KeyOf(const TableRow& row, std::size_t column, const Find& find) {
    const auto text = table_.Text(row, column);
    if (!text) return 0;
    const Match match = find(*text);
    if (match.Number == 0) table_.Fail(row, column, match.Problem);
    return match.Number;
  }

  void ReadRow(const TableRow& row) {
    table_.SetSubject({});
    const bool by_name = TrimmedText(table_.RawText(row, team_)).empty() && table_.Has(team_name_);
    const int team = KeyOf(row, by_name ? team_name_ : team_,
                           [this](const std::string& text) { return FindTeam(before_, text); });
    if (team != 0) table_.SetSubject(TeamName(before_, team));
    const bool by_label = TrimmedText(table_.RawText(row, slot_)).empty() && table_.Has(position_);
    const int slot = KeyOf(row, by_label ? position_ : slot_, [&](const std::string& text) {
      return FindSlot(before_, team == 0 ? 1 : team, text);
    });
    if (team == 0 || slot == 0) return;
    const int line = row.front().Line;
    if (const auto [seen, added] = lines_.insert({{team, slot}, line}); !added) {
      return table_.Fail(row, {},
                         "the same player is in line " + std::to_string(seen->second) + " already");
    }
    for (std::size_t at = 0; at < PlayerColumns.size(); ++at) {
      if (!table_.Reaches(row, at)) continue;
      if (const auto problem = SetCell(team, slot, row, at)) table_.Fail(row, at, *problem);
    }
    CheckName(team, slot, row);
  }

  std::optional<std::string> SetCell(int team, int slot, const TableRow& row, std::size_t at) {
    const Column& column = PlayerColumns[at];
    using enum ColumnKind;
    if (column.Kind == Team || column.Kind == TeamName || column.Kind == Slot) return std::nullopt;
    const auto text = table_.Text(row, at);
    if (!text) return std::nullopt;
    if (IsReturner(column.Kind)) return SetMark(team, slot, column, *text, row);
    // What is still as it was exported is never touched, good or odd.
    if (table_.RawText(row, at) == PlayerCell(before_, team, slot, column)) return std::nullopt;
    if (column.Kind != Position) {
      return SetPlayerCell(league_, team, slot, column, *text, options_.Round);
    }
    if (text->empty() || IsPosition(slot, *text)) return std::nullopt;
    return "slot " + std::to_string(slot) + " is " + PlayerCell(before_, team, slot, column) +
           ", not " + Shown(*text);
  }

  std::optional<std::string> SetMark(int team, int slot, const Column& column,
                                     const std::string& text, const TableRow& row) {
    if (text.empty()) return std::nullopt;
    const auto yes = YesOrNo(text);
    if (!yes) return "\"" + Shown(text) + "\" is neither yes nor no";
    if (!HasColumn(column, slot)) {
      if (!*yes || options_.KeepReturners) return std::nullopt;
      return "only slots 3 to 12 can be returners";
    }
    marks_[{team, column.Kind}].push_back({slot, *yes, &row});
    return std::nullopt;
  }

  void CheckName(int team, int slot, const TableRow& row) {
    const NameRec& name = league_.NameData[team][slot];
    const NameRec& before = before_.NameData[team][slot];
    if (name.FirstName == before.FirstName && name.LastName == before.LastName) return;
    if (const auto problem = NameProblem(name)) {
      table_.Fail(row, table_.Has(last_name_) ? last_name_ : first_name_, *problem);
    }
  }

  void AssignReturner(int team, ColumnKind kind, const std::vector<Mark>& marks) {
    table_.SetSubject(TeamName(before_, team));
    const auto flag = ReturnerField(kind);
    const Mark* chosen = nullptr;
    for (const Mark& mark : marks) {
      if (!mark.Yes) continue;
      if (chosen != nullptr) {
        return table_.Fail(*mark.Row, IndexOf(kind),
                           "line " + std::to_string(chosen->Row->front().Line) +
                               " names another of the same team");
      }
      chosen = &mark;
    }
    int slot = chosen != nullptr ? chosen->Slot : 0;
    for (const Mark& mark : marks) {
      const SkillRec& rec = league_.SkillData[team][TableIndexOfSlot(mark.Slot)];
      if (slot != 0 || rec.*flag == 0) continue;
      if (!options_.KeepReturners) {
        return table_.Fail(*mark.Row, IndexOf(kind),
                           "this leaves the team without one; say yes for another of its players, "
                           "or use --returners=keep");
      }
      slot = first_returner_slot;
    }
    if (slot == 0) return;
    for (SkillRec& rec : league_.SkillData[team]) rec.*flag = 0;
    league_.SkillData[team][TableIndexOfSlot(slot)].*flag = 1;
  }

  const std::size_t team_ = IndexOf(ColumnKind::Team);
  const std::size_t team_name_ = IndexOf(ColumnKind::TeamName);
  const std::size_t slot_ = IndexOf(ColumnKind::Slot);
  const std::size_t position_ = IndexOf(ColumnKind::Position);
  const std::size_t first_name_ = IndexOf(ColumnKind::FirstName);
  const std::size_t last_name_ = IndexOf(ColumnKind::LastName);

  Table table_;
  const TableOptions options_;
  LeagueData& league_;
  const LeagueData before_;
  std::map<std::pair<int, int>, int> lines_;  ///< of each team and slot that has come
  std::map<std::pair<int, ColumnKind>, std::vector<Mark>> marks_;
};

}  // namespace

std::string ExportPlayers(const LeagueData& league) {
  std::string text = TableLine(Headings());
  std::vector<std::string> cells;
  for (int team = 1; team <= TeamCount; ++team) {
    for (int slot = 1; slot <= SlotCount; ++slot) {
      cells.clear();
      for (const Column& column : PlayerColumns) {
        cells.push_back(PlayerCell(league, team, slot, column));
      }
      text += TableLine(cells);
    }
  }
  return text;
}

std::vector<TableError> ImportPlayers(std::string_view bytes, const TableOptions& options,
                                      LeagueData& league) {
  return PlayerImport(bytes, options, league).Run();
}

}  // namespace rostermill
