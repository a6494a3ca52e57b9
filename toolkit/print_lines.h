#pragma once

#include <QStringList>

class QPagedPaintDevice;

namespace rostermill {

/// Prints lines of text in "Courier New", or in the system's fixed-pitch font where that is
/// missing, from the top of the first page and on as many pages as the paper makes of them. The
/// size is that of the program's own text, or as much smaller as the longest line needs to fit on
/// the paper. Returns the number of pages; 0 when the device failed.
int PrintLines(QPagedPaintDevice& device, const QStringList& lines);

}  // namespace rostermill
