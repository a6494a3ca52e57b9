#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "tools/play_pictures/play_book.h"

namespace rostermill {

class PlayTextError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Reads all 64 plays in the order of the file. Throws PlayTextError, whose message begins with the
// file and the line.
std::vector<Play> ReadPlays(const std::string& file_name);

}  // namespace rostermill
