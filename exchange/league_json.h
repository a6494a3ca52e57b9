#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "league/league_data.h"

namespace rostermill {

/// The league as JSON in UTF-8: all of it except PaletteData, which isn't part of an image, and the
/// unused places of a week past its GameCount. Teams and players carry their numbers, counted from
/// 1, under "index" and "slot"; weeks, all-star places, colors and plays go by position. As in
/// LeagueData, the teams of a game are counted from 0 and ratings are codes.

enum class JsonLayout {
  Indented,  ///< one value a line
  Compact    ///< one line
};

/// Ends with a line end.
std::string WriteLeagueJson(const LeagueData& league, JsonLayout layout = JsonLayout::Indented);

struct JsonError {
  std::string Path;  ///< "teams[3].players[0].face", counted from 0; empty for the whole text
  std::string Text;  ///< "must be 0 to 255"
  bool operator==(const JsonError&) const = default;
};

/// "teams[3].players[0].face: must be 0 to 255"; ASCII without control characters.
std::string JsonErrorLine(const JsonError& error);

/// A longer text is refused unread. Whatever bytes an image holds, its JSON is shorter.
inline constexpr std::size_t LargestLeagueJson = std::size_t{384} << 20;

/// Changes the league to what the text gives; whatever is missing or null stays as it is. The JSON
/// of one league, applied to any other, makes it equal except for PaletteData and unused places. A
/// week that is given is replaced as a whole. A returner duty set to true passes from its holder.
/// Texts keep their case; the roster year, league texts and abbreviations are padded with blanks to
/// their length. Whether the names and team texts fit an image is up to TextOverflow.
///
/// Returns every error, in which case the league is unchanged: malformed JSON or UTF-8, a size no
/// league has, a key that is unknown or appears twice, a team or player that appears twice, a value
/// of the wrong type or out of range, a character outside Latin-1.
std::vector<JsonError> ApplyLeagueJson(std::string_view text, LeagueData& league);

}  // namespace rostermill
