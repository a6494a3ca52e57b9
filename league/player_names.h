#pragma once

#include "league/league_data.h"
#include "league/oddities.h"
#include "league/open_image.h"
#include "league/yield.h"

namespace rostermill {

/// Names are one packed table: 841 pointers from 0x48, one per player in team and slot order and
/// one for the end, then the entries from 0x6DA: a number byte and the name, first name in lower
/// case, last name in upper case, without a separator. A pointer is a cartridge address in the bank
/// at 0x8000; its file offset is 0x7FF0 less.

/// Bytes from 0x6DA up to the player attributes at 0x3010: the space for all entries.
inline constexpr int NameDataCapacity = 10'550;

/// Fills NameData, whose entries must be empty. A pointer pair that is out of order or points
/// outside the image leaves its entry empty, and a text without a capital letter is dropped.
void ReadPlayerNames(OpenImage& image, LeagueData& league, const Yield& yield);

/// Bytes that all entries need together; each takes one byte more than its name has letters.
int NameBytesNeeded(const LeagueData& league);

/// Packs all entries from 0x6DA and rewrites every pointer. The caller has made sure that they
/// need no more than NameDataCapacity. The byte after the last entry becomes 0xFF unless it already
/// belongs to the player attributes.
void WritePlayerNames(OpenImage& image, const LeagueData& league, const Yield& yield);

/// Entries that a load leaves empty or without their text, that are outside the space for names, or
/// whose number is not decimal.
void FindNameOddities(OpenImage& image, Oddities& found);

}  // namespace rostermill
