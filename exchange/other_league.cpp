#include "exchange/other_league.h"

#include <algorithm>

#include "exchange/league_json.h"
#include "exchange/patch.h"
#include "exchange/player_import.h"
#include "league/load_image.h"
#include "league/open_image.h"
#include "league/text.h"

namespace rostermill {

namespace {

/// The first few of the errors, a line each.
template <typename Error, typename Line>
void FailWith(const std::vector<Error>& errors, const Line& line) {
  constexpr std::size_t most = 10;
  if (errors.empty()) return;
  std::string text;
  for (std::size_t at = 0; at < std::min(errors.size(), most); ++at)
    text += line(errors[at]) + "\n";
  if (errors.size() > most) text += "and " + std::to_string(errors.size() - most) + " more\n";
  text.pop_back();
  throw NoLeague(text);
}

LeagueData LeagueOfJson(std::string_view text, LeagueData league) {
  FailWith(ApplyLeagueJson(text, league), JsonErrorLine);
  return league;
}

LeagueData LeagueOfTable(std::string_view text, LeagueData league) {
  FailWith(ImportPlayers(text, {}, league), TableErrorLine);
  return league;
}

}  // namespace

LeagueData LeagueOfImage(std::vector<std::uint8_t> bytes, const LeagueData& now) {
  if (!IsImageHeader(bytes)) throw NoLeague("It is not an image of this game.");
  if (bytes.size() < OpenImage::WholeSize) throw NoLeague("The image is cut short.");
  OpenImage image(std::move(bytes));
  LeagueData league = ReadLeague(image);
  league.PaletteData = now.PaletteData;
  return league;
}

LeagueData ReadOtherLeague(const std::vector<std::uint8_t>& file,
                           const std::vector<std::uint8_t>& image, const LeagueData& now) {
  if (PatchFormatOfBytes(file)) {
    try {
      return LeagueOfImage(ApplyPatch(image, file), now);
    } catch (const PatchError& error) {
      throw NoLeague(error.what());
    }
  }
  const std::string_view text(reinterpret_cast<const char*>(file.data()), file.size());
  if (text.starts_with("NES\x1A")) return LeagueOfImage(file, now);
  const std::string_view start = TrimmedText(WithoutByteOrderMark(text).substr(0, 100));
  return start.starts_with('{') ? LeagueOfJson(text, now) : LeagueOfTable(text, now);
}

}  // namespace rostermill
