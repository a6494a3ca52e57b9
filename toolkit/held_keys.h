#pragma once

namespace rostermill {

/// From the first call on, Enter and Esc act once per press in every window of the program,
/// including message boxes. Held down, they do not continue into windows that open or come to the
/// front meanwhile. Enter keeps stepping a button that repeats while it is held.
void LetHeldKeysActOnce();

}  // namespace rostermill
