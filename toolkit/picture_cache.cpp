#include "toolkit/picture_cache.h"

#include <QBuffer>
#include <QFile>
#include <QHash>
#include <QImageReader>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#else
#include <QDateTime>
#include <QFileInfo>
#endif

#include <optional>

namespace rostermill {

namespace {

/// Pictures larger than the program's own are not worth the memory.
constexpr qsizetype largest_kept = 1 << 20;

/// What distinguishes a changed file from a known one.
struct FileState {
  qint64 time = 0;  // nanoseconds or milliseconds, as the system gives them
  qint64 size = 0;
  bool operator==(const FileState&) const = default;
};

struct KeptPicture {
  FileState state;
  QImage picture;
};

/// Empty if it is not a regular file: a pipe could block the program.
std::optional<FileState> StateOf(const QString& path) {
#ifdef Q_OS_UNIX
  // A single system call; QFileInfo would also look up the time zone.
  struct stat found {};
  if (::stat(QFile::encodeName(path).constData(), &found) != 0 || !S_ISREG(found.st_mode)) {
    return std::nullopt;
  }
  constexpr qint64 nanoseconds = 1'000'000'000;
  return FileState{found.st_mtim.tv_sec * nanoseconds + found.st_mtim.tv_nsec, found.st_size};
#else
  const QFileInfo info(path);
  if (!info.isFile()) return std::nullopt;
  return FileState{info.lastModified().toMSecsSinceEpoch(), info.size()};
#endif
}

/// Decodes the file from memory, in a format that can be painted magnified without conversion.
QImage Decoded(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) return {};
  QByteArray bytes = file.readAll();
  QBuffer buffer(&bytes);
  const QImage picture = QImageReader(&buffer).read();
  return picture.format() == QImage::Format_RGB32
             ? picture
             : picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

}  // namespace

QImage LoadPicture(const QString& path) {
  static QHash<QString, KeptPicture> kept;
  const std::optional<FileState> state = StateOf(path);
  if (!state) return {};
  const auto known = kept.constFind(path);
  if (known != kept.cend() && known->state == *state) return known->picture;
  QImage picture = Decoded(path);
  if (!picture.isNull() && picture.sizeInBytes() <= largest_kept) {
    kept.insert(path, {*state, picture});
  }
  return picture;
}

}  // namespace rostermill
