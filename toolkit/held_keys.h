#pragma once

namespace rostermill {

/// From the first call on, Enter and Esc act once for each press in every window of the program,
/// message boxes included: held down they don't run on through what opens or comes to the front
/// meanwhile. Enter goes on stepping a button that repeats while it is held.
void LetHeldKeysActOnce();

}  // namespace rostermill
