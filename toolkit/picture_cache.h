#pragma once

#include <QImage>
#include <QString>

namespace rostermill {

/// The picture in a file; null if there is none. It is decoded once, and again when the file's time
/// or size has changed.
QImage LoadPicture(const QString& path);

}  // namespace rostermill
