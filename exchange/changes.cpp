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
      if (SameTeam(team)) continue;  // most are, and their words take time
      CompareTeam(team);
      for (int slot = 1; slot <= SlotCount; ++slot) ComparePlayer(team, slot);
    }
    for (int week = 0; week < WeekCount; ++week) CompareWeek(week);
    CompareProbowl();
    return std::move(changes_);
  }

 private:
  void Add(const Unit& unit, const std::string& subject, const std::string& what,
           const std::string& from, const std::string& to) {
    if (SameUnit(from_, to_, unit)) return;
    const int slot = unit.Team != 0 ? unit.Slot : 0;
    changes_.push_back({unit, unit.Team, slot, subject, what, from, to});
  }

  bool SameTeam(int team) const {
    const auto same = [&](auto LeagueData::*... tables) {
      return (((from_.*tables)[team] == (to_.*tables)[team]) && ...);
    };
    return same(&LeagueData::QBData, &LeagueData::SkillData, &LeagueData::LineData,
                &LeagueData::DefenseData, &LeagueData::KickData, &LeagueData::NameData,
                &LeagueData::TeamData, &LeagueData::TeamPlays);
  }

  void CompareSettings() {
    Add({UnitKind::RosterYear}, "League", "Roster Year", Shown(from_.RosterYear.str()),
        Shown(to_.RosterYear.str()));
    const std::string letters = "ABC";
    for (int text = 1; text <= 3; ++text) {
      Add({UnitKind::LeagueText, 0, 0, text}, "League",
          std::string("League ") + letters[static_cast<std::size_t>(text - 1)],
          Shown(from_.LeagueText[text].str()), Shown(to_.LeagueText[text].str()));
    }
  }

  template <typename Colors>
  void CompareColors(int team, UnitKind kind, const std::string& what, const Colors& from,
                     const Colors& to) {
    for (int at = from.first; at <= from.last; ++at) {
      Add({kind, team, 0, at}, TeamName(from_, team), what + " Color " + std::to_string(at),
          std::to_string(from[at]), std::to_string(to[at]));
    }
  }

  void CompareTeam(int team) {
    const TeamRec& from = from_.TeamData[team];
    const TeamRec& to = to_.TeamData[team];
    const std::string subject = TeamName(from_, team);
    const auto text = [&](UnitKind kind, const std::string& what, std::string TeamRec::*field) {
      Add({kind, team}, subject, what, Shown(from.*field), Shown(to.*field));
    };
    text(UnitKind::City, "City", &TeamRec::City);
    text(UnitKind::Nickname, "Name", &TeamRec::Nickname);
    text(UnitKind::Abbreviation, "Abbreviation", &TeamRec::Abbreviation);
    Add({UnitKind::Formation, team}, subject, "Formation",
        std::string(FormationNames[from.Formation]), std::string(FormationNames[to.Formation]));
    CompareColors(team, UnitKind::UniformColor, "Uniform", from.TeamColors, to.TeamColors);
    CompareColors(team, UnitKind::DivisionColor, "Division Champion", from.DivChampColors,
                  to.DivChampColors);
    CompareColors(team, UnitKind::ConferenceColor, "Conference Champion", from.ConfChampColors,
                  to.ConfChampColors);
    for (int slot = 1; slot <= 8; ++slot) {
      const std::string what =
          slot <= 4 ? "Run " + std::to_string(slot) : "Pass " + std::to_string(slot - 4);
      Add({UnitKind::Play, team, 0, slot}, subject, what,
          PlayName(slot, from_.TeamPlays[team][slot]), PlayName(slot, to_.TeamPlays[team][slot]));
    }
    CompareReturners(team, UnitKind::KickReturner, "Kick Returner", ColumnKind::KickReturner);
    CompareReturners(team, UnitKind::PuntReturner, "Punt Returner", ColumnKind::PuntReturner);
  }

  /// A duty that moves is one change of the team.
  void CompareReturners(int team, UnitKind kind, const std::string& what, ColumnKind duty) {
    Add({kind, team}, TeamName(from_, team), what, ReturnerText(from_, team, duty),
        ReturnerText(to_, team, duty));
  }

  void ComparePlayer(int team, int slot) {
    const std::string subject = PlayerTitle(from_, team, slot);
    Add({UnitKind::Name, team, slot}, subject, "Name", NameText(from_, team, slot),
        NameText(to_, team, slot));
    const auto number = [&](const LeagueData& league) {
      const std::string& text = league.NameData[team][slot].JerseyNumber;
      return text.empty() ? std::string("none") : Shown(text);
    };
    Add({UnitKind::Number, team, slot}, subject, "Number", number(from_), number(to_));
    for (const Column& column : PlayerColumns) {
      const bool face = column.Kind == ColumnKind::Face;
      if ((!face && column.Kind != ColumnKind::Rating) || !HasColumn(column, slot)) continue;
      Add({face ? UnitKind::Face : UnitKind::Rating, team, slot, column.Place}, subject,
          std::string(column.Heading), PlayerCell(from_, team, slot, column),
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
      Add({UnitKind::Week, 0, 0, week + 1}, "Week " + std::to_string(week + 1),
          "Game " + std::to_string(game + 1), GameText(from_, week, game),
          GameText(to_, week, game));
    }
  }

  void CompareProbowl() {
    for (int conference = 1; conference <= 2; ++conference) {
      for (int slot = 1; slot <= SlotCount; ++slot) {
        Add({UnitKind::AllStar, 0, slot, conference},
            conference == 1 ? "AFC Pro Bowl" : "NFC Pro Bowl", std::string(SlotLabels[slot]),
            ProbowlPlayer(from_, from_.ProbowlData[conference][slot]),
            ProbowlPlayer(to_, to_.ProbowlData[conference][slot]));
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
