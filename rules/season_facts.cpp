#include "rules/season_facts.h"

#include <algorithm>
#include <array>

#include "rules/display_text.h"

namespace rostermill {

namespace {

constexpr int side_count = TeamCount + 2;
constexpr std::size_t column_width = 3;

/// The league's texts of the two all-star sides are its second and third.
const std::string& AllStarText(const LeagueData& league, int side) {
  return league.LeagueText[side - TeamCount + 2].str();
}

bool IsTeam(int side) {
  return side >= 0 && side < TeamCount;
}

std::string Column(int number) {
  const std::string digits = std::to_string(number);
  return std::string(column_width - std::min(column_width, digits.size()), ' ') + digits;
}

}  // namespace

std::string SideAbbreviation(const LeagueData& league, int side) {
  if (IsTeam(side)) return league.TeamData[side + 1].Abbreviation;
  return IsAllStarSide(side) ? AllStarText(league, side) : std::string();
}

std::string SideName(const LeagueData& league, int side) {
  if (IsTeam(side)) return TeamListText(league, side + 1);
  return IsAllStarSide(side) ? AllStarText(league, side) : std::string();
}

WeekFacts FactsOfWeek(const ScheduleWeek& week) {
  std::array<int, side_count> games{};
  std::array<bool, side_count> itself{};
  for (int game = 0; game < week.GameCount; ++game) {
    const GamePlace& place = week.Games[game];
    const bool against_itself = place.AwayTeam == place.HomeTeam;
    const auto count = [&](int side) {
      if (side < 0 || side >= side_count) return;
      ++games[static_cast<std::size_t>(side)];
      if (against_itself) itself[static_cast<std::size_t>(side)] = true;
    };
    count(place.AwayTeam);
    if (!against_itself) count(place.HomeTeam);
  }
  WeekFacts facts;
  for (int side = 0; side < side_count; ++side) {
    const auto place = static_cast<std::size_t>(side);
    if (games[place] > 1) facts.Twice.push_back(side);
    if (itself[place]) facts.AgainstItself.push_back(side);
    if (games[place] == 0 && IsTeam(side)) facts.WithoutGame.push_back(side);
  }
  return facts;
}

int GamesOfSeason(const Season& season) {
  int games = 0;
  for (const ScheduleWeek& week : season) games += week.GameCount;
  return games;
}

std::string SideList(const LeagueData& league, const std::vector<int>& sides) {
  std::string list;
  for (const int side : sides) {
    if (!list.empty()) list += ", ";
    list += SideAbbreviation(league, side);
  }
  return sides.empty() ? "none" : list;
}

std::string WeekColumns() {
  std::string columns;
  for (int week = 1; week <= WeekCount; ++week) columns += Column(week);
  return columns + "  all";
}

std::string GamesByWeek(const Season& season) {
  std::string columns;
  for (const ScheduleWeek& week : season) columns += Column(week.GameCount);
  return columns + "  " + Column(GamesOfSeason(season));
}

}  // namespace rostermill
