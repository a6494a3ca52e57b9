#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "league/file_access.h"

namespace rostermill {

/// An earlier state of an image's file.
struct Version {
  /// From 1, rising, never that of another version that is still kept. (It can be given again only
  /// when the limit of all images together has taken the later versions of its image.)
  int Number = 0;
  std::chrono::sys_seconds
      When;                    ///< UTC; when these bytes were last kept, of the first state: first
  std::string What;            ///< as given to Keep
  bool FirstState = false;     ///< what stood there before this program's first save
  std::uint64_t FileSize = 0;  ///< of the whole file, in bytes
  bool Cut = false;            ///< only the first 393,232 bytes were kept
  std::string Path;            ///< of its file when listed; keeping the version again renames it
};

/// Keeps what a save or another command replaces. Every version is a file of its own in the
/// image's folder, its bytes as they were and all that is known about it in its name:
///
///     000012-000015_20260730T214012Z_393232_<hash of the kept bytes>_before a save.nes
///
/// (number, turn, when, size of the whole file, hash, what; the turn grows with every keeping; the
/// hash is that of bytes_hash.h). One rename puts it in place, so it is complete or absent,
/// whenever a program is killed; no index file could contradict it. Files that are not named this
/// way are passed over and never removed; one whose length doesn't fit its name isn't listed, and
/// is dropped when its turn comes.
///
/// Programs that keep versions at the same time take turns by a lock, with 5 seconds of patience.
/// All paths are UTF-8. What can't be done throws FileError or HistoryError (both
/// std::runtime_error), what() giving the reason for the user.
class VersionStore {
 public:
  struct Limits {
    int Versions = 30;                       ///< an image's, beside its first state
    std::uint64_t TotalBytes = 500'000'000;  ///< of the versions of all images
  };
  /// A file up to this length is kept whole; of a longer one the part that a save changes.
  static constexpr std::size_t LongestKeptWhole = 4 * 1024 * 1024;

  /// `base` is the absolute path of the folder with the folders of all images; the first Keep makes
  /// it.
  explicit VersionStore(std::string base);
  VersionStore(std::string base, Limits limits);

  /// Reads as much of an image as Keep needs. Throws FileError.
  static FileStart ReadForKeeping(const std::string& image);

  /// Keeps a file's bytes, read by ReadForKeeping, and returns the version's number. When it
  /// returns, they are safe on the disk. The same bytes are kept once: the version that has them
  /// keeps its number and becomes the latest (the first state stays the first). The image itself
  /// isn't touched. Call DropOld later, when nobody waits.
  /// `what` is 1 to 60 characters, letters, digits, blanks and "-,.'()"; else and with bytes that
  /// ReadForKeeping can't have given, throws std::invalid_argument.
  int Keep(const std::string& image, const FileStart& file, std::string_view what) const;

  /// Drops what exceeds the limits: the image's oldest versions but the first state and the latest;
  /// then of all images the longest untouched, first states last; and what killed programs have
  /// left of versions. What can't be dropped now is dropped the next time, without a word.
  void DropOld(const std::string& image) const;

  /// The latest first, the first state last. Reads no version's bytes, so a damaged one of the
  /// right length is listed.
  std::vector<Version> List(const std::string& image) const;

  /// The version's bytes, checked by their hash, and the size of the whole file. Where the version
  /// is cut, put them back by ReplaceFileStart, which leaves the rest of the file. Throws
  /// HistoryError when there is no such version or it is damaged.
  FileStart Read(const std::string& image, int number) const;
  /// The same for a version from List. Searches the folder only if its file has been renamed.
  FileStart Read(const std::string& image, const Version& version) const;

 private:
  std::string base_;
  Limits limits_;
};

}  // namespace rostermill
