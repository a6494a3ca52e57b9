#pragma once

#include <QStringList>

class QPagedPaintDevice;

namespace rostermill {

struct PrintResult {
  int Pages = 0;    ///< 0 if the device failed
  QString Failure;  ///< which step failed, as the end of a sentence; empty if none did
};

/// Prints lines of text in "Courier New", or in the system's fixed-pitch font where that is
/// missing, starting at the top of the first page and on as many pages as it takes. The size is
/// the usual one of that font, or smaller if the longest line would not fit on the paper.
PrintResult PrintLines(QPagedPaintDevice& device, const QStringList& lines);

}  // namespace rostermill
