#include "league/file_access.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <memory>
#include <optional>
#include <system_error>

#include "league/file_error.h"
#include "league/file_handle.h"
#include "league/file_rights.h"
#include "league/temporary_file.h"
#include <fcntl.h>
#include <unistd.h>

namespace rostermill {

namespace {

namespace fs = std::filesystem;

/// Files are written and read back by pieces of this size, and long ones synced now and then, so
/// that no single step takes long.
constexpr std::size_t piece_size = 128 << 10;
constexpr std::uint64_t synced_size = 32 << 20;

/// Room for a piece. Not a vector, which would be cleared first.
using Buffer = std::unique_ptr<std::uint8_t[]>;
Buffer NewBuffer() {
  return std::make_unique_for_overwrite<std::uint8_t[]>(piece_size);
}

fs::path Canonical(const fs::path& path) {
  std::error_code error;
  fs::path canonical = fs::canonical(path, error);
  if (error) FailWith(error.value());
  return canonical;
}

/// Where a file has to be made for a path that names nothing yet: at the end of its dangling links.
fs::path EndOfLinks(fs::path path) {
  constexpr int most_links = 40;
  std::error_code error;
  for (int links = 0; links < most_links; ++links) {
    const fs::path folder = Canonical(path.has_parent_path() ? path.parent_path() : ".");
    path = folder / path.filename();
    const fs::file_type type = fs::symlink_status(path, error).type();
    if (type == fs::file_type::none) FailWith(error.value());
    if (type != fs::file_type::symlink) return path;
    path = folder / fs::read_symlink(path, error);
    if (error) FailWith(error.value());
  }
  FailWith(ELOOP);
}

/// What a file is to hold: some bytes, then what another file has from that offset on.
class Contents {
 public:
  Contents(std::span<const std::uint8_t> bytes, const FileHandle* rest)
      : bytes_(bytes), rest_(rest) {}

  /// The next bytes from `offset` on, good until the next call; empty at the end.
  std::span<const std::uint8_t> PieceAt(std::uint64_t offset) {
    if (offset < bytes_.size()) {
      const std::size_t start = static_cast<std::size_t>(offset);
      return bytes_.subspan(start, std::min(piece_size, bytes_.size() - start));
    }
    if (rest_ == nullptr) return {};
    return {buffer_.get(), rest_->ReadAt(offset, {buffer_.get(), piece_size})};
  }

 private:
  std::span<const std::uint8_t> bytes_;
  const FileHandle* rest_;
  Buffer buffer_ = NewBuffer();
};

void Write(const FileHandle& file, Contents& contents, const Yield& yield) {
  std::uint64_t offset = 0;
  std::uint64_t synced = 0;
  for (;;) {
    const auto piece = contents.PieceAt(offset);
    if (piece.empty()) break;
    file.Write(piece);
    offset += piece.size();
    if (offset - synced >= synced_size) {
      file.Sync();
      synced = offset;
    }
    yield();
  }
  file.Sync();
}

/// Reads the file back; throws FileError where it isn't what was meant.
void Check(const FileHandle& file, Contents& contents, const Yield& yield) {
  const Buffer found = NewBuffer();
  std::uint64_t offset = 0;
  bool same = true;
  while (same) {
    const auto piece = contents.PieceAt(offset);
    // At the end there must be nothing more.
    const std::span room(found.get(), std::max<std::size_t>(piece.size(), 1));
    const std::size_t count = file.ReadAt(offset, room);
    same = std::ranges::equal(piece, room.first(count));
    if (piece.empty()) break;
    offset += piece.size();
    yield();
  }
  if (!same) throw FileError(EIO, "what was written reads back differently");
}

/// Makes a rename in this folder survive a power cut. `file` is one in it.
void SyncFolder(const fs::path& folder, const FileHandle& file) {
  try {
    FileHandle(folder, O_RDONLY | O_DIRECTORY).Sync();
  } catch (const FileError& error) {
    int number = error.Number();
    // A folder that may not be read can't be opened, but its whole file system can be synced.
    if (number == EACCES) number = ::syncfs(file.Number()) == 0 ? 0 : errno;
    // EINVAL is from file systems that can't sync a folder.
    if (number == 0 || number == EINVAL) return;
    throw FileNotSynced(number, std::generic_category().message(number));
  }
}

/// Writes a file beside the target and renames it over that. `rest`, if not null, is the file that
/// was at the path, which must still be there. Not QSaveFile: it commits a file after a short
/// write, ignores a failed sync, and leaves files of a name that can't be told from the user's own
/// when the program is killed.
void Replace(const std::string& path, std::span<const std::uint8_t> bytes, const FileHandle* rest,
             const Yield& yield) {
  const auto old = FactsIfThere(path);
  if (!old && rest != nullptr) FailWith(ENOENT);
  if (old && !S_ISREG(old->st_mode)) throw NotRegularFile();
  const fs::path target = old ? Canonical(path) : EndOfLinks(path);
  if (old && ::access(target.c_str(), W_OK) != 0) FailWith(errno);

  // Shut until it has the rights of the old one.
  TemporaryFile temporary(target, old ? 0600 : 0666);
  const FileHandle& file = temporary.Handle();
  if (old) CarryOverRights(target, file);
  Contents contents(bytes, rest);
  Write(file, contents, yield);
  Check(file, contents, yield);
  temporary.ReplaceTarget();
  SyncFolder(target.parent_path(), file);
}

}  // namespace

PathKind KindOf(const std::string& path) {
  try {
    return S_ISREG(FactsOf(path).st_mode) ? PathKind::RegularFile : PathKind::Other;
  } catch (const FileError&) {
    return PathKind::Missing;
  }
}

FileStart ReadFileStart(const std::string& path, std::size_t limit) {
  const FileHandle file = FileHandle::OpenRegular(path);
  FileStart start;
  start.FileSize = static_cast<std::uint64_t>(file.Facts().st_size);
  start.Bytes.resize(static_cast<std::size_t>(std::min<std::uint64_t>(start.FileSize, limit)));
  // Another program may cut it short meanwhile.
  start.Bytes.resize(file.ReadAt(0, start.Bytes));
  return start;
}

void ReplaceFile(const std::string& path, std::span<const std::uint8_t> bytes) {
  Replace(path, bytes, nullptr, [] {});
}

void ReplaceFileStart(const std::string& path, std::span<const std::uint8_t> bytes,
                      const Yield& yield) {
  const FileHandle old = FileHandle::OpenRegular(path);
  Replace(path, bytes, &old, yield);
}

}  // namespace rostermill
