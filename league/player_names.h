#pragma once

#include "league/league_data.h"
#include "league/oddities.h"
#include "league/open_image.h"
#include "league/yield.h"

namespace rostermill {

/// Names lie in one packed table: 841 pointers from 0x48, one a player in team and slot order and
/// one for the end, then the entries from 0x6DA: a number byte and the name, first name in lower
/// case, last name in upper case, nothing between them. A pointer is a cartridge address in the
/// bank at 0x8000; its file offset is 0x7FF0 less.

/// Bytes from 0x6DA up to the player attributes at 0x3010: the room for all entries.
inline constexpr int NameDataCapacity = 10'550;

/// Fills NameData, whose entries are empty before. A pointer pair that is out of order or leads
/// outside the image leaves its entry empty, and a text without a capital is dropped.
void ReadPlayerNames(OpenImage& image, LeagueData& league, const Yield& yield);

/// Bytes that all entries need together; each takes one more than its name has letters.
int NameBytesNeeded(const LeagueData& league);

/// Packs all entries from 0x6DA and rewrites every pointer. The caller has made sure that they
/// need no more than NameDataCapacity. The byte behind the last entry becomes 0xFF where it
/// still lies before the player attributes.
void WritePlayerNames(OpenImage& image, const LeagueData& league, const Yield& yield);

/// Entries that a load leaves empty or without their text, that lie outside the room for names,
/// or whose number isn't decimal.
void FindNameOddities(OpenImage& image, Oddities& found);

}  // namespace rostermill
