#pragma once

#include <functional>

namespace rostermill {

/// Called now and then during the longer steps of a load or a save so that the window can repaint.
using Yield = std::function<void()>;

}  // namespace rostermill
