#pragma once

#include "league/league_data.h"
#include "league/oddities.h"
#include "league/open_image.h"

namespace rostermill {

/// Default playbooks: 4 bytes per team from 0x1D310, two slots per byte, the lower-numbered slot in
/// the high nibble.

/// Fills TeamPlays. A nibble above 9 is read as 0; 8 and 9 are kept although they name no play.
void ReadPlaybooks(OpenImage& image, LeagueData& league);
void WritePlaybooks(OpenImage& image, const LeagueData& league);

/// Choices above 7, which name no play.
void FindPlaybookOddities(OpenImage& image, Oddities& found);

}  // namespace rostermill
