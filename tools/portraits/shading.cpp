#include "tools/portraits/shading.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace rostermill {
namespace {

constexpr int kFarEnough = 4;

// How many pixels lie between this one and the edge of the shape, at most kFarEnough.
int Depth(const Canvas& shape, int x, int y, int step_x, int step_y) {
  for (int depth = 0; depth < kFarEnough; ++depth) {
    if (shape.IsClear(x + step_x * (depth + 1), y + step_y * (depth + 1))) return depth;
  }
  return kFarEnough;
}

template <typename Tone>
void Replace(Canvas& canvas, Role placeholder, const Tone& tone) {
  const Canvas shape = canvas;
  for (int y = 0; y < kPictureSize; ++y) {
    for (int x = 0; x < kPictureSize; ++x) {
      if (shape.At(x, y) == placeholder) canvas.Set(x, y, tone(shape, x, y));
    }
  }
}

Role SkullTone(const Canvas& shape, int x, int y) {
  const int right = Depth(shape, x, y, 1, 0);
  const int below = Depth(shape, x, y, 0, 1);
  const int corner = Depth(shape, x, y, 1, 1);
  const bool jaw = y >= kHeadTop + kCraniumRows + 3;
  if (jaw && (right <= 1 || below == 0) && x > 15) return Role::SkinDeep;
  if (right <= 2 || below == 0 || (jaw && corner <= 1)) return Role::SkinShade;
  return Role::Skin;
}

// Tiles that darken ('-') or lighten ('+') the hair.
using Tile = std::array<std::string_view, 4>;

constexpr Tile kTiles[] = {
    {"....", "....", "....", "...."},  // Straight
    {"+.-.", "+.-.", "+.-.", "+.-."},  // Strands
    {"+...", ".+-.", "..+-", "-..+"},  // Waves
    {".+-.", "+..-", "-.+.", ".-.+"},  // Curls
    {"+.-.", "....", "-.+.", "...."},  // Coils
};

int TextureShift(Texture texture, int x, int y) {
  const std::string_view row =
      kTiles[static_cast<std::size_t>(texture)][static_cast<std::size_t>(y % 4)];
  const char mark = row[static_cast<std::size_t>(x % 4)];
  return mark == '+' ? 1 : mark == '-' ? -1 : 0;
}

Role HairTone(const Canvas& shape, Texture texture, int x, int y) {
  constexpr std::array kTones = {Role::HairLine, Role::HairShade, Role::Hair, Role::HairLight};
  const int above = Depth(shape, x, y, 0, -1);
  const int left = Depth(shape, x, y, -1, 0);
  const int right = Depth(shape, x, y, 1, 0);
  const int below = Depth(shape, x, y, 0, 1);
  int tone = 2;
  if (right <= 1 || below == 0) --tone;
  if (x > 20 && right <= 2) --tone;
  if ((above == 1 || above == 2) && left >= 1 && x < 18) ++tone;
  tone += TextureShift(texture, x, y);
  return kTones[static_cast<std::size_t>(std::clamp(tone, 1, 3))];
}

Role ClothTone(const Canvas& shape, int x, int y) {
  const int above = Depth(shape, x, y, 0, -1);
  if (x >= 25 || (x >= 20 && above >= 3)) return Role::JerseyShade;
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
  constexpr std::array<std::array<int, 2>, 4> kSteps = {{{1, 0}, {-1, 0}, {0, 1}, {0, -1}}};
  return std::any_of(kSteps.begin(), kSteps.end(), [&](const auto& step) {
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
  for (int y = 0; y < kPictureSize; ++y) {
    for (int x = 0; x < kPictureSize; ++x) {
      const Role role = before.At(x, y);
      if (!IsOutside(role) && OnRim(before, x, y)) figure.Set(x, y, LineOf(role));
    }
  }
}

}  // namespace rostermill
