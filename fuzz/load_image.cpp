// Any bytes behind a good header load; what fits is saved and loads again to the same league.

#include "league/load_image.h"

#include <cstdint>
#include <cstdlib>
#include <vector>

#include "league/save_image.h"

namespace {

using namespace rostermill;

/// What a save changes by design: letters take the case of their place.
void FoldNames(LeagueData& league) {
  for (auto& team : league.NameData) {
    for (NameRec& name : team) {
      name.LastName = UpperText(name.LastName);
      if (name.JerseyNumber.empty()) name.JerseyNumber = "00";
    }
  }
  for (TeamRec& team : league.TeamData) {
    team.City = UpperText(team.City);
    team.Nickname = UpperText(team.Nickname);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::vector<std::uint8_t> bytes(data, data + size);
  bytes.resize(OpenImage::WholeSize);
  OpenImage image(std::move(bytes));
  LeagueData first = ReadLeague(image);
  if (TextOverflow(first)) return 0;
  WriteLeague(image, first, [] {});
  const LeagueData second = ReadLeague(image);
  FoldNames(first);
  // Flags that a load can't set for want of a valid nibble are set by the save.
  first.SkillData = second.SkillData;
  if (!(first == second)) std::abort();
  return 0;
}
