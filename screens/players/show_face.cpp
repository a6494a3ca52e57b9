#include "screens/players/show_face.h"

#include "rules/face_paths.h"
#include "toolkit/picture_box.h"
#include "toolkit/qt_strings.h"

namespace rostermill {

void ShowFace(PictureBox& image, const std::string& app_dir, int face) {
  if (image.Load(FromUtf8(FacePath(app_dir, face)))) return;
  if (!image.Load(FromUtf8(NoFacePath(app_dir)))) image.ClearPicture();
}

}  // namespace rostermill
