#include "exchange/checks.h"

#include <algorithm>
#include <array>
#include <map>

#include "exchange/player_table.h"
#include "exchange/wording.h"
#include "league/league_tables.h"
#include "league/probowl.h"
#include "league/quantity_text.h"
#include "league/save_image.h"
#include "rules/play_names.h"
#include "rules/position_layout.h"
#include "rules/season_facts.h"

namespace rostermill {

namespace {

std::string Games(int count) {
  return QuantityText(static_cast<std::uint64_t>(count), "game");
}

/// "SPARROWS, OTTERS and FOXES"
std::string ListText(const std::vector<std::string>& names) {
  std::string text;
  for (std::size_t at = 0; at < names.size(); ++at) {
    if (at > 0) text += at + 1 == names.size() ? " and " : ", ";
    text += names[at];
  }
  return text;
}

class Check {
 public:
  explicit Check(const LeagueData& league) : league_(league) {}

  std::vector<Finding> Run() {
    CheckTexts();
    CheckTeamNames();
    for (int team = 1; team <= TeamCount; ++team) {
      for (int slot = 1; slot <= SlotCount; ++slot) CheckName(team, slot);
      CheckPlayersAlike(team);
      CheckDuty(team, ColumnKind::KickReturner, UnitKind::KickReturner, "kick returner");
      CheckDuty(team, ColumnKind::PuntReturner, UnitKind::PuntReturner, "punt returner");
      CheckColors(team);
      CheckPlays(team);
    }
    for (int week = 1; week <= WeekCount; ++week) CheckWeek(week);
    CheckSeason();
    CheckAllStars();
    std::ranges::stable_sort(findings_, {}, &Finding::Kind);
    return std::move(findings_);
  }

 private:
  void Add(FindingKind kind, const Unit& where, std::string text) {
    findings_.push_back({kind, where, std::move(text)});
  }
  std::string Name(int team) const { return TeamName(league_, team); }

  void CheckTexts() {
    const auto overflow = TextOverflow(league_);
    if (overflow) Add(FindingKind::Texts, {UnitKind::City, 1}, OneLine(*overflow));
  }

  void CheckTeamNames() {
    const auto alike = [this](UnitKind kind, const std::string& what, const auto& text_of) {
      for (int team = 2; team <= TeamCount; ++team) {
        const std::string text = text_of(league_.TeamData[team]);
        for (int other = 1; other < team; ++other) {
          if (text_of(league_.TeamData[other]) != text) continue;
          Add(FindingKind::Teams, {kind, team},
              "Teams " + std::to_string(other) + " and " + std::to_string(team) +
                  " have the same " + what + ", \"" + Shown(text) + "\"");
        }
      }
    };
    alike(UnitKind::Nickname, "name",
          [](const TeamRec& team) { return team.City + " " + team.Nickname; });
    alike(UnitKind::Abbreviation, "abbreviation",
          [](const TeamRec& team) { return team.Abbreviation; });
  }

  void CheckName(int team, int slot) {
    if (const auto problem = NameProblem(league_.NameData[team][slot])) {
      Add(FindingKind::Names, {UnitKind::Name, team, slot},
          PlayerTitle(league_, team, slot) + ": " + *problem);
    }
  }

  void CheckPlayersAlike(int team) {
    for (int slot = 2; slot <= SlotCount; ++slot) {
      const NameRec& name = league_.NameData[team][slot];
      for (int other = 1; other < slot; ++other) {
        const NameRec& before = league_.NameData[team][other];
        const auto add = [&](UnitKind kind, const std::string& what) {
          Add(FindingKind::Players, {kind, team, slot},
              PlayerTitle(league_, team, other) + " and " +
                  std::string(SlotLabel(league_.TeamData[team].Formation, slot)) +
                  " have the same " + what);
        };
        if (name.FirstName == before.FirstName && name.LastName == before.LastName) {
          add(UnitKind::Name, "name");
        }
        if (name.JerseyNumber == before.JerseyNumber) {
          add(UnitKind::Number, "number, " + Shown(name.JerseyNumber));
        }
      }
    }
  }

  void CheckDuty(int team, ColumnKind duty, UnitKind kind, const std::string& what) {
    const auto flag = ReturnerField(duty);
    const auto& players = league_.SkillData[team];
    if (std::ranges::any_of(players, [flag](const SkillRec& rec) { return rec.*flag != 0; })) {
      return;
    }
    Add(FindingKind::Duties, {kind, team}, Name(team) + ": nobody is the " + what);
  }

  void CheckColors(int team) {
    const auto check = [&](UnitKind kind, const std::string& what, const auto& colors) {
      for (int at = colors.first; at <= colors.last; ++at) {
        if (colors[at] < PaletteSize) continue;
        Add(FindingKind::Colors, {kind, team, 0, at},
            Name(team) + ": " + what + " color " + std::to_string(at) + " is " +
                std::to_string(colors[at]) + ", which is not a color");
      }
    };
    const TeamRec& rec = league_.TeamData[team];
    check(UnitKind::UniformColor, "uniform", rec.TeamColors);
    check(UnitKind::DivisionColor, "division champion", rec.DivChampColors);
    check(UnitKind::ConferenceColor, "conference champion", rec.ConfChampColors);
  }

  void CheckPlays(int team) {
    const auto& plays = league_.TeamPlays[team];
    for (int slot = plays.first; slot <= plays.last; ++slot) {
      constexpr int choices = 8;
      if (plays[slot] < choices) continue;
      Add(FindingKind::Plays, {UnitKind::Play, team, 0, slot},
          Name(team) + ": play " + std::to_string(slot) + " is " + std::to_string(plays[slot]) +
              ", which is not a play");
    }
  }

  void CheckWeek(int week) {
    const ScheduleWeek& games = league_.ScheduleData[week - 1];
    const WeekFacts facts = FactsOfWeek(games);
    const auto add = [&](const std::vector<int>& sides, const std::string& what) {
      std::vector<std::string> names;
      names.reserve(sides.size());
      for (const int side : sides) names.push_back(ScheduleTeamName(league_, side));
      if (names.empty()) return;
      Add(FindingKind::Weeks, {UnitKind::Week, 0, 0, week},
          "Week " + std::to_string(week) + ", " + what + ": " + ListText(names));
    };
    if (games.GameCount == 0) {
      return Add(FindingKind::Weeks, {UnitKind::Week, 0, 0, week},
                 "Week " + std::to_string(week) + " has no games");
    }
    add(facts.Twice, "twice");
    add(facts.AgainstItself, "against itself");
    add(facts.WithoutGame, "without a game");
  }

  /// Teams with another number of games than most have.
  void CheckSeason() {
    std::array<int, TeamCount> games{};
    for (const ScheduleWeek& week : league_.ScheduleData) {
      for (int game = 0; game < week.GameCount; ++game) {
        for (const int side : {week.Games[game].AwayTeam, week.Games[game].HomeTeam}) {
          if (side >= 0 && side < TeamCount) ++games[static_cast<std::size_t>(side)];
        }
      }
    }
    std::map<int, int> teams_by_count;
    for (const int count : games) ++teams_by_count[count];
    const int usual = std::ranges::max_element(teams_by_count, {}, [](const auto& entry) {
                        return entry.second;
                      })->first;
    for (int team = 1; team <= TeamCount; ++team) {
      const int count = games[static_cast<std::size_t>(team - 1)];
      if (count == usual) continue;
      Add(FindingKind::Season, {UnitKind::Week, 0, 0, 1},
          Name(team) + " play " + Games(count) + " in the season; most teams play " + Games(usual));
    }
  }

  void CheckAllStars() {
    for (int conference = 1; conference <= 2; ++conference) {
      const auto& roster = league_.ProbowlData[conference];
      const std::string side = conference == 1 ? "AFC" : "NFC";
      for (int slot = 1; slot <= SlotCount; ++slot) {
        const Unit where{UnitKind::AllStar, 0, slot, conference};
        const std::string place = side + " " + std::string(SlotLabels[slot]);
        const std::string text = place + ": " + ProbowlPlayer(league_, roster[slot]);
        if (!NamesPlayer(roster[slot])) {
          Add(FindingKind::AllStars, where, text);
          continue;
        }
        for (int other = 1; other < slot; ++other) {
          if (roster[other] != roster[slot]) continue;
          std::string found = text;
          found.append(" is ").append(side).append(" ").append(SlotLabels[other]);
          Add(FindingKind::AllStars, where, found.append(" already"));
        }
      }
    }
  }

  const LeagueData& league_;
  std::vector<Finding> findings_;
};

}  // namespace

std::string_view TitleOf(FindingKind kind) {
  switch (kind) {
    case FindingKind::Texts:
      return "Texts that do not fit";
    case FindingKind::Teams:
      return "Teams with the same name";
    case FindingKind::Names:
      return "Names that the next load would not give back";
    case FindingKind::Players:
      return "Players who are alike";
    case FindingKind::Duties:
      return "Returners";
    case FindingKind::Colors:
      return "Colors";
    case FindingKind::Plays:
      return "Plays";
    case FindingKind::Weeks:
      return "Weeks";
    case FindingKind::Season:
      return "Games per team";
    case FindingKind::AllStars:
      return "All-star rosters";
  }
  return {};
}

std::vector<Finding> CheckLeague(const LeagueData& league) {
  return Check(league).Run();
}

}  // namespace rostermill
