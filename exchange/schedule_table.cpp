#include "exchange/schedule_table.h"

#include <map>
#include <optional>

#include "exchange/lookup.h"
#include "exchange/player_table.h"
#include "exchange/utf8.h"
#include "exchange/wording.h"
#include "rules/season_facts.h"

namespace rostermill {

namespace {

constexpr std::size_t week_column = 0;
constexpr std::size_t visitor_column = 1;
constexpr std::size_t host_column = 2;
constexpr int last_side = TeamCount + 1;  // counted from 0; the second all-star side

/// How a table calls a side, Latin-1.
std::string CallOf(const LeagueData& league, int side) {
  if (side >= 0 && side < TeamCount) {
    std::string text(TrimmedText(SideAbbreviation(league, side)));
    if (FindTeam(league, text).Number == side + 1) return text;
  }
  return std::to_string(side + 1);
}

class ScheduleImport {
 public:
  ScheduleImport(std::string_view bytes, const TableOptions& options, LeagueData& league)
      : table_(bytes, {"Week", "Visitor", "Host"}, options), league_(league) {}

  std::vector<TableError> Run() {
    for (const std::size_t column : {week_column, visitor_column, host_column}) {
      table_.Require({column});
    }
    for (const TableRow& row : table_.Rows()) ReadRow(row);
    for (const auto& [week, games] : weeks_) league_.ScheduleData[week - 1] = games;
    return table_.TakeErrors();
  }

 private:
  void ReadRow(const TableRow& row) {
    const auto text = table_.Text(row, week_column);
    if (!text) return;
    const auto week = NumberIn(*text, WeekCount);
    if (!week || *week < 1) {
      return table_.Fail(
          row, week_column,
          "\"" + Shown(*text) + "\" is not a week from 1 to " + std::to_string(WeekCount));
    }
    ScheduleWeek& games = weeks_[*week];
    const bool no_game = TrimmedText(table_.RawText(row, visitor_column)).empty() &&
                         TrimmedText(table_.RawText(row, host_column)).empty();
    if (no_game) return;
    const auto visitor = SideIn(row, visitor_column);
    const auto host = SideIn(row, host_column);
    if (!visitor || !host) return;
    if (games.GameCount == GamesPerWeek) {
      return table_.Fail(row, {},
                         "week " + std::to_string(*week) + " has more than " +
                             std::to_string(GamesPerWeek) + " games");
    }
    games.Games[games.GameCount++] = {static_cast<std::int16_t>(*host),
                                      static_cast<std::int16_t>(*visitor)};
  }

  /// Counted from 0; empty after an error.
  std::optional<int> SideIn(const TableRow& row, std::size_t column) {
    const auto text = table_.Text(row, column);
    if (!text) return std::nullopt;
    if (const auto number = NumberIn(*text, last_side + 1); number && *number > TeamCount) {
      return *number - 1;
    }
    const Match match = FindTeam(league_, *text);
    if (match.Number != 0) return match.Number - 1;
    table_.Fail(row, column, match.Problem);
    return std::nullopt;
  }

  Table table_;
  LeagueData& league_;
  std::map<int, ScheduleWeek> weeks_;
};

}  // namespace

std::string ExportSchedule(const LeagueData& league) {
  std::string table = TableLine({"Week", "Visitor", "Host"});
  for (int week = 0; week < WeekCount; ++week) {
    const ScheduleWeek& games = league.ScheduleData[week];
    if (games.GameCount == 0) table += TableLine({std::to_string(week + 1), {}, {}});
    for (int game = 0; game < games.GameCount; ++game) {
      table +=
          TableLine({std::to_string(week + 1), Utf8Of(CallOf(league, games.Games[game].AwayTeam)),
                     Utf8Of(CallOf(league, games.Games[game].HomeTeam))});
    }
  }
  return table;
}

std::vector<TableError> ImportSchedule(std::string_view bytes, const TableOptions& options,
                                       LeagueData& league) {
  return ScheduleImport(bytes, options, league).Run();
}

}  // namespace rostermill
