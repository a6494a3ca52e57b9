#include "league/league_tables.h"
#include "league/ratings.h"
#include "tools/rsmtool/commands.h"
#include "tools/rsmtool/files.h"
#include "tools/rsmtool/json_writer.h"
#include "tools/rsmtool/player_table.h"

namespace rostermill {

namespace {

std::string_view GroupName(PositionGroup group) {
  constexpr std::array<std::string_view, 5> names{"QB", "Skill", "Line", "Defense", "Kick"};
  return names[static_cast<std::size_t>(group)];
}

void DumpPlayer(JsonWriter& json, const LeagueData& league, int team, int slot) {
  const NameRec& name = league.NameData[team][slot];
  const PositionGroup group = GroupOfSlot(slot);
  json.BeginObject();
  json.Number("slot", slot);
  json.Latin1("label", SlotLabels[slot]);
  json.Latin1("group", GroupName(group));
  json.Latin1("firstName", name.FirstName);
  json.Latin1("lastName", name.LastName);
  json.Latin1("jerseyNumber", name.JerseyNumber);
  json.Number("face", FaceOf(league, team, slot));
  json.BeginObject("ratings");
  for (int place = 0; place < PlacesInUse(group); ++place) {
    json.Number(FieldName(RatingAt(group, place).Name), PlaceCode(league, team, slot, place));
  }
  json.EndObject();
  if (group == PositionGroup::Skill) {
    const SkillRec& rec = league.SkillData[team][TableIndexOfSlot(slot)];
    json.Bool("kickReturner", rec.KickReturner != 0);
    json.Bool("puntReturner", rec.PuntReturner != 0);
  }
  json.EndObject();
}

void DumpTeam(JsonWriter& json, const LeagueData& league, int team) {
  const TeamRec& rec = league.TeamData[team];
  json.BeginObject();
  json.Number("index", team);
  json.Latin1("city", rec.City);
  json.Latin1("nickname", rec.Nickname);
  json.Latin1("abbreviation", rec.Abbreviation);
  json.Number("formation", rec.Formation);
  json.NumberArray("colors", rec.TeamColors);
  json.NumberArray("divChampColors", rec.DivChampColors);
  json.NumberArray("confChampColors", rec.ConfChampColors);
  json.NumberArray("plays", league.TeamPlays[team]);
  json.BeginArray("players");
  for (int slot = 1; slot <= SlotCount; ++slot) DumpPlayer(json, league, team, slot);
  json.EndArray();
  json.EndObject();
}

void DumpSchedule(JsonWriter& json, const LeagueData& league) {
  json.BeginArray("schedule");
  for (const ScheduleWeek& week : league.ScheduleData) {
    json.BeginArray();
    for (int game = 0; game < week.GameCount; ++game) {
      json.BeginObject();
      json.Number("away", week.Games[game].AwayTeam);
      json.Number("home", week.Games[game].HomeTeam);
      json.EndObject();
    }
    json.EndArray();
  }
  json.EndArray();
}

void DumpProbowl(JsonWriter& json, const LeagueData& league) {
  json.BeginArray("probowl");
  for (const auto& conference : league.ProbowlData) {
    json.BeginArray();
    for (const ProbowlRec& place : conference) {
      json.BeginObject();
      json.Number("team", place.Team);
      json.Number("slot", place.Slot);
      json.EndObject();
    }
    json.EndArray();
  }
  json.EndArray();
}

}  // namespace

int RunDump(const Arguments& arguments, Console& console) {
  const LeagueData league = ReadLeagueFile(arguments.Paths[0], console);
  JsonWriter json;
  json.BeginObject();
  json.Latin1("rosterYear", league.RosterYear.str());
  json.BeginArray("leagueText");
  for (const auto& text : league.LeagueText) json.Latin1({}, text.str());
  json.EndArray();
  json.BeginArray("teams");
  for (int team = 1; team <= TeamCount; ++team) DumpTeam(json, league, team);
  json.EndArray();
  DumpSchedule(json, league);
  DumpProbowl(json, league);
  json.EndObject();
  console.Out << json.Text();
  return ExitOk;
}

}  // namespace rostermill
