#include <set>
#include <utility>
#include <vector>

#include "tools/make_sample_image/sample_league.h"

namespace rostermill {

namespace {

using Round = std::vector<GamePlace>;

/// Round `round` of a tournament in which everybody meets everybody once: team 27 stands still and
/// the others move round it.
Round TournamentRound(int round) {
  constexpr int moving = TeamCount - 1;
  Round games;
  const auto add = [&](int a, int b) {
    const bool swap = (round + a) % 2 == 0;
    games.push_back(
        {static_cast<std::int16_t>(swap ? b : a), static_cast<std::int16_t>(swap ? a : b)});
  };
  add(moving, round % moving);
  for (int step = 1; step < TeamCount / 2; ++step) {
    add((round + step) % moving, (round - step + moving) % moving);
  }
  return games;
}

/// Takes one game out of each of 14 weeks so that every team rests exactly once; false where no
/// choice from `week` on works.
bool ChooseRests(const std::vector<Round>& weeks, std::size_t week, std::set<int>& rested,
                 std::vector<int>& chosen) {
  if (week == chosen.size()) return true;
  for (std::size_t game = 0; game < weeks[week].size(); ++game) {
    const GamePlace& place = weeks[week][game];
    if (rested.count(place.HomeTeam) != 0 || rested.count(place.AwayTeam) != 0) continue;
    rested.insert(place.HomeTeam);
    rested.insert(place.AwayTeam);
    chosen[week] = static_cast<int>(game);
    if (ChooseRests(weeks, week + 1, rested, chosen)) return true;
    rested.erase(place.HomeTeam);
    rested.erase(place.AwayTeam);
  }
  return false;
}

}  // namespace

void FillSeason(LeagueData& league) {
  // Rests lie in weeks 3 to 16, so that the season opens and closes with everybody playing.
  constexpr int first_rest_week = 2;
  constexpr int rest_weeks = TeamCount / 2;
  std::vector<Round> weeks;
  for (int w = 0; w < WeekCount; ++w) weeks.push_back(TournamentRound(w));
  const std::vector<Round> with_rests(weeks.begin() + first_rest_week,
                                      weeks.begin() + first_rest_week + rest_weeks);
  std::set<int> rested;
  std::vector<int> chosen(rest_weeks);
  if (ChooseRests(with_rests, 0, rested, chosen)) {
    for (int w = 0; w < rest_weeks; ++w) {
      Round& games = weeks[static_cast<std::size_t>(first_rest_week + w)];
      games.erase(games.begin() + chosen[static_cast<std::size_t>(w)]);
    }
  }
  for (int w = 0; w < WeekCount; ++w) {
    const Round& games = weeks[static_cast<std::size_t>(w)];
    ScheduleWeek& week = league.ScheduleData[w];
    week.GameCount = static_cast<std::uint8_t>(games.size());
    for (int game = 0; game < week.GameCount; ++game) {
      week.Games[game] = games[static_cast<std::size_t>(game)];
    }
  }
}

}  // namespace rostermill
