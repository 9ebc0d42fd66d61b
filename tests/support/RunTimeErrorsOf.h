#pragma once

#include "tests/support/Harness.h"
#include "tests/support/Sanitizer.h"

#include <vector>

namespace numbrela::testing {

// The run-time errors that reach the application during an action. Debian's Qt is built without clean-up for
// exceptions: what it holds while one passes through it is lost. The program ends then, but a test goes on, and must
// not be reported for the leak. So the action must also make whatever the error passes through, above all the window.
template <typename Action>
std::vector<RunTimeError> RunTimeErrorsOf(Action action)
{
    const UnreportedLeaks unreported;
    action();
    return TakeRunTimeErrors();
}

} // namespace numbrela::testing
