#include "exchange/league_json.h"
#include "league/load_image.h"
#include "tools/rsmtool/commands.h"
#include "tools/rsmtool/files.h"
#include "tools/rsmtool/store_league.h"

namespace rostermill {

int RunApply(const Arguments& arguments, Console& console) {
  const QString& source = arguments.Paths[0];
  const QString& json = arguments.Paths[1];
  OpenImage image(ReadImageFile(source, console));
  const LeagueData before = ReadLeague(image);
  LeagueData league = before;
  const auto errors = ApplyLeagueJson(ReadTextFile(json, LargestLeagueJson, console), league);
  for (const JsonError& error : errors) {
    console.Err << InputName(json) << ": " << JsonErrorLine(error) << "\n";
  }
  StopAtErrors(errors.size());
  return StoreLeague(source, arguments.Paths.value(2, source), image, before, league, arguments,
                     console);
}

}  // namespace rostermill
