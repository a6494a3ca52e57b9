#include "tools/portraits/parts.h"

#include <iterator>
#include <string_view>

#include "tools/portraits/art_file.h"

namespace rostermill {
namespace {

constexpr Jaw jaws[] = {
    {8, 8, 8, 8, 8, 7, 7, 7, 6, 5, 4},  // oval
    {8, 8, 8, 8, 8, 8, 8, 8, 7, 7, 5},  // square
    {8, 8, 8, 8, 8, 8, 8, 7, 7, 6, 4},  // round
    {8, 8, 8, 8, 7, 7, 7, 6, 6, 5, 4},  // tapered
    {8, 8, 8, 8, 7, 7, 7, 7, 6, 6, 5},  // lean and square
    {8, 8, 8, 8, 8, 7, 7, 7, 7, 7, 6},  // strong chin
    {8, 8, 8, 8, 8, 8, 8, 8, 8, 7, 6},  // heavy
    {8, 8, 8, 8, 7, 7, 6, 6, 5, 5, 3},  // pointed
};

constexpr Build builds[] = {
    {0, 0, 0}, {1, 0, 0}, {0, 0, 1}, {-1, 0, 0}, {0, 1, 0}, {1, 0, 1}, {-1, 0, 1},
};

// Names of drawings in the art files; an empty name means none.

struct ExtraNames {
  std::string_view mark, worn;
};

constexpr ExtraNames extras[] = {
    {"", ""},         {"eye-black", ""},  {"long-eye-black", ""}, {"scar", ""},
    {"freckles", ""}, {"", "nose-strip"}, {"", "round-glasses"},  {"", "square-glasses"},
};

struct HairNames {
  Texture texture;
  bool hides_temples;
  std::string_view behind, front;
};

constexpr HairNames hair_styles[] = {
    {Texture::Straight, false, "", "crop"},
    {Texture::Straight, false, "", "side-part"},
    {Texture::Straight, false, "", "crew"},
    {Texture::Straight, false, "", "buzz"},
    {Texture::Coils, false, "", "fade"},
    {Texture::Coils, false, "", "high-top"},
    {Texture::Coils, true, "", "afro"},
    {Texture::Coils, false, "", "short-afro"},
    {Texture::Curls, false, "", "curls"},
    {Texture::Strands, true, "long-back", "center-part"},
    {Texture::Waves, false, "mullet-back", "mullet"},
    {Texture::Straight, false, "", "slick-back"},
    {Texture::Straight, false, "", "receding"},
    {Texture::Straight, false, "", "bald-sides"},
    {Texture::Straight, false, "", ""},
    {Texture::Strands, false, "", "mohawk"},
    {Texture::Straight, false, "", "spikes"},
    {Texture::Strands, true, "", "fringe"},
    {Texture::Waves, true, "", "waves-to-jaw"},
    {Texture::Straight, false, "", "cornrows"},
    {Texture::Straight, false, "cornrow-tails", "cornrows"},
    {Texture::Strands, true, "locks-back", "locks"},
    {Texture::Curls, false, "", "twists"},
    {Texture::Straight, false, "", "top-knot"},
    {Texture::Strands, false, "ponytail", "slick-back"},
    {Texture::Straight, false, "", "cap"},
    {Texture::Straight, false, "", "knit-cap"},
    {Texture::Straight, false, "", "skull-cap"},
    {Texture::Curls, false, "", "banded-curls"},
    {Texture::Strands, true, "long-back", "banded-long"},
    {Texture::Coils, false, "", "banded-curls"},
    {Texture::Waves, false, "", "crop"},
    {Texture::Curls, false, "", "fade"},
};

static_assert(std::size(hair_styles) == HairNameCount);

struct WhiskerNames {
  std::string_view beard, mustache;
  Reach reach;
};

constexpr WhiskerNames whisker_styles[] = {
    {"", "", Reach::Chin},
    {"stubble", "", Reach::JawLine},
    {"heavy-stubble", "", Reach::JawLine},
    {"", "plain", Reach::Chin},
    {"", "broad", Reach::Chin},
    {"van-dyke", "plain", Reach::Chin},
    {"goatee", "", Reach::Chin},
    {"chin-patch", "", Reach::Chin},
    {"chin-patch", "pencil", Reach::Chin},
    {"short", "plain", Reach::JawLine},
    {"full", "broad", Reach::Beyond},
    {"long", "broad", Reach::Beyond},
    {"sideburns", "", Reach::Temples},
    {"mutton-chops", "", Reach::Temples},
    {"mutton-chops", "broad", Reach::Temples},
    {"chin-strap", "", Reach::JawLine},
    {"", "handlebar", Reach::Chin},
    {"", "horseshoe", Reach::Chin},
    {"stubble", "plain", Reach::JawLine},
    {"chin-strap", "pencil", Reach::JawLine},
    {"short", "", Reach::JawLine},
};

void ReadFace(const std::string& folder, Parts& parts) {
  // Recipes name their eyes and mouths by number.
  constexpr std::size_t eyes_in_recipes = 8;
  constexpr std::size_t mouths_in_recipes = 9;
  const ArtFile file(folder + "/face.txt", RoleLetters(),
                     {"relief", "brows", "eyes", "nose", "mouth", "ear", "mark", "worn"});
  parts.reliefs = file.All("relief");
  parts.brows = file.All("brows");
  parts.eyes = file.All("eyes", eyes_in_recipes);
  parts.noses = file.All("nose");
  parts.mouths = file.All("mouth", mouths_in_recipes);
  parts.ears = {file.Named("ear", "left"), file.Named("ear", "right")};
  for (const auto& [mark, worn] : extras) {
    parts.extras.push_back({file.Named("mark", mark), file.Named("worn", worn)});
  }
}

void ReadHair(const std::string& folder, Parts& parts) {
  const ArtFile hair(folder + "/hair.txt", RoleLetters(), {"hair"});
  for (const auto& [texture, hides_temples, behind, front] : hair_styles) {
    parts.hair_styles.push_back(
        {texture, hides_temples, hair.Named("hair", behind), hair.Named("hair", front)});
  }
  const ArtFile whiskers(folder + "/whiskers.txt", RoleLetters(), {"beard", "mustache"});
  for (const auto& [beard, mustache, reach] : whisker_styles) {
    parts.whisker_styles.push_back(
        {whiskers.Named("beard", beard), whiskers.Named("mustache", mustache), reach});
  }
}

void ReadKit(const std::string& folder, Parts& parts) {
  const ArtFile file(folder + "/kit.txt", RoleLetters(),
                     {"neck", "shoulders", "collar", "pattern"});
  parts.necks = file.All("neck");
  parts.shoulders = file.All("shoulders");
  parts.collars = file.All("collar");
  parts.patterns = file.All("pattern");
  parts.patterns.insert(parts.patterns.begin(), Art{});  // a plain jersey
}

}  // namespace

std::span<const Jaw> Jaws() {
  return jaws;
}

std::span<const Build> Builds() {
  return builds;
}

Parts ReadParts(const std::string& folder) {
  Parts parts;
  ReadFace(folder, parts);
  ReadHair(folder, parts);
  ReadKit(folder, parts);
  return parts;
}

}  // namespace rostermill
