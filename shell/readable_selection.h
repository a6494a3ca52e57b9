#pragma once

#include <QPalette>

namespace rostermill {

/// `palette` with the ground of what is selected made darker or lighter, as far as it takes for the
/// text on it to stand out by 4.5 to 1. All other roles go on following the system.
QPalette ReadableSelection(QPalette palette);

}  // namespace rostermill
