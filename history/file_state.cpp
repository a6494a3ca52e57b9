#include "history/file_state.h"

#include <algorithm>

#include "league/file_error.h"
#include "league/file_handle.h"
#include "league/open_image.h"

namespace rostermill {

namespace {

std::int64_t Nanoseconds(const timespec& time) {
  return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

BytesHash HashOfImage(std::span<const std::uint8_t> bytes) {
  return HashOf(bytes.first(std::min<std::size_t>(bytes.size(), OpenImage::WholeSize)));
}

}  // namespace

std::optional<FileStamp> StampOf(const std::string& path) {
  try {
    const struct stat facts = FactsOf(path);
    return FileStamp{static_cast<std::uint64_t>(facts.st_size), Nanoseconds(facts.st_mtim),
                     Nanoseconds(facts.st_ctim), facts.st_ino, facts.st_dev};
  } catch (const FileError&) {
    return std::nullopt;
  }
}

FileState FileStateOf(const std::optional<FileStamp>& stamp, std::span<const std::uint8_t> bytes) {
  return {stamp, HashOfImage(bytes)};
}

bool StatSaysChanged(const FileState& known, const std::string& path) {
  const auto now = StampOf(path);
  return now && now != known.Stamp;
}

bool BytesDiffer(const FileState& known, std::span<const std::uint8_t> bytes) {
  return HashOfImage(bytes) != known.Hash;
}

}  // namespace rostermill
