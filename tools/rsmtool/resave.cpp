#include "league/load_image.h"
#include "tools/rsmtool/commands.h"
#include "tools/rsmtool/files.h"

namespace rostermill {

int RunResave(const Arguments& arguments, Console& console) {
  OpenImage image(ReadImageFile(arguments.Paths[0], console));
  const LeagueData league = ReadLeague(image);
  return WriteLeagueFile(arguments.Paths[0], arguments.Paths[1], image, league, arguments, console);
}

}  // namespace rostermill
