#pragma once

#include <QPalette>

namespace rostermill {

/// `palette` with the background of selected items made darker or lighter until the text on it has
/// a contrast of 4.5 to 1. All other roles keep following the system.
QPalette ReadableSelection(QPalette palette);

}  // namespace rostermill
