#include "tools/rsmtool/player_import.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <tuple>

#include "exchange/player_table.h"
#include "exchange/utf8.h"
#include "exchange/wording.h"
#include "rules/position_layout.h"
#include "tools/rsmtool/csv.h"

namespace rostermill {

namespace {

/// A cell's text fit for a message, whatever it is coded in.
std::string ShownCell(const std::string& text) {
  return Shown(Latin1Of(text).value_or(text));
}

/// Headings are compared without their case, blanks and underscores: "first_name", "firstName".
std::string Plain(std::string_view heading) {
  std::string text = LowerText(heading);
  std::erase_if(text, [](char c) { return c == ' ' || c == '_' || c == '\t'; });
  return text;
}

const Column* FindColumn(std::string_view heading) {
  const auto it =
      std::find_if(PlayerColumns.begin(), PlayerColumns.end(),
                   [&](const Column& column) { return Plain(column.Heading) == Plain(heading); });
  return it == PlayerColumns.end() ? nullptr : &*it;
}

bool IsReturner(ColumnKind kind) {
  return kind == ColumnKind::KickReturner || kind == ColumnKind::PuntReturner;
}

/// True for what the slot is called under any of the formations.
bool IsPosition(int slot, std::string_view text) {
  constexpr std::array formations{0, 1, 2};
  return std::any_of(formations.begin(), formations.end(), [&](int formation) {
    return Plain(SlotLabel(formation, slot)) == Plain(text);
  });
}

/// What separates the headings where it isn't the comma.
std::optional<std::string> WrongSeparator(std::string_view csv) {
  const std::string_view line = csv.substr(0, csv.find_first_of("\r\n"));
  if (line.find(',') != std::string_view::npos) return std::nullopt;
  if (line.find(';') != std::string_view::npos) return "semicolons";
  if (line.find('\t') != std::string_view::npos) return "tabs";
  return std::nullopt;
}

/// A returner's cell that says yes or no.
struct Mark {
  int Slot = 0;
  bool Yes = false;
  int Line = 0;
  int Column = 0;
};

class PlayerImport {
 public:
  explicit PlayerImport(LeagueData& league) : league_(league), before_(league) {}

  std::vector<ImportError> Run(std::string_view csv) {
    try {
      ReadRows(csv);
    } catch (const CsvError& error) {
      Fail(error.Line, error.Column, error.what());
    }
    std::stable_sort(errors_.begin(), errors_.end(), [](const auto& a, const auto& b) {
      return std::tie(a.Line, a.Column) < std::tie(b.Line, b.Column);
    });
    return std::move(errors_);
  }

 private:
  void Fail(int line, int column, std::string text) {
    const auto at = static_cast<std::size_t>(column - 1);
    const bool known = column > 0 && at < columns_.size() && columns_[at] != nullptr;
    errors_.push_back(
        {line, column, known ? std::string(columns_[at]->Heading) : "", std::move(text)});
  }

  void ReadRows(std::string_view csv) {
    if (const auto separator = WrongSeparator(csv)) {
      Fail(1, 0,
           "the columns are separated by " + *separator +
               "; save the file with commas between them");
      return;
    }
    const std::vector<CsvRow> rows = ParseCsv(csv);
    if (rows.empty()) return Fail(1, 0, "the file is empty");
    ReadHeadings(rows.front());
    if (NumberOf(ColumnKind::Team) == 0 || NumberOf(ColumnKind::Slot) == 0) return;
    for (std::size_t row = 1; row < rows.size(); ++row) ReadRow(rows[row]);
    for (const auto& [duty, marks] : marks_) AssignReturner(duty.first, duty.second, marks);
  }

  void ReadHeadings(const CsvRow& row) {
    for (const CsvCell& cell : row) {
      const int number = static_cast<int>(columns_.size()) + 1;
      const std::string heading(TrimmedText(cell.Text));
      const Column* column = FindColumn(heading);
      if (column == nullptr && !heading.empty()) {
        Fail(cell.Line, number, "\"" + ShownCell(heading) + "\" is not a known column");
        refused_.insert(number);
      } else if (column != nullptr && NumberOf(column->Kind, column->Heading) != 0) {
        Fail(cell.Line, number, "the column \"" + ShownCell(heading) + "\" appears twice");
      }
      columns_.push_back(column);
    }
    for (const auto& [kind, heading] :
         {std::pair(ColumnKind::Team, "Team"), std::pair(ColumnKind::Slot, "Slot")}) {
      if (NumberOf(kind) == 0) {
        Fail(row.front().Line, 0, std::string("the column \"") + heading + "\" is missing");
      }
    }
  }

  /// The number of the column, from 1; 0 where the file doesn't have it.
  int NumberOf(ColumnKind kind, std::string_view heading = {}) const {
    for (std::size_t at = 0; at < columns_.size(); ++at) {
      const Column* column = columns_[at];
      if (column == nullptr || column->Kind != kind) continue;
      if (heading.empty() || column->Heading == heading) return static_cast<int>(at) + 1;
    }
    return 0;
  }

  /// The row's team or slot; 0, and an error, where it has no good one.
  int KeyOf(const CsvRow& row, ColumnKind kind, int largest) {
    const int number = NumberOf(kind);
    const auto at = static_cast<std::size_t>(number - 1);
    const std::string text(at < row.size() ? TrimmedText(row[at].Text) : "");
    if (const auto key = NumberIn(text, largest); key && *key >= 1) return *key;
    Fail(at < row.size() ? row[at].Line : row.front().Line, number,
         "\"" + ShownCell(text) + "\" is not a number from 1 to " + std::to_string(largest));
    return 0;
  }

  void ReadRow(const CsvRow& row) {
    const int team = KeyOf(row, ColumnKind::Team, TeamCount);
    const int slot = KeyOf(row, ColumnKind::Slot, SlotCount);
    if (team == 0 || slot == 0) return;
    const int line = row.front().Line;
    if (const auto [seen, added] = lines_.insert({{team, slot}, line}); !added) {
      return Fail(line, 0,
                  "the same player is in line " + std::to_string(seen->second) + " already");
    }
    for (std::size_t at = 0; at < row.size(); ++at) {
      const int number = static_cast<int>(at) + 1;
      const auto problem = SetCell(team, slot, row[at], number);
      if (problem) Fail(row[at].Line, number, *problem);
    }
    CheckName(team, slot, line);
  }

  std::optional<std::string> SetCell(int team, int slot, const CsvCell& cell, int number) {
    const auto at = static_cast<std::size_t>(number - 1);
    const Column* column = at < columns_.size() ? columns_[at] : nullptr;
    const auto text = Latin1Of(TrimmedText(cell.Text));
    if (column == nullptr) {
      if (text && text->empty()) return std::nullopt;
      // A row that has slipped is an error by itself; a column without a good heading is one.
      if (at < columns_.size() && !refused_.insert(number).second) return std::nullopt;
      return "there is a value, and no heading above it";
    }
    if (column->Kind == ColumnKind::Team || column->Kind == ColumnKind::Slot) return std::nullopt;
    if (!text) return "it holds a character outside Latin-1, or the file is not saved as UTF-8";
    if (IsReturner(column->Kind)) return SetMark(team, slot, *column, *text, cell.Line, number);
    // What is still as it was exported is never touched, good or odd.
    if (cell.Text == PlayerCell(before_, team, slot, *column)) return std::nullopt;
    if (column->Kind != ColumnKind::Position) {
      return SetPlayerCell(league_, team, slot, *column, *text);
    }
    if (text->empty() || IsPosition(slot, *text)) return std::nullopt;
    return "slot " + std::to_string(slot) + " is " + PlayerCell(before_, team, slot, *column) +
           ", not " + Shown(*text);
  }

  std::optional<std::string> SetMark(int team, int slot, const Column& column,
                                     const std::string& text, int line, int number) {
    if (text.empty()) return std::nullopt;
    const auto yes = YesOrNo(text);
    if (!yes) return "\"" + Shown(text) + "\" is neither yes nor no";
    if (!HasColumn(column, slot)) {
      if (!*yes) return std::nullopt;
      return "only slots 3 to 12 can be returners";
    }
    marks_[{team, column.Kind}].push_back({slot, *yes, line, number});
    return std::nullopt;
  }

  void CheckName(int team, int slot, int line) {
    const NameRec& name = league_.NameData[team][slot];
    const NameRec& before = before_.NameData[team][slot];
    if (name.FirstName == before.FirstName && name.LastName == before.LastName) return;
    const int last = NumberOf(ColumnKind::LastName);
    if (const auto problem = NameProblem(name)) {
      Fail(line, last != 0 ? last : NumberOf(ColumnKind::FirstName), *problem);
    }
  }

  void AssignReturner(int team, ColumnKind kind, const std::vector<Mark>& marks) {
    const auto flag = ReturnerField(kind);
    const Mark* chosen = nullptr;
    for (const Mark& mark : marks) {
      if (!mark.Yes) continue;
      if (chosen != nullptr) {
        return Fail(mark.Line, mark.Column,
                    "line " + std::to_string(chosen->Line) + " names another of the same team");
      }
      chosen = &mark;
    }
    for (const Mark& mark : marks) {
      SkillRec& rec = league_.SkillData[team][TableIndexOfSlot(mark.Slot)];
      if (chosen == nullptr && rec.*flag != 0) {
        Fail(mark.Line, mark.Column, "this leaves the team without one; say yes for another");
      }
    }
    if (chosen == nullptr) return;
    for (SkillRec& rec : league_.SkillData[team]) rec.*flag = 0;
    league_.SkillData[team][TableIndexOfSlot(chosen->Slot)].*flag = 1;
  }

  LeagueData& league_;
  const LeagueData before_;
  std::vector<const Column*> columns_;        ///< a heading each; null where it is empty or unknown
  std::set<int> refused_;                     ///< columns that have their one error, from 1
  std::map<std::pair<int, int>, int> lines_;  ///< of each team and slot that has come
  std::map<std::pair<int, ColumnKind>, std::vector<Mark>> marks_;
  std::vector<ImportError> errors_;
};

}  // namespace

std::vector<ImportError> ImportPlayers(std::string_view csv, LeagueData& league) {
  return PlayerImport(league).Run(csv);
}

}  // namespace rostermill
