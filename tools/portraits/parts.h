#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "tools/portraits/canvas.h"

namespace rostermill {

inline constexpr int Middle = PictureSize / 2;
inline constexpr int HeadTop = 4;
inline constexpr int CraniumRows = 10;
inline constexpr int JawRows = 11;

// Half the width of the head, row by row, from the cheekbones to the chin.
using Jaw = std::array<int, JawRows>;

// Columns added on either side of the face, and rows of forehead and of chin; -1 removes one.
struct Build {
  int columns;
  int forehead;
  int chin;
};

enum class Texture : std::uint8_t { Straight, Strands, Waves, Curls, Coils };

enum HairName : std::uint8_t {
  Cropped,
  SideParted,
  CrewCut,
  BuzzCut,
  CoiledFade,
  HighTopped,
  AfroFull,
  AfroShort,
  Curly,
  LongParted,
  Mulleted,
  SlickedBack,
  Thinning,
  BaldCrown,
  Shaven,
  Mohawked,
  Spiked,
  Fringed,
  JawLength,
  Cornrowed,
  CornrowedLong,
  Locked,
  Twisted,
  TopKnotted,
  Ponytailed,
  Capped,
  KnitCapped,
  SkullCapped,
  CurlsInBand,
  LongInBand,
  CoilsInBand,
  WavyCrop,
  CurlyFade,
  HairNameCount
};

struct HairStyle {
  Texture texture;
  bool hides_temples;
  Art behind;  // drawn before the neck and the face
  Art front;
};

// How far a beard spreads: over the chin, along the jaw, down from the temples, or beyond the face.
enum class Reach : std::uint8_t { Chin, JawLine, Temples, Beyond };

struct Whiskers {
  Art beard;  // under the mouth
  Art mustache;
  Reach reach;
};

struct Extra {
  Art on_skin;  // under whiskers and hair
  Art worn;     // over everything
};

std::span<const Jaw> Jaws();
std::span<const Build> Builds();

// What the art files hold.
struct Parts {
  std::vector<Art> reliefs, brows, eyes, noses, mouths;
  std::vector<Art> ears;  // left, right
  std::vector<Extra> extras;
  std::vector<HairStyle> hair_styles;  // in the order of HairName
  std::vector<Whiskers> whisker_styles;
  std::vector<Art> necks, shoulders, collars, patterns;
};

// Reads the files of a folder. Throws ArtError.
Parts ReadParts(const std::string& folder);

}  // namespace rostermill
