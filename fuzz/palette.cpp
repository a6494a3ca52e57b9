// Any colors.txt either gives 64 colors in range or is rejected with a known error.

#include "league/palette.h"

#include <cstdint>
#include <cstdlib>
#include <system_error>

namespace {

using namespace rostermill;

void Require(bool holds) {
  if (!holds) std::abort();
}

/// A file that has to give the same palette. A name with a quotation mark in it was not in quotes.
/// The file's byte order mark is dropped, so that the first name may begin with another.
std::string TextOf(const Palette& palette) {
  std::string text = "\xEF\xBB\xBF";
  for (const PaletteRec& rec : palette) {
    const bool quoted = rec.Name.find('"') == std::string::npos;
    text += quoted ? '"' + rec.Name + '"' : rec.Name;
    for (const int value : {rec.Red, rec.Green, rec.Blue}) text += "," + HexByteText(value);
    text += "\r\n";
  }
  return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    const Palette palette = ParsePalette({reinterpret_cast<const char*>(data), size});
    for (const PaletteRec& rec : palette) {
      for (const int value : {rec.Red, rec.Green, rec.Blue}) Require(value >= 0 && value <= 0xFF);
    }
    Require(ParsePalette(TextOf(palette)) == palette);
  } catch (const std::system_error& error) {
    Require(error.code() == std::errc::no_message_available ||
            error.code() == std::errc::invalid_argument ||
            error.code() == std::errc::result_out_of_range);
  }
  return 0;
}
