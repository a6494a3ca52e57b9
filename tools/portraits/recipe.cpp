#include "tools/portraits/recipe.h"

#include <array>
#include <span>
#include <utility>

#include "tools/portraits/parts.h"

namespace rostermill {
namespace {

using Options = std::span<const std::uint8_t>;

// The choices that differ from page to page. An option that is named more often comes up more
// often.
struct Page {
  Options skins;
  Options hairs;
  Options hair_colours;
  Options irises;
};

constexpr std::uint8_t kLightSkins[] = {0, 1, 2, 3, 4, 5};
constexpr std::uint8_t kLightHairs[] = {0,  1,  2,  3,  4,  8,  9,  10, 11, 12, 13, 14, 15, 16,
                                        17, 18, 23, 24, 25, 26, 28, 29, 31, 0,  1,  2,  8,  32};
constexpr std::uint8_t kLightHairColours[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 2, 3, 7};
constexpr std::uint8_t kLightIrises[] = {0, 1, 2, 3, 4, 5, 0, 2};

constexpr std::uint8_t kDarkSkins[] = {6, 7, 8, 9, 10, 11};
constexpr std::uint8_t kDarkHairs[] = {3,  4,  5,  6,  7,  8,  13, 14, 15, 19, 20, 21, 22,
                                       23, 25, 26, 27, 28, 30, 32, 2,  4,  7,  14, 21, 22};
constexpr std::uint8_t kDarkHairColours[] = {0, 1, 0, 1, 2, 0, 1, 2, 1, 10, 1, 0};
constexpr std::uint8_t kDarkIrises[] = {0, 1, 1, 0, 4, 1};

constexpr std::array<Page, 2> kPages = {{
    {kLightSkins, kLightHairs, kLightHairColours, kLightIrises},
    {kDarkSkins, kDarkHairs, kDarkHairColours, kDarkIrises},
}};

constexpr std::uint8_t kJaws[] = {0, 1, 2, 3, 4, 5, 6, 7};
constexpr std::uint8_t kBuilds[] = {0, 1, 2, 3, 4, 5, 6};
constexpr std::uint8_t kReliefs[] = {0, 1, 2, 3, 4};
constexpr std::uint8_t kNecks[] = {0, 1, 2};
constexpr std::uint8_t kShoulders[] = {0, 1, 2};
constexpr std::uint8_t kWhiskers[] = {0, 0, 0, 0, 0,  0,  0,  0,  0,  0,  1,  2,  3,  4,  5,
                                      6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20};
constexpr std::uint8_t kBrows[] = {0, 1, 2, 3, 4, 5, 6, 7, 8};
constexpr std::uint8_t kEyes[] = {0, 1, 2, 3, 4, 5, 6, 7, 0, 1};
constexpr std::uint8_t kNoses[] = {0, 1, 2, 3, 4, 5, 6};
constexpr std::uint8_t kMouths[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 1, 2, 6};
constexpr std::uint8_t kExtras[] = {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 2, 3, 4, 5, 6, 7};
constexpr std::uint8_t kKits[] = {0,  1,  2,  3,  4,  5,  6,  7,  8,  9,
                                  10, 11, 12, 13, 14, 15, 16, 17, 18, 19};
constexpr std::uint8_t kCollars[] = {0, 1, 2, 3, 4, 5};
constexpr std::uint8_t kPatterns[] = {0, 1, 2, 3, 4, 5, 6};
constexpr std::uint8_t kBackdrops[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
constexpr std::uint8_t kTurns[] = {0, 1, 1, 2};

// Same numbers on every machine, unlike the distributions of the standard library.
class Dice {
 public:
  explicit Dice(std::uint32_t seed) : state_(seed * 2654435761u + 97u) {}

  int Below(int limit) {
    state_ = state_ * 1664525u + 1013904223u;
    return static_cast<int>((state_ >> 16) % static_cast<std::uint32_t>(limit));
  }

 private:
  std::uint32_t state_;
};

// Every option comes up as often as the others, to within one, in an order of its own.
std::uint8_t Deal(Options options, int place, std::uint32_t seed) {
  std::array<std::uint8_t, kPageSize> deck{};
  for (std::size_t i = 0; i < deck.size(); ++i) deck[i] = options[i % options.size()];
  Dice dice(seed);
  for (int i = kPageSize - 1; i > 0; --i) {
    std::swap(deck[static_cast<std::size_t>(i)], deck[static_cast<std::size_t>(dice.Below(i + 1))]);
  }
  return deck[static_cast<std::size_t>(place)];
}

}  // namespace

Recipe RecipeOf(int portrait) {
  const int page_number = portrait / kPageSize;
  const int place = portrait % kPageSize;
  const Page& page = kPages[static_cast<std::size_t>(page_number)];
  std::uint32_t seed = static_cast<std::uint32_t>(page_number) * 100;
  const auto deal = [&](Options options) { return Deal(options, place, ++seed); };

  Recipe recipe{};
  recipe.skin = deal(page.skins);
  recipe.hair = deal(page.hairs);
  recipe.hair_colour = deal(page.hair_colours);
  recipe.iris = deal(page.irises);
  recipe.jaw = deal(kJaws);
  recipe.build = deal(kBuilds);
  recipe.relief = deal(kReliefs);
  recipe.neck = deal(kNecks);
  recipe.shoulders = deal(kShoulders);
  recipe.whiskers = deal(kWhiskers);
  recipe.brows = deal(kBrows);
  recipe.eyes = deal(kEyes);
  recipe.nose = deal(kNoses);
  recipe.mouth = deal(kMouths);
  recipe.extra = deal(kExtras);
  recipe.kit = deal(kKits);
  recipe.collar = deal(kCollars);
  recipe.pattern = deal(kPatterns);
  recipe.backdrop = deal(kBackdrops);
  recipe.turn = deal(kTurns);
  return recipe;
}

}  // namespace rostermill
