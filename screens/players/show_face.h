#pragma once

#include <string>

namespace rostermill {

class PictureBox;

/// The side of a photo in pixels, and its magnification on the player screens.
inline constexpr int FaceSize = 32;
inline constexpr int FaceMagnification = 4;

/// Shows the photo of a face, 0 to 255; the picture for missing photos if it cannot be loaded, and
/// nothing if that cannot be loaded either.
void ShowFace(PictureBox& image, const std::string& app_dir, int face);

}  // namespace rostermill
