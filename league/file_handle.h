#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include <sys/stat.h>
#include <sys/types.h>

namespace rostermill {

/// An open file, closed with the object. A call that a signal interrupts is made again; one that
/// fails throws FileError.
class FileHandle {
 public:
  /// `flags` and `mode` as for open(2).
  FileHandle(const std::string& path, int flags, mode_t mode = 0);
  ~FileHandle();
  FileHandle(FileHandle&& other) noexcept;
  FileHandle& operator=(FileHandle&&) = delete;

  /// Opens a regular file for reading. Throws NotRegularFile for anything else, which it doesn't
  /// touch: a device or a pipe could block or never end.
  static FileHandle OpenRegular(const std::string& path);

  int Number() const { return number_; }
  struct stat Facts() const;

  /// Fills `piece` from `offset` on; the number of bytes read is smaller only at the file's end.
  std::size_t ReadAt(std::uint64_t offset, std::span<std::uint8_t> piece) const;
  /// Writes all bytes at the current position.
  void Write(std::span<const std::uint8_t> bytes) const;
  /// Waits until all that was written is on the disk.
  void Sync() const;

  /// Locks the file; `operation` as for flock(2). Returns false if others hold a lock on it all the
  /// while. Throws FileError where there can be no lock.
  bool Lock(int operation, std::chrono::milliseconds patience) const;
  /// Whether this file is still the one at the path. Throws FileError where that can't be found
  /// out.
  bool IsAt(const std::string& path) const;

 private:
  explicit FileHandle(int number) : number_(number) {}

  int number_;
};

/// The facts of what the path names in the end; empty if it names nothing. Throws FileError if the
/// system can't tell, since the path may then be in use.
std::optional<struct stat> FactsIfThere(const std::string& path);

/// The same, and throws FileMissing if it names nothing.
struct stat FactsOf(const std::string& path);

}  // namespace rostermill
