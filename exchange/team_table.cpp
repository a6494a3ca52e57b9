#include "exchange/team_table.h"

#include <algorithm>
#include <functional>
#include <map>
#include <optional>

#include "exchange/lookup.h"
#include "exchange/player_table.h"
#include "exchange/utf8.h"
#include "exchange/wording.h"
#include "league/league_tables.h"
#include "league/palette.h"
#include "rules/display_text.h"
#include "rules/play_names.h"

namespace rostermill {

namespace {

constexpr int largest_byte = 255;

/// A number of a team that has a name as well: a color or a play.
struct NamedNumber {
  std::string Heading;  ///< "Run 1"; that of the name has " Name" at its end
  int Largest;          ///< what may be typed
  std::function<int(const LeagueData&, int team)> Get;
  std::function<void(LeagueData&, int team, int number)> Set;
  std::function<std::string(const LeagueData&, int number)> Name;  ///< UTF-8
};

template <typename Colors>
void AddColors(std::vector<NamedNumber>& numbers, const std::string& what,
               Colors TeamRec::*colors) {
  using Value = std::remove_reference_t<decltype(std::declval<Colors&>()[1])>;
  for (int at = Colors::first; at <= Colors::last; ++at) {
    numbers.push_back({what + " Color " + std::to_string(at), PaletteSize - 1,
                       [colors, at](const LeagueData& league, int team) -> int {
                         return (league.TeamData[team].*colors)[at];
                       },
                       [colors, at](LeagueData& league, int team, int number) {
                         (league.TeamData[team].*colors)[at] = static_cast<Value>(number);
                       },
                       [](const LeagueData& league, int number) {
                         return PaletteName(league.PaletteData, number);
                       }});
  }
}

std::vector<NamedNumber> ListNumbers() {
  std::vector<NamedNumber> numbers;
  AddColors(numbers, "Uniform", &TeamRec::TeamColors);
  AddColors(numbers, "Division Champion", &TeamRec::DivChampColors);
  AddColors(numbers, "Conference Champion", &TeamRec::ConfChampColors);
  constexpr int runs = 4;
  for (int slot = 1; slot <= 2 * runs; ++slot) {
    const std::string heading =
        slot <= runs ? "Run " + std::to_string(slot) : "Pass " + std::to_string(slot - runs);
    numbers.push_back(
        {heading, PlayNames[slot].last,
         [slot](const LeagueData& league, int team) -> int { return league.TeamPlays[team][slot]; },
         [slot](LeagueData& league, int team, int number) {
           league.TeamPlays[team][slot] = static_cast<std::int16_t>(number);
         },
         [slot](const LeagueData&, int number) { return PlayName(slot, number); }});
  }
  return numbers;
}

const std::vector<NamedNumber>& Numbers() {
  static const std::vector<NamedNumber> numbers = ListNumbers();
  return numbers;
}

struct TextColumn {
  const char* Heading;
  std::string TeamRec::*Text;
  std::size_t Longest;
};

constexpr std::size_t team_column = 0;
constexpr std::size_t first_text = 1;
constexpr std::array<TextColumn, 3> texts{{{"City", &TeamRec::City, LongestCity},
                                           {"Name", &TeamRec::Nickname, LongestCity},
                                           {"Abbreviation", &TeamRec::Abbreviation, 4}}};
constexpr std::size_t formation_column = first_text + texts.size();
constexpr std::size_t first_number = formation_column + 1;

std::vector<std::string> Headings() {
  std::vector<std::string> headings{"Team"};
  for (const TextColumn& column : texts) headings.emplace_back(column.Heading);
  headings.emplace_back("Formation");
  for (const NamedNumber& number : Numbers()) {
    headings.push_back(number.Heading);
    headings.push_back(number.Heading + " Name");
  }
  return headings;
}

std::string FormationName(int formation) {
  return std::string(FormationNames[formation]);
}

class TeamImport {
 public:
  TeamImport(std::string_view bytes, const TableOptions& options, LeagueData& league)
      : table_(bytes, Headings(), options), league_(league), before_(league) {}

  std::vector<TableError> Run() {
    table_.Require({team_column});
    for (const TableRow& row : table_.Rows()) ReadRow(row);
    return table_.TakeErrors();
  }

 private:
  void ReadRow(const TableRow& row) {
    table_.SetSubject({});
    const auto key = table_.Text(row, team_column);
    if (!key) return;
    const Match match = FindTeam(before_, *key);
    if (match.Number == 0) return table_.Fail(row, team_column, match.Problem);
    const int team = match.Number;
    table_.SetSubject(TeamName(before_, team));
    if (const auto [seen, added] = lines_.insert({team, row.front().Line}); !added) {
      return table_.Fail(row, {},
                         "the same team is in line " + std::to_string(seen->second) + " already");
    }
    for (std::size_t at = 0; at < texts.size(); ++at) ReadText(row, team, at);
    ReadFormation(row, team);
    for (std::size_t at = 0; at < Numbers().size(); ++at) {
      ReadNumber(row, team, Numbers()[at], first_number + 2 * at);
    }
  }

  void ReadText(const TableRow& row, int team, std::size_t at) {
    const std::size_t column = first_text + at;
    const TextColumn& kind = texts[at];
    std::string& stored = league_.TeamData[team].*kind.Text;
    // What is still as it was exported is never touched, good or odd.
    if (!table_.Reaches(row, column) || table_.RawText(row, column) == Utf8Of(stored)) return;
    const auto text = table_.Text(row, column);
    if (!text) return;
    if (text->size() > kind.Longest) {
      return table_.Fail(row, column,
                         QuotedCell(Utf8Of(*text)) + " has more than " +
                             std::to_string(kind.Longest) + " characters");
    }
    if (std::ranges::any_of(*text, IsControl)) {
      return table_.Fail(row, column, QuotedCell(Utf8Of(*text)) + " holds a control character");
    }
    const bool abbreviation = kind.Text == &TeamRec::Abbreviation;
    stored = UpperText(*text);
    if (abbreviation) stored.resize(kind.Longest, ' ');
  }

  void ReadFormation(const TableRow& row, int team) {
    const auto text = table_.Text(row, formation_column);
    if (!text || text->empty()) return;
    for (int formation = FormationNames.first; formation <= FormationNames.last; ++formation) {
      if (LowerText(FormationName(formation)) != LowerText(*text)) continue;
      league_.TeamData[team].Formation = static_cast<std::uint8_t>(formation);
      return;
    }
    table_.Fail(row, formation_column,
                QuotedCell(Utf8Of(*text)) + " is not a formation; they are \"" + FormationName(0) +
                    "\", \"" + FormationName(1) + "\" and \"" + FormationName(2) + "\"");
  }

  void ReadNumber(const TableRow& row, int team, const NamedNumber& kind, std::size_t column) {
    const int before = kind.Get(before_, team);
    const auto typed = TypedNumber(row, kind, column, before);
    const auto named = NamedAs(row, kind, column + 1, before);
    if (typed && named && *typed != *named) {
      return table_.Fail(row, column + 1, "it is not the name of number " + std::to_string(*typed));
    }
    if (typed || named) kind.Set(league_, team, typed ? *typed : *named);
  }

  /// The number that was typed over the one that was exported; empty for none and after an error.
  std::optional<int> TypedNumber(const TableRow& row, const NamedNumber& kind, std::size_t column,
                                 int before) {
    const auto text = table_.Text(row, column);
    if (!text || text->empty()) return std::nullopt;
    const auto number = NumberIn(*text, largest_byte);
    if (number == before) return std::nullopt;
    if (number && *number <= kind.Largest) return number;
    table_.Fail(
        row, column,
        QuotedCell(Utf8Of(*text)) + " is not a number from 0 to " + std::to_string(kind.Largest));
    return std::nullopt;
  }

  std::optional<int> NamedAs(const TableRow& row, const NamedNumber& kind, std::size_t column,
                             int before) {
    const std::string text(TrimmedText(table_.RawText(row, column)));
    const auto same = [&text](const std::string& name) {
      return LowerText(TrimmedText(name)) == LowerText(text);
    };
    if (text.empty() || same(kind.Name(before_, before))) return std::nullopt;
    std::optional<int> found;
    for (int number = 0; number <= kind.Largest; ++number) {
      if (!same(kind.Name(before_, number))) continue;
      if (found) {
        table_.Fail(row, column,
                    QuotedCell(text) + " is the name of " + std::to_string(*found) + " and of " +
                        std::to_string(number) + "; give the number");
        return std::nullopt;
      }
      found = number;
    }
    if (!found) table_.Fail(row, column, QuotedCell(text) + " is not a name of any");
    return found;
  }

  Table table_;
  LeagueData& league_;
  const LeagueData before_;
  std::map<int, int> lines_;  ///< of each team that has come
};

}  // namespace

std::string ExportTeams(const LeagueData& league) {
  std::string table = TableLine(Headings());
  for (int team = 1; team <= TeamCount; ++team) {
    const TeamRec& rec = league.TeamData[team];
    std::vector<std::string> cells{std::to_string(team)};
    for (const TextColumn& column : texts) cells.push_back(Utf8Of(rec.*column.Text));
    cells.push_back(FormationName(rec.Formation));
    for (const NamedNumber& kind : Numbers()) {
      const int number = kind.Get(league, team);
      cells.push_back(std::to_string(number));
      cells.push_back(kind.Name(league, number));
    }
    table += TableLine(cells);
  }
  return table;
}

std::vector<TableError> ImportTeams(std::string_view bytes, const TableOptions& options,
                                    LeagueData& league) {
  return TeamImport(bytes, options, league).Run();
}

}  // namespace rostermill
