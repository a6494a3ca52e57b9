#pragma once

#include <QStringList>

class QPagedPaintDevice;

namespace rostermill {

struct PrintResult {
  int Pages = 0;    ///< 0 when the device failed
  QString Failure;  ///< which step failed, as a sentence's end; empty when none did
};

/// Prints lines of text in "Courier New", or in the system's fixed-pitch font where that is
/// missing, from the top of the first page and on as many pages as the paper makes of them. The
/// size is that of the program's own text, or as much smaller as the longest line needs to fit on
/// the paper.
PrintResult PrintLines(QPagedPaintDevice& device, const QStringList& lines);

}  // namespace rostermill
