#include "toolkit/picture_cache.h"

#include <QHash>
#include <QImageReader>

#include <filesystem>

namespace rostermill {

namespace {

/// A picture larger than the program's own is not worth the memory.
constexpr qsizetype largest_kept = 1 << 20;

struct KeptPicture {
  std::filesystem::file_time_type time;
  std::uintmax_t size = 0;
  QImage picture;
};

}  // namespace

QImage LoadPicture(const QString& path) {
  static QHash<QString, KeptPicture> kept;
  // Not QFileInfo: it turns the time into local time, which looks for the time zone each time.
  const std::filesystem::path file(path.toStdU16String());
  std::error_code error;
  const auto size = std::filesystem::file_size(file, error);
  if (error) return {};
  const auto time = std::filesystem::last_write_time(file, error);
  const auto known = kept.constFind(path);
  if (known != kept.cend() && known->time == time && known->size == size) {
    return known->picture;
  }
  // Magnifying a picture with a colour table takes three times as long.
  const QImage picture =
      QImageReader(path).read().convertToFormat(QImage::Format_ARGB32_Premultiplied);
  if (!picture.isNull() && picture.sizeInBytes() <= largest_kept) {
    kept.insert(path, {time, size, picture});
  }
  return picture;
}

}  // namespace rostermill
