#include "tools/portraits/recipe.h"

#include <array>
#include <numeric>
#include <span>
#include <utility>

#include "tools/portraits/art_file.h"
#include "tools/portraits/colours.h"

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
constexpr std::uint8_t kLightHairs[] = {
    kCropped,    kSideParted,  kCrewCut,    kBuzzCut,    kCoiledFade, kCurly,      kLongParted,
    kMulleted,   kSlickedBack, kThinning,   kBaldCrown,  kShaven,     kMohawked,   kSpiked,
    kFringed,    kJawLength,   kTopKnotted, kPonytailed, kCapped,     kKnitCapped, kCurlsInBand,
    kLongInBand, kWavyCrop,    kCropped,    kSideParted, kCrewCut,    kCurly,      kCurlyFade};
constexpr std::uint8_t kLightHairColours[] = {
    kBlueBlack, kSoftBlack, kDarkBrown, kBrown, kChestnut,  kAuburn, kGinger,
    kDarkBlond, kBlond,     kSand,      kGrey,  kDarkBrown, kBrown,  kDarkBlond};
constexpr std::uint8_t kLightIrises[] = {0, 1, 2, 3, 4, 5, 0, 2};

constexpr std::uint8_t kDarkSkins[] = {6, 7, 8, 9, 10, 11};
constexpr std::uint8_t kDarkHairs[] = {
    kBuzzCut,    kCoiledFade, kHighTopped,  kAfroFull,      kAfroShort,   kCurly,     kBaldCrown,
    kShaven,     kMohawked,   kCornrowed,   kCornrowedLong, kLocked,      kTwisted,   kTopKnotted,
    kCapped,     kKnitCapped, kSkullCapped, kCurlsInBand,   kCoilsInBand, kCurlyFade, kCrewCut,
    kCoiledFade, kAfroShort,  kShaven,      kLocked,        kTwisted};
constexpr std::uint8_t kDarkHairColours[] = {kBlueBlack, kSoftBlack, kBlueBlack, kSoftBlack,
                                             kDarkBrown, kBlueBlack, kSoftBlack, kDarkBrown,
                                             kSoftBlack, kGrey,      kSoftBlack, kBlueBlack};
constexpr std::uint8_t kDarkIrises[] = {0, 1, 1, 0, 4, 1};

constexpr std::array<Page, 2> kPages = {{
    {kLightSkins, kLightHairs, kLightHairColours, kLightIrises},
    {kDarkSkins, kDarkHairs, kDarkHairColours, kDarkIrises},
}};

// A third of the players shave, and more than half wear nothing on the face.
constexpr std::uint8_t kWhiskers[] = {0, 0, 0, 0, 0,  0,  0,  0,  0,  0,  1,  2,  3,  4,  5,
                                      6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20};
constexpr std::uint8_t kEyes[] = {0, 1, 2, 3, 4, 5, 6, 7, 0, 1};
constexpr std::uint8_t kMouths[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 1, 2, 6};
constexpr std::uint8_t kExtras[] = {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 2, 3, 4, 5, 6, 7};
constexpr std::uint8_t kTurns[] = {0, 1, 1, 2};

constexpr auto kCounting = [] {
  std::array<std::uint8_t, kMostOfAKind + 1> numbers{};
  std::iota(numbers.begin(), numbers.end(), std::uint8_t{0});
  return numbers;
}();

Options First(std::size_t count) {
  return Options(kCounting).first(count);
}

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

Recipe RecipeOf(int portrait, const Parts& parts) {
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
  recipe.jaw = deal(First(Jaws().size()));
  recipe.build = deal(First(Builds().size()));
  recipe.relief = deal(First(parts.reliefs.size()));
  recipe.neck = deal(First(parts.necks.size()));
  recipe.shoulders = deal(First(parts.shoulders.size()));
  recipe.whiskers = deal(kWhiskers);
  recipe.brows = deal(First(parts.brows.size()));
  recipe.eyes = deal(kEyes);
  recipe.nose = deal(First(parts.noses.size()));
  recipe.mouth = deal(kMouths);
  recipe.extra = deal(kExtras);
  recipe.kit = deal(First(KitCount()));
  recipe.collar = deal(First(parts.collars.size()));
  recipe.pattern = deal(First(parts.patterns.size()));
  recipe.backdrop = deal(First(BackdropCount()));
  recipe.turn = deal(kTurns);
  return recipe;
}

}  // namespace rostermill
