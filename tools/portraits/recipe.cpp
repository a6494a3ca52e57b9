#include "tools/portraits/recipe.h"

#include <array>
#include <numeric>
#include <span>
#include <utility>

#include "tools/portraits/art_file.h"
#include "tools/portraits/colors.h"

namespace rostermill {
namespace {

using Options = std::span<const std::uint8_t>;

// The choices that differ between the pages. An option listed more often comes up more often.
struct Page {
  Options skins;
  Options hairs;
  Options hair_colors;
  Options irises;
};

constexpr std::uint8_t light_skins[] = {0, 1, 2, 3, 4, 5};
constexpr std::uint8_t light_hairs[] = {
    Cropped,    SideParted,  CrewCut,    BuzzCut,    CoiledFade, Curly,      LongParted,
    Mulleted,   SlickedBack, Thinning,   BaldCrown,  Shaven,     Mohawked,   Spiked,
    Fringed,    JawLength,   TopKnotted, Ponytailed, Capped,     KnitCapped, CurlsInBand,
    LongInBand, WavyCrop,    Cropped,    SideParted, CrewCut,    Curly,      CurlyFade};
constexpr std::uint8_t light_hair_colors[] = {BlueBlack, SoftBlack, DarkBrown, Brown,    Chestnut,
                                              Auburn,    Ginger,    DarkBlond, Blond,    Sand,
                                              Gray,      DarkBrown, Brown,     DarkBlond};
constexpr std::uint8_t light_irises[] = {0, 1, 2, 3, 4, 5, 0, 2};

constexpr std::uint8_t dark_skins[] = {6, 7, 8, 9, 10, 11};
constexpr std::uint8_t dark_hairs[] = {
    BuzzCut,    CoiledFade, HighTopped,  AfroFull,      AfroShort,   Curly,     BaldCrown,
    Shaven,     Mohawked,   Cornrowed,   CornrowedLong, Locked,      Twisted,   TopKnotted,
    Capped,     KnitCapped, SkullCapped, CurlsInBand,   CoilsInBand, CurlyFade, CrewCut,
    CoiledFade, AfroShort,  Shaven,      Locked,        Twisted};
constexpr std::uint8_t dark_hair_colors[] = {BlueBlack, SoftBlack, BlueBlack, SoftBlack,
                                             DarkBrown, BlueBlack, SoftBlack, DarkBrown,
                                             SoftBlack, Gray,      SoftBlack, BlueBlack};
constexpr std::uint8_t dark_irises[] = {0, 1, 1, 0, 4, 1};

constexpr std::array<Page, 2> pages = {{
    {light_skins, light_hairs, light_hair_colors, light_irises},
    {dark_skins, dark_hairs, dark_hair_colors, dark_irises},
}};

// A third of the players shave, and more than half wear nothing on the face.
constexpr std::uint8_t whiskers[] = {0, 0, 0, 0, 0,  0,  0,  0,  0,  0,  1,  2,  3,  4,  5,
                                     6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20};
constexpr std::uint8_t eyes[] = {0, 1, 2, 3, 4, 5, 6, 7, 0, 1};
constexpr std::uint8_t mouths[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 1, 2, 6};
constexpr std::uint8_t extras[] = {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 2, 3, 4, 5, 6, 7};
constexpr std::uint8_t turns[] = {0, 1, 1, 2};

constexpr auto counting = [] {
  std::array<std::uint8_t, MostOfAKind + 1> numbers{};
  std::iota(numbers.begin(), numbers.end(), std::uint8_t{0});
  return numbers;
}();

Options First(std::size_t count) {
  return Options(counting).first(count);
}

// Gives the same numbers on every machine, unlike the distributions of the standard library.
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

// Shuffles the options over a page: each comes up equally often, to within one, and each seed
// gives a different order.
std::uint8_t Deal(Options options, int place, std::uint32_t seed) {
  std::array<std::uint8_t, PageSize> deck{};
  for (std::size_t i = 0; i < deck.size(); ++i) deck[i] = options[i % options.size()];
  Dice dice(seed);
  for (int i = PageSize - 1; i > 0; --i) {
    std::swap(deck[static_cast<std::size_t>(i)], deck[static_cast<std::size_t>(dice.Below(i + 1))]);
  }
  return deck[static_cast<std::size_t>(place)];
}

}  // namespace

Recipe RecipeOf(int portrait, const Parts& parts) {
  const int page_number = portrait / PageSize;
  const int place = portrait % PageSize;
  const Page& page = pages[static_cast<std::size_t>(page_number)];
  std::uint32_t seed = static_cast<std::uint32_t>(page_number) * 100;
  const auto deal = [&](Options options) { return Deal(options, place, ++seed); };

  Recipe recipe{};
  recipe.skin = deal(page.skins);
  recipe.hair = deal(page.hairs);
  recipe.hair_color = deal(page.hair_colors);
  recipe.iris = deal(page.irises);
  recipe.jaw = deal(First(Jaws().size()));
  recipe.build = deal(First(Builds().size()));
  recipe.relief = deal(First(parts.reliefs.size()));
  recipe.neck = deal(First(parts.necks.size()));
  recipe.shoulders = deal(First(parts.shoulders.size()));
  recipe.whiskers = deal(whiskers);
  recipe.brows = deal(First(parts.brows.size()));
  recipe.eyes = deal(eyes);
  recipe.nose = deal(First(parts.noses.size()));
  recipe.mouth = deal(mouths);
  recipe.extra = deal(extras);
  recipe.kit = deal(First(KitCount()));
  recipe.collar = deal(First(parts.collars.size()));
  recipe.pattern = deal(First(parts.patterns.size()));
  recipe.backdrop = deal(First(BackdropCount()));
  recipe.turn = deal(turns);
  return recipe;
}

}  // namespace rostermill
