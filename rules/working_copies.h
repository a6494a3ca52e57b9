#pragma once

#include <string>

#include "league/league_session.h"

namespace rostermill {

/// The space left in the image for the texts of all teams, counted with the city and nickname
/// that are pending for the team on view; negative if they do not fit.
int TeamTextBytesFree(const LeagueSession& session);
/// "Team texts: 37 bytes free"; "Team texts: 5 bytes too many" for -5.
std::string TeamTextRoom(int bytes_free);

/// Copies the colors, texts and plays of the team on view into the working copies.
void FillWorkingCopies(LeagueSession& session);
/// Stores the working copies in the team on view, in this league: texts in upper case, the
/// abbreviation padded to 4 characters.
void StoreWorkingCopies(LeagueSession& session, LeagueData& league);

/// The working copy of a jersey color: slots 0 and 1 are colors 1 and 3 of the first uniform,
/// 2 and 3 those of the second. Throws std::out_of_range for any other slot.
std::int16_t& JerseyColor(LeagueSession& session, int color_slot);

}  // namespace rostermill
