#pragma once

#include "tests/monkey/Order.h"

namespace numbrela::testing {

// Lets a monkey play in a process of its own and watches it: a crash, a hang, or an end of the program that is not
// meant to be fails the run, and it is said how to repeat it. When the program ends as it is meant to, the monkey goes
// on in a new process, as a pupil starts the program again. `play` runs in the new process and returns whether all
// events have happened; otherwise the program has ended. Returns whether all went well, and prints what happened.
bool KeepWatch(const Order& order, bool (*play)(const Order&, Progress&));

// Says that the process has come to its next event. One that hangs longer than any event takes is killed.
void SayAlive();

} // namespace numbrela::testing
