#pragma once

#include "league/league_data.h"
#include "league/oddities.h"
#include "league/open_image.h"

namespace rostermill {

/// Jersey colors are rows of 10 bytes from 0x2C2E4, except team 11's row, which is at 0x2C410; a
/// second table of rows of 8 bytes from 0x342D8 is written and never read. The champion colors
/// follow at 0x343E8 (division, 5 per team) and 0x34494 (conference, 4 per team).

/// Fills the colors of all teams. A byte above 63 has no palette entry and is kept as it is.
void ReadTeamColors(OpenImage& image, LeagueData& league);

/// Writes all four tables; the rest of each row keeps its bytes.
void WriteTeamColors(OpenImage& image, const LeagueData& league);

/// Colors that the palette does not have.
void FindColorOddities(const LeagueData& league, Oddities& found);

}  // namespace rostermill
