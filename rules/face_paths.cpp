#include "rules/face_paths.h"

#include "league/text.h"

namespace rostermill {

std::string FaceFileName(int face) {
  return HexByteText(face);
}

std::string FacePath(const std::string& app_dir, int face) {
  return app_dir + "faces/" + FaceFileName(face) + ".bmp";
}

std::string NoFacePath(const std::string& app_dir) {
  return app_dir + "faces/na.bmp";
}

}  // namespace rostermill
