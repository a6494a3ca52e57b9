#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "league/file_error.h"
#include "league/yield.h"

namespace rostermill {

struct FileStart {
  std::vector<std::uint8_t> Bytes;
  std::uint64_t FileSize = 0;
};

enum class PathKind {
  Missing,      ///< nothing, or nothing within reach
  RegularFile,  ///< or a link to one
  Other,        ///< a folder, a device, a pipe, a socket
};

/// Paths are UTF-8.
PathKind KindOf(const std::string& path);

/// Reads at most `limit` bytes from the start of a regular file. Throws FileError.
FileStart ReadFileStart(const std::string& path, std::size_t limit);

/// Puts a new file of these bytes in place of what is at `path`, or creates it. Atomic, durable and
/// read back before it counts: whatever fails, and whenever the program is killed, the path names
/// either the old file or the new one. A symbolic link stays a link and what it leads to in the end
/// is replaced. Owner, group, permissions, access list and extended attributes stay as far as the
/// system allows (see CarryOverRights); a new file gets those of its folder. Of a file with several
/// hard links, the one at `path` gets the new bytes. Throws FileError, the old file untouched;
/// FileNotSynced when only the folder's sync failed.
void ReplaceFile(const std::string& path, std::span<const std::uint8_t> bytes);

/// The same for the first bytes of a file that exists; the rest of it is carried over. Calls
/// `yield` for each piece of the rest.
void ReplaceFileStart(const std::string& path, std::span<const std::uint8_t> bytes,
                      const Yield& yield);

}  // namespace rostermill
