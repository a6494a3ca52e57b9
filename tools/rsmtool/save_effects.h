#pragma once

#include <string>
#include <vector>

#include "league/league_data.h"
#include "league/open_image.h"

namespace rostermill {

/// What a save of `league` over `image` changes by itself, in UTF-8 lines with their line ends:
/// values that the image can't hold as they are, the formation code of a stock image, oddities that
/// are put in order, and how many bytes of a section are rewritten. `before` is what ReadLeague
/// gave for the image; how the two leagues differ is not repeated. The texts of `league` must fit
/// the image.
std::vector<std::string> FindSaveEffects(const OpenImage& image, const LeagueData& before,
                                         const LeagueData& league);

}  // namespace rostermill
