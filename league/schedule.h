#pragma once

#include "league/league_data.h"
#include "league/oddities.h"
#include "league/open_image.h"

namespace rostermill {

/// The season: 17 week pointers at 0x329A7 (a pointer's file offset is 0x2A010 more), 17 game
/// counts at 0x329C9, the byte 0xFF, and the games of all weeks from 0x329DB: the visiting team's
/// number, then the host's, both counted from 0.

/// Fills ScheduleData, following the pointers wherever they lead. A count above 14 gives 14 and a
/// team number above 29 gives 0.
void ReadSchedule(OpenImage& image, LeagueData& league);

/// Writes the whole season packed from 0x329DB. 14 games in each of 17 weeks end at 0x32BB6.
/// That is the only limit, 476 bytes, and ScheduleWeek cannot exceed it.
void WriteSchedule(OpenImage& image, const LeagueData& league);

/// Week pointers out of place, counts and team numbers out of range, teams twice in a week.
/// Weeks and games are counted from 1 in the texts.
void FindScheduleOddities(OpenImage& image, const LeagueData& league, Oddities& found);

}  // namespace rostermill
