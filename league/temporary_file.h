#pragma once

#include <filesystem>

#include "league/file_handle.h"

namespace rostermill {

/// A file beside the one that it is to replace, locked as long as the object lives so that another
/// save of the same file leaves it alone. Gone with the object unless it has replaced its target;
/// one that a kill leaves behind goes with the next temporary file for that target.
class TemporaryFile {
 public:
  /// `mode` as for open(2). Throws FileError.
  TemporaryFile(const std::filesystem::path& target, mode_t mode);
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  /// Open for reading and writing.
  const FileHandle& Handle() const { return file_; }
  /// Gives it the target's name. Throws FileError, the target untouched.
  void ReplaceTarget();

 private:
  /// The file's name, removed with the object.
  struct Name {
    ~Name();
    std::filesystem::path Path;  ///< empty for none
  };

  FileHandle OpenLocked(mode_t mode);

  std::filesystem::path target_;
  Name name_;
  FileHandle file_;
};

}  // namespace rostermill
