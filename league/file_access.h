#pragma once

#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace rostermill {

/// A file that could not be read or written. what() is the system's reason.
class FileError : public std::runtime_error {
 public:
  FileError(int number, const std::string& reason) : std::runtime_error(reason), number_(number) {}
  /// The system's error number.
  int Number() const { return number_; }

 private:
  int number_;
};

/// The new file stands in place of the old one, but the system could not confirm that the folder
/// is safely on the disk.
class FileNotSynced : public FileError {
  using FileError::FileError;
};

struct FileStart {
  std::vector<std::uint8_t> Bytes;
  std::uint64_t FileSize = 0;
};

/// Paths are UTF-8. True for a regular file or a link to one.
bool IsRegularFile(const std::string& path);

/// Reads at most `limit` bytes from the start of a regular file. Throws FileError.
FileStart ReadFileStart(const std::string& path, std::size_t limit);

/// Puts a new file of these bytes in place of what is at `path`, or creates it. Atomic and
/// durable: whatever fails, and whenever the program is killed, the path names either the old
/// file or the new one. A symbolic link stays a link and its target is replaced; permissions
/// stay. Of a file with several hard links, the one at `path` gets the new bytes. Throws
/// FileError, the old file untouched; FileNotSynced when only the folder's sync failed.
void ReplaceFile(const std::string& path, std::span<const std::uint8_t> bytes);

/// The same for the first bytes of a file that exists; what lies behind them is carried over.
void ReplaceFileStart(const std::string& path, std::span<const std::uint8_t> bytes);

}  // namespace rostermill
