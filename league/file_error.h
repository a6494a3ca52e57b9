#pragma once

#include <stdexcept>
#include <string>

namespace rostermill {

/// A file that could not be read or written. what() is the reason, to follow a colon.
class FileError : public std::runtime_error {
 public:
  FileError(int number, const std::string& reason) : std::runtime_error(reason), number_(number) {}
  /// The system's error number.
  int Number() const { return number_; }

 private:
  int number_;
};

/// The path, or the folder that it is in, names nothing.
class FileMissing : public FileError {
  using FileError::FileError;
};

/// The path names a folder, a device, a pipe or a socket.
class NotRegularFile : public FileError {
 public:
  NotRegularFile();
};

/// The new file is in place, but the system could not confirm that the folder is safely on the
/// disk.
class FileNotSynced : public FileError {
  using FileError::FileError;
};

/// What a user is told then: "league.nes was written, but the system could not confirm that it is
/// safe: Input/output error", without a period.
std::string NotSyncedText(const std::string& path, const FileNotSynced& error);

/// Throws the system's reason: FileMissing for ENOENT, else FileError.
[[noreturn]] void FailWith(int number);

/// For calls that a file system may refuse: true where `result` isn't -1, false for a refusal.
/// Throws FileError where errno says that the disk is full or failing.
bool Granted(long result);

}  // namespace rostermill
