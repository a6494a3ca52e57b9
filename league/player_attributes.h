#pragma once

#include "league/league_data.h"
#include "league/oddities.h"
#include "league/open_image.h"
#include "league/yield.h"

namespace rostermill {

/// Ratings and photo numbers lie in 28 blocks of 117 bytes from 0x3010, one a team, players in
/// slot order; the starting returners in a byte a team at 0x239D3, with a copy at 0x328D3.

/// Fills the five player tables and the returner flags. A returner nibble that names none of the
/// ten skill players sets no flag.
void ReadPlayerAttributes(OpenImage& image, LeagueData& league, const Yield& yield);

/// Writes the attribute blocks and the filler 0xFF behind them.
void WritePlayerAttributes(OpenImage& image, const LeagueData& league, const Yield& yield);

/// Writes both copies of the returner table. A team without a flagged returner gets "RB 1".
void WriteReturners(OpenImage& image, const LeagueData& league);

/// Teams whose returner nibble names no skill player, or whose two returner bytes differ.
void FindReturnerOddities(OpenImage& image, Oddities& found);

}  // namespace rostermill
