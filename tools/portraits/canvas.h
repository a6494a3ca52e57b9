#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace rostermill {

inline constexpr int PictureSize = 32;

// What a pixel shows. Each material runs from its outline to its lightest shade, so a lighter or
// darker pixel of the same material is the next or the previous role.
enum class Role : std::uint8_t {
  Clear,
  Back,
  BackLight,
  SkinLine,
  SkinDeep,
  SkinShade,
  Skin,
  SkinLight,
  HairLine,
  HairShade,
  Hair,
  HairLight,
  Stubble,
  StubbleFaint,
  Lash,
  Pupil,
  Iris,
  EyeShade,
  EyeWhite,
  MouthLine,
  Lip,
  LipLight,
  Teeth,
  JerseyLine,
  JerseyShade,
  Jersey,
  JerseyLight,
  TrimLine,
  TrimShade,
  Trim,
  TrimLight,
  Frame,
  Glint,
  Grease,
  // Placeholders that shading replaces before the picture is finished.
  HairMass,
  Cloth,
  Count
};

inline constexpr std::size_t RoleCount = static_cast<std::size_t>(Role::Count);

// A drawing: rows of letters, one per pixel, '.' where the layer below shows.
struct Art {
  int left = 0;
  int top = 0;
  std::vector<std::string> rows;
};

class Canvas {
 public:
  static constexpr bool Holds(int x, int y) {
    return x >= 0 && x < PictureSize && y >= 0 && y < PictureSize;
  }

  // Clear outside the canvas.
  Role At(int x, int y) const;
  bool IsClear(int x, int y) const { return At(x, y) == Role::Clear; }

  // Ignored outside the canvas.
  void Set(int x, int y, Role role);

  void Stamp(const Art& art, int shift_x = 0, int shift_y = 0);
  void Lay(const Canvas& upper);
  void KeepWithin(const Canvas& mask);

 private:
  static std::size_t Index(int x, int y) { return static_cast<std::size_t>(y * PictureSize + x); }

  std::array<Role, PictureSize * PictureSize> pixels_{};
};

// The letters that a canvas knows, without '.'.
std::string RoleLetters();

}  // namespace rostermill
