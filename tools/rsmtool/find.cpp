#include "exchange/json_text.h"
#include "exchange/lookup.h"
#include "exchange/table.h"
#include "exchange/utf8.h"
#include "exchange/wording.h"
#include "league/league_tables.h"
#include "rules/display_text.h"
#include "rules/position_layout.h"
#include "tools/rsmtool/commands.h"
#include "tools/rsmtool/files.h"

namespace rostermill {

namespace {

/// The player's ratings as displayed, each under its short heading.
Json RatingsOfPlayer(const LeagueData& league, PlayerPlace player) {
  Json ratings = Json::object();
  const PositionGroup group = GroupOfSlot(player.Slot);
  for (int place = 0; place < PlacesInUse(group); ++place) {
    const int code = PlaceCode(league, player.Team, player.Slot, place);
    ratings[std::string(RatingAt(group, place).Heading)] = RatingValues[code];
  }
  return ratings;
}

Json PlayerAsJson(const LeagueData& league, PlayerPlace player) {
  const auto [team, slot] = player;
  return {{"team", team},
          {"slot", slot},
          {"teamName", Utf8Of(TeamListText(league, team))},
          {"position", SlotLabel(league.TeamData[team].Formation, slot)},
          {"name", Utf8Of(PlayerFullText(league, team, slot))},
          {"number", Utf8Of(league.NameData[team][slot].JerseyNumber)},
          {"ratings", RatingsOfPlayer(league, player)}};
}

/// " 1  3  SPARROWS RB 1 jon ASHLAR #23  RP 63  RS 69" and a line end.
std::string PlayerLine(const LeagueData& league, PlayerPlace player) {
  const auto [team, slot] = player;
  std::string line = PaddedText(std::to_string(team), 2) + " " +
                     PaddedText(std::to_string(slot), 2) + "  " + PlayerTitle(league, team, slot) +
                     " " + Escaped(NumberCaption(league, team, slot)) + " ";
  const PositionGroup group = GroupOfSlot(slot);
  for (int place = 0; place < PlacesInUse(group); ++place) {
    line += " " + std::string(RatingAt(group, place).Heading) + " " +
            std::to_string(RatingValues[PlaceCode(league, team, slot, place)]);
  }
  return line + "\n";
}

}  // namespace

int RunFind(const Arguments& arguments, Console& console) {
  const LeagueData league = ReadLeagueFile(arguments.Paths[0], console);
  std::vector<std::string> words;
  for (const QString& word : arguments.Paths.mid(1)) {
    const auto latin1 = Latin1Of(word.toStdString());
    if (!latin1)
      throw ToolError(QuotedCell(word.toStdString()) + " has a character outside Latin-1");
    words.push_back(*latin1);
  }
  Json json = Json::array();
  const std::vector<PlayerPlace> players = FindPlayers(league, words);
  for (const PlayerPlace player : players) {
    if (arguments.Json) {
      json.push_back(PlayerAsJson(league, player));
    } else {
      console.Out << PlayerLine(league, player);
    }
  }
  if (arguments.Json) console.Out << JsonText(json);
  return players.empty() ? ExitFound : ExitOk;
}

}  // namespace rostermill
