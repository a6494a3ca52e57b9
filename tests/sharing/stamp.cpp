#include "tests/sharing/stamp.h"

#include "history/undo_stack.h"
#include "league/ratings.h"
#include "tests/support/damage.h"

namespace rostermill::test {
namespace {

/// No later stamp has the face of the first one, so that a merge finds a change in every team.
int StampedFace(const std::string& stamp, int team) {
  constexpr unsigned faces = 255;
  if (stamp == FirstStamp) return faces;
  unsigned mixed = static_cast<unsigned>(team);
  for (const char c : stamp) mixed = mixed * 31 + static_cast<unsigned char>(c);
  return static_cast<int>(mixed % faces);
}

}  // namespace

std::string Stamp(const std::string& name, int serial) {
  return name + std::to_string(100'000 + serial).substr(1);
}

LeagueData StampedLeague(const std::string& stamp) {
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

std::vector<std::uint8_t> StampedImage(const std::string& stamp) {
  return SavedBytes(StampedLeague(stamp));
}

std::optional<std::string> StampOf(const LeagueData& league) {
  const std::string stamp = league.NameData[1][1].LastName;
  return SameLeague(league, StampedLeague(stamp)) ? std::optional(stamp) : std::nullopt;
}

std::string StampTable(const std::string& stamp) {
  std::string table = "Team,Slot,First Name,Last Name,Face\n";
  for (int team = 1; team <= TeamCount; ++team) {
    const std::string number = std::to_string(team);
    table.append(number).append(",").append(number).append(",w,").append(stamp);
    table.append(",").append(std::to_string(StampedFace(stamp, team))).append("\n");
  }
  return table;
}

}  // namespace rostermill::test
