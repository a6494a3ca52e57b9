#pragma once

#include <string>

namespace rostermill {

class PictureBox;

/// Pixels of a photo's side, and how often it is magnified on the player screens.
inline constexpr int FaceSize = 32;
inline constexpr int FaceMagnification = 4;

/// Shows the photo of a face, 0 to 255; the picture for a face without one where it can't be
/// loaded, and nothing where that can't be loaded either.
void ShowFace(PictureBox& image, const std::string& app_dir, int face);

}  // namespace rostermill
