#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "league/file_access.h"
#include "league/open_image.h"

namespace rostermill {

/// Follows what a load and a save do with the file of the image, and has a say in a save. This one
/// takes no notice. Paths are UTF-8.
class ImageWatch {
 public:
  virtual ~ImageWatch() = default;

  /// A load begins; the image in use may be left.
  virtual void BeforeLoad(const std::string& /*path*/) {}
  /// The league of these bytes is in place.
  virtual void Loaded(std::span<const std::uint8_t> /*bytes*/) {}

  /// What the user should know before he answers the question of a save; empty if nothing. Opens
  /// no file.
  virtual std::string SaveWarning(const std::string& /*path*/) { return {}; }
  /// Reads the file that a save replaces, at least as much of it as an image has. Throws FileError.
  virtual FileStart ReadForSave(const std::string& path) {
    return ReadFileStart(path, OpenImage::WholeSize);
  }
  /// What the user should know before a save replaces the file that it has read; empty if nothing.
  virtual std::string ReplaceWarning(const FileStart& /*file*/) { return {}; }
  /// The save is about to replace the file.
  virtual void BeforeReplace(const std::string& /*path*/, const FileStart& /*file*/) {}
  /// The file now begins with these bytes; not `confirmed` while they may not be on the disk yet.
  virtual void Replaced(const std::string& /*path*/, std::span<const std::uint8_t> /*bytes*/,
                        bool /*confirmed*/) {}
  /// What went wrong besides the save itself, for the user; empty if nothing.
  virtual std::string TakeTrouble() { return {}; }
};

}  // namespace rostermill
