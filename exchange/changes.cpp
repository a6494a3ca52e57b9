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
  /// `text` gives the unit's text in a league; it is asked only where the leagues differ, which is
  /// seldom, and words take time.
  template <typename Text>
  void Add(const Unit& unit, const std::string& subject, const std::string& what, Text text) {
    if (SameUnit(from_, to_, unit)) return;
    const int slot = unit.Team != 0 ? unit.Slot : 0;
    changes_.push_back({unit, unit.Team, slot, subject, what, text(from_), text(to_)});
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
    Add({UnitKind::RosterYear}, "League", "Roster Year",
        [](const LeagueData& league) { return Shown(league.RosterYear.str()); });
    const std::string letters = "ABC";
    for (int text = 1; text <= 3; ++text) {
      Add({UnitKind::LeagueText, 0, 0, text}, "League",
          std::string("League ") + letters[static_cast<std::size_t>(text - 1)],
          [text](const LeagueData& league) { return Shown(league.LeagueText[text].str()); });
    }
  }

  template <typename Colors>
  void CompareColors(int team, UnitKind kind, const std::string& what, Colors TeamRec::*colors) {
    const Colors& places = from_.TeamData[team].*colors;
    for (int at = places.first; at <= places.last; ++at) {
      Add({kind, team, 0, at}, TeamName(from_, team), what + " Color " + std::to_string(at),
          [=](const LeagueData& league) {
            return std::to_string((league.TeamData[team].*colors)[at]);
          });
    }
  }

  void CompareTeam(int team) {
    const std::string subject = TeamName(from_, team);
    const auto text = [&](UnitKind kind, const std::string& what, std::string TeamRec::*field) {
      Add({kind, team}, subject, what,
          [=](const LeagueData& league) { return Shown(league.TeamData[team].*field); });
    };
    text(UnitKind::City, "City", &TeamRec::City);
    text(UnitKind::Nickname, "Name", &TeamRec::Nickname);
    text(UnitKind::Abbreviation, "Abbreviation", &TeamRec::Abbreviation);
    Add({UnitKind::Formation, team}, subject, "Formation", [team](const LeagueData& league) {
      return std::string(FormationNames[league.TeamData[team].Formation]);
    });
    CompareColors(team, UnitKind::UniformColor, "Uniform", &TeamRec::TeamColors);
    CompareColors(team, UnitKind::DivisionColor, "Division Champion", &TeamRec::DivChampColors);
    CompareColors(team, UnitKind::ConferenceColor, "Conference Champion",
                  &TeamRec::ConfChampColors);
    for (int slot = 1; slot <= 8; ++slot) {
      const std::string what =
          slot <= 4 ? "Run " + std::to_string(slot) : "Pass " + std::to_string(slot - 4);
      Add({UnitKind::Play, team, 0, slot}, subject, what,
          [=](const LeagueData& league) { return PlayName(slot, league.TeamPlays[team][slot]); });
    }
    CompareReturners(team, UnitKind::KickReturner, "Kick Returner", ColumnKind::KickReturner);
    CompareReturners(team, UnitKind::PuntReturner, "Punt Returner", ColumnKind::PuntReturner);
  }

  /// A duty that moves is one change of the team.
  void CompareReturners(int team, UnitKind kind, const std::string& what, ColumnKind duty) {
    Add({kind, team}, TeamName(from_, team), what,
        [=](const LeagueData& league) { return ReturnerText(league, team, duty); });
  }

  void ComparePlayer(int team, int slot) {
    const std::string subject = PlayerTitle(from_, team, slot);
    Add({UnitKind::Name, team, slot}, subject, "Name",
        [=](const LeagueData& league) { return NameText(league, team, slot); });
    Add({UnitKind::Number, team, slot}, subject, "Number", [=](const LeagueData& league) {
      const std::string& text = league.NameData[team][slot].JerseyNumber;
      return text.empty() ? std::string("none") : Shown(text);
    });
    for (const Column& column : PlayerColumns) {
      const bool face = column.Kind == ColumnKind::Face;
      if ((!face && column.Kind != ColumnKind::Rating) || !HasColumn(column, slot)) continue;
      Add({face ? UnitKind::Face : UnitKind::Rating, team, slot, column.Place}, subject,
          std::string(column.Heading),
          [&](const LeagueData& league) { return PlayerCell(league, team, slot, column); });
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
          "Game " + std::to_string(game + 1),
          [=](const LeagueData& league) { return GameText(league, week, game); });
    }
  }

  void CompareProbowl() {
    for (int conference = 1; conference <= 2; ++conference) {
      for (int slot = 1; slot <= SlotCount; ++slot) {
        Add({UnitKind::AllStar, 0, slot, conference},
            conference == 1 ? "AFC Pro Bowl" : "NFC Pro Bowl", std::string(SlotLabels[slot]),
            [=](const LeagueData& league) {
              return ProbowlPlayer(league, league.ProbowlData[conference][slot]);
            });
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
