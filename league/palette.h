#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "league/league_data.h"

namespace rostermill {

using Palette = IndexedArray<PaletteRec, 0, PaletteSize - 1>;

struct RgbColor {
  std::uint8_t Red = 0;
  std::uint8_t Green = 0;
  std::uint8_t Blue = 0;
  bool operator==(const RgbColor&) const = default;
};

/// The screen color of a palette entry; empty for an index outside 0 to 63.
std::optional<RgbColor> PaletteColor(const Palette& palette, int index);

/// The name of a palette entry, UTF-8; "Unknown" and the number in hexadecimal outside 0 to 63.
std::string PaletteName(const Palette& palette, int index);

/// Path of the palette file in the program's folder.
std::string PalettePath(const std::string& app_dir);

/// Reads 64 records of name, red, green and blue from the text: fields end at a comma or a line
/// end, a name may be in double quotes and is cut at 64 characters, values are hexadecimal, 0 to
/// FF. A name that isn't UTF-8 is read as Latin-1. What follows the 64th record isn't read. Throws
/// std::system_error: no_message_available for fewer records, invalid_argument for a value that is
/// not a number, result_out_of_range for one above FF.
Palette ParsePalette(std::string_view text);

/// Reads colors.txt in the program's folder. Throws std::system_error when it can't be read, and
/// as ParsePalette does.
Palette ReadPalette(const std::string& app_dir);

}  // namespace rostermill
