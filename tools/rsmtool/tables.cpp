#include "exchange/player_import.h"
#include "exchange/schedule_table.h"
#include "exchange/team_table.h"
#include "league/load_image.h"
#include "league/palette.h"
#include "tools/rsmtool/commands.h"
#include "tools/rsmtool/files.h"
#include "tools/rsmtool/store_league.h"

namespace rostermill {

namespace {

using Export = std::string (*)(const LeagueData&);
using Import = std::vector<TableError> (*)(std::string_view, const TableOptions&, LeagueData&);

/// For the names of colors. Without the program's file they have none.
void AddPalette(LeagueData& league, const Console& console) {
  try {
    league.PaletteData = ReadPalette(console.AppDir);
  } catch (const std::system_error&) {
    return;
  }
}

int ExportTable(Export write, const Arguments& arguments, Console& console) {
  LeagueData league = ReadLeagueFile(arguments.Paths[0], console);
  AddPalette(league, console);
  return WriteTextFile(arguments.Paths.value(1, "-"), write(league), console);
}

int ImportTable(Import read, const Arguments& arguments, Console& console) {
  const QString& source = arguments.Paths[0];
  const QString& table = arguments.Paths[1];
  OpenImage image(ReadImageFile(source, console));
  LeagueData before = ReadLeague(image);
  AddPalette(before, console);
  LeagueData league = before;
  const auto errors = read(ReadTextFile(table, LargestTable, console), arguments.Table, league);
  for (const TableError& error : errors) {
    console.Err << InputName(table) << ": " << TableErrorLine(error) << "\n";
  }
  StopAtErrors(errors.size());
  return StoreLeague(source, arguments.Paths.value(2, source), image, before, league, arguments,
                     console);
}

}  // namespace

int RunExportPlayers(const Arguments& arguments, Console& console) {
  return ExportTable(ExportPlayers, arguments, console);
}

int RunImportPlayers(const Arguments& arguments, Console& console) {
  return ImportTable(ImportPlayers, arguments, console);
}

int RunExportTeams(const Arguments& arguments, Console& console) {
  return ExportTable(ExportTeams, arguments, console);
}

int RunImportTeams(const Arguments& arguments, Console& console) {
  return ImportTable(ImportTeams, arguments, console);
}

int RunExportSchedule(const Arguments& arguments, Console& console) {
  return ExportTable(ExportSchedule, arguments, console);
}

int RunImportSchedule(const Arguments& arguments, Console& console) {
  return ImportTable(ImportSchedule, arguments, console);
}

}  // namespace rostermill
