#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "league/file_handle.h"

namespace rostermill {

// The folders in which versions and unsaved changes are kept: a base folder with one folder an
// image. They are readable by the user alone. Paths are UTF-8. What can't be done throws FileError
// with the system's reason, or HistoryError with one of our own.

/// what() is a sentence for the user.
class HistoryError : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// The image's file at the end of all links, by its absolute path.
std::string CanonicalPath(const std::string& image);

/// The folder of an image below the base folder, whether it is there or not:
/// "league.nes-" and 16 hexadecimal digits of the hash of the image's canonical path. Links to one
/// image share a folder; an image that is moved gets another.
std::string ImageFolder(const std::string& base, const std::string& image);

/// Makes an image's folder where it is missing, and the text "image.txt" in it with the image's
/// canonical path.
void MakeImageFolder(const std::string& folder, const std::string& canonical_path);

/// Makes the names in this folder survive a power cut.
void SyncFolder(const std::string& folder);

/// ReplaceFile, readable by the user alone; a file system without permissions does without them.
void WriteKept(const std::string& path, std::span<const std::uint8_t> bytes);

/// The names of a folder's regular files in no particular order; none if it does not exist.
std::vector<std::string> FilesIn(const std::string& folder);

/// The folders in a folder, by path.
std::vector<std::string> FoldersIn(const std::string& folder);

/// A file that does not exist counts as removed.
void RemoveFile(const std::string& path);
/// The same for one that can as well be removed another time.
void TryToRemoveFile(const std::string& path);

/// A lock between processes, by a file that is never read. It ends with the object or the process,
/// however that ends, and isn't handed to programs that the process starts.
class FileLock {
 public:
  enum class Kind { Shared, Exclusive };

  /// Makes the file where it is missing. Throws HistoryError when others hold the lock all the
  /// while, FileError when there can be no lock.
  FileLock(const std::string& path, Kind kind, std::chrono::milliseconds patience);

  /// Whether the lock's file is still the one at this path: whoever moves or removes it lets others
  /// lock a new one. Throws FileError where that can't be found out.
  bool IsAt(const std::string& path) const { return file_.IsAt(path); }

  /// Whether anybody, this process included, holds the lock exclusively, or may hold it: true where
  /// that can't be found out.
  static bool IsHeld(const std::string& path);

 private:
  FileHandle file_;
};

/// The one lock on all that is kept below the base folder, for writing. Makes the base folder where
/// it is missing. 5 seconds of patience.
FileLock LockStore(const std::string& base);
/// The same for reading; empty after a moment, or where there can be none: reading goes on.
std::optional<FileLock> LockStoreForReading(const std::string& base);

/// Now in UTC, and its form in names and headers: "20260730T214012Z".
std::chrono::sys_seconds UtcNow();
std::string UtcText(std::chrono::sys_seconds time);
std::optional<std::chrono::sys_seconds> ParseUtc(std::string_view text);

}  // namespace rostermill
