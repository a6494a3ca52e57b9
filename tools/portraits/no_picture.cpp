#include "tools/portraits/no_picture.h"

#include <algorithm>

#include "tools/portraits/art_file.h"

namespace rostermill {

GrayPicture ReadNoPicture(const std::string& folder) {
  const ArtFile file(folder + "/no_picture.txt", "01234567", {"picture"});
  std::string pixels;
  for (const std::string& row : file.Named("picture", "helmet").rows) pixels += row;
  GrayPicture picture{};
  if (pixels.size() != picture.size() || pixels.find('.') != std::string::npos) {
    file.Fail("the helmet has to fill the whole picture");
  }
  std::transform(pixels.begin(), pixels.end(), picture.begin(),
                 [](char letter) { return static_cast<std::uint8_t>(letter - '0'); });
  return picture;
}

std::array<std::uint32_t, GrayCount> Grays() {
  return {0x3a3d42, 0x4d5157, 0x63676d, 0x7a7e84, 0x93979d, 0xb3b6bb, 0xc4c7cb, 0xd0d2d6};
}

}  // namespace rostermill
