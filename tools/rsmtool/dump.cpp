#include "exchange/league_json.h"
#include "tools/rsmtool/commands.h"
#include "tools/rsmtool/files.h"

namespace rostermill {

int RunDump(const Arguments& arguments, Console& console) {
  console.Out << WriteLeagueJson(ReadLeagueFile(arguments.Paths[0], console));
  return ExitOk;
}

}  // namespace rostermill
