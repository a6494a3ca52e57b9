#pragma once

#include "league/league_data.h"
#include "league/oddities.h"
#include "league/open_image.h"

namespace rostermill {

/// Jersey colours lie in rows of 10 bytes from 0x2C2E4, team 11 apart at 0x2C410; a second table
/// of rows of 8 bytes from 0x342D8 is written and never read. The champion colours follow at
/// 0x343E8 (division, 5 a team) and 0x34494 (conference, 4 a team).

/// Fills the colours of all teams. A byte above 63 has no palette entry and is kept as it is.
void ReadTeamColors(OpenImage& image, LeagueData& league);

/// Writes all four tables; the rest of each row keeps its bytes.
void WriteTeamColors(OpenImage& image, const LeagueData& league);

/// Colours that the palette doesn't have.
void FindColorOddities(const LeagueData& league, Oddities& found);

}  // namespace rostermill
