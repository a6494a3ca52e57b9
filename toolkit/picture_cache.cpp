#include "toolkit/picture_cache.h"

#include <QBuffer>
#include <QFile>
#include <QHash>
#include <QImageReader>

#include <algorithm>
#include <optional>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace rostermill {

namespace {

/// Pictures larger than the program's own are not worth the memory.
constexpr qsizetype largest_kept = 1 << 20;
/// A longer file can't be a picture of a face.
constexpr qint64 largest_file = 64 << 20;

/// What distinguishes a changed file from a known one.
struct FileState {
  qint64 time = 0;  // nanoseconds
  qint64 size = 0;  // bytes
  bool operator==(const FileState&) const = default;
};

struct KeptPicture {
  FileState state;
  QImage picture;
};

/// Empty if it is not a regular file: a pipe could block the program.
std::optional<FileState> StateOf(const QByteArray& path) {
  // A single system call; QFileInfo would also look up the time zone.
  struct stat found {};
  if (::stat(path.constData(), &found) != 0 || !S_ISREG(found.st_mode)) return std::nullopt;
  constexpr qint64 nanoseconds = 1'000'000'000;
  return FileState{found.st_mtim.tv_sec * nanoseconds + found.st_mtim.tv_nsec, found.st_size};
}

/// With the fewest system calls there can be: they take most of the time of a page of photos.
QByteArray BytesOf(const QByteArray& path, qint64 size) {
  // Another program may have put a pipe there just now.
  const int file = ::open(path.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (file < 0) return {};
  QByteArray bytes(size, Qt::Uninitialized);
  const auto count = ::read(file, bytes.data(), static_cast<std::size_t>(size));
  ::close(file);
  bytes.resize(std::max<qsizetype>(count, 0));
  return bytes;
}

/// The picture in a format that can be painted magnified without conversion.
QImage Decoded(QByteArray bytes) {
  QBuffer buffer(&bytes);
  // The format that is tried first.
  const QImage picture = QImageReader(&buffer, "bmp").read();
  return picture.format() == QImage::Format_RGB32
             ? picture
             : picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

}  // namespace

QImage LoadPicture(const QString& path) {
  static QHash<QString, KeptPicture> kept;
  const QByteArray name = QFile::encodeName(path);
  const std::optional<FileState> state = StateOf(name);
  if (!state || state->size > largest_file) return {};
  const auto known = kept.constFind(path);
  if (known != kept.cend() && known->state == *state) return known->picture;
  QImage picture = Decoded(BytesOf(name, state->size));
  if (!picture.isNull() && picture.sizeInBytes() <= largest_kept) {
    kept.insert(path, {*state, picture});
  }
  return picture;
}

}  // namespace rostermill
