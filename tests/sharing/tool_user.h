#pragma once

#include "tests/sharing/place.h"

namespace rostermill::test {

/// Calls rsmtool at random on the image until it is to stop; for a process of its own.
int RunToolUser(const Place& place, const Writer& writer, unsigned seed);

}  // namespace rostermill::test
