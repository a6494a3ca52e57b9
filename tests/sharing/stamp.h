#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "history/undo_stack.h"
#include "league/ratings.h"
#include "tests/support/damage.h"

namespace rostermill::test {

// What the writers save are states of the sample league that differ in a stamp only, "A0200017":
// the name of the writer's process and a serial. Every team has a player of that name, with a face
// that depends on it. So all of an image is known from its stamp, and one that is mixed of two
// states is none.

/// The state that nobody has saved: the first.
inline const std::string FirstStamp = "Z0000000";

inline std::string Stamp(const std::string& name, int serial) {
  return name + std::to_string(100'000 + serial).substr(1);
}

/// No later stamp has the face of the first one, so that a merge finds a change in every team.
inline int StampedFace(const std::string& stamp, int team) {
  constexpr unsigned faces = 255;
  if (stamp == FirstStamp) return faces;
  unsigned mixed = static_cast<unsigned>(team);
  for (const char c : stamp) mixed = mixed * 31 + static_cast<unsigned char>(c);
  return static_cast<int>(mixed % faces);
}

inline LeagueData StampedLeague(const std::string& stamp) {
  static const LeagueData sample = SampleLeague();
  LeagueData league = sample;
  for (int team = 1; team <= TeamCount; ++team) {
    // A slot by team: all groups of players have some.
    league.NameData[team][team].FirstName = "w";
    league.NameData[team][team].LastName = stamp;
    SetFace(league, team, team, StampedFace(stamp, team));
  }
  return league;
}

/// The bytes of the image that a save of that league makes of any other.
inline std::vector<std::uint8_t> StampedImage(const std::string& stamp) {
  return SavedBytes(StampedLeague(stamp));
}

/// The stamp of the league; empty where any value isn't that of the stamped league.
inline std::optional<std::string> StampOf(const LeagueData& league) {
  const std::string stamp = league.NameData[1][1].LastName;
  return SameLeague(league, StampedLeague(stamp)) ? std::optional(stamp) : std::nullopt;
}

/// The table for rsmtool that gives a league this stamp.
inline std::string StampTable(const std::string& stamp) {
  std::string table = "Team,Slot,First Name,Last Name,Face\n";
  for (int team = 1; team <= TeamCount; ++team) {
    const std::string number = std::to_string(team);
    table.append(number).append(",").append(number).append(",w,").append(stamp);
    table.append(",").append(std::to_string(StampedFace(stamp, team))).append("\n");
  }
  return table;
}

}  // namespace rostermill::test
