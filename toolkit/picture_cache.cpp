#include "toolkit/picture_cache.h"

#include <QFileInfo>
#include <QHash>
#include <QImageReader>

namespace rostermill {

namespace {

/// A picture larger than the program's own is not worth the memory.
constexpr qsizetype largest_kept = 1 << 20;

struct KeptPicture {
  qint64 time = 0;
  qint64 size = 0;
  QImage picture;
};

}  // namespace

QImage LoadPicture(const QString& path) {
  static QHash<QString, KeptPicture> kept;
  const QFileInfo file(path);
  if (!file.isFile()) return {};
  const qint64 time = file.fileTime(QFile::FileModificationTime).toMSecsSinceEpoch();
  const auto known = kept.constFind(path);
  if (known != kept.cend() && known->time == time && known->size == file.size()) {
    return known->picture;
  }
  // Magnifying a picture with a colour table takes three times as long.
  const QImage picture =
      QImageReader(path).read().convertToFormat(QImage::Format_ARGB32_Premultiplied);
  if (!picture.isNull() && picture.sizeInBytes() <= largest_kept) {
    kept.insert(path, {time, file.size(), picture});
  }
  return picture;
}

}  // namespace rostermill
