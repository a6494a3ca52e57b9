#pragma once

#include <string>

namespace rostermill {

/// "r1-0.bmp" to "r4-7.bmp" for the run slots 1 to 4, "p1-0.bmp" to "p4-7.bmp" for the pass
/// slots 5 to 8. A choice outside 0 to 7 names a file that does not exist.
std::string PlayFileName(int slot, int choice);
/// The picture of a play in the program's folder; UTF-8.
std::string PlayPath(const std::string& app_dir, int slot, int choice);
/// "Weakside Open"; "Unknown play 8" for a choice outside 0 to 7.
std::string PlayName(int slot, int choice);

}  // namespace rostermill
