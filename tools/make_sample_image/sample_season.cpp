#include <array>
#include <vector>

#include "tools/make_sample_image/sample_league.h"

namespace rostermill {

namespace {

/// A round robin of 27 rounds, in which team 27 keeps its place and the others rotate around it.
constexpr int moving = TeamCount - 1;

/// The round in which two teams meet, where `low` is less than `high`.
int RoundOf(int low, int high) {
  constexpr int half = (moving + 1) / 2;  // halves a sum modulo 27
  return high == moving ? low : (low + high) * half % moving;
}

int OpponentIn(int round, int team) {
  if (team == moving) return round;
  return team == round ? moving : (2 * round - team + moving) % moving;
}

/// For each round, the lower of the two teams that rest instead of playing each other; -1 for none.
using Rests = std::array<int, moving>;

/// Pairs all teams so that no two pairs meet in the same round; every team then rests once.
bool PairRests(int team, std::array<bool, TeamCount>& paired, Rests& rests) {
  while (team < TeamCount && paired[static_cast<std::size_t>(team)]) ++team;
  if (team == TeamCount) return true;
  for (int other = team + 1; other < TeamCount; ++other) {
    int& rest = rests[static_cast<std::size_t>(RoundOf(team, other))];
    if (paired[static_cast<std::size_t>(other)] || rest >= 0) continue;
    paired[static_cast<std::size_t>(team)] = paired[static_cast<std::size_t>(other)] = true;
    rest = team;
    if (PairRests(team + 1, paired, rests)) return true;
    paired[static_cast<std::size_t>(team)] = paired[static_cast<std::size_t>(other)] = false;
    rest = -1;
  }
  return false;
}

/// The rounds in the order of the weeks: two without rests, those with rests, and one without.
std::vector<int> RoundsOfSeason(const Rests& rests) {
  std::vector<int> full;
  std::vector<int> season;
  for (int round = 0; round < moving; ++round) {
    (rests[static_cast<std::size_t>(round)] < 0 ? full : season).push_back(round);
  }
  season.insert(season.begin(), full.begin(), full.begin() + 2);
  season.push_back(full[2]);
  return season;
}

}  // namespace

void FillSeason(LeagueData& league) {
  std::array<bool, TeamCount> paired{};
  Rests rests;
  rests.fill(-1);
  PairRests(0, paired, rests);
  std::array<int, TeamCount> home_games{};
  int w = 0;
  for (const int round : RoundsOfSeason(rests)) {
    const int resting = rests[static_cast<std::size_t>(round)];
    ScheduleWeek& week = league.ScheduleData[w++];
    for (int team = 0; team < TeamCount; ++team) {
      const int other = OpponentIn(round, team);
      if (other < team || team == resting) continue;
      int& own = home_games[static_cast<std::size_t>(team)];
      int& theirs = home_games[static_cast<std::size_t>(other)];
      const bool at_home = own == theirs ? round % 2 == 0 : own < theirs;
      ++(at_home ? own : theirs);
      week.Games[week.GameCount++] = {static_cast<std::int16_t>(at_home ? team : other),
                                      static_cast<std::int16_t>(at_home ? other : team)};
    }
  }
}

}  // namespace rostermill
