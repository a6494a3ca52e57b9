#pragma once

#include <optional>
#include <string>

#include "league/file_handle.h"

namespace rostermill {

/// Makes the programs that replace an image take turns, from reading what they replace until the
/// new file is in place, so that each keeps what the one before it has written. It is a lock on the
/// image's file itself, which other users' programs see too, and ends with the object or the
/// process. There is none where no file is at the path, and on file systems without locks.
class SaveLock {
 public:
  /// Waits up to 5 seconds for others, and then throws FileError.
  explicit SaveLock(const std::string& path);

 private:
  std::optional<FileHandle> file_;
};

}  // namespace rostermill
