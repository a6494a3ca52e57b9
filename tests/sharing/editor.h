#pragma once

#include "tests/sharing/place.h"

namespace rostermill::test {

/// Uses the program's main window at random on the image until it is to stop; for a process of its
/// own that has a QApplication.
int RunEditor(const Place& place, const Writer& writer, unsigned seed);

}  // namespace rostermill::test
