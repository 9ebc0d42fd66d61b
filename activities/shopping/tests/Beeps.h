#pragma once

namespace numbrela::testing {

// How often this program has beeped. Calls of QApplication::beep() reach the tests instead, since the platform without
// a display is silent.
int Beeps();

} // namespace numbrela::testing
