#include "exchange/changes.h"
#include "exchange/league_json.h"
#include "exchange/player_table.h"
#include "league/load_image.h"
#include "tools/rsmtool/commands.h"
#include "tools/rsmtool/files.h"
#include "tools/rsmtool/store_league.h"

namespace rostermill {

namespace {

/// Names that the image would not give back. One that it has already is left alone.
std::size_t PrintNameProblems(const LeagueData& before, const LeagueData& league,
                              Console& console) {
  std::size_t problems = 0;
  for (const Change& change : FindChanges(before, league)) {
    if (change.Where.Kind != UnitKind::Name) continue;
    const auto problem = NameProblem(league.NameData[change.Team][change.Slot]);
    if (!problem) continue;
    console.Err << change.Subject << ": " << *problem << "\n";
    ++problems;
  }
  return problems;
}

}  // namespace

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
  StopAtErrors(PrintNameProblems(before, league, console));
  return StoreLeague(source, arguments.Paths.value(2, source), image, before, league, arguments,
                     console);
}

}  // namespace rostermill
