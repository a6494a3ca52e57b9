#include "league/load_image.h"
#include "tools/rsmtool/commands.h"
#include "tools/rsmtool/files.h"
#include "tools/rsmtool/player_import.h"
#include "tools/rsmtool/store_league.h"

namespace rostermill {

namespace {

std::string ErrorLine(const std::string& file, const ImportError& error) {
  std::string line = file + ": line " + std::to_string(error.Line);
  if (error.Column > 0) line += ", column " + std::to_string(error.Column);
  if (!error.Heading.empty()) line += " (" + error.Heading + ")";
  return line + ": " + error.Text + "\n";
}

}  // namespace

int RunImportPlayers(const Arguments& arguments, Console& console) {
  const QString& path = arguments.Paths[0];
  OpenImage image(ReadImageFile(path, console));
  const LeagueData before = ReadLeague(image);
  LeagueData league = before;
  const auto errors =
      ImportPlayers(ReadTextFile(arguments.Paths[1], LargestTable, console), league);
  for (const ImportError& error : errors) {
    console.Err << ErrorLine(InputName(arguments.Paths[1]), error);
  }
  StopAtErrors(errors.size());
  return StoreLeague(path, arguments.Paths.value(2, path), image, before, league, arguments,
                     console);
}

}  // namespace rostermill
