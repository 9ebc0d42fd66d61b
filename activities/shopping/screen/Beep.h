#pragma once

namespace numbrela {

// Says by a sound that there is nothing to be done.
void Beep();

// How often that has happened since the program began. A test sees by it what it cannot hear.
int BeepCount();

} // namespace numbrela
