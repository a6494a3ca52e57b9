#include "tools/portraits/canvas.h"

#include <algorithm>
#include <utility>

namespace rostermill {
namespace {

constexpr std::pair<char, Role> role_letters[] = {
    {'0', Role::SkinLine},    {'1', Role::SkinDeep},    {'2', Role::SkinShade},
    {'3', Role::Skin},        {'4', Role::SkinLight},   {'a', Role::HairLine},
    {'b', Role::HairShade},   {'c', Role::Hair},        {'d', Role::HairLight},
    {'h', Role::HairMass},    {'x', Role::Stubble},     {'y', Role::StubbleFaint},
    {'K', Role::Lash},        {'p', Role::Pupil},       {'i', Role::Iris},
    {'v', Role::EyeShade},    {'w', Role::EyeWhite},    {'m', Role::MouthLine},
    {'n', Role::Lip},         {'o', Role::LipLight},    {'t', Role::Teeth},
    {'A', Role::JerseyLine},  {'B', Role::JerseyShade}, {'C', Role::Jersey},
    {'D', Role::JerseyLight}, {'J', Role::Cloth},       {'R', Role::TrimLine},
    {'S', Role::TrimShade},   {'T', Role::Trim},        {'U', Role::TrimLight},
    {'g', Role::Frame},       {'q', Role::Glint},       {'e', Role::Grease},
};

// Clear for '.' and for a letter that no art file can have.
Role RoleOfLetter(char letter) {
  const auto* found = std::find_if(std::begin(role_letters), std::end(role_letters),
                                   [=](const auto& entry) { return entry.first == letter; });
  return found == std::end(role_letters) ? Role::Clear : found->second;
}

}  // namespace

std::string RoleLetters() {
  std::string letters;
  for (const auto& [letter, role] : role_letters) letters += letter;
  return letters;
}

Role Canvas::At(int x, int y) const {
  return Holds(x, y) ? pixels_[Index(x, y)] : Role::Clear;
}

void Canvas::Set(int x, int y, Role role) {
  if (Holds(x, y)) pixels_[Index(x, y)] = role;
}

void Canvas::Stamp(const Art& art, int shift_x, int shift_y) {
  int y = art.top + shift_y;
  for (const std::string& row : art.rows) {
    int x = art.left + shift_x;
    for (const char letter : row) {
      const Role role = RoleOfLetter(letter);
      if (role != Role::Clear) Set(x, y, role);
      ++x;
    }
    ++y;
  }
}

void Canvas::Lay(const Canvas& upper) {
  for (std::size_t i = 0; i < pixels_.size(); ++i) {
    if (upper.pixels_[i] != Role::Clear) pixels_[i] = upper.pixels_[i];
  }
}

void Canvas::KeepWithin(const Canvas& mask) {
  for (std::size_t i = 0; i < pixels_.size(); ++i) {
    if (mask.pixels_[i] == Role::Clear) pixels_[i] = Role::Clear;
  }
}

}  // namespace rostermill
