#include "tests/walker/ranges.h"

#include <algorithm>

namespace rostermill::test {

namespace {

bool Within(int value, int low, int high) {
  return value >= low && value <= high;
}

template <typename Rec>
bool SharedFieldsGood(const Rec& rec) {
  return Within(rec.RushingPower, 0, 15) && Within(rec.RunningSpeed, 0, 15) &&
         Within(rec.MaximumSpeed, 0, 15) && Within(rec.HittingPower, 0, 15) &&
         Within(rec.Face, 0, 255);
}

template <typename Group>
bool GroupGood(const Group& group) {
  return std::all_of(group.begin(), group.end(), [](auto& rec) { return SharedFieldsGood(rec); });
}

bool ReturnersGood(const IndexedArray<SkillRec, 1, 10>& skill) {
  int kick = 0;
  int punt = 0;
  for (const SkillRec& rec : skill) {
    if (!Within(rec.KickReturner, 0, 1) || !Within(rec.PuntReturner, 0, 1)) return false;
    kick += rec.KickReturner;
    punt += rec.PuntReturner;
  }
  return kick <= 1 && punt <= 1;
}

bool OwnFieldsGood(const LeagueData& league, int team) {
  for (const QBRec& rec : league.QBData[team]) {
    if (!Within(rec.PassingSpeed, 0, 15) || !Within(rec.PassControl, 0, 15) ||
        !Within(rec.Accuracy, 0, 15) || !Within(rec.AvoidPassBlock, 0, 15)) {
      return false;
    }
  }
  for (const SkillRec& rec : league.SkillData[team]) {
    if (!Within(rec.BallControl, 0, 15) || !Within(rec.Receptions, 0, 15)) return false;
  }
  for (const DefenseRec& rec : league.DefenseData[team]) {
    if (!Within(rec.PassInterception, 0, 15) || !Within(rec.Quickness, 0, 15)) return false;
  }
  for (const KickRec& rec : league.KickData[team]) {
    if (!Within(rec.KickingAbility, 0, 15) || !Within(rec.AvoidKickBlock, 0, 15)) return false;
  }
  return true;
}

bool PlayersGood(const LeagueData& league, int team) {
  return GroupGood(league.QBData[team]) && GroupGood(league.SkillData[team]) &&
         GroupGood(league.LineData[team]) && GroupGood(league.DefenseData[team]) &&
         GroupGood(league.KickData[team]) && OwnFieldsGood(league, team) &&
         ReturnersGood(league.SkillData[team]);
}

bool TeamGood(const LeagueData& league, int team) {
  const auto& colors = league.TeamData[team].TeamColors;
  const auto& plays = league.TeamPlays[team];
  return league.TeamData[team].Formation <= 2 &&
         std::all_of(colors.begin(), colors.end(), [](int n) { return Within(n, 0, 255); }) &&
         std::all_of(plays.begin(), plays.end(), [](int n) { return Within(n, 0, 9); });
}

bool WeekGood(const ScheduleWeek& week) {
  return week.GameCount <= GamesPerWeek &&
         std::all_of(week.Games.begin(), week.Games.end(), [](const GamePlace& game) {
           return Within(game.HomeTeam, 0, 29) && Within(game.AwayTeam, 0, 29);
         });
}

bool RostersGood(const LeagueData& league) {
  for (const auto& conference : league.ProbowlData) {
    for (const ProbowlRec& place : conference) {
      // 0 before anything has been loaded.
      if (!Within(place.Team, 0, 256) || !Within(place.Slot, 0, 256)) return false;
    }
  }
  return true;
}

}  // namespace

std::optional<std::string> OutOfRange(const LeagueSession& session) {
  const LeagueData& league = LeagueOf(session);
  for (int team = 1; team <= TeamCount; ++team) {
    if (!PlayersGood(league, team)) return "a player of team " + std::to_string(team);
    if (!TeamGood(league, team)) return "team " + std::to_string(team);
  }
  for (const ScheduleWeek& week : league.ScheduleData) {
    if (!WeekGood(week)) return "ScheduleData";
  }
  if (!RostersGood(league)) return "ProbowlData";
  if (!Within(session.CurTeam, 1, TeamCount)) return "CurTeam";
  if (!Within(session.CurSlot, 1, SlotCount)) return "CurSlot";
  if (!Within(session.ViewTeam, 1, TeamCount)) return "ViewTeam";
  if (!Within(session.SchedTeam, 1, TeamCount)) return "SchedTeam";
  if (!Within(session.PlaySlot, 0, 7)) return "PlaySlot";
  if (!Within(session.RosterConference, 1, 2)) return "RosterConference";
  if (!Within(session.ImageLoaded, 0, 1)) return "ImageLoaded";
  return std::nullopt;
}

}  // namespace rostermill::test
