#pragma once

#include <QPalette>

namespace rostermill {

/// `palette` with the ground of what is selected made darker or lighter, as far as it takes for the
/// text on it to stand out by 4.5 to 1. What no one has set stays the system's to change.
QPalette ReadableSelection(QPalette palette);

}  // namespace rostermill
