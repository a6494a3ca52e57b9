#include "tests/support/damage.h"

#include <algorithm>

#include "league/save_image.h"
#include "tests/support/random_league.h"

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

std::vector<std::uint8_t> DamagedImage(std::mt19937& random, unsigned most) {
  std::vector<std::uint8_t> image = SampleBytes();
  const std::vector<int> sections = DifferingOffsets(image, SavedBytes(RandomLeague(random)));
  for (auto hits = 1 + random() % most; hits > 0; --hits) {
    image[static_cast<std::size_t>(sections[random() % sections.size()])] =
        static_cast<std::uint8_t>(random());
  }
  return image;
}

std::vector<std::uint8_t> OddImage(std::mt19937& random) {
  std::vector<std::uint8_t> image = SampleBytes();
  const auto below = [&](std::size_t end) { return random() % end; };
  switch (const auto kind = below(10)) {
    case 0:
      std::generate(image.begin() + 16, image.end(), std::ref(random));
      break;
    case 1:
      image.resize(below(400'000), 0x41);
      break;
    case 2:
      image[below(16)] ^= 0x11;
      break;
    default:
      return kind > 6 ? image : DamagedImage(random, 40);
  }
  return image;
}

}  // namespace rostermill::test
