#pragma once

#include <chrono>

namespace rostermill {

/// From the first call on, the text cursor stops blinking, and stays visible, when no key or mouse
/// button has been pressed for this time. It would wake the processor twice a second for as long as
/// the program is open.
void LetCaretRest(std::chrono::milliseconds after = std::chrono::seconds(10));

}  // namespace rostermill
