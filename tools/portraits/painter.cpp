#include "tools/portraits/painter.h"

#include "tools/portraits/shading.h"

namespace rostermill {
namespace {

constexpr int left_temple = 9;
constexpr int right_temple = 22;
constexpr int forehead_row = 9;
constexpr int chin_row = 23;

Canvas Backdrop() {
  Canvas canvas;
  for (int y = 0; y < PictureSize; ++y) {
    for (int x = 0; x < PictureSize; ++x) {
      const int along = x + y;
      const bool light = along < 24 || (along < 30 && (x + y * 2) % 4 == 0);
      canvas.Set(x, y, light ? Role::BackLight : Role::Back);
    }
  }
  return canvas;
}

Canvas Skull(const Jaw& jaw) {
  constexpr std::array<int, CraniumRows> cranium = {4, 6, 7, 7, 8, 8, 8, 8, 8, 8};
  Canvas canvas;
  const auto fill_row = [&](int y, int half_width) {
    for (int x = Middle - half_width; x < Middle + half_width; ++x) canvas.Set(x, y, Role::Skin);
  };
  int y = HeadTop;
  for (const int half_width : cranium) fill_row(y++, half_width);
  for (const int half_width : jaw) fill_row(y++, half_width);
  return canvas;
}

Canvas Shaded(const Art& art, Texture texture, int shift = 0) {
  Canvas canvas;
  canvas.Stamp(art, shift);
  ShadeHair(canvas, texture);
  return canvas;
}

// -1 and 1 turn the face a little to the left or right.
int TurnOf(const Recipe& recipe) {
  return recipe.turn - 1;
}

Canvas Beard(const Recipe& recipe, const Parts& parts, const Canvas& skull) {
  const Whiskers& whiskers = parts.whisker_styles[recipe.whiskers];
  const Reach reach = whiskers.reach;
  if (reach == Reach::Temples && parts.hair_styles[recipe.hair].hides_temples) return {};
  const Texture texture = reach == Reach::Beyond ? Texture::Waves : Texture::Straight;
  // What grows on the jaw stays there when the features turn.
  Canvas beard = Shaded(whiskers.beard, texture, reach == Reach::Chin ? TurnOf(recipe) : 0);
  if (reach != Reach::Beyond) beard.KeepWithin(skull);
  return beard;
}

Canvas Head(const Recipe& recipe, const Parts& parts) {
  const Canvas skull = Skull(Jaws()[recipe.jaw]);
  const int turn = TurnOf(recipe);
  Canvas face = skull;
  ShadeSkull(face);
  Canvas features;
  features.Stamp(parts.reliefs[recipe.relief], turn);
  features.Stamp(parts.noses[recipe.nose], turn);
  features.Stamp(parts.eyes[recipe.eyes], turn);
  features.Stamp(parts.brows[recipe.brows], turn);
  features.Stamp(parts.extras[recipe.extra].on_skin, turn);
  features.Lay(Beard(recipe, parts, skull));
  features.Stamp(parts.mouths[recipe.mouth], turn);
  features.Lay(Shaded(parts.whisker_styles[recipe.whiskers].mustache, Texture::Straight, turn));

  Canvas head;
  if (turn >= 0) head.Stamp(parts.ears[0]);
  if (turn <= 0) head.Stamp(parts.ears[1]);
  head.Lay(face);
  head.Lay(features);
  const HairStyle& hair = parts.hair_styles[recipe.hair];
  head.Lay(Shaded(hair.front, hair.texture));
  head.Stamp(parts.extras[recipe.extra].worn, turn);
  return head;
}

int SourceColumn(int x, int columns) {
  if (x < left_temple + (columns < 0 ? 1 : 0)) return x + columns;
  if (x > right_temple - (columns < 0 ? 1 : 0)) return x - columns;
  return x;
}

int SourceRow(int y, const Build& build) {
  if (y < forehead_row) return y + build.forehead;
  if (y > chin_row) return y - build.chin;
  return y;
}

Canvas Rebuild(const Canvas& nominal, const Build& build) {
  Canvas canvas;
  for (int y = 0; y < PictureSize; ++y) {
    for (int x = 0; x < PictureSize; ++x) {
      canvas.Set(x, y, nominal.At(SourceColumn(x, build.columns), SourceRow(y, build)));
    }
  }
  return canvas;
}

Canvas Body(const Recipe& recipe, const Parts& parts) {
  Canvas shoulders;
  shoulders.Stamp(parts.shoulders[recipe.shoulders]);
  Canvas pattern;
  pattern.Stamp(parts.patterns[recipe.pattern]);
  pattern.KeepWithin(shoulders);

  Canvas body = shoulders;
  ShadeCloth(body);
  body.Lay(pattern);
  body.Stamp(parts.necks[recipe.neck]);
  body.Stamp(parts.collars[recipe.collar]);
  return body;
}

}  // namespace

Canvas Paint(const Recipe& recipe, const Parts& parts) {
  const Build& build = Builds()[recipe.build];
  const HairStyle& hair = parts.hair_styles[recipe.hair];
  Canvas picture = Backdrop();
  picture.Lay(Rebuild(Shaded(hair.behind, hair.texture), build));
  picture.Lay(Body(recipe, parts));
  picture.Lay(Rebuild(Head(recipe, parts), build));
  Outline(picture);
  return picture;
}

}  // namespace rostermill
