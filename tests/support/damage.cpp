#include "tests/support/damage.h"

#include "league/save_image.h"

namespace rostermill::test {

std::vector<int> DifferingOffsets(const std::vector<std::uint8_t>& a,
                                  const std::vector<std::uint8_t>& b) {
  std::vector<int> offsets;
  for (std::size_t at = 0; at < std::max(a.size(), b.size()); ++at) {
    if (at >= a.size() || at >= b.size() || a[at] != b[at]) {
      offsets.push_back(static_cast<int>(at));
    }
  }
  return offsets;
}

LeagueData LeagueOfChanged(const std::function<void(std::vector<std::uint8_t>&)>& change) {
  std::vector<std::uint8_t> bytes = SampleBytes();
  change(bytes);
  OpenImage image(std::move(bytes));
  return ReadLeague(image);
}

std::vector<std::uint8_t> SavedBytes(const LeagueData& league) {
  OpenImage image(SampleBytes());
  WriteLeague(image, league, [] {});
  return {image.Bytes().begin(), image.Bytes().end()};
}

LeagueData SampleLeague() {
  return LeagueOfChanged([](auto&) {});
}

}  // namespace rostermill::test
