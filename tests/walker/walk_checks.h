#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "league/league_session.h"
#include "league/save_image.h"
#include "tests/support/round_trip.h"
#include "tests/support/sample.h"

namespace rostermill::test {

/// Throws if the screens have left a value that should never occur.
inline void CheckValues(const LeagueSession& session) {
  const auto expect = [](int value, int low, int high, const std::string& what) {
    if (value < low || value > high) throw std::runtime_error("out of range: " + what);
  };
  expect(session.CurTeam, 1, TeamCount, "CurTeam");
  expect(session.CurSlot, 1, SlotCount, "CurSlot");
  expect(session.ViewTeam, 1, TeamCount, "ViewTeam");
  expect(session.SchedTeam, 1, TeamCount, "SchedTeam");
  expect(session.PlaySlot, 0, 7, "PlaySlot");
  expect(session.RosterConference, 1, 2, "RosterConference");
  for (const ScheduleWeek& week : session.League().ScheduleData) {
    for (const GamePlace& game : week.Games) {
      for (const int team : {game.HomeTeam, game.AwayTeam}) expect(team, 0, 29, "a game's team");
    }
  }
}

/// Throws if the league, but for its players' names, would not come back from a save.
inline void CheckSave(LeagueData league) {
  league.NameData = {};  // an editor's number has one digit, and a save changes letters' case
  for (ScheduleWeek& week : league.ScheduleData) {
    for (int stale = week.GameCount; stale < GamesPerWeek; ++stale) week.Games[stale] = {};
  }
  static const std::vector<std::uint8_t> image = SampleBytes();
  if (TextOverflow(league)) return;
  if (const auto fault = SaveFault(image, league)) throw std::runtime_error(*fault);
}

}  // namespace rostermill::test
