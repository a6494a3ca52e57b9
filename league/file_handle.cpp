#include "league/file_handle.h"

#include <cerrno>
#include <thread>
#include <utility>

#include "league/file_error.h"
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace rostermill {

namespace {

/// The result of a system call, made again as long as a signal interrupts it.
template <typename Call>
auto Checked(Call call) {
  for (;;) {
    const auto result = call();
    if (result != -1) return result;
    if (errno != EINTR) FailWith(errno);
  }
}

}  // namespace

FileHandle::FileHandle(const std::string& path, int flags, mode_t mode)
    : number_(Checked([&] { return ::open(path.c_str(), flags | O_CLOEXEC, mode); })) {}

FileHandle::~FileHandle() {
  if (number_ >= 0) ::close(number_);
}

FileHandle::FileHandle(FileHandle&& other) noexcept : number_(std::exchange(other.number_, -1)) {}

FileHandle FileHandle::OpenRegular(const std::string& path) {
  if (!S_ISREG(FactsOf(path).st_mode)) throw NotRegularFile();
  // Another program may have put a pipe there just now.
  FileHandle file(path, O_RDONLY | O_NONBLOCK | O_NOCTTY);
  if (!S_ISREG(file.Facts().st_mode)) throw NotRegularFile();
  return file;
}

struct stat FileHandle::Facts() const {
  struct stat facts {};
  Checked([&] { return ::fstat(number_, &facts); });
  return facts;
}

std::size_t FileHandle::ReadAt(std::uint64_t offset, std::span<std::uint8_t> piece) const {
  std::size_t done = 0;
  while (done < piece.size()) {
    const ssize_t count = Checked([&] {
      return ::pread(number_, piece.data() + done, piece.size() - done,
                     static_cast<off_t>(offset + done));
    });
    if (count == 0) break;
    done += static_cast<std::size_t>(count);
  }
  return done;
}

void FileHandle::Write(std::span<const std::uint8_t> bytes) const {
  while (!bytes.empty()) {
    const ssize_t count = Checked([&] { return ::write(number_, bytes.data(), bytes.size()); });
    if (count == 0) FailWith(ENOSPC);
    bytes = bytes.subspan(static_cast<std::size_t>(count));
  }
}

void FileHandle::Sync() const {
  Checked([&] { return ::fsync(number_); });
}

bool FileHandle::Lock(int operation, std::chrono::milliseconds patience) const {
  const auto end = std::chrono::steady_clock::now() + patience;
  while (::flock(number_, operation | LOCK_NB) != 0) {
    if (errno != EWOULDBLOCK && errno != EINTR) FailWith(errno);
    if (std::chrono::steady_clock::now() >= end) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  return true;
}

bool FileHandle::IsAt(const std::string& path) const {
  const struct stat own = Facts();
  const auto there = FactsIfThere(path);
  return there && own.st_ino == there->st_ino && own.st_dev == there->st_dev;
}

std::optional<struct stat> FactsIfThere(const std::string& path) {
  // The system would stop at a zero byte and look at another file.
  if (path.find('\0') != std::string::npos) return std::nullopt;
  struct stat facts {};
  while (::stat(path.c_str(), &facts) != 0) {
    if (errno == ENOENT) return std::nullopt;
    if (errno != EINTR) FailWith(errno);
  }
  return facts;
}

struct stat FactsOf(const std::string& path) {
  const auto facts = FactsIfThere(path);
  if (!facts) FailWith(ENOENT);
  return *facts;
}

}  // namespace rostermill
