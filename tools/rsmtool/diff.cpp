#include "exchange/changes.h"
#include "exchange/json_text.h"
#include "tools/rsmtool/commands.h"
#include "tools/rsmtool/files.h"

namespace rostermill {

namespace {

std::string ChangesAsJson(const std::vector<Change>& changes) {
  Json json = Json::array();
  for (const Change& change : changes) {
    Json& line = json.emplace_back(Json::object());
    if (change.Team != 0) line["team"] = change.Team;
    if (change.Slot != 0) line["slot"] = change.Slot;
    line["subject"] = change.Subject;
    line["what"] = change.What;
    line["from"] = change.From;
    line["to"] = change.To;
  }
  return JsonText(json);
}

}  // namespace

int RunDiff(const Arguments& arguments, Console& console) {
  const LeagueData from = ReadLeagueFile(arguments.Paths[0], console);
  const LeagueData to = ReadLeagueFile(arguments.Paths[1], console);
  const std::vector<Change> changes = FindChanges(from, to);
  if (arguments.Json) {
    console.Out << ChangesAsJson(changes);
  } else {
    for (const Change& change : changes) console.Out << ChangeLine(change);
  }
  return changes.empty() ? ExitOk : ExitFound;
}

}  // namespace rostermill
