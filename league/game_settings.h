#pragma once

#include "league/league_data.h"
#include "league/oddities.h"
#include "league/open_image.h"

namespace rostermill {

/// The image holds the roster year and the three league texts in many places, and the year also as
/// big digits of four tiles each from 0x16DA6. One place of each is read; all are written.

/// Reads the year at 0x0C129 and the league texts at 0x0E1FA, 0x0E1FF and 0x0E204.
void ReadGameSettings(OpenImage& image, LeagueData& league);

/// Writes all places and redraws the year's tiles; a character that is not a digit is
/// drawn as 0.
void WriteGameSettings(OpenImage& image, const LeagueData& league);

/// A roster year that isn't four digits.
void FindYearOddities(const LeagueData& league, Oddities& found);

}  // namespace rostermill
