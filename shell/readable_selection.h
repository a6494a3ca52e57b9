#pragma once

#include <QPalette>

namespace rostermill {

/// The colours of what is selected in `system`, their ground made darker or lighter as far as it
/// takes for the text to stand out from it by 4.5 to 1. All other roles are left to the system.
QPalette ReadableSelection(const QPalette& system);

}  // namespace rostermill
