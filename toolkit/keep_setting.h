#pragma once

#include <QSettings>

namespace rostermill {

/// Stores a setting, unless the disk is full: Qt doesn't notice that and puts an empty file in the
/// place of all settings. The setting is then left as it was.
void KeepSetting(QSettings& settings, const QString& key, const QVariant& value);

}  // namespace rostermill
