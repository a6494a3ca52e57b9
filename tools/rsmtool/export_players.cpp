#include "exchange/player_table.h"
#include "tools/rsmtool/commands.h"
#include "tools/rsmtool/csv.h"
#include "tools/rsmtool/files.h"

namespace rostermill {

int RunExportPlayers(const Arguments& arguments, Console& console) {
  const QString target = arguments.Paths.size() > 1 ? arguments.Paths[1] : "-";
  const LeagueData league = ReadLeagueFile(arguments.Paths[0], console);
  std::vector<std::string> cells;
  cells.reserve(PlayerColumns.size());
  for (const Column& column : PlayerColumns) cells.emplace_back(column.Heading);
  std::string text = CsvLine(cells);
  for (int team = 1; team <= TeamCount; ++team) {
    for (int slot = 1; slot <= SlotCount; ++slot) {
      cells.clear();
      for (const Column& column : PlayerColumns) {
        cells.push_back(PlayerCell(league, team, slot, column));
      }
      text += CsvLine(cells);
    }
  }
  return WriteTextFile(target, text, console);
}

}  // namespace rostermill
