#pragma once

namespace numbrela {

// Makes a sound that says that there is nothing to act on.
void Beep();

// The number of beeps since the program started, for tests, which cannot hear them.
int BeepCount();

} // namespace numbrela
