#pragma once

#include "tools/rsmtool/console.h"

namespace rostermill {

/// Runs the program with the arguments after its name; returns its exit code. Never throws.
int RunRsmtool(const QStringList& arguments, Console& console);

}  // namespace rostermill
