#include "league/file_error.h"

#include <cerrno>
#include <system_error>

namespace rostermill {

NotRegularFile::NotRegularFile() : FileError(EINVAL, "it is not a regular file") {}

std::string NotSyncedText(const std::string& path, const FileNotSynced& error) {
  return path + " was written, but the system could not confirm that it is safe: " + error.what();
}

void FailWith(int number) {
  const std::string reason = std::generic_category().message(number);
  if (number == ENOENT) throw FileMissing(number, reason);
  throw FileError(number, reason);
}

bool Granted(long result) {
  if (result != -1) return true;
  for (const int fault : {EIO, ENOSPC, EDQUOT, ENOMEM}) {
    if (errno == fault) FailWith(fault);
  }
  return false;
}

}  // namespace rostermill
