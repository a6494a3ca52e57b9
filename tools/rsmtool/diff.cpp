#include "exchange/changes.h"
#include "tools/rsmtool/commands.h"
#include "tools/rsmtool/files.h"
#include "tools/rsmtool/json_writer.h"

namespace rostermill {

namespace {

std::string ChangesAsJson(const std::vector<Change>& changes) {
  JsonWriter json;
  json.BeginArray();
  for (const Change& change : changes) {
    json.BeginObject();
    if (change.Team != 0) json.Number("team", change.Team);
    if (change.Slot != 0) json.Number("slot", change.Slot);
    json.Utf8("subject", change.Subject);
    json.Utf8("what", change.What);
    json.Utf8("from", change.From);
    json.Utf8("to", change.To);
    json.EndObject();
  }
  json.EndArray();
  return json.Text();
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
