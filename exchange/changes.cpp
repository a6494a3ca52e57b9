#include "exchange/changes.h"

#include <algorithm>

#include "exchange/player_table.h"
#include "exchange/wording.h"
#include "league/league_tables.h"
#include "rules/play_names.h"
#include "rules/position_layout.h"

namespace rostermill {

namespace {

std::string NameText(const LeagueData& league, int team, int slot) {
  const NameRec& name = league.NameData[team][slot];
  if (name.FirstName.empty() && name.LastName.empty()) return "no name";
  return Shown(name.FirstName + (name.FirstName.empty() ? "" : " ") + name.LastName);
}

std::string ReturnerText(const LeagueData& league, int team, ColumnKind duty) {
  for (int slot = 1; slot <= SlotCount; ++slot) {
    if (GroupOfSlot(slot) != PositionGroup::Skill) continue;
    const SkillRec& rec = league.SkillData[team][TableIndexOfSlot(slot)];
    if (rec.*ReturnerField(duty) == 0) continue;
    return std::string(SlotLabel(league.TeamData[team].Formation, slot)) + " " +
           NameText(league, team, slot);
  }
  return "nobody";
}

class Comparison {
 public:
  Comparison(const LeagueData& from, const LeagueData& to) : from_(from), to_(to) {}

  std::vector<Change> Run() {
    CompareSettings();
    for (int team = 1; team <= TeamCount; ++team) {
      CompareTeam(team);
      for (int slot = 1; slot <= SlotCount; ++slot) ComparePlayer(team, slot);
    }
    for (int week = 0; week < WeekCount; ++week) CompareWeek(week);
    CompareProbowl();
    return std::move(changes_);
  }

 private:
  void Add(int team, int slot, const std::string& subject, const std::string& what,
           const std::string& from, const std::string& to) {
    if (from != to) changes_.push_back({team, slot, subject, what, from, to});
  }

  /// Texts are compared by their bytes; one that is shown cut or escaped can still differ.
  void AddText(int team, const std::string& subject, const std::string& what,
               const std::string& from, const std::string& to) {
    if (from != to) changes_.push_back({team, 0, subject, what, Shown(from), Shown(to)});
  }

  void CompareSettings() {
    AddText(0, "League", "Roster Year", from_.RosterYear.str(), to_.RosterYear.str());
    const std::string letters = "ABC";
    for (int text = 1; text <= 3; ++text) {
      AddText(0, "League", std::string("League ") + letters[static_cast<std::size_t>(text - 1)],
              from_.LeagueText[text].str(), to_.LeagueText[text].str());
    }
  }

  template <typename Colors>
  void CompareColors(int team, const std::string& what, const Colors& from, const Colors& to) {
    for (int at = from.first; at <= from.last; ++at) {
      Add(team, 0, TeamName(from_, team), what + " Color " + std::to_string(at),
          std::to_string(from[at]), std::to_string(to[at]));
    }
  }

  void CompareTeam(int team) {
    const TeamRec& from = from_.TeamData[team];
    const TeamRec& to = to_.TeamData[team];
    const std::string subject = TeamName(from_, team);
    AddText(team, subject, "City", from.City, to.City);
    AddText(team, subject, "Name", from.Nickname, to.Nickname);
    AddText(team, subject, "Abbreviation", from.Abbreviation, to.Abbreviation);
    Add(team, 0, subject, "Formation", std::string(FormationNames[from.Formation]),
        std::string(FormationNames[to.Formation]));
    CompareColors(team, "Uniform", from.TeamColors, to.TeamColors);
    CompareColors(team, "Division Champion", from.DivChampColors, to.DivChampColors);
    CompareColors(team, "Conference Champion", from.ConfChampColors, to.ConfChampColors);
    for (int slot = 1; slot <= 8; ++slot) {
      const std::string what =
          slot <= 4 ? "Run " + std::to_string(slot) : "Pass " + std::to_string(slot - 4);
      Add(team, 0, subject, what, PlayName(slot, from_.TeamPlays[team][slot]),
          PlayName(slot, to_.TeamPlays[team][slot]));
    }
    CompareReturners(team, "Kick Returner", ColumnKind::KickReturner);
    CompareReturners(team, "Punt Returner", ColumnKind::PuntReturner);
  }

  /// A duty that moves is one change of the team.
  void CompareReturners(int team, const std::string& what, ColumnKind duty) {
    const auto flag = ReturnerField(duty);
    const auto& from = from_.SkillData[team];
    const auto& to = to_.SkillData[team];
    const bool same =
        std::equal(from.begin(), from.end(), to.begin(),
                   [flag](const SkillRec& a, const SkillRec& b) { return a.*flag == b.*flag; });
    if (same) return;
    Add(team, 0, TeamName(from_, team), what, ReturnerText(from_, team, duty),
        ReturnerText(to_, team, duty));
  }

  void ComparePlayer(int team, int slot) {
    const NameRec& from = from_.NameData[team][slot];
    const NameRec& to = to_.NameData[team][slot];
    const std::string subject = PlayerTitle(from_, team, slot);
    if (from.FirstName != to.FirstName || from.LastName != to.LastName) {
      changes_.push_back(
          {team, slot, subject, "Name", NameText(from_, team, slot), NameText(to_, team, slot)});
    }
    const auto number = [](const NameRec& name) {
      return name.JerseyNumber.empty() ? std::string("none") : name.JerseyNumber;
    };
    Add(team, slot, subject, "Number", number(from), number(to));
    for (const Column& column : PlayerColumns) {
      if (column.Kind != ColumnKind::Face && column.Kind != ColumnKind::Rating) continue;
      Add(team, slot, subject, std::string(column.Heading), PlayerCell(from_, team, slot, column),
          PlayerCell(to_, team, slot, column));
    }
  }

  static std::string GameText(const LeagueData& league, int week, int game) {
    if (game >= league.ScheduleData[week].GameCount) return "no game";
    const GamePlace& place = league.ScheduleData[week].Games[game];
    return ScheduleTeamName(league, place.AwayTeam) + " at " +
           ScheduleTeamName(league, place.HomeTeam);
  }

  void CompareWeek(int week) {
    const ScheduleWeek& from = from_.ScheduleData[week];
    const ScheduleWeek& to = to_.ScheduleData[week];
    for (int game = 0; game < std::max(from.GameCount, to.GameCount); ++game) {
      const bool both = game < from.GameCount && game < to.GameCount;
      if (both && from.Games[game] == to.Games[game]) continue;
      changes_.push_back({0, 0, "Week " + std::to_string(week + 1),
                          "Game " + std::to_string(game + 1), GameText(from_, week, game),
                          GameText(to_, week, game)});
    }
  }

  void CompareProbowl() {
    for (int conference = 1; conference <= 2; ++conference) {
      for (int slot = 1; slot <= SlotCount; ++slot) {
        const ProbowlRec& from = from_.ProbowlData[conference][slot];
        const ProbowlRec& to = to_.ProbowlData[conference][slot];
        if (from == to) continue;
        changes_.push_back({0, 0, conference == 1 ? "AFC Pro Bowl" : "NFC Pro Bowl",
                            std::string(SlotLabels[slot]), ProbowlPlayer(from_, from),
                            ProbowlPlayer(to_, to)});
      }
    }
  }

  const LeagueData& from_;
  const LeagueData& to_;
  std::vector<Change> changes_;
};

}  // namespace

std::vector<Change> FindChanges(const LeagueData& from, const LeagueData& to) {
  return Comparison(from, to).Run();
}

std::string ChangeLine(const Change& change) {
  return change.Subject + ": " + change.What + " " + change.From + " -> " + change.To + "\n";
}

}  // namespace rostermill
