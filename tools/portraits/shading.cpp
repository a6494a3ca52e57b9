#include "tools/portraits/shading.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace rostermill {
namespace {

constexpr int far_enough = 4;

// How many pixels lie between this one and the edge of the shape, at most far_enough.
int Depth(const Canvas& shape, int x, int y, int step_x, int step_y) {
  for (int depth = 0; depth < far_enough; ++depth) {
    if (shape.IsClear(x + step_x * (depth + 1), y + step_y * (depth + 1))) return depth;
  }
  return far_enough;
}

template <typename Tone>
void Replace(Canvas& canvas, Role placeholder, const Tone& tone) {
  const Canvas shape = canvas;
  for (int y = 0; y < PictureSize; ++y) {
    for (int x = 0; x < PictureSize; ++x) {
      if (shape.At(x, y) == placeholder) canvas.Set(x, y, tone(shape, x, y));
    }
  }
}

Role SkullTone(const Canvas& shape, int x, int y) {
  const int right = Depth(shape, x, y, 1, 0);
  const int below = Depth(shape, x, y, 0, 1);
  const int corner = Depth(shape, x, y, 1, 1);
  const bool jaw = y >= HeadTop + CraniumRows + 3;
  const bool chin = y >= HeadTop + CraniumRows + 6;
  if (jaw && (right == 0 || (chin && right == 1)) && x > Middle) return Role::SkinDeep;
  if (chin && below == 0 && x > 12) return Role::SkinDeep;
  if (right <= 2 || below == 0 || (jaw && corner <= 1)) return Role::SkinShade;
  return Role::Skin;
}

// Tiles that darken ('-') or lighten ('+') the hair.
using Tile = std::array<std::string_view, 4>;

constexpr Tile tiles[] = {
    {"........", "........", "........", "........"},  // Straight
    {"+..-.+-.", "+..-.+-.", "+.--.+-.", "+..-..-."},  // Strands
    {"+-...+-.", ".+-...+-", "..+-...+", "...+-..."},  // Waves
    {".+-.+..-", "+..-.-+.", "-.+..+.-", ".-+.-.+."},  // Curls
    {"..+-...+", "-....+-.", ".+-.-..+", "....+..-"},  // Coils
};

int TextureShift(Texture texture, int x, int y) {
  const Tile& tile = tiles[static_cast<std::size_t>(texture)];
  // Each repetition further down moves sideways, so that no grid shows.
  const int column = x + y / 4 * 3;
  switch (tile[static_cast<std::size_t>(y % 4)][static_cast<std::size_t>(column % 8)]) {
    case '+':
      return 1;
    case '-':
      return -1;
    default:
      return 0;
  }
}

// The gloss on the crown: an arch that keeps its distance from the parting.
bool InGloss(int x, int above) {
  if (above == 1) return x >= 10 && x <= 15;
  if (above == 2) return x >= 8 && x <= 18;
  return above == 3 && x >= 8 && x <= 10;
}

Role HairTone(const Canvas& shape, Texture texture, int x, int y) {
  constexpr std::array tones = {Role::HairLine, Role::HairShade, Role::Hair, Role::HairLight};
  const int above = Depth(shape, x, y, 0, -1);
  const int left = Depth(shape, x, y, -1, 0);
  const int right = Depth(shape, x, y, 1, 0);
  const int below = Depth(shape, x, y, 0, 1);
  int tone = 2;
  if (right <= 1 || below == 0) --tone;
  if (x > 20 && right <= 2) --tone;
  if (left >= 1 && below >= 1 && InGloss(x, above)) ++tone;
  tone += TextureShift(texture, x, y);
  return tones[static_cast<std::size_t>(std::clamp(tone, 1, 3))];
}

Role ClothTone(const Canvas& shape, int x, int y) {
  const int above = Depth(shape, x, y, 0, -1);
  if (x * 2 + y >= 73) return Role::JerseyShade;
  if (x < 16 && (above == 1 || (x < 9 && above == 2))) return Role::JerseyLight;
  return Role::Jersey;
}

bool IsOutside(Role role) {
  return role == Role::Clear || role == Role::Back || role == Role::BackLight;
}

Role LineOf(Role role) {
  if (role >= Role::SkinLine && role <= Role::SkinLight) return Role::SkinLine;
  if (role >= Role::HairLine && role <= Role::StubbleFaint) return Role::HairLine;
  if (role >= Role::JerseyLine && role <= Role::JerseyLight) return Role::JerseyLine;
  if (role >= Role::TrimLine && role <= Role::TrimLight) return Role::TrimLine;
  return role;
}

bool OnRim(const Canvas& figure, int x, int y) {
  constexpr std::array<std::array<int, 2>, 4> steps = {{{1, 0}, {-1, 0}, {0, 1}, {0, -1}}};
  return std::any_of(steps.begin(), steps.end(), [&](const auto& step) {
    const int near_x = x + step[0];
    const int near_y = y + step[1];
    return Canvas::Holds(near_x, near_y) && IsOutside(figure.At(near_x, near_y));
  });
}

}  // namespace

void ShadeSkull(Canvas& head) {
  Replace(head, Role::Skin, SkullTone);
}

void ShadeHair(Canvas& hair, Texture texture) {
  Replace(hair, Role::HairMass,
          [texture](const Canvas& shape, int x, int y) { return HairTone(shape, texture, x, y); });
}

void ShadeCloth(Canvas& body) {
  Replace(body, Role::Cloth, ClothTone);
}

void Outline(Canvas& figure) {
  const Canvas before = figure;
  for (int y = 0; y < PictureSize; ++y) {
    for (int x = 0; x < PictureSize; ++x) {
      const Role role = before.At(x, y);
      if (!IsOutside(role) && OnRim(before, x, y)) figure.Set(x, y, LineOf(role));
    }
  }
}

}  // namespace rostermill
