#include "league/save_lock.h"

#include <cerrno>
#include <chrono>

#include "league/file_error.h"
#include <sys/file.h>

namespace rostermill {

namespace {

constexpr std::chrono::seconds patience{5};

}  // namespace

SaveLock::SaveLock(const std::string& path) {
  using Clock = std::chrono::steady_clock;
  const auto end = Clock::now() + patience;
  bool locked = true;
  try {
    // Whoever had the lock may have put another file in the place of this one.
    do {
      file_.emplace(FileHandle::OpenRegular(path));
      locked =
          file_->Lock(LOCK_EX, std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()));
    } while (locked && !file_->IsAt(path));
  } catch (const FileError&) {
    file_.reset();
  }
  if (!locked) throw FileError(EAGAIN, "another program is saving it and has not finished");
}

}  // namespace rostermill
