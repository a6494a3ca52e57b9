#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "league/league_data.h"
#include "league/open_image.h"

namespace rostermill {

/// One thing in an image that a load skips, reads as something else or cannot name, or that a save
/// would refuse.
struct Oddity {
  std::string_view Section;  ///< "names", "team texts", "schedule"
  int Team = 0;              ///< 1 to 28; 0 if it is not about one team
  int Slot = 0;              ///< 1 to 30; 0 if it is not about one player
  std::string Text;
};

using Oddities = std::vector<Oddity>;

/// Everything odd in a whole image, section by section; empty for a clean one. `league` is the
/// result of ReadLeague for it.
Oddities FindOddities(OpenImage& image, const LeagueData& league);

/// A file offset or word as messages show it: "0x6DA".
std::string HexText(int value);

}  // namespace rostermill
