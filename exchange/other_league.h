#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include "league/league_data.h"

namespace rostermill {

/// A file that gives no league; what() is one sentence for the user, UTF-8, or several.
class NoLeague : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// The league that a file of any kind gives: an image; a patch, applied to `image`, the bytes of
/// the image in use; or JSON or a table of players, which change the league `now`. The kind is told
/// by the first bytes. Throws NoLeague.
LeagueData ReadOtherLeague(const std::vector<std::uint8_t>& file,
                           const std::vector<std::uint8_t>& image, const LeagueData& now);

/// The league of an image's bytes, with the palette in use. Throws NoLeague.
LeagueData LeagueOfImage(std::vector<std::uint8_t> bytes, const LeagueData& now);

}  // namespace rostermill
