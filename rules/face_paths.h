#pragma once

#include <string>

namespace rostermill {

/// "00" to "FF": a face number, 0 to 255, as two upper-case hexadecimal digits.
std::string FaceFileName(int face);
/// The picture of a face in the faces folder beside the program; UTF-8.
std::string FacePath(const std::string& app_dir, int face);
/// The picture for a face that has none.
std::string NoFacePath(const std::string& app_dir);

}  // namespace rostermill
