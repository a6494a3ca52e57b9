#include "toolkit/keep_setting.h"

#include <QFileInfo>
#include <QStorageInfo>

namespace rostermill {

namespace {

/// Far more than all settings take.
constexpr qint64 room_needed = 128 << 10;

}  // namespace

void KeepSetting(QSettings& settings, const QString& key, const QVariant& value) {
  // The folder may not be there yet.
  QFileInfo place(settings.fileName());
  while (!place.exists() && !place.isRoot()) place.setFile(place.absolutePath());
  const qint64 room = QStorageInfo(place.absoluteFilePath()).bytesAvailable();
  if (room < 0 || room >= room_needed) settings.setValue(key, value);
}

}  // namespace rostermill
