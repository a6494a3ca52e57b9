#include "tests/sharing/stamp.h"

#include <cstdio>

#include "history/undo_stack.h"
#include "league/ratings.h"
#include "league/save_image.h"
#include "tests/support/damage.h"
#include "tests/support/sample.h"

namespace rostermill::test {

namespace {

/// The stamped player of a team; all groups of players have some.
int StampedSlot(int team) {
  return team;
}

/// No later stamp has the face of the first one, so that a merge finds a change in every team.
int StampedFace(const std::string& stamp, int team) {
  constexpr unsigned faces = 255;
  if (stamp == FirstStamp) return faces;
  unsigned mixed = static_cast<unsigned>(team);
  for (const char c : stamp) mixed = mixed * 31 + static_cast<unsigned char>(c);
  return static_cast<int>(mixed % faces);
}

}  // namespace

std::string Stamp(char writer, int start, int serial) {
  char text[32];
  std::snprintf(text, sizeof text, "%c%02d%05d", writer, start, serial);
  return text;
}

LeagueData StampedLeague(const std::string& stamp) {
  static const LeagueData sample = SampleLeague();
  LeagueData league = sample;
  for (int team = 1; team <= TeamCount; ++team) {
    NameRec& name = league.NameData[team][StampedSlot(team)];
    name.FirstName = "w";
    name.LastName = stamp;
    SetFace(league, team, StampedSlot(team), StampedFace(stamp, team));
  }
  return league;
}

std::vector<std::uint8_t> StampedImage(const std::string& stamp) {
  static const std::vector<std::uint8_t> sample = SampleBytes();
  OpenImage image(sample);
  WriteLeague(image, StampedLeague(stamp), [] {});
  return {image.Bytes().begin(), image.Bytes().end()};
}

std::optional<std::string> StampOf(const LeagueData& league) {
  const std::string stamp = league.NameData[1][StampedSlot(1)].LastName;
  LeagueData expected = StampedLeague(stamp);
  expected.PaletteData = league.PaletteData;
  return SameLeague(league, expected) ? std::optional(stamp) : std::nullopt;
}

std::string StampTable(const std::string& stamp) {
  std::string table = "Team,Slot,First Name,Last Name,Face\n";
  for (int team = 1; team <= TeamCount; ++team) {
    table += std::to_string(team) + "," + std::to_string(StampedSlot(team)) + ",w," + stamp + "," +
             std::to_string(StampedFace(stamp, team)) + "\n";
  }
  return table;
}

}  // namespace rostermill::test
