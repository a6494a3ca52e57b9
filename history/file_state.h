#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "history/bytes_hash.h"

namespace rostermill {

/// What the system says about a file without opening it.
struct FileStamp {
  std::uint64_t Size = 0;     ///< bytes
  std::int64_t Modified = 0;  ///< nanoseconds since 1970
  std::int64_t Changed = 0;   ///< the same for its inode: owner, permissions, names
  std::uint64_t Inode = 0;
  std::uint64_t Device = 0;
  bool operator==(const FileStamp&) const = default;
};

/// Follows links; empty where the system can't say. `path` is UTF-8.
std::optional<FileStamp> StampOf(const std::string& path);

/// How the program last knew an image, to find out whether another program has changed it since.
/// At a load, take the stamp before the file is read, so that a change during the load is noticed;
/// at a save, after the file is replaced.
struct FileState {
  std::optional<FileStamp> Stamp;
  BytesHash Hash{};
};

/// `bytes` is the image as read or written; only the part that a save changes counts, its first
/// 393,232 bytes.
FileState FileStateOf(const std::optional<FileStamp>& stamp, std::span<const std::uint8_t> bytes);

/// Whether the file seems to have been changed since. Asks the system once and opens nothing. No
/// when the system can't say now, since reading it will fail with a better reason; yes when its
/// stamp wasn't known.
bool StatSaysChanged(const FileState& known, const std::string& path);

/// Whether these bytes, read in the same way, differ from the known ones.
bool BytesDiffer(const FileState& known, std::span<const std::uint8_t> bytes);

}  // namespace rostermill
