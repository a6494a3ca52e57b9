#include "exchange/other_bytes.h"

#include <algorithm>

#include "league/load_image.h"
#include "league/open_image.h"
#include "league/save_image.h"

namespace rostermill {

namespace {

/// The image with this league in it.
std::vector<std::uint8_t> BytesWith(const LeagueData& league, std::vector<std::uint8_t> bytes) {
  OpenImage image(std::move(bytes));
  WriteLeague(image, league, [] {});
  return {image.Bytes().begin(), image.Bytes().end()};
}

}  // namespace

std::size_t CountOtherBytes(const std::vector<std::uint8_t>& a,
                            const std::vector<std::uint8_t>& b) {
  // With the same league in both, any will do, only the other bytes can differ. The league of a
  // damaged image may not fit into one.
  OpenImage image(b);
  LeagueData league = ReadLeague(image);
  if (TextOverflow(league)) EmptyLeagueTexts(league);
  const auto x = BytesWith(league, a);
  const auto y = BytesWith(league, b);
  const std::size_t both = std::min(x.size(), y.size());
  std::size_t count = std::max(x.size(), y.size()) - both;
  for (std::size_t at = 0; at < both; ++at) count += x[at] != y[at] ? 1 : 0;
  return count;
}

}  // namespace rostermill
