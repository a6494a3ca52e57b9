#pragma once

#include "league/league_data.h"
#include "league/oddities.h"
#include "league/open_image.h"
#include "league/yield.h"

namespace rostermill {

/// Cities and nicknames are packed text reached through 88 pointers at 0x1FC50; a pointer's file
/// offset is 0x14010 more. Abbreviations have fixed slots of 4 bytes at 0x1FD00. The stock
/// cartridge has no formation per team: a save adds two pieces of machine code, each of which reads
/// it from a table of its own, at 0x21FE0 and 0x31E80.

/// Bytes from 0x1FD7C to the end of the bank at 0x2000F: the space for cities, two blanks,
/// nicknames and the fixed texts that follow them.
inline constexpr int TeamTextCapacity = 660;
/// The exact number of characters of a team's abbreviation.
inline constexpr int AbbreviationLength = 4;
/// The word at 0x21642 of an image that has never been saved (LDY #2), and of one that has the
/// formation code.
inline constexpr int StockFormationMark = 0x02A0;
inline constexpr int PatchedFormationMark = 0xA68A;

/// The word at 0x21642.
int FormationMark(OpenImage& image);

/// Fills city, nickname, abbreviation and formation of all teams, whose texts must be empty and
/// whose formations must be 0. Pointers out of order give an empty text; a formation above 2 or an
/// unknown mark gives 0.
void ReadTeamData(OpenImage& image, LeagueData& league, const Yield& yield);

/// Bytes of TeamTextCapacity that the texts need.
int TeamTextBytesNeeded(const LeagueData& league);

/// Repacks the team texts and rewrites their pointers and the abbreviations, which are padded or
/// cut to 4 characters. The caller has made sure that the texts fit.
void WriteTeamText(OpenImage& image, const LeagueData& league, const Yield& yield);

/// Writes the formation code and both formation tables, whatever the image has there.
void WriteFormations(OpenImage& image, const LeagueData& league);

/// Text pointers out of place, empty texts, and formation marks, code and bytes that a load does
/// not understand.
void FindTeamDataOddities(OpenImage& image, Oddities& found);

}  // namespace rostermill
